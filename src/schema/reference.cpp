#include "schema/reference.h"

#include <QSet>

#include "data/error.h"
#include "data/recordset.h"
#include "data/values/format.h"
#include "schema/tabfile.h"
#include "schema/tablewriter.h"

// The macro must not stand inside a namespace.
static void registerDelivered() {
    Q_INIT_RESOURCE(reference);
}

namespace schema {
namespace {

using namespace Qt::Literals::StringLiterals;

// Only day and month of a name day count. A leap year, so that 29/02 can be written.
constexpr int nameDayYear = 2000;

QDate parseNameDay(const QString& cell) {
    const bool shaped = cell.size() == 5 && cell[2] == u'/';
    bool dayReads = false, monthReads = false;
    const int day = cell.left(2).toInt(&dayReads), month = cell.mid(3).toInt(&monthReads);
    return shaped && dayReads && monthReads ? QDate(nameDayYear, month, day) : QDate();
}

QVariant cellValue(const QString& file, int line, const Column& column, const QString& cell) {
    if (column.type == data::ColumnType::DateTime) {
        const QDate day = parseNameDay(cell);
        if (!day.isValid()) failAtLine(file, line, u"το «%1» δεν είναι ημέρα και μήνας (ηη/μμ)"_s.arg(cell.left(20)));
        return data::wallClock(day);
    }
    if (cell.size() > column.size)
        failAtLine(file, line, u"η στήλη %1 δέχεται έως %2 χαρακτήρες"_s.arg(column.name).arg(column.size));
    return cell.isEmpty() ? QVariant() : QVariant(cell);
}

// Rows that show the same in every column are the same row.
QString rowKey(const QVector<QVariant>& values) {
    QStringList shown;
    for (const QVariant& value : values)
        shown += value.typeId() == QMetaType::QDateTime ? value.toDateTime().toString(u"MMdd") : value.toString();
    return shown.join(QChar(0));
}

struct CheckedRow {
    QVector<QVariant> values;
    QString key;
    int since;
};

QVector<CheckedRow> readRows(const Table& table, const QString& file) {
    QVector<CheckedRow> rows;
    QHash<QString, int> lineOf;
    for (const TabRow& row : readTabFile(file, int(table.columns.size()))) {
        if (row.cells.first().isEmpty()) failAtLine(file, row.line, u"η πρώτη στήλη είναι κενή"_s);
        CheckedRow checked;
        for (qsizetype i = 0; i < row.cells.size(); ++i)
            checked.values += cellValue(file, row.line, table.columns[i], row.cells[i]);
        checked.key = rowKey(checked.values);
        checked.since = row.since;
        if (lineOf.contains(checked.key))
            failAtLine(file, row.line, u"είναι ίδια με τη γραμμή %1"_s.arg(lineOf.value(checked.key)));
        lineOf.insert(checked.key, row.line);
        rows += checked;
    }
    return rows;
}

QSet<QString> existingKeys(data::Connection& connection, const Table& table) {
    QSet<QString> keys;
    data::Recordset rows(connection, data::Sql(u"select * from ?"_s, data::Sql::name(table.name)));
    for (; !rows.eof(); rows.moveNext()) {
        QVector<QVariant> values;
        for (int i = 0; i < rows.fieldCount(); ++i) values += rows.field(i).value();
        keys += rowKey(values);
    }
    return keys;
}

LoadCounts addMissing(data::Connection& connection, const Table& table, const QVector<CheckedRow>& rows,
                      const QSet<QString>& existing) {
    QStringList columns;
    for (const Column& column : table.columns) columns += column.name;
    TableWriter writer(connection, table, columns);
    LoadCounts counts;
    for (const CheckedRow& row : rows) {
        if (existing.contains(row.key)) {
            ++counts.alreadyThere;
            continue;
        }
        writer.write(row.values);
        ++counts.added;
    }
    return counts;
}

}  // namespace

const QVector<ReferenceKind>& referenceKinds() {
    static const QVector<ReferenceKind> all = {
        {u"namedays"_s, u"NameDay"_s, u"ονομαστικές εορτές: όνομα, ηη/μμ"_s},
        {u"farmaka"_s, u"Farmaka"_s, u"φάρμακα: όνομα, εταιρία, χρήση, ουσία"_s},
        {u"medra"_s, u"MEDRA"_s,
         u"ιατρικό λεξικό: κωδικός και ονομασίες του όρου (αγγλικά, ελληνικά), το ίδιο της κατηγορίας"_s},
    };
    return all;
}

const ReferenceKind* findReferenceKind(QStringView name) {
    for (const ReferenceKind& kind : referenceKinds())
        if (kind.name == name) return &kind;
    return nullptr;
}

LoadCounts loadReference(data::Connection& connection, const ReferenceKind& kind, const QString& file, bool replace) {
    const Table& table = *findTable(Database::Main, kind.table);
    const QVector<CheckedRow> rows = readRows(table, file);
    if (rows.isEmpty())
        throw data::Error(data::ErrorCategory::Type, u"Το αρχείο «%1» δεν έχει καμία γραμμή δεδομένων."_s.arg(file));

    data::Transaction transaction(connection);
    if (replace) connection.execute(data::Sql(u"delete from ?"_s, data::Sql::name(table.name)));
    const LoadCounts counts = addMissing(connection, table, rows, existingKeys(connection, table));
    transaction.commit();
    return counts;
}

int addNameDaysSince(data::Connection& connection, int version) {
    registerDelivered();
    const Table& table = *findTable(Database::Main, u"NameDay");
    const QSet<QString> existing = existingKeys(connection, table);
    if (existing.isEmpty()) return 0;
    QVector<CheckedRow> rows = readRows(table, u":/dorvalist/namedays.tsv"_s);
    rows.removeIf([version](const CheckedRow& row) { return row.since != version; });
    return addMissing(connection, table, rows, existing).added;
}

}  // namespace schema
