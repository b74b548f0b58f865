#include "demo/diary.h"

namespace demo {
namespace {

using namespace Qt::Literals::StringLiterals;

constexpr quint64 purposeAppointments = 2, purposeTasks = 3, purposeCalls = 4;
constexpr int daysBefore = 30, daysAfter = 60, callDays = 14;
constexpr int slotMinutes = 30;
constexpr int remindMinutes = 15;

CardRef someCard(Random& random, const QVector<CardRef>& cards, int strangersPercent, const QString& stranger) {
    if (cards.isEmpty() || random.chance(strangersPercent)) return {0, stranger, {}};
    return random.pick(cards);
}

bool isWorkday(QDate day) {
    return day.dayOfWeek() < Qt::Saturday;
}

Appointment appointment(Random& random, const QStringList& users, int user, const QVector<CardRef>& cards) {
    static const QVector<QString> subjects = {
        u"Παρουσίαση προϊόντων"_s, u"Υπογραφή συμβολαίου"_s, u"Συνάντηση εργασίας"_s,
        u"Παράδοση παραγγελίας"_s, u"Συζήτηση προσφοράς"_s,  u"Τηλεδιάσκεψη"_s,
        u"Έλεγχος εγκατάστασης"_s, u"Είσπραξη υπολοίπου"_s,  u"Ετήσια ανασκόπηση"_s};
    static const QVector<QString> locations = {u"Γραφείο"_s, u"Έδρα πελάτη"_s, u"Αίθουσα συσκέψεων"_s,
                                               u"Εκθεσιακός χώρος"_s};
    Appointment made;
    made.with = someCard(random, cards, 15, u"Νέος ενδιαφερόμενος"_s);
    made.subject = random.pick(subjects);
    made.location = random.pick(locations);
    if (random.chance(20)) made.notes = u"Να ετοιμαστεί ο φάκελος από την προηγουμένη."_s;
    made.user = users[user];
    made.placedBy = random.chance(70) ? users[user] : random.pick(users);
    return made;
}

// Fills one day from the morning on, so that nothing clashes.
void fillDay(QVector<Appointment>& all, Random& random, const QStringList& users, int user, QDate day, int count,
             const QVector<CardRef>& cards) {
    QTime time(9, 0);
    for (int i = 0; i < count; ++i) {
        Appointment made = appointment(random, users, user, cards);
        made.day = day;
        made.start = time.addSecs(60 * slotMinutes * random.below(3));
        // One minute short of the slot: the clash test counts both ends.
        made.end = made.start.addSecs(60 * (slotMinutes * random.between(1, 3) - 1));
        if (random.chance(50)) made.remind = made.start.addSecs(-60 * remindMinutes);
        time = made.end.addSecs(60);
        all += made;
    }
}

}  // namespace

QVector<Appointment> makeAppointments(const World& world, const QStringList& users, int user,
                                      const QVector<CardRef>& cards) {
    Random random(world.seed, purposeAppointments, quint64(user));
    QVector<Appointment> all;
    for (int offset = -daysBefore; offset <= daysAfter; ++offset) {
        const QDate day = world.today.addDays(offset);
        if (offset == 0)
            fillDay(all, random, users, user, day, random.between(2, 4), cards);
        else if (isWorkday(day))
            fillDay(all, random, users, user, day, random.below(4), cards);
    }
    return all;
}

QVector<Task> makeTasks(const World& world, const QStringList& users) {
    static const QVector<QString> subjects = {
        u"Αποστολή τιμοκαταλόγου"_s,  u"Παραγγελία γραφικής ύλης"_s,  u"Ανανέωση συμβολαίου"_s,
        u"Έκδοση τιμολογίων μηνός"_s, u"Έλεγχος υπολοίπων πελατών"_s, u"Τηλεφώνημα στο λογιστή"_s,
        u"Ετοιμασία προσφοράς"_s,     u"Ενημέρωση ιστοσελίδας"_s,     u"Αρχειοθέτηση παραστατικών"_s,
        u"Κράτηση αίθουσας"_s,        u"Επισκευή εκτυπωτή"_s,         u"Αποστολή ευχετήριων καρτών"_s};
    Random random(world.seed, purposeTasks);
    QVector<Task> tasks;
    for (const QString& user : users) {
        const int count = random.between(4, 7);
        for (int i = 0; i < count; ++i) {
            Task task;
            task.subject = random.pick(subjects);
            task.priority = QString::number(random.between(1, 5));
            if (random.chance(30)) task.notes = u"Πριν από το τέλος της εβδομάδας."_s;
            task.user = user;
            task.placedBy = random.pick(users);
            tasks += task;
        }
    }
    return tasks;
}

QVector<Call> makeCalls(const World& world, const QVector<CardRef>& cards) {
    Random random(world.seed, purposeCalls);
    QVector<Call> calls;
    for (int offset = 1 - callDays; offset <= 0; ++offset) {
        const int count = random.between(4, 12);
        QTime time(8, 30);
        for (int i = 0; i < count; ++i) {
            time = time.addSecs(random.between(60, 45 * 60));
            Call call{someCard(random, cards, 10, u"ΑΠΟΚΡΥΨΗ"_s), world.today.addDays(offset), time};
            calls += call;
        }
    }
    return calls;
}

}  // namespace demo
