// Nonsense: whatever comes in, the answer is an error or a statement that the engine takes.
#include <QtTest>
#include <random>

#include "data/error.h"
#include "dialectdatabase.h"
#include "statementfile.h"

using namespace Qt::Literals::StringLiterals;

using namespace data;

class TestDialectRobustness : public QObject {
    Q_OBJECT
private slots:
    void initTestCase();
    void tokenSoup();
    void mutatedStatements();
    void grownExpressions();
    void brokenCharacters();

private:
    void check(const QString& sql);
    QString operand(int depth);
    size_t below(size_t limit) { return std::uniform_int_distribution<size_t>(0, limit - 1)(random_); }
    template <class List>
    auto pick(const List& list) {
        return list[decltype(list.size())(below(size_t(list.size())))];
    }

    DialectDatabase database_;
    QStringList corpus_;
    QStringList words_;
    std::mt19937 random_{20261105};
    const int rounds_ = testengine::isPostgres() ? 3'000 : 20'000;
    int accepted_ = 0;
    QString failure_;
};

// Exceptions but Error, and statements that the engine refuses, are faults.
void TestDialectRobustness::check(const QString& sql) {
    if (!failure_.isEmpty()) return;
    dialect::DialectOptions options;
    options.decimalComma = below(2) == 0;
    options.parameters = {u"p1"_s, u"p2"_s};
    std::shared_ptr<const dialect::Translation> translation;
    try {
        translation = database_.translator().translate(sql, options);
        ++accepted_;
        database_.prepare(*translation);
    } catch (const Error& error) {
        if (error.text().isEmpty()) failure_ = u"no text: "_s + sql;
        // A server computes what is constant while it plans, and may find a value out of range.
        if (translation && error.category() != ErrorCategory::Type) failure_ = error.text() + u"\n  from "_s + sql;
    } catch (const std::exception& error) {
        failure_ = QString::fromUtf8(error.what()) + u"\n  from "_s + sql;
    }
}

void TestDialectRobustness::initTestCase() {
    for (const TypedStatement& typed : readStatements(QString::fromUtf8(DORV_STATEMENTS "/windows.txt"))) corpus_ << typed.sql;
    QVERIFY(corpus_.size() > 100);
    words_ =
        u"select from where order by group having union all distinct top 1 inner left right join on as "
        "and or not xor like between in is null exists insert into values update set delete true "
        "false mod asc desc cards History Dates Options code aa επωνυμο total FieldYes1 Day [end] "
        "Photo σχολια p1 p2 x t c0 ( ) ( ) , , . * + - / \\ ^ & = <> < <= > >= ; 5 0 -1 2.5 1e3 "
        "'α' '%α%' 'α%' '5,5' '' \"β\" #2026/11/05# #5/11/2026# #09:00# iif( nz( left( dateadd( "
        "count( sum( min( max( first( format( day( round( instr( replace( cdate( cstr( isnull( 'd'"_s.split(u' ');
}

void TestDialectRobustness::tokenSoup() {
    for (int round = 0; round < rounds_; ++round) {
        QStringList soup;
        if (below(4) != 0)
            soup << pick(QStringList{u"select"_s, u"update cards set"_s, u"delete from cards where"_s,
                                     u"select code from cards where"_s, u"select * from cards order by"_s});
        const size_t length = 1 + below(14);
        for (size_t i = 0; i < length; ++i) soup << pick(words_);
        check(soup.join(u' '));
    }
    QVERIFY2(failure_.isEmpty(), qPrintable(failure_));
    QVERIFY(accepted_ > rounds_ / 200);
}

void TestDialectRobustness::mutatedStatements() {
    accepted_ = 0;
    static const QRegularExpression pieces(u"\\[[^\\]]*\\]|'[^']*'|#[^#]*#|\\w+|\\s+|."_s);
    for (int round = 0; round < rounds_; ++round) {
        QStringList tokens;
        auto matches = pieces.globalMatch(pick(corpus_));
        while (matches.hasNext()) tokens << matches.next().captured();
        const size_t changes = 1 + below(3);
        for (size_t i = 0; i < changes && !tokens.isEmpty(); ++i) {
            const qsizetype at = qsizetype(below(size_t(tokens.size())));
            switch (below(4)) {
                case 0:
                    tokens.removeAt(at);
                    break;
                case 1:
                    tokens.insert(at, tokens[at]);
                    break;
                case 2:
                    tokens[at] = u' ' + pick(words_) + u' ';
                    break;
                default:
                    tokens.swapItemsAt(at, qsizetype(below(size_t(tokens.size()))));
                    break;
            }
        }
        check(tokens.join(QString()));
    }
    QVERIFY2(failure_.isEmpty(), qPrintable(failure_));
    QVERIFY(accepted_ > rounds_ / 20);
}

