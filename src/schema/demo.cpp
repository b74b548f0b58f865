#include "schema/demo.h"

#include "data/format.h"
#include "data/password.h"
#include "data/recordset.h"
#include "schema/demo/diary.h"
#include "schema/demo/lists.h"
#include "schema/rowwriter.h"

namespace schema {
namespace {

using namespace Qt::Literals::StringLiterals;
using demo::CardRef;
using demo::Person;
using demo::World;

constexpr int cardsKnownToTheDiary = 2000;
constexpr int progressEvery = 5000;

const Table& mainTable(QStringView name) {
    const Table* table = findTable(Database::Main, name);
    Q_ASSERT(table);
    return *table;
}

QVariant textOrNull(const QString& text) {
    return text.isEmpty() ? QVariant() : QVariant(text);
}
QVariant dateOrNull(QDate day) {
    return day.isValid() ? QVariant(data::wallClock(day)) : QVariant();
}
QVariant timeOrNull(QTime time) {
    return time.isValid() ? QVariant(data::wallClock(QDate(1899, 12, 30), time)) : QVariant();
}
QVariant numberOrNull(double number) {
    return number == 0 ? QVariant() : QVariant(number);
}
double euros(qint64 cents) {
    return double(cents) / 100;
}

struct CardField {
    QString column;
    QVariant (*value)(const Person&);
};

const QVector<CardField>& cardFields() {
    static const QVector<CardField> all = {
        {u"επωνυμο"_s, [](const Person& p) { return textOrNull(p.last); }},
        {u"ονομα"_s, [](const Person& p) { return textOrNull(p.first); }},
        {u"πατρονυμο"_s, [](const Person& p) { return textOrNull(p.father); }},
        {u"category"_s, [](const Person& p) { return QVariant(p.category); }},
        {u"ΗΜ_ΓΕΝΗΣΗΣ"_s, [](const Person& p) { return dateOrNull(p.birth); }},
        {u"ΤΟΠΟΣ_ΓΕΝΗΣΗΣ"_s, [](const Person& p) { return textOrNull(p.birthPlace); }},
        {u"ΗΜ_ΕΟΡΤΗΣ"_s, [](const Person& p) { return dateOrNull(p.nameDay); }},
        {u"KEIM_ΕΟΡΤΗΣ"_s, [](const Person& p) { return textOrNull(p.nameDayLine); }},
        {u"επαγγελμα"_s, [](const Person& p) { return textOrNull(p.occupation); }},
        {u"διευθυνση"_s, [](const Person& p) { return textOrNull(p.street); }},
        {u"περιοχη"_s, [](const Person& p) { return textOrNull(p.district); }},
        {u"ταχ_κωδ"_s, [](const Person& p) { return textOrNull(p.postalCode); }},
        {u"πολη"_s, [](const Person& p) { return textOrNull(p.town); }},
        {u"τηλεφωνο1"_s, [](const Person& p) { return textOrNull(p.home); }},
        {u"τηλεφωνο2"_s, [](const Person& p) { return textOrNull(p.work); }},
        {u"τηλεφωνο3"_s, [](const Person& p) { return textOrNull(p.secondHome); }},
        {u"τηλεφωνο4"_s, [](const Person& p) { return textOrNull(p.secondWork); }},
        {u"ΚΙΝΗΤΟ"_s, [](const Person& p) { return textOrNull(p.mobile); }},
        {u"FAX"_s, [](const Person& p) { return textOrNull(p.fax); }},
        {u"email"_s, [](const Person& p) { return textOrNull(p.email); }},
        {u"URL"_s, [](const Person& p) { return textOrNull(p.url); }},
        {u"ΑΝΔΡΑΣ"_s, [](const Person& p) { return QVariant(p.man); }},
        {u"σχολια"_s, [](const Person& p) { return textOrNull(p.notes); }},
        {u"εταιρια"_s, [](const Person& p) { return textOrNull(p.company); }},
        {u"ΔΙΕΥΘΥΝΣΗ_ΕΡΓΑΣΙΑΣ"_s, [](const Person& p) { return textOrNull(p.workStreet); }},
        {u"ΣΥΣΤΑΣΗ"_s, [](const Person& p) { return textOrNull(p.recommendedBy); }},
        {u"ΣΧΟΛΙΑ1"_s, [](const Person& p) { return textOrNull(p.cardNotes); }},
        {u"FIELdchar1"_s, [](const Person& p) { return textOrNull(p.taxNumber); }},
        {u"FIELdchar2"_s, [](const Person& p) { return textOrNull(p.taxOffice); }},
        {u"FIELdchar3"_s, [](const Person& p) { return textOrNull(p.seller); }},
        {u"FIELdnum1"_s, [](const Person& p) { return numberOrNull(p.discount); }},
        {u"FIELdnum2"_s, [](const Person& p) { return numberOrNull(p.creditLimit); }},
        {u"FIELddate1"_s, [](const Person& p) { return dateOrNull(p.contract); }},
        {u"ΤΕΛΕΥΤΑΙΑ_ΚΙΝΗΣΗ"_s, [](const Person& p) { return dateOrNull(p.lastMovement); }},
        {u"ΣΥΧΝΟΤΗΤΑ_ΚΙΝΗΣΗΣ"_s, [](const Person& p) { return QVariant(p.frequencyDays); }},
        {u"ΠΟΣΟ_ΚΙΝΗΣΗΣ"_s, [](const Person& p) { return QVariant(p.amountDue); }},
        {u"ΚΕΙΜΕΝΟ1"_s, [](const Person& p) { return textOrNull(p.longText); }},
        {u"ΚΕΙΜΕΝΟ2"_s, [](const Person& p) { return textOrNull(p.preferences); }},
        {u"FieldYes1"_s, [](const Person& p) { return QVariant(p.newsletter); }},
        {u"FieldYes2"_s, [](const Person& p) { return QVariant(p.invoices); }},
        {u"FieldCombo1"_s, [](const Person& p) { return textOrNull(p.payment); }},
        {u"FieldCombo2"_s, [](const Person& p) { return textOrNull(p.source); }},
        {u"Photo"_s, [](const Person& p) { return p.photo.isEmpty() ? QVariant() : QVariant(p.photo); }},
        {u"total"_s, [](const Person& p) { return QVariant(euros(p.balanceCents())); }},
    };
    return all;
}

QStringList cardColumns() {
    QStringList names;
    for (const CardField& field : cardFields()) names += field.column;
    return names;
}

QHash<QString, QDate> readNameDays(data::Connection& main) {
    QHash<QString, QDate> days;
    data::Recordset rows(main, u"select ONOMA,HMERA from NameDay"_s);
    for (; !rows.eof(); rows.moveNext()) {
        const QString name = rows[u"ONOMA"].text();
        if (!days.contains(name)) days.insert(name, rows[u"HMERA"].toDate().date());
    }
    return days;
}

void writeSettings(data::Connection& main) {
    for (const auto& category : demo::categories())
        main.execute(u"insert into CardKategory (Description,payable) values ('%1',%2)"_s.arg(category.name)
                         .arg(int(category.payable)));
    for (int list = 0; list < demo::lookupLists().size(); ++list)
        for (const QString& value : demo::lookupLists()[list].values)
            main.execute(u"insert into Combo%1 (Description) values ('%2')"_s.arg(list + 1).arg(value));
    QStringList changes;
    for (const auto& caption : demo::captions()) {
        changes += u"%1='%2'"_s.arg(caption.column, caption.caption);
        if (!caption.flag.isEmpty()) changes += caption.flag + u"=1"_s;
    }
    main.execute(u"update CustomFields set "_s + changes.join(u',') + u" where id=1"_s);
}

class CardsWriter {
public:
    explicit CardsWriter(data::Connection& main)
        : cards_(main, mainTable(u"Cards"), cardColumns()),
          movements_(main, mainTable(u"History"),
                     {u"codecards"_s, u"ΗΜΕΡΟΜΗΝΙΑ"_s, u"ΑΙΤΙΟΛΟΓΙΑ"_s, u"ΧΡΕΩΣΗ"_s, u"ΠΙΣΤΩΣΗ"_s, u"s1"_s, u"n1"_s}),
          links_(main, mainTable(u"Links"), {u"codecards"_s, u"ΠΕΡΙΓΡΑΦΗ"_s, u"ΣΥΝΔΕΣΗ"_s}) {}

