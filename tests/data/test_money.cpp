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

    // Amounts from elsewhere have as many decimals as they like; a sum has neither fewer nor more than they.
    void remaindersOfACent() {
        const struct {
            const char* name;
            QVector<double> amounts;
            double sum;
            QString text;
        } cases[] = {
            {"thirds", {1 / 3.0, 1 / 3.0, 1 / 3.0}, 1.0, u"1,00"_s},
            {"each too small for a unit", QVector<double>(1000, 0.00004), 0.04, u"0,04"_s},
            {"there and back", {0.00004, -0.00004}, 0.0, u"0,00"_s},
            {"below nothing", {-0.00004, -0.00002}, -0.00006, u"0,00"_s},
            {"six decimals", {1234567.123456, 0.000001}, 1234567.123457, u"1.234.567,12"_s},
            {"what a binary sum left", {0.1 + 0.2, -0.3}, 0.0, u"0,00"_s},
            {"not quite half a cent", {0.00496}, 0.00496, u"0,00"_s},
            {"tenths", QVector<double>(100000, 0.1), 10000.0, u"10.000,00"_s},
            {"large and tiny", {8e14, 0.00001, -8e14}, 0.00001, u"0,00"_s},
        };
        support::forEach(cases, [](const auto& one) {
            Money sum, back;
            for (const double amount : one.amounts) sum += Money::of(amount), back -= Money::of(amount);
            QVERIFY(sum.toDouble() == one.sum);  // to the last bit
            QVERIFY(back.toDouble() == -one.sum);
            QCOMPARE(sum.text(), one.text);
            sum += back;
            QCOMPARE(sum, Money());
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
