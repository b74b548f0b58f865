#include "copies/databasecopy.h"

#include "data/error.h"
#include "schema/check.h"
#include "schema/office.h"
#include "schema/workfolder.h"

namespace copies {

using namespace Qt::Literals::StringLiterals;
using data::Error;
using data::ErrorCategory;
using schema::Database;
using schema::databaseFileName;
using schema::dumpFileName;

void checkCopy(const QString& file, Database database, const RowCounts& wanted) {
    data::Connection copy;
    schema::openToRead(copy, schema::connectionString(database, file));
    const QStringList damage = schema::fileDamage(copy);
    if (!damage.isEmpty()) throw Error(ErrorCategory::Corrupt, damage.first());
    if (rowCounts(copy) != wanted)
        throw Error(ErrorCategory::Corrupt,
                    u"Οι εγγραφές του «%1» δεν είναι όσες έπρεπε."_s.arg(databaseFileName(database)));
}

// The tables of the program alone: what else stands in the schema serves them.
void checkDump(const QString& file, Database database, const RowCounts& wanted, const ServerTools& tools,
               const schema::Progress& progress) {
    const QString counting = u"Έλεγχος του "_s + dumpFileName(database);
    RowCounts found = rowsInDump(tools, file, [&] { return !progress || progress(counting, 0); });
    const bool ours = found.contains(u"_dorvalist"_s);
    for (const QString& table : found.keys())
        if (table.startsWith(u'_')) found.remove(table);
    if (!ours || found != wanted)
        throw Error(ErrorCategory::Corrupt,
                    u"Οι εγγραφές του «%1» δεν είναι όσες έπρεπε."_s.arg(dumpFileName(database)));
}

RowCounts copyChecked(data::Connection& source, Database database, const QString& target,
                      const schema::Progress& progress) {
    RowCounts counts;
    const QString copying = u"Αντιγραφή του "_s + databaseFileName(database);
    source.engine().backupTo(
        target,
        [&] {
            counts = rowCounts(source);
            schema::report(progress, copying, 0);
        },
        [&](qint64 done, qint64 all) { return !progress || progress(copying, all > 0 ? int(done * 100 / all) : 100); });
    schema::report(progress, u"Έλεγχος του "_s + databaseFileName(database), 0);
    checkCopy(target, database, counts);
    return counts;
}

RowCounts dumpChecked(data::Connection& source, const data::ServerDescription& server, Database database,
                      const QString& target, const ServerTools& tools, const schema::Progress& progress) {
    const QString copying = u"Αντιγραφή του "_s + databaseFileName(database);
    schema::report(progress, copying, 0);
    source.engine().beginSnapshot();
    const RowCounts counts = rowCounts(source);
    dumpSchema(tools, server, source.engine().snapshotName(), target,
               [&] { return !progress || progress(copying, 0); });
    source.engine().rollback();
    checkDump(target, database, counts, tools, progress);
    return counts;
}

}  // namespace copies
