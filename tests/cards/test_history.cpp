#include <QMenu>
#include <QPushButton>

#include "cards/carddriver.h"
#include "cards/frmhistory.h"
#include "schema/office.h"

using cards::frmHistory;
using support::CardDriver;
using support::inNextDialog;
using support::Office;

namespace {

// A card with movements on 20/10, 1/11 and 5/11; the clock stands on 5/11/2026.
struct Ledger : Office {
    Ledger() {
        code = addCard("Παπαδόπουλος", "Γιώργος");
        add("2026/10/20", "Παλιό", 100, 0);
        add("2026/11/01", "Τιμολόγιο", 50.10, 0);
        last = add("2026/11/05", "Είσπραξη", 0, 30);
    }
    qint64 add(const QString& day, const QString& reason, double debit, double credit) {
        mod.gConn.execute(QString("insert into History (codecards,ΗΜΕΡΟΜΗΝΙΑ,ΑΙΤΙΟΛΟΓΙΑ,ΧΡΕΩΣΗ,ΠΙΣΤΩΣΗ) values "
                                  "(%1,#%2#,'%3',%4,%5)")
                              .arg(code)
                              .arg(day, reason)
                              .arg(debit)
                              .arg(credit));
        return value("select max(aa) from History").toLongLong();
    }
    QVariant total() { return value(QString("select total from Cards where code=%1").arg(code)); }

    qint64 code = 0, last = 0;
};

controls::TextBox* box(QDialog& form, const QString& name) {
    return form.findChild<controls::TextBox*>(name);
}
void type(QDialog& form, const QString& name, const QString& text) {
    box(form, name)->setText(text);
}
void save(QDialog& form) {
    QTest::keyClick(&form, Qt::Key_F5);
}

struct HistoryDriver : CardDriver {
    using CardDriver::CardDriver;
    void doubleClick(int row) {
        list(1)->selectRow(row);
        emit list(1)->rowActivated(row);
    }
    void select(int row) { list(1)->selectRow(row); }
};

}  // namespace

class TestHistory : public QObject {
    Q_OBJECT
private slots:
    void theCardShowsItsMonthAndStoresItsBalance() {
        Ledger office;
        QVERIFY(!office.total().isValid());
        HistoryDriver card(office.mod);
        const QStringList rows = {" |ΑΠΟ ΜΕΤΑΦΟΡΑ|||150,10",
                                  " ",
                                  "01/11/2026|Τιμολόγιο|50,10|0,00|150,10",
                                  "05/11/2026|Είσπραξη|0,00|30,00|120,10",
                                  " ",
                                  " |ΣΥΝΟΛΑ|50,10|30,00|120,10"};
        QCOMPARE(card.rows(1), rows);
        QCOMPARE(card.label("lblYpoloipo"), QString("120,10 "));
        QCOMPARE(office.total(), QVariant(120.1));
        card.date("txtFrom")->setDate(QDate(2027, 1, 1));
        card.date("txtTo")->setDate(QDate(2027, 1, 31));
        card.click("cmdShow");
        QCOMPARE(card.rows(1), QStringList({" ", " |ΣΥΝΟΛΑ|0,00|0,00|120,10"}));
    }

    void aPeriodThatIsNoneCanBeMended() {
        Ledger office;
        office.addCard("Ωμέγα", "Ρ");
        HistoryDriver card(office.mod);
        card.date("txtTo")->setFormattedText("__/__/____");
        card.press(3);
        QVERIFY(office.desk.prompts.lastText().contains("περίοδος"));
        card.press(1);
        card.date("txtTo")->setDate(QDate(2026, 11, 5));
        card.click("cmdShow");
        QCOMPARE(card.rows(1).size(), 6);
    }

    void aBalanceThatCannotBeStoredHidesNothing() {
        if (testengine::isPostgres()) return;  // a writer there keeps nobody from reading or writing another row
        Ledger office;
        office.mod.gConn.execute(
            QString("insert into Links (codecards,ΠΕΡΙΓΡΑΦΗ,ΣΥΝΔΕΣΗ) values (%1,'Α','/α')").arg(office.code));
        office.mod.gConn.close();
        office.mod.gConn.open(
            schema::connectionString(schema::Database::Main, schema::mainDatabasePath(office.folder())) +
            ";Busy Timeout=20");
        support::Desk desk;
        core::MainMod other(desk.services);
        office.open(other);
        data::Transaction writing(other.gConn);
        other.gConn.execute("update Cards set ονομα='Άλλος'");
        HistoryDriver card(office.mod);
        QCOMPARE(office.desk.prompts.count(), 1);
        QCOMPARE(card.label("lblYpoloipo"), QString("120,10 "));
        QCOMPARE(card.rows(2).size(), 1);
        writing.commit();
        card.click("cmdShow");
        QCOMPARE(office.total(), QVariant(120.1));
    }

