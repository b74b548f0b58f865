#pragma once

#include <QTextStream>

namespace admin {

// Standard output and error, UTF-8 whatever the locale.
QTextStream& out();
QTextStream& err();

// A value as one cell of a line: tabs and line ends as \t, \r, \n.
QString escaped(QString text);

}  // namespace admin
