#include <QMenu>

#include "carddriver.h"
#include "support/cases.h"

using namespace support;

namespace {

// A card with movements on 20/10, 1/11 and 5/11; the clock stands on 5/11/2026.
struct Ledger : CardOffice {
    Ledger() {
        addMovement(code, "2026-10-20T00:00:00", "Παλιό", 100, 0);
        addMovement(code, "2026-11-01T00:00:00", "Τιμολόγιο", 50.10, 0);
        last = addMovement(code, "2026-11-05T00:00:00", "Είσπραξη", 0, 30);
    }
    QVariant total() { return value(QString("select total from Cards where code=%1").arg(code)); }
    QVariant ofLast(const QString& column) {
        return value(QString("select %1 from History where aa=%2").arg(column).arg(last));
    }

    qint64 code = addCard("Παπαδόπουλος", "Γιώργος"), last = 0;
};

struct HistoryDriver : CardDriver {
    using CardDriver::CardDriver;
    void select(int row) const { list()->selectRow(row); }
    void doubleClick(int row) const {
        select(row);
        emit list()->rowActivated(row);
    }
    QStringList period(QDate from, QDate to) const {
        find<controls::DateBox>("txtFrom")->setDate(from);
        find<controls::DateBox>("txtTo")->setDate(to);
        click("cmdShow");
        return rows();
    }
    // What the movement's window is for, done in it.
    void inNewMovement(const std::function<void(Driver&)>& act) const {
        inNextDialog("frmHistory", act);
        click("cmdAddHistory");
    }
    void inMovement(int row, const std::function<void(Driver&)>& act) const {
        inNextDialog("frmHistory", act);
        doubleClick(row);
    }
};

struct HistorySite : Ledger, HistoryDriver {
    HistorySite() : HistoryDriver(mod) {}
};

void save(const Driver& form) {
    form.key(Qt::Key_F5);
}

// The controls that Tab goes through from the one that has the focus to `last`.
QStringList tabOrder(const QString& last) {
    QStringList names;
    while (names.size() < 40 && (names.isEmpty() || names.last() != last)) {
        names << QApplication::focusWidget()->objectName();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    return names;
}

}  // namespace

class TestHistory : public QObject {
    Q_OBJECT
private slots:
    void theCardShowsItsMonthAndStoresItsBalance() {
        Ledger office;
        QVERIFY(!office.total().isValid());
        HistoryDriver card(office.mod);
        QCOMPARE(card.rows(),
                 QStringList({" |ΑΠΟ ΜΕΤΑΦΟΡΑ|||150,10", " ", "01/11/2026|Τιμολόγιο|50,10|0,00|150,10",
                              "05/11/2026|Είσπραξη|0,00|30,00|120,10", " ", " |ΣΥΝΟΛΑ|50,10|30,00|120,10"}));
        QCOMPARE(card.shown("lblYpoloipo"), "120,10 ");
        QCOMPARE(office.total(), 120.1);
        QCOMPARE(card.period({2027, 1, 1}, {2027, 1, 31}), QStringList({" ", " |ΣΥΝΟΛΑ|0,00|0,00|120,10"}));
    }

    void aPeriodThatIsNoneCanBeMended() {
        Ledger office;
        office.addCard("Ωμέγα", "Ρ");
        HistoryDriver card(office.mod);
        card.find<controls::DateBox>("txtTo")->setFormattedText("__/__/____");
        card.press(card::Next);
        QVERIFY(office.desk.prompts.lastText().contains("περίοδος"));
        card.press(card::Previous);
        QCOMPARE(card.period({2026, 11, 1}, {2026, 11, 5}).size(), 6);
    }

    void whatIsPrintedIsOfThePeriodInTheHeading() {
        HistorySite card;
        card.find<controls::DateBox>("txtFrom")->setDate({2026, 11, 5});
        card.click("cmdPrint");
        const QStringList texts = card.desk.printers.sent.value(0).texts();
        QVERIFY(texts.contains("Είσπραξη") && !texts.contains("Τιμολόγιο"));
    }

