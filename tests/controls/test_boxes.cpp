#include <QTest>

#include "controls/boxes.h"
#include "controls/names.h"
#include "controls/theme.h"

using namespace Qt::Literals::StringLiterals;

using namespace controls;

namespace {

// A dialog with a default button, which Enter in a box must never press.
struct Form : QDialog {
    TextBox* first = named(new TextBox(this), "Text7(0)");
    NumberBox* number = named(new NumberBox(this), "Text8(10)");
    MemoBox* memo = named(new MemoBox(this), "txtMemo(0)");
    TextBox* last = named(new TextBox(this), "Text7(1)");
    QPushButton* ok = new QPushButton("Εντάξει", this);
    int pressed = 0;

    Form() {
        auto* layout = new QVBoxLayout(this);
        for (QWidget* widget : std::initializer_list<QWidget*>{first, number, memo, last, ok})
            layout->addWidget(widget);
        ok->setDefault(true);
        connect(ok, &QPushButton::clicked, this, [this] { ++pressed; });
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
        QTest::keyClick(form_->first, Qt::Key_Return);
        QVERIFY(form_->number->hasFocus());
        QTest::keyClick(form_->number, Qt::Key_Enter, Qt::KeypadModifier);
        QVERIFY(form_->memo->hasFocus());
        form_->memo->setText("α");
        QTest::keyClick(form_->memo, Qt::Key_End);
        QTest::keyClick(form_->memo, Qt::Key_Return);
        QCOMPARE(form_->memo->text(), QString("α\n"));
        QTest::keyClick(form_->memo, Qt::Key_Tab);
        QVERIFY(form_->last->hasFocus());
        QCOMPARE(form_->pressed, 0);
    }

