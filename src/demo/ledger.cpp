#include "demo/person.h"

namespace demo {
namespace {

using namespace Qt::Literals::StringLiterals;

QString documentNumber(Random& random, QChar series) {
    return series + u'-' + QString::number(random.between(1, 9999)).rightJustified(4, u'0');
}

Movement sale(Random& random, QDate day) {
    static const QVector<QString> reasons = {u"Τιμολόγιο πώλησης"_s, u"Τιμολόγιο παροχής υπηρεσιών"_s,
                                             u"Δελτίο αποστολής - τιμολόγιο"_s, u"Ετήσια συνδρομή"_s};
    static const QVector<int> rates = {24, 24, 24, 13, 6};
    Movement movement;
    movement.day = day;
    movement.document = documentNumber(random, u'Τ');
    movement.reason = random.pick(reasons) + u' ' + movement.document;
    movement.debitCents = random.between(1500, 180000);
    movement.vatPercent = random.pick(rates);
    return movement;
}

Movement payment(Random& random, QDate day, qint64 owed) {
    static const QVector<QString> reasons = {u"Είσπραξη μετρητοίς"_s, u"Κατάθεση σε τράπεζα"_s, u"Επιταγή"_s,
                                             u"Πληρωμή με κάρτα"_s};
    Movement movement;
    movement.day = day;
    movement.document = documentNumber(random, u'Ε');
    movement.reason = random.pick(reasons) + u' ' + movement.document;
    movement.creditCents = random.chance(60) ? owed : qMax<qint64>(100, owed / 200 * 100);
    return movement;
}

}  // namespace

QVector<Movement> makeMovements(Random& random, QDate today) {
    QVector<Movement> movements;
    const int count = random.between(1, 7);
    QDate day = today.addDays(-random.between(count * 20, 730));
    qint64 owed = 0;
    for (int i = 0; i < count && day <= today; ++i) {
        const bool pays = owed > 0 && random.chance(55);
        movements += pays ? payment(random, day, owed) : sale(random, day);
        owed += movements.last().debitCents - movements.last().creditCents;
        day = day.addDays(random.between(0, 90));
    }
    return movements;
}

}  // namespace demo
