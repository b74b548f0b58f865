#include "data/values/lettercase.h"

#include <QLocale>

using namespace Qt::Literals::StringLiterals;

namespace data {
namespace {

const QLocale& greek() {
    static const QLocale locale(QLocale::Greek, QLocale::Greece);
    return locale;
}

}  // namespace

QString upperText(const QString& text) {
    // The one accent that capitals keep comes as a character of its own.
    return greek().toUpper(text).replace(u"Η\u0301"_s, u"Ή"_s);
}

QString lowerText(const QString& text) {
    return greek().toLower(text);
}

}  // namespace data
