#include "data/sqlite/sqlitecatalog.h"

#include "data/databasepassword.h"
#include "data/sqlite/sqlitedialect.h"

namespace data {
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

// SQLite gives the row number several names; a column may have taken the usual one.
QString rowIdentityOf(const TableInfo& table) {
    for (const char16_t* name : {u"rowid", u"_rowid_", u"oid"})
        if (table.indexOf(QStringView(name)) < 0) return QString::fromUtf16(name);
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

}  // namespace

Catalog readSqliteCatalog(Engine& engine) {
    Rows tables;
    engine.query("SELECT name,sql FROM sqlite_schema WHERE type='table'", {}, &tables);
    Catalog catalog;
    for (const QVariantList& row : tables.rows) {
        const QString name = row[0].toString();
        if (!isInternalTable(name)) catalog.add(readTable(engine, name, row[1].toString()));
    }
    return catalog;
}

}  // namespace data
