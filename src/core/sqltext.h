#pragma once

#include <QString>

namespace core {

// A typed value for its place between single quotes in a statement: its own quotes doubled.
inline QString sqlText(QString value) {
    return value.replace(u'\'', QStringLiteral("''"));
}

}  // namespace core
