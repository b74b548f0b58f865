#include "core/statementchecker.h"

#include <QRegularExpression>

#include "data/recordset.h"
#include "support/failure.h"

using namespace Qt::Literals::StringLiterals;
using support::SourceLiteral;

namespace {

const QStringList roomsOfEngineStatements = {u"schema"_s, u"copies"_s};  // in narrow literals

// Files whose statements take a table's name, and the names that they give.
struct NamedTables {
    QString file;
    QStringList tables;
};
const NamedTables namedTables[] = {
    {u"listeditor.cpp"_s, {u"CardKategory"_s, u"Combo1"_s}},
    {u"frmaddress.cpp"_s, {u"Combo1"_s}},
    {u"demo.cpp"_s, {u"Combo1"_s}},
    {u"reference.cpp"_s, {u"NameDay"_s}},
};

QRegularExpression pattern(const QString& text) {
    return QRegularExpression(
        text, QRegularExpression::CaseInsensitiveOption | QRegularExpression::UseUnicodePropertiesOption);
}

const QRegularExpression statement = pattern(uR"(^\s*(select|insert|update|delete|transform|parameters)\s)"_s);
const QRegularExpression piece = pattern(
    uR"(^[\s,)(]*(where|and|or|from|set|values|like|having|union|order\s+by|group\s+by|(inner|left|right)\s+join)[\s(])"_s);
// Marks of QString::arg where a statement has its values.
const QRegularExpression pasted =
    pattern(uR"((\b(like|between|where|and|or)\b.*%L?\d|^[\w\[\]]+\s*(=|<|>|<>)\s*['#\x22]?%L?\d|#%L?\d))"_s);
const QRegularExpression composing = pattern(uR"(^(\+|\.(arg|replace|append|prepend|insert|remove)\b))"_s);
const QRegularExpression criterion = pattern(uR"(^\w+ *(=|<>|<|>|<=|>=| like) *\?$)"_s);
const QRegularExpression nameOfTable = pattern(uR"(\b(from|into|update|join)\s+\?)"_s);
const QRegularExpression firstTable = pattern(uR"(\b(?:from|into|update)\s+\[?(\w+))"_s);
const QRegularExpression positional = pattern(uR"(\binto\s+\[?(\w+)\]?\s+values\s*\(\?\))"_s);
const QRegularExpression part = pattern(uR"(\{([^}]*)\})"_s);

// A statement with all its parts and with none.
QStringList variants(const QString& text) {
    QString all = text, none = text;
    all.replace(part, uR"(\1)"_s);
    none.remove(part);
    return all == none ? QStringList{all} : QStringList{all, none};
}

// With each of the tables that the file may mean; one of them has to fit.
QStringList withNames(const QString& text, const QString& file) {
    if (!nameOfTable.match(text).hasMatch()) return {text};
    QStringList all;
    for (const NamedTables& names : namedTables)
        for (const QString& table : names.tables)
            if (file.endsWith(u'/' + names.file)) all += QString(text).replace(nameOfTable, uR"(\1 )"_s + table);
    return all.isEmpty() ? QStringList{text} : all;
}

int countOfPlaces(QString text) {
    static const QRegularExpression quoted(uR"('[^']*'|"[^"]*"|#[^#]*#|\[[^\]]*\]|`[^`]*`)"_s);
    return int(text.remove(quoted).count(u'?'));
}

// Null fits everywhere.
QString withValues(QString text, const data::TableInfo* table) {
    if (positional.match(text).hasMatch() && table)
        text.replace(u"(?)"_s, u'(' + QStringList(table->columns.size(), u"?"_s).join(u',') + u')');
    const int places = countOfPlaces(text);
    return data::Sql(text, QVector<data::Sql::Value>(places, nullptr));
}

}  // namespace

// What is wrong with the statements of a source file.
QStringList StatementChecker::complaints(const QString& room, const QString& file, const QString& source) {
    QStringList found;
    for (const SourceLiteral& literal : support::sourceLiterals(source)) {
        if (roomsOfEngineStatements.contains(room) && !literal.isWide) continue;
        if (const QString complaint = complaintAbout(literal, file); !complaint.isEmpty())
            found += u"%1:%2: %3\n    %4"_s.arg(file, QString::number(literal.line), complaint, literal.text);
    }
    return found;
}

QString StatementChecker::complaintAbout(const SourceLiteral& literal, const QString& file) {
    const QString& text = literal.text;
    if (statement.match(text).hasMatch()) {
        ++statements_;
        if (composing.match(literal.after).hasMatch() || literal.before.endsWith(u'+'))
            return u"a statement is composed; use data::Sql"_s;
        return failureOfStatement(text, file);
    }
    if (piece.match(text).hasMatch()) return u"a piece of a statement; write the whole one, with {...}"_s;
    if (pasted.match(text).hasMatch()) return u"a value is pasted into a statement; use data::Sql"_s;
    if (!literal.before.endsWith(u"Sql("_s)) return {};
    if (!criterion.match(text).hasMatch()) return u"neither a statement nor a criterion"_s;
    const QString column = text.left(text.indexOf(QRegularExpression(uR"(\W)"_s)));
    return hasColumn(column) ? QString() : u"no table has the column"_s;
}

QString StatementChecker::failureOfStatement(const QString& text, const QString& file) {
    for (const QString& variant : variants(text)) {
        QString failure;
        for (const QString& named : withNames(variant, file)) {
            failure = failureOf([&] { prepare(named); });
            if (failure.isEmpty()) break;
        }
        if (!failure.isEmpty()) return failure;
    }
    return {};
}

// Through the dialect, and then through the engine, which runs nothing.
void StatementChecker::prepare(const QString& text) {
    const QString table = firstTable.match(text).captured(1);
    data::Connection& connection = users_.catalog().find(table) ? users_ : main_;
    const auto translation = connection.translate(withValues(text, connection.catalog().find(table)));
    for (const QByteArray& sql : {translation->sql, translation->probe, translation->periodFirst})
        if (!sql.isEmpty()) connection.engine().script("EXPLAIN " + sql);
}

bool StatementChecker::hasColumn(const QString& name) const {
    for (const data::Connection* connection : {&main_, &users_})
        for (const data::TableInfo& table : connection->catalog().tables())
            if (table.indexOf(name) >= 0) return true;
    return false;
}
