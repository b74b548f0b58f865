#pragma once

#include <QTextStream>

namespace admin {

// Standard output and error, UTF-8 whatever the locale.
QTextStream& out();
QTextStream& err();

}  // namespace admin
