#include <QDialogButtonBox>
#include <QMessageBox>
#include "platform/prompts.h"
#include "platform/sound.h"
#include "support/cases.h"

using namespace Qt::Literals::StringLiterals;

using platform::DesktopPrompts;
using platform::MessageIcon;

// The real boxes, answered by keys and clicks from inside their own event loop.
class TestPrompts : public QObject {
    Q_OBJECT

    DesktopPrompts prompts_;

    static QStringList buttonTexts(const QWidget* dialog) {
        QStringList texts;
        for (const auto* button : dialog->findChildren<QPushButton*>()) texts << button->text().remove(u'&');
        texts.sort();
        return texts;
    }

    // Runs once the next modal dialog is up. A dialog that `act` leaves open is rejected, so that no fault hangs the
    // run.
    static void whenShown(const std::function<void(QDialog*)>& act) {
        QTimer::singleShot(0, qApp, [act] {
            auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            QVERIFY(dialog);
            act(dialog);
            if (dialog->isVisible()) dialog->reject();
        });
    }

private slots:
    void oneOfSeveralAnswers() {
        const std::pair<const char*, int> cases[] = {{"Συνέχεια", 0}, {"Διαγραφή", 1}, {"Αργότερα", 2}, {"", 2}};
        for (const auto& [pressed, index] : cases) {
            whenShown([pressed = QString(pressed)](QDialog* dialog) {
                for (auto* button : dialog->findChildren<QPushButton*>())
                    if (button->text() == pressed) button->click();
                if (pressed.isEmpty()) dialog->close();
            });
            QCOMPARE(prompts_.choose(nullptr, "Dorvalist", "Τι;", {"Συνέχεια", "Διαγραφή", "Αργότερα"}), index);
        }
    }

    void question() {
        const std::pair<const char*, int> cases[] = {{"a hasty Enter is No", Qt::Key_Return},
                                                     {"Escape is No", Qt::Key_Escape},
                                                     {"closing is No", 0},
                                                     {"Yes by its key", Qt::Key_Y}};
        for (const auto& [name, key] : cases) {
            for (const QString& text : {u"Να διαγραφεί η κάρτα <b>του</b> & Σία;"_s, QString(100000, u'α')}) {
                const support::InCase in(name);
                whenShown([key = key](QDialog* dialog) {
                    QCOMPARE(buttonTexts(dialog), QStringList({"Όχι", "Ναι"}));
                    if (key == Qt::Key_Y) {
                        for (auto* button : dialog->findChildren<QPushButton*>())
                            if (button->text().contains("Ναι")) button->click();
                    } else if (key) {
                        QTest::keyClick(dialog->focusWidget() ? dialog->focusWidget() : dialog, Qt::Key(key));
                    } else {
                        dialog->close();
                    }
                });
                QCOMPARE(prompts_.question(nullptr, "Dorvalist", text), key == Qt::Key_Y);
            }
        }
    }

    void typedValuesAreSavedGivenUpOrKept() {
        using platform::SaveChoice;
        const std::tuple<const char*, QString, SaveChoice> cases[] = {
            {"saved", "Αποθήκευση", SaveChoice::Save},
            {"given up", "Χωρίς αποθήκευση", SaveChoice::Discard},
            {"kept", "Επιστροφή", SaveChoice::Back},
            {"Escape keeps", {}, SaveChoice::Back}};
        for (const auto& [name, pressed, choice] : cases) {
            const support::InCase in(name);
            whenShown([pressed = pressed](QDialog* dialog) {
                QCOMPARE(buttonTexts(dialog).size(), 3);
                QCOMPARE(qobject_cast<QMessageBox*>(dialog)->defaultButton()->text().remove(u'&'), "Επιστροφή");
                for (auto* button : dialog->findChildren<QPushButton*>())
                    if (button->text().remove(u'&') == pressed) return button->click();
                QTest::keyClick(dialog, Qt::Key_Escape);
            });
            QCOMPARE(prompts_.askToSave(nullptr, "Dorvalist", "Η καρτέλα έχει αλλαγές."), choice);
        }
    }

