#include "data/dialect/renderer.h"

#include "data/dialect/wordfilter.h"
#include "data/values/convert.h"

using namespace Qt::Literals::StringLiterals;

namespace data::dialect {

static bool isText(const SourceColumn& column) {
    return column.type.kind == ValueKind::Text;
}

static QByteArray columnName(size_t index) {
    return 'c' + QByteArray::number(qulonglong(index));
}

void Renderer::render(const Statement& statement, Translation& translation) {
    translation.kind = statement.kind;
    switch (statement.kind) {
        case StatementKind::Insert:
            return renderInsert(statement, translation);
        case StatementKind::Update:
            return renderUpdate(statement, translation);
        case StatementKind::Delete:
            return renderDelete(statement, translation);
        case StatementKind::Select:
            break;
    }
    const Query& top = *statement.query;
    const Select& first = top.parts[0];
    const Source* identityOf = nullptr;
    if (top.parts.size() == 1 && !first.distinct && !first.grouped && first.sources.size() == 1)
        if (const TableInfo* table = first.sources[0]->table; table && !table->rowIdentity.isEmpty()) {
            identityOf = first.sources[0];
            translation.baseTable = table->name;
        }
    top_ = &top;
    translation.sql = query(top, false, identityOf);
    if (!probe_.isEmpty()) {
        looksUpWords_ = false;
        translation.probe = probe_;
        translation.periodFirst = query(top, false, identityOf);
    }
    for (size_t i = 0; i < first.outputs.size(); ++i) {
        OutputColumn column = first.outputs[i].column;
        if (top.parts.size() > 1) {
            column.type = top.unionColumns[i].type.column;
            column.size = top.unionColumns[i].type.size;
        }
        if (translation.baseTable.isEmpty()) column.baseColumn = -1;
        if (column.type == ColumnType::Autonumber && column.baseColumn < 0) column.type = ColumnType::Long;
        translation.columns.append(column);
    }
}

// Queries

QByteArray Renderer::query(const Query& query, bool named, const Source* identityOf) {
    if (query.parts.size() > 1) return unionSelect(query, named);
    const Select& select = query.parts[0];
    if (!select.distinct) return plainSelect(query, named, identityOf);
    const bool texts = std::any_of(select.outputs.begin(), select.outputs.end(),
                                   [](const Output& output) { return output.expr->type.kind == ValueKind::Text; });
    if (texts || !query.orderBy.empty()) return distinctSelect(query, named);
    std::vector<QByteArray> positions;
    for (size_t i = 1; i <= select.outputs.size() && orderShows(query); ++i)
        positions.push_back(QByteArray::number(qulonglong(i)));
    return "SELECT DISTINCT" + selectBody(select, named, nullptr, nullptr) + outputOrder(query, positions, {}) +
           (select.top ? dialect_.limit(*select.top) : QByteArray());
}

QByteArray Renderer::plainSelect(const Query& query, bool named, const Source* identityOf) {
    const Select& select = query.parts[0];
    const Replacements before = replacements_;
    replacements_ = {};
    if (select.grouped) startGrouping(select);
    QByteArray out = "SELECT" + selectBody(select, named, nullptr, identityOf);
    out += !orderShows(query) ? orderBy(query) : select.grouped ? groupOrder(query) : completeOrder(query);
    if (select.top) out += dialect_.limit(*select.top);
    replacements_ = before;
    return out;
}

// Of a query inside another only which rows come can depend on the order.
bool Renderer::orderShows(const Query& query) const {
    return &query == top_ || query.parts[0].top;
}

// The order that is asked for, and among equals that of the tables' rows: nobody's list may shuffle by itself.
QByteArray Renderer::completeOrder(const Query& query) {
    const Select& select = query.parts[0];
    const bool afterwards =
        select.where && !select.top && (offersAlternatives(*select.where) || wordFilter(*select.where));
    const bool descending = !query.orderBy.empty() && query.orderBy.back().descending;
    return rowOrder(select, orderBy(query, afterwards), afterwards, descending);
}

// The rows that a word index names come first; the condition itself still has the last word.
QByteArray Renderer::where(const Select& select) {
    const std::optional<WordFilter> filter = looksUpWords_ ? wordFilter(*select.where) : std::nullopt;
    const QByteArray narrowed =
        filter ? dialect_.holdsWords(filter->source->sqlName, *filter->source->table, filter->alternatives) : "";
    if (narrowed.isEmpty()) return " WHERE " + condition(*select.where);
    if (top_ && &select == &top_->parts[0] && boundsDate(*select.where))
        probe_ = dialect_.wordProbe(*filter->source->table, filter->alternatives, Translation::probeLimit + 1);
    return " WHERE " + narrowed + " AND " + condition(*select.where, And);
}

// Of joined tables the last has the rows that are many, in the order in which they were entered.
QByteArray Renderer::rowOrder(const Select& select, QByteArray before, bool afterwards, bool descending) const {
    for (auto source = select.sources.rbegin(); source != select.sources.rend(); ++source) {
        const TableInfo* table = (*source)->table;
        // Not every engine can name an identity that is no column from outside the brackets of a join.
        if (!table || table->rowIdentity.isEmpty() || ((*source)->inBrackets && table->autonumber < 0)) continue;
        const QByteArray identity = (*source)->inBrackets ? columnSql(**source, table->autonumber)
                                                          : dialect_.rowIdentity((*source)->sqlName, *table);
        before += (before.isEmpty() ? " ORDER BY " : ", ") +
                  dialect_.orderTerm(afterwards ? dialect_.sortedAfterwards(identity) : identity, descending);
    }
    return before;
}

// Groups come in the order that is asked for, and then in that of what they are grouped by.
QByteArray Renderer::groupOrder(const Query& query) {
    QByteArray out = orderBy(query);
    const Replacements grouping = replacements_;
    replacements_.active = false;
    for (const ExprPtr& grouped : query.parts[0].groupBy)
        out += (out.isEmpty() ? " ORDER BY " : ", ") + dialect_.orderTerm(key(*grouped), false);
    replacements_ = grouping;
    return out;
}

// Rows without duplicates come in the order that is asked for, and then in that of their columns.
QByteArray Renderer::outputOrder(const Query& query, const std::vector<QByteArray>& keys, QByteArray before) const {
    for (size_t i = 0; i < keys.size(); ++i) {
        const bool asked = std::any_of(query.orderBy.begin(), query.orderBy.end(), [&](const OrderTerm& term) {
            return term.key->output == query.parts[0].outputs[i].expr.get();
        });
        if (!asked) before += (before.isEmpty() ? " ORDER BY " : ", ") + dialect_.orderTerm(keys[i], false);
    }
    return before;
}

// Inside, the rows as they are; outside, one of each by the fold. The order may name only what is shown.
QByteArray Renderer::distinctSelect(const Query& query, bool named) {
    const Select& select = query.parts[0];
    std::vector<SourceColumn> columns;
    for (const Output& output : select.outputs) columns.push_back({output.column.name, output.expr->type});
    const Replacements before = replacements_;
    replacements_ = {};
    if (select.grouped) startGrouping(select);
    const QByteArray rows = "SELECT" + selectBody(select, true, nullptr, nullptr);
    QByteArray out = withoutDuplicates(rows, columns, named);
    replacements_ = {};
    replacements_.active = true;
    replacements_.otherwise = u"με DISTINCT το ORDER BY δέχεται μόνο ό,τι υπάρχει στο SELECT, όχι το"_s;
    for (size_t i = 0; i < select.outputs.size(); ++i)
        replacements_.list.push_back({select.outputs[i].expr.get(), columnName(i)});
    const QByteArray order = orderBy(query);
    out += orderShows(query) ? outputOrder(query, columnKeys(columns), order) : order;
    replacements_ = before;
    if (select.top) out += dialect_.limit(*select.top);
    return out;
}

QByteArray Renderer::unionSelect(const Query& query, bool named) {
    size_t lastWithout = 0;  // parts up to here are shown once
    for (size_t i = 0; i < query.keepsDuplicates.size(); ++i)
        if (!query.keepsDuplicates[i]) lastWithout = i + 1;
    QByteArray rows;
    for (size_t i = 0; i < query.parts.size(); ++i) {
        const Select& select = query.parts[i];
        const Replacements before = replacements_;
        replacements_ = {};
        if (select.grouped) startGrouping(select);
        QByteArray part = "SELECT" + selectBody(select, true, &query.unionColumns, nullptr);
        replacements_ = before;
        if (select.distinct) part = withoutDuplicates(part, query.unionColumns, true);
        if (select.top) part = "SELECT * FROM (" + part + dialect_.limit(*select.top) + ") AS \"%t\"";
        rows += (i > 0 ? " UNION ALL " : "") + part;
        if (i == lastWithout && i > 0) rows = withoutDuplicates(rows, query.unionColumns, true);
    }
    QByteArray out = "SELECT";
    for (size_t i = 0; i < query.unionColumns.size(); ++i) {
        out += (i > 0 ? ", " : " ") + columnName(i);
        if (named) out += " AS " + columnName(i);
    }
    const Replacements before = replacements_;
    replacements_ = {};
    out += " FROM (" + rows + ") AS " + query.unionSource.sqlName;
    const QByteArray order = orderBy(query);
    out += lastWithout > 0 && orderShows(query) ? outputOrder(query, columnKeys(query.unionColumns), order) : order;
    replacements_ = before;
    return out;
}

std::vector<QByteArray> Renderer::columnKeys(const std::vector<SourceColumn>& columns) const {
    std::vector<QByteArray> keys;
    for (size_t i = 0; i < columns.size(); ++i)
        keys.push_back(isText(columns[i]) ? dialect_.fold(columnName(i)) : columnName(i));
    return keys;
}

QByteArray Renderer::withoutDuplicates(const QByteArray& rows, const std::vector<SourceColumn>& columns, bool named) {
    const std::vector<QByteArray> grouped = columnKeys(columns);
    QByteArray shown;
    QByteArray keys;
    for (size_t i = 0; i < columns.size(); ++i) {
        const QByteArray name = columnName(i);
        if (i > 0) {
            shown += ", ";
            keys += ", ";
        }
        shown += isText(columns[i]) ? dialect_.leastSpelling(name) : name;
        if (named) shown += " AS " + name;
        keys += grouped[i];
    }
    return "SELECT " + shown + " FROM (" + rows + ") AS \"%d\" GROUP BY " + keys;
}

// Everything from the list of columns to HAVING. `types` are those of the UNION that this is a part of.
QByteArray Renderer::selectBody(const Select& select, bool named, const std::vector<SourceColumn>* types,
                                const Source* identityOf) {
    QByteArray out;
    for (size_t i = 0; i < select.outputs.size(); ++i) {
        const Expr& expr = *select.outputs[i].expr;
        out += i > 0 ? ", " : " ";
        const ValueKind kind = types ? (*types)[i].type.kind : expr.type.kind;
        // A parameter's value shows as text; what it is, only the engine knows.
        out += as(expr, kind == ValueKind::Any ? ValueKind::Text : kind, Loose);
        if (named) out += " AS " + columnName(i);
    }
    if (identityOf) out += ", " + dialect_.rowIdentity(identityOf->sqlName, *identityOf->table);
    const Replacements grouping = replacements_;
    replacements_.active = false;
    out += from(select);
    if (select.where) out += where(select);
    for (size_t i = 0; i < select.groupBy.size(); ++i) out += (i > 0 ? ", " : " GROUP BY ") + key(*select.groupBy[i]);
    replacements_ = grouping;
    if (select.having) out += " HAVING " + condition(*select.having);
    return out;
}

// A grouped text shows the least spelling of its group, so that every engine shows the same.
void Renderer::startGrouping(const Select& select) {
    replacements_ = {};
    std::vector<Replacement> list;
    for (const ExprPtr& grouped : select.groupBy) {
        QByteArray text = sql(*grouped, Whole);
        if (grouped->type.kind == ValueKind::Text) text = dialect_.leastSpelling(text);
        list.push_back({grouped.get(), text});
    }
    replacements_.list = std::move(list);
    replacements_.active = true;
    replacements_.select = &select;
    replacements_.otherwise = u"περίμενα στήλη του GROUP BY ή συνάρτηση συνόλου, όχι το"_s;
}

QByteArray Renderer::from(const Select& select) {
    QByteArray out;
    for (size_t i = 0; i < select.from.size(); ++i) out += (i > 0 ? ", " : " FROM ") + chain(select.from[i]);
    return out;
}

QByteArray Renderer::chain(const JoinChain& joined) {
    QByteArray out = joined.first.group ? chain(*joined.first.group) : tableRef(joined.first);
    for (const Join& join : joined.joins) {
        switch (join.kind) {
            case JoinKind::Inner:
                out += " INNER JOIN ";
                break;
            case JoinKind::Left:
                out += " LEFT JOIN ";
                break;
            case JoinKind::Right:
                out += " RIGHT JOIN ";
                break;
        }
        out += tableRef(join.table) + " ON " + condition(*join.on);
    }
    return out;
}

QByteArray Renderer::tableRef(const TableRef& table) {
    if (table.group) return '(' + chain(*table.group) + ')';
    if (table.query) return '(' + query(*table.query, true) + ") AS " + table.source.sqlName;
    return target(table);
}

QByteArray Renderer::target(const TableRef& table) const {
    const QByteArray name = dialect_.identifier(table.source.table->name);
    return name == table.source.sqlName ? name : name + " AS " + table.source.sqlName;
}

QByteArray Renderer::orderBy(const Query& query, bool afterwards) {
    QByteArray out;
    for (const OrderTerm& term : query.orderBy) {
        const Expr& expr = term.key->output ? *term.key->output : *term.key;
        if (expr.kind == ExprKind::Literal) continue;  // the same for all rows, and a number would be a position
        out += (out.isEmpty() ? " ORDER BY " : ", ") +
               dialect_.orderTerm(afterwards ? dialect_.sortedAfterwards(key(expr)) : key(expr), term.descending);
    }
    return out;
}

// Writing

QByteArray Renderer::assigned(const Expr& value, const ColumnInfo& column) {
    if (value.kind == ExprKind::Literal) {
        try {
            return dialect_.literal(toColumn(value.value, column));
        } catch (const Error& error) {
            throw Error(error.category(), places_.place(value.position) + u": "_s + error.text(), places_.statement());
        }
    }
    const ValueType& from = value.type;
    const bool fits =
        value.kind == ExprKind::Column && from.kind == kindOf(column.type) &&
        (column.type == from.column || column.type == ColumnType::Double || column.type == ColumnType::Memo) &&
        (column.type != ColumnType::Text || from.size <= column.size) && column.type != ColumnType::YesNo;
    return fits ? sql(value, Loose) : dialect_.intoColumn(sql(value, Whole), from.kind, column);
}

void Renderer::renderInsert(const Statement& statement, Translation& translation) {
    const TableInfo& table = *statement.table.source.table;
    QByteArray out = "INSERT INTO " + dialect_.identifier(table.name) + " (";
    for (size_t i = 0; i < statement.assignments.size(); ++i)
        out += (i > 0 ? ", " : "") + dialect_.identifier(table.columns[statement.assignments[i].index].name);
    if (statement.query) {
        translation.sql = out + ") " + insertedQuery(statement);
        return;
    }
    out += ") VALUES (";
    for (size_t i = 0; i < statement.assignments.size(); ++i) {
        const Assignment& assignment = statement.assignments[i];
        const ColumnInfo& column = table.columns[assignment.index];
        const bool drawn = column.type == ColumnType::Autonumber && assignment.value->type.kind == ValueKind::Null;
        out += (i > 0 ? ", " : "") + (drawn ? dialect_.nextNumber() : assigned(*assignment.value, column));
    }
    translation.sql = out + ')';
}

QByteArray Renderer::insertedQuery(const Statement& statement) {
    const TableInfo& table = *statement.table.source.table;
    const Query& rows = *statement.query;
    QByteArray out = "SELECT ";
    for (size_t i = 0; i < statement.assignments.size(); ++i) {
        const ValueKind kind =
            rows.parts.size() > 1 ? rows.unionColumns[i].type.kind : rows.parts[0].outputs[i].expr->type.kind;
        out += (i > 0 ? ", " : "") +
               dialect_.intoColumn(columnName(i), kind, table.columns[statement.assignments[i].index]);
    }
    return out + " FROM (" + query(rows, true) + ") AS \"%i\" WHERE " + dialect_.yesNoLiteral(true);
}

void Renderer::renderUpdate(const Statement& statement, Translation& translation) {
    const TableInfo& table = *statement.table.source.table;
    QByteArray out = "UPDATE " + target(statement.table) + " SET ";
    for (size_t i = 0; i < statement.assignments.size(); ++i) {
        const Assignment& assignment = statement.assignments[i];
        const ColumnInfo& column = table.columns[assignment.index];
        out += (i > 0 ? ", " : "") + dialect_.identifier(column.name) + " = " + assigned(*assignment.value, column);
    }
    if (statement.where) out += " WHERE " + condition(*statement.where);
    translation.sql = out;
}

void Renderer::renderDelete(const Statement& statement, Translation& translation) {
    translation.sql = "DELETE FROM " + target(statement.table);
    if (statement.where) translation.sql += " WHERE " + condition(*statement.where);
}

}  // namespace data::dialect
