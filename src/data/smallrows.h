// A few rows of an engine as texts, for the housekeeping of engines and schemas.
#pragma once

#include <QStringList>

#include "data/engine.h"

namespace data {

// Numbers are their digits; Null and bytes are null texts.
class TextRows : public RowSink {
public:
    QVector<QStringList> rows;

    // The first value of the first row; null and 0 when there is none.
    QString first() const { return rows.isEmpty() ? QString() : rows.first().value(0); }
    qint64 firstNumber() const { return first().toLongLong(); }

    void beginRow() override { rows += QStringList(); }
    void null() override { rows.last() += QString(); }
    void integer(qint64 value) override { rows.last() += QString::number(value); }
    void real(double value) override { rows.last() += QString::number(value); }
    void text(const char* utf8, qsizetype size) override { rows.last() += QString::fromUtf8(utf8, size); }
    void blob(const char*, qsizetype) override { rows.last() += QString(); }
};

// The answer to a statement in the engine's own language.
TextRows textRows(Engine& engine, const QByteArray& sql, const QVector<QVariant>& parameters = {});

}  // namespace data
