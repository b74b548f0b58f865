// How the embedded engine runs a statement, and how one is broken off.
#include <sqlite3.h>

#include <QScopedValueRollback>
#include <QThread>
#include <cmath>

#include "data/sqlite/sqliteengine.h"
#include "data/sqlite/sqliteerror.h"
#include "data/values/format.h"
#include "data/waiting.h"

using namespace Qt::Literals::StringLiterals;

namespace data::sqlite {
namespace {

// Binds in the stored form. Texts and bytes are lent to the statement, so they live in `held` until its reset.
class ParameterBinder {
public:
    ParameterBinder(sqlite3* database, sqlite3_stmt* statement, const QByteArray& sql)
        : database_(database), statement_(statement), sql_(sql) {}

    void bind(const QVector<QVariant>& values) {
        if (values.size() != sqlite3_bind_parameter_count(statement_)) {
            throw Error(ErrorCategory::Parameter, u"Λείπουν ή περισσεύουν τιμές παραμέτρων."_s,
                        QString::fromUtf8(sql_));
        }
        held_.reserve(values.size());
        for (int i = 0; i < values.size(); ++i) {
            const int code = bindOne(i + 1, values[i]);
            if (code != SQLITE_OK) throw sqliteError(database_, code, sql_);
        }
    }

private:
    int bindOne(int index, const QVariant& value) {
        switch (value.typeId()) {
            case QMetaType::UnknownType:
            case QMetaType::Nullptr:
                return sqlite3_bind_null(statement_, index);
            case QMetaType::Bool:
                return sqlite3_bind_int(statement_, index, value.toBool());
            case QMetaType::Double:
            case QMetaType::Float:
                return sqlite3_bind_double(statement_, index, value.toDouble());
            case QMetaType::QDateTime:
                return sqlite3_bind_int64(statement_, index, dateToSeconds(value.toDateTime()));
            case QMetaType::QByteArray: {
                held_.append(value.toByteArray());
                // A null pointer would be Null, even with no bytes to point at.
                return sqlite3_bind_blob64(statement_, index, held_.last().constData(), held_.last().size(),
                                           SQLITE_STATIC);
            }
            case QMetaType::QString: {
                held_.append(value.toString().toUtf8());
                return sqlite3_bind_text64(statement_, index, held_.last().constData(), held_.last().size(),
                                           SQLITE_STATIC, SQLITE_UTF8);
            }
            default:
                return sqlite3_bind_int64(statement_, index, value.toLongLong());
        }
    }

    sqlite3* database_;
    sqlite3_stmt* statement_;
    const QByteArray& sql_;
    QVector<QByteArray> held_;
};

void sendRow(sqlite3_stmt* statement, int columns, RowSink& sink) {
    sink.beginRow();
    for (int i = 0; i < columns; ++i) {
        switch (sqlite3_column_type(statement, i)) {
            case SQLITE_INTEGER:
                sink.integer(sqlite3_column_int64(statement, i));
                break;
            case SQLITE_FLOAT: {
                const double value = sqlite3_column_double(statement, i);
                if (!std::isfinite(value)) throw sqliteRangeError(sqlite3_sql(statement));
                sink.real(value);
                break;
            }
            case SQLITE_TEXT: {
                const auto bytes = reinterpret_cast<const char*>(sqlite3_column_text(statement, i));
                sink.text(bytes, sqlite3_column_bytes(statement, i));
                break;
            }
            case SQLITE_BLOB: {
                const auto bytes = static_cast<const char*>(sqlite3_column_blob(statement, i));
                sink.blob(bytes, sqlite3_column_bytes(statement, i));
                break;
            }
            default:
                sink.null();
        }
    }
}

}  // namespace

// Runs `work` as a statement that may be broken off. What it throws then is about the interruption alone.
template <class Work>
auto SqliteEngine::waiting(const QByteArray& sql, Work work) {
    Wait wait;
    const QScopedValueRollback current(wait_, &wait);
    try {
        return work();
    } catch (const Error& error) {
        if (wait.isStopped()) throw stoppedError(sql);
        throw;
    }
}

void SqliteEngine::askWhileWaiting() {
    constexpr int someSteps = 20000;  // of its machine, about a millisecond
    const auto go = [](void* engine) {
        Wait* const wait = static_cast<SqliteEngine*>(engine)->wait_;
        return int(wait && !wait->goOn());
    };
    sqlite3_progress_handler(database_, someSteps, go, this);
    sqlite3_busy_handler(
        database_, [](void* engine, int tries) { return int(static_cast<SqliteEngine*>(engine)->waitForLock(tries)); },
        this);
}

// Short naps at first, since most locks last for one commit.
bool SqliteEngine::waitForLock(int tries) {
    if (tries == 0) lockedSince_.start();
    if (lockedSince_.elapsed() >= busyTimeoutMs_ || (wait_ && !wait_->goOn())) return false;
    QThread::msleep(ulong(qMin(1 + 2 * tries, 25)));
    return true;
}

ExecuteResult SqliteEngine::execute(const QByteArray& sql, const QVector<QVariant>& parameters) {
    return waiting(sql, [&] { return executeNow(sql, parameters); });
}

ExecuteResult SqliteEngine::executeNow(const QByteArray& sql, const QVector<QVariant>& parameters) {
    StatementCache::Lease statement(statements_, sql);
    ParameterBinder binder(database_, statement.get(), sql);
    binder.bind(parameters);
    const qint64 before = sqlite3_total_changes64(database_);
    int code;
    while ((code = sqlite3_step(statement.get())) == SQLITE_ROW) {
    }
    if (code != SQLITE_DONE) throw sqliteError(database_, code, sql);
    // Rows that triggers touched are none of the statement's; one that touched none leaves the count of the one before.
    const bool touched = sqlite3_total_changes64(database_) != before;
    return {touched ? sqlite3_changes64(database_) : 0, sqlite3_last_insert_rowid(database_)};
}

qint64 SqliteEngine::query(const QByteArray& sql, const QVector<QVariant>& parameters, RowSink* sink) {
    return waiting(sql, [&] { return queryNow(sql, parameters, sink); });
}

qint64 SqliteEngine::queryNow(const QByteArray& sql, const QVector<QVariant>& parameters, RowSink* sink) {
    StatementCache::Lease statement(statements_, sql);
    if (!sqlite3_stmt_readonly(statement.get())) {
        throw Error(ErrorCategory::ReadOnly, u"Εδώ επιτρέπεται μόνο ανάγνωση."_s, QString::fromUtf8(sql));
    }
    ParameterBinder binder(database_, statement.get(), sql);
    binder.bind(parameters);
    const int columns = sqlite3_column_count(statement.get());
    qint64 rows = 0;
    int code;
    while ((code = sqlite3_step(statement.get())) == SQLITE_ROW) {
        ++rows;
        if (sink) sendRow(statement.get(), columns, *sink);
    }
    if (code != SQLITE_DONE) throw sqliteError(database_, code, sql);
    return rows;
}

void SqliteEngine::script(const QByteArray& sql) {
    waiting(sql, [&] {
        const int code = sqlite3_exec(database_, sql.constData(), nullptr, nullptr, nullptr);
        if (code != SQLITE_OK) throw sqliteError(database_, code, sql);
    });
}

}  // namespace data::sqlite
