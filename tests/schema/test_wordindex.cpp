#include <QRandomGenerator>

#include "data/dialect/enginedialect.h"
#include "data/values/fold.h"
#include "support/cases.h"
#include "support/failure.h"
#include "support/officefolder.h"
#include "support/rowtexts.h"
#include "support/sqlitetrace.h"

using namespace Qt::Literals::StringLiterals;
using namespace support;

// Searches for words inside texts give, through the index, what reading every row would.
class TestWordIndex : public QObject {
    Q_OBJECT

    using Texts = QMap<qint64, QStringList>;  // by code; ΚΕΙΜΕΝΟ1 and ΚΕΙΜΕΝΟ4

    static QString randomText(QRandomGenerator& random) {
        // Few letters, so that pieces of words meet by chance; accents, capitals and signs of the query's own language.
        static const QString letters = u"αΑάβΒ ςσ\"'-(*ΐe\u0301"_s;
        QString text;
        for (int length = random.bounded(14); length > 0; --length) text += letters[random.bounded(letters.size())];
        return text;
    }

    static QList<qint64> found(data::Connection& connection, const QString& pattern) {
        const QString quoted = QString(pattern).replace(u'\'', u"''"_s);
        data::Recordset rows(connection,
                             u"select code from cards where ΚΕΙΜΕΝΟ1 like '%%1%' or ΚΕΙΜΕΝΟ4 like '%%1%' "
                             "order by επωνυμο"_s.replace(u"%1"_s, quoted));
        QList<qint64> codes;
        for (; !rows.eof(); rows.moveNext()) codes += rows.field(0).toLong();
        return codes;
    }

    static void compareAll(data::Connection& connection, const Texts& texts, QRandomGenerator& random) {
        for (int i = 0; i < 60; ++i) {
            QString wanted = randomText(random).mid(0, 6);
            wanted.remove(u'%');
            QList<qint64> expected;
            for (auto [code, list] : texts.asKeyValueRange())
                if (data::fold(list[0]).contains(data::fold(wanted)) ||
                    data::fold(list[1]).contains(data::fold(wanted)))
                    expected += code;
            QCOMPARE(found(connection, wanted), expected);
        }
    }

private slots:
    void followsEveryChange() {
        ScratchOffice office;
        QRandomGenerator random(7);
        Texts texts;
        for (int i = 0; i < 300; ++i) {
            data::Recordset card(office.main, u"select * from cards where code=0"_s);
            card.addNew();
            const QStringList both = {randomText(random), randomText(random)};
            card[u"ΚΕΙΜΕΝΟ1"].setValue(both[0]);
            card[u"ΚΕΙΜΕΝΟ4"].setValue(both[1]);
            card.update();
            texts[card[u"code"].toLong()] = both;
        }
        compareAll(office.main, texts, random);
        for (int i = 0; i < 200; ++i) {
            const qint64 code = texts.keys()[random.bounded(texts.size())];
            const QString where = u" where code=%1"_s.arg(code);
            if (random.bounded(4) == 0) {
                QCOMPARE(office.main.execute(u"delete from cards"_s + where), 1);
                texts.remove(code);
                continue;
            }
            texts[code][0] = randomText(random);
            data::Recordset card(office.main, u"select ΚΕΙΜΕΝΟ1,σχολια from cards"_s + where);
            card[u"ΚΕΙΜΕΝΟ1"].setValue(texts[code][0]);
            card[u"σχολια"].setValue(randomText(random));
            card.update();
        }
        compareAll(office.main, texts, random);
        {
            data::Transaction undone(office.main);
            office.main.execute(u"update cards set ΚΕΙΜΕΝΟ1='αβα αβα'"_s);
        }
        compareAll(office.main, texts, random);
        QCOMPARE(office.main.execute(u"update cards set ΚΕΙΜΕΝΟ1=null, ΚΕΙΜΕΝΟ4='όλοι μαζί'"_s), texts.size());
        QCOMPARE(found(office.main, u"όλοι"_s), texts.keys());
        QCOMPARE(found(office.main, u"αβα"_s), QList<qint64>());
        // The count that an update compares is its own, whatever the index had to write.
        data::Recordset first(office.main, u"select ΚΕΙΜΕΝΟ1 from cards"_s),
            second(office.main, u"select ΚΕΙΜΕΝΟ1 from cards"_s);
        first[u"ΚΕΙΜΕΝΟ1"].setValue(u"πρώτος"_s);
        first.update();
        second[u"ΚΕΙΜΕΝΟ1"].setValue(u"δεύτερος"_s);
        VERIFY_ERROR(Conflict, second.update());
    }

