#include "copies/tablereader.h"

#include "data/dialect/enginedialect.h"

using namespace Qt::Literals::StringLiterals;

namespace copies {
namespace {

constexpr int mostRows = 500;
constexpr qint64 mostBytes = 8 << 20;  // of long texts and pictures; a single row may have more

// Takes identities and their rows' sizes, as long as they fit into one piece.
struct Sizes : data::RowSink {
    qint64 first = 0, last = 0, bytes = 0;
    int rows = 0, cell = 0;
    bool full = false;
    qint64 identity = 0;

    void beginRow() override { cell = 0; }
    void integer(qint64 value) override {
        if (cell++ == 0) {
            identity = value;
            return;
        }
        full = full || (rows > 0 && bytes + value > mostBytes);
        if (full) return;
        if (rows++ == 0) first = identity;
        last = identity;
        bytes += value;
    }
    void null() override {}
    void real(double) override {}
    void text(const char*, qsizetype) override {}
    void blob(const char*, qsizetype) override {}
};

QByteArray sizeOf(const data::dialect::EngineDialect& dialect, const data::TableInfo& table) {
    QByteArray sum = "CAST(0 AS bigint)";
    for (const data::ColumnInfo& column : table.columns)
        if (column.type == data::ColumnType::Memo || column.type == data::ColumnType::LongBinary)
            sum += "+coalesce(" +
                   dialect.byteSize(dialect.identifier(column.name), data::dialect::kindOf(column.type)) + ",0)";
    return sum;
}

}  // namespace

TableReader::TableReader(data::Connection& connection, const data::TableInfo& table)
    : engine_(connection.engine()), table_(table.name), columns_(int(table.columns.size())) {
    const data::dialect::EngineDialect& dialect = engine_.dialect();
    const QByteArray from = dialect.identifier(table.name);
    const QByteArray identity = dialect.rowIdentity(from, table);
    const QByteArray order = " ORDER BY " + dialect.orderTerm(identity, false);
    const QByteArray sizes = "SELECT " + identity + ',' + sizeOf(dialect, table) + " FROM " + from;
    sizesFromStart_ = sizes + order + dialect.limit(mostRows);
    sizesFrom_ = sizes + " WHERE " + identity + " > " + dialect.parameter(1) + order + dialect.limit(mostRows);
    QByteArrayList cells;
    for (const data::ColumnInfo& column : table.columns) cells += dialect.identifier(column.name);
    rowsBetween_ = "SELECT " + (cells << identity).join(',') + " FROM " + from + " WHERE " + identity + " BETWEEN " +
                   dialect.parameter(1) + " AND " + dialect.parameter(2) + order;
}

bool TableReader::nextPiece() {
    Sizes next;
    if (started_)
        engine_.query(sizesFrom_, {last_}, &next);
    else
        engine_.query(sizesFromStart_, {}, &next);
    started_ = true;
    at_ = -1;
    rows_ = data::RowStore(columns_ + 1);
    if (next.rows == 0) return false;
    last_ = next.last;
    try {
        engine_.query(rowsBetween_, {next.first, next.last}, &rows_);
    } catch (const data::Error& error) {  // a value that the engine itself won't hand out
        throw data::Error(error.category(),
                          u"Πίνακας %1, εγγραφές %2 έως %3: %4"_s.arg(table_, QString::number(next.first),
                                                                      QString::number(next.last), error.text()),
                          {}, error.engineCode())
            .withDetails(error.details());
    }
    return rows_.count() > 0;
}

const data::Cell* TableReader::nextRow() {
    if (++at_ >= rows_.count()) {
        if (!nextPiece()) return nullptr;
        at_ = 0;
    }
    return rows_.row(at_);
}

}  // namespace copies
