// Capitals and small letters as Greek writes them: capitals carry no accents, and a word ends in "ς".
#pragma once

#include <QString>

namespace data {

QString upperText(const QString& text);
QString lowerText(const QString& text);

}  // namespace data
