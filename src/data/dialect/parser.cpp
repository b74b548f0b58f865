#include "data/dialect/parser.h"

#include <array>

using namespace Qt::Literals::StringLiterals;

namespace data::dialect {

Parser::Parser(const Places& places, const DialectOptions& options) : places_(places), options_(options) {
    tokens_ = tokenize(places);
}

Statement Parser::parse() {
    if (options_.selectOnly && !at(Keyword::Select))
        places_.fail(peek().position,
                     u"εδώ επιτρέπεται μόνο μία εντολή SELECT· περίμενα SELECT, βρήκα %1"_s.arg(
                         peek().kind == TokenKind::End ? u"το τέλος"_s : shown(peek().source)),
                     ErrorCategory::ReadOnly);
    Statement statement;
    if (at(Keyword::Select)) {
        statement.query = query();
    } else if (accept(Keyword::Insert)) {
        statement = insert();
    } else if (accept(Keyword::Update)) {
        statement = update();
    } else if (accept(Keyword::Delete)) {
        statement = remove();
    } else {
        expected(u"SELECT, INSERT, UPDATE ή DELETE"_s);
    }
    statementEnd();
    return statement;
}

void Parser::statementEnd() {
    const bool closed = at(Sign::Semicolon);
    while (accept(Sign::Semicolon)) {
    }
    if (peek().kind == TokenKind::End) return;
    if (options_.selectOnly && (closed || at(Keyword::Into)))
        places_.fail(peek().position,
                     u"εδώ επιτρέπεται μόνο μία εντολή SELECT, βρήκα και %1"_s.arg(shown(peek().source)),
                     ErrorCategory::ReadOnly);
    expected(u"το τέλος της εντολής"_s);
}

// SELECT ... [UNION [ALL] SELECT ...] [ORDER BY ...]

std::unique_ptr<Query> Parser::query() {
    const Level level(*this);
    auto query = std::make_unique<Query>();
    query->parts.push_back(select());
    while (accept(Keyword::Union)) {
        query->keepsDuplicates.push_back(accept(Keyword::All));
        if (!at(Keyword::Select)) expected(u"SELECT μετά το UNION"_s);
        query->parts.push_back(select());
    }
    if (at(Keyword::Order)) query->orderBy = orderBy();
    return query;
}

Select Parser::select() {
    Select select;
    select.position = take().position;
    if (accept(Keyword::Distinct))
        select.distinct = true;
    else
        accept(Keyword::All);
    top(select);
    {
        const Commas commas(*this, false);
        selectList(select);
    }
    if (at(Keyword::Into) && options_.selectOnly) statementEnd();
    if (accept(Keyword::From))
        select.from = fromList();
    else if (peek().kind != TokenKind::End && !at(Sign::Close) && !at(Sign::Semicolon) && !at(Keyword::Union) &&
             !at(Keyword::Where) && !(at(Keyword::Order) && at(Keyword::By, 1)))
        expected(u"FROM ή κόμμα"_s);
    const Commas commas(*this, true);
    if (accept(Keyword::Where)) select.where = condition();
    if (at(Keyword::Group)) {
        take();
        expect(Keyword::By, u"BY μετά το GROUP"_s);
        const Commas list(*this, false);
        select.groupBy = expressionList();
    }
    if (accept(Keyword::Having)) select.having = condition();
    return select;
}

// TOP is also a fine name for a column.
void Parser::top(Select& select) {
    if (!at(Keyword::Top) || peek(1).kind != TokenKind::Number) return;
    take();
    const Token& count = take();
    bool ok = false;
    const qint64 rows = count.source.toLongLong(&ok);
    if (!ok || rows > 0x7fffffff)
        places_.fail(count.position, u"περίμενα ακέραιο πλήθος μετά το TOP, βρήκα %1"_s.arg(shown(count.source)));
    if (at(Keyword::Percent)) places_.fail(peek().position, u"το TOP δέχεται πλήθος γραμμών, όχι PERCENT"_s);
    select.top = rows;
}

void Parser::selectList(Select& select) {
    do {
        select.items.push_back(selectItem());
    } while (accept(Sign::Comma));
}

SelectItem Parser::selectItem() {
    SelectItem item;
    item.position = peek().position;
    if (accept(Sign::Star)) {
        item.star = true;
    } else if (peek().isName() && at(Sign::Dot, 1) && at(Sign::Star, 2)) {
        item.star = true;
        item.qualifier = take().content.toString();
        take();
        take();
    } else {
        item.expr = condition();
        item.alias = aliasName();
    }
    return item;
}

// [AS] name; empty when there is none.
QString Parser::aliasName() {
    if (accept(Keyword::As)) {
        if (atReservedWord() || (!peek().isName() && peek().kind != TokenKind::Text)) expected(u"όνομα μετά το AS"_s);
        return textOf(take());
    }
    if (peek().kind == TokenKind::Bracketed || (peek().kind == TokenKind::Word && at(Keyword::None)))
        return take().content.toString();
    return {};
}

std::vector<JoinChain> Parser::fromList() {
    const Commas commas(*this, true);
    std::vector<JoinChain> chains;
    do {
        chains.push_back(joinChain());
    } while (accept(Sign::Comma));
    return chains;
}

JoinChain Parser::joinChain() {
    const Level level(*this);
    JoinChain chain;
    chain.first = tableRef();
    while (const std::optional<JoinKind> kind = joinKeyword()) {
        Join join;
        join.kind = *kind;
        join.table = tableRef();
        expect(Keyword::On, u"ON με τη συνθήκη της σύνδεσης"_s);
        join.on = condition();
        chain.joins.push_back(std::move(join));
    }
    return chain;
}

std::optional<JoinKind> Parser::joinKeyword() {
    JoinKind kind = JoinKind::Inner;
    if (accept(Keyword::Join)) return kind;
    if (accept(Keyword::Inner)) {
    } else if (accept(Keyword::Left)) {
        kind = JoinKind::Left;
        accept(Keyword::Outer);
    } else if (accept(Keyword::Right)) {
        kind = JoinKind::Right;
        accept(Keyword::Outer);
    } else {
        return std::nullopt;
    }
    expect(Keyword::Join, u"JOIN"_s);
    return kind;
}

TableRef Parser::tableRef() {
    TableRef table;
    table.position = peek().position;
    if (at(Sign::Open) && at(Keyword::Select, 1)) {
        table.query = bracketedQuery();
        table.alias = aliasName();
    } else if (accept(Sign::Open)) {
        table.group = std::make_unique<JoinChain>(joinChain());
        expect(Sign::Close, u"παρένθεση που να κλείνει"_s);
    } else {
        namedTable(table);
        table.alias = aliasName();
    }
    return table;
}

void Parser::namedTable(TableRef& table) {
    if (!peek().isName() || atReservedWord()) expected(u"όνομα πίνακα"_s);
    table.position = peek().position;
    table.name = take().content.toString();
}

std::vector<OrderTerm> Parser::orderBy() {
    take();
    expect(Keyword::By, u"BY μετά το ORDER"_s);
    const Commas commas(*this, false);
    std::vector<OrderTerm> terms;
    do {
        OrderTerm term;
        term.key = condition();
        term.descending = accept(Keyword::Desc);
        if (!term.descending) accept(Keyword::Asc);
        terms.push_back(std::move(term));
    } while (accept(Sign::Comma));
    return terms;
}

// INSERT INTO table [(columns)] VALUES (...) | SELECT ...
Statement Parser::insert() {
    Statement statement;
    statement.kind = StatementKind::Insert;
    expect(Keyword::Into, u"INTO μετά το INSERT"_s);
    namedTable(statement.table);
    if (at(Sign::Open) && !at(Keyword::Select, 1)) {
        take();
        statement.namesColumns = true;
        do {
            Assignment column;
            column.position = peek().position;
            if (!peek().isName()) expected(u"όνομα στήλης"_s);
            column.column = take().content.toString();
            statement.assignments.push_back(std::move(column));
        } while (accept(Sign::Comma));
        expect(Sign::Close, u"κόμμα ή παρένθεση που να κλείνει τις στήλες"_s);
    }
    if (at(Keyword::Select)) {
        statement.query = query();
        return statement;
    }
    expect(Keyword::Values, statement.namesColumns ? u"VALUES ή SELECT"_s : u"VALUES, SELECT ή στήλες σε παρένθεση"_s);
    const qsizetype opened = peek().position;
    expect(Sign::Open, u"παρένθεση με τις τιμές"_s);
    const Commas commas(*this, false);
    std::vector<ExprPtr> values = expressionList();
    expect(Sign::Close, u"κόμμα ή παρένθεση που να κλείνει τις τιμές"_s);
    if (!statement.namesColumns) {
        statement.assignments.resize(values.size());
    } else if (values.size() != statement.assignments.size()) {
        places_.fail(opened, u"οι στήλες είναι %1 και οι τιμές %2· περίμενα μία τιμή για κάθε στήλη"_s
                                 .arg(statement.assignments.size())
                                 .arg(values.size()));
    }
    for (size_t i = 0; i < values.size(); ++i) statement.assignments[i].value = std::move(values[i]);
    return statement;
}

// UPDATE table [alias] SET column = value, ... [WHERE ...]
Statement Parser::update() {
    Statement statement;
    statement.kind = StatementKind::Update;
    namedTable(statement.table);
    statement.table.alias = aliasName();
    expect(Keyword::Set, u"SET"_s);
    const Commas commas(*this, true);
    do {
        Assignment assignment;
        if (!peek().isName()) expected(u"όνομα στήλης"_s);
        assignment.position = peek().position;
        assignment.column = take().content.toString();
        if (accept(Sign::Dot)) {
            if (!peek().isName()) expected(u"όνομα στήλης μετά την τελεία"_s);
            assignment.qualifier = assignment.column;
            assignment.column = take().content.toString();
        }
        expect(Sign::Equal, u"= και τη νέα τιμή"_s);
        assignment.value = condition();
        statement.assignments.push_back(std::move(assignment));
    } while (accept(Sign::Comma));
    if (accept(Keyword::Where)) statement.where = condition();
    return statement;
}

// DELETE [* | table.*] FROM table [alias] [WHERE ...]
Statement Parser::remove() {
    Statement statement;
    statement.kind = StatementKind::Delete;
    if (peek().isName() && at(Sign::Dot, 1) && at(Sign::Star, 2)) {
        take();
        take();
    }
    accept(Sign::Star);
    expect(Keyword::From, u"FROM"_s);
    namedTable(statement.table);
    statement.table.alias = aliasName();
    const Commas commas(*this, true);
    if (accept(Keyword::Where)) statement.where = condition();
    return statement;
}

// Tokens

const Token& Parser::peek(int ahead) const {
    return tokens_[std::min(at_ + size_t(ahead), tokens_.size() - 1)];
}

const Token& Parser::take() {
    const Token& token = peek();
    if (at_ + 1 < tokens_.size()) ++at_;
    return token;
}

bool Parser::accept(Sign sign) {
    if (!at(sign)) return false;
    take();
    return true;
}

bool Parser::accept(Keyword keyword) {
    if (!at(keyword)) return false;
    take();
    return true;
}

void Parser::expect(Sign sign, const QString& what) {
    if (!accept(sign)) expected(what);
}

void Parser::expect(Keyword keyword, const QString& what) {
    if (!accept(keyword)) expected(what);
}

// Words that can't be a name where an operand or a table is due; all others, as LEFT or GROUP, can.
bool Parser::atReservedWord() const {
    switch (peek().keyword) {
        case Keyword::Group:
        case Keyword::Order:
            return at(Keyword::By, 1);
        case Keyword::And:
        case Keyword::As:
        case Keyword::Between:
        case Keyword::Delete:
        case Keyword::From:
        case Keyword::Having:
        case Keyword::In:
        case Keyword::Inner:
        case Keyword::Insert:
        case Keyword::Into:
        case Keyword::Is:
        case Keyword::Join:
        case Keyword::Like:
        case Keyword::Not:
        case Keyword::Or:
        case Keyword::Select:
        case Keyword::Set:
        case Keyword::Union:
        case Keyword::Update:
        case Keyword::Values:
        case Keyword::Where:
        case Keyword::Xor:
            return true;
        default:
            return false;
    }
}

void Parser::expected(const QString& what) const {
    const Token& token = peek();
    const QString found = token.kind == TokenKind::End ? u"το τέλος της εντολής"_s : shown(token.source);
    places_.fail(token.position, u"περίμενα %1, βρήκα %2"_s.arg(what, found));
}

Parser::Level::Level(Parser& parser) : parser_(parser) {
    if (++parser.depth_ > deepestNesting) {
        --parser.depth_;  // the destructor doesn't run for a constructor that throws
        parser.places_.fail(parser.peek().position,
                            u"περίμενα το πολύ %1 επίπεδα μέσα στο άλλο, βρήκα και άλλο"_s.arg(deepestNesting));
    }
    parser.noteDepth(parser.depth_, parser.peek().position);
}

}  // namespace data::dialect