    void aCardWithoutMovementsHasABalanceOfNothing() {
        Office office;
        const qint64 code = office.addCard("Α", "Β", {{"total", 77.0}});
        HistoryDriver card(office.mod);
        QCOMPARE(card.rows(1), QStringList({" ", " |ΣΥΝΟΛΑ|0,00|0,00|0,00"}));
        QCOMPARE(card.label("lblYpoloipo"), QString("0,00 "));
        QCOMPARE(office.value(QString("select total from Cards where code=%1").arg(code)), QVariant(0.0));
    }

    void aNewMovementIsRoundedSavedAndShown() {
        Ledger office;
        HistoryDriver card(office.mod);
        inNextDialog<frmHistory>([](frmHistory& form) {
            QCOMPARE(form.windowTitle(), QString(" Καταχώρηση Νέας Κίνησης !"));
            QCOMPARE(form.findChild<controls::DateBox*>("txtDate")->formattedText(), QString("05/11/2026"));
            QCOMPARE(box(form, "txtXreosh")->text(), QString("0"));
            type(form, "Text7(0)", "O'Neil & Σία");
            type(form, "txtXreosh", "12,345");
            form.findChild<controls::MemoBox*>("Text1")->setText("πρώτη\nδεύτερη");
            save(form);
            QVERIFY(!form.isVisible());
        });
        card.click("cmdAddHistory");
        QCOMPARE(card.rows(1)[4], QString("05/11/2026|O'Neil & Σία|12,35|0,00|132,45"));
        QCOMPARE(office.total(), QVariant(132.45));
        data::Recordset row(office.mod.gConn, "select * from History order by aa desc");
        QCOMPARE(row[u"codecards"].toLong(), office.code);
        QCOMPARE(row[u"ΧΡΕΩΣΗ"].toDouble(), 12.35);
        QCOMPARE(row[u"notes"].text(), QString("πρώτη\nδεύτερη"));
        QCOMPARE(row[u"n1"].value(), QVariant(0.0));
    }

    void aChangeKeepsTheMovementAndItsPhoto() {
        Ledger office;
        QImage picture(8, 8, QImage::Format_RGB32);
        picture.fill(Qt::red);
        const QString file = office.directory_.filePath("photo.bmp");
        QVERIFY(picture.save(file));
        HistoryDriver card(office.mod);
        inNextDialog<frmHistory>([&](frmHistory& form) {
            QCOMPARE(form.windowTitle(), QString(" Διόρθωση Κίνησης!"));
            QCOMPARE(box(form, "Text7(0)")->text(), QString("Είσπραξη"));
            QCOMPARE(box(form, "txtPistosi")->text(), QString("30,00"));
            office.desk.prompts.answerFile(file);
            form.findChild<QPushButton*>("Command1")->click();
            save(form);
        });
        card.doubleClick(3);
        const QVariant bytes = office.value(QString("select Photo from History where aa=%1").arg(office.last));
        QFile original(file);
        QVERIFY(original.open(QIODevice::ReadOnly));
        QCOMPARE(bytes.toByteArray(), original.readAll());
        inNextDialog<frmHistory>([](frmHistory& form) {
            type(form, "txtPistosi", "31");
            form.findChild<QAbstractButton*>("lblClick(0)")->click();
        });
        card.select(3);
        card.click("Command4");
        QCOMPARE(office.value(QString("select Photo from History where aa=%1").arg(office.last)), bytes);
        QCOMPARE(card.label("lblYpoloipo"), QString("119,10 "));
        QCOMPARE(card.list(1)->currentRow(), 3);
        QCOMPARE(office.value("select count(*) from History").toInt(), 3);
    }

    void rowsThatStandForNothingOpenNothing() {
        Ledger office;
        HistoryDriver card(office.mod);
        for (int row : {0, 1, 4, 5}) {
            card.doubleClick(row);
            card.click("cmdDelHistory");
        }
        QVERIFY(office.desk.prompts.isEmpty());
    }

