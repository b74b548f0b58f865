// Rows of a recordset in compact form: cells of sixteen bytes, texts and bytes in chunks that never move.
#pragma once

#include <QVariant>
#include <memory>
#include <vector>

#include "data/engine.h"

namespace data {

enum class CellKind : quint32 { Null, Integer, Real, Text, Blob };

struct Cell {
    CellKind kind = CellKind::Null;
    quint32 size = 0;  // bytes of a text or blob
    union {
        qint64 integer = 0;
        double real;
        const char* bytes;
    };
};

// Memory for texts: given out piece by piece, freed all at once.
class Arena {
public:
    char* allocate(qsizetype size);

private:
    static constexpr qsizetype firstChunk = 1 << 14, largestChunk = 1 << 20;
    std::vector<std::unique_ptr<char[]>> chunks_;
    char* free_ = nullptr;
    qsizetype left_ = 0;
    qsizetype next_ = firstChunk;
};

// Takes the rows of a query as they come. Rows keep their addresses.
class RowStore : public RowSink {
public:
    explicit RowStore(int columns = 0) : columns_(columns) {}
    RowStore(RowStore&&) = default;
    RowStore& operator=(RowStore&&) = default;

    void beginRow() override;
    void null() override { *cursor_++ = Cell(); }
    void integer(qint64 value) override;
    void real(double value) override;
    void text(const char* utf8, qsizetype size) override { put(CellKind::Text, utf8, size); }
    void blob(const char* bytes, qsizetype size) override { put(CellKind::Blob, bytes, size); }

    qint64 count() const { return qint64(rows_.size()); }
    const Cell* row(qint64 index) const { return rows_[index]; }
    int columns() const { return columns_; }
    void remove(qint64 index) { rows_.erase(rows_.begin() + index); }
    // Replaces a cell by a value in the form of types.h.
    void set(qint64 row, int column, const QVariant& value);

private:
    void put(CellKind kind, const char* bytes, qsizetype size);

    static constexpr int rowsOfBlock = 512;
    int columns_;
    int leftInBlock_ = 0;
    Cell* nextRow_ = nullptr;
    Cell* cursor_ = nullptr;
    std::vector<std::unique_ptr<Cell[]>> blocks_;
    std::vector<Cell*> rows_;
    Arena arena_;
};

// A cell as a column of the given type shows it, in the form of types.h.
QVariant cellValue(const Cell& cell, ColumnType type);
// A cell as the engine gave it, to hand it back as a parameter.
QVariant cellParameter(const Cell& cell);

}  // namespace data
