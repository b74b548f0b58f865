// The windows' searches and lists on whole offices of any size and either engine, beside the engine's C interface:
//     bench_search OFFICE... [--benchmark_...]
// The offices are demonstrations made with dorvalist-admin; a rare word is planted in them.
#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QFileInfo>
#include <iostream>

#include "data/recordset.h"
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

QString nineColumns(const QString& text) {
    const QStringList columns = {u"επωνυμο"_s,   u"ονομα"_s,     u"εταιρια"_s, u"τηλεφωνο1"_s, u"τηλεφωνο2"_s,
                                 u"τηλεφωνο3"_s, u"τηλεφωνο4"_s, u"email"_s,   u"κινητο"_s};
    return u"Select [επωνυμο],[ονομα],[εταιρια],[διευθυνση],[τηλεφωνο1],[email],[code] from cards where "_s +
           columns.join(u" like '%1%' or "_s.arg(text)) + u" like '%1%' ORDER BY επωνυμο,ονομα,email"_s.arg(text);
}

// The shortest beginning of a mobile number that finds at most 200 cards.
QString selectivePrefix(data::Connection& connection, const QString& number) {
    for (int length = 2; length < number.size(); ++length)
        if (data::Recordset(connection, nineColumns(number.left(length))).recordCount() <= 200)
            return number.left(length);
    return number;
}

QString longTexts(const QString& word) {
    QStringList conditions;
    for (int i = 1; i <= 6; ++i) conditions += u"ΚΕΙΜΕΝΟ%1 LIKE '%%2%'"_s.arg(i).arg(word);
    return u"Select code,επωνυμο,ονομα,category,τηλεφωνο1,πολη,περιοχη,επαγγελμα,εταιρια,total from cards WHERE "_s +
           conditions.join(u" or "_s) + u" order by επωνυμο"_s;
}

QString journal(const QString& period, const QString& word = {}) {
    const QString reason = word.isEmpty() ? QString() : u" and ΑΙΤΙΟΛΟΓΙΑ like '%%1%'"_s.arg(word);
    return u"SELECT History.ΗΜΕΡΟΜΗΝΙΑ, Cards.code, Cards.ΕΠΩΝΥΜΟ, Cards.ΟΝΟΜΑ, History.ΑΙΤΙΟΛΟΓΙΑ, History.ΧΡΕΩΣΗ, "
           "History.ΠΙΣΤΩΣΗ FROM Cards INNER JOIN History ON Cards.code = History.codecards where (ΗΜΕΡΟΜΗΝΙΑ "
           "between %1)%2 ORDER BY ΗΜΕΡΟΜΗΝΙΑ"_s.arg(period, reason);
}

QString anyOf(const QStringList& columns, const QString& condition) {
    return columns.join(condition + u" or "_s) + condition;
}

