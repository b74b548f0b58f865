// The windows' searches and lists on whole offices of any size and either engine, beside the engine's C interface:
//     bench_search OFFICE... [--benchmark_...]
// It writes to the offices for good: a rare word into two cards, new values into five thousand. So it takes nothing but
// demonstrations, which dorvalist-admin made.
#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QFileInfo>
#include <iostream>

#include "cards/frmfind.h"
#include "cards/journal.h"
#include "copies/upgradecopy.h"
#include "data/recordset.h"
#include "demo/demo.h"
#include "rawengine.h"
#include "schema/office.h"
#include "schema/tablewriter.h"

namespace {

using namespace Qt::Literals::StringLiterals;

const QString rareWord = u"κολοσσαίος"_s;

struct Statement {
    const char* name;
    QString sql;
};

struct Office {
    QString label;
    data::Connection connection;
    bench::RawQuery raw;
    std::vector<Statement> statements;
};

// The shortest beginning of a mobile number that finds at most 200 cards.
QString selectivePrefix(data::Connection& connection, const QString& number) {
    for (int length = 2; length < number.size(); ++length)
        if (data::Recordset(connection, cards::findStatement(number.left(length))).recordCount() <= 200)
            return number.left(length);
    return number;
}

QString longTexts(const QString& word) {
    QStringList conditions;
    for (int i = 1; i <= 6; ++i) conditions += u"ΚΕΙΜΕΝΟ%1 LIKE '%%2%'"_s.arg(i).arg(word);
    return u"Select code,επωνυμο,ονομα,category,τηλεφωνο1,πολη,περιοχη,επαγγελμα,εταιρια,total from cards WHERE "_s +
           conditions.join(u" or "_s) + u" order by επωνυμο"_s;
}

QString journal(int days, const QString& word = {}) {
    const QDate today = QDate::currentDate(), from = today.addDays(-days);
    return cards::journalStatement({from, today, word, {}}, from, today);
}

QString dateLiteral(QDate day) {
    return u'#' + day.toString(u"yyyy/MM/dd") + u'#';
}

QString anyOf(const QStringList& columns, const QString& condition) {
    return columns.join(condition + u" or "_s) + condition;
}

std::vector<Statement> statementsFor(data::Connection& connection) {
    data::Recordset some(connection, u"select top 1 κινητο from cards where κινητο is not null"_s);
    const QString mobile = some.field(0).text();
    const QDate today = QDate::currentDate();
    const QString from = dateLiteral(today), to = dateLiteral(today.addDays(7));
    const auto due = [](const QString& first, const QString& last, const QString& more = {}) {
        const QString day = u"dateadd('d',ΣΥΧΝΟΤΗΤΑ_ΚΙΝΗΣΗΣ,ΤΕΛΕΥΤΑΙΑ_ΚΙΝΗΣΗ)"_s;
        return u"Select [code],[ΕΠΩΝΥΜΟ],[ΟΝΟΜΑ],[ΕΤΑΙΡΙΑ],%1 as Teleytaia,[ΠΟΣΟ_ΚΙΝΗΣΗΣ],[ΣΥΧΝΟΤΗΤΑ_ΚΙΝΗΣΗΣ] from "
               u"CARDS "
               "where (%1 between %2 and %3 )%4 ORDER BY %1"_s.arg(day, first, last, more);
    };
    const QString list =
        u"Select code,επωνυμο,ονομα,category,τηλεφωνο1,πολη,περιοχη,επαγγελμα,εταιρια,total from cards ORDER BY "_s;
    QStringList terms;
    for (const schema::Column& column : schema::findTable(schema::Database::Main, u"MEDRA")->columns)
        terms += u'[' + column.name + u']';
    return {
        {"prefix, up to 200 cards", cards::findStatement(selectivePrefix(connection, mobile))},
        {"prefix, many cards", cards::findStatement(u"παπ"_s)},
        {"prefix with an open middle", cards::findStatement(u"παπ%ου"_s)},
        {"number look-up", u"Select [επωνυμο],[ονομα],[εταιρια],[code],photo from cards where "_s +
                               anyOf({u"τηλεφωνο1"_s, u"τηλεφωνο2"_s, u"τηλεφωνο3"_s, u"τηλεφωνο4"_s, u"κινητο"_s},
                                     u" ='%1'"_s.arg(mobile))},
        {"rare word in six long texts", longTexts(rareWord)},
        {"common word in six long texts", longTexts(u"συνάντηση"_s)},
        {"rare word of the reason, ten years", journal(3650, u"Ε-3999"_s)},
        {"common word of the reason, a month", journal(30, u"τιμολόγιο"_s)},
        {"journal of a month", journal(30)},
        {"visits due in a week", due(from, to)},
        {"visits due and overdue", due(u"#2000/01/01#"_s, to, u" AND [ΣΥΧΝΟΤΗΤΑ_ΚΙΝΗΣΗΣ]<>0"_s)},
        {"birthdays and name days",
         u"Select CODE,ΟΝΟΜΑ,ΕΠΩΝΥΜΟ,ΤΗΛΕΦΩΝΟ1,ΚΙΝΗΤΟ from Cards where (day(ΗΜ_ΓΕΝΗΣΗΣ)=\"23\" and "
         "month(ΗΜ_ΓΕΝΗΣΗΣ)=\"11\") or (day(ΗΜ_ΕΟΡΤΗΣ)=\"23\" and month(ΗΜ_ΕΟΡΤΗΣ)=\"11\") order by ΕΠΩΝΥΜΟ"_s},
        {"appointments of a day",
         u"select * from dates where day=#"_s + today.toString(u"MM/dd/yyyy") + u"# order by [start],[end]"_s},
        {"appointments of a week and a user",
         u"Select [user],[contact],[subject],[location],[day],[start],[end],[notes],[entoleas] from dates where (day "
         "between %1 and %2 ) and user='maria'"_s.arg(from, to)},
        {"reminders of a minute", u"select * from dates where day=#"_s + today.toString(u"MM/dd/yyyy") +
                                      u"# and remind=#10:30# and user='maria' order by [start],[end]"_s},
        {"tasks of a user",
         u"Select [user],[subject],[Priority],[aa],[notes],[entoleas] from ThinksToDo where "
         "user='maria'"_s},
        {"medicines with a word", u"Select name,company,use,ousia from farmaka WHERE "_s +
                                      anyOf({u"name"_s, u"Company"_s, u"USE"_s, u"Ousia"_s}, u" LIKE '%παρακετ%'"_s) +
                                      u" order by name"_s},
        {"medical terms with a word",
         u"Select * from MEDRA WHERE "_s + anyOf(terms, u" LIKE '%νεφρ%'"_s) + u" order by "_s + terms[0]},
        {"all cards by surname", list + u"επωνυμο"_s},
        {"all cards by town", list + u"πολη"_s},
        {"navigation set", u"select code,OutlookEntryID from cards order by ΕΠΩΝΥΜΟ"_s},
    };
}

void road(benchmark::State& state, Office& office, const QString& sql) {
    qint64 rows = 0;
    for (auto _ : state) rows = data::Recordset(office.connection, sql).recordCount();
    state.counters["rows"] = double(rows);
}

void alone(benchmark::State& state, Office& office, const QString& sql) {
    const bench::RawRows rows = office.raw(bench::engineStatement(office.connection, sql));
    for (auto _ : state)
        if (rows() < 0) state.SkipWithError("the engine refuses the statement");
}

// Four columns, each with a value that no card had before.
void saveCard(benchmark::State& state, Office& office) {
    static qint64 number = QDateTime::currentMSecsSinceEpoch();
    for (auto _ : state) {
        ++number;
        data::Recordset row(office.connection, u"Select * from cards where code=%1"_s.arg(1 + number % 5000));
        row[u"επωνυμο"].setValue(u"Νέο %1"_s.arg(number));
        row[u"κινητο"].setValue(u"69%1"_s.arg(number));
        row[u"ΚΕΙΜΕΝΟ2"].setValue(u"Συμφωνήθηκε νέο πρόγραμμα επισκέψεων %1"_s.arg(number));
        row[u"ΤΕΛΕΥΤΑΙΑ_ΚΙΝΗΣΗ"].setValue(QDateTime::fromSecsSinceEpoch(number / 1000 + number % 1000, Qt::UTC));
        row.update();
    }
}

// Cards like those that are there, all in one transaction, with its commit; they are taken away again unmeasured.
void addInBulk(benchmark::State& state, Office& office, int count) {
    data::Recordset models(office.connection, u"select top 1000 * from cards"_s);
    const qint64 last = data::Recordset(office.connection, u"select max(code) from cards"_s).field(0).toLong();
    const schema::Table& table = *schema::findTable(schema::Database::Main, u"Cards");
    QStringList columns;
    std::vector<QVector<QVariant>> rows;
    for (int i = 0; i < models.fieldCount(); ++i)
        if (i > 0) columns += models.field(i).name();
    for (; !models.eof(); models.moveNext()) {
        rows.emplace_back();
        for (int i = 1; i < models.fieldCount(); ++i) rows.back() += models.field(i).value();
    }
    for (auto _ : state) {
        data::Transaction transaction(office.connection);
        schema::TableWriter writer(office.connection, table, columns);
        for (int i = 0; i < count; ++i) writer.write(rows[size_t(i) % rows.size()]);
        transaction.commit();
    }
    office.connection.execute(u"delete from cards where code>%1"_s.arg(last));
}

std::unique_ptr<Office> openOffice(const QString& folder) {
    auto office = std::make_unique<Office>();
    office->label = QFileInfo(folder).fileName();
    const QString file = schema::mainDatabasePath(folder);
    const QString database = schema::connectionString(schema::Database::Main, file);
    {
        data::Connection looked;  // opening to write may already bring the schema up to date
        schema::openToRead(looked, database);
        if (looked.engine().property(demo::demoProperty).isEmpty())
            throw data::Error(data::ErrorCategory::State,
                              u"Το «%1» δεν είναι γραφείο επίδειξης, και οι μετρήσεις το αλλάζουν."_s.arg(folder));
    }
    copies::openUpgraded(office->connection, database);
    office->connection.execute(u"update cards set ΚΕΙΜΕΝΟ3='Το %1 έργο' where code in (17, 4711)"_s.arg(rareWord));
    office->raw = bench::rawQuery(file);
    office->statements = statementsFor(office->connection);
    return office;
}

void registerFor(Office& office) {
    const auto add = [&](const char* name, auto measure) {
        return benchmark::RegisterBenchmark((office.label.toStdString() + '/' + name).c_str(), measure)
            ->Unit(benchmark::kMillisecond)
            ->UseRealTime();
    };
    for (const Statement& statement : office.statements) {
        add((std::string(statement.name) + "/engine").c_str(),
            [&](benchmark::State& state) { alone(state, office, statement.sql); });
        add((std::string(statement.name) + "/road").c_str(),
            [&](benchmark::State& state) { road(state, office, statement.sql); });
    }
    add("save a card", [&](benchmark::State& state) { saveCard(state, office); });
    add("add 100,000 cards", [&](benchmark::State& state) { addInBulk(state, office, 100'000); })->Iterations(1);
}

}  // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    std::vector<std::unique_ptr<Office>> offices;
    try {
        for (int i = 1; i < argc; ++i) {
            offices.push_back(openOffice(QString::fromLocal8Bit(argv[i])));
            registerFor(*offices.back());
        }
        benchmark::RunSpecifiedBenchmarks();
    } catch (const data::Error& error) {
        std::cerr << qPrintable(error.text()) << '\n';
        return 1;
    }
    return 0;
}
