#pragma once

#include <QString>

namespace core {

using namespace Qt::Literals::StringLiterals;

// A typed value for its place between single quotes in a statement: its own quotes doubled.
inline QString sqlText(QString value) {
    return value.replace(u'\'', u"''"_s);
}

}  // namespace core