    void aBalanceThatCannotBeStoredHidesNothing() {
        if (testengine::isPostgres()) return;  // a writer there keeps nobody from reading or writing another row
        Ledger office;
        office.addLink(office.code, "Α", "/α");
        office.lose();
        office.mod.gConn.open(schema::connectionString(schema::Database::Main, office.mainFile()) + ";Busy Timeout=20");
        OtherSeat other(office);
        data::Transaction writing(other.mod.gConn);
        other.mod.gConn.execute("update Cards set ονομα='Άλλος'");
        HistoryDriver card(office.mod);
        QCOMPARE(office.desk.prompts.count(), 1);
        QCOMPARE(card.shown("lblYpoloipo"), "120,10 ");
        QCOMPARE(card.rows("ListView2").size(), 1);
        writing.commit();
        card.click("cmdShow");
        QCOMPARE(office.total(), 120.1);
    }

    // To look at a card is no change of its balance.
    void remaindersOfOldDataStayInTheBalance() {
        const struct {
            const char* name;
            double debit, credit, before, after;
        } cases[] = {
            {"five decimals", 10.00004, 0, 130.10004, 130.10004},
            {"of a binary sum", 0.2, 0.1, 120.20000000000002, 120.20000000000002},
            {"a balance that is wrong by less than a cent", 0.005, 0, 120.1, 120.105},
        };
        support::forEach(cases, [](const auto& one) {
            Ledger office;
            office.addMovement(office.code, "2026-11-05T00:00:00", "Από αλλού", one.debit, one.credit);
            data::Recordset card(office.mod.gConn, "select total from Cards");
            card[u"total"].setValue(one.before);
            card.update();
            const HistoryDriver shown(office.mod);
            QVERIFY2(office.total().toDouble() == one.after, qPrintable(office.total().toString()));
        });
    }

    void aCardWithoutMovementsHasABalanceOfNothing() {
        CardOffice office;
        office.addCard("Α", "Β", {{"total", 77.0}});
        HistoryDriver card(office.mod);
        QCOMPARE(card.rows(), QStringList({" ", " |ΣΥΝΟΛΑ|0,00|0,00|0,00"}));
        QCOMPARE(card.shown("lblYpoloipo"), "0,00 ");
        QCOMPARE(office.value("select total from Cards"), 0.0);
    }

    void aNewMovementIsRoundedSavedAndShown() {
        HistorySite card;
        card.inNewMovement([](Driver& form) {
            QCOMPARE(form.title(), " Καταχώρηση Νέας Κίνησης !");
            QCOMPARE(form.shown("txtDate"), "05/11/2026");
            QCOMPARE(form.shown("txtXreosh"), "0");
            form.type("Text7(0)", "O'Neil & Σία");
            form.type("txtXreosh", "12,345");
            form.type("Text1", "πρώτη\nδεύτερη");
            save(form);
            QVERIFY(!form.isOpen());
        });
        QCOMPARE(card.rows()[4], "05/11/2026|O'Neil & Σία|12,35|0,00|132,45");
        QCOMPARE(card.total(), 132.45);
        data::Recordset row(card.mod.gConn, "select * from History order by aa desc");
        QCOMPARE(row[u"codecards"].toLong(), card.code);
        QCOMPARE(row[u"ΧΡΕΩΣΗ"].toDouble(), 12.35);
        QCOMPARE(row[u"notes"].text(), "πρώτη\nδεύτερη");
        QCOMPARE(row[u"n1"].value(), QVariant(0.0));
    }

