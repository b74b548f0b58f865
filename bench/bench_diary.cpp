// The diary's windows and statements on an office of 100,000 cards and 200,000 appointments, beside the engine's C
// interface. On a server when the tests' variables DORV_ENGINE and DORV_POSTGRES say so.
#include <benchmark/benchmark.h>

#include <QAbstractButton>
#include <QApplication>

#include "controls/datefield.h"
#include "controls/theme.h"
#include "demo/demo.h"
#include "diary/frmcalend.h"
#include "diary/frmligounshow.h"
#include "diary/frmtodayshow.h"
#include "diary/reminders.h"
#include "diary/reports.h"
#include "platform/printers.h"
#include "rawengine.h"
#include "schema/tablewriter.h"
#include "support/office.h"

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int cardCount = 100'000, appointmentCount = 200'000;
// A hundred on each of two thousand days, one after the other in the working hours of five users.
constexpr int perDay = 100, firstDay = -1500;
const QString user = u"maria"_s;
const QStringList users{user, u"giorgos"_s, u"eleni"_s, u"nikos"_s, u"Admin"_s};

struct Office : support::Office {
    Office() {
        demo::DemoOptions options;
        options.cards = cardCount;
        options.referenceDate = today();
        demo::fillDemo(mod.gConn, mod.gConnUsers, options);
        mod.gUserName = user;
        addAppointments();
        raw = bench::rawQuery(mainFile());
    }
    QDate today() const { return desk.clock.today(); }

    void addAppointments() {
        data::Transaction transaction(mod.gConn);
        mod.gConn.execute(u"delete from dates"_s);
        schema::TableWriter dates(mod.gConn, *schema::findTable(schema::Database::Main, u"Dates"),
                                  {"codecard", "contact", "Subject", "Location", "Day", "Start", "End", "Remind",
                                   "notes", "User", "Entoleas"});
        for (int i = 0; i < appointmentCount; ++i) {
            const int ofUser = i % perDay / int(users.size());
            const QTime start = QTime(8, 0).addSecs(ofUser * 30 * 60);
            const auto at = [&](int minutes) {
                return data::wallClock(QDate(1899, 12, 30), start.addSecs(60 * minutes));
            };
            dates.write({i * 7919 % cardCount + 1, u"Παπαδόπουλος Κωνσταντίνος"_s, u"Έλεγχος εγκατάστασης %1"_s.arg(i),
                         u"Έδρα πελάτη"_s, data::wallClock(today().addDays(firstDay + i / perDay)), at(0), at(29),
                         at(-15), u"Να φέρει τα χαρτιά. "_s.repeated(5), users[i % int(users.size())], u"Admin"_s});
        }
        transaction.commit();
        settle();
    }
    // The visits of so many cards fall due in the three hundred days before today, of the others years later or never.
    void makeDue(int cards) {
        if (std::exchange(due, cards) == cards) return;
        mod.gConn.execute(
            data::Sql(u"update cards set ΤΕΛΕΥΤΑΙΑ_ΚΙΝΗΣΗ=dateadd('yyyy',10,ΤΕΛΕΥΤΑΙΑ_ΚΙΝΗΣΗ) where code>? and "
                      "dateadd('d',ΣΥΧΝΟΤΗΤΑ_ΚΙΝΗΣΗΣ,ΤΕΛΕΥΤΑΙΑ_ΚΙΝΗΣΗ)<=?"_s,
                      cards, today()));
        mod.gConn.execute(data::Sql(
            u"update cards set ΣΥΧΝΟΤΗΤΑ_ΚΙΝΗΣΗΣ=30,ΤΕΛΕΥΤΑΙΑ_ΚΙΝΗΣΗ=dateadd('d',-31-(code mod 300),?) where code<=?"_s,
            today(), cards));
        settle();
    }
    // What a server's housekeeping would soon do by itself.
    void settle() {
        if (testengine::isPostgres()) mod.gConn.engine().script("VACUUM ANALYZE");
    }
    static Office& instance() {
        static Office office;
        return office;
    }

