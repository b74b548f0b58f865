#pragma once

#include <QByteArray>
#include <optional>

#include "core/mainmod.h"

class QWidget;

namespace cards {

// Asks for a picture file; its bytes as they are, nothing on a cancel or for a file that is no picture.
std::optional<QByteArray> choosePhoto(core::MainMod& mod, QWidget* parent);

}  // namespace cards
