// Rows of a statement at the client: fetched once, walked and searched without the engine, written back row by row.
#pragma once

#include <QString>
#include <QVariant>
#include <memory>

#include "data/connection.h"
#include "data/sql.h"

namespace data {

enum class SearchDirection { Forward, Backward };

class Recordset;
class RowStore;
struct RecordsetState;

// A column of the current row. Cheap to copy; valid as long as its recordset.
class Field {
public:
    const QString& name() const;
    AdoType type() const;
    ColumnType columnType() const;
    int definedSize()
        const;  // UTF-16 units for Text, the type's size in bytes otherwise, 1073741823 / 2147483647 unbounded
    qint64 actualSize() const;  // bytes for LongBinary, UTF-16 units for text, -1 for Null
    QVariant value() const;     // forms of types.h
    bool isNull() const;
    QString text() const;      // valueText of the value
    double toDouble() const;   // 0 for Null
    qint64 toLong() const;     // 0 for Null
    bool toBool() const;       // false for Null
    QDateTime toDate() const;  // invalid for Null
    // Kept in the row buffer until Update; a value that doesn't fit its column throws here or at Update,
    // and leaves the row as it was.
    void setValue(const QVariant& value);
    void appendChunk(const QByteArray& bytes);  // the first call since the row was read replaces the value
    QByteArray getChunk(qint64 size);           // continues where the last call ended; empty at the end

private:
    friend class Recordset;
    Field(Recordset* recordset, int index) : recordset_(recordset), index_(index) {}
    Recordset* recordset_;
    int index_;
};

// A client-side recordset with ADO's manners. All errors throw Error. Moves only.
//
// AbsolutePosition counts from 1; -2 before the first row, -3 behind the last. A fresh recordset stands on its first
// row, or has BOF and EOF both set when empty. Moving off an end sets EOF or BOF; moving on from there throws
// Error(State).
class Recordset {
public:
    Recordset();
    Recordset(Connection& connection, const QString& sql, const OpenOptions& options = {});
    ~Recordset();
    Recordset(Recordset&&) noexcept;
    Recordset& operator=(Recordset&&) noexcept;

    void open(Connection& connection, const QString& sql, const OpenOptions& options = {});
    void close() noexcept;  // drops a pending edit
    bool isOpen() const;
    void requery();  // the same statement again; stands on the first row

    bool bof() const;
    bool eof() const;
    bool isEmpty() const { return recordCount() == 0; }
    qint64 recordCount() const;
    qint64 absolutePosition() const;
    void setAbsolutePosition(qint64 position);
    void moveFirst();  // throws when empty, as the others do
    void moveLast();
    void moveNext();
    void movePrevious();

    // "column operator value" with = <> < <= > >= LIKE; texts in quotes, dates between #. Starts at the current row
    // plus `skip` rows (from an end: at the nearest row); stands at EOF (backward: BOF) when nothing matches.
    void find(const QString& criterion, qint64 skip = 0, SearchDirection direction = SearchDirection::Forward);

    int fieldCount() const;
    Field field(int index);
    Field field(QStringView name);  // without regard to case; throws when there is none
    Field operator[](QStringView name) { return field(name); }
    bool hasField(QStringView name) const;

    EditMode editMode() const;
    bool isUpdatable() const;
    void addNew();
    // Writes the row buffer: an INSERT after addNew, else only the columns whose value changed. Throws Conflict when
    // one of them was changed, or the row deleted, by somebody else since it was read. After a failure the buffer
    // stands as it was. After an INSERT the autonumber and the columns' defaults are read back.
    void update();
    void cancelUpdate();
    // The current row counts as read with these values, by column; without a row there is one with them from here on,
    // which can't be written. A change of it then meets what became of the row meanwhile as a conflict.
    void readAs(const QVariantMap& values);
    // Deletes the current row and stands on the next one (EOF behind the last). Deleting a row that is already gone
    // throws Conflict.
    void remove();

private:
    friend class Field;
    friend Recordset openSchemaTables(Connection& connection);
    Recordset(const QVector<dialect::OutputColumn>& columns, RowStore rows);  // of no table
    std::unique_ptr<RecordsetState> d;
};

// Rows TABLE_NAME, TABLE_TYPE ("TABLE"), in order of name.
Recordset openSchemaTables(Connection& connection);

}  // namespace data
