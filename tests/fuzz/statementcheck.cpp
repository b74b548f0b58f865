#include "statementcheck.h"

#include <QRegularExpression>

#include "data/error.h"
#include "data/postgres/pgdialect.h"
#include "data/sqlite/sqliteparserlimit.h"
#include "data/sqlite/wordindex.h"

using namespace Qt::Literals::StringLiterals;

using namespace data;

namespace {

dialect::DialectOptions optionsOf(unsigned char bits) {
    dialect::DialectOptions options;
    if (bits & 1) options.dateOrder = DateOrder::DayFirst;
    options.decimalComma = bits & 2;
    options.selectOnly = bits & 4;
    if (bits & 8) options.parameters = {u"datefrom"_s, u"p1"_s};
    return options;
}

// The catalog as the server's engine reads it.
Catalog withServerIdentities(const Catalog& catalog) {
    Catalog out;
    for (TableInfo table : catalog.tables()) {
        table.rowIdentity = table.autonumber < 0 ? u"_row"_s : table.columns[table.autonumber].name;
        out.add(table);
    }
    return out;
}

// The catalog after a word index was made of all texts of each table that has an autonumber.
Catalog withWords(DialectDatabase& database) {
    Catalog out;
    for (TableInfo table : database.catalog().tables()) {
        QVector<int> texts;
        for (int i = 0; i < table.columns.size(); ++i)
            if (isText(table.columns[i].type)) texts += i;
        if (table.autonumber >= 0 && !texts.isEmpty()) {
            table.rowIdentity = table.columns[table.autonumber].name;
            database.engine(sqlite::wordIndexScript(table, texts));
            table.words = {wordIndexName(table), texts};
        }
        out.add(table);
    }
    return out;
}

QStringList linesOf(QString dialect::sql) {
    dialect::sql.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n');
    return dialect::sql.split(u'\n');
}

bool placeIsInside(const QString& error, const QString& dialect::sql) {
    static const QRegularExpression one(u"^Στη θέση (\\d+): ."_s);
    static const QRegularExpression several(u"^Στη γραμμή (\\d+), στήλη (\\d+): ."_s);
    if (const auto found = one.match(error); found.hasMatch()) {
        const qlonglong position = found.captured(1).toLongLong();
        return position >= 1 && position <= dialect::sql.size() + 1;
    }
    const auto found = several.match(error);
    if (!found.hasMatch()) return false;
    const QStringList lines = linesOf(dialect::sql);
    const qlonglong line = found.captured(1).toLongLong();
    const qlonglong column = found.captured(2).toLongLong();
    return line >= 1 && line <= lines.size() && column >= 1 && column <= lines[line - 1].size() + 2;
}

bool isTranslators(int category) {
    const auto known = {ErrorCategory::Syntax, ErrorCategory::Parameter, ErrorCategory::Type, ErrorCategory::Constraint,
                        ErrorCategory::ReadOnly};
    return std::any_of(known.begin(), known.end(), [&](ErrorCategory one) { return int(one) == category; });
}

}  // namespace

StatementCheck::StatementCheck()
    : serverCatalog_(withServerIdentities(database_.catalog())),
      server_(serverCatalog_, postgres::pgDialect(), sqlite::sqliteParserLimit()),
      wordedCatalog_(withWords(database_)),
      worded_(wordedCatalog_, database_.dialect(), sqlite::sqliteParserLimit()) {}

StatementCheck::Outcome StatementCheck::outcome(dialect::Translator& translator, const QString& dialect::sql,
                                                const dialect::DialectOptions& options) {
    try {
        return {translator.translate(dialect::sql, options), {}, -1};
    } catch (const Error& error) {
        return {nullptr, error.text(), int(error.category())};
    }
}

// An engine's own complaint about a statement that we wrote is our mistake.
QString StatementCheck::prepareFault(const dialect::Translation& translation) {
    try {
        database_.prepare(translation);
    } catch (const Error& error) {
        return error.text() + u"\n  from "_s + QString::fromUtf8(translation.sql);
    }
    return {};
}

QString StatementCheck::fault(const QByteArray& input) {
    if (input.isEmpty()) return {};
    const dialect::DialectOptions options = optionsOf(static_cast<unsigned char>(input[0]));
    const QString dialect::sql = QString::fromUtf8(input.mid(1));
    const Outcome here = outcome(database_.translator(), dialect::sql, options);
    const Outcome there = outcome(server_, dialect::sql, options);
    if (here.category != there.category || here.error != there.error)
        return u"the engines differ: «%1» and «%2»"_s.arg(here.error, there.error);
    if (here.translation) {
        ++translated_;
        if (here.translation->columns.size() != there.translation->columns.size())
            return u"the engines show different columns"_s;
        if (const QString wrong = prepareFault(*here.translation); !wrong.isEmpty()) return wrong;
        const Outcome worded = outcome(worded_, dialect::sql, options);
        return worded.translation ? prepareFault(*worded.translation) : worded.error;
    }
    if (!isTranslators(here.category)) return u"category %1: "_s.arg(here.category) + here.error;
    if (!placeIsInside(here.error, dialect::sql)) return u"no place in the statement: "_s + here.error;
    return {};
}
