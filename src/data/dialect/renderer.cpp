#include "data/dialect/renderer.h"

#include "data/convert.h"

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
    return "SELECT DISTINCT" + selectBody(select, named, nullptr, nullptr) +
           (select.top ? dialect_.limit(*select.top) : QByteArray());
}

QByteArray Renderer::plainSelect(const Query& query, bool named, const Source* identityOf) {
    const Select& select = query.parts[0];
    const Replacements before = replacements_;
    replacements_ = {};
    if (select.grouped) startGrouping(select);
    QByteArray out = "SELECT" + selectBody(select, named, nullptr, identityOf);
    out += &query == top_ && !select.grouped ? completeOrder(query) : orderBy(query);
    if (select.top) out += dialect_.limit(*select.top);
    replacements_ = before;
    return out;
}

// The order that is asked for, and among equals that of the tables' rows: nobody's list may shuffle by itself.
QByteArray Renderer::completeOrder(const Query& query) {
    QByteArray out = orderBy(query);
    if (dialect_.keepsRowOrder()) return out;
    for (const Source* source : query.parts[0].sources)
        if (source->table && !source->table->rowIdentity.isEmpty())
            out += (out.isEmpty() ? " ORDER BY " : ", ") +
                   dialect_.orderTerm(dialect_.rowIdentity(source->sqlName, *source->table), false);
    return out;
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
    replacements_.otherwise = "με DISTINCT το ORDER BY δέχεται μόνο ό,τι υπάρχει στο SELECT, όχι το";
    for (size_t i = 0; i < select.outputs.size(); ++i)
        replacements_.list.push_back({select.outputs[i].expr.get(), columnName(i)});
    out += orderBy(query);
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
    out += " FROM (" + rows + ") AS " + query.unionSource.sqlName + orderBy(query);
    replacements_ = before;
    return out;
}

QByteArray Renderer::withoutDuplicates(const QByteArray& rows, const std::vector<SourceColumn>& columns, bool named) {
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
        keys += isText(columns[i]) ? dialect_.fold(name) : name;
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
        out += types ? as(expr, (*types)[i].type.kind, Loose) : sql(expr, Loose);
        if (named) out += " AS " + columnName(i);
    }
    if (identityOf) out += ", " + dialect_.rowIdentity(identityOf->sqlName, *identityOf->table);
    const Replacements grouping = replacements_;
    replacements_.active = false;
    out += from(select);
    if (select.where) out += " WHERE " + condition(*select.where);
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
    replacements_.otherwise = "περίμενα στήλη του GROUP BY ή συνάρτηση συνόλου, όχι το";
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

QByteArray Renderer::orderBy(const Query& query) {
    QByteArray out;
    for (const OrderTerm& term : query.orderBy) {
        const Expr& expr = term.key->output ? *term.key->output : *term.key;
        if (expr.kind == ExprKind::Literal) continue;  // the same for all rows, and a number would be a position
        out += (out.isEmpty() ? " ORDER BY " : ", ") + dialect_.orderTerm(key(expr), term.descending);
    }
    return out;
}

// Writing

QByteArray Renderer::assigned(const Expr& value, const ColumnInfo& column) {
    if (value.kind == ExprKind::Literal) {
        try {
            return dialect_.literal(toColumn(value.value, column));
        } catch (const Error& error) {
            throw Error(error.category(), places_.place(value.position) + QStringLiteral(": ") + error.text(),
                        places_.statement());
        }
    }
    const ValueType& from = value.type;
    const bool fits =
        value.kind == ExprKind::Column && from.kind == kindOf(column.type) &&
        (column.type == from.column || column.type == ColumnType::Double || column.type == ColumnType::Memo) &&
        (column.type != ColumnType::Text || from.size <= column.size) && column.type != ColumnType::YesNo;
    return fits ? sql(value, Loose) : dialect_.intoColumn(sql(value, Loose), from.kind, column);
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
        out += (i > 0 ? ", " : "") + assigned(*assignment.value, table.columns[assignment.index]);
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
