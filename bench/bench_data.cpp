// The data road against the same work done straight on the engine's C interface.
#include <benchmark/benchmark.h>

#include <QRandomGenerator>
#include <QTemporaryDir>

#include "copyrows.h"
#include "data/opening/fileidentity.h"
#include "data/recordset.h"
#include "data/sqlite/sqlitedialect.h"
#include "data/sqlite/sqliteengine.h"
#include "data/values/fold.h"

using namespace Qt::Literals::StringLiterals;

using namespace data;

namespace {

constexpr int cards = 100'000;

const QString listSql =
    u"select επωνυμο,ονομα,εταιρια,διευθυνση,πολη,τηλεφωνο1,ΚΙΝΗΤΟ,email,επαγγελμα from Cards order by επωνυμο"_s;

TableInfo cardsTable() {
    TableInfo table;
    table.name = u"Cards"_s;
    table.columns.append({u"code"_s, ColumnType::Autonumber, 0});
    for (const char* name :
         {"επωνυμο", "ονομα", "εταιρια", "διευθυνση", "πολη", "τηλεφωνο1", "ΚΙΝΗΤΟ", "email", "επαγγελμα"})
        table.columns.append({QString::fromUtf8(name), ColumnType::Text, 40});
    table.autonumber = 0;
    return table;
}

// A Greek word of some length, the same for the same generator.
QString word(QRandomGenerator& random) {
    static const QString letters = u"αβγδεζηθικλμνξοπρστυφχψωάέήίόύώΑΒΓΔΕ"_s;
    QString result;
    for (int left = 5 + int(random.bounded(9)); left > 0; --left)
        result += letters[random.bounded(int(letters.size()))];
    return result;
}

// An office of 100,000 cards, made once for all measurements.
class Office {
public:
    static Office& instance() {
        static Office office;
        return office;
    }
    Connection& connection() { return connection_; }
    sqlite::sqlite3* handle() { return static_cast<sqlite::SqliteEngine&>(connection_.engine()).handle(); }

private:
    Office() {
        const QString file = folder_.filePath(u"dorvalist.mdb"_s);
        sqlite::createSqliteFile(file, mainApplicationId);
        connection_.open(u"data source="_s + file);
        Engine& engine = connection_.engine();
        const TableInfo table = cardsTable();
        engine.script(engine.dialect().createTable(table, u"code"_s));
        engine.script(engine.dialect().createIndex(u"CardsBySurname"_s, table, {u"επωνυμο"_s}));
        QRandomGenerator random(1);
        Transaction transaction(connection_);
        for (int i = 0; i < cards; ++i) {
            QVector<QVariant> values;
            for (int column = 0; column < 9; ++column) values.append(word(random));
            engine.execute(
                "INSERT INTO Cards (\"επωνυμο\",\"ονομα\",\"εταιρια\",\"διευθυνση\",\"πολη\",\"τηλεφωνο1\",\"ΚΙΝΗΤΟ\","
                "email,\"επαγγελμα\") VALUES (?1,?2,?3,?4,?5,?6,?7,?8,?9)",
                values);
        }
        transaction.commit();
        connection_.reloadCatalog();
    }

    QTemporaryDir folder_;
    Connection connection_;
};

void rawRead(benchmark::State& state) {
    Office& office = Office::instance();
    const QByteArray dialect::sql = office.connection().translate(listSql)->dialect::sql;
    const auto rows = bench::prepareRows(office.handle(), dialect::sql);
    for (auto _ : state) benchmark::DoNotOptimize(bench::copyRows(rows.get()));
}
BENCHMARK(rawRead)->Unit(benchmark::kMillisecond);

void recordsetRead(benchmark::State& state) {
    Connection& connection = Office::instance().connection();
    for (auto _ : state) {
        Recordset rows(connection, listSql);
        benchmark::DoNotOptimize(rows.recordCount());
    }
}
BENCHMARK(recordsetRead)->Unit(benchmark::kMillisecond);

// With every value asked for as text, as a list does.
void recordsetReadAndShow(benchmark::State& state) {
    Connection& connection = Office::instance().connection();
    for (auto _ : state) {
        qsizetype characters = 0;
        for (Recordset rows(connection, listSql); !rows.eof(); rows.moveNext())
            for (int i = 0; i < 9; ++i) characters += rows.field(i).text().size();
        benchmark::DoNotOptimize(characters);
    }
}
BENCHMARK(recordsetReadAndShow)->Unit(benchmark::kMillisecond);

void translateCached(benchmark::State& state) {
    Connection& connection = Office::instance().connection();
    for (auto _ : state) benchmark::DoNotOptimize(connection.translate(listSql));
}
BENCHMARK(translateCached);

void translateNew(benchmark::State& state) {
    Connection& connection = Office::instance().connection();
    int number = 0;
    for (auto _ : state) {
        const QString dialect::sql = u"select * from Cards where code=%1 and επωνυμο like 'Παπ%'"_s.arg(++number);
        benchmark::DoNotOptimize(connection.translate(dialect::sql));
    }
}
BENCHMARK(translateNew)->Unit(benchmark::kMicrosecond);

void findCode(benchmark::State& state) {
    Recordset rows(Office::instance().connection(), u"select code from Cards"_s);
    for (auto _ : state) {
        rows.moveFirst();
        rows.find(u"code=%1"_s.arg(cards));
        if (rows.eof()) state.SkipWithError("not found");
    }
}
BENCHMARK(findCode)->Unit(benchmark::kMicrosecond);

void findText(benchmark::State& state) {
    Recordset rows(Office::instance().connection(), u"select επωνυμο from Cards"_s);
    for (auto _ : state) {
        rows.moveFirst();
        rows.find(u"επωνυμο='Κανένας'"_s);
    }
}
BENCHMARK(findText)->Unit(benchmark::kMicrosecond);

// One card opened, changed and saved, with its commit on the disk.
void openAndUpdate(benchmark::State& state) {
    Connection& connection = Office::instance().connection();
    int number = 0;
    for (auto _ : state) {
        Recordset rows(connection, u"select * from Cards where code=%1"_s.arg(1 + number++ % cards));
        rows[u"ονομα"].setValue(QString::number(number));
        rows.update();
    }
}
BENCHMARK(openAndUpdate)->Unit(benchmark::kMicrosecond);

void foldText(benchmark::State& state, const QString& pattern) {
    const QString text = pattern.repeated(1000 / pattern.size());
    const QByteArray utf8 = text.toUtf8();
    QByteArray room(utf8.size() * 3 / 2, Qt::Uninitialized);
    for (auto _ : state) benchmark::DoNotOptimize(foldUtf8Into(utf8.constData(), utf8.size(), room.data()));
    state.counters["time/char"] = benchmark::Counter(
        double(text.size()), benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}
BENCHMARK_CAPTURE(foldText, greek, u"Παπαδόπουλος Γεώργιος "_s);
BENCHMARK_CAPTURE(foldText, ascii, u"Papadopoulos Georgios "_s);
BENCHMARK_CAPTURE(foldText, han, u"漢字"_s);

}  // namespace

BENCHMARK_MAIN();