    void deletingAsksAndCorrectsTheBalance() {
        Ledger office;
        HistoryDriver card(office.mod);
        for (const bool yes : {false, true}) {
            card.select(3);
            office.desk.prompts.answer(yes);
            card.click("cmdDelHistory");
            QCOMPARE(office.desk.prompts.lastText(), QString("Να συνεχίσω με διαγραφή της κίνησης;"));
            QCOMPARE(office.total(), QVariant(yes ? 150.1 : 120.1));
        }
        QCOMPARE(office.value("select count(*) from History").toInt(), 2);
    }

    void whatIsMissingIsNamedAndNothingIsLost_data() {
        QTest::addColumn<QString>("control");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("text");
        QTest::newRow("reason") << "Text7(0)"
                                << ""
                                << "Δεν έχετε συμπληρώσει την Αιτιολογία!";
        QTest::newRow("credit") << "txtPistosi"
                                << ""
                                << "Δεν έχετε συμπληρώσει σωστά την ΠΙΣΤΩΣΗ!";
        QTest::newRow("debit") << "txtXreosh"
                               << "1,2,3"
                               << "Δεν έχετε συμπληρώσει σωστά την ΧΡΕΩΣΗ!";
        QTest::newRow("debit beyond money")
            << "txtXreosh" << QString(40, u'9') << "Δεν έχετε συμπληρώσει σωστά την ΧΡΕΩΣΗ!";
        QTest::newRow("number") << "Text7(6)"
                                << ","
                                << "Δεν έχετε συμπληρώσει σωστά το αριθμιτικό πεδίο!";
        QTest::newRow("too long") << "Text7(0)" << QString(300, u'α') << "";
    }
    void whatIsMissingIsNamedAndNothingIsLost() {
        QFETCH(QString, control);
        QFETCH(QString, typed);
        QFETCH(QString, text);
        Ledger office;
        HistoryDriver card(office.mod);
        inNextDialog<frmHistory>([&](frmHistory& form) {
            type(form, "Text7(0)", "Λόγος");
            type(form, control, typed);
            save(form);
            QVERIFY(form.isVisible());
            if (!text.isEmpty()) QCOMPARE(office.desk.prompts.lastText(), text);
            QCOMPARE(box(form, control)->text(), typed);
            type(form, control, "5");
            save(form);
            QVERIFY(!form.isVisible());
        });
        card.click("cmdAddHistory");
        QCOMPARE(office.desk.prompts.count(), 1);
        QCOMPARE(office.value("select count(*) from History").toInt(), 4);
    }

    void aDateThatIsNoneIsRefused() {
        Ledger office;
        HistoryDriver card(office.mod);
        inNextDialog<frmHistory>([&](frmHistory& form) {
            type(form, "Text7(0)", "Λόγος");
            form.findChild<controls::DateBox*>("txtDate")->setFormattedText("31/02/2026");
            save(form);
            QCOMPARE(office.desk.prompts.lastText(), QString("Δεν έχετε συμπληρώσει σωστά την Ημερομηνία!"));
            office.desk.prompts.answer(true);
        });
        card.click("cmdAddHistory");
        QCOMPARE(office.value("select count(*) from History").toInt(), 3);
    }

    void leavingWithTypedTextAsks() {
        Ledger office;
        HistoryDriver card(office.mod);
        inNextDialog<frmHistory>([&](frmHistory& form) {
            type(form, "Text7(0)", "Λόγος");
            office.desk.prompts.answer(false);
            QTest::keyClick(&form, Qt::Key_Escape);
            QVERIFY(form.isVisible());
            form.findChild<QAbstractButton*>("lblClick(1)")->click();
            QVERIFY(box(form, "Text7(0)")->text().isEmpty());
            form.findChild<QAbstractButton*>("lblClick(2)")->click();
            QVERIFY(!form.isVisible());
        });
        card.click("cmdAddHistory");
        QCOMPARE(office.desk.prompts.count(), 1);
    }

