// What an engine answers, as texts.
#pragma once

#include <QStringList>

#include "data/recordset.h"

namespace support {

using namespace Qt::Literals::StringLiterals;

// The rows, their cells with a bar between them; Null is "-", bytes are hexadecimal.
class RowTexts : public data::RowSink {
public:
    QStringList rows;

    void beginRow() override {
        rows << QString();
        first_ = true;
    }
    void null() override { add(u"-"_s); }
    void integer(qint64 value) override { add(QString::number(value)); }
    void real(double value) override { add(QString::number(value, 'g', 17)); }
    void text(const char* utf8, qsizetype size) override { add(QString::fromUtf8(utf8, size)); }
    void blob(const char* bytes, qsizetype size) override {
        add(QString::fromLatin1(QByteArray::fromRawData(bytes, size).toHex()));
    }

private:
    void add(const QString& cell) {
        if (!std::exchange(first_, false)) rows.last() += u'|';
        rows.last() += cell;
    }
    bool first_ = true;
};

// An engine's own statement.
inline QStringList rowTexts(data::Engine& engine, const QByteArray& sql, const QVector<QVariant>& parameters = {}) {
    RowTexts sink;
    engine.query(sql, parameters, &sink);
    return sink.rows;
}

// A statement's rows as a user reads them, their cells with a bar between them.
inline QStringList shownRows(data::Connection& connection, const QString& sql) {
    QStringList all;
    for (data::Recordset rows(connection, sql); !rows.eof(); rows.moveNext()) {
        QStringList cells;
        for (int i = 0; i < rows.fieldCount(); ++i) cells << rows.field(i).text();
        all << cells.join(u'|');
    }
    return all;
}

}  // namespace support
