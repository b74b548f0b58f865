#include <QTest>

#include "platform/prompts.h"
#include "platform/sound.h"

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
    void question_data() {
        QTest::addColumn<int>("key");
        QTest::addColumn<bool>("expected");
        QTest::newRow("a hasty Enter is No") << int(Qt::Key_Return) << false;
        QTest::newRow("Escape is No") << int(Qt::Key_Escape) << false;
        QTest::newRow("closing is No") << 0 << false;
        QTest::newRow("Yes by its key") << int(Qt::Key_Y) << true;
    }
    void question() {
        QFETCH(int, key);
        QFETCH(bool, expected);
        for (const QString& text :
             {QString::fromUtf8("Να διαγραφεί η κάρτα <b>του</b> & Σία;"), QString(100000, u'α')}) {
            whenShown([&](QDialog* dialog) {
                QCOMPARE(buttonTexts(dialog), QStringList({"Όχι", "Ναι"}));
                if (key == Qt::Key_Y) {
                    for (auto* button : dialog->findChildren<QPushButton*>())
                        if (button->text().contains(QString::fromUtf8("Ναι"))) button->click();
                } else if (key) {
                    QTest::keyClick(dialog->focusWidget() ? dialog->focusWidget() : dialog, Qt::Key(key));
                } else {
                    dialog->close();
                }
            });
            QCOMPARE(prompts_.question(nullptr, "Dorvalist", text), expected);
        }
    }

    void message_data() {
        QTest::addColumn<QString>("text");
        QTest::newRow("short") << QString::fromUtf8("Η εκτύπωση της καρτέλας ολοκληρώθηκε !");
        QTest::newRow("markup stays text") << "<h1>a</h1><img src='x'>";
        QTest::newRow("many lines") << QString("γραμμή\n").repeated(2000);
        QTest::newRow("one long line") << QString(200000, u'Ω');
        QTest::newRow("NUL and empty") << QString(QChar(0));
    }
    void message() {
        QFETCH(QString, text);
        whenShown([&](QDialog* dialog) {
            QCOMPARE(dialog->windowTitle(), QString::fromUtf8("Μήνυμα λάθους"));
            QCOMPARE(buttonTexts(dialog), QStringList({"Εντάξει"}));
            const QSize screen = dialog->screen()->availableSize();
            QVERIFY2(dialog->width() <= screen.width() && dialog->height() <= screen.height(), "outgrows the screen");
            if (auto* box = qobject_cast<QMessageBox*>(dialog)) QCOMPARE(box->textFormat(), Qt::PlainText);
            QTest::keyClick(dialog, Qt::Key_Escape);
        });
        prompts_.message(nullptr, MessageIcon::Critical, QString::fromUtf8("Μήνυμα λάθους"), text);
    }

    void input() {
        whenShown([](QDialog* dialog) {
            QCOMPARE(buttonTexts(dialog), QStringList({"Άκυρο", "Εντάξει"}));
            auto* line = dialog->findChild<QLineEdit*>();
            QCOMPARE(line->text(), QString("0"));
            line->setText(QString::fromUtf8("Νίκος"));
            QTest::keyClick(line, Qt::Key_Return);
        });
        QCOMPARE(prompts_.input(nullptr, "Dorvalist", "Όνομα", "0"), std::optional(QString::fromUtf8("Νίκος")));

        // An accepted empty text and a cancel are two different answers.
        whenShown([](QDialog* dialog) {
            dialog->findChild<QLineEdit*>()->clear();
            dialog->accept();
        });
        QCOMPARE(prompts_.input(nullptr, "Dorvalist", "Όνομα", "0"), std::optional(QString("")));
        whenShown([](QDialog* dialog) { dialog->reject(); });
        QCOMPARE(prompts_.input(nullptr, "Dorvalist", "Όνομα", "0"), std::nullopt);
    }

    void fileAndFolder() {
        QTemporaryDir folder;
        const QString file = folder.filePath(QString::fromUtf8("φωτό.jpg"));
        QVERIFY(QFile(file).open(QIODevice::WriteOnly));
        const auto choose = [](const QString& path) {
            whenShown([path](QDialog* dialog) {
                auto* name = dialog->findChild<QLineEdit*>("fileNameEdit");
                QVERIFY(name);
                name->setText(path);
                static_cast<QFileDialog*>(dialog)->findChild<QDialogButtonBox*>()->buttons().constFirst()->click();
            });
        };
        choose(file);
        QCOMPARE(prompts_.openFile(nullptr, "Φωτογραφία", "Φωτογραφίες (*.bmp *.jpg);;Όλα (*)"), file);
        whenShown([](QDialog* dialog) { dialog->reject(); });
        QVERIFY(prompts_.openFile(nullptr, "Φωτογραφία", "Φωτογραφίες (*.jpg)").isEmpty());
        choose(folder.path());
        QCOMPARE(prompts_.chooseFolder(nullptr, "Επιλογή Υποκαταλόγου"), folder.path());
        whenShown([](QDialog* dialog) { dialog->reject(); });
        QVERIFY(prompts_.chooseFolder(nullptr, "Επιλογή Υποκαταλόγου").isEmpty());
    }

    void fileToWrite() {
        QTemporaryDir folder;
        const auto type = [](const QString& expected, const QString& path) {
            whenShown([=](QDialog* dialog) {
                auto* name = dialog->findChild<QLineEdit*>("fileNameEdit");
                QVERIFY(name);
                QCOMPARE(name->text(), expected);
                if (path.isEmpty()) return dialog->reject();
                name->setText(path);
                static_cast<QFileDialog*>(dialog)->findChild<QDialogButtonBox*>()->buttons().constFirst()->click();
            });
        };
        const QString suggested = "Κινήσεις 2026.pdf", filter = "Αρχεία PDF (*.pdf)";
        type(suggested, folder.filePath("άλλο"));
        QCOMPARE(prompts_.saveFile(nullptr, "Αποθήκευση σε PDF", suggested, filter), folder.filePath("άλλο.pdf"));
        type(suggested, {});
        QVERIFY(prompts_.saveFile(nullptr, "Αποθήκευση σε PDF", suggested, filter).isEmpty());
    }

    void soundOfNothingIsSilence() {
        const auto sound = platform::systemSound();
        for (const QString& path : {QString(), QString("/nowhere/x.wav"), QDir::tempPath(), QString(5000, u'/')})
            sound->play(path);
        sound->beep();
    }
};

QTEST_MAIN(TestPrompts)
#include "test_prompts.moc"
