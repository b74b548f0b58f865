// What a database engine does for a Connection.
#pragma once

#include <QByteArray>
#include <QHash>
#include <QMap>
#include <QStringList>
#include <QVariant>
#include <QVector>
#include <functional>
#include <memory>

#include "data/error.h"
#include "data/types.h"

namespace data {

using namespace Qt::Literals::StringLiterals;

namespace dialect {
class EngineDialect;
}

// Where the rows of a statement go; a cell is handed over in the engine's own form, without a copy.
class RowSink {
public:
    virtual ~RowSink() = default;
    virtual void beginRow() = 0;
    virtual void null() = 0;
    virtual void integer(qint64 value) = 0;
    virtual void real(double value) = 0;
    virtual void text(const char* utf8, qsizetype size) = 0;   // valid during the call only
    virtual void blob(const char* bytes, qsizetype size) = 0;  // likewise
};

struct OpenSettings {
    QString file;      // embedded engine: the database file
    QString password;  // the property "Jet OLEDB:Database Password"
    bool readOnly = false;
    int busyTimeoutMs = 5000;
};

struct ExecuteResult {
    qint64 affected = 0;
    qint64 lastIdentity = 0;  // autonumber of the last row inserted
};

enum class DatabaseKind { Main, Users };

// One open database. All failures throw Error. Parameters and results are in the stored form: dates as
// whole seconds (see format.h), YesNo as 0 and 1.
class Engine {
public:
    virtual ~Engine() = default;

    virtual const dialect::EngineDialect& dialect() const = 0;
    virtual Catalog readCatalog() = 0;
    // Runs a statement of the engine's own language; statements of the same text are prepared once.
    virtual ExecuteResult execute(const QByteArray& sql, const QVector<QVariant>& parameters) = 0;
    // The same for one that gives rows and changes nothing (else Error(ReadOnly)). Returns how many. `sink` may be
    // null, then rows are only counted.
    virtual qint64 query(const QByteArray& sql, const QVector<QVariant>& parameters, RowSink* sink) = 0;
    // Several statements without parameters, for the schema's own use.
    virtual void script(const QByteArray& sql) = 0;

    virtual void begin() = 0;
    virtual void commit() = 0;
    virtual void rollback() noexcept = 0;

    // Copies the database as it stands at one moment into `file`, which must not exist, while others read and write.
    // `atMoment` may read from this engine what belongs to that same moment. `goOn` hears the pages done and all there
    // are, and breaks the copy off with false. Nothing stays behind of a copy that failed. Not inside a transaction.
    // An engine whose database is no file throws Error(State).
    virtual void backupTo(const QString& file, const std::function<void()>& atMoment,
                          const std::function<bool(qint64 done, qint64 all)>& goOn) {
        Q_UNUSED(file)
        Q_UNUSED(atMoment)
        Q_UNUSED(goOn)
        throw Error(ErrorCategory::State,
                    u"Το αντίγραφο μιας βάσης σε διακομιστή γίνεται με τα εργαλεία του διακομιστή."_s);
    }
    // Throws Error(Busy) while anybody else has the database open. Brings an embedded one into its one file, so that it
    // can be moved, and lets nobody in before rollback() or the connection's end.
    virtual void requireAlone() = 0;

    // For carrying a whole database. Until rollback() everything is read as of one moment.
    virtual void beginSnapshot() = 0;
    // The same, and nobody else can change anything meanwhile; Error(Busy) as requireAlone().
    virtual void holdStill() = 0;
    // The name of the open snapshot, by which the server's own tools read at the same moment; empty without a server.
    virtual QString snapshotName() { return {}; }
    // Adds rows of all columns of the table quickly, nothing checked or converted but what the engine itself insists
    // on; a transaction is the caller's. On a failure `refused` is the row that it is about, -1 when it is none's.
    virtual void insertRows(const TableInfo& table, const QVector<QVector<QVariant>>& rows, qsizetype& refused) = 0;
    // Has the tables' new sizes known, where the engine doesn't see to it by itself at once.
    virtual void afterLoading(const Catalog& catalog) { Q_UNUSED(catalog) }
    // The highest number that the table's autonumber ever gave, 0 when none.
    virtual qint64 lastNumber(const TableInfo& table) = 0;
    virtual void setLastNumber(const TableInfo& table, qint64 number) = 0;

    // For the schema's use.
    virtual DatabaseKind kind() = 0;
    virtual int version() = 0;  // of the schema; 0 in a database that was never filled
    virtual void setVersion(int version) = 0;
    // What a database keeps about itself by name; an empty text is no property.
    virtual QString property(const QString& name) = 0;
    virtual void setProperty(const QString& name, const QString& value) = 0;
    // All of them, but not the engine's own bookkeeping.
    virtual QMap<QString, QString> properties() = 0;
    virtual void lockForUpgrade() = 0;  // until the transaction ends, which begin() started
    virtual void createIndex(const QString& name, const QByteArray& sql) = 0;
    // Makes the word index of these columns of a table and fills it; from then on the engine keeps it. Where an engine
    // can't have one, nothing happens and such searches read the table.
    virtual void createWordIndex(const TableInfo& table, const QVector<int>& columns) = 0;
    virtual QHash<QString, QString> indexes() = 0;   // name and the statement given to createIndex
    virtual QStringList damages() = 0;               // what the engine finds broken in its own storage, a line each
    virtual QStringList hindrances() { return {}; }  // what makes searches slow that need not be, a Greek line each
};

}  // namespace data
