#include "data/sqlite/sqlitedialect.h"

#include "data/sqlite/wordindex.h"
#include "data/values/format.h"

using namespace Qt::Literals::StringLiterals;

namespace data::sqlite {

using dialect::Arithmetic;
using dialect::EngineDialect;
using dialect::kindTag;
using dialect::ValueKind;

namespace {

QByteArray declaredType(const ColumnInfo& column) {
    switch (column.type) {
        case ColumnType::Autonumber:
            return "INTEGER PRIMARY KEY AUTOINCREMENT";
        case ColumnType::Long:
            return "INTEGER";
        case ColumnType::Integer:
            return "SMALLINT";
        case ColumnType::Single:
            return "FLOAT";
        case ColumnType::Double:
            return "DOUBLE";
        case ColumnType::Text:
            return "TEXT(" + QByteArray::number(column.size > 0 ? column.size : 255) + ')';
        case ColumnType::Memo:
            return "LONGTEXT";
        case ColumnType::YesNo:
            return "YESNO";
        case ColumnType::DateTime:
            return "DATETIME";
        case ColumnType::LongBinary:
            return "LONGBLOB";
    }
    return "LONGTEXT";
}

class SqliteDialect final : public EngineDialect {
public:
    QByteArray createTable(const TableInfo& table, const QString& key) const override {
        QByteArray out = "CREATE TABLE " + identifier(table.name) + " (";
        for (qsizetype i = 0; i < table.columns.size(); ++i) {
            if (i > 0) out += ", ";
            out += declaration(table.columns[i]);
            const bool isKey = !key.isEmpty() && nameKey(table.columns[i].name) == nameKey(key);
            // "INTEGER PRIMARY KEY" would make a plain Long column the autonumber.
            if (isKey && table.columns[i].type != ColumnType::Autonumber) out += " NOT NULL UNIQUE";
        }
        return out + ')';
    }

    QByteArray addColumn(const TableInfo& table, const ColumnInfo& column) const override {
        return "ALTER TABLE " + identifier(table.name) + " ADD COLUMN " + declaration(column);
    }

    QByteArray createIndex(const QString& name, const TableInfo& table, const QStringList& columns,
                           const QStringList& covered) const override {
        QByteArrayList parts;
        for (const QString& column : columns) parts << indexed(table, column, true);
        for (const QString& column : covered) parts << indexed(table, column, false);
        return "CREATE INDEX " + identifier(name) + " ON " + identifier(table.name) + " (" + parts.join(", ") + ')';
    }

    QByteArray dateLiteral(const QDateTime& value) const override {
        const qint64 seconds = dateToSeconds(value);
        return seconds < 0 ? '(' + QByteArray::number(seconds) + ')' : QByteArray::number(seconds);
    }

    QByteArray yesNoLiteral(bool value) const override { return value ? "1" : "0"; }

    QByteArray parameter(int number) const override { return '?' + QByteArray::number(number); }

    QByteArray like(const QByteArray& text, const QByteArray& pattern) const override {
        return "jet_like(" + text + ", " + pattern + ')';
    }

    QByteArray convert(const QByteArray& value, ValueKind from, ValueKind to) const override {
        if (from == ValueKind::Null) return value;
        // Bytes count as Null; they stay in the statement, since a parameter may be in them.
        if (from == ValueKind::Binary && to != ValueKind::Text) return "(CASE WHEN 0 THEN " + value + " END)";
        const bool unread = from == ValueKind::Text || from == ValueKind::Any;
        switch (to) {
            case ValueKind::Number:
                if (unread) return "jet_tonumber(" + value + ')';
                return from == ValueKind::YesNo ? "(-" + value + ')' : '(' + value + " / 86400.0)";
            case ValueKind::Date:
                if (unread) return "jet_todate(" + value + ')';
                return "CAST(round(" + value +
                       (from == ValueKind::YesNo ? " * -86400.0) AS INTEGER)" : " * 86400.0) AS INTEGER)");
            case ValueKind::YesNo:
                return unread ? "jet_toyesno(" + value + ')' : '(' + value + " <> 0)";
            case ValueKind::Text:
                return "jet_totext(" + value + ", '" + kindTag(from) + "')";
            default:
                return value;
        }
    }

