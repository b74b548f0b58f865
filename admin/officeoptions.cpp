#include "admin/officeoptions.h"

#include <QCoreApplication>
#include <QDir>

#include "data/error.h"
#include "schema/creation.h"

namespace admin {

using namespace Qt::Literals::StringLiterals;

QString deliveredReferenceFolder() {
    QDir folder(QCoreApplication::applicationDirPath());
    constexpr int parents = 4;  // build/PRESET/admin lies three below the source tree
    for (int i = 0; i < parents && folder.cdUp(); ++i)
        for (const QString& path : {u"share/dorvalist/reference"_s, u"assets/reference"_s})
            if (folder.exists(path + u"/namedays.tsv"_s)) return folder.filePath(path);
    return {};
}

void createOffice(const Arguments& arguments, const QString& adminPassword) {
    schema::NewOffice office;
    office.adminPassword = adminPassword;
    office.referenceFolder =
        arguments.has(u"--reference"_s) ? arguments.value(u"--reference"_s) : deliveredReferenceFolder();
    if (office.referenceFolder.isEmpty())
        throw data::Error(data::ErrorCategory::Other,
                          u"Δεν βρέθηκαν τα αρχεία αναφοράς· δώστε τον φάκελό τους με --reference."_s);
    office.server = serverGiven(arguments);
    schema::createOffice(arguments.positional().first(), office);
}

std::optional<data::ServerDescription> serverGiven(const Arguments& arguments) {
    if (!arguments.has(u"--server"_s)) return {};
    return data::serverFromOptions(arguments.value(u"--server"_s));
}

Option referenceOption() {
    return {u"--reference"_s, u"ΦΑΚΕΛΟΣ"_s, u"από πού φορτώνονται εορτές, φάρμακα και λεξικό (αλλιώς τα παραδοτέα)"_s};
}

Option serverOption() {
    return {
        u"--server"_s, u"ΣΤΟΙΧΕΙΑ"_s,
        u"οι βάσεις φτιάχνονται σε διακομιστή PostgreSQL, π.χ. \"host=pc1 database=grafeio user=maria\"· τα δύο αρχεία "
        u"λένε πού βρίσκονται"_s};
}

Option adminPasswordOption(const QString& help) {
    return {u"--admin-password"_s, u"ΚΩΔΙΚΟΣ"_s, help};
}

}  // namespace admin
