#include "data/values/convert.h"
#include "support/cases.h"
#include "support/failure.h"

using namespace Qt::Literals::StringLiterals;
using namespace data;

class TestConvert : public QObject {
    Q_OBJECT

    static QVariant stored(const QVariant& value, ColumnType type) {
        return toColumn(value, {"στήλη", type, type == ColumnType::Text ? 30 : 0});
    }

private slots:
    void values() {
        using enum ColumnType;
        const QVariant day = wallClock(QDate(2026, 11, 5)), none;
        const struct {
            const char* name;
            ColumnType type;
            QVariant value, stored;
        } cases[] = {
            {"text to number", Double, "1.234,5", 1234.5},
            {"half to even down", Integer, 2.5, 2LL},
            {"half to even up", Long, "3,5", 4LL},
            {"true counts -1", Integer, true, -1LL},
            {"long edge", Long, 2147483647, 2147483647LL},
            {"day first", DateTime, "5/11/2026", day},
            {"days", DateTime, 2, wallClock(QDate(1900, 1, 1))},
            {"date", DateTime, QDate(2026, 11, 5), day},
            {"time", DateTime, QTime(9, 30), wallClock(QDate(1899, 12, 30), QTime(9, 30))},
            {"milliseconds go", DateTime, QDateTime(QDate(2026, 11, 5), QTime(0, 0, 0, 700)), day},
            {"a wall clock in the gap", DateTime, "29/3/2026 03:30", wallClock(QDate(2026, 3, 29), QTime(3, 30))},
            {"invalid date is Null", DateTime, QDateTime(), none},
            {"yes", YesNo, "ΝΑΙ", true},
            {"no", YesNo, "Όχι", false},
            {"one", YesNo, "1", true},
            {"minus one", YesNo, -1, true},
            {"Null flag", YesNo, none, false},
            {"Null text", Text, none, none},
            {"number to text", Text, 12.5, "12,5"},
            {"date to text", Text, day, "05/11/2026"},
            {"full text", Text, QString(30, u'ώ'), QString(30, u'ώ')},
            {"memo has no end", Memo, QString(100000, u'x'), QString(100000, u'x')},
            {"bytes", LongBinary, QByteArray("a\0b", 3), QByteArray("a\0b", 3)},
            {"negative zero", Double, "-0", 0.0},
        };
        support::forEach(cases, [](const auto& one) {
            const QVariant result = stored(one.value, one.type);
            QCOMPARE(result.typeId(), one.stored.typeId());
            QCOMPARE(result, one.stored);
        });
    }

    void refusals() {
        using enum ColumnType;
        const struct {
            const char* name;
            ColumnType type;
            QVariant value;
            ErrorCategory category;
        } cases[] = {
            {"empty number", Double, "", ErrorCategory::Type},
            {"empty date", DateTime, " ", ErrorCategory::Type},
            {"no number", Double, "δέκα", ErrorCategory::Type},
            {"no date", DateTime, "31/2/2026", ErrorCategory::Type},
            {"integer range", Integer, 32768, ErrorCategory::Type},
            {"long range", Long, 2147483648.0, ErrorCategory::Type},
            {"not a number", Double, std::nan(""), ErrorCategory::Type},
            {"NaN whole", Long, std::nan(""), ErrorCategory::Type},
            {"single range", Single, 1e39, ErrorCategory::Type},
            {"far date", DateTime, 1e12, ErrorCategory::Type},
            {"year 10000", DateTime, QDate(10000, 1, 1), ErrorCategory::Type},
            {"flag", YesNo, "ίσως", ErrorCategory::Type},
            {"bytes to text", Text, QByteArray("x"), ErrorCategory::Type},
            {"text to bytes", LongBinary, "x", ErrorCategory::Type},
            {"list", Text, QVariantList{1}, ErrorCategory::Type},
            {"too long", Text, QString(31, u'x'), ErrorCategory::Constraint},
            {"emoji count two", Text, u"👍"_s.repeated(16), ErrorCategory::Constraint},
        };
        support::forEach(cases, [](const auto& one) {
            const auto error = errorOf([&] { stored(one.value, one.type); });
            QVERIFY(error && error->text().contains(u"στήλη"));
            QCOMPARE(error->category(), one.category);
        });
    }

    void monthFirst() {
        const QVariant date = toColumn("11/05/2026", {"d", ColumnType::DateTime, 0}, DateOrder::MonthFirst);
        QCOMPARE(date.toDateTime().date(), QDate(2026, 11, 5));
    }
};

QTEST_APPLESS_MAIN(TestConvert)
#include "test_convert.moc"
