// Statements deeper and longer than people write.
#include "dialectdatabase.h"
#include "support/cases.h"
#include "support/failure.h"

using namespace Qt::Literals::StringLiterals;

class TestDialectLimits : public QObject {
    Q_OBJECT

    DialectDatabase database_;

private slots:
    // A thousand levels end in an error, ten work.
    void nesting() {
        const QString where = u"select code from cards where %1"_s, from = u"select * from %1"_s;
        const struct {
            const char* name;
            QString before, middle, after, frame;
        } cases[] = {
            {"brackets", "(", "1=1", ")", where},
            {"functions", "len(", "'α'", ")", where},
            {"choices", "iif(code=1,1,", "2", ")", where},
            {"subqueries", "code in (select code from cards where ", "1=1", ")", where},
            {"scalars", "(select ", "1", ")", where},
            {"nots", "not (", "1=1", ")", where},
            {"sums", "1+(", "1", ")", where},
            {"minus", "-(", "code", ")", where},
            {"in", "1 in (", "1", ")", where},
            {"derived", "(select * from ", "cards", ")", from},
            {"joins", "(", "cards", ")", from},
            {"chain", "", "code", "+1", where},
            {"comparisons", "", "code", "=1", where},
            {"powers", "", "code", "^1", where},
            {"exclusive", "", "code=1", " xor code=2", where},
        };
        support::forEach(cases, [&](const auto& one) {
            const auto statement = [&](int times) {
                return one.frame.arg(one.before.repeated(times) + one.middle + one.after.repeated(times));
            };
            database_.run(statement(one.before.contains(u"select") ? 3 : 10));
            // What lies between runs, or is refused before the engine itself would.
            for (const int times : {30, 60, 90, 120, 190}) {
                const QString failure = failureOf([&] { database_.run(statement(times)); });
                QVERIFY2(failure.isEmpty() || failure.contains(u"επίπεδα"), qPrintable(failure));
            }
            for (const int times : {1000, 100'000})
                VERIFY_FAILURE(u"200", database_.translator().translate(statement(times)));
        });
    }

    // Long is not deep: these run.
    void large() {
        const QString select = u"select code from cards where "_s;
        QString list = u"0"_s;
        for (int i = 1; i < 20'000; ++i) list += u',' + QString::number(i);
        const auto times = [](int count, const QString& text) { return text.repeated(count); };
        const struct {
            const char* name;
            QString sql;
        } cases[] = {
            {"in of numbers", select + u"code in ("_s + list + u')'},
            {"in of texts", select + u"επωνυμο in ('α'"_s + times(20'000, u",'Άβγ'"_s) + u')'},
            {"ors", select + u"code=1"_s + times(20'000, u" or επωνυμο='Άβγ'"_s)},
            {"ands", select + u"code=1"_s + times(20'000, u" and code<>2"_s)},
            {"ands and ors", select + u"code=1"_s + times(10'000, u" or code=2 and code=3"_s)},
            {"megabyte of text", select + u"σχολια like '%"_s + QString(1'000'000, u'ά') + u"%'"_s},
            {"megabyte of percents", select + u"επωνυμο like '%α"_s + QString(1'000'000, u'%') + u"β'"_s},
            {"blanks", select + QString(1'000'000, u' ') + u"code=1"_s},
            {"nots", select + times(100'000, u"not "_s) + u"code=1"_s},
            {"minus", select + times(100'000, u"- "_s) + u"code=1"_s},
            {"columns", u"select code"_s + times(1500, u",code"_s) + u" from cards"_s},
        };
        support::forEach(cases, [&](const auto& one) { database_.run(one.sql); });
    }

    void nothingAtAll() {
        VERIFY_ERROR(Syntax, database_.run({}));
        VERIFY_ERROR(ReadOnly, database_.run({}, {data::DateOrder::DayFirst, true, true, {}}));
    }
};

QTEST_GUILESS_MAIN(TestDialectLimits)
#include "test_dialect_limits.moc"
