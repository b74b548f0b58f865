// The card window and the office's own statements on a demonstration office of 100,000 cards, beside the engine's C
// interface.
#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <QApplication>
#include <QTemporaryDir>

#include "cards/frmaddress.h"
#include "controls/theme.h"
#include "data/sqlite/sqliteengine.h"
#include "schema/demo.h"
#include "schema/office.h"
#include "support/services.h"

namespace {

constexpr int cardCount = 100'000;

const QString navigationSql = QStringLiteral("select code,OutlookEntryID from cards order by ΕΠΩΝΥΜΟ");
const QString nineColumnsSql = QStringLiteral(
    "select επωνυμο,ονομα,εταιρια,διευθυνση,πολη,τηλεφωνο1,ΚΙΝΗΤΟ,email,επαγγελμα from cards order by επωνυμο");

struct Office {
    Office() {
        const QString folder = directory.filePath(QStringLiteral("office"));
        schema::createOffice(folder, {QStringLiteral("admin"), QStringLiteral(DORV_REFERENCE)});
        using schema::Database;
        schema::open(mod.gConn, schema::connectionString(Database::Main, schema::mainDatabasePath(folder)));
        schema::open(mod.gConnUsers, schema::connectionString(Database::Users, schema::usersDatabasePath(folder)));
        schema::DemoOptions options;
        options.cards = cardCount;
        options.referenceDate = desk.clock.today();
        schema::fillDemo(mod.gConn, mod.gConnUsers, options);
    }
    static Office& instance() {
        static Office office;
        return office;
    }
    sqlite3* handle() { return static_cast<data::SqliteEngine&>(mod.gConn.engine()).handle(); }

    QTemporaryDir directory;
    support::Desk desk;
    core::MainMod mod{desk.services};
};

// Every cell of a statement copied once, by the engine alone.
void engineAlone(benchmark::State& state, const QString& statement) {
    Office& office = Office::instance();
    const QByteArray sql = office.mod.gConn.translate(statement)->sql;
    for (auto _ : state) {
        sqlite3_stmt* rows = nullptr;
        sqlite3_prepare_v2(office.handle(), sql.constData(), -1, &rows, nullptr);
        std::string copy;
        while (sqlite3_step(rows) == SQLITE_ROW)
            for (int i = 0; i < sqlite3_column_count(rows); ++i)
                if (const auto* text = sqlite3_column_text(rows, i))
                    copy.append(reinterpret_cast<const char*>(text), sqlite3_column_bytes(rows, i));
        sqlite3_finalize(rows);
        benchmark::DoNotOptimize(copy.data());
    }
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
        data::Recordset row(office.mod.gConn, QStringLiteral("Select * from cards where code=%1").arg(1 + number++));
        row[u"επωνυμο"].setValue(QStringLiteral("Νέο %1").arg(number));
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