    void message() {
        const QString texts[] = {"Η εκτύπωση της καρτέλας ολοκληρώθηκε !", "<h1>a</h1><img src='x'>",
                                 QString("γραμμή\n").repeated(2000), QString(200000, u'Ω'), QChar(0)};
        for (const QString& text : texts) {
            const support::InCase in(text);
            bool seen = false;
            whenShown([&](QDialog* dialog) {
                seen = true;
                QCOMPARE(dialog->windowTitle(), "Μήνυμα λάθους");
                QCOMPARE(buttonTexts(dialog), QStringList("Εντάξει"));
                const QSize screen = dialog->screen()->availableSize();
                QVERIFY2(dialog->width() <= screen.width() && dialog->height() <= screen.height(),
                         "outgrows the screen");
                if (auto* box = qobject_cast<QMessageBox*>(dialog)) QCOMPARE(box->textFormat(), Qt::PlainText);
                QTest::keyClick(dialog, Qt::Key_Escape);
            });
            prompts_.message(nullptr, MessageIcon::Critical, "Μήνυμα λάθους", text);
            QVERIFY(seen);
        }
    }

    void input() {
        whenShown([](QDialog* dialog) {
            QCOMPARE(buttonTexts(dialog), QStringList({"Άκυρο", "Εντάξει"}));
            auto* line = dialog->findChild<QLineEdit*>();
            QCOMPARE(line->text(), "0");
            line->setText(u"Νίκος"_s);
            QTest::keyClick(line, Qt::Key_Return);
        });
        QCOMPARE(prompts_.input(nullptr, "Dorvalist", "Όνομα", "0"), std::optional(u"Νίκος"_s));

        // An accepted empty text and a cancel are two different answers.
        whenShown([](QDialog* dialog) {
            dialog->findChild<QLineEdit*>()->clear();
            dialog->accept();
        });
        QCOMPARE(prompts_.input(nullptr, "Dorvalist", "Όνομα", "0"), std::optional(QString("")));
        whenShown([](QDialog* dialog) { dialog->reject(); });
        QCOMPARE(prompts_.input(nullptr, "Dorvalist", "Όνομα", "0"), std::nullopt);
    }

    void filesAndFolders() {
        QTemporaryDir folder;
        const QString file = folder.filePath("φωτό.jpg");
        QVERIFY(QFile(file).open(QIODevice::WriteOnly));
        const QString photos = "Φωτογραφίες (*.bmp *.jpg);;Όλα (*)", suggested = "Κινήσεις 2026.pdf";
        struct Case {
            const char* name;
            std::function<QString()> ask;
            QString before, chosen, answer;
        };
        const auto open = [&] { return prompts_.openFile(nullptr, "Φωτογραφία", photos); };
        const auto choose = [&] { return prompts_.chooseFolder(nullptr, "Επιλογή Υποκαταλόγου"); };
        const auto save = [&] {
            return prompts_.saveFile(nullptr, "Αποθήκευση σε PDF", suggested, "Αρχεία PDF (*.pdf)");
        };
        const Case cases[] = {
            {"open", open, "", file, file},
            {"open, cancelled", open, "", "", ""},
            {"folder", choose, "", folder.path(), folder.path()},
            {"folder, cancelled", choose, "", "", ""},
            {"save, without an ending", save, suggested, folder.filePath("άλλο"), folder.filePath("άλλο.pdf")},
            {"save, cancelled", save, suggested, "", ""},
        };
        for (const Case& c : cases) {
            const support::InCase in(c.name);
            whenShown([&](QDialog* dialog) {
                auto* name = dialog->findChild<QLineEdit*>("fileNameEdit");
                QVERIFY(name);
                if (!c.before.isEmpty()) QCOMPARE(name->text(), c.before);
                if (c.chosen.isEmpty()) return dialog->reject();
                name->setText(c.chosen);
                dialog->findChild<QDialogButtonBox*>()->buttons().constFirst()->click();
            });
            QCOMPARE(c.ask(), c.answer);
        }
    }

    void soundOfNothingIsSilence() {
        QTest::failOnWarning(QRegularExpression("."));
        const auto sound = platform::systemSound();
        for (const QString& path : {QString(), QString("/nowhere/x.wav"), QDir::tempPath(), QString(5000, u'/')})
            sound->play(path);
        sound->beep();
    }
};

QTEST_MAIN(TestPrompts)
#include "test_prompts.moc"