    void aChangeKeepsTheMovementAndItsPhoto() {
        Ledger office;
        const QByteArray picture = pictureBytes({8, 8});
        const QString file = office.file("photo.bmp", picture);
        HistoryDriver card(office.mod);
        card.inMovement(3, [&](Driver& form) {
            QCOMPARE(form.title(), " Διόρθωση Κίνησης!");
            QCOMPARE(form.shown("Text7(0)"), "Είσπραξη");
            QCOMPARE(form.shown("txtPistosi"), "30,00");
            office.desk.prompts.answerFile(file);
            form.click("Command1");
            save(form);
        });
        QCOMPARE(office.ofLast("Photo").toByteArray(), picture);
        inNextDialog("frmHistory", [](Driver& form) {
            form.type("txtPistosi", "31");
            form.click("lblClick(0)");
        });
        card.select(3);
        card.click("Command4");
        QCOMPARE(office.ofLast("Photo").toByteArray(), picture);
        QCOMPARE(card.shown("lblYpoloipo"), "119,10 ");
        QCOMPARE(card.list()->currentRow(), 3);
        QCOMPARE(office.count("History"), 3);
        // A new one has nothing of the last one that was on show.
        card.inNewMovement([](Driver& form) {
            QVERIFY(form.shown("Text7(0)").isEmpty() && form.shown("txtPistosi") == "0");
            form.type("Text7(0)", "Λόγος");
            save(form);
        });
        QVERIFY(!office.value("select Photo from History order by aa desc").isValid());
    }

    void aChangeWritesOnlyWhatItsUserChanged() {
        Ledger office;
        const QString columns = "s1,s2,n1,n2,n3,n4,notes";
        office.mod.gConn.execute("update History set " + QString(columns).replace(",", "=Null,") + "=Null");
        HistoryDriver card(office.mod);
        card.inMovement(3, [&](Driver& form) {
            OtherSeat(office).mod.gConn.execute(QString("update History set n2=7 where aa=%1").arg(office.last));
            form.type("txtPistosi", "31");
            save(form);
            QVERIFY2(!form.isOpen(), qPrintable(office.desk.prompts.lastText()));
        });
        QCOMPARE(office.ofLast("ΠΙΣΤΩΣΗ"), 31.0);
        for (const QString& column : columns.split(','))
            QCOMPARE(office.ofLast(column), column == "n2" ? QVariant(7.0) : QVariant());
    }

    void aBalanceBeyondAllMoneyIsToldAndNotStored() {
        HistorySite card;
        card.mod.gConn.execute(QString("update History set ΠΙΣΤΩΣΗ=1e30 where aa=%1").arg(card.last));
        card.click("cmdShow");
        QVERIFY(card.desk.prompts.lastText().contains("δεν αποθηκεύτηκε"));
        QCOMPARE(card.rows()[3], "05/11/2026|Είσπραξη|0,00|υπέρβαση|υπέρβαση");
        QCOMPARE(card.total(), 120.1);
        card.inMovement(3, [](Driver& form) {
            form.type("txtPistosi", "30");
            save(form);
        });
        QCOMPARE(card.shown("lblYpoloipo"), "120,10 ");
    }

    void theFocusGoesToTheListBehind() {
        HistorySite card;
        card.openTab("Ιστορικό");
        for (const bool saved : {true, false}) {
            card.find("cmdAddHistory")->setFocus();
            card.inNewMovement([&](Driver& form) {
                form.type("Text7(0)", "Λόγος");
                if (!saved) card.desk.prompts.answer(true);
                form.key(saved ? Qt::Key_F5 : Qt::Key_Escape);
                QVERIFY(!form.isOpen());
            });
            QCOMPARE(card.focused(), "ListView1");
        }
    }

    void rowsThatStandForNothingOpenNothing() {
        HistorySite card;
        for (const int row : {0, 1, 4, 5}) {
            card.doubleClick(row);
            card.click("cmdDelHistory");
        }
        QVERIFY(card.desk.prompts.isEmpty());
        // In a period without a movement carried over, the first row is a movement.
        card.period({2026, 10, 1}, {2026, 11, 5});
        card.inMovement(card.rowOf("Παλιό", 1), [](Driver& form) { QCOMPARE(form.shown("Text7(0)"), "Παλιό"); });
    }

