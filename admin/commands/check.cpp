#include "schema/check.h"

#include "admin/command.h"
#include "admin/output.h"
#include "admin/seat.h"
#include "copies/upgradecopy.h"
#include "data/error.h"
#include "schema/office.h"
#include "schema/repair.h"

namespace admin {
namespace {

using namespace Qt::Literals::StringLiterals;

// True when nothing was found.
bool checkDatabase(schema::Database database, const QString& file) {
    out() << file << Qt::endl;
    QStringList found;
    try {
        data::Connection connection;
        schema::openToRead(connection, schema::connectionString(database, file));
        for (const schema::TableCount& count : schema::tableCounts(connection, database))
            out() << u"  %1\t%2"_s.arg(count.table).arg(count.rows) << Qt::endl;
        found = schema::findings(connection, database) + schema::hindrances(connection, database);
    } catch (const data::Error& error) {
        found += error.text();
    }
    found += schema::openFiles(file);
    for (const QString& line : found) err() << line << Qt::endl;
    return found.isEmpty();
}

void repairDatabase(schema::Database database, const QString& file) {
    schema::closeFiles(file);
    data::Connection connection;
    copies::openUpgraded(connection, schema::connectionString(database, file));
    const QStringList done = schema::repair(connection, database, [&] {
        const QString copy = copies::copyBeforeUpgrade(connection, database, file, QDateTime::currentDateTime());
        if (!copy.isEmpty()) out() << u"Πριν από τη διόρθωση γράφτηκε το αντίγραφο "_s << copy << Qt::endl;
    });
    for (const QString& line : done) out() << line << Qt::endl;
}

ExitCode check(const Arguments& arguments) {
    const QString folder = arguments.positional().first();
    const Seat seat(folder);
    if (arguments.has(u"--repair"_s))
        for (const schema::Database database : schema::allDatabases)
            repairDatabase(database, schema::databasePath(folder, database));
    const bool main = checkDatabase(schema::Database::Main, schema::mainDatabasePath(folder));
    const bool users = checkDatabase(schema::Database::Users, schema::usersDatabasePath(folder));
    if (!main || !users) return Failed;
    out() << u"Δεν βρέθηκε κανένα πρόβλημα."_s << Qt::endl;
    return Fine;
}

}  // namespace

Command checkCommand() {
    return {u"check"_s,
            u"ΦΑΚΕΛΟΣ"_s,
            u"ελέγχει τις δύο βάσεις δεδομένων"_s,
            u"Ελέγχει την ακεραιότητα των αρχείων, τους πίνακες, τις στήλες, τους τύπους και τα ευρετήρια, και δείχνει "
            u"πόσες εγγραφές έχει κάθε πίνακας και ποια αρχεία διαβάζουν και άλλοι χρήστες του υπολογιστή. Χωρίς "
            u"--repair δεν αλλάζει τίποτα. Κάθε εύρημα δίνει κωδικό εξόδου 1."_s,
            1,
            1,
            {{u"--repair"_s,
              {},
              u"διορθώνει ό,τι διορθώνεται χωρίς να αγγίξει εγγραφές (ευρετήρια, ξένους μηχανισμούς, δικαιώματα "
              u"αρχείων), αφού κρατήσει αντίγραφο δίπλα στη βάση"_s}},
            check};
}

}  // namespace admin
