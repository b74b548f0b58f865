#include <QMdiArea>
#include <QSignalSpy>
#include <QTimer>

#include "core/printsettings.h"
#include "main/mdimain.h"
#include "support/office.h"
#include "users/frmowner.h"

using entry::MDIMain;

namespace {

struct Site {
    explicit Site(int group = core::groupAdministrators) {
        office.mod.gUserGroup = group;
        desk().settings.setValue("Settings", "Name", "Γραφείο");
    }
    support::Desk& desk() { return office.desk; }
    std::unique_ptr<MDIMain> open() {
        auto window = std::make_unique<MDIMain>(office.mod);
        window->load();
        window->show();
        return window;
    }
    support::Office office;
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
    void captionAndStatusBar() {
        Site site;
        const auto window = site.open();
        QCOMPARE(window->windowTitle(), "Velmarine Dorvalist Ver. " + core::programVersion());
        QCOMPARE(window->statusPanel(1)->text(), QString("05/11/2026"));
        QCOMPARE(window->statusPanel(2)->text(), QString("10:30"));
        QCOMPARE(window->statusPanel(5)->text(), QString("Χρήστης: Admin"));
    }

    void thePreviewComesBackFromTheMenu() {
        support::Office office;
        office.desk.settings.setValue("Settings", "Name", "Γραφείο");
        core::setPreviewsPrints(office.desk.settings, true);
        entry::MDIMain window(office.mod);
        window.load();
        QAction* entry = window.menu("mnuPreview");
        QVERIFY(entry->isVisible() && entry->isChecked());
        core::setPreviewsPrints(office.desk.settings, false);  // as its check box does
        emit window.menu("mnuView")->menu()->aboutToShow();
        QVERIFY(!entry->isChecked());
        entry->trigger();
        QVERIFY(core::previewsPrints(office.desk.settings));
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
        QVERIFY(!names.contains("mnuDates") && !names.contains("mnuThinks"));
    }

    void theNounChangesTheMenusAtOnce() {
        Site site;
        const auto window = site.open();
        QCOMPARE(window->menu("mnuAddress")->text(), QString("Επαφές"));
        QVERIFY(window->menu("MnuCat(1)")->isChecked());
        window->menu("mnuCards")->trigger();
        window->menu("MnuCat(3)")->trigger();
        QCOMPARE(window->menu("mnuCards")->text(), QString("Καρτέλα Μελών"));
        QVERIFY(window->menu("MnuCat(3)")->isChecked() && !window->menu("MnuCat(1)")->isChecked());
        QCOMPARE(site.desk().settings.number("Settings", "Category", 0), 3);
        QVERIFY(window->windows().find("frmAddress"));
    }

    void patientsKeepTheirNoun() {
        Site site;
        site.desk().settings.setNumber("Settings", "Category", 4);
        const auto window = site.open();
        QCOMPARE(window->menu("mnuAddress")->text(), QString("Ασθενείς"));
        QVERIFY(!window->menu("mnu")->isVisible());
    }

    void aWrongNounShows() {
        Site site;
        site.desk().settings.setNumber("Settings", "Category", 9);
        const auto window = site.open();
        QCOMPARE(window->menu("mnuAddress")->text(), QString("01"));
        QCOMPARE(window->menu("mnuCards")->text(), QString("0101"));
    }

    void leavingAsksAndUnloads() {
        Site site;
        const auto window = site.open();
        window->menu("mnuCards")->trigger();
        QSignalSpy exited(window.get(), &MDIMain::exited);
        site.desk().prompts.answer(false);
        window->menu("mnuExit")->trigger();
        QCOMPARE(site.desk().prompts.lastTitle(), QString("Ερώτηση..."));
        QCOMPARE(site.desk().prompts.lastText(), QString("Είστε σίγουρος για έξοδο απο το πρόγραμμα; "));
        QVERIFY(window->isVisible() && site.office.mod.gAddressOpen && exited.isEmpty());
        site.desk().prompts.answer(true);
        window->close();
        QVERIFY(!window->isVisible() && !site.office.mod.gAddressOpen);
        QCOMPARE(exited.count(), 1);
    }

    void aCardUnderEditHoldsTheLogOff() {
        Site site;
        const auto window = site.open();
        window->menu("mnuCards")->trigger();
        window->findChild<QAbstractButton*>("lblClick(5)")->click();
        QSignalSpy loggedOff(window.get(), &MDIMain::loggedOff);
        site.desk().prompts.answer(false);
        window->menu("mnuLogOff")->trigger();
        QVERIFY(window->isVisible() && loggedOff.isEmpty());
        // The next way out is an ordinary one again, with its question.
        site.desk().prompts.answer(false);
        window->close();
        QCOMPARE(site.desk().prompts.lastTitle(), QString("Ερώτηση..."));
    }

    void placementIsKeptUnlessMinimised() {
        Site site;
        {
            auto window = site.open();
            window->setGeometry(60, 30, 700, 500);
            site.desk().prompts.answer(true);
            window->close();
        }
        QCOMPARE(site.desk().settings.number("Settings", "MainWidth", 0), 700 * 15);
        {
            auto window = site.open();
            QCOMPARE(window->size(), QSize(700, 500));
            window->showMinimized();
            window->resize(300, 200);
            site.desk().prompts.answer(true);
            window->close();
        }
        QCOMPARE(site.desk().settings.number("Settings", "MainWidth", 0), 700 * 15);
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

    void closingTheFrameUnloadsTheCardOnce() {
        Site site;
        const auto window = site.open();
        window->menu("mnuCards")->trigger();
        QWidget* frame = window->windows().find("frmAddress")->parentWidget();
        frame->close();
        QTRY_VERIFY(!window->windows().find("frmAddress"));
        QVERIFY(!site.office.mod.gAddressOpen);
        window->menu("mnuCards")->trigger();
        QVERIFY(site.office.mod.gAddressOpen);
    }

    void aNewInstallationAsksForTheOwnerFirst() {
        Site site;
        site.desk().settings.setValue("Settings", "Name", "");
        MDIMain window(site.office.mod);
        QTimer::singleShot(0, [] {
            auto* owner = qobject_cast<users::frmOwner*>(QApplication::activeModalWidget());
            QVERIFY(owner);
            owner->findChild<QLineEdit*>("Text7(0)")->setText("Νέο γραφείο");
            owner->findChild<QPushButton*>("Command1")->click();
        });
        window.load();
        QCOMPARE(site.desk().settings.value("Settings", "Name", ""), QString("Νέο γραφείο"));
    }
};

QTEST_MAIN(TestMDIMain)
#include "test_mdimain.moc"