    void deletingAsksAndCorrectsTheBalance() {
        HistorySite card;
        for (const bool yes : {false, true}) {
            card.select(3);
            card.desk.prompts.answer(yes);
            card.click("cmdDelHistory");
            QCOMPARE(card.desk.prompts.lastText(), "Να συνεχίσω με διαγραφή της κίνησης;");
            QCOMPARE(card.total(), yes ? 150.1 : 120.1);
        }
        QCOMPARE(card.count("History"), 2);
    }

    void whatIsMissingIsNamedAndNothingIsLost() {
        struct Case {
            const char* control;
            QString typed;
            const char* told;
        };
        const Case cases[] = {
            {"Text7(0)", "", "Δεν έχετε συμπληρώσει την Αιτιολογία!"},
            {"txtDate", "31/02/2026", "Δεν έχετε συμπληρώσει σωστά την Ημερομηνία!"},
            {"txtPistosi", "", "Δεν έχετε συμπληρώσει σωστά την ΠΙΣΤΩΣΗ!"},
            {"txtXreosh", "1,2,3", "Δεν έχετε συμπληρώσει σωστά την ΧΡΕΩΣΗ!"},
            {"txtXreosh", QString(40, u'9'), "Δεν έχετε συμπληρώσει σωστά την ΧΡΕΩΣΗ!"},
            {"Text7(6)", ",", "Δεν έχετε συμπληρώσει σωστά το αριθμιτικό πεδίο!"},
        };
        HistorySite card;
        int saved = 3;
        for (const Case& c : cases) {
            const InCase in(QString(c.control) + ' ' + c.typed);
            card.desk.prompts.clear();
            card.inNewMovement([&](Driver& form) {
                form.type("Text7(0)", "Λόγος");
                form.type(c.control, c.typed);
                save(form);
                QVERIFY(form.isOpen());
                QVERIFY2(card.desk.prompts.lastText().startsWith(c.told), qPrintable(card.desk.prompts.lastText()));
                QCOMPARE(form.shown(c.control), c.typed);
                form.type(c.control, QString(c.control) == "txtDate" ? "05/11/2026" : "5");
                save(form);
                QVERIFY(!form.isOpen());
            });
            QCOMPARE(card.desk.prompts.count(), 1);
            QCOMPARE(card.count("History"), ++saved);
        }
    }

    void leavingWithTypedTextAsks() {
        HistorySite card;
        card.inNewMovement([&](Driver& form) {
            form.type("Text7(0)", "Λόγος");
            card.desk.prompts.answer(false);
            form.key(Qt::Key_Escape);
            QVERIFY(form.isOpen());
            form.click("lblClick(1)");
            QVERIFY(form.shown("Text7(0)").isEmpty());
            form.click("lblClick(2)");
            QVERIFY(!form.isOpen());
        });
        QCOMPARE(card.desk.prompts.count(), 1);
    }

    void theOfficeNamesAndShowsItsFields() {
        Ledger office;
        office.mod.gConn.execute(
            "update CustomFields set FIELdcharh1='Παραστατικό',fch1=True,fch2=False,FieldNumh2='ΦΠΑ',fnh2=True,"
            "fnh1=False,fnh3=False,fnh4=False where id=1");
        HistoryDriver card(office.mod);
        card.inNewMovement([](Driver& form) {
            QCOMPARE(form.shown("Label1(1)"), "Παραστατικό");
            QCOMPARE(form.find("Text7(4)")->accessibleName(), "ΦΠΑ");
            for (int i = 1; i <= 6; ++i) QCOMPARE(form.isVisible(QString("Text7(%1)").arg(i)), i == 1 || i == 4);
            form.type("Text7(0)", "Λόγος");
            form.type("Text7(4)", "23,5");
            save(form);
        });
        QCOMPARE(office.value("select n2 from History order by aa desc"), 23.5);
    }

