// The inside of a Recordset: its rows, where it stands among them, and the row that is being changed.
#pragma once

#include <QHash>
#include <QMap>

#include "data/connection.h"
#include "data/rowstore.h"
#include "data/rowwriter.h"

namespace data {

struct RecordsetState {
    Connection* connection = nullptr;  // null for rows of no statement
    QString sql;
    OpenOptions options;
    bool isOpen = false;

    QVector<dialect::OutputColumn> columns;
    TableInfo table;  // behind the rows; without a name when they can't be updated
    RowStore rows;
    qint64 position = 0;  // from 0; -1 before the first row, rows.count() behind the last

    EditMode mode = EditMode::None;
    qint64 positionBeforeAdd = 0;
    QMap<int, QVariant> pending;       // by column, in the form of types.h
    QMap<int, QByteArray> chunks;      // by column, what appendChunk gathered
    QHash<int, qint64> chunkPosition;  // by column, where getChunk goes on

    QHash<QString, int> byKey;       // by nameKey
    QHash<QString, int> bySpelling;  // as callers wrote them, to look a name up without making its key

    void setColumns(const QVector<dialect::OutputColumn>& list);
    void fetch();
    int indexOf(QStringView name);
    DateOrder dateOrder() const { return options.userComposed ? DateOrder::DayFirst : DateOrder::MonthFirst; }

    bool hasRow() const { return position >= 0 && position < rows.count(); }
    void requireOpen() const;
    void requireRow() const;
    void requireUpdatable() const;
    void moveTo(qint64 target);

    const Cell* cell(int column) const;  // of the current row, null in an add
    bool isPending(int column) const {
        return mode != EditMode::None && (pending.contains(column) || chunks.contains(column));
    }
    QVariant pendingValue(int column) const;
    QVariant value(int column) const;
    ColumnInfo columnInfo(int column) const;

    void beginEdit();
    void endEdit();
    QVector<ColumnChange> changes() const;
    QVariant identity() const;
    void writeChanges();
    void writeNew();
};

}  // namespace data
