// The server engine: one schema of a PostgreSQL database.
#pragma once

#include <libpq-fe.h>

#include <list>
#include <vector>

#include "data/engine.h"
#include "data/opening/serverdescription.h"

namespace data {
class Wait;
}

namespace data::postgres {

class PgSchemaWork;

class PgEngine : public Engine {
public:
    // Opens the database of this program that the description names; anything else is refused. A connection that is
    // lost fails the statement that notices; the next one outside a transaction connects again.
    PgEngine(const ServerDescription& server, const OpenSettings& settings);
    ~PgEngine() override;
    PgEngine(const PgEngine&) = delete;
    PgEngine& operator=(const PgEngine&) = delete;

    const dialect::EngineDialect& dialect() const override;
    Catalog readCatalog() override;
    ExecuteResult execute(const QByteArray& sql, const QVector<QVariant>& parameters) override;
    qint64 query(const QByteArray& sql, const QVector<QVariant>& parameters, RowSink* sink) override;
    void script(const QByteArray& sql) override;
    void begin() override;
    void commit() override;
    void rollback() noexcept override;

    void requireAlone() override;
    void beginSnapshot() override;
    void holdStill() override;
    QString snapshotName() override;
    void insertRows(const TableInfo& table, const QVector<QVector<QVariant>>& rows, qsizetype& refused) override;
    void afterLoading(const Catalog& catalog) override;
    qint64 lastNumber(const TableInfo& table) override;
    void setLastNumber(const TableInfo& table, qint64 number) override;

    DatabaseKind kind() override;
    int version() override;
    void setVersion(int version) override;
    QString property(const QString& name) override;
    void setProperty(const QString& name, const QString& value) override;
    QMap<QString, QString> properties() override;
    void lockForUpgrade() override;
    QHash<QString, QString> indexes() override;
    void createIndex(const QString& name, const QByteArray& sql) override;
    void createWordIndex(const TableInfo& table, const QVector<int>& columns) override;
    QStringList damages() override;
    QStringList hindrances() override;

    int backendId() const { return connection_ ? PQbackendPID(connection_) : 0; }

private:
    friend void createPgDatabase(const ServerDescription&, DatabaseKind);
    friend void dropPgDatabase(const ServerDescription&) noexcept;
    friend class PgSchemaWork;
    struct Prepared {
        QByteArray sql, name;
        std::vector<Oid> types;
    };
    struct Unconnected {};
    struct Bare {};  // connects, and asks for nothing of this program's

    PgEngine(const ServerDescription& server, const OpenSettings& settings, Unconnected);
    PgEngine(const ServerDescription& server, const OpenSettings& settings, Bare);
    void connect();
    void configure();
    void actAsOwner();
    void requireOurs();
    void requireUtf8();
    bool hasSchema();
    void makeSchema();
    QByteArray wordSchema();
    void refreshFunctions();
    void disconnect() noexcept;
    void requireConnection(const QByteArray& sql);
    const Prepared& prepare(const QByteArray& sql);
    [[noreturn]] void failStopped(const PGresult* result, const QByteArray& sql);
    void forget(std::list<Prepared>::iterator entry);
    PGresult* run(const QByteArray& sql, const QVector<QVariant>& parameters);
    PGresult* runOnce(const QByteArray& sql, const QVector<QVariant>& parameters);
    void beginReading(const QByteArray& kind);
    void copyIn(const QByteArray& sql, const QByteArray& data, qsizetype& refused);
    [[noreturn]] void fail(PGresult* result, const QByteArray& sql);

    ServerDescription server_;
    OpenSettings settings_;
    PGconn* connection_ = nullptr;
    Oid variant_ = 0;
    bool inTransaction_ = false;
    std::list<Prepared> prepared_;  // the most recently used first
    QHash<QByteArray, std::list<Prepared>::iterator> byText_;
    quint64 nextName_ = 0;
    Wait* wait_ = nullptr;  // of the statement that runs
};

// Makes the schema that the description names, if it isn't there, and in it an empty database of this program. A schema
// that holds anything but what extensions put there is refused and left alone.
void createPgDatabase(const ServerDescription& server, DatabaseKind kind);
// Takes it away again, and the schema with it unless that was prepared by somebody else.
void dropPgDatabase(const ServerDescription& server) noexcept;

}  // namespace data::postgres
