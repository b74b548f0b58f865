#pragma once

#include <QByteArray>
#include <optional>

#include "core/mainmod.h"

class QWidget;

namespace core {

// Asks for a picture file; its bytes as they are, nothing on a cancel or for a file that is no picture.
std::optional<QByteArray> choosePhoto(MainMod& mod, QWidget* parent);

}  // namespace core