    void theOfficeNamesAndShowsItsFields() {
        Ledger office;
        office.mod.gConn.execute(
            "update CustomFields set FIELdcharh1='Παραστατικό',fch1=True,fch2=False,FieldNumh2='ΦΠΑ',fnh2=True,"
            "fnh1=False,fnh3=False,fnh4=False where id=1");
        HistoryDriver card(office.mod);
        inNextDialog<frmHistory>([](frmHistory& form) {
            QCOMPARE(form.findChild<QLabel*>("Label1(1)")->text(), QString("Παραστατικό"));
            QCOMPARE(box(form, "Text7(4)")->accessibleName(), QString("ΦΠΑ"));
            for (int i = 1; i <= 6; ++i)
                QCOMPARE(box(form, QString("Text7(%1)").arg(i))->isVisible(), i == 1 || i == 4);
            type(form, "Text7(0)", "Λόγος");
            type(form, "Text7(4)", "23,5");
            save(form);
        });
        card.click("cmdAddHistory");
        QCOMPARE(office.value("select n2 from History order by aa desc"), QVariant(23.5));
    }

    void movementsWaitWhileTheCardIsChanged() {
        Ledger office;
        HistoryDriver card(office.mod);
        card.press(6);
        for (const char* name : {"cmdAddHistory", "Command4", "cmdDelHistory"})
            QVERIFY2(!card.find<QPushButton>(name)->isEnabled(), name);
        for (const char* name : {"MnuNewHistory", "mnuEditHistory", "MnuDelHistory"})
            QVERIFY2(!card.find<QAction>(name)->isEnabled(), name);
        QVERIFY(!card.find<QWidget>("Frame2")->isEnabled());
        card.doubleClick(3);
        QCOMPARE(office.desk.sound.beeps, 1);
        card.click("cmdΣήμερα");
        card.press(10);
        QVERIFY(card.find<QPushButton>("cmdAddHistory")->isEnabled() && card.find<QWidget>("Frame2")->isEnabled());
        // A new card shows nobody else's money.
        card.press(5);
        QVERIFY(card.rows(1).isEmpty());
        QCOMPARE(card.label("lblYpoloipo"), QString("0,00 "));
    }

    void todayGoesIntoTheLastVisit() {
        Ledger office;
        office.mod.gConn.execute("update Cards set ΤΕΛΕΥΤΑΙΑ_ΚΙΝΗΣΗ=#2020/01/02#");
        HistoryDriver card(office.mod);
        QCOMPARE(card.date("txtΤελευταία")->formattedText(), QString("02/01/2020"));
        QVERIFY(!card.find<QPushButton>("cmdΣήμερα")->isEnabled());
        card.press(6);
        card.click("cmdΣήμερα");
        QCOMPARE(card.date("txtΤελευταία")->formattedText(), QString("05/11/2026"));
    }

    void theMenuOffersWhatTheRowAllows() {
        Ledger office;
        HistoryDriver card(office.mod);
        card.openTab("Ιστορικό");
        for (const int row : {-1, 3}) {
            QTimer::singleShot(0, &card.form, [&, row] {
                auto* menu = card.find<QMenu>("MnuPopUpHist");
                QStringList enabled;
                for (QAction* action : menu->actions())
                    if (action->isEnabled()) enabled << action->text();
                menu->close();
                QCOMPARE(enabled, row < 0 ? QStringList{"Νέα Κίνηση"}
                                          : QStringList({"Νέα Κίνηση", "Επεξεργασία Κίνηση", "Διαγραφή Κίνησης"}));
            });
            emit card.list(1)->menuRequested(row, QPoint(10, 10));
            QCoreApplication::processEvents();
        }
        QVERIFY(card.find<QAction>("MnuDelHistory")->isEnabled());
        support::activate(card.form);
        card.list(1)->setFocus();
        QVERIFY(card.list(1)->hasFocus());
        card.select(3);
        office.desk.prompts.answer(true);
        QTest::keyClick(card.list(1), Qt::Key_Delete);
        QCOMPARE(office.value("select count(*) from History").toInt(), 2);
    }

