#include "data/values/format.h"
#include "support/cases.h"

using namespace data;

namespace {
QVariant at(int year, int month, int day, int hour = 0, int minute = 0, int second = 0) {
    return wallClock(QDate(year, month, day), QTime(hour, minute, second));
}
}  // namespace

class TestFormat : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates)); }

    void patterns() {
        const QVariant moment = at(2026, 11, 5, 14, 3, 9), none;
        const struct {
            const char* name;
            QVariant value;
            QString pattern, text;
        } cases[] = {
            {"day first", moment, "dd/mm/yyyy", "05/11/2026"},
            {"month first", moment, "MM/DD/YYYY", "11/05/2026"},
            {"short", moment, "d/m/yy", "5/11/26"},
            {"minutes after hour", moment, "HH:MM", "14:03"},
            {"minutes before second", moment, "mm:ss", "03:09"},
            {"both m", moment, "dd/mm/yyyy hh:mm:ss", "05/11/2026 14:03:09"},
            {"n", moment, "h:n", "14:3"},
            {"names", moment, "DDDD DD MMM YYYY", "Πέμπτη 05 Νοε 2026"},
            {"nominative", moment, "MMMM YYYY", "Νοέμβριος 2026"},
            {"genitive", moment, "d mmmm", "5 Νοεμβρίου"},
            {"short day", at(2026, 11, 7), "ddd", "Σαβ"},
            {"month alone", moment, "m", "11"},
            {"afternoon", moment, "h:mm AM/PM", "2:03 μμ"},
            {"midnight", at(2026, 1, 1, 0, 30), "hh:mm am/pm", "12:30 πμ"},
            {"quoted letters", moment, "d \"d\\m\" \\y", "5 d\\m y"},
            {"year 812", at(812, 1, 2), "dd/mm/yyyy", "02/01/0812"},
            {"text date", "5/11/26", "yyyy/mm/dd", "2026/11/05"},
            {"text no date", "αύριο", "yyyy/mm/dd", "αύριο"},
            {"days", 2.5, "dd/mm/yyyy hh:mm", "01/01/1900 12:00"},
            {"Null", none, "dd/mm/yyyy", ""},
            {"invalid date", QDateTime(), "dd/mm/yyyy", ""},
            {"amount", 1234567.891, "#,##0.00", "1.234.567,89"},
            {"small amount", 0.5, "#,##0.00", "0,50"},
            {"as a person sees it", 2.675, "0.00", "2,68"},
            {"1,005", 1.005, "0.00", "1,01"},
            {"half away", -2.5, "0", "-3"},
            {"carry", 9.999, "0.00", "10,00"},
            {"no negative zero", -0.001, "0.00", "0,00"},
            {"just under a cent", 0.005, "0.00", "0,01"},
            {"grouped whole", qint64(-1234), "#,##0", "-1.234"},
            {"three digits", 123, "#,##0", "123"},
            {"optional digits", 12.5, "#.##", "12,5"},
            {"padding", 7, "000", "007"},
            {"with words", 7.5, "0.00 €", "7,50 €"},
            {"percent", 0.125, "0.0%", "12,5%"},
            {"Greek dress", 1234.5, "#.##0,00", "1.234,50"},
            {"sections", -5, "0;(0);-", "(5)"},
            {"zero section", 0, "0;(0);-", "-"},
            {"nothing of a zero", 0, "#", ""},
            {"greatest long", std::numeric_limits<qint64>::max(), "0", "9223372036854775807"},
            {"tiny", 5e-324, "0.00", "0,00"},
            {"text number", "1.234,5", "0.00", "1234,50"},
            {"text no number", "abc", "0.00", "abc"},
        };
        support::forEach(cases, [](const auto& one) { QCOMPARE(format(one.value, one.pattern), one.text); });
    }

    void hugeNumbers() {
        QCOMPARE(format(1e308, u"#,##0.00").size(), 309 + 102 + 3);
        QCOMPARE(format(-1.5e-300, u"0.00"), "0,00");
        QCOMPARE(format(1.0, QString(10000, u'0')).size(), 10000);
        QVERIFY(!format(std::numeric_limits<double>::infinity(), u"0.00").isEmpty());
    }

    void dates() {
        const QVariant day = at(2026, 11, 5), none;
        const struct {
            const char* name;
            QString text;
            QVariant expected;
            DateOrder order = DateOrder::DayFirst;
        } cases[] = {
            {"slashes", "5/11/2026", day},
            {"month first", "11/5/2026", day, DateOrder::MonthFirst},
            {"dashes", "05-11-26", day},
            {"points", " 5.11.2026 ", day},
            {"year first", "2026/11/05", day, DateOrder::MonthFirst},
            {"ISO", "2026-11-05 14:30:05", at(2026, 11, 5, 14, 30, 5)},
            {"ISO with T", "2026-11-05T14:30:05", at(2026, 11, 5, 14, 30, 5)},
            {"other way round", "11/25/2026", at(2026, 11, 25)},
            {"other way round, month first", "25/11/2026", at(2026, 11, 25), DateOrder::MonthFirst},
            {"no month", "13/25/2026", none},
            {"no year", "5/11", day},
            {"window low", "1/1/29", at(2029, 1, 1)},
            {"window high", "1/1/30", at(1930, 1, 1)},
            {"leap day", "29/2/2024", at(2024, 2, 29)},
            {"no leap day", "29/2/2026", none},
            {"time", "14:30", at(1899, 12, 30, 14, 30)},
            {"Greek afternoon", "2:30 μμ", at(1899, 12, 30, 14, 30)},
            {"Greek morning", "12:30 Π.Μ.", at(1899, 12, 30, 0, 30)},
            {"English", "2:30PM", at(1899, 12, 30, 14, 30)},
            {"hour and word", "2 μμ", at(1899, 12, 30, 14, 0)},
            {"both", "5/11/2026 2:30 μμ", at(2026, 11, 5, 14, 30)},
            {"no time", "25:00", none},
            {"14 o'clock in the afternoon", "14:30 μμ", none},
            {"empty mask", "__/__/____", none},
            {"empty time mask", "__:__", none},
            {"number", "12345", none},
            {"small number", "5", none},
            {"year 99", "1/1/0099", none},
            {"year 10000", "1/1/10000", none},
            {"mixed", "5/11-2026", none},
            {"two days", "5/11/2026 6/11/2026", none},
            {"word", "5/11/2026 κάτι", none},
            {"half day alone", "5/11/2026 μμ", none},
            {"empty", "", none},
            {"NUL", QString(3, QChar(0)), none},
            {"long", QString(10000, u'1'), none},
        };
        support::forEach(cases, [](const auto& one) {
            const auto read = parseDate(one.text, one.order, QDate(2026, 3, 1));
            QCOMPARE(read ? QVariant(*read) : QVariant(), one.expected);
        });
    }

    void numbers() {
        const QVariant none;
        const struct {
            const char* name;
            QString text;
            QVariant number;
        } cases[] = {
            {"decimal comma", "12,5", 12.5},
            {"grouped", "1.234,50", 1234.5},
            {"groups only", "1.234.567", 1234567.0},
            {"thousand", "1.234", 1234.0},
            {"point", "12.5", 12.5},
            {"sign and blanks", " -0,25 ", -0.25},
            {"plus", "+3", 3.0},
            {"bare comma", ",5", 0.5},
            {"trailing comma", "5,", 5.0},
            {"exponent", "1,5E+3", 1500.0},
            {"bad groups", "12.34,5", none},
            {"two commas", "1,2,3", none},
            {"point after comma", "1,234.5", none},
            {"comma only", ",", none},
            {"empty", "", none},
            {"blanks", "   ", none},
            {"letters", "12α", none},
            {"hex", "0x10", none},
            {"inf", "inf", none},
            {"nan", "NaN", none},
            {"overflow", "1e999", none},
            {"two signs", "--5", none},
            {"inner blank", "1 2", none},
            {"long", QString(10000, u'9'), none},
        };
        support::forEach(cases, [](const auto& one) {
            const auto read = parseNumber(one.text);
            QCOMPARE(read ? QVariant(*read) : QVariant(), one.number);
        });
    }

    void numberRoundTrip() {
        QRandomGenerator random(7);
        for (int i = 0; i < 20000; ++i) {
            const quint64 bits = random.generate64();
            double value;
            memcpy(&value, &bits, sizeof value);
            if (!std::isfinite(value)) continue;
            if (i % 2) value = double(qint64(bits % 2000000000) - 1000000000) / 100;
            // What was typed with 15 digits comes back as it was; other digits are beyond what people see.
            value = QByteArray::number(value, 'g', 15).toDouble();
            const QString text = numberText(value);
            // Three decimals behind a comma never read as thousands.
            const auto read = parseNumber(text);
            QVERIFY2(read && *read == value, qPrintable(text));
        }
        QCOMPARE(numberText(0.1 + 0.2), "0,3");
        QCOMPARE(numberText(28737.600000000002), "28737,6");
        QCOMPARE(numberText(1 / 3.0), "0,333333333333333");
        QCOMPARE(numberText(999999999999999.9), "1000000000000000");
        QCOMPARE(numberText(1234.5), "1234,5");
        QCOMPARE(numberText(0.1), "0,1");
        QCOMPARE(numberText(1e15), "1000000000000000");
        QCOMPARE(numberText(-0.0), "0");
    }

    void storedSeconds() {
        for (const qint64 seconds : {0LL, -1LL, 86399LL, 4000000000LL, -56000000000LL})
            QCOMPARE(dateToSeconds(secondsToDate(seconds)), seconds);
        QCOMPARE(secondsToDate(-1), wallClock(QDate(1899, 12, 29), QTime(23, 59, 59)));
        QVERIFY(!secondsToDate(std::numeric_limits<qint64>::max()).isValid());
        QVERIFY(!secondsToDate(std::numeric_limits<qint64>::min()).isValid());
        // 03:30 doesn't exist in Athens on this day; the clock on the wall keeps it.
        const QDateTime gap(QDate(2026, 3, 29), QTime(3, 30), Qt::UTC);
        QCOMPARE(valueText(secondsToDate(dateToSeconds(gap))), "29/03/2026 03:30:00");
    }

    void values() {
        QCOMPARE(valueText(at(2026, 11, 5)), "05/11/2026");
        QCOMPARE(valueText(at(1899, 12, 30, 9, 5)), "09:05:00");
        QCOMPARE(valueText(at(1899, 12, 30)), "30/12/1899");
        QCOMPARE(valueText(2.5), "2,5");
        QCOMPARE(valueText(qint64(1234)), "1234");
        QCOMPARE(valueText(true), "True");
        QCOMPARE(valueText(QVariant()), "");
    }
};

QTEST_APPLESS_MAIN(TestFormat)
#include "test_format.moc"