    bench::RawQuery raw;
    int due = -1;
};

Office& officeWith(int due) {
    Office& office = Office::instance();
    office.makeDue(due);
    return office;
}

// The statements as the windows send them.
QString dayStatement() {
    return data::Sql(u"select * from dates where day=? order by [start],[end]"_s, Office::instance().today());
}
QString monthStatement() {
    return data::Sql(u"select distinct day from dates where day between ? and ? and User=?"_s, QDate(2026, 11, 1),
                     QDate(2026, 11, 30), user);
}
QString minuteStatement() {
    return data::Sql(u"select * from dates where day=? and remind=? and user=? order by [start],[end]"_s,
                     Office::instance().today(), QTime(9, 45), user);
}
QString dueStatement() {
    return data::Sql(
        u"Select CODE,[ΕΠΩΝΥΜΟ],[ΟΝΟΜΑ],[ΕΤΑΙΡΙΑ],dateadd('d',ΣΥΧΝΟΤΗΤΑ_ΚΙΝΗΣΗΣ,ΤΕΛΕΥΤΑΙΑ_ΚΙΝΗΣΗ) as "
        "Teleytaia,[ΠΟΣΟ_ΚΙΝΗΣΗΣ],[ΣΥΧΝΟΤΗΤΑ_ΚΙΝΗΣΗΣ] from CARDS where "
        "(dateadd('d',ΣΥΧΝΟΤΗΤΑ_ΚΙΝΗΣΗΣ,ΤΕΛΕΥΤΑΙΑ_ΚΙΝΗΣΗ) between ? and ?) AND [ΣΥΧΝΟΤΗΤΑ_ΚΙΝΗΣΗΣ]<>0 ORDER BY "
        "dateadd('d',ΣΥΧΝΟΤΗΤΑ_ΚΙΝΗΣΗΣ,ΤΕΛΕΥΤΑΙΑ_ΚΙΝΗΣΗ)"_s,
        QDate(2000, 1, 1), Office::instance().today());
}