    void tabGoesFromTopToBottom() {
        Ledger office;
        HistoryDriver card(office.mod);
        const auto walk = [](const QString& last) {
            QStringList names;
            for (int i = 0; i < 40 && (names.isEmpty() || names.last() != last); ++i) {
                names << QApplication::focusWidget()->objectName();
                QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            }
            return names;
        };
        card.openTab("Ιστορικό");
        card.date("txtFrom")->setFocus();
        QCOMPARE(walk("cmdPrint"),
                 QStringList({"txtFrom", "DTPcustDate0(0)", "txtTo", "DTPcustDate0(1)", "cmdShow", "ListView1",
                              "cmdAddHistory", "Command4", "cmdDelHistory", "cmdPrint"}));
        inNextDialog<frmHistory>([&](frmHistory& form) {
            QStringList boxes{"txtDate", "DTPicker1", "Text7(0)"};
            for (int i = 1; i <= 6; ++i)
                if (const QString name = QString("Text7(%1)").arg(i); box(form, name)->isVisible()) boxes << name;
            boxes << QStringList{"txtXreosh", "txtPistosi",  "Text1",       "Command1",
                                 "Command3",  "lblClick(0)", "lblClick(1)", "lblClick(2)"};
            QCOMPARE(walk("lblClick(2)"), boxes);
        });
        card.click("cmdAddHistory");
    }

    void aMovementThatIsGoneIsSaid() {
        Ledger office;
        HistoryDriver card(office.mod);
        const QString gone = QString("delete from History where aa=%1").arg(office.last);
        inNextDialog<frmHistory>([&](frmHistory& form) {
            office.mod.gConn.execute(gone);
            type(form, "Text7(0)", "Νέος λόγος");
            save(form);
            QCOMPARE(office.desk.prompts.lastTitle(), QString("Μήνυμα λάθους"));
            QVERIFY(form.isVisible());
            QCOMPARE(box(form, "Text7(0)")->text(), QString("Νέος λόγος"));
            office.desk.prompts.answer(true);
        });
        card.doubleClick(3);
        inNextDialog<frmHistory>([&](frmHistory& form) {
            QVERIFY(office.desk.prompts.wasShown("Η συγκεκριμένη κίνηση έχει ακυρωθεί !"));
            QVERIFY(box(form, "Text7(0)")->text().isEmpty());
            type(form, "Text7(0)", "Λόγος");
            save(form);
            QVERIFY(form.isVisible());
            office.desk.prompts.answer(true);
        });
        card.doubleClick(3);
        QCOMPARE(office.value("select count(*) from History").toInt(), 2);
    }

    void theChangeOfSomebodyElseIsNotOverwritten() {
        Ledger office;
        support::Desk desk;
        core::MainMod other(desk.services);
        office.open(other);
        HistoryDriver card(office.mod);
        inNextDialog<frmHistory>([&](frmHistory& form) {
            other.gConn.execute(QString("update History set ΠΙΣΤΩΣΗ=99 where aa=%1").arg(office.last));
            type(form, "txtPistosi", "31");
            save(form);
            QCOMPARE(office.desk.prompts.lastTitle(), QString("Μήνυμα λάθους"));
            QVERIFY(form.isVisible());
            QCOMPARE(box(form, "txtPistosi")->text(), QString("31"));
            office.desk.prompts.answer(true);
        });
        card.doubleClick(3);
        QCOMPARE(office.value(QString("select ΠΙΣΤΩΣΗ from History where aa=%1").arg(office.last)), QVariant(99.0));
        card.click("cmdShow");
        QCOMPARE(office.total(), QVariant(51.1));
    }

    void aDatabaseThatIsGoneLeavesTheWindowUsable() {
        Ledger office;
        HistoryDriver card(office.mod);
        const QStringList before = card.rows(1);
        inNextDialog<frmHistory>([&](frmHistory& form) {
            office.mod.gConn.close();
            type(form, "Text7(0)", "Λόγος");
            type(form, "txtXreosh", "10");
            save(form);
            QVERIFY(form.isVisible());
            QCOMPARE(office.desk.prompts.lastTitle(), QString("Μήνυμα λάθους"));
            QCOMPARE(box(form, "txtXreosh")->text(), QString("10"));
            office.mod.gConnUsers.close();
            office.open(office.mod);
            save(form);
            QVERIFY(!form.isVisible());
        });
        card.click("cmdAddHistory");
        QCOMPARE(office.total(), QVariant(130.1));
        office.mod.gConn.close();
        const QStringList shown = card.rows(1);
        QCOMPARE(shown.size(), before.size() + 1);
        office.desk.prompts.answer(true);
        card.select(3);
        card.click("cmdDelHistory");
        card.click("cmdShow");
        QCOMPARE(office.desk.prompts.lastTitle(), QString("Μήνυμα λάθους"));
        QCOMPARE(card.rows(1), shown);
    }
};

QTEST_MAIN(TestHistory)
#include "test_history.moc"