std::vector<Statement> statementsFor(data::Connection& connection) {
    data::Recordset some(connection, u"select top 1 κινητο from cards where κινητο is not null"_s);
    const QString mobile = some.field(0).text();
    const QString due = u"dateadd('d',ΣΥΧΝΟΤΗΤΑ_ΚΙΝΗΣΗΣ,ΤΕΛΕΥΤΑΙΑ_ΚΙΝΗΣΗ)"_s;
    const QDate today = QDate::currentDate();
    const auto period = [&](int days) {
        return u'#' + today.addDays(-days).toString(u"yyyy/MM/dd") + u"# and #"_s + today.toString(u"yyyy/MM/dd") + u'#';
    };
    const QString list =
        u"Select code,επωνυμο,ονομα,category,τηλεφωνο1,πολη,περιοχη,επαγγελμα,εταιρια,total from cards ORDER BY "_s;
    return {
        {"prefix, up to 200 cards", nineColumns(selectivePrefix(connection, mobile))},
        {"prefix, many cards", nineColumns(u"παπ"_s)},
        {"number look-up", u"Select [επωνυμο],[ονομα],[εταιρια],[code],photo from cards where "_s +
                               anyOf({u"τηλεφωνο1"_s, u"τηλεφωνο2"_s, u"τηλεφωνο3"_s, u"τηλεφωνο4"_s, u"κινητο"_s},
                                     u" ='%1'"_s.arg(mobile))},
        {"rare word in six long texts", longTexts(rareWord)},
        {"common word in six long texts", longTexts(u"συνάντηση"_s)},
        {"rare word of the reason, ten years", journal(period(3650), u"Ε-3999"_s)},
        {"common word of the reason, a month", journal(period(30), u"τιμολόγιο"_s)},
        {"journal of a month", journal(period(30))},
        {"visits due in a week", u"Select [code],[ΕΠΩΝΥΜΟ],[ΟΝΟΜΑ],[ΕΤΑΙΡΙΑ],"_s + due +
                                     u" as Teleytaia,[ΠΟΣΟ_ΚΙΝΗΣΗΣ] from CARDS where ("_s + due + u" between #"_s +
                                     today.toString(u"yyyy/MM/dd") + u"# and #"_s +
                                     today.addDays(7).toString(u"yyyy/MM/dd") + u"#) ORDER BY "_s + due},
        {"birthdays and name days",
         u"Select CODE,ΟΝΟΜΑ,ΕΠΩΝΥΜΟ,ΤΗΛΕΦΩΝΟ1,ΚΙΝΗΤΟ from Cards where (day(ΗΜ_ΓΕΝΗΣΗΣ)=\"23\" and "
         "month(ΗΜ_ΓΕΝΗΣΗΣ)=\"11\") or (day(ΗΜ_ΕΟΡΤΗΣ)=\"23\" and month(ΗΜ_ΕΟΡΤΗΣ)=\"11\") order by ΕΠΩΝΥΜΟ"_s},
        {"appointments of a day",
         u"select * from dates where day=#"_s + today.toString(u"MM/dd/yyyy") + u"# order by [start],[end]"_s},
        {"medicines",
         u"Select name,company,use,ousia from farmaka WHERE name LIKE '%depon%' or Company LIKE '%depon%' "
         "or USE LIKE '%depon%' or Ousia LIKE '%depon%' order by name"_s},
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
    // Translated with the choice that the road makes.
    const auto translation = office.connection.translate(sql);
    const bool many = !translation->probe.isEmpty() && office.raw(translation->probe) > data::Translation::probeLimit;
    const QByteArray& engineSql = many ? translation->periodFirst : translation->sql;
    for (auto _ : state) benchmark::DoNotOptimize(office.raw(engineSql));
}

void saveCard(benchmark::State& state, Office& office) {
    int number = 0;
    for (auto _ : state) {
        data::Recordset row(office.connection, u"Select * from cards where code=%1"_s.arg(1 + number++ % 5000));
        row[u"επωνυμο"].setValue(u"Νέο %1 %2"_s.arg(number).arg(state.max_iterations));
        row[u"κινητο"].setValue(u"69%1"_s.arg(number));
        row[u"ΚΕΙΜΕΝΟ2"].setValue(u"Συμφωνήθηκε νέο πρόγραμμα επισκέψεων %1"_s.arg(number));
        row[u"ΤΕΛΕΥΤΑΙΑ_ΚΙΝΗΣΗ"].setValue(u"23/11/2026"_s);
        row.update();
    }
}

// Cards like those that are there, all in one transaction, which is undone.
void addInBulk(benchmark::State& state, Office& office, int count) {
    data::Recordset models(office.connection, u"select top 1000 * from cards"_s);
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
        data::Transaction undone(office.connection);
        schema::TableWriter writer(office.connection, table, columns);
        for (int i = 0; i < count; ++i) writer.write(rows[size_t(i) % rows.size()]);
    }
}

std::unique_ptr<Office> openOffice(const QString& folder) {
    auto office = std::make_unique<Office>();
    office->label = QFileInfo(folder).fileName();
    const QString file = schema::mainDatabasePath(folder);
    schema::open(office->connection, schema::connectionString(schema::Database::Main, file));
    office->connection.execute(u"update cards set ΚΕΙΜΕΝΟ3='Το %1 έργο' where code in (17, 4711)"_s.arg(rareWord));
    office->raw = bench::rawQuery(file);
    office->statements = statementsFor(office->connection);
    return office;
}

void registerFor(Office& office) {
    const auto add = [&](const char* name, auto measure) {
        return benchmark::RegisterBenchmark((office.label.toStdString() + '/' + name).c_str(), measure)
            ->Unit(benchmark::kMillisecond);
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
