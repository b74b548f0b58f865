// The card window and the office's own statements on a demonstration office of 100,000 cards, beside the engine's C
// interface.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QTemporaryDir>

#include "cards/frmaddress.h"
#include "cards/frmfind.h"
#include "cards/frmhmerologio.h"
#include "controls/theme.h"
#include "copies/upgradecopy.h"
#include "copyrows.h"
#include "data/sqlite/sqliteengine.h"
#include "data/values/format.h"
#include "demo/demo.h"
#include "rawengine.h"
#include "schema/creation.h"
#include "schema/office.h"
#include "schema/tablewriter.h"
#include "support/services.h"

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int cardCount = 100'000;
// The card whose ledger is long, and the month in which everybody pays.
constexpr int busyCard = 50'000, busyCardMovements = 10'000;
constexpr int busyMonthMovements = 50'000;
const QDate busyMonth(2015, 3, 1);

const QString ledgerSql =
    u"Select aa,ΗΜΕΡΟΜΗΝΙΑ,ΑΙΤΙΟΛΟΓΙΑ,ΧΡΕΩΣΗ,ΠΙΣΤΩΣΗ from History where codecards=50000 order by ημερομηνια,aa"_s;
const QString journalSql = cards::journalStatement({busyMonth, busyMonth, {}, {}}, busyMonth, busyMonth.addDays(30));

const QString navigationSql = u"select code,OutlookEntryID from cards order by ΕΠΩΝΥΜΟ"_s;
const QString nineColumnsSql =
    u"select επωνυμο,ονομα,εταιρια,διευθυνση,πολη,τηλεφωνο1,ΚΙΝΗΤΟ,email,επαγγελμα from cards order by επωνυμο"_s;

struct Office {
    Office() {
        const QString folder = directory.filePath(u"office"_s);
        schema::createOffice(folder, {u"admin"_s, QString::fromUtf8(DORV_REFERENCE)});
        using schema::Database;
        copies::openUpgraded(mod.gConn, schema::connectionString(Database::Main, schema::mainDatabasePath(folder)));
        copies::openUpgraded(mod.gConnUsers,
                             schema::connectionString(Database::Users, schema::usersDatabasePath(folder)));
        demo::DemoOptions options;
        options.cards = cardCount;
        options.referenceDate = desk.clock.today();
        demo::fillDemo(mod.gConn, mod.gConnUsers, options);
        addMovements();
    }
    void addMovements() {
        data::Transaction transaction(mod.gConn);
        schema::TableWriter movements(mod.gConn, *schema::findTable(schema::Database::Main, u"History"),
                                      {"codecards", "ΗΜΕΡΟΜΗΝΙΑ", "ΑΙΤΙΟΛΟΓΙΑ", "ΧΡΕΩΣΗ", "ΠΙΣΤΩΣΗ"});
        const auto write = [&](int card, QDate day, int number) {
            movements.write({card, data::wallClock(day), u"Τιμολόγιο Νο %1"_s.arg(number), 12.34, 0.1});
        };
        for (int i = 0; i < busyCardMovements; ++i) write(busyCard, QDate(2016, 1, 1).addDays(i / 3), i);
        // Any card may come, in the order of the days.
        for (int i = 0; i < busyMonthMovements; ++i)
            write(i * 7919 % cardCount + 1, busyMonth.addDays(i * 31 / busyMonthMovements), i);
        transaction.commit();
    }
    static Office& instance() {
        static Office office;
        return office;
    }
    sqlite3* handle() { return static_cast<data::sqlite::SqliteEngine&>(mod.gConn.engine()).handle(); }

    QTemporaryDir directory;
    support::Desk desk;
    core::MainMod mod{desk.services};
};

void engineAlone(benchmark::State& state, const QString& statement) {
    Office& office = Office::instance();
    const QByteArray sql = bench::engineStatement(office.mod.gConn, statement);
    const auto rows = bench::prepareRows(office.handle(), sql);
    for (auto _ : state) benchmark::DoNotOptimize(bench::copyRows(rows.get()));
}

void recordset(benchmark::State& state, const QString& statement) {
    Office& office = Office::instance();
    for (auto _ : state) {
        data::Recordset rows(office.mod.gConn, statement);
        benchmark::DoNotOptimize(rows.recordCount());
    }
}

BENCHMARK_CAPTURE(engineAlone, nineColumns, nineColumnsSql)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(recordset, nineColumns, nineColumnsSql)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(engineAlone, navigationSet, navigationSql)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(recordset, navigationSet, navigationSql)->Unit(benchmark::kMillisecond);

// The card at every thousandth place, as a list's double click asks for it.
void showCard(benchmark::State& state) {
    Office& office = Office::instance();
    cards::frmAddress card(office.mod);
    card.load();
    card.show();
    qint64 code = 0;
    for (auto _ : state) {
        code = code % cardCount + 997;
        card.CurrentCode = QString::number(code % cardCount + 1);
        card.ShowCard(true);
        QApplication::processEvents();
    }
}
BENCHMARK(showCard)->Unit(benchmark::kMillisecond);