    qint64 write(const Person& person, int number) {
        QVector<QVariant> values;
        values.reserve(cardFields().size());
        for (const CardField& field : cardFields()) values += field.value(person);
        const qint64 code = cards_.write(values);
        for (const demo::Movement& movement : person.movements)
            movements_.write({code, dateOrNull(movement.day), movement.reason, euros(movement.debitCents),
                              euros(movement.creditCents), movement.document, movement.vatPercent});
        if (number % linkEvery == 0)
            for (const QString& kind : {u"Συμβόλαιο"_s, u"Προσφορά"_s})
                links_.write({code, kind, u"/srv/grafeio/%1/%2.pdf"_s.arg(kind).arg(code)});
        return code;
    }

private:
    static constexpr int linkEvery = 12;
    RowWriter cards_, movements_, links_;
};

QVector<CardRef> writeCards(data::Connection& main, const World& world, const DemoOptions& options) {
    CardsWriter writer(main);
    QVector<CardRef> known;
    for (int number = 0; number < options.cards; ++number) {
        const Person person = makePerson(world, number);
        const qint64 code = writer.write(person, number);
        if (number < cardsKnownToTheDiary)
            known += {code, person.fullName(), person.mobile.isEmpty() ? person.home : person.mobile};
        if (options.progress && (number + 1) % progressEvery == 0) options.progress(number + 1, options.cards);
    }
    return known;
}

void writeDiary(data::Connection& main, const World& world, const QVector<CardRef>& cards) {
    QStringList users = {u"Admin"_s};
    for (const DemoUser& user : demoUsers()) users += user.name;
    RowWriter dates(main, mainTable(u"Dates"),
                    {u"codecard"_s, u"contact"_s, u"Subject"_s, u"Location"_s, u"Day"_s, u"Start"_s, u"End"_s,
                     u"Remind"_s, u"notes"_s, u"User"_s, u"Entoleas"_s});
    for (int user = 0; user < users.size(); ++user)
        for (const demo::Appointment& a : makeAppointments(world, users, user, cards))
            dates.write({a.with.code, a.with.name, a.subject, a.location, dateOrNull(a.day), timeOrNull(a.start),
                         timeOrNull(a.end), timeOrNull(a.remind), textOrNull(a.notes), a.user, a.placedBy});
    RowWriter tasks(main, mainTable(u"ThinksToDo"),
                    {u"Subject"_s, u"Priority"_s, u"notes"_s, u"User"_s, u"Entoleas"_s});
    for (const demo::Task& task : demo::makeTasks(world, users))
        tasks.write({task.subject, task.priority, textOrNull(task.notes), task.user, task.placedBy});
    RowWriter calls(main, mainTable(u"Calls"), {u"ΗΜΕΡΟΜΗΝΙΑ"_s, u"ΩΡΑ"_s, u"ΟΝΟΜΑ"_s, u"ΤΗΛΕΦΩΝΟ"_s, u"CODECARD"_s});
    for (const demo::Call& call : demo::makeCalls(world, cards))
        calls.write({dateOrNull(call.day), call.time.toString(u"HH:mm:ss"), call.caller.name,
                     textOrNull(call.caller.telephone), call.caller.code});
}

void writeUsers(data::Connection& users) {
    data::Transaction transaction(users);
    RowWriter rows(users, *findTable(Database::Users, u"Users"), {u"UserName"_s, u"Password"_s, u"Group"_s});
    for (const DemoUser& user : demoUsers()) rows.write({user.name, data::makeVerifier(user.password), user.group});
    transaction.commit();
}

}  // namespace

const QVector<DemoUser>& demoUsers() {
    static const QVector<DemoUser> all = {
        {u"maria"_s, 1, u"maria1"_s}, {u"nikos"_s, 2, u"nikos2"_s}, {u"eleni"_s, 3, u"eleni3"_s}};
    return all;
}

void fillDemo(data::Connection& main, data::Connection& users, const DemoOptions& options) {
    const QDate today = options.referenceDate.isValid() ? options.referenceDate : QDate::currentDate();
    const World world{options.seed, today, readNameDays(main)};
    data::Transaction transaction(main);
    writeSettings(main);
    writeDiary(main, world, writeCards(main, world, options));
    transaction.commit();
    writeUsers(users);
}

}  // namespace schema
