#include "data/values/phonekey.h"

namespace data {
namespace {

bool isSeparator(QChar c) {
    return QStringView(u" \u00A0()-./\u2010\u2011\u2012\u2013").contains(c);
}

// What the text has of a number at its beginning: digits, and a plus before them.
struct Written {
    QString digits;
    bool plus = false;
    bool whole = true;  // nothing else follows
};

Written readNumber(QStringView text) {
    Written number;
    for (const QChar c : text) {
        if (c >= u'0' && c <= u'9') {
            number.digits += c;
        } else if (c == u'+' && number.digits.isEmpty() && !number.plus) {
            number.plus = true;
        } else if (!isSeparator(c)) {
            number.whole = false;
            break;
        }
    }
    return number;
}

}  // namespace

QString phoneKey(QStringView text) {
    const Written number = readNumber(text);
    QStringView digits = number.digits;
    const bool abroad = number.plus || digits.startsWith(u"00");
    if (!number.plus && abroad) digits = digits.sliced(2);
    if (abroad && digits.startsWith(u"30")) digits = digits.sliced(2);
    return digits.toString();
}

bool looksLikePhone(QStringView text) {
    return readNumber(text).whole && !phoneKey(text).isEmpty();
}

}  // namespace data
