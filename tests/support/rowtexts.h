// What an engine answers, as texts.
#pragma once

#include <QStringList>

#include "data/engine.h"

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

}  // namespace support
