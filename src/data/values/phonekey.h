// Telephone numbers as they compare, however they were written.
#pragma once

#include <QString>

namespace data {

// The digits of a number that a text begins with, without the blanks, dashes, dots, strokes and brackets between them
// and without Greece's prefix: "+30 2310-123456", "0030 2310123456" and "2310 123456 (int. 5)" give "2310123456". Other
// countries keep theirs: "+44 20" and "0044 20" give "4420". Empty when the text doesn't begin with a number.
QString phoneKey(QStringView text);

// Whether the text is nothing but a telephone number or the beginning of one.
bool looksLikePhone(QStringView text);

}  // namespace data
