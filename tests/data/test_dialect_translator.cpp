// What a translation tells beside its SQL: parameters, columns, its place in the cache.
#include "data/dialect/enginedialect.h"
#include "dialectdatabase.h"
#include "support/cases.h"

using namespace Qt::Literals::StringLiterals;
using namespace data;

class TestDialectTranslator : public QObject {
    Q_OBJECT

    DialectDatabase database_;

private slots:
    void namedParameters() {
        database_.run(u"insert into dates (day, user) values (#2026/11/05#, 'Μαρία')"_s);
        const QString report =
            u"Select distinct day,user from Dates where (day between datefrom and dateto) and user=UsersD"_s;
        const QMap<QString, QVariant> values = {{u"datefrom"_s, wallClock(QDate(2026, 11, 1))},
                                                {u"dateto"_s, u"30/11/2026"_s},  // as it stands in a box
                                                {u"usersd"_s, u"ΜΑΡΙΑ"_s}};
        QCOMPARE(database_.run(report, {}, values), u"05/11/2026|Μαρία"_s);
        const auto translation =
            database_.translator().translate(u"select code from cards where total>B or total<a or code=b"_s,
                                             {DateOrder::MonthFirst, false, false, {u"A"_s, u"b"_s}});
        QCOMPARE(translation->parameters, QStringList({u"B"_s, u"a"_s}));
    }

    // Name, a letter for the type, size; behind them the table whose rows the answer's rows are.
    void outputColumns() {
        const struct {
            const char* name;
            QString sql, columns;
        } cases[] = {
            {"schema's spelling", u"select CODE, ΕΠΩΝΥΜΟ, ΗΜ_γενησησ from CARDS"_s,
             u"code a0, επωνυμο t30, ΗΜ_ΓΕΝΗΣΗΣ D0; Cards"_s},
            {"expressions",
             u"select code+1, total*2, code/2, επωνυμο & '', day(ΗΜ_ΓΕΝΗΣΗΣ), ΗΜ_ΓΕΝΗΣΗΣ+1, code=1 from cards"_s,
             u"Expr1000 l0, Expr1001 d0, Expr1002 d0, Expr1003 t255, Expr1004 l0, Expr1005 D0, Expr1006 y0; Cards"_s},
            {"same names of a join", u"select a.code, b.code, b.code from cards a, cards b"_s,
             u"code l0, b.code l0, Expr1000 l0; "_s},
            {"same name twice", u"select code, code as code from cards"_s, u"code a0, Cards.code a0; Cards"_s},
            {"choices",
             u"select iif(count(*)=1,1,0.5), nz(first(σχολια)), min(code), sum(total), first(επωνυμο), count(*) from cards"_s,
             u"Expr1000 d0, Expr1001 m0, Expr1002 l0, Expr1003 d0, Expr1004 t30, Expr1005 l0; "_s},
            {"distinct has no rows of its own", u"select distinct code from cards"_s, u"code l0; "_s},
            {"top has", u"select top 5 code from cards order by code"_s, u"code a0; Cards"_s},
            {"subquery has not", u"select x from (select code as x from cards) t"_s, u"x l0; "_s},
            {"union's common type", u"select code as x from cards union select total from cards"_s, u"x d0; "_s},
            {"condition with a subquery still has",
             u"select total t from cards where code in (select code from history, cards c)"_s, u"t d0; Cards"_s},
            {"dates", u"select [end]-start, day+start, dateadd('d',1,day) as d from dates"_s,
             u"Expr1000 d0, Expr1001 D0, d D0; Dates"_s},
        };
        static const QHash<ColumnType, QChar> letterOf = {
            {ColumnType::Autonumber, u'a'}, {ColumnType::Long, u'l'},   {ColumnType::Integer, u'i'},
            {ColumnType::Single, u'f'},     {ColumnType::Double, u'd'}, {ColumnType::Text, u't'},
            {ColumnType::Memo, u'm'},       {ColumnType::YesNo, u'y'},  {ColumnType::DateTime, u'D'},
            {ColumnType::LongBinary, u'b'}};
        support::forEach(cases, [&](const auto& one) {
            const auto translation = database_.translator().translate(one.sql);
            QStringList columns;
            for (const dialect::OutputColumn& column : translation->columns) {
                columns << column.name + u' ' + letterOf.value(column.type) + QString::number(column.size);
                if (column.baseColumn < 0 || translation->baseTable.isEmpty()) continue;
                QCOMPARE(database_.catalog().find(translation->baseTable)->columns[column.baseColumn].type,
                         column.type);
            }
            QCOMPARE(columns.join(u", "_s) + u"; "_s + translation->baseTable, one.columns);
        });
    }

    // An index on the fold serves equality, prefixes and order.
    void indexes() {
        const TableInfo& cards = *database_.catalog().find(u"Cards");
        database_.engine(database_.dialect().createIndex(u"byname"_s, cards, {u"επωνυμο"_s, u"ονομα"_s}));
        const bool postgres = testengine::isPostgres();
        if (postgres)  // an index on a few rows would be no gain
            database_.engine(
                "INSERT INTO \"Cards\" (\"επωνυμο\", \"ονομα\") SELECT CASE n % 2 WHEN 0 THEN 'Επαφή ' ELSE 'Φίλος ' "
                "END || n, n FROM generate_series(1, 5000) "
                "n;"
                "ANALYZE \"Cards\"");
        struct Served {
            QString sql;
            bool inOrder;
        };
        const Served served[] = {
            {u"select * from cards where επωνυμο='Παππάς'"_s, false},
            {u"select code from cards where επωνυμο like 'παπ%'"_s, false},
            {u"select code from cards order by επωνυμο,ονομα"_s, true},
            {u"select top 10 * from cards where επωνυμο>='Μ' order by επωνυμο"_s, true},
            {u"select top 10 * from cards order by επωνυμο desc,ονομα desc"_s, true},
        };
        for (const auto& [sql, inOrder] : served) {
            QString plan = database_.plan(sql);
            // Equal names are still put in the order of their rows, group by group.
            for (const char* inGroups : {"Incremental Sort", "Sort Key", "TEMP B-TREE FOR RIGHT PART"})
                plan.remove(QLatin1String(inGroups));
            const QString sorts = postgres ? u"Sort"_s : u"TEMP B-TREE"_s;
            QVERIFY2(plan.contains(u"byname"_s) && !(inOrder && plan.contains(sorts)), qPrintable(plan));
        }
    }

    void remembersByTextAndOptions() {
        const QString sql = u"select aa from dates where day=#11/05/2026#"_s;
        dialect::Translator& translator = database_.translator();
        const auto first = translator.translate(sql);
        QCOMPARE(translator.translate(sql).get(), first.get());
        QVERIFY(translator.translate(sql, {DateOrder::DayFirst, false, false, {}})->sql != first->sql);
        translator.clear();
        QVERIFY(translator.translate(sql).get() != first.get());
        for (int i = 0; i < 5000; ++i) translator.translate(u"select code from cards where code=%1"_s.arg(i));
        QCOMPARE(translator.translate(sql)->sql, first->sql);
    }
};

QTEST_GUILESS_MAIN(TestDialectTranslator)
#include "test_dialect_translator.moc"
