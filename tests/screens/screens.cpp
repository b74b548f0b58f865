// Renders the windows of a demonstration office into a folder, light and dark: dorv_screens FOLDER
#include <QMdiArea>
#include <QTabWidget>

#include "cards/frmaddress.h"
#include "cards/frmfind.h"
#include "cards/frmhistory.h"
#include "cards/historyreport.h"
#include "controls/theme.h"
#include "copies/upgradecopy.h"
#include "core/printpreview.h"
#include "core/printsettings.h"
#include "core/workprogress.h"
#include "demo/demo.h"
#include "schema/creation.h"
#include "schema/office.h"
#include "support/windowwalk.h"

using namespace Qt::Literals::StringLiterals;

namespace {

struct Studio {
    Studio() {
        const QString office = directory.filePath("office");
        schema::createOffice(office, {u"admin"_s, QString::fromUtf8(DORV_REFERENCE)});
        using schema::Database;
        copies::openUpgraded(mod.gConn, schema::connectionString(Database::Main, schema::mainDatabasePath(office)));
        copies::openUpgraded(mod.gConnUsers,
                             schema::connectionString(Database::Users, schema::usersDatabasePath(office)));
        demo::DemoOptions options;
        options.cards = 1000;
        options.referenceDate = desk.clock.today();
        demo::fillDemo(mod.gConn, mod.gConnUsers, options);
        mod.gUserName = u"Admin"_s;
        mod.gUserGroup = core::groupAdministrators;
        const std::pair<const char*, const char*> owner[] = {{"Name", "Γραφείο Επίδειξης"},
                                                             {"Address", "Ερμού 12, Αθήνα"},
                                                             {"Phone", "210 1234567"},
                                                             {"Email", "info@example.gr"},
                                                             {"UserName", "Admin"}};
        for (const auto& [key, value] : owner) desk.settings.setValue("Settings", key, value);
        // They would lie over what is to be seen.
        for (const char* start : {"frmTodayShowStart", "frmNameDayStart"}) desk.settings.setNumber("Options", start, 0);
    }

    QTemporaryDir directory;
    support::Desk desk;
    core::MainMod mod{desk.services};
};

class Album {
public:
    Album(QString folder, QString suffix) : folder_(std::move(folder)), suffix_(std::move(suffix)) {}
    void take(QWidget& window, const QString& name) const {
        window.show();
        for (int i = 0; i < 5; ++i) QApplication::processEvents(QEventLoop::AllEvents, 20);
        const QString file = u"%1/%2-%3.png"_s.arg(folder_, name, suffix_);
        if (!window.grab().save(file)) qFatal("%s can't be written", qUtf8Printable(file));
    }

private:
    QString folder_, suffix_;
};

// Every window as it opens.
void shootAll(Studio& studio, const Album& album) {
    support::WindowWalk walk(studio.mod);
    walk.each([&album](const QString& name, QWidget& window) { album.take(window, name); });
}

// What a window shows only after something was done in it.
void shootPanels(Studio& studio, const Album& album) {
    entry::MDIMain window(studio.mod);
    window.load();
    window.show();
    const std::tuple<QString, QString, QString> shots[] = {{u"frmCombos"_s, u"mnuNewTimh"_s, u"lists-edit"_s},
                                                           {u"frmUsers"_s, u"mnuEditUser"_s, u"users-edit"_s}};
    for (const auto& [form, command, name] : shots) {
        QWidget& shown = *window.windows().front(form);
        shown.findChild<QAction*>(command)->trigger();
        album.take(shown, name);
        studio.desk.prompts.answer(true);
    }
}

void shootCardDialogs(Studio& studio, const Album& album) {
    cards::frmHistory movement(studio.mod, nullptr, [](qint64) {});
    movement.EditMode = true;
    movement.MovementId = 1;
    movement.load();
    album.take(movement, "movement");
}

void shootCards(Studio& studio, const Album& album) {
    entry::MDIMain window(studio.mod);
    window.load();
    window.show();
    window.menu("mnuCards")->trigger();
    auto* card = qobject_cast<cards::frmAddress*>(window.windows().find("frmAddress"));
    data::Recordset withPhoto(
        studio.mod.gConn,
        u"select top 1 code from cards where Photo is not null and code in (select "
        "codecard from dates) and code in (select codecards from history) order by επωνυμο desc"_s);
    if (!withPhoto.isEmpty()) card->GoToRec(withPhoto[u"code"].toDouble());
    window.findChild<controls::DateBox*>("txtFrom")->setDate(QDate(2020, 1, 1));
    window.findChild<QAbstractButton*>("cmdShow")->click();
    auto* tabs = window.findChild<QTabWidget*>("TabStrip1");
    const std::pair<const char*, QString> shots[] = {
        {"card-basic", "Βασικά Στοιχεία"},   {"card-special", "Ειδικά Στοιχεία"}, {"card-notes", "Σημειώσεις"},
        {"card-texts", "Κείμενα"},           {"card-history", "Ιστορικό"},        {"card-links", "Συνδέσεις"},
        {"card-appointments", "Συναντήσεις"}};
    for (const auto& [name, caption] : shots) {
        for (int i = 0; i < tabs->count(); ++i)
            if (tabs->tabText(i) == caption) tabs->setCurrentIndex(i);
        album.take(window, name);
    }
    tabs->setCurrentIndex(0);
    shootCardDialogs(studio, album);
    cards::frmFind find(studio.mod, nullptr, [](const cards::FoundCard&) {});
    find.search(u"ΠΑΠΑ"_s);
    album.take(find, "find");
    window.findChild<QAbstractButton*>("lblClick(6)")->click();
    album.take(window, "card-edit");
}

// The preview that a command opens, which is modal.
void shootPreview(const Album& album, const QString& name, const std::function<void()>& command) {
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] {
        auto* preview = qobject_cast<core::PrintPreview*>(QApplication::activeModalWidget());
        if (!preview) return;
        timer.stop();
        album.take(*preview, name);
        preview->reject();
    });
    timer.start(10);
    command();
}

