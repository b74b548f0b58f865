#include "data/dialect/enginedialect.h"

#include <QLocale>

namespace data::dialect {

ValueKind kindOf(ColumnType type) {
    switch (type) {
        case ColumnType::Text:
        case ColumnType::Memo:
            return ValueKind::Text;
        case ColumnType::YesNo:
            return ValueKind::YesNo;
        case ColumnType::DateTime:
            return ValueKind::Date;
        case ColumnType::LongBinary:
            return ValueKind::Binary;
        default:
            return ValueKind::Number;
    }
}

char kindTag(ValueKind kind) {
    switch (kind) {
        case ValueKind::Number:
            return 'n';
        case ValueKind::Text:
            return 't';
        case ValueKind::YesNo:
            return 'y';
        case ValueKind::Date:
            return 'd';
        case ValueKind::Binary:
            return 'b';
        default:
            return 'v';
    }
}

static QByteArray quoted(QStringView text, char quote) {
    const QByteArray utf8 = text.toUtf8();
    QByteArray out;
    out.reserve(utf8.size() + 2);
    out += quote;
    for (const char c : utf8) {
        if (c == quote) out += quote;
        out += c;
    }
    out += quote;
    return out;
}

QByteArray quotedIdentifier(QStringView name) {
    return quoted(name, '"');
}

QByteArray EngineDialect::identifier(QStringView name) const {
    return quotedIdentifier(name);
}

QByteArray EngineDialect::textLiteral(QStringView text) const {
    return quoted(text, '\'');
}

static QByteArray realLiteral(double value) {
    QByteArray text = QByteArray::number(value, 'g', QLocale::FloatingPointShortest);
    if (!text.contains('.') && !text.contains('e')) text += ".0";  // a whole number would divide as one
    return text;
}

QByteArray EngineDialect::literal(const QVariant& value) const {
    switch (value.typeId()) {
        case QMetaType::UnknownType:
            return "NULL";
        case QMetaType::Bool:
            return yesNoLiteral(value.toBool());
        case QMetaType::Double:
            return realLiteral(value.toDouble());
        case QMetaType::QDateTime:
            return dateLiteral(value.toDateTime());
        case QMetaType::QString:
            return textLiteral(value.toString());
        default:
            return QByteArray::number(value.toLongLong());
    }
}

QByteArray EngineDialect::fold(const QByteArray& text) const {
    return "fold(" + text + ')';
}

QByteArray EngineDialect::call(const QByteArray& function, const QVector<QByteArray>& arguments) const {
    QByteArray out = "jet_" + function + '(';
    for (qsizetype i = 0; i < arguments.size(); ++i) {
        if (i > 0) out += ", ";
        out += arguments[i];
    }
    return out + ')';
}

QByteArray EngineDialect::orderTerm(const QByteArray& key, bool descending) const {
    return descending ? key + " DESC" : key;
}

QByteArray EngineDialect::null(ValueKind) const {
    return "NULL";
}

QByteArray EngineDialect::returningIdentity(const TableInfo&) const {
    return {};
}

QByteArray EngineDialect::limit(qint64 rows) const {
    return " LIMIT " + QByteArray::number(rows);
}

QByteArray EngineDialect::rowIdentity(const QByteArray& source, const TableInfo& table) const {
    return source + '.' + identifier(table.rowIdentity);
}

QByteArray EngineDialect::byteSize(const QByteArray& column, ValueKind) const {
    return "octet_length(" + column + ')';
}

}  // namespace data::dialect