    void movementsWaitWhileTheCardIsChanged() {
        HistorySite card;
        card.press(card::Edit);
        for (const char* name : {"cmdAddHistory", "Command4", "cmdDelHistory", "MnuNewHistory", "mnuEditHistory",
                                 "MnuDelHistory", "Frame2"})
            QVERIFY2(!card.isEnabled(name), name);
        card.doubleClick(3);
        QCOMPARE(card.desk.sound.beeps, 1);
        card.press(card::Cancel);
        QVERIFY(card.isEnabled("cmdAddHistory") && card.isEnabled("Frame2"));
    }

    void todayGoesIntoTheLastVisit() {
        Ledger office;
        office.mod.gConn.execute("update Cards set ΤΕΛΕΥΤΑΙΑ_ΚΙΝΗΣΗ=#2020/01/02#");
        HistoryDriver card(office.mod);
        QCOMPARE(card.shown("txtΤελευταία"), "02/01/2020");
        QVERIFY(!card.isEnabled("cmdΣήμερα"));
        card.press(card::Edit);
        card.click("cmdΣήμερα");
        QCOMPARE(card.shown("txtΤελευταία"), "05/11/2026");
    }

    void theMenuOffersWhatTheRowAllows() {
        HistorySite card;
        card.openTab("Ιστορικό");
        // Beside the rows, on the first one and further down.
        for (const int row : {-1, 0, 3}) {
            QTimer::singleShot(0, &card.form, [&] {
                auto* menu = card.find<QMenu>("MnuPopUpHist");
                QStringList enabled;
                for (QAction* action : menu->actions())
                    if (action->isEnabled()) enabled << action->text();
                menu->close();
                QCOMPARE(enabled, row < 0 ? QStringList{"Νέα Κίνηση"}
                                          : QStringList({"Νέα Κίνηση", "Επεξεργασία Κίνηση", "Διαγραφή Κίνησης"}));
            });
            emit card.list()->menuRequested(row, QPoint(10, 10));
        }
        QVERIFY(card.isEnabled("MnuDelHistory"));
        activate(card.form);
        card.list()->setFocus();
        card.select(3);
        card.desk.prompts.answer(true);
        QTest::keyClick(card.list(), Qt::Key_Delete);
        QCOMPARE(card.count("History"), 2);
    }

    void tabGoesFromTopToBottom() {
        HistorySite card;
        card.openTab("Ιστορικό");
        card.find("txtFrom")->setFocus();
        QCOMPARE(tabOrder("cmdPrint"),
                 QStringList({"txtFrom", "DTPcustDate0(0)", "txtTo", "DTPcustDate0(1)", "cmdShow", "ListView1",
                              "cmdAddHistory", "Command4", "cmdDelHistory", "cmdPrint"}));
        card.inNewMovement([](Driver& form) {
            QStringList boxes{"txtDate", "DTPicker1", "Text7(0)"};
            for (int i = 1; i <= 6; ++i)
                if (const QString name = QString("Text7(%1)").arg(i); form.isVisible(name)) boxes << name;
            boxes << QStringList{"txtXreosh", "txtPistosi",  "Text1",       "Command1",
                                 "Command3",  "lblClick(0)", "lblClick(1)", "lblClick(2)"};
            QCOMPARE(tabOrder("lblClick(2)"), boxes);
        });
    }

    // Somebody else changes or deletes the movement meanwhile.
    void aConflictHasAWayOut() {
        for (const auto& [button, credit] : {std::pair("cmdBack", 99.0), {"cmdMine", 31.0}, {"cmdTheirs", 99.0}}) {
            const InCase in(button);
            HistorySite card;
            card.inMovement(3, [&, button = button](Driver& form) {
                OtherSeat(card).mod.gConn.execute(
                    QString("update History set ΠΙΣΤΩΣΗ=99,s1='τους' where aa=%1").arg(card.last));
                form.type("txtPistosi", "31");
                form.type("Text1", "δικό μου");
                inNextDialog("ConflictDialog", [button](Driver& dialog) {
                    QCOMPARE(dialog.shown("optMine(0)"), "η δική μου: 31");
                    QCOMPARE(dialog.shown("optTheirs(0)"), "η δική τους: 99,00");
                    dialog.click(button);
                    if (dialog.isOpen()) dialog.click("cmdSave");
                });
                save(form);
                QCOMPARE(form.isOpen(), QString(button) == "cmdBack");
                if (!form.isOpen()) return;
                QCOMPARE(form.shown("txtPistosi"), "31");
                card.desk.prompts.answer(true);
                form.key(Qt::Key_Escape);
            });
            QCOMPARE(card.ofLast("ΠΙΣΤΩΣΗ"), credit);
            QCOMPARE(card.ofLast("s1"), "τους");
            QCOMPARE(card.ofLast("notes").toString(), QString(button) == "cmdBack" ? "" : "δικό μου");
            QCOMPARE(card.total().toDouble(), 150.1 - credit);
        }
    }

