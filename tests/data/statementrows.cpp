#include "statementrows.h"

#include <QtTest/QtTest>
#include <random>
#include <stdexcept>

#include "data/recordset.h"

using namespace Qt::Literals::StringLiterals;

using namespace data;

namespace {

constexpr int firstMadeUp = 101;
constexpr int madeUpCards = 400;
constexpr int madeUpMovements = 600;
constexpr int madeUpAppointments = 150;

template <size_t count>
QVariant pick(const QString (&words)[count], int i) {
    const QString& word = words[size_t(i) % count];
    return word.isNull() ? QVariant() : word;
}

// As it is, in capitals without accents, or in small letters: one name to a person.
QString spelled(QString name, int style) {
    if (style % 3 == 0) return name;
    static const QString from = u"άέήίόύώϊΆΈΉΊΌΎΏ"_s;
    static const QString to = u"αεηιουωιΑΕΗΙΟΥΩ"_s;
    for (QChar& c : name)
        if (const qsizetype at = from.indexOf(c); at >= 0) c = to[at];
    return style % 3 == 1 ? name.toUpper() : name.toLower();
}

QVariant nullEvery(int period, int i, const QVariant& value) {
    return i % period == period - 1 ? QVariant() : value;
}

QDateTime day(int year, int days, QTime time = QTime(0, 0)) {
    return wallClock(QDate(year, 1, 1).addDays(days), time);
}

void addCards(Connection& connection) {
    static const QString surnames[] = {u"Αγγελόπουλος"_s, u"Βασιλείου"_s,    u"Γεωργίου"_s,   u"Δημητρίου"_s,
                                       u"Ευαγγέλου"_s,    u"Ζαφειρίου"_s,    u"Ηλιόπουλος"_s, u"Θεοδώρου"_s,
                                       u"Ιωαννίδης"_s,    u"Κωνσταντίνου"_s, u"Λάμπρου"_s,    u"Μιχαηλίδης"_s,
                                       u"Νικολάου"_s,     u"Ξενάκης"_s,      u"Οικονόμου"_s,  u"Παππάς"_s,
                                       u"Ράπτης"_s,       u"Σταύρου"_s,      u"Τσιρώνης"_s,   u"Χατζηγιάννης"_s};
    static const QString firstNames[] = {u"Γιώργος"_s, u"Μαρία"_s,    u"Νίκος"_s, u"Ελένη"_s, u"Κώστας"_s,
                                         u"Άννα"_s,    u"Δημήτρης"_s, u"Σοφία"_s, u"Ίων"_s,   u"Ιωάννα"_s,
                                         u"Πέτρος"_s,  u"Όλγα"_s,     u"Zoë"_s};
    static const QString towns[] = {u"Αθήνα"_s,    u"Θεσσαλονίκη"_s, u"Πάτρα"_s, u"ΑΘΗΝΑ"_s,
                                    u"Ηράκλειο"_s, u"Βόλος"_s,       u"πάτρα"_s, {}};
    static const QString lists[] = {u"Χονδρική"_s, u"Λιανική"_s, {}};
    std::mt19937 random(20261123);
    Recordset rows(connection, u"select * from Cards where code=0"_s);
    const auto put = [&](QStringView column, const QVariant& value) { rows[column].setValue(value); };
    for (int i = 0; i < madeUpCards; ++i) {
        rows.addNew();
        put(u"code", firstMadeUp + i);
        put(u"επωνυμο", spelled(pick(surnames, i).toString(), i / 20));
        put(u"ονομα", pick(firstNames, i));
        put(u"category", nullEvery(17, i, i % 6));
        put(u"πολη", pick(towns, i));
        put(u"ταχ_κωδ", nullEvery(9, i, QString::number(10000 + 7 * i)));
        put(u"total", nullEvery(11, i, ((i * 7919) % 200001 - 100000) / 100.0));
        put(u"ΗΜ_ΓΕΝΗΣΗΣ", nullEvery(10, i, day(1930, i * 73)));
        put(u"FieldYes1", i % 3 == 0);
        put(u"ΑΝΔΡΑΣ", i % 2 == 0);
        put(u"FieldCombo1", pick(lists, i));
        put(u"FIELdnum1", (double(random()) - 2147483648.0) * std::pow(10.0, double(i % 7) - 3));
        put(u"τηλεφωνο1", u"210%1"_s.arg(random() % 10000000, 7, 10, QChar(u'0')));
        put(u"ΤΕΛΕΥΤΑΙΑ_ΚΙΝΗΣΗ", day(2026, i % 365, i % 4 == 0 ? QTime(13, 45, 10) : QTime(0, 0)));
        put(u"ΣΥΧΝΟΤΗΤΑ_ΚΙΝΗΣΗΣ", (i % 5) * 15);
        if (i % 5 == 0) put(u"σχολια", u"Σημείωση %1. "_s.arg(i).repeated(i / 10 + 1));
        rows.update();
    }
}

void addMovements(Connection& connection) {
    static const QString reasons[] = {
        u"Αγορά"_s, u"ΠΛΗΡΩΜΗ"_s, u"Επιστροφή"_s, u"αγορά εμπορευμάτων"_s, u"Έκπτωση 10%"_s, u"Πληρωμή"_s, {}};
    std::mt19937 random(3);
    Recordset rows(connection, u"select * from History where aa=0"_s);
    for (int i = 0; i < madeUpMovements; ++i) {
        rows.addNew();
        rows[u"aa"].setValue(firstMadeUp + i);
        rows[u"codecards"].setValue(firstMadeUp + (i * 31) % madeUpCards);
        rows[u"ΗΜΕΡΟΜΗΝΙΑ"].setValue(day(2025, (i * 3) % 700, i % 4 == 0 ? QTime(14, 30, 5) : QTime(0, 0)));
        rows[u"ΑΙΤΙΟΛΟΓΙΑ"].setValue(pick(reasons, i));
        rows[u"ΧΡΕΩΣΗ"].setValue(i % 2 == 0 ? (i * 137) % 10000 / 100.0 : 0.0);
        rows[u"ΠΙΣΤΩΣΗ"].setValue(i % 2 == 0 ? 0.0 : (i * 59) % 10000 / 100.0);
        rows[u"n1"].setValue(nullEvery(13, i, double(random()) / 1000.0));
        rows.update();
    }
}

void addAppointments(Connection& connection) {
    static const QString owners[] = {u"Μαρία"_s, u"Νίκος"_s, u"Admin"_s, u"ΝΙΚΟΣ"_s};
    static const QString subjects[] = {u"Συνάντηση"_s, u"Τηλεφώνημα"_s, u"Επίσκεψη"_s};
    Recordset rows(connection, u"select * from Dates where aa=0"_s);
    for (int i = 0; i < madeUpAppointments; ++i) {
        rows.addNew();
        rows[u"aa"].setValue(firstMadeUp + i);
        rows[u"codecard"].setValue(i % 4 == 0 ? 0 : firstMadeUp + i);
        rows[u"Subject"].setValue(pick(subjects, i));
        rows[u"Day"].setValue(day(2026, i * 2));
        rows[u"Start"].setValue(wallClock(QDate(1899, 12, 30), QTime(8 + i % 10, i % 4 * 15)));
        rows[u"End"].setValue(wallClock(QDate(1899, 12, 30), QTime(9 + i % 10, i % 4 * 15)));
        rows[u"User"].setValue(pick(owners, i));
        rows.update();
    }
}

void addTyped(Connection& connection) {
    QFile file(QString::fromUtf8(DORV_STATEMENTS "/rows.sql"));
    if (!file.open(QIODevice::ReadOnly)) throw std::runtime_error("statements/rows.sql");
    for (const QString& line : QString::fromUtf8(file.readAll()).split(u'\n'))
        if (!line.isEmpty() && !line.startsWith(u'#')) connection.execute(line);
}

}  // namespace

void fillStatementRows(Connection& main, Connection& users) {
    Transaction all(main);
    addTyped(main);
    addCards(main);
    addMovements(main);
    addAppointments(main);
    all.commit();
    for (const char* user : {"('Μαρία', 'x', 2)", "('νίκος', 'y', 3)", "('ΝΙΚΟΛΑΣ', 'z', 0.1)"})
        users.execute(u"INSERT INTO Users (UserName, [Password], [Group]) VALUES "_s + QString::fromUtf8(user));
}
