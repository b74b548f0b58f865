#include "data/values/money.h"
#include "support/cases.h"

using namespace Qt::Literals::StringLiterals;
using data::Money;

class TestMoney : public QObject {
    Q_OBJECT
private slots:
    void amounts() {
        const struct {
            const char* name;
            double amount;
            QString text;
            double stored;
        } cases[] = {
            {"zero", 0.0, u"0,00"_s, 0.0},
            {"cents", 0.07, u"0,07"_s, 0.07},
            {"thousands", 1234567.5, u"1.234.567,50"_s, 1234567.5},
            {"negative", -999.999, u"-1.000,00"_s, -999.999},
            {"half a cent", 2.675, u"2,68"_s, 2.675},
            {"too small to show", -0.004, u"0,00"_s, -0.004},
            {"beyond all money", 1e300, u"υπέρβαση"_s, 0.0},
            {"no number", qQNaN(), u"0,00"_s, 0.0},
        };
        support::forEach(cases, [](const auto& one) {
            QCOMPARE(Money::of(one.amount).text(), one.text);
            QCOMPARE(Money::of(one.amount).toDouble(), one.stored);
        });
    }

    void whatIsBeyondAllMoneySaysSo() {
        for (const double amount : {9.1e14, -1e300}) QVERIFY(Money::of(amount).isBeyond());
        for (const int sign : {1, -1}) {
            Money sum = Money::of(sign * 9e14);
            QVERIFY(!sum.isBeyond());
            sum += Money::of(sign * 9e14);
            // It doesn't come back by what follows.
            sum -= Money::of(sign * 9e14);
            QVERIFY(sum.isBeyond());
            QCOMPARE(sum.text(), "υπέρβαση");
        }
    }

    void typedAmounts() {
        const struct {
            const char* name;
            QString typed;
            std::optional<double> stored;
        } cases[] = {
            {"rounds up", u"12,345"_s, 12.35},
            {"rounds as a person reads", u"2,675"_s, 2.68},
            {"rounds down", u"0,004"_s, 0.0},
            {"whole", u"100"_s, 100.0},
            {"lone comma end", u"5,"_s, 5.0},
            {"two commas", u"1,2,3"_s, {}},
            {"empty", {}, {}},
            {"comma", u","_s, {}},
            {"more than all money", QString(30, u'9'), {}},
            {"endless", QString(10000, u'9'), {}},
        };
        support::forEach(cases, [](const auto& one) { QCOMPARE(data::typedAmount(one.typed), one.stored); });
    }
};

QTEST_GUILESS_MAIN(TestMoney)
#include "test_money.moc"
