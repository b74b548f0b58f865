// The embedded engine: one SQLite file.
#pragma once

#include <QElapsedTimer>

#include "data/engine.h"
#include "data/sqlite/statementcache.h"

struct sqlite3;

namespace data {
class Wait;
}

namespace data::sqlite {

class SqliteEngine : public Engine {
public:
    // Opens a database of this program that exists. Any other file is refused before a byte of it or
    // a file beside it is written. A users database wants its password, a main database ignores it.
    explicit SqliteEngine(const OpenSettings& settings);
    ~SqliteEngine() override;
    SqliteEngine(const SqliteEngine&) = delete;
    SqliteEngine& operator=(const SqliteEngine&) = delete;

    const dialect::EngineDialect& dialect() const override;
    Catalog readCatalog() override;
    ExecuteResult execute(const QByteArray& sql, const QVector<QVariant>& parameters) override;
    qint64 query(const QByteArray& sql, const QVector<QVariant>& parameters, RowSink* sink) override;
    void script(const QByteArray& sql) override;
    void begin() override;
    void commit() override;
    void rollback() noexcept override;
    void backupTo(const QString& file, const std::function<void()>& atMoment,
                  const std::function<bool(qint64 done, qint64 all)>& goOn) override;
    void requireAlone() override;
    void beginSnapshot() override;
    void holdStill() override;
    void insertRows(const TableInfo& table, const QVector<QVector<QVariant>>& rows, qsizetype& refused) override;
    qint64 lastNumber(const TableInfo& table) override;
    void setLastNumber(const TableInfo& table, qint64 number) override;

    DatabaseKind kind() override { return kind_; }
    int version() override;
    void setVersion(int version) override;
    QString property(const QString& name) override;
    void setProperty(const QString& name, const QString& value) override;
    QMap<QString, QString> properties() override;
    void lockForUpgrade() override {}  // begin() has the one write lock already
    void createIndex(const QString& name, const QByteArray& sql) override;
    void createWordIndex(const TableInfo& table, const QVector<int>& columns) override;
    QHash<QString, QString> indexes() override;
    QStringList damages() override;

    sqlite3* handle() const { return database_; }  // for measuring against it; stays the engine's

private:
    template <class Work>
    auto waiting(const QByteArray& sql, Work work);
    void askWhileWaiting();
    bool waitForLock(int tries);
    ExecuteResult executeNow(const QByteArray& sql, const QVector<QVariant>& parameters);
    qint64 queryNow(const QByteArray& sql, const QVector<QVariant>& parameters, RowSink* sink);
    void configure(const OpenSettings& settings);
    void checkPassword(const OpenSettings& settings);
    void closeDatabase() noexcept;
    void usePlainJournal();
    void leavePlainJournal() noexcept;

    sqlite3* database_ = nullptr;
    DatabaseKind kind_ = DatabaseKind::Main;
    StatementCache statements_;
    bool plainJournal_ = false;
    int busyTimeoutMs_ = 0;
    QElapsedTimer lockedSince_;
    Wait* wait_ = nullptr;  // of the statement that runs
};

// Makes a new, empty database file of this program; `applicationId` is one of fileidentity.h. A file that
// exists is refused and left alone; on a failure no file stays behind.
void createSqliteFile(const QString& file, quint32 applicationId);

// What every connection is set to as it opens; for measuring beside it.
const char* sqliteOpeningPragmas();

}  // namespace data::sqlite