    void heldEnterMovesOnce() {
        form_->first->setFocus();
        QKeyEvent repeated(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r", true);
        QApplication::sendEvent(form_->first, &repeated);
        QVERIFY(form_->first->hasFocus());
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
        for (QWidget* box : std::initializer_list<QWidget*>{form_->first, form_->number, form_->memo}) {
            box->setFocus();
            QTest::keyClick(box, Qt::Key_F3);
            QTest::keyClick(box, Qt::Key_F5);
        }
        QCOMPARE(catcher.keys.count(Qt::Key_F3), 3);
        QCOMPARE(catcher.keys.count(Qt::Key_F5), 3);
    }

    void focusSelectsAll() {
        form_->first->setText("Παπαδόπουλος");
        form_->last->setFocus();
        form_->first->setFocus(Qt::TabFocusReason);
        QCOMPARE(form_->first->selectedText(), QString("Παπαδόπουλος"));
        form_->memo->setText("γραμμή\nάλλη");
        form_->memo->setFocus(Qt::TabFocusReason);
        QCOMPARE(form_->memo->textCursor().selectedText().size(), 11);
    }

    void firstClickSelectsAllSecondPlacesTheCursor() {
        form_->first->setText("Παπαδόπουλος");
        form_->memo->setText("γραμμή\nάλλη");
        form_->last->setFocus();
        const QPoint inside(20, form_->first->height() / 2);
        QTest::mouseClick(form_->first, Qt::LeftButton, {}, inside);
        QCOMPARE(form_->first->selectedText(), QString("Παπαδόπουλος"));
        QTest::mouseClick(form_->first, Qt::LeftButton, {}, inside);
        QVERIFY(!form_->first->hasSelectedText());
        QTest::mouseClick(form_->memo->viewport(), Qt::LeftButton, {}, QPoint(15, 10));
        QVERIFY(form_->memo->textCursor().hasSelection());
        QTest::mouseClick(form_->memo->viewport(), Qt::LeftButton, {}, QPoint(15, 10));
        QVERIFY(!form_->memo->textCursor().hasSelection());
    }

    void firstClickThatDragsKeepsItsSelection() {
        form_->first->setText("Παπαδόπουλος");
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
        form_->first->setText("Παπαδόπουλος");
        form_->first->setFocus(Qt::TabFocusReason);
        form_->first->setSelection(2, 3);
        for (const Qt::FocusReason reason : {Qt::PopupFocusReason, Qt::ActiveWindowFocusReason}) {
            QFocusEvent out(QEvent::FocusOut, reason);
            QApplication::sendEvent(form_->first, &out);
            QFocusEvent in(QEvent::FocusIn, reason);
            QApplication::sendEvent(form_->first, &in);
            QCOMPARE(form_->first->selectedText(), QString("παδ"));
        }
    }

    void highlightOnlyWhenAllowedAndFocused_data() {
        QTest::addColumn<bool>("dark");
        QTest::newRow("light") << false;
        QTest::newRow("dark") << true;
    }
    void highlightOnlyWhenAllowedAndFocused() {
        QFETCH(bool, dark);
        applyTheme(*qApp, dark ? ThemeKind::Dark : ThemeKind::Light);
        const QColor lit = theme().highlightBox;
        if (!dark) QCOMPARE(lit, QColor(0xFF, 0xFF, 0xC0));
        for (QWidget* box : std::initializer_list<QWidget*>{form_->first, form_->memo}) {
            auto* line = qobject_cast<TextBox*>(box);
            const auto allow = [&](bool on) { line ? line->setHighlighting(on) : form_->memo->setHighlighting(on); };
            box->setFocus();
            QVERIFY(backgroundOf(box) != lit);
            allow(true);
            QCOMPARE(backgroundOf(box), lit);
            form_->last->setFocus();
            QCOMPARE(backgroundOf(box), theme().base);
            box->setFocus();
            QCOMPARE(backgroundOf(box), lit);
            allow(false);
            QCOMPARE(backgroundOf(box), theme().base);
        }
    }

    void numberTyping_data() {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("expected");
        QTest::newRow("digits and comma") << "12,50"
                                          << "12,50";
        QTest::newRow("point, minus, letters") << "-1.a2b"
                                               << "12";
        QTest::newRow("exponent, plus, blank") << "+1e 3"
                                               << "13";
    }
    void numberTyping() {
        QFETCH(QString, typed);
        QFETCH(QString, expected);
        form_->number->setFocus();
        QTest::keyClicks(form_->number, typed);
        QCOMPARE(form_->number->text(), expected);
    }

    void numberForeignKeyLeavesTheSelection() {
        form_->number->setText("7");
        form_->number->setFocus(Qt::TabFocusReason);
        QTest::keyClick(form_->number, 'x');
        QCOMPARE(form_->number->text(), QString("7"));
        QTest::keyClick(form_->number, Qt::Key_Backspace);
        QVERIFY(form_->number->text().isEmpty());
    }

    void numberPaste() {
        QGuiApplication::clipboard()->setText("€ 1.234,5-");
        form_->number->setFocus();
        form_->number->paste();
        QCOMPARE(form_->number->text(), QString("1234,5"));
        // A stored negative is shown as it is, and editing beside its sign does not lose the sign.
        form_->number->setText("-5");
        QCOMPARE(form_->number->text(), QString("-5"));
        form_->number->setCursorPosition(2);
        QGuiApplication::clipboard()->setText("a1");
        form_->number->paste();
        QCOMPARE(form_->number->text(), QString("-51"));
        QCOMPARE(form_->number->cursorPosition(), 3);
        QTest::keyClicks(form_->number, "2");
        QCOMPARE(form_->number->text(), QString("-512"));
    }

    void emptyNumberOnLeaving() {
        form_->number->setFocus();
        form_->last->setFocus();
        QVERIFY(form_->number->text().isEmpty());
        form_->number->setWhenEmpty("0");
        form_->number->setReadOnly(true);
        form_->number->setFocus();
        form_->last->setFocus();
        QVERIFY2(form_->number->text().isEmpty(), "walking through a locked form changes nothing");
        form_->number->setReadOnly(false);
        form_->number->setFocus();
        form_->last->setFocus();
        QCOMPARE(form_->number->text(), QString("0"));
    }

    void controlCharactersNeverGetIn() {
        const QString dirty = u"α"_s + QChar(0) + "β\x07\r\nγ\tδ" + QChar(0x85) + QString::fromUtf8("😀");
        const QString line = QString::fromUtf8("αβ γ δ😀");
        const QString many = QString::fromUtf8("αβ\nγ\tδ😀");
        form_->first->setText(dirty);
        QCOMPARE(form_->first->text(), line);
        form_->memo->setText(dirty);
        QCOMPARE(form_->memo->text(), many);

        auto* mime = new QMimeData;
        mime->setText(dirty);
        QGuiApplication::clipboard()->setMimeData(mime);
        form_->first->clear();
        form_->first->paste();
        QCOMPARE(form_->first->text(), line);
        form_->memo->clear();
        form_->memo->paste();
        QCOMPARE(form_->memo->text(), many);
    }

    void hugePasteIsTaken() {
        QGuiApplication::clipboard()->setText(QString(1000000, u'Ω'));
        for (TextBox* box : {form_->first, static_cast<TextBox*>(form_->number)}) {
            box->setMaxLength(50);
            box->paste();
            QVERIFY(box->text().size() <= 50);
        }
        QCOMPARE(form_->first->text(), QString(50, u'Ω'));
    }

    void readOnlyStaysReachable() {
        form_->first->setReadOnly(true);
        form_->first->setText("Παπαδόπουλος");
        form_->last->setFocus();
        form_->first->setFocus(Qt::TabFocusReason);
        QVERIFY(form_->first->hasFocus());
        QCOMPARE(form_->first->selectedText(), QString("Παπαδόπουλος"));
        QTest::keyClicks(form_->first, "x");
        QCOMPARE(form_->first->text(), QString("Παπαδόπουλος"));
    }

    void captionsAreSpokenWithoutMarks() {
        QLabel label("&Επώνυμο && Όνομα : ");
        tie(&label, form_->first);
        QCOMPARE(form_->first->accessibleName(), QString("Επώνυμο & Όνομα"));
        QCOMPARE(label.buddy(), form_->first);
        QCOMPARE(arrayName("Text7", 11), QString("Text7(11)"));
    }
};

QTEST_MAIN(TestBoxes)
#include "test_boxes.moc"
