// An open database, addressed as the forms do: a connection string, statements of the dialect.
#pragma once

#include <QString>
#include <QVariantMap>
#include <memory>
#include <optional>

#include "data/dialect/translation.h"
#include "data/engine.h"

namespace data {

// Values of named parameters of a statement, in the forms of types.h; names without regard to case.
using Parameters = QVariantMap;

// What a statement that asks for words inside a text and for a period reads first (Translation::periodFirst).
enum class AccessPath { WordIndex, Period };

struct OpenOptions {
    Parameters parameters;
    // The text was composed or typed by a user: dates day first, decimal commas, nothing but one SELECT.
    bool userComposed = false;
    // Without one the connection finds out (accessPath).
    std::optional<AccessPath> accessPath{};
};

// Opens, executes, translates. Each statement commits by itself unless a Transaction is open.
// Every operation but close() throws Error; a closed connection throws Error(Connection).
class Connection {
public:
    Connection();
    ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    // "Provider=microsoft.jet.oledb.4.0;data source=PATH; Jet OLEDB:Database Password=..."; keys without regard to
    // case and blanks around them, unknown keys ignored; "Mode=Read" only reads, "Busy Timeout" is in
    // milliseconds (5000). The file must exist and be a database of this
    // program, or a text that names one on a server (serverdescription.h): anything else is refused before a byte of it
    // or a file beside it is written, with a text that says what the file is.
    void open(const QString& connectionString);
    void close() noexcept;
    bool isOpen() const;
    const QString& connectionString() const;

    // An INSERT, UPDATE or DELETE (a SELECT is run and thrown away); the number of rows it touched.
    qint64 execute(const QString& sql, const Parameters& parameters = {});

    const Catalog& catalog() const;
    void reloadCatalog();

    // The statement as the engine gets it; for tools, tests and the curious.
    std::shared_ptr<const dialect::Translation> translate(const QString& sql, const OpenOptions& options = {});

    // Whether few rows have the words that a statement asks for, which costs the engine a look into its word index. Who
    // opens one search for many periods asks once. Period too when there is nothing to choose.
    AccessPath accessPath(const QString& sql, const OpenOptions& options = {});

    // An expression of the dialect over one table, as EngineDialect::createIndex wants it.
    QByteArray indexedExpression(const QString& table, const QString& expression);

    // For the schema's creation and upgrades, and for Recordset. Throws when closed.
    Engine& engine();

private:
    struct Private;
    std::unique_ptr<Private> d;
};

// The values of a translation's parameters in their order, in the stored form. Throws Error(Parameter) for one without
// a value.
QVector<QVariant> parameterValues(const dialect::Translation& translation, const Parameters& given);

// Rolls back when it goes out of scope without a commit.
class Transaction {
public:
    explicit Transaction(Connection& connection);
    ~Transaction();
    void commit();

private:
    Engine* engine_;
};

}  // namespace data