    void patternsAndOtherConditions() {
        const struct {
            const char* name;
            QString where, codes;
        } cases[] = {
            {"wildcards inside", u"ΚΕΙΜΕΝΟ1 like '%προτιμ_ %εγγραφα%'"_s, u"1"_s},
            {"from the start", u"ΚΕΙΜΕΝΟ1 like 'προτιμα%'"_s, u"1"_s},
            {"two letters", u"ΚΕΙΜΕΝΟ1 like '%ξφ%'"_s, u"2"_s},
            {"both of two", u"ΚΕΙΜΕΝΟ1 like '%τηλεφων%' and ΚΕΙΜΕΝΟ2 like '%πρωί%'"_s, u"2"_s},
            {"or something else", u"ΚΕΙΜΕΝΟ1 like '%έγγραφα%' or code=3"_s, u"1 3"_s},
            {"not", u"not ΚΕΙΜΕΝΟ1 like '%έγγραφα%'"_s, u"2"_s},
            {"not like", u"ΚΕΙΜΕΝΟ1 not like '%έγγραφα%'"_s, u"2"_s},
            {"another table's word", u"code in (select codecards from History where ΑΙΤΙΟΛΟΓΙΑ like '%Τ-12%')"_s,
             u"3"_s},
            {"a period and a word",
             u"exists (select aa from History where codecards=code and ΗΜΕΡΟΜΗΝΙΑ between #2026/01/01# and "
             "#2026/12/31# and ΑΙΤΙΟΛΟΓΙΑ like '%τιμολόγιο%')"_s,
             u"3"_s},
            {"words of two tables",
             u"exists (select aa from History where codecards=code and ΑΙΤΙΟΛΟΓΙΑ like '%επίσκεψη%' and ΚΕΙΜΕΝΟ1 like "
             "'%τηλεφων%')"_s,
             u"2"_s},
            {"a quote and an operator", u"ΚΕΙΜΕΝΟ2 like '%\"AND\" (or%'"_s, u"1"_s},
            {"more than the index looks up", u"ΚΕΙΜΕΝΟ1 like '%έγγραφα τυπωμένα και όχι με ηλεκτρονικό ταχυδρομείο%'"_s,
             u"1"_s},
            {"letters beyond the usual", u"ΚΕΙΜΕΝΟ2 like '%😀😀😀%'"_s, u"2"_s},
        };
        ScratchOffice office;
        for (const QString& values :
             {u"'Προτιμά τα έγγραφα τυπωμένα και όχι με ηλεκτρονικό ταχυδρομείο.','a \"AND\" (OR b)'"_s,
              u"'Μόνο τηλεφωνικά, ξφ','το πρωί 😀😀😀😀'"_s, u"null,null"_s})
            office.main.execute(u"insert into Cards (ΚΕΙΜΕΝΟ1,ΚΕΙΜΕΝΟ2) values (%1)"_s.arg(values));
        office.main.execute(
            u"insert into History (codecards,ΗΜΕΡΟΜΗΝΙΑ,ΑΙΤΙΟΛΟΓΙΑ) values (3,'23/11/2026','Τιμολόγιο Τ-1234')"_s);
        office.main.execute(u"insert into History (codecards,ΑΙΤΙΟΛΟΓΙΑ) values (2,'Επίσκεψη')"_s);
        forEach(cases, [&](const auto& one) {
            const QStringList codes = shownRows(office.main, u"select code from Cards where "_s + one.where);
            QCOMPARE(codes.join(u' '), one.codes);
        });
    }

    // Rare words are looked up first; of common ones the period is read, and the rows are the same.
    void commonWordsInAPeriod() {
        ScratchOffice office;
        {
            data::Transaction transaction(office.main);
            data::Engine& engine = office.main.engine();
            const QByteArray mark = engine.dialect().parameter(1);
            for (int i = 0; i < data::dialect::Translation::probeLimit + 50; ++i)
                engine.execute("INSERT INTO \"History\" (\"ΑΙΤΙΟΛΟΓΙΑ\") VALUES (" + mark + ')',
                               {i % 5000 == 0 ? u"Σπάνια πώληση"_s : u"Πώληση"_s});
            office.main.execute(u"update History set ΗΜΕΡΟΜΗΝΙΑ='23/11/2026' where aa<30"_s);
            transaction.commit();
        }
        std::unique_ptr<support::SqliteTrace> trace;
        if (!testengine::isPostgres()) trace = std::make_unique<support::SqliteTrace>(office.main);
        const auto found = [&](const QString& word, bool common) {
            const QString sql =
                u"select aa from History where ΗΜΕΡΟΜΗΝΙΑ between #2026/11/01# and #2026/11/30# and "
                "ΑΙΤΙΟΛΟΓΙΑ like '%%1%' order by ΗΜΕΡΟΜΗΝΙΑ"_s.arg(word);
            const qint64 count = data::Recordset(office.main, sql).recordCount();
            const auto ways = office.main.translate(sql);
            if (trace) {
                QTest::qCompare(trace->count(ways->periodFirst), int(common), "period", "", __FILE__, __LINE__);
                QTest::qCompare(trace->count(ways->sql), int(!common), "words", "", __FILE__, __LINE__);
            }
            return count;
        };
        QCOMPARE(found(u"πώληση"_s, true), 29);
        QCOMPARE(found(u"σπάνια"_s, false), 1);
    }
};

QTEST_GUILESS_MAIN(TestWordIndex)
#include "test_wordindex.moc"
