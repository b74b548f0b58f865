// What carrying a whole database asks of the server engine.
#include <QCryptographicHash>
#include <QtEndian>

#include "data/postgres/pgdialect.h"
#include "data/postgres/pgengine.h"
#include "data/postgres/pgparts.h"
#include "data/postgres/pgvalues.h"

using namespace Qt::Literals::StringLiterals;

namespace data::postgres {
namespace {

constexpr qsizetype longestSeatName = 63;  // bytes that the server keeps of it

template <class T>
void append(QByteArray& data, T value) {
    const T bytes = qToBigEndian(value);
    data.append(reinterpret_cast<const char*>(&bytes), sizeof bytes);
}

void appendRow(QByteArray& data, const TableInfo& table, const QVector<QVariant>& row) {
    append(data, qint16(row.size()));
    for (qsizetype i = 0; i < row.size(); ++i) {
        if (!row[i].isValid()) {
            append(data, qint32(-1));
            continue;
        }
        const QByteArray bytes = columnBytes(row[i], table.columns[i].type);
        append(data, qint32(bytes.size()));
        data += bytes;
    }
}

// "COPY Cards, line 7, column x": the row of the data that a failure is about, -1 when it names none.
qsizetype refusedRow(const PGresult* result) {
    const QByteArray context = PQresultErrorField(result, PG_DIAG_CONTEXT);
    const qsizetype at = context.indexOf(", line ");
    return at < 0 ? -1 : atoll(context.constData() + at + strlen(", line ")) - 1;
}

}  // namespace

QString seatName(const ServerDescription& server) {
    const QByteArray schema = server.schemaName().toUtf8();
    const QString prefix = u"dorvalist "_s;
    const QString plain = prefix + QString::fromUtf8(schema.toPercentEncoding(" "));
    if (plain.size() <= longestSeatName) return plain;
    return prefix + QString::fromUtf8(QCryptographicHash::hash(schema, QCryptographicHash::Md5).toHex());
}

void PgEngine::requireAlone() {
    const qint64 others =
        textRows(
            *this,
            "SELECT count(*) FROM pg_stat_activity WHERE datname = current_database() AND pid <> pg_backend_pid() AND "
            "application_name = current_setting('application_name')")
            .firstNumber();
    if (others > 0)
        throw Error(ErrorCategory::Busy,
                    u"Κάποιος έχει ανοιχτή τη βάση στον διακομιστή (συνδέσεις: %1)."_s.arg(others));
}

void PgEngine::beginReading(const QByteArray& kind) {
    if (inTransaction_) throw Error(ErrorCategory::State, u"Μια εργασία αποθήκευσης είναι ήδη ανοιχτή."_s);
    script("BEGIN ISOLATION LEVEL REPEATABLE READ" + kind);
    inTransaction_ = true;
}

void PgEngine::beginSnapshot() {
    beginReading(" READ ONLY");
    query("SELECT 1", {}, nullptr);  // the moment
}

// The locks come before the first read, and so before the moment.
void PgEngine::holdStill() {
    requireAlone();
    QByteArrayList names;
    const Catalog catalog = readCatalog();
    for (const TableInfo& table : catalog.tables()) names += dialect().identifier(table.name);
    beginReading({});
    try {
        if (!names.isEmpty()) script("LOCK TABLE " + names.join(", ") + " IN SHARE MODE");
        requireAlone();
    } catch (...) {
        rollback();
        throw;
    }
}

QString PgEngine::snapshotName() {
    return textRows(*this, "SELECT pg_export_snapshot()::text").first();
}

void PgEngine::insertRows(const TableInfo& table, const QVector<QVector<QVariant>>& rows, qsizetype& refused) {
    QByteArrayList names;
    for (const ColumnInfo& column : table.columns) names += dialect().identifier(column.name);
    QByteArray data("PGCOPY\n\377\r\n\0\0\0\0\0\0\0\0\0", 19);
    for (refused = 0; refused < rows.size(); ++refused) appendRow(data, table, rows[refused]);
    append(data, qint16(-1));
    refused = -1;
    copyIn("COPY " + dialect().identifier(table.name) + " (" + names.join(", ") + ") FROM STDIN (FORMAT binary)", data,
           refused);
}

void PgEngine::copyIn(const QByteArray& sql, const QByteArray& data, qsizetype& refused) {
    requireConnection(sql);
    PgResult started(PQexec(connection_, sql.constData()));
    if (PQresultStatus(started.get()) != PGRES_COPY_IN) fail(started.release(), sql);
    constexpr qsizetype piece = 1 << 24;
    bool sent = true;
    for (qsizetype at = 0; sent && at < data.size(); at += piece)
        sent = PQputCopyData(connection_, data.constData() + at, int(qMin(piece, data.size() - at))) == 1;
    PQputCopyEnd(connection_, nullptr);
    PgResult first;
    while (PgResult next{PQgetResult(connection_)})
        if (!first) first = std::move(next);
    if (sent && PQresultStatus(first.get()) == PGRES_COMMAND_OK) return;
    refused = refusedRow(first.get());
    fail(first.release(), sql);
}

void PgEngine::afterLoading(const Catalog& catalog) {
    QByteArrayList names;
    for (const TableInfo& table : catalog.tables()) names += dialect().identifier(table.name);
    if (!names.isEmpty()) script("ANALYZE " + names.join(", "));
}

// The sequence itself says it also to those who may only look.
qint64 PgEngine::lastNumber(const TableInfo& table) {
    return textRows(*this, "SELECT coalesce(pg_sequence_last_value(pg_get_serial_sequence($1, $2)::regclass), 0)",
                    {QString::fromUtf8(dialect().identifier(table.name)),
                     QString::fromUtf8(pgName(table.columns[table.autonumber].name))})
        .firstNumber();
}

void PgEngine::setLastNumber(const TableInfo& table, qint64 number) {
    execute("SELECT setval(pg_get_serial_sequence($1, $2)::regclass, greatest($3::bigint, 1), $3 > 0)",
            {QString::fromUtf8(dialect().identifier(table.name)),
             QString::fromUtf8(pgName(table.columns[table.autonumber].name)), number});
}

}  // namespace data::postgres
