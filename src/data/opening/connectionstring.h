#pragma once

#include <QHash>
#include <QString>

namespace data {

// The properties of "key=value; key='va;lue'": keys in lower case, blanks around both taken off, a value that begins
// with a quote ends at its partner (doubled inside). Of a key given twice the last counts; a piece without "=" is
// passed over.
QHash<QString, QString> parseConnectionString(QStringView text);

}  // namespace data
