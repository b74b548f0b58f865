#include "controls/fonts.h"

#include <QFontDatabase>

using namespace Qt::Literals::StringLiterals;

namespace controls {

namespace {

const QStringList proportional{u"Noto Sans"_s, u"Liberation Sans"_s, u"DejaVu Sans"_s};
const QStringList fixedWidth{u"Liberation Mono"_s, u"DejaVu Sans Mono"_s, u"Noto Sans Mono"_s};

bool hasGreek(const QString& family) {
    return QFontDatabase::hasFamily(family) && QFontDatabase::writingSystems(family).contains(QFontDatabase::Greek);
}

QString firstInstalled(const QStringList& families, QFontDatabase::SystemFont otherwise) {
    for (const QString& family : families) {
        if (hasGreek(family)) return family;
    }
    return QFontDatabase::systemFont(otherwise).family();
}

QString familyFor(const QString& name) {
    static const QString sans = firstInstalled(proportional, QFontDatabase::GeneralFont);
    static const QString fixed = firstInstalled(fixedWidth, QFontDatabase::FixedFont);
    static const QStringList mapped{u"tahoma"_s, u"ms sans serif"_s, u"arial greek"_s, u"arial"_s};
    const QString folded = name.trimmed().toLower();
    if (folded.startsWith(u"courier"_s)) return fixed;
    if (folded.isEmpty() || mapped.contains(folded)) return sans;
    return hasGreek(name) ? name : sans;  // a font of the user's own choice, such as a label's
}

}  // namespace

QFont font(const QString& name, double points, bool bold) {
    QFont made(familyFor(name));
    made.setPointSizeF(std::clamp(points, 1.0, 500.0));
    made.setBold(bold);
    return made;
}

}  // namespace controls
