#include "data/dialect/binder.h"

#include <QSet>

#include "data/dialect/functiontable.h"

using namespace Qt::Literals::StringLiterals;

namespace data::dialect {

int ColumnIndex::find(const TableInfo& table, const QString& name) {
    auto it = byTable_.find(&table);
    if (it == byTable_.end()) {
        QHash<QString, int> columns;
        for (int i = int(table.columns.size()) - 1; i >= 0; --i) columns.insert(nameKey(table.columns[i].name), i);
        it = byTable_.insert(&table, std::move(columns));
    }
    return it->value(nameKey(name), -1);
}

void Binder::bind(Statement& statement) {
    Scope scope;
    if (statement.kind == StatementKind::Select) return bindQuery(*statement.query, nullptr);
    bindTable(statement.table);
    if (statement.kind == StatementKind::Insert) return bindInsert(statement);
    scope.sources.push_back(&statement.table.source);
    scope.noAggregates = u"UPDATE και DELETE"_s;
    if (statement.kind == StatementKind::Update) bindUpdate(statement, scope);
    if (statement.where) bindExpr(*statement.where, scope);
}

void Binder::bindQuery(Query& query, const Scope* outer) {
    Scope last;
    for (Select& select : query.parts) {
        Scope scope;
        scope.outer = outer;
        bindSelect(select, scope);
        last = std::move(scope);
    }
    if (query.parts.size() > 1) {
        bindUnion(query);
        last = Scope();
        last.outer = outer;
        last.sources.push_back(&query.unionSource);
        last.noAggregates = u"ORDER BY μετά από UNION"_s;
    }
    bindOrder(query, last);
}

void Binder::bindSelect(Select& select, Scope& scope) {
    bindFrom(select, scope);
    scope.select = &select;
    select.sources = scope.sources;
    select.grouped = !select.groupBy.empty();
    for (SelectItem& item : select.items) expandItem(select, item, scope);
    nameOutputs(select);
    if (select.having && !select.grouped)
        places_.fail(select.having->position, u"το HAVING θέλει GROUP BY, ή συνάρτηση συνόλου στο SELECT"_s);
    scope.noAggregates = u"WHERE"_s;
    if (select.where) bindExpr(*select.where, scope);
    scope.noAggregates = u"GROUP BY"_s;
    for (const ExprPtr& key : select.groupBy) {
        bindExpr(*key, scope);
        if (key->kind == ExprKind::Literal)
            places_.fail(key->position, u"περίμενα στήλη ή έκφραση με στήλη στο GROUP BY"_s);
    }
    scope.noAggregates.clear();
    if (select.having) bindExpr(*select.having, scope);
}

void Binder::bindFrom(Select& select, Scope& scope) {
    for (JoinChain& chain : select.from) bindChain(chain, scope);
}

// A join's condition sees the tables of its own chain up to there, as every engine has it.
void Binder::bindChain(JoinChain& chain, Scope& scope) {
    const size_t start = scope.sources.size();
    bindTableRef(chain.first, scope);
    for (Join& join : chain.joins) {
        bindTableRef(join.table, scope);
        Scope visible;
        visible.outer = scope.outer;
        visible.sources.assign(scope.sources.begin() + qsizetype(start), scope.sources.end());
        visible.noAggregates = u"ON"_s;
        bindExpr(*join.on, visible);
    }
}

void Binder::bindTableRef(TableRef& table, Scope& scope) {
    if (table.group) {
        const size_t before = scope.sources.size();
        bindChain(*table.group, scope);
        for (size_t i = before; i < scope.sources.size(); ++i) scope.sources[i]->inBrackets = true;
        return;
    }
    if (!table.query) {
        bindTable(table);
        return addSource(table, scope);
    }
    bindQuery(*table.query, scope.outer);
    table.source.name = table.alias.isEmpty() ? u"%$%1"_s.arg(scope.sources.size()) : table.alias;
    table.source.sqlName = dialect_.identifier(table.source.name);
    if (table.query->parts.size() > 1) {
        table.source.columns = table.query->unionColumns;
    } else {
        for (const Output& output : table.query->parts[0].outputs)
            table.source.columns.push_back({output.column.name, output.expr->type});
    }
    addSource(table, scope);
}

void Binder::addSource(TableRef& table, Scope& scope) {
    const QString key = nameKey(table.source.name);
    for (const Source* source : scope.sources)
        if (nameKey(source->name) == key)
            places_.fail(table.position, u"το όνομα %1 υπάρχει ήδη στο FROM· περίμενα άλλο όνομα με AS"_s.arg(
                                             shown(table.source.name)));
    scope.sources.push_back(&table.source);
}

void Binder::bindTable(TableRef& table) {
    const TableInfo* info = catalog_.find(table.name);
    if (!info) {
        QStringList names;
        for (const TableInfo& candidate : catalog_.tables()) names << candidate.name;
        places_.fail(table.position,
                     u"δεν υπάρχει πίνακας %1%2"_s.arg(shown(table.name), suggestion(table.name, names)));
    }
    table.source.table = info;
    table.source.name = table.alias.isEmpty() ? info->name : table.alias;
    table.source.sqlName = dialect_.identifier(table.source.name);
}

void Binder::expandItem(Select& select, SelectItem& item, Scope& scope) {
    if (item.star) return expandStar(select, item);
    bindExpr(*item.expr, scope);
    Output output;
    output.column.name = item.alias;
    if (item.expr->kind == ExprKind::Column && item.expr->source->table) {
        const TableInfo& table = *item.expr->source->table;
        if (select.sources.size() == 1 && select.sources[0] == item.expr->source)
            output.column.baseColumn = item.expr->column;
        if (item.alias.isEmpty()) output.column.name = table.columns[item.expr->column].name;
    } else if (item.expr->kind == ExprKind::Column && item.alias.isEmpty()) {
        output.column.name = item.expr->source->columns[size_t(item.expr->column)].name;
    }
    output.expr = std::move(item.expr);
    select.outputs.push_back(std::move(output));
}

void Binder::expandStar(Select& select, const SelectItem& item) {
    const QString wanted = nameKey(item.qualifier);
    bool found = false;
    for (const Source* source : select.sources) {
        if (!wanted.isEmpty() && nameKey(source->name) != wanted) continue;
        found = true;
        const int count = source->table ? int(source->table->columns.size()) : int(source->columns.size());
        for (int i = 0; i < count; ++i) {
            Output output;
            output.expr = std::make_unique<Expr>();
            output.expr->kind = ExprKind::Column;
            output.expr->position = item.position;
            output.expr->source = source;
            output.expr->column = i;
            output.expr->type = columnType(*source, i);
            output.column.name = source->table ? source->table->columns[i].name : source->columns[size_t(i)].name;
            if (source->table && select.sources.size() == 1) output.column.baseColumn = i;
            select.outputs.push_back(std::move(output));
        }
    }
    if (!found)
        places_.fail(item.position, item.qualifier.isEmpty()
                                        ? u"περίμενα FROM με πίνακα για το *"_s
                                        : u"ο πίνακας %1 δεν είναι στο FROM"_s.arg(shown(item.qualifier)));
}

// A name that stands already is qualified by its table; what has no name is Expr1000 and up.
void Binder::nameOutputs(Select& select) {
    QSet<QString> taken;
    int unnamed = 1000;
    const bool oneTable = select.items.size() == 1 && select.sources.size() == 1;
    for (Output& output : select.outputs) {
        output.column.type = output.expr->type.column;
        output.column.size = output.expr->type.size;
        if (oneTable && !output.column.name.isEmpty()) continue;
        QString& name = output.column.name;
        if (!name.isEmpty() && taken.contains(nameKey(name)) && output.expr->kind == ExprKind::Column)
            name = output.expr->source->name + u'.' + name;
        while (name.isEmpty() || taken.contains(nameKey(name))) name = u"Expr%1"_s.arg(unnamed++);
        taken.insert(nameKey(name));
    }
}

void Binder::bindUnion(Query& query) {
    const size_t width = query.parts[0].outputs.size();
    for (const Output& output : query.parts[0].outputs)
        query.unionColumns.push_back({output.column.name, output.expr->type});
    for (size_t i = 1; i < query.parts.size(); ++i) {
        const Select& part = query.parts[i];
        if (part.outputs.size() != width)
            places_.fail(
                part.position,
                u"περίμενα %1 στήλες όπως στο πρώτο SELECT του UNION, βρήκα %2"_s.arg(width).arg(part.outputs.size()));
        for (size_t c = 0; c < width; ++c)
            query.unionColumns[c].type = commonType(query.unionColumns[c].type, part.outputs[c].expr->type);
    }
    query.unionSource.columns = query.unionColumns;
    query.unionSource.sqlName = dialect_.identifier(u"%u");
}

void Binder::bindOrder(Query& query, Scope& scope) {
    const std::vector<Output>& outputs = query.parts[0].outputs;
    for (OrderTerm& term : query.orderBy)
        if (!bindOutputName(term, outputs)) bindExpr(*term.key, scope);
    // A UNION's result is a table of its own, so what names one of its columns is a plain column there.
    if (query.parts.size() < 2) return;
    for (OrderTerm& term : query.orderBy) {
        if (term.key->kind != ExprKind::Output) continue;
        const auto at = std::find_if(outputs.begin(), outputs.end(),
                                     [&](const Output& output) { return output.expr.get() == term.key->output; });
        term.key->kind = ExprKind::Column;
        term.key->output = nullptr;
        term.key->source = &query.unionSource;
        term.key->column = int(at - outputs.begin());
        term.key->type = query.unionColumns[size_t(term.key->column)].type;
    }
}

// A position, or an alias standing alone.
bool Binder::bindOutputName(OrderTerm& term, const std::vector<Output>& outputs) {
    Expr& key = *term.key;
    const Output* found = nullptr;
    if (key.kind == ExprKind::Literal && key.value.typeId() == QMetaType::LongLong) {
        const qint64 position = key.value.toLongLong();
        if (position < 1 || position > qint64(outputs.size()))
            places_.fail(key.position,
                         u"περίμενα θέση στήλης από 1 έως %1, βρήκα %2"_s.arg(outputs.size()).arg(position));
        found = &outputs[size_t(position - 1)];
    } else if (key.kind == ExprKind::Name && key.qualifier.isEmpty()) {
        const QString wanted = nameKey(key.name);
        for (const Output& output : outputs) {
            if (nameKey(output.column.name) != wanted) continue;
            found = &output;
            break;
        }
    }
    if (!found) return false;
    key.kind = ExprKind::Output;
    key.output = found->expr.get();
    key.type = found->expr->type;
    return true;
}

int Binder::tableColumn(const TableRef& table, const Assignment& assignment) {
    const TableInfo& info = *table.source.table;
    if (!assignment.qualifier.isEmpty() && nameKey(assignment.qualifier) != nameKey(table.source.name))
        places_.fail(assignment.position, u"περίμενα στήλη του πίνακα %1, βρήκα %2"_s.arg(shown(table.source.name),
                                                                                          shown(assignment.qualifier)));
    const int index = index_.find(info, assignment.column);
    if (index >= 0) return index;
    QStringList names;
    for (const ColumnInfo& column : info.columns) names << column.name;
    places_.fail(assignment.position, u"ο πίνακας «%1» δεν έχει στήλη %2%3"_s.arg(
                                          info.name, shown(assignment.column), suggestion(assignment.column, names)));
}

void Binder::bindInsert(Statement& statement) {
    const TableInfo& table = *statement.table.source.table;
    if (statement.query) bindQuery(*statement.query, nullptr);
    const size_t values = !statement.query                 ? statement.assignments.size()
                          : statement.query->parts.empty() ? 0
                                                           : statement.query->parts[0].outputs.size();
    if (!statement.namesColumns) {
        if (values != size_t(table.columns.size()))
            places_.fail(statement.table.position,
                         u"ο πίνακας «%1» έχει %2 στήλες και οι τιμές είναι %3· περίμενα μία τιμή για κάθε στήλη"_s
                             .arg(table.name)
                             .arg(table.columns.size())
                             .arg(values));
        statement.assignments.resize(values);
        for (size_t i = 0; i < values; ++i) statement.assignments[i].index = int(i);
    } else if (values != statement.assignments.size()) {
        places_.fail(statement.query->parts[0].position,
                     u"οι στήλες είναι %1 και το SELECT δίνει %2"_s.arg(statement.assignments.size()).arg(values));
    }
    Scope scope;
    scope.noAggregates = u"VALUES"_s;
    QSet<int> seen;
    for (Assignment& assignment : statement.assignments) {
        if (statement.namesColumns) assignment.index = tableColumn(statement.table, assignment);
        if (seen.contains(assignment.index))
            places_.fail(assignment.position, u"η στήλη %1 υπάρχει δύο φορές"_s.arg(shown(assignment.column)));
        seen.insert(assignment.index);
        if (assignment.value) bindExpr(*assignment.value, scope);
    }
}

void Binder::bindUpdate(Statement& statement, Scope& scope) {
    QSet<int> seen;
    for (Assignment& assignment : statement.assignments) {
        assignment.index = tableColumn(statement.table, assignment);
        if (seen.contains(assignment.index))
            places_.fail(assignment.position, u"η στήλη %1 υπάρχει δύο φορές"_s.arg(shown(assignment.column)));
        seen.insert(assignment.index);
        bindExpr(*assignment.value, scope);
    }
}

}  // namespace data::dialect
