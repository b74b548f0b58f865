#include <QClipboard>
#include <QCompleter>
#include <QShortcut>
#include <QSignalSpy>
#include <QToolButton>
#include "controls/boxes.h"
#include "controls/captions.h"
#include "controls/choicebox.h"
#include "controls/names.h"
#include "controls/theme.h"
#include "support/cases.h"
#include "support/driver.h"

using namespace Qt::Literals::StringLiterals;

using namespace controls;

namespace {

// A dialog with a default button, which Enter in a box must never press.
struct Form : QDialog {
    TextBox* first = named(new TextBox(this), "Text7(0)");
    NumberBox* number = named(new NumberBox(this), "Text8(10)");
    MemoBox* memo = named(new MemoBox(this), "txtMemo(0)");
    ChoiceBox* choice = named(new ChoiceBox(true, this), "Combo3");
    QToolButton* beside = new QToolButton(this);
    TextBox* last = named(new TextBox(this), "Text7(1)");
    QPushButton* ok = new QPushButton("Εντάξει", this);
    int pressed = 0;

    Form() {
        auto* layout = new QVBoxLayout(this);
        for (QWidget* widget : QWidgetList{first, number, memo, choice, beside, last, ok}) layout->addWidget(widget);
        ok->setDefault(true);
        beside->setFocusPolicy(Qt::TabFocus);
        connect(beside, &QToolButton::clicked, this, [this] { ++pressed; });
        choice->addItems(
            {"", "Αγαθόνικος   22/08", "Ιωάννης   07/01", "Ιωάννης   08/05", "Μαρία   15/08", "Πέτρος   29/06"});
        choice->compareBy([](QStringView text) {
            QString plain;
            for (const QChar c : text.toString().normalized(QString::NormalizationForm_D).toLower())
                if (!c.isMark()) plain += c == u'ς' ? QChar(u'σ') : c;
            return plain;
        });
        connect(ok, &QPushButton::clicked, this, [this] { ++pressed; });
        first->setText("Παπαδόπουλος");
        memo->setText("γραμμή\nάλλη");
        show();
        activateWindow();
    }
};

QColor backgroundOf(QWidget* box) {
    const QImage image = box->grab().toImage();
    return image.pixelColor(image.width() - 8, image.height() / 2);
}

}  // namespace

class TestBoxes : public QObject {
    Q_OBJECT

    std::unique_ptr<Form> form_;

private slots:
    void init() {
        applyTheme(*qApp, ThemeKind::Light);
        form_ = std::make_unique<Form>();
        QVERIFY(QTest::qWaitForWindowActive(form_.get()));
    }
    void cleanup() { form_.reset(); }

    void enterMovesOnAsTab() {
        form_->first->setFocus();
        QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r", true);
        QApplication::sendEvent(form_->first, &held);
        QVERIFY(form_->first->hasFocus());
        QTest::keyClick(form_->first, Qt::Key_Return);
        QVERIFY(form_->number->hasFocus());
        QTest::keyClick(form_->number, Qt::Key_Enter, Qt::KeypadModifier);
        QVERIFY(form_->memo->hasFocus());
        form_->memo->setText("α");
        QTest::keyClick(form_->memo, Qt::Key_End);
        QTest::keyClick(form_->memo, Qt::Key_Return);
        QCOMPARE(form_->memo->text(), "α\n");
        QTest::keyClick(form_->memo, Qt::Key_Tab);
        QVERIFY(form_->choice->hasFocus());
        QCOMPARE(form_->pressed, 0);
    }

    void functionKeysReachTheForm() {
        struct Catcher : QObject {
            QList<int> keys;
            bool eventFilter(QObject*, QEvent* event) override {
                if (event->type() == QEvent::KeyPress) keys << static_cast<QKeyEvent*>(event)->key();
                return false;
            }
        } catcher;
        form_->installEventFilter(&catcher);
        for (QWidget* box : QWidgetList{form_->first, form_->number, form_->memo}) {
            box->setFocus();
            QTest::keyClick(box, Qt::Key_F3);
            QTest::keyClick(box, Qt::Key_F5);
        }
        QCOMPARE(catcher.keys.count(Qt::Key_F3), 3);
        QCOMPARE(catcher.keys.count(Qt::Key_F5), 3);
    }

    // Also where nothing may be typed.
    void focusSelectsAll() {
        for (const bool readOnly : {false, true}) {
            form_->first->setReadOnly(readOnly);
            form_->last->setFocus();
            form_->first->setFocus(Qt::TabFocusReason);
            QVERIFY(form_->first->hasFocus());
            QCOMPARE(form_->first->selectedText(), "Παπαδόπουλος");
        }
        QTest::keyClicks(form_->first, "x");
        QCOMPARE(form_->first->text(), "Παπαδόπουλος");
        form_->memo->setFocus(Qt::TabFocusReason);
        QCOMPARE(form_->memo->textCursor().selectedText().size(), 11);
    }