BENCHMARK_CAPTURE(engineAlone, ledger, ledgerSql)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(engineAlone, journal, journalSql)->Unit(benchmark::kMillisecond);

// The card with the long ledger, all of it in the period, on screen.
void showLongLedger(benchmark::State& state) {
    Office& office = Office::instance();
    cards::frmAddress card(office.mod);
    card.load();
    card.show();
    card.findChild<controls::DateBox*>("txtFrom")->setDate(QDate(2000, 1, 1));
    auto* tabs = card.findChild<QTabWidget*>("TabStrip1");
    tabs->setCurrentIndex(2);
    for (auto _ : state) {
        card.CurrentCode = QString::number(busyCard);
        card.ShowCard(true);
        QApplication::processEvents();
    }
    state.counters["rows"] = card.findChild<controls::ListView*>("ListView1")->count();
}
BENCHMARK(showLongLedger)->Unit(benchmark::kMillisecond);

// The busy month on screen; `longest_ms` is the longest time for which the window answered nothing.
void showJournal(benchmark::State& state, const char16_t* reason) {
    Office& office = Office::instance();
    cards::frmHmerologio journal(office.mod, [](qint64) {});
    journal.load();
    journal.show();
    journal.findChild<controls::DateBox*>("txtFrom")->setDate(busyMonth);
    journal.findChild<controls::DateBox*>("txtTo")->setDate(busyMonth.addDays(30));
    journal.findChild<controls::TextBox*>("txtAitia")->setText(QString::fromUtf16(reason));
    qint64 longest = 0;
    QElapsedTimer turn;
    for (auto _ : state) {
        turn.start();
        journal.FillList();
        longest = std::max(longest, turn.restart());
        while (journal.isReading()) {
            QApplication::processEvents();
            longest = std::max(longest, turn.restart());
        }
        QApplication::processEvents();
        longest = std::max(longest, turn.elapsed());
    }
    state.counters["rows"] = journal.findChild<controls::ListView*>("ListView1")->count();
    state.counters["longest_ms"] = double(longest);
}
BENCHMARK_CAPTURE(showJournal, month, u"")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(showJournal, rareWord, u"4999")->Unit(benchmark::kMillisecond);

// Ten years of everybody's movements through the reader, as the journal's window reads them; `pieces` is how often the
// window was free between. Beside it the same rows as one statement.
cards::JournalFilter tenYears(const char16_t* reason) {
    const QDate today = Office::instance().desk.clock.today();
    return {today.addYears(-10), today, QString::fromUtf16(reason), {}};
}
void readTenYears(benchmark::State& state, const char16_t* reason) {
    Office& office = Office::instance();
    const cards::JournalFilter filter = tenYears(reason);
    qint64 rows = 0, pieces = 0;
    for (auto _ : state) {
        cards::JournalReader reader(office.mod.gConn, filter);
        for (pieces = 1; reader.step();) ++pieces;
        rows = reader.takeRows().size();
    }
    state.counters["rows"] = double(rows);
    state.counters["pieces"] = double(pieces);
}
void tenYearsAlone(benchmark::State& state, const char16_t* reason) {
    const cards::JournalFilter filter = tenYears(reason);
    engineAlone(state, cards::journalStatement(filter, filter.from, filter.to));
}
#define TEN_YEARS(name, reason)                                                    \
    BENCHMARK_CAPTURE(tenYearsAlone, name, reason)->Unit(benchmark::kMillisecond); \
    BENCHMARK_CAPTURE(readTenYears, name, reason)->Unit(benchmark::kMillisecond)
TEN_YEARS(all, u"");
TEN_YEARS(someThousandFinds, u"Ε-6");
TEN_YEARS(commonWord, u"τιμολόγιο");
#undef TEN_YEARS

// Text typed, Enter pressed, the finds on screen.
void searchWindow(benchmark::State& state, const QString& text) {
    Office& office = Office::instance();
    cards::frmFind find(office.mod, nullptr, [](const cards::FoundCard&) {});
    find.show();
    for (auto _ : state) {
        find.search(text);
        QApplication::processEvents();
    }
    state.counters["rows"] = find.findChild<controls::ListView*>(u"ListView1"_s)->count();
}
BENCHMARK_CAPTURE(searchWindow, surname, u"παπαδοπ"_s)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(searchWindow, number, u"+30 6941"_s)->Unit(benchmark::kMillisecond);

// Window made, key set read, first card shown.
void openCardWindow(benchmark::State& state) {
    Office& office = Office::instance();
    for (auto _ : state) {
        cards::frmAddress card(office.mod);
        card.load();
        card.show();
        QApplication::processEvents();
    }
}
BENCHMARK(openCardWindow)->Unit(benchmark::kMillisecond);

void saveCard(benchmark::State& state) {
    Office& office = Office::instance();
    int number = 0;
    for (auto _ : state) {
        data::Recordset row(office.mod.gConn, u"Select * from cards where code=%1"_s.arg(1 + number++));
        row[u"επωνυμο"].setValue(u"Νέο %1"_s.arg(number));
        row.update();
    }
}
BENCHMARK(saveCard)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    controls::applyTheme(app, controls::ThemeKind::Light);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
