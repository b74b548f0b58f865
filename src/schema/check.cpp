#include "schema/check.h"

#include <QDir>
#include <QFileInfo>

#include "data/dialect/enginedialect.h"
#include "data/opening/fileidentity.h"
#include "data/opening/privatefile.h"
#include "data/opening/serverdescription.h"
#include "data/smallrows.h"
#include "schema/indexes.h"
#include "schema/upgrade.h"

namespace schema {
namespace {

using namespace Qt::Literals::StringLiterals;

QString typeName(const data::ColumnInfo& column) {
    static const QHash<data::ColumnType, QString> names = {{data::ColumnType::Autonumber, u"Autonumber"_s},
                                                           {data::ColumnType::Long, u"Long"_s},
                                                           {data::ColumnType::Integer, u"Integer"_s},
                                                           {data::ColumnType::Single, u"Single"_s},
                                                           {data::ColumnType::Double, u"Double"_s},
                                                           {data::ColumnType::Text, u"Text"_s},
                                                           {data::ColumnType::Memo, u"Memo"_s},
                                                           {data::ColumnType::YesNo, u"Yes/No"_s},
                                                           {data::ColumnType::DateTime, u"Date/Time"_s},
                                                           {data::ColumnType::LongBinary, u"Long binary"_s}};
    const QString name = names.value(column.type);
    return column.type == data::ColumnType::Text ? u"%1(%2)"_s.arg(name).arg(column.size) : name;
}

void checkColumns(QStringList& found, const data::TableInfo& wanted, const data::TableInfo& there) {
    for (qsizetype i = 0; i < qMax(wanted.columns.size(), there.columns.size()); ++i) {
        if (i >= there.columns.size()) {
            found += u"Πίνακας %1: λείπει η στήλη %2."_s.arg(wanted.name, wanted.columns[i].name);
        } else if (i >= wanted.columns.size()) {
            found += u"Πίνακας %1: περισσεύει η στήλη %2."_s.arg(wanted.name, there.columns[i].name);
        } else if (wanted.columns[i].name != there.columns[i].name) {
            found += u"Πίνακας %1: στη θέση %2 περιμέναμε τη στήλη %3 και είναι η %4."_s.arg(wanted.name)
                         .arg(i + 1)
                         .arg(wanted.columns[i].name, there.columns[i].name);
            return;  // the rest would only repeat it
        } else if (typeName(wanted.columns[i]) != typeName(there.columns[i])) {
            found += u"Πίνακας %1: η στήλη %2 είναι %3 αντί για %4."_s.arg(
                wanted.name, wanted.columns[i].name, typeName(there.columns[i]), typeName(wanted.columns[i]));
        }
    }
}

void checkIndexes(QStringList& found, data::Connection& connection, Database database) {
    QHash<QString, QString> stored = connection.engine().indexes();
    for (const Table& table : tables(database)) {
        const data::TableInfo* there = connection.catalog().find(table.name);
        if (!there) continue;
        for (const Index& index : table.indexes) {
            if (!index.in(currentVersion)) continue;
            const QByteArray sql = indexSql(connection, table, index);
            if (!stored.contains(index.name))
                found += u"Πίνακας %1: λείπει το ευρετήριο %2."_s.arg(table.name, index.name);
            else if (stored.take(index.name) != QString::fromUtf8(sql))
                found += u"Πίνακας %1: το ευρετήριο %2 δεν είναι αυτό που πρέπει."_s.arg(table.name, index.name);
        }
    }
    for (const QString& name : stored.keys()) found += u"Περισσεύει το ευρετήριο %1."_s.arg(name);
}

void checkTables(QStringList& found, data::Connection& connection, Database database) {
    for (const Table& table : tables(database)) {
        const data::TableInfo* there = connection.catalog().find(table.name);
        if (there)
            checkColumns(found, tableInfo(table), *there);
        else
            found += u"Λείπει ο πίνακας %1."_s.arg(table.name);
    }
    for (const data::TableInfo& there : connection.catalog().tables())
        if (!findTable(database, there.name)) found += u"Περισσεύει ο πίνακας %1."_s.arg(there.name);
}

bool holds(const QVector<data::Trigger>& all, const data::Trigger& wanted) {
    return std::any_of(all.begin(), all.end(),
                       [&](const data::Trigger& one) { return one.name == wanted.name && one.sql == wanted.sql; });
}

QVector<data::Trigger> wantedTriggers(data::Connection& connection, const Table& table) {
    const data::TableInfo* there = connection.catalog().find(table.name);
    if (!there || there->words.columns.isEmpty()) return {};
    return data::wordTriggers(connection.engine(), *there, there->words.columns);
}

void checkTriggers(QStringList& found, data::Connection& connection, Database database) {
    for (const Table& table : tables(database))
        if (!wordTriggersStand(connection, table))
            found += u"Πίνακας %1: το ευρετήριο των λέξεων δεν ενημερώνεται, και οι αναζητήσεις χάνουν εγγραφές."_s.arg(
                table.name);
    for (const data::Trigger& trigger : foreignTriggers(connection, database))
        found += u"Πίνακας %1: υπάρχει ο ξένος μηχανισμός (trigger) %2."_s.arg(trigger.table, trigger.name);
}

// A description may carry a password, which opens the whole office.
bool hasPassword(const QString& file) {
    if (data::identifyFile(file).kind != data::FileKind::ServerDescription) return false;
    try {
        return !data::readServerDescription(file).password.isEmpty();
    } catch (const data::Error&) {
        return true;  // a line that isn't understood may be one
    }
}

QStringList filesOpenToOthers(const QString& file) {
    const QFileInfo info(file);
    QStringList found;
    for (const QString& name : info.dir().entryList({info.fileName() + u'*'}, QDir::Files | QDir::Hidden))
        if (const QString path = info.dir().filePath(name); data::isOpenToOthers(path)) found += path;
    return found;
}

}  // namespace

QVector<data::Trigger> foreignTriggers(data::Connection& connection, Database database) {
    QStringList ours;
    for (const Table& table : tables(database))
        for (const data::Trigger& trigger : wantedTriggers(connection, table)) ours += trigger.name;
    QVector<data::Trigger> all = data::triggers(connection.engine());
    all.removeIf([&](const data::Trigger& trigger) { return ours.contains(trigger.name); });
    return all;
}

bool wordTriggersStand(data::Connection& connection, const Table& table) {
    const QVector<data::Trigger> wanted = wantedTriggers(connection, table), all = data::triggers(connection.engine());
    return std::all_of(wanted.begin(), wanted.end(), [&](const data::Trigger& one) { return holds(all, one); });
}

QStringList openFiles(const QString& file) {
    QStringList found;
    for (const QString& path : filesOpenToOthers(file)) {
        const QString about = hasPassword(path)
                                  ? u"Το «%1» έχει μέσα κωδικό και το διαβάζουν όλοι οι χρήστες του υπολογιστή."_s
                                  : u"Το «%1» το διαβάζουν όλοι οι χρήστες του υπολογιστή."_s;
        found += about.arg(QFileInfo(path).fileName());
    }
    return found;
}

void closeFiles(const QString& file) {
    for (const QString& path : filesOpenToOthers(file)) {
        data::closeToOthers(path);
        if (data::isOpenToOthers(path))
            throw data::Error(data::ErrorCategory::ReadOnly,
                              u"Τα δικαιώματα του «%1» τα αλλάζει μόνο ο ιδιοκτήτης του."_s.arg(path));
    }
}

QStringList fileDamage(data::Connection& connection) {
    QStringList found;
    for (const QString& damage : connection.engine().damages()) found += u"Βλάβη στο αρχείο: "_s + damage;
    return found;
}

QStringList findings(data::Connection& connection, Database database) {
    QStringList found;
    const int version = storedVersion(connection);
    if (version != currentVersion)
        found += u"Η έκδοση της βάσης είναι %1 αντί για %2."_s.arg(version).arg(currentVersion);
    checkTables(found, connection, database);
    checkIndexes(found, connection, database);
    checkTriggers(found, connection, database);
    return found + fileDamage(connection);
}

QStringList hindrances(data::Connection& connection, Database database) {
    QStringList found = connection.engine().hindrances();
    for (const Table& table : tables(database)) {
        const data::TableInfo* there = connection.catalog().find(table.name);
        if (there && wordColumns(table, *there) != there->words.columns)
            found += u"Πίνακας %1: το ευρετήριο των λέξεων λείπει ή δεν είναι αυτό που πρέπει."_s.arg(table.name);
    }
    return found;
}

QVector<TableCount> tableCounts(data::Connection& connection, Database database) {
    QVector<TableCount> counts;
    for (const Table& table : tables(database)) {
        if (!connection.catalog().find(table.name)) continue;
        const QByteArray from = connection.engine().dialect().identifier(table.name);
        counts += {table.name, data::textRows(connection.engine(), "SELECT count(*) FROM " + from).firstNumber()};
    }
    return counts;
}

}  // namespace schema
