#include "schema/databasefiles.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <filesystem>

#include "data/error.h"
#include "data/opening/fileidentity.h"

namespace schema {

using namespace Qt::Literals::StringLiterals;
using data::Error;
using data::ErrorCategory;

QString stamp(const QDateTime& now) {
    return now.toString(u"yyyyMMdd-HHmmss"_s);
}

QString freeName(const QString& wanted) {
    QString name = wanted;
    for (int i = 2; QFileInfo::exists(name); ++i) name = u"%1-%2"_s.arg(wanted).arg(i);
    return name;
}

void refuseIfThere(const QString& file) {
    if (QFileInfo::exists(file))
        throw Error(ErrorCategory::Constraint,
                    u"Υπάρχει ήδη το αρχείο «%1»· δεν πειράχτηκε τίποτα."_s.arg(QDir::toNativeSeparators(file)));
}

QStringList journalsOf(const QString& file) {
    QStringList found = data::sqliteSideFiles(file);
    found.removeIf([](const QString& side) { return !QFileInfo::exists(side); });
    return found;
}

void moveTo(const QString& from, const QString& to, bool replace) {
    if (replace) {
        std::error_code failure;
        std::filesystem::rename(from.toStdU16String(), to.toStdU16String(), failure);
        if (failure) data::failWriting(to, QString::fromLocal8Bit(failure.message().c_str()));
    } else {
        QFile file(from);
        if (!file.rename(to)) data::failWriting(to, data::reasonOf(file));
    }
}

}  // namespace schema
