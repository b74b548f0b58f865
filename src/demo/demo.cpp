#include "demo/demo.h"

#include "data/opening/password.h"
#include "data/recordset.h"
#include "data/values/format.h"
#include "demo/cardfields.h"
#include "demo/diary.h"
#include "demo/lists.h"
#include "demo/values.h"
#include "schema/tablewriter.h"

namespace demo {
namespace {

using namespace Qt::Literals::StringLiterals;
using schema::Database;
using schema::findTable;
using schema::TableWriter;

constexpr int cardsKnownToTheDiary = 2000;
constexpr int progressEvery = 5000;

const schema::Table& mainTable(QStringView name) {
    const schema::Table* table = findTable(Database::Main, name);
    Q_ASSERT(table);
    return *table;
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
    for (const auto& category : categories())
        main.execute(data::Sql(u"insert into CardKategory (Description,payable) values (?,?)"_s, category.name,
                               category.payable));
    for (int list = 0; list < lookupLists().size(); ++list)
        for (const QString& value : lookupLists()[list].values)
            main.execute(data::Sql(u"insert into ? (Description) values (?)"_s,
                                   data::Sql::name(u"Combo%1"_s.arg(list + 1)), value));
    data::Recordset fields(main, u"select * from CustomFields where id=1"_s);
    for (const auto& caption : captions()) {
        fields[caption.column].setValue(caption.caption);
        if (!caption.flag.isEmpty()) fields[caption.flag].setValue(true);
    }
    fields.update();
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
        for (const Movement& movement : person.movements)
            movements_.write({code, dateOrNull(movement.day), movement.reason, euros(movement.debitCents),
                              euros(movement.creditCents), movement.document, movement.vatPercent});
        if (number % linkEvery == 0)
            for (const QString& kind : {u"Συμβόλαιο"_s, u"Προσφορά"_s})
                links_.write({code, kind, u"/srv/grafeio/%1/%2.pdf"_s.arg(kind).arg(code)});
        return code;
    }

private:
    static constexpr int linkEvery = 12;
    TableWriter cards_, movements_, links_;
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
    TableWriter dates(main, mainTable(u"Dates"),
                      {u"codecard"_s, u"contact"_s, u"Subject"_s, u"Location"_s, u"Day"_s, u"Start"_s, u"End"_s,
                       u"Remind"_s, u"notes"_s, u"User"_s, u"Entoleas"_s});
    for (int user = 0; user < users.size(); ++user)
        for (const Appointment& a : makeAppointments(world, users, user, cards))
            dates.write({a.with.code, a.with.name, a.subject, a.location, dateOrNull(a.day), timeOrNull(a.start),
                         timeOrNull(a.end), timeOrNull(a.remind), textOrNull(a.notes), a.user, a.placedBy});
    TableWriter tasks(main, mainTable(u"ThinksToDo"),
                      {u"Subject"_s, u"Priority"_s, u"notes"_s, u"User"_s, u"Entoleas"_s});
    for (const Task& task : makeTasks(world, users))
        tasks.write({task.subject, task.priority, textOrNull(task.notes), task.user, task.placedBy});
    TableWriter calls(main, mainTable(u"Calls"), {u"ΗΜΕΡΟΜΗΝΙΑ"_s, u"ΩΡΑ"_s, u"ΟΝΟΜΑ"_s, u"ΤΗΛΕΦΩΝΟ"_s, u"CODECARD"_s});
    for (const Call& call : makeCalls(world, cards))
        calls.write({dateOrNull(call.day), call.time.toString(u"HH:mm:ss"), call.caller.name,
                     textOrNull(call.caller.telephone), call.caller.code});
}

void writeUsers(data::Connection& users) {
    data::Transaction transaction(users);
    TableWriter rows(users, *findTable(Database::Users, u"Users"), {u"UserName"_s, u"Password"_s, u"Group"_s});
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
    main.engine().setProperty(demoProperty, QString::number(options.seed));
    writeSettings(main);
    writeDiary(main, world, writeCards(main, world, options));
    transaction.commit();
    writeUsers(users);
}

}  // namespace demo
