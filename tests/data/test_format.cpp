#include <QtTest>

#include "data/values/format.h"

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

    void patterns_data() {
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<QString>("pattern");
        QTest::addColumn<QString>("text");
        const QVariant moment = at(2026, 11, 5, 14, 3, 9);
        QTest::newRow("day first") << moment << "dd/mm/yyyy"
                                   << "05/11/2026";
        QTest::newRow("month first") << moment << "MM/DD/YYYY"
                                     << "11/05/2026";
        QTest::newRow("short") << moment << "d/m/yy"
                               << "5/11/26";
        QTest::newRow("minutes after hour") << moment << "HH:MM"
                                            << "14:03";
        QTest::newRow("minutes before second") << moment << "mm:ss"
                                               << "03:09";
        QTest::newRow("both m") << moment << "dd/mm/yyyy hh:mm:ss"
                                << "05/11/2026 14:03:09";
        QTest::newRow("n") << moment << "h:n"
                           << "14:3";
        QTest::newRow("names") << moment << "DDDD DD MMM YYYY"
                               << "Πέμπτη 05 Νοε 2026";
        QTest::newRow("nominative") << moment << "MMMM YYYY"
                                    << "Νοέμβριος 2026";
        QTest::newRow("genitive") << moment << "d mmmm"
                                  << "5 Νοεμβρίου";
        QTest::newRow("short day") << at(2026, 11, 7) << "ddd"
                                   << "Σαβ";
        QTest::newRow("month alone") << moment << "m"
                                     << "11";
        QTest::newRow("afternoon") << moment << "h:mm AM/PM"
                                   << "2:03 μμ";
        QTest::newRow("midnight") << at(2026, 1, 1, 0, 30) << "hh:mm am/pm"
                                  << "12:30 πμ";
        QTest::newRow("quoted letters") << moment << "d \"d\\m\" \\y"
                                        << "5 d\\m y";
        QTest::newRow("year 812") << at(812, 1, 2) << "dd/mm/yyyy"
                                  << "02/01/0812";
        QTest::newRow("text date") << QVariant("5/11/26") << "yyyy/mm/dd"
                                   << "2026/11/05";
        QTest::newRow("text no date") << QVariant("αύριο") << "yyyy/mm/dd"
                                      << "αύριο";
        QTest::newRow("days") << QVariant(2.5) << "dd/mm/yyyy hh:mm"
                              << "01/01/1900 12:00";
        QTest::newRow("Null") << QVariant() << "dd/mm/yyyy"
                              << "";
        QTest::newRow("invalid date") << QVariant(QDateTime()) << "dd/mm/yyyy"
                                      << "";

        QTest::newRow("amount") << QVariant(1234567.891) << "#,##0.00"
                                << "1.234.567,89";
        QTest::newRow("small amount") << QVariant(0.5) << "#,##0.00"
                                      << "0,50";
        QTest::newRow("as a person sees it") << QVariant(2.675) << "0.00"
                                             << "2,68";
        QTest::newRow("1,005") << QVariant(1.005) << "0.00"
                               << "1,01";
        QTest::newRow("half away") << QVariant(-2.5) << "0"
                                   << "-3";
        QTest::newRow("carry") << QVariant(9.999) << "0.00"
                               << "10,00";
        QTest::newRow("no negative zero") << QVariant(-0.001) << "0.00"
                                          << "0,00";
        QTest::newRow("just under a cent") << QVariant(0.005) << "0.00"
                                           << "0,01";
        QTest::newRow("grouped whole") << QVariant(qint64(-1234)) << "#,##0"
                                       << "-1.234";
        QTest::newRow("three digits") << QVariant(123) << "#,##0"
                                      << "123";
        QTest::newRow("optional digits") << QVariant(12.5) << "#.##"
                                         << "12,5";
        QTest::newRow("padding") << QVariant(7) << "000"
                                 << "007";
        QTest::newRow("with words") << QVariant(7.5) << "0.00 €"
                                    << "7,50 €";
        QTest::newRow("percent") << QVariant(0.125) << "0.0%"
                                 << "12,5%";
        QTest::newRow("Greek dress") << QVariant(1234.5) << "#.##0,00"
                                     << "1.234,50";
        QTest::newRow("sections") << QVariant(-5) << "0;(0);-"
                                  << "(5)";
        QTest::newRow("zero section") << QVariant(0) << "0;(0);-"
                                      << "-";
        QTest::newRow("greatest long") << QVariant(std::numeric_limits<qint64>::max()) << "0"
                                       << "9223372036854775807";
        QTest::newRow("tiny") << QVariant(5e-324) << "0.00"
                              << "0,00";
        QTest::newRow("text number") << QVariant("1.234,5") << "0.00"
                                     << "1234,50";
        QTest::newRow("text no number") << QVariant("abc") << "0.00"
                                        << "abc";
    }
    void patterns() {
        QFETCH(QVariant, value);
        QFETCH(QString, pattern);
        QTEST(format(value, pattern), "text");
    }

    void hugeNumbers() {
        QCOMPARE(format(1e308, u"#,##0.00").size(), 309 + 102 + 3);
        QCOMPARE(format(-1.5e-300, u"0.00"), "0,00");
        QCOMPARE(format(1.0, QString(10000, u'0')).size(), 10000);
        QVERIFY(!format(std::numeric_limits<double>::infinity(), u"0.00").isEmpty());
    }

    void dates_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QVariant>("expected");
        QTest::addColumn<bool>("monthFirst");
        const QVariant day = at(2026, 11, 5), none;
        QTest::newRow("slashes") << "5/11/2026" << day << false;
        QTest::newRow("month first") << "11/5/2026" << day << true;
        QTest::newRow("dashes") << "05-11-26" << day << false;
        QTest::newRow("points") << " 5.11.2026 " << day << false;
        QTest::newRow("year first") << "2026/11/05" << day << true;
        QTest::newRow("ISO") << "2026-11-05 14:30:05" << at(2026, 11, 5, 14, 30, 5) << false;
        QTest::newRow("ISO with T") << "2026-11-05T14:30:05" << at(2026, 11, 5, 14, 30, 5) << false;
        QTest::newRow("other way round") << "11/25/2026" << at(2026, 11, 25) << false;
        QTest::newRow("other way round, month first") << "25/11/2026" << at(2026, 11, 25) << true;
        QTest::newRow("no month") << "13/25/2026" << none << false;
        QTest::newRow("no year") << "5/11" << day << false;
        QTest::newRow("window low") << "1/1/29" << at(2029, 1, 1) << false;
        QTest::newRow("window high") << "1/1/30" << at(1930, 1, 1) << false;
        QTest::newRow("leap day") << "29/2/2024" << at(2024, 2, 29) << false;
        QTest::newRow("no leap day") << "29/2/2026" << none << false;
        QTest::newRow("time") << "14:30" << at(1899, 12, 30, 14, 30) << false;
        QTest::newRow("Greek afternoon") << "2:30 μμ" << at(1899, 12, 30, 14, 30) << false;
        QTest::newRow("Greek morning") << "12:30 Π.Μ." << at(1899, 12, 30, 0, 30) << false;
        QTest::newRow("English") << "2:30PM" << at(1899, 12, 30, 14, 30) << false;
        QTest::newRow("hour and word") << "2 μμ" << at(1899, 12, 30, 14, 0) << false;
        QTest::newRow("both") << "5/11/2026 2:30 μμ" << at(2026, 11, 5, 14, 30) << false;
        QTest::newRow("no time") << "25:00" << none << false;
        QTest::newRow("14 o'clock in the afternoon") << "14:30 μμ" << none << false;
        QTest::newRow("empty mask") << "__/__/____" << none << false;
        QTest::newRow("empty time mask") << "__:__" << none << false;
        QTest::newRow("number") << "12345" << none << false;
        QTest::newRow("small number") << "5" << none << false;
        QTest::newRow("year 99") << "1/1/0099" << none << false;
        QTest::newRow("year 10000") << "1/1/10000" << none << false;
        QTest::newRow("mixed") << "5/11-2026" << none << false;
        QTest::newRow("two days") << "5/11/2026 6/11/2026" << none << false;
        QTest::newRow("word") << "5/11/2026 κάτι" << none << false;
        QTest::newRow("half day alone") << "5/11/2026 μμ" << none << false;
        QTest::newRow("empty") << "" << none << false;
        QTest::newRow("NUL") << QString(3, QChar(0)) << none << false;
        QTest::newRow("long") << QString(10000, u'1') << none << false;
    }
    void dates() {
        QFETCH(QString, text);
        QFETCH(QVariant, expected);
        QFETCH(bool, monthFirst);
        const auto read = parseDate(text, monthFirst ? DateOrder::MonthFirst : DateOrder::DayFirst, QDate(2026, 3, 1));
        QCOMPARE(read.has_value(), expected.isValid());
        if (read) QCOMPARE(*read, expected.toDateTime());
    }

    void numbers_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QVariant>("number");
        const QVariant none;
        QTest::newRow("decimal comma") << "12,5" << QVariant(12.5);
        QTest::newRow("grouped") << "1.234,50" << QVariant(1234.5);
        QTest::newRow("groups only") << "1.234.567" << QVariant(1234567.0);
        QTest::newRow("thousand") << "1.234" << QVariant(1234.0);
        QTest::newRow("point") << "12.5" << QVariant(12.5);
        QTest::newRow("sign and blanks") << " -0,25 " << QVariant(-0.25);
        QTest::newRow("plus") << "+3" << QVariant(3.0);
        QTest::newRow("bare comma") << ",5" << QVariant(0.5);
        QTest::newRow("trailing comma") << "5," << QVariant(5.0);
        QTest::newRow("exponent") << "1,5E+3" << QVariant(1500.0);
        QTest::newRow("bad groups") << "12.34,5" << none;
        QTest::newRow("two commas") << "1,2,3" << none;
        QTest::newRow("point after comma") << "1,234.5" << none;
        QTest::newRow("comma only") << "," << none;
        QTest::newRow("empty") << "" << none;
        QTest::newRow("blanks") << "   " << none;
        QTest::newRow("letters") << "12α" << none;
        QTest::newRow("hex") << "0x10" << none;
        QTest::newRow("inf") << "inf" << none;
        QTest::newRow("nan") << "NaN" << none;
        QTest::newRow("overflow") << "1e999" << none;
        QTest::newRow("two signs") << "--5" << none;
        QTest::newRow("inner blank") << "1 2" << none;
        QTest::newRow("long") << QString(10000, u'9') << none;
    }
    void numbers() {
        QFETCH(QString, text);
        QFETCH(QVariant, number);
        const auto read = parseNumber(text);
        QCOMPARE(read.has_value(), number.isValid());
        if (read) QCOMPARE(*read, number.toDouble());
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
