#include <QSignalSpy>
#include <QTest>

#include "controls/picturebutton.h"
#include "controls/theme.h"

using namespace controls;

class TestPictureButton : public QObject {
    Q_OBJECT

    static void enter(QWidget* widget) {
        QEnterEvent event({5, 5}, {5, 5}, {5, 5});
        QApplication::sendEvent(widget, &event);
    }
    static void leave(QWidget* widget) {
        QEvent event(QEvent::Leave);
        QApplication::sendEvent(widget, &event);
    }

private slots:
    void initTestCase() { applyTheme(*qApp, ThemeKind::Light); }

    void keysPress() {
        PictureButton button("Επόμενος", "next");
        QSignalSpy clicked(&button, &QAbstractButton::clicked), pressed(&button, &QAbstractButton::pressed);
        for (const bool enabled : {true, false}) {
            button.setEnabled(enabled);
            for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) QTest::keyClick(&button, key);
            QCOMPARE(clicked.count(), 3);
            QCOMPARE(pressed.count(), 3);
        }
    }

    void clickLeavesTheFocusInTheField() {
        QWidget form;
        auto* field = new QLineEdit(&form);
        auto* button = new PictureButton("Καταχώρηση", "save", &form);
        button->move(0, 40);
        form.show();
        form.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&form));
        field->setFocus();
        QSignalSpy clicked(button, &QAbstractButton::clicked);
        QTest::mouseClick(button, Qt::LeftButton);
        QCOMPARE(clicked.count(), 1);
        QVERIFY(field->hasFocus());
        QTest::keyClick(field, Qt::Key_Tab);
        QVERIFY(button->hasFocus());
    }

    void hoveredOncePerVisit() {
        PictureButton button("Επόμενος", "next");
        QSignalSpy hovered(&button, &PictureButton::hovered);
        enter(&button);
        enter(&button);
        QCOMPARE(hovered.count(), 1);
        leave(&button);
        enter(&button);
        QCOMPARE(hovered.count(), 2);
        leave(&button);
        button.setEnabled(false);
        enter(&button);
        QCOMPARE(hovered.count(), 2);
    }

    void everyStateLooksDifferent() {
        PictureButton button("Επόμενος", "next");
        button.resize(button.sizeHint());
        const QImage resting = button.grab().toImage();
        enter(&button);
        const QImage hover = button.grab().toImage();
        button.setDown(true);
        const QImage pressed = button.grab().toImage();
        button.setDown(false);
        leave(&button);
        QCOMPARE(button.grab().toImage(), resting);
        button.setEnabled(false);
        const QImage disabled = button.grab().toImage();
        QVERIFY(resting != hover && hover != pressed && pressed != resting && disabled != resting && disabled != hover);
    }

    void oneSizeForAllCaptions() {
        const QSize one = PictureButton("Έξοδος", "exit").sizeHint();
        for (const QString& caption :
             {QString("Εκτύπωση καρτέλας"), QString("Προηγούμενος"), QString(500, u'Ω'), QString()}) {
            PictureButton button(caption, "print");
            QCOMPARE(button.sizeHint(), one);
            button.resize(one);
            button.grab();
            QCOMPARE(button.accessibleName(), caption);
        }
    }

    void mayDestroyItselfByItsClick() {
        QPointer<PictureButton> button = new PictureButton("Έξοδος", "exit");
        connect(button, &QAbstractButton::clicked, button, [&] { delete button; });
        QTest::keyClick(button, Qt::Key_Return);
        QVERIFY(!button);
    }
};

QTEST_MAIN(TestPictureButton)
#include "test_picturebutton.moc"
