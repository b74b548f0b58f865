#include "data/sqlite/sqlitecatalog.h"

#include "data/opening/databasepassword.h"
#include "data/sqlite/sqlitedialect.h"

namespace data::sqlite {
namespace {

// Rows as variants; for the few rows that describe a schema.
class Rows : public RowSink {
public:
    QVector<QVariantList> rows;

    void beginRow() override { rows.append(QVariantList()); }
    void null() override { rows.last() << QVariant(); }
    void integer(qint64 value) override { rows.last() << value; }
    void real(double value) override { rows.last() << value; }
    void text(const char* utf8, qsizetype size) override { rows.last() << QString::fromUtf8(utf8, size); }
    void blob(const char* bytes, qsizetype size) override { rows.last() << QByteArray(bytes, size); }
};

// The autonumber is the row's number under a name that is seen through brackets around joins. Without one SQLite has
// several names for it; a column may have taken the usual one.
QString rowIdentityOf(const TableInfo& table) {
    if (table.autonumber >= 0) return table.columns[table.autonumber].name;
    for (const QString& name : {u"rowid"_s, u"_rowid_"_s, u"oid"_s})
        if (table.indexOf(name) < 0) return name;
    return {};
}

TableInfo readTable(Engine& engine, const QString& name, const QString& declaration) {
    Rows described;
    engine.query("SELECT name,type,pk FROM pragma_table_info(?1) ORDER BY cid", {name}, &described);
    TableInfo table;
    table.name = name;
    for (const QVariantList& row : described.rows) {
        const QString type = row[1].toString();
        // Only AUTOINCREMENT never gives a deleted row's number again.
        const bool autonumber = row[2].toInt() == 1 && type.compare(u"INTEGER", Qt::CaseInsensitive) == 0 &&
                                declaration.contains(u"AUTOINCREMENT", Qt::CaseInsensitive);
        if (autonumber) table.autonumber = int(table.columns.size());
        table.columns.append(columnFromDeclaration(row[0].toString(), type, autonumber));
    }
    table.rowIdentity = rowIdentityOf(table);
    return table;
}

// The index has the columns' names.
void readWordIndex(Engine& engine, TableInfo& table) {
    const QString name = wordIndexName(table);
    Rows described;
    engine.query("SELECT name FROM pragma_table_info(?1) ORDER BY cid", {name}, &described);
    for (const QVariantList& row : described.rows) table.words.columns += table.indexOf(row[0].toString());
    if (!described.rows.isEmpty()) table.words.name = name;
}

}  // namespace

Catalog readSqliteCatalog(Engine& engine) {
    Rows tables;
    engine.query("SELECT name,sql FROM sqlite_schema WHERE type='table'", {}, &tables);
    Catalog catalog;
    for (const QVariantList& row : tables.rows) {
        const QString name = row[0].toString();
        if (isInternalTable(name)) continue;
        TableInfo table = readTable(engine, name, row[1].toString());
        readWordIndex(engine, table);
        catalog.add(table);
    }
    return catalog;
}

}  // namespace data::sqlite
