#include <QFontDatabase>

#include "controls/theme.h"

namespace controls {

namespace {

const QStringList proportional{QStringLiteral("Noto Sans"), QStringLiteral("Liberation Sans"),
                               QStringLiteral("DejaVu Sans")};
const QStringList fixedWidth{QStringLiteral("Liberation Mono"), QStringLiteral("DejaVu Sans Mono"),
                             QStringLiteral("Noto Sans Mono")};

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
    static const QStringList mapped{QStringLiteral("tahoma"), QStringLiteral("ms sans serif"),
                                    QStringLiteral("arial greek"), QStringLiteral("arial")};
    const QString folded = name.trimmed().toLower();
    if (folded.startsWith(QLatin1String("courier"))) return fixed;
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