void engineAlone(benchmark::State& state, QString (*statement)()) {
    Office& office = officeWith(5000);
    const bench::RawRows rows = office.raw(bench::engineStatement(office.mod.gConn, statement()));
    qint64 count = 0;
    for (auto _ : state) count = rows();
    state.counters["rows"] = double(count);
}
void recordset(benchmark::State& state, QString (*statement)()) {
    Office& office = officeWith(5000);
    const QString sql = statement();
    for (auto _ : state) benchmark::DoNotOptimize(data::Recordset(office.mod.gConn, sql).recordCount());
}
#define STATEMENT(name)                                                                                  \
    BENCHMARK_CAPTURE(engineAlone, name, name##Statement)->Unit(benchmark::kMillisecond)->UseRealTime(); \
    BENCHMARK_CAPTURE(recordset, name, name##Statement)->Unit(benchmark::kMillisecond)->UseRealTime()
STATEMENT(day);
STATEMENT(month);
STATEMENT(minute);
STATEMENT(due);
#undef STATEMENT

// A timer of the diary's: nothing may be due, or some appointment, and nobody is to notice.
void minuteCheck(benchmark::State& state) {
    Office& office = Office::instance();
    QSet<QString> given;
    diary::Reminders reminders(given);
    QDateTime now(office.today(), QTime(8, 0), Qt::UTC);
    qint64 found = 0;
    for (auto _ : state) {
        reminders.missed(office.mod.gConn, user, now);
        found += reminders.due(office.mod.gConn, user, now).size();
        reminders.checked(now);
        now = now.addSecs(60);
    }
    state.counters["found"] = double(found);
}
BENCHMARK(minuteCheck)->Unit(benchmark::kMillisecond)->UseRealTime();

struct Calendar {
    explicit Calendar(const QString& whose) : form(Office::instance().mod, [](const auto&, QWidget*) {}) {
        form.resize(1200, 800);
        form.load();
        form.show();
        auto* box = form.findChild<controls::ChoiceBox*>(u"Combo1"_s);
        box->setCurrentText(whose);
        emit box->activated(box->currentIndex());
        QApplication::processEvents();
    }
    diary::frmCalend form;
};

void anotherDay(benchmark::State& state, const QString& whose) {
    Calendar calendar(whose);
    int turn = 0;
    for (auto _ : state) {
        calendar.form.ShowDay(Office::instance().today().addDays(++turn % 400));
        QApplication::processEvents();
    }
    state.counters["rows"] = calendar.form.findChild<controls::ListView*>(u"ListView1"_s)->count();
}
BENCHMARK_CAPTURE(anotherDay, one, user)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(anotherDay, everybody, QString())->Unit(benchmark::kMillisecond)->UseRealTime();

void anotherMonth(benchmark::State& state, const QString& whose) {
    Calendar calendar(whose);
    auto* back = calendar.form.findChild<QAbstractButton*>(u"cmdPrevious"_s);
    auto* on = calendar.form.findChild<QAbstractButton*>(u"cmdNext"_s);
    int turn = 0;
    for (auto _ : state) {
        (turn++ / 12 % 2 ? on : back)->click();
        QApplication::processEvents();
    }
}
BENCHMARK_CAPTURE(anotherMonth, one, user)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(anotherMonth, everybody, QString())->Unit(benchmark::kMillisecond)->UseRealTime();

// Until its lists have their first rows on screen.
void openTodayShow(benchmark::State& state) {
    Office& office = officeWith(int(state.range(0)));
    int rows = 0;
    for (auto _ : state) {
        diary::frmTodayShow today(office.mod);
        today.load();
        today.show();
        QApplication::processEvents();
        rows = today.findChild<controls::ListView*>(u"ListView3"_s)->count();
    }
    state.counters["rows"] = rows;
}
BENCHMARK(openTodayShow)->Arg(5000)->Arg(50'000)->Unit(benchmark::kMillisecond)->UseRealTime();

// All pieces of that list one after the other, without a window.
void readDue(benchmark::State& state) {
    Office& office = officeWith(int(state.range(0)));
    qint64 rows = 0;
    for (auto _ : state) rows = diary::dueCards(office.mod.gConn, QDate(2000, 1, 1), office.today(), true).rows.size();
    state.counters["rows"] = double(rows);
}
BENCHMARK(readDue)->Arg(50'000)->Unit(benchmark::kMillisecond)->UseRealTime();

void fillLigounShow(benchmark::State& state) {
    Office& office = officeWith(int(state.range(0)));
    diary::frmLigounShow list(office.mod);
    list.load();
    list.show();
    list.findChild<controls::DateBox*>(u"txtFrom"_s)->setDate(QDate(2000, 1, 1));
    list.findChild<controls::DateBox*>(u"txtTo"_s)->setDate(office.today());
    for (auto _ : state) {
        list.FillList();
        QApplication::processEvents();
    }
    state.counters["rows"] = list.findChild<controls::ListView*>(u"ListView1"_s)->count();
}
BENCHMARK(fillLigounShow)->Arg(5000)->Unit(benchmark::kMillisecond)->UseRealTime();

void appointmentsAsPdf(benchmark::State& state) {
    Office& office = Office::instance();
    QTemporaryDir folder;
    const int days = int(state.range(0)) * int(users.size()) / perDay;
    for (auto _ : state) {
        const core::Report report = diary::datesReport(office.mod, office.today(), office.today().addDays(days - 1));
        platform::Printer printer({}, {}, [](const QString& name) { return controls::font(name, 10); });
        core::drawReport(printer, report, {});
        const auto document = printer.endDoc();
        platform::SystemPrinters().writePdf(*document, folder.filePath(u"report.pdf"_s), {});
        state.counters["rows"] = double(report.rows.size());
        state.counters["pages"] = document->pageCount();
    }
}
BENCHMARK(appointmentsAsPdf)->Arg(2000)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    controls::applyTheme(app, controls::ThemeKind::Light);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
