#include "hammerworker.h"

#include <QRandomGenerator>
#include <cstdio>

#include "copies/upgradecopy.h"
#include "data/recordset.h"
#include "schema/office.h"

using namespace Qt::Literals::StringLiterals;

namespace hammer {
namespace {

class Worker {
public:
    Worker(const QString& folder, int number) : number_(number), random_(quint32(number) * 7919 + 1) {
        using schema::Database;
        // No office is ever as busy: a seat may have to wait longer than a person would be let wait.
        copies::openUpgraded(office_, schema::connectionString(Database::Main, schema::mainDatabasePath(folder)) +
                                          u"; Busy Timeout=60000"_s);
        held_.open(office_, u"select code,FIELdnum1 from cards where code=1"_s);
    }

    void step() {
        const int deed = int(random_.bounded(100));
        try {
            if (deed < 30) return add();
            if (deed < 60) return changeHeld();
            if (deed < 75) return countUp(u"FIELdnum1"_s, u"cards where code="_s, 'I', anyCard());
            if (deed < 85) return countUp(u"ΧΡΕΩΣΗ"_s, u"History where codecards="_s, 'M', anyCard());
            return remove(anyCard());
        } catch (const data::Error& error) {
            if (error.category() == data::ErrorCategory::Conflict)
                say(u"C"_s);
            else
                say(u"F %1"_s.arg(error.text()));
        }
    }

private:
    static void say(const QString& line) { printf("%s\n", line.toUtf8().constData()); }

    // A card and its first movement are there together or not at all.
    void add() {
        const QString mark = u"Σημάδι%1κάρτας%2"_s.arg(number_).arg(++marks_);
        data::Transaction transaction(office_);
        data::Recordset card(office_, u"select * from cards where code=0"_s);
        card.addNew();
        for (const QString& column : {u"επωνυμο"_s, u"ονομα"_s, u"ΚΕΙΜΕΝΟ1"_s}) card[column].setValue(mark);
        card[u"FIELdnum1"].setValue(0.0);
        card.update();
        const qint64 code = card[u"code"].toLong();
        data::Recordset movement(office_, u"select * from History where aa=0"_s);
        movement.addNew();
        movement[u"codecards"].setValue(code);
        movement[u"ΑΙΤΙΟΛΟΓΙΑ"].setValue(mark);
        movement[u"ΧΡΕΩΣΗ"].setValue(0.0);
        movement.update();
        transaction.commit();
        say(u"A %1 %2"_s.arg(code).arg(mark));
    }

    // A card that was read a while ago, as one that stands open in a window.
    void changeHeld() {
        const qint64 next = 1 + qint64(random_.bounded(hotCards));
        const qint64 code = held_[u"code"].toLong();
        try {
            held_[u"FIELdnum1"].setValue(held_[u"FIELdnum1"].toDouble() + 1);
            held_.update();
            say(u"I %1"_s.arg(code));
        } catch (const data::Error&) {
            held_.open(office_, u"select code,FIELdnum1 from cards where code=%1"_s.arg(next));
            throw;
        }
        held_.open(office_, u"select code,FIELdnum1 from cards where code=%1"_s.arg(next));
    }

    void countUp(const QString& column, const QString& from, char sign, qint64 code) {
        data::Recordset row(office_, u"select [%1] from %2%3"_s.arg(column, from).arg(code));
        if (row.isEmpty()) return;
        row.field(0).setValue(row.field(0).toDouble() + 1);
        row.update();
        say(u"%1 %2"_s.arg(QLatin1Char(sign)).arg(code));
    }

    void remove(qint64 code) {
        if (code <= hotCards) return;
        data::Transaction transaction(office_);
        if (office_.execute(u"delete from cards where code=%1"_s.arg(code)) == 0) return;
        office_.execute(u"delete from History where codecards=%1"_s.arg(code));
        transaction.commit();
        say(u"D %1"_s.arg(code));
    }

    // Mostly among the newest, where the others are at work too.
    qint64 anyCard() {
        data::Recordset last(office_, u"select max(code) from cards"_s);
        const qint64 highest = last.field(0).toLong();
        return qMax<qint64>(1, highest - qint64(random_.bounded(40)));
    }

    data::Connection office_;
    data::Recordset held_;
    int number_, marks_ = 0;
    QRandomGenerator random_;
};

}  // namespace

int work(const QString& folder, int worker, int steps) {
    try {
        Worker hands(folder, worker);
        for (int i = 0; i < steps; ++i) hands.step();
    } catch (const data::Error& error) {
        fprintf(stderr, "%s\n", error.text().toUtf8().constData());
        return 1;
    }
    return 0;
}

Account readAccount(const QByteArray& output) {
    Account account;
    for (const QString& line : QString::fromUtf8(output).split(u'\n', Qt::SkipEmptyParts)) {
        const QStringList words = line.split(u' ');
        const qint64 code = words.value(1).toLongLong();
        switch (words[0][0].unicode()) {
            case 'A':
                account.added[code] = words.value(2);
                break;
            case 'I':
                ++account.changed[code];
                break;
            case 'M':
                ++account.moved[code];
                break;
            case 'D':
                account.deleted += code;
                break;
            case 'C':
                ++account.conflicts;
                break;
            default:
                account.failures += line;
        }
    }
    return account;
}

}  // namespace hammer