    void firstClickSelectsAllSecondPlacesTheCursor() {
        form_->last->setFocus();
        for (const bool firstClick : {true, false}) {
            QTest::mouseClick(form_->first, Qt::LeftButton, {}, {20, form_->first->height() / 2});
            QCOMPARE(form_->first->selectedText(), firstClick ? "Παπαδόπουλος" : "");
        }
        for (const bool firstClick : {true, false}) {
            QTest::mouseClick(form_->memo->viewport(), Qt::LeftButton, {}, {15, 10});
            QCOMPARE(form_->memo->textCursor().hasSelection(), firstClick);
        }
    }

    void firstClickThatDragsKeepsItsSelection() {
        form_->last->setFocus();
        const int y = form_->first->height() / 2;
        QTest::mousePress(form_->first, Qt::LeftButton, {}, QPoint(8, y));
        QMouseEvent move(QEvent::MouseMove, QPointF(40, y), form_->first->mapToGlobal(QPointF(40, y)), Qt::NoButton,
                         Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(form_->first, &move);
        QTest::mouseRelease(form_->first, Qt::LeftButton, {}, QPoint(40, y));
        const QString selected = form_->first->selectedText();
        QVERIFY(!selected.isEmpty() && selected != form_->first->text());
    }

    void comingBackFromAMenuKeepsTheSelection() {
        form_->first->setFocus(Qt::TabFocusReason);
        form_->first->setSelection(2, 3);
        for (const Qt::FocusReason reason : {Qt::PopupFocusReason, Qt::ActiveWindowFocusReason}) {
            for (const QEvent::Type type : {QEvent::FocusOut, QEvent::FocusIn}) {
                QFocusEvent event(type, reason);
                QApplication::sendEvent(form_->first, &event);
            }
            QCOMPARE(form_->first->selectedText(), "παδ");
        }
    }

    void highlightOnlyWhenAllowedAndFocused() {
        for (const ThemeKind kind : {ThemeKind::Light, ThemeKind::Dark}) {
            applyTheme(*qApp, kind);
            const QColor lit = theme().highlightBox;
            if (kind == ThemeKind::Light) QCOMPARE(lit, QColor(0xFF, 0xFF, 0xC0));
            const auto check = [&](auto* box) {
                const support::InCase in(box->objectName() + (theme().dark ? " dark" : " light"));
                box->setFocus();
                QVERIFY(backgroundOf(box) != lit);
                box->setHighlighting(true);
                QCOMPARE(backgroundOf(box), lit);
                form_->last->setFocus();
                QCOMPARE(backgroundOf(box), theme().base);
                box->setFocus();
                QCOMPARE(backgroundOf(box), lit);
                box->setHighlighting(false);
                QCOMPARE(backgroundOf(box), theme().base);
            };
            check(form_->first);
            check(form_->memo);
        }
    }

    void numbersTakeFiguresAndCommas() {
        struct Case {
            const char* name;
            QString before;
            int cursor;
            QString typed, after;
            int cursorAfter;
            bool pasted = false;
            bool refused = false;
        };
        const Case cases[] = {
            {"figures and a comma", "", 0, "12,50", "12,50", 5},
            {"a point is a comma", "", 0, "12.50", "12,50", 5},
            {"minus and letters", "", 0, "-1.a2b", "1,2", 3},
            {"exponent, plus, blank", "", 0, "+1e 3", "13", 2},
            {"in the middle", "1250", 2, "a,x", "12,50", 3},
            {"at the start", "50", 0, "-1.", "1,50", 2},
            {"behind a stored minus", "-5", 1, "7-", "-75", 2},
            {"Greek form", "", 0, "1.234,56", "1234,56", 7, true},
            {"millions", "", 0, "1.234.567", "1234567", 7, true},
            {"plain form", "", 0, "1234.56", "1234,56", 7, true},
            {"plain form, short", "", 0, " 12.50 \n", "12,50", 5, true},
            {"with its sign", "", 0, "-5", "-5", 2, true},
            {"an amount of money", "", 0, "€ 1.234,5", "1234,5", 6, true},
            {"in the middle", "1250", 2, "3", "12350", 3, true},
            {"over a text that begins alike", "1250", -1, "12.75", "12,75", 5, true},
            {"at the end of a negative", "-5", 2, "1", "-51", 3, true},
            // Refused: the box stays as it was, and says so.
            {"an exponent", "7", 1, "1e5", "7", 1, true, true},
            {"letters", "7", 1, "12α", "7", 1, true, true},
            {"two numbers", "7", 1, "12 34", "7", 1, true, true},
            {"a date", "7", 1, "05/11/2026", "7", 1, true, true},
            {"English form", "7", 1, "1,234.56", "7", 1, true, true},
            {"a minus behind figures", "7", 1, "-5", "7", 1, true, true},
            {"a second comma", "1,5", 3, "2,5", "1,5", 3, true, true},
        };
        QSignalSpy refused(form_->number, &NumberBox::refused);
        for (const Case& c : cases) {
            const support::InCase in(c.name);
            form_->number->setText(c.before);
            form_->number->setFocus();
            c.cursor < 0 ? form_->number->selectAll() : form_->number->setCursorPosition(c.cursor);
            refused.clear();
            QGuiApplication::clipboard()->setText(c.typed);
            c.pasted ? form_->number->paste() : support::typeKeys(form_->number, c.typed);
            QCOMPARE(form_->number->text(), c.after);
            QCOMPARE(form_->number->cursorPosition(), c.cursorAfter);
            QCOMPARE(refused.count(), c.refused ? 1 : 0);
        }
    }

    void theKeypadsDecimalKeyIsAComma() {
        form_->number->setText("12");
        form_->number->setFocus();
        form_->number->setCursorPosition(2);
        QTest::keyClick(form_->number, Qt::Key_Period, Qt::KeypadModifier);
        QTest::keyClicks(form_->number, "50");
        QCOMPARE(form_->number->text(), "12,50");
        QTest::keySequence(form_->number, QKeySequence::Undo);
        QVERIFY(form_->number->text() != "12,50");
    }

    void numberForeignKeyLeavesTheSelection() {
        form_->number->setText("7");
        form_->number->setFocus(Qt::TabFocusReason);
        QTest::keyClick(form_->number, 'x');
        QCOMPARE(form_->number->text(), "7");
        QTest::keyClick(form_->number, Qt::Key_Backspace);
        QVERIFY(form_->number->text().isEmpty());
    }

    // Each is one edit of the box; the first item is what no name begins with.
    void typingProposesWhatBeginsSo() {
        struct Case {
            QString typed, shown, chosen;
        };
        const Case cases[] = {
            {"Πετρος", "Πετρος   29/06", "Πέτρος   29/06"},
            {"ΜΑΡΙΑ", "ΜΑΡΙΑ   15/08", "Μαρία   15/08"},
            {"Ιω", "Ιωάννης   07/01", "Ιωάννης   07/01"},
            {"Νικ", "Νικ", "Νικ"},
            {"ος", "ος", "ος"},
            {"Μαρίνα", "Μαρίνα", "Μαρίνα"},
        };
        ChoiceBox* choice = form_->choice;
        for (const Case& c : cases) {
            const support::InCase in(c.typed);
            choice->setCurrentIndex(0);
            form_->first->setFocus();
            choice->setFocus(Qt::TabFocusReason);
            support::typeKeys(choice, c.typed);
            QCOMPARE(choice->currentText(), c.shown);
            QCOMPARE(choice->lineEdit()->selectedText(), c.shown.mid(c.typed.size()));
            QCOMPARE(choice->chosenText(), c.chosen);
            form_->last->setFocus();
            QCOMPARE(choice->currentText(), c.chosen);
        }
        // The arrow keys go on from what was proposed.
        choice->setFocus(Qt::TabFocusReason);
        support::typeKeys(choice, "Ιω");
        QTest::keyClick(choice, Qt::Key_Down);
        QCOMPARE(choice->currentText(), "Ιωάννης   08/05");
        form_->last->setFocus();
        // Taking back goes on taking back, and what the program sets stands.
        choice->setFocus(Qt::TabFocusReason);
        support::typeKeys(choice, "Ιω");
        QTest::keyClick(choice, Qt::Key_Backspace);
        QTest::keyClick(choice, Qt::Key_Backspace);
        QCOMPARE(choice->currentText(), "Ι");
        choice->setEditText("ΜΑΡΙΑ   15/08");
        QCOMPARE(choice->chosenText(), "ΜΑΡΙΑ   15/08");
    }

    // From a box on to the next field, whatever stands beside it; Tab and Space still reach the button.
    void enterPassesOverButtonsBesideFields() {
        form_->number->setFocus();
        form_->choice->setFocus(Qt::TabFocusReason);
        QTest::keyClick(form_->choice, Qt::Key_Return);
        QVERIFY(form_->last->hasFocus());
        form_->choice->setFocus();
        QTest::keyClick(form_->choice, Qt::Key_Tab);
        QVERIFY(form_->beside->hasFocus());
        QTest::keyClick(form_->beside, Qt::Key_Space);
        QCOMPARE(form_->pressed, 1);
    }

    // The text can be copied, and no key, wheel or click chooses another.
    void aReadOnlyListIsReadAndCopied() {
        auto* fixed = new ChoiceBox(false, form_.get());
        fixed->addItems({"Άνδρας", "Γυναίκα"});
        fixed->show();
        for (ChoiceBox* choice : {form_->choice, fixed}) {
            const support::InCase in(choice->isEditable() ? "editable" : "fixed");
            choice->setCurrentIndex(1);
            const QString text = choice->currentText();
            choice->setReadOnly(true);
            choice->setFocus(Qt::TabFocusReason);
            QVERIFY(choice->hasFocus());
            for (const Qt::Key key : {Qt::Key_Up, Qt::Key_Down, Qt::Key_PageDown, Qt::Key_Home, Qt::Key_F4})
                QTest::keyClick(choice, key);
            choice->setFocus();
            support::typeKeys(choice, "ΑΜ");
            QTest::mouseClick(choice, Qt::LeftButton, {}, {choice->width() - 5, 8});
            QVERIFY(!choice->view()->isVisible());
            QCOMPARE(choice->currentText(), text);
            if (choice->isEditable()) choice->lineEdit()->selectAll();
            QGuiApplication::clipboard()->setText("");
            QTest::keySequence(choice, QKeySequence::Copy);
            QCOMPARE(QGuiApplication::clipboard()->text(), text);
            choice->setReadOnly(false);
            QTest::keyClick(choice, Qt::Key_Up);
            QCOMPARE(choice->currentIndex(), 0);
        }
    }

    void escapeClosesTheOpenListAlone() {
        QShortcut shortcut(Qt::Key_Escape, form_.get(), nullptr, nullptr, Qt::WidgetWithChildrenShortcut);
        QSignalSpy asked(&shortcut, &QShortcut::activated);
        form_->choice->setFocus();
        form_->choice->showPopup();
        QTest::keyClick(form_->choice->view(), Qt::Key_Escape);
        QVERIFY(!form_->choice->view()->isVisible());
        QCOMPARE(asked.count(), 0);
        QTest::keyClick(form_->choice, Qt::Key_Escape);
        QCOMPARE(asked.count(), 1);
    }

    // Walking through a locked form changes nothing.
    void emptyNumberOnLeaving() {
        for (const auto& [whenEmpty, readOnly, after] :
             {std::tuple(QString(), false, ""), {"0", true, ""}, {"0", false, "0"}}) {
            form_->number->setWhenEmpty(whenEmpty);
            form_->number->setReadOnly(readOnly);
            form_->number->setFocus();
            form_->last->setFocus();
            QCOMPARE(form_->number->text(), after);
        }
    }

    void controlCharactersNeverGetIn() {
        const QString dirty = u"α"_s + QChar(0) + "β\x07\r\nγ\tδ" + QChar(0x85) + "😀";
        QGuiApplication::clipboard()->setText(dirty);
        const auto check = [&](auto* box, const QString& clean) {
            box->setText(dirty);
            QCOMPARE(box->text(), clean);
            box->clear();
            box->paste();
            QCOMPARE(box->text(), clean);
        };
        check(form_->first, "αβ γ δ😀");
        check(form_->memo, "αβ\nγ\tδ😀");
    }

    void hugePasteIsCut() {
        QGuiApplication::clipboard()->setText(QString(1000000, u'Ω'));
        form_->number->setText("");
        for (TextBox* box : {form_->first, static_cast<TextBox*>(form_->number)}) {
            box->setMaxLength(50);
            box->selectAll();
            box->paste();
        }
        QCOMPARE(form_->first->text(), QString(50, u'Ω'));
        QCOMPARE(form_->number->text(), "");
    }

    void captionsAreSpokenWithoutMarks() {
        QLabel label("&Επώνυμο && Όνομα : ");
        tie(&label, form_->first);
        QCOMPARE(form_->first->accessibleName(), "Επώνυμο & Όνομα");
        QCOMPARE(label.buddy(), form_->first);
        setTypedCaption(&label, "Α&Β");
        setTypedCaption(form_->ok, "Α&Β");
        QCOMPARE(label.text() + form_->ok->text(), "Α&&ΒΑ&&Β");
        QCOMPARE(arrayName("Text7", 11), "Text7(11)");
    }
};

QTEST_MAIN(TestBoxes)
#include "test_boxes.moc"
