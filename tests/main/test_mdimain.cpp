#include <QMdiArea>
#include <QMenuBar>
#include <QSignalSpy>

#include "controls/theme.h"
#include "core/printsettings.h"
#include "main/mdimain.h"
#include "support/cases.h"
#include "support/driver.h"
#include "support/office.h"
#include "support/windowwalk.h"

using entry::MDIMain;

namespace {

struct Site : support::Office {
    explicit Site(int group = core::groupAdministrators) {
        mod.gUserGroup = group;
        desk.settings.setValue("Settings", "Name", "Γραφείο");
    }
    std::unique_ptr<MDIMain> open() {
        auto window = std::make_unique<MDIMain>(mod);
        window->load();
        window->show();
        return window;
    }
};

QStringList visible(const MDIMain& window) {
    QStringList names;
    for (const entry::MenuDef& def : entry::menuDefs())
        if (window.menu(def.name)->isVisible() && def.caption != "-") names << def.name;
    return names;
}

}  // namespace

class TestMDIMain : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { controls::applyTheme(*qApp, controls::ThemeKind::Light); }

    void captionAndStatusBar() {
        Site site;
        const auto window = site.open();
        QCOMPARE(window->windowTitle(), "Velmarine Dorvalist Ver. " + core::programVersion());
        QVERIFY(!window->windowIcon().isNull());
        QCOMPARE(window->statusPanel(1)->text(), "05/11/2026");
        QCOMPARE(window->statusPanel(2)->text(), "10:30");
        QCOMPARE(window->statusPanel(5)->text(), "Χρήστης: Admin");
    }

    void theWayOutStandsAtTheRightEnd() {
        Site site;
        const auto window = site.open();
        QApplication::processEvents();
        const auto place = [&](const char* name) { return window->menuBar()->actionGeometry(window->menu(name)); };
        QVERIFY(place("mnuExit").right() > window->menuBar()->width() - 40);
        QVERIFY(place("mnuLogOff").right() + 100 < place("mnuExit").left());
    }

    void everyWindowHasAnIconOfItsOwn() {
        Site site;
        support::WindowWalk walk(site.mod);
        QHash<QByteArray, QString> known;
        walk.each([&known](const QString& name, QWidget& window) {
            const QImage image = window.windowIcon().pixmap(32).toImage();
            const QByteArray bytes(reinterpret_cast<const char*>(image.constBits()), image.sizeInBytes());
            // The logon stands for the program itself.
            if (name != "frmLogon" && known.contains(bytes))
                QTest::qFail(qPrintable(name + " has the icon of " + known[bytes]), __FILE__, __LINE__);
            known.insert(bytes, name);
        });
    }

    void thePreviewComesBackFromTheMenu() {
        Site site;
        core::setPreviewsPrints(site.desk.settings, true);
        const auto window = site.open();
        QAction* entry = window->menu("mnuPreview");
        QVERIFY(entry->isVisible() && entry->isChecked());
        core::setPreviewsPrints(site.desk.settings, false);  // as its check box does
        emit window->menu("mnuView")->menu()->aboutToShow();
        QVERIFY(!entry->isChecked());
        entry->trigger();
        QVERIFY(core::previewsPrints(site.desk.settings));
    }

    void rightsDecideTheSettingsMenu() {
        for (int group : {1, 2, 3}) {
            Site site(group);
            const auto window = site.open();
            QCOMPARE(window->menu("mnuOptions")->isVisible(), group == 1);
            QVERIFY(window->menu("mnuLogOff")->isVisible());
        }
    }

    // Nothing that can be pressed does nothing.
    void everyVisibleEntryLeadsSomewhere() {
        Site site;
        const auto window = site.open();
        const QStringList names = visible(*window);
        QVERIFY(names.contains("mnuCards") && names.contains("mnuOwner") && names.contains("MnuCat(2)"));
        for (const entry::MenuDef& def : entry::menuDefs())
            if (names.contains(def.name) && !def.form.isEmpty() && def.form != "frmOwner")
                QVERIFY2(window->windows().knows(def.form), qPrintable(def.name));
        QVERIFY(names.contains("mnuCalendar") && !names.contains("mnuUtilies"));
    }

    void theDaysWindowsOpenAtStartUnlessSwitchedOff() {
        Site site;
        const auto opened = [&site] {
            const auto window = site.open();
            for (int i = 0; i < 5; ++i) QApplication::processEvents();
            return window->windows().shown();
        };
        QCOMPARE(opened(), (QStringList{"frmTodayShow", "frmNameDay"}));
        site.desk.settings.setNumber("Options", "frmTodayShowStart", 0);
        QCOMPARE(opened(), QStringList("frmNameDay"));
        site.desk.settings.setNumber("Options", "frmNameDayStart", 0);
        QCOMPARE(opened(), QStringList());
    }

    void theNounNamesTheMenus() {
        struct Case {
            int category;
            const char *address, *cards, *checked;  // "" when none of the entries is
        };
        const Case cases[] = {{1, "Επαφές", "Καρτέλα Επαφών", "MnuCat(1)"},
                              {2, "Πελάτες", "Καρτέλα Πελατών", "MnuCat(2)"},
                              {3, "Μέλη", "Καρτέλα Μελών", "MnuCat(3)"},
                              {4, "Ασθενείς", "Καρτέλα Ασθενών", ""},
                              {9, "01", "0101", ""}};
        Site site;
        const auto state = [](const MDIMain& window) {
            QStringList checked;
            for (const char* entry : {"MnuCat(1)", "MnuCat(2)", "MnuCat(3)"})
                if (window.menu(entry)->isChecked()) checked << entry;
            return QStringList{window.menu("mnuAddress")->text(), window.menu("mnuCards")->text(), checked.join('+')};
        };
        for (const Case& c : cases) {
            const support::InCase in(c.address);
            const QStringList expected{c.address, c.cards, c.checked};
            site.desk.settings.setNumber("Settings", "Category", c.category);
            const auto window = site.open();
            QCOMPARE(state(*window), expected);
            QCOMPARE(window->menu("mnu")->isVisible(), c.category != 4);  // patients keep their noun
            if (c.category > 3) continue;
            // Chosen one after the other, with a card open.
            window->menu("mnuCards")->trigger();
            for (const Case& other : cases) {
                if (other.category > 3) continue;
                window->menu(other.checked)->trigger();
                QCOMPARE(state(*window), QStringList({other.address, other.cards, other.checked}));
                QCOMPARE(site.desk.settings.number("Settings", "Category", 0), other.category);
            }
            window->menu(c.checked)->trigger();
            QCOMPARE(state(*window), expected);
            QVERIFY(window->windows().find("frmAddress"));
        }
    }

    void leavingAsksAndUnloads() {
        Site site;
        const auto window = site.open();
        window->menu("mnuCards")->trigger();
        QSignalSpy exited(window.get(), &MDIMain::exited);
        for (const bool yes : {false, true}) {
            site.desk.prompts.answer(yes);
            window->menu("mnuExit")->trigger();
            QCOMPARE(site.desk.prompts.lastTitle(), "Ερώτηση...");
            QCOMPARE(site.desk.prompts.lastText(), "Είστε σίγουρος για έξοδο απο το πρόγραμμα; ");
            QCOMPARE(window->isVisible(), !yes);
            QCOMPARE(site.mod.gAddressOpen, !yes);
            QCOMPARE(exited.count(), int(yes));
        }
    }

    void aCardUnderEditHoldsTheLogOff() {
        Site site;
        const auto window = site.open();
        window->menu("mnuCards")->trigger();
        window->findChild<QAbstractButton*>("lblClick(5)")->click();
        window->findChild<controls::TextBox*>("Text7(0)")->setText("Α");
        QSignalSpy loggedOff(window.get(), &MDIMain::loggedOff);
        site.desk.prompts.answer(false);
        window->menu("mnuLogOff")->trigger();
        QVERIFY(window->isVisible() && loggedOff.isEmpty());
        // The next way out is an ordinary one again, with its question.
        site.desk.prompts.answer(false);
        window->close();
        QCOMPARE(site.desk.prompts.lastTitle(), "Ερώτηση...");
    }

    void placementIsKeptUnlessMinimised() {
        Site site;
        for (const bool minimised : {false, true}) {
            auto window = site.open();
            if (minimised) {
                QCOMPARE(window->geometry(), QRect(60, 30, 700, 500));
                window->showMinimized();
            }
            window->setGeometry(minimised ? QRect(10, 10, 300, 200) : QRect(60, 30, 700, 500));
            site.desk.prompts.answer(true);
            window->close();
            QCOMPARE(site.desk.settings.number("Settings", "MainWidth", 0), 700 * 15);
            QCOMPARE(site.desk.settings.number("Settings", "MainHeight", 0), 500 * 15);
            QCOMPARE(site.desk.settings.number("Settings", "MainLeft", 0), 60 * 15);
            QCOMPARE(site.desk.settings.number("Settings", "MainTop", 0), 30 * 15);
        }
    }

    void theCardFitsAtItsFirstOpening() {
        Site site;
        const auto window = site.open();
        window->menu("mnuCards")->trigger();
        const auto* form = window->windows().find("frmAddress");
        const QWidget* frame = form->parentWidget();
        const auto* area = window->findChild<QMdiArea*>();
        QVERIFY(area->viewport()->rect().contains(frame->geometry()));
        QVERIFY(form->size().width() >= form->minimumSizeHint().width());
    }

    void windowsStandBesideEachOther() {
        Site site;
        for (const QString key : {"CategoryLeft", "FieldsLeft", "AdminLeft"})
            site.desk.settings.setValue("Settings", key, "0");
        const auto window = site.open();
        QSet<QPair<int, int>> corners;
        for (const QString name : {"frmCategory", "frmFields1", "frmAdmin"}) {
            const QPoint corner = window->windows().front(name)->parentWidget()->pos();
            corners.insert({corner.x(), corner.y()});
        }
        QCOMPARE(corners.size(), 3);
        // A maximised one keeps the place that it had.
        window->windows().find("frmAdmin")->parentWidget()->showMaximized();
        window->windows().unload("frmAdmin");
        QCOMPARE(site.desk.settings.value("Settings", "AdminLeft", ""), "0");
        QTest::keyClick(window->windows().find("frmFields1"), Qt::Key_Escape);
        QTRY_VERIFY(!window->windows().find("frmFields1"));
    }

    void closingTheFrameUnloadsTheCardOnce() {
        Site site;
        const auto window = site.open();
        window->menu("mnuCards")->trigger();
        QWidget* frame = window->windows().find("frmAddress")->parentWidget();
        frame->close();
        QTRY_VERIFY(!window->windows().find("frmAddress"));
        QVERIFY(!site.mod.gAddressOpen);
        window->menu("mnuCards")->trigger();
        QVERIFY(site.mod.gAddressOpen);
    }

    void aNewInstallationAsksForTheOwnerFirst() {
        Site site;
        site.desk.settings.setValue("Settings", "Name", "");
        MDIMain window(site.mod);
        support::inNextDialog("frmOwner", [&site](support::Driver& owner) {
            QTest::keyClick(owner.find("Text7(0)"), Qt::Key_Escape);
            QCOMPARE(site.desk.prompts.lastText(), " Πρέπει να συμπληρώσετε τα Στοιχεία σας");
            owner.type("Text7(0)", "Νέο γραφείο");
            owner.click("Command1");
        });
        window.load();
        QCOMPARE(site.desk.settings.value("Settings", "Name", ""), "Νέο γραφείο");
    }
};

QTEST_MAIN(TestMDIMain)
#include "test_mdimain.moc"