void shootPrints(Studio& studio, const Album& album) {
    core::setPreviewsPrints(studio.desk.settings, true);
    entry::MDIMain window(studio.mod);
    window.load();
    window.show();
    window.menu("mnuCards")->trigger();
    auto* card = qobject_cast<cards::frmAddress*>(window.windows().find("frmAddress"));
    data::Recordset shown(studio.mod.gConn, u"select top 1 code from cards where Photo is not null order by επωνυμο"_s);
    if (!shown.isEmpty()) card->goTo(shown[u"code"].toLong());
    shootPreview(album, "print-card", [&] { window.findChild<QAbstractButton*>("lblClick(12)")->click(); });
    shootPreview(album, "print-report",
                 [&] { cards::dtpHistory(studio.mod, &window, card->CurrentCode.toLongLong()); });
    window.menu("MnuΗμερολόγιο")->trigger();
    QWidget& journal = *window.windows().find("frmHmerologio");
    shootPreview(album, "print-list", [&] { journal.findChild<QAbstractButton*>("lblClick(1)")->click(); });
    core::WorkProgress progress(&window, u"Σχεδίαση σελίδων: Ημερολόγιο Κινήσεων"_s);
    while (!QApplication::activeModalWidget()) progress.step(340, 1000);
    progress.step(340, 1000);
    album.take(*QApplication::activeModalWidget(), "print-progress");
}

}  // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    if (argc < 2 || !QDir().mkpath(argv[1])) qFatal("usage: dorv_screens FOLDER [SUFFIX]");
    const QString suffix = argc > 2 ? QString::fromLocal8Bit(argv[2]) : QString();
    Studio studio;
    for (const auto& [kind, name] :
         {std::pair(controls::ThemeKind::Light, "light"), std::pair(controls::ThemeKind::Dark, "dark")}) {
        controls::applyTheme(app, kind);
        const Album album(QString::fromLocal8Bit(argv[1]), name + suffix);
        shootAll(studio, album);
        shootCards(studio, album);
        shootPanels(studio, album);
        shootPrints(studio, album);
    }
    return 0;
}
