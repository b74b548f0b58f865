#include <QtTest>

#include "data/error.h"
#include "data/values/convert.h"

using namespace Qt::Literals::StringLiterals;

using namespace data;

Q_DECLARE_METATYPE(data::ColumnType)

class TestConvert : public QObject {
    Q_OBJECT

private slots:
    void values_data() {
        using enum ColumnType;
        QTest::addColumn<ColumnType>("type");
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<QVariant>("stored");  // invalid and no category: Null
        const QVariant day = wallClock(QDate(2026, 11, 5)), none;
        QTest::newRow("text to number") << Double << QVariant("1.234,5") << QVariant(1234.5);
        QTest::newRow("half to even down") << Integer << QVariant(2.5) << QVariant(2LL);
        QTest::newRow("half to even up") << Long << QVariant("3,5") << QVariant(4LL);
        QTest::newRow("true counts -1") << Integer << QVariant(true) << QVariant(-1LL);
        QTest::newRow("long edge") << Long << QVariant(2147483647) << QVariant(2147483647LL);
        QTest::newRow("day first") << DateTime << QVariant("5/11/2026") << day;
        QTest::newRow("days") << DateTime << QVariant(2) << QVariant(wallClock(QDate(1900, 1, 1)));
        QTest::newRow("date") << DateTime << QVariant(QDate(2026, 11, 5)) << day;
        QTest::newRow("time") << DateTime << QVariant(QTime(9, 30))
                              << QVariant(wallClock(QDate(1899, 12, 30), QTime(9, 30)));
        QTest::newRow("milliseconds go") << DateTime << QVariant(QDateTime(QDate(2026, 11, 5), QTime(0, 0, 0, 700)))
                                         << day;
        QTest::newRow("a wall clock in the gap")
            << DateTime << QVariant("29/3/2026 03:30") << QVariant(wallClock(QDate(2026, 3, 29), QTime(3, 30)));
        QTest::newRow("invalid date is Null") << DateTime << QVariant(QDateTime()) << none;
        QTest::newRow("yes") << YesNo << QVariant("ΝΑΙ") << QVariant(true);
        QTest::newRow("no") << YesNo << QVariant("Όχι") << QVariant(false);
        QTest::newRow("one") << YesNo << QVariant("1") << QVariant(true);
        QTest::newRow("minus one") << YesNo << QVariant(-1) << QVariant(true);
        QTest::newRow("Null flag") << YesNo << none << QVariant(false);
        QTest::newRow("Null text") << Text << none << none;
        QTest::newRow("number to text") << Text << QVariant(12.5) << QVariant("12,5");
        QTest::newRow("date to text") << Text << day << QVariant("05/11/2026");
        QTest::newRow("full text") << Text << QVariant(QString(30, u'ώ')) << QVariant(QString(30, u'ώ'));
        QTest::newRow("memo has no end") << Memo << QVariant(QString(100000, u'x')) << QVariant(QString(100000, u'x'));
        QTest::newRow("bytes") << LongBinary << QVariant(QByteArray("a\0b", 3)) << QVariant(QByteArray("a\0b", 3));
        QTest::newRow("negative zero") << Double << QVariant("-0") << QVariant(0.0);
    }
    void values() {
        QFETCH(ColumnType, type);
        QFETCH(QVariant, value);
        QFETCH(QVariant, stored);
        const QVariant result = toColumn(value, {"στήλη", type, type == ColumnType::Text ? 30 : 0});
        QCOMPARE(result.typeId(), stored.typeId());
        QCOMPARE(result, stored);
    }

    void refusals_data() {
        using enum ColumnType;
        QTest::addColumn<ColumnType>("type");
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<bool>("constraint");
        QTest::newRow("empty number") << Double << QVariant("") << false;
        QTest::newRow("empty date") << DateTime << QVariant(" ") << false;
        QTest::newRow("no number") << Double << QVariant("δέκα") << false;
        QTest::newRow("no date") << DateTime << QVariant("31/2/2026") << false;
        QTest::newRow("integer range") << Integer << QVariant(32768) << false;
        QTest::newRow("long range") << Long << QVariant(2147483648.0) << false;
        QTest::newRow("not a number") << Double << QVariant(std::nan("")) << false;
        QTest::newRow("NaN whole") << Long << QVariant(std::nan("")) << false;
        QTest::newRow("single range") << Single << QVariant(1e39) << false;
        QTest::newRow("far date") << DateTime << QVariant(1e12) << false;
        QTest::newRow("year 10000") << DateTime << QVariant(QDate(10000, 1, 1)) << false;
        QTest::newRow("flag") << YesNo << QVariant("ίσως") << false;
        QTest::newRow("bytes to text") << Text << QVariant(QByteArray("x")) << false;
        QTest::newRow("text to bytes") << LongBinary << QVariant("x") << false;
        QTest::newRow("list") << Text << QVariant(QVariantList{1}) << false;
        QTest::newRow("too long") << Text << QVariant(QString(31, u'x')) << true;
        QTest::newRow("emoji count two") << Text << QVariant(u"👍"_s.repeated(16)) << true;
    }
    void refusals() {
        QFETCH(ColumnType, type);
        QFETCH(QVariant, value);
        QFETCH(bool, constraint);
        try {
            toColumn(value, {"στήλη", type, type == ColumnType::Text ? 30 : 0});
            QFAIL("nothing was thrown");
        } catch (const Error& error) {
            QCOMPARE(error.category(), constraint ? ErrorCategory::Constraint : ErrorCategory::Type);
            QVERIFY(error.text().contains("στήλη"));
        }
    }

    void monthFirst() {
        const QVariant date = toColumn("11/05/2026", {"d", ColumnType::DateTime, 0}, DateOrder::MonthFirst);
        QCOMPARE(date.toDateTime().date(), QDate(2026, 11, 5));
    }
};

QTEST_APPLESS_MAIN(TestConvert)
#include "test_convert.moc"
