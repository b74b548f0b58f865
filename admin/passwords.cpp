#include "admin/passwords.h"

#include <QDir>
#include <QFile>
#include <cstdio>

#include "data/error.h"

namespace admin {
namespace {

using namespace Qt::Literals::StringLiterals;

const QString plainOption = u"--admin-password"_s, fileOption = u"--admin-password-file"_s;
constexpr char variable[] = "DORVALIST_ADMIN_PASSWORD";
constexpr qint64 longestLine = 4096;

QString firstLineOf(const QString& name) {
    QFile file(name);
    const bool open = name == u"-" ? file.open(stdin, QIODevice::ReadOnly) : file.open(QIODevice::ReadOnly);
    if (!open)
        throw data::Error(data::ErrorCategory::Connection, u"Το αρχείο «%1» δεν διαβάζεται: %2"_s.arg(
                                                               QDir::toNativeSeparators(name), data::reasonOf(file)));
    QString line = QString::fromUtf8(file.readLine(longestLine));
    while (line.endsWith(u'\n') || line.endsWith(u'\r')) line.chop(1);
    return line;
}

}  // namespace

Option passwordFileOption() {
    return {fileOption, u"ΑΡΧΕΙΟ"_s,
            u"η πρώτη γραμμή του είναι ο κωδικός του Admin· με - διαβάζεται από την καθιερωμένη είσοδο. Αλλιώς ισχύει "
            u"η μεταβλητή περιβάλλοντος DORVALIST_ADMIN_PASSWORD"_s};
}

std::optional<QString> passwordGiven(const Arguments& arguments) {
    if (arguments.has(plainOption) && arguments.has(fileOption))
        throw UsageError{u"Ο κωδικός δίνεται με έναν τρόπο: --admin-password ή --admin-password-file."_s};
    if (arguments.has(fileOption)) return firstLineOf(arguments.value(fileOption));
    if (arguments.has(plainOption)) return arguments.value(plainOption);
    if (qEnvironmentVariableIsSet(variable)) return qEnvironmentVariable(variable);
    return std::nullopt;
}

}  // namespace admin