    QByteArray intoColumn(const QByteArray& value, ValueKind from, const ColumnInfo& column) const override {
        return "jet_tocolumn(" + value + ", '" + kindTag(from) + "', " + QByteArray::number(int(column.type)) + ", " +
               QByteArray::number(column.size) + ", " + textLiteral(column.name) + ')';
    }

    QByteArray arithmetic(Arithmetic operation, const QByteArray& left, const QByteArray& right) const override {
        switch (operation) {
            case Arithmetic::Divide:
                return "(CAST(" + left + " AS REAL) / " + right + ')';
            case Arithmetic::WholeDivide:
                return "jet_wholedivide(" + left + ", " + right + ')';
            case Arithmetic::Modulo:
                return "jet_modulo(" + left + ", " + right + ')';
            case Arithmetic::Power:
                return "jet_power(" + left + ", " + right + ')';
            case Arithmetic::DatePlusDays:
                return '(' + left + " + CAST(round(" + right + " * 86400.0) AS INTEGER))";
            case Arithmetic::DateMinusDays:
                return '(' + left + " - CAST(round(" + right + " * 86400.0) AS INTEGER))";
            case Arithmetic::DatePlusDate:
                return '(' + left + " + " + right + ')';
            case Arithmetic::DateMinusDate:
                return "((" + left + " - " + right + ") / 86400.0)";
            case Arithmetic::ConcatenateTexts:
                return '(' + left + " || " + right + ')';
        }
        return "NULL";
    }

    // The size of bytes is known without reading them.
    QByteArray byteSize(const QByteArray& column, ValueKind kind) const override {
        return kind == ValueKind::Binary ? "length(" + column + ')' : "length(CAST(" + column + " AS BLOB))";
    }

    // The sign keeps an index from serving the order.
    QByteArray sortedAfterwards(const QByteArray& key) const override { return '+' + key; }

    QByteArray holdsWords(const QByteArray& source, const TableInfo& table,
                          const std::vector<QStringList>& alternatives) const override {
        return rowIdentity(source, table) + " IN (SELECT rowid " + wordsFound(table, alternatives) + ')';
    }

    QByteArray wordProbe(const TableInfo& table, const std::vector<QStringList>& alternatives,
                         qint64 most) const override {
        return "SELECT 1 " + wordsFound(table, alternatives) + limit(most);
    }

private:
    QByteArray wordsFound(const TableInfo& table, const std::vector<QStringList>& alternatives) const {
        const QByteArray index = identifier(table.words.name);
        return "FROM " + index + " WHERE " + index + " MATCH " + textLiteral(wordQuery(alternatives));
    }

    QByteArray indexed(const TableInfo& table, const QString& name, bool byFold) const {
        const int index = table.indexOf(name);
        if (index < 0) return name.toUtf8();
        const QByteArray column = identifier(table.columns[index].name);
        return byFold && isText(table.columns[index].type) ? fold(column) : column;
    }

    QByteArray declaration(const ColumnInfo& column) const {
        QByteArray out = identifier(column.name) + ' ' + declaredType(column);
        if (column.type == ColumnType::YesNo) out += " NOT NULL DEFAULT 0";
        return out;
    }
};

}  // namespace

const EngineDialect& sqliteDialect() {
    static const SqliteDialect dialect;
    return dialect;
}

ColumnInfo columnFromDeclaration(const QString& name, const QString& declaredType, bool isRowIdKey) {
    ColumnInfo column;
    column.name = name;
    const QString type = declaredType.trimmed().toUpper();
    if (isRowIdKey) {
        column.type = ColumnType::Autonumber;
    } else if (type.startsWith(u"TEXT(") && type.endsWith(u')')) {
        column.type = ColumnType::Text;
        column.size = type.mid(5, type.size() - 6).toInt();
    } else {
        static const QHash<QString, ColumnType> types = {
            {u"INTEGER"_s, ColumnType::Long},        {u"SMALLINT"_s, ColumnType::Integer},
            {u"FLOAT"_s, ColumnType::Single},        {u"DOUBLE"_s, ColumnType::Double},
            {u"YESNO"_s, ColumnType::YesNo},         {u"DATETIME"_s, ColumnType::DateTime},
            {u"LONGBLOB"_s, ColumnType::LongBinary}, {u"LONGTEXT"_s, ColumnType::Memo},
        };
        column.type = types.value(type, ColumnType::Memo);
    }
    return column;
}

}  // namespace data::sqlite