QString TestDialectRobustness::operand(int depth) {
    static const QStringList leaves =
        u"code|total|επωνυμο|σχολια|FieldYes1|ΗΜ_ΓΕΝΗΣΗΣ|photo|5|-2.5|'α%'|'5,5'|'5/11/2026'|"
        "#2026/11/05#|#09:00#|true|null|p1"_s.split(u'|');
    // %1 to %3 are operands.
    static const QStringList shapes =
        u"%1+%2|%1-%2|%1*%2|%1/%2|%1\\%2|%1 mod %2|%1^%2|%1&%2|-%1|(%1)|%1=%2|%1<>%2|%1<%2|%1>=%2|"
        "%1 and %2|%1 or %2|%1 xor %2|not %1|%1 like %2|%1 not like %2|%1 between %2 and %3|"
        "%1 in (%2,%3)|%1 is null|(%1 is not null)|iif(%1,%2,%3)|nz(%1,%2)|left(%1,%2)|"
        "dateadd('d',%1,%2)|datediff('m',%1,%2)|format(%1,%2)|cstr(%1)|cdate(%1)|cdbl(%1)|cint(%1)|"
        "isnull(%1)|(select max(%1) from cards)|%1 in (select %2 from cards)|"
        "exists (select * from history where aa=%1)"_s.split(u'|');
    if (depth == 0 || below(4) == 0) return pick(leaves);
    QString shape = pick(shapes);
    for (const QString& place : {u"%1"_s, u"%2"_s, u"%3"_s})
        if (shape.contains(place)) shape.replace(place, operand(depth - 1));
    return shape;
}

// Statements that parse, with every kind of value in every place; also run, since a wrong conversion shows there.
void TestDialectRobustness::grownExpressions() {
    accepted_ = 0;
    database_.run(
        u"insert into cards (επωνυμο, total, ΗΜ_ΓΕΝΗΣΗΣ, FieldYes1) values ('Παππάς', 5.5, #2026/11/05#, true)"_s);
    static const QStringList frames =
        u"select %1 from cards|select code from cards where %1|select code from cards order by %1|"
        "select %1, count(*) from cards group by %1|select distinct %1 from cards order by 1|"
        "select %1 from cards union select %2 from cards order by 1|"
        "select max(%1), sum(%2), first(%1) from cards|"
        "select x from (select %1 as x from cards where %2) t where x is not null"_s.split(u'|');
    for (int round = 0; round < rounds_; ++round) {
        QString sql = pick(frames);
        sql.replace(u"%1"_s, operand(3)).replace(u"%2"_s, operand(2));
        check(sql);
        try {
            if (failure_.isEmpty()) database_.run(sql, {}, {{u"p1"_s, u"5/11/2026"_s}});
        } catch (const Error& error) {
            if (error.category() == ErrorCategory::Other || error.text().contains(u"Η εντολή δεν είναι σωστή"))
                failure_ = error.text() + u"\n  from "_s + sql;
        } catch (const std::exception& error) {
            failure_ = QString::fromUtf8(error.what()) + u"\n  from "_s + sql;
        }
    }
    QVERIFY2(failure_.isEmpty(), qPrintable(failure_));
    QVERIFY(accepted_ > rounds_ / 4);
}

void TestDialectRobustness::brokenCharacters() {
    const QString nul(QChar(u'\0'));
    const QString lone(QChar(0xD800));
    const QString rightToLeft = u"\u202Eשלום"_s;
    for (const QString& odd : {nul, lone, QString(QChar(0xDC00)), rightToLeft, u"\U0001F600"_s, QString(10'000, u'x'),
                               QString(QChar(0xFFFF)), u"\u00A0"_s})
        for (const QString& frame : {u"%1"_s, u"select %1"_s, u"select code from cards where επωνυμο='%1'"_s,
                                     u"select code from cards where επωνυμο like '%1%'"_s, u"select [%1] from cards"_s,
                                     u"select code as [%1] from cards"_s, u"select code from %1"_s, u"select #%1#"_s}) {
            QString sql = frame;
            check(sql.replace(u"%1"_s, odd));
        }
    QVERIFY2(failure_.isEmpty(), qPrintable(failure_));
}

QTEST_GUILESS_MAIN(TestDialectRobustness)
#include "test_dialect_robustness.moc"
