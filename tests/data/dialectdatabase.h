// A database in memory whose tables come from the dialect, for tests of translated statements.
#pragma once

#include <sqlite3.h>

#include <QMap>
#include <QStringList>

#include "data/dialect/translation.h"

// The office's tables as the dialect's statements know them; compact on purpose.
data::Catalog officeCatalog();

class DialectDatabase {
public:
    DialectDatabase();
    ~DialectDatabase();
    DialectDatabase(const DialectDatabase&) = delete;
    DialectDatabase& operator=(const DialectDatabase&) = delete;

    // Translates and runs; rows as "a|b / c|d", Null as "-", values as a user reads them. Of an UPDATE and its kin,
    // the number of rows. Failures throw data::Error; SQLite's own with its message.
    QString run(const QString& sql, const data::DialectOptions& options = {},
                const QMap<QString, QVariant>& parameters = {});
    // A prepared statement or an error of SQLite, which is thrown; nothing is run.
    void prepare(const data::Translation& translation);
    // EXPLAIN QUERY PLAN of a statement, in one line.
    QString plan(const QString& sql);
    // The columns of a table as its declaration says.
    QVector<data::ColumnInfo> declaredColumns(const QString& table);
    void engine(const QByteArray& sql);

    data::Translator& translator() { return *translator_; }
    const data::Catalog& catalog() const { return catalog_; }

private:
    [[noreturn]] void fail(const QByteArray& sql);
    QString cell(sqlite3_stmt* statement, int index, data::ColumnType type);

    data::Catalog catalog_;
    sqlite3* database_ = nullptr;
    std::unique_ptr<data::Translator> translator_;
};