    void aMovementThatWasDeletedCanBeSavedAsANewOne() {
        for (const bool anew : {false, true}) {
            HistorySite card;
            card.mod.gConn.execute(QString("update History set n1=Null,s1='α' where aa=%1").arg(card.last));
            card.inMovement(3, [&](Driver& form) {
                OtherSeat(card).mod.gConn.execute(QString("delete from History where aa=%1").arg(card.last));
                form.type("txtPistosi", "31");
                card.desk.prompts.answer(anew);
                save(form);
                QVERIFY(card.desk.prompts.lastText().contains("διαγράφηκε στο μεταξύ"));
                QCOMPARE(form.isOpen(), !anew);
                if (anew) return;
                QCOMPARE(form.shown("txtPistosi"), "31");
                card.desk.prompts.answer(true);
                form.key(Qt::Key_Escape);
            });
            QCOMPARE(card.rowOf("Είσπραξη", 1) >= 0, anew);
            QCOMPARE(card.total().toDouble(), anew ? 150.1 - 31 : 150.1);
            const QString same = "History where s1='α' and n1 is null and n2 is null and codecards=%1 and aa<>%2";
            QCOMPARE(card.count(same.arg(card.form.CurrentCode).arg(card.last)), anew ? 1 : 0);
        }
    }

    void aMovementThatIsGoneIsSaid() {
        HistorySite card;
        card.mod.gConn.execute(QString("delete from History where aa=%1").arg(card.last));
        card.inMovement(3, [&](Driver& form) {
            QCOMPARE(card.desk.prompts.lastText(), "Η συγκεκριμένη κίνηση έχει ακυρωθεί !");
            QVERIFY(form.shown("Text7(0)").isEmpty());
            form.type("Text7(0)", "Λόγος");
            card.desk.prompts.answer(false);
            save(form);
            QVERIFY(form.isOpen());
        });
        QCOMPARE(card.count("History"), 2);
    }

    void aDatabaseThatIsGoneLeavesTheWindowUsable() {
        HistorySite card;
        const QStringList before = card.rows();
        card.inNewMovement([&](Driver& form) {
            card.lose();
            form.type("Text7(0)", "Λόγος");
            form.type("txtXreosh", "10");
            save(form);
            QVERIFY(form.isOpen());
            QVERIFY(card.desk.prompts.lastText().contains("Η σύνδεση"));
            QCOMPARE(form.shown("txtXreosh"), "10");
            card.bringBack();
            save(form);
            QVERIFY(!form.isOpen());
        });
        QCOMPARE(card.total(), 130.1);
        card.lose();
        const QStringList shown = card.rows();
        QCOMPARE(shown.size(), before.size() + 1);
        card.desk.prompts.answer(true);
        card.select(3);
        for (const auto& [button, boxes] : {std::pair("cmdDelHistory", 3), {"cmdShow", 4}}) {
            card.click(button);
            QCOMPARE(card.desk.prompts.count(), boxes);
            QCOMPARE(card.desk.prompts.lastTitle(), "Μήνυμα λάθους");
        }
        QCOMPARE(card.rows(), shown);
    }
};

QTEST_MAIN(TestHistory)
#include "test_history.moc"
