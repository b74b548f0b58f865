// No window cuts a text off, lays one control on another or puts one outside itself.
#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QLabel>
#include <QMdiSubWindow>
#include <QStackedWidget>

#include "support/cases.h"
#include "support/windowwalk.h"

namespace {

QString described(const QWidget* widget) {
    return QString("%1 %2").arg(widget->metaObject()->className(), widget->objectName());
}

bool isLaidOut(const QWidget* widget) {
    return widget->isVisible() && !widget->isWindow() && !qobject_cast<const QMdiSubWindow*>(widget) &&
           !widget->objectName().startsWith("qt_") && widget->parentWidget()->layout();
}

// What a user couldn't read: a text wider than its control that no tool tip tells.
bool isCut(const QWidget* widget) {
    const auto* label = qobject_cast<const QLabel*>(widget);
    const auto* button = qobject_cast<const QAbstractButton*>(widget);
    const QString text = label ? label->text() : button ? button->text() : QString();
    if (text.isEmpty() || !widget->toolTip().isEmpty()) return false;
    if (label && label->wordWrap()) return label->height() < label->heightForWidth(label->width());
    return widget->width() < widget->minimumSizeHint().width() || widget->height() < widget->minimumSizeHint().height();
}

QStringList faults(QWidget& window) {
    QStringList found;
    for (QWidget* widget : window.findChildren<QWidget*>()) {
        if (!isLaidOut(widget)) continue;
        const QWidget* parent = widget->parentWidget();
        if (!parent->rect().contains(widget->geometry())) found << described(widget) + " lies outside";
        if (isCut(widget)) found << described(widget) + " is cut";
        for (QWidget* other : parent->findChildren<QWidget*>(Qt::FindDirectChildrenOnly))
            if (other > widget && isLaidOut(other) && other->geometry().intersects(widget->geometry()))
                found << described(widget) + " lies on " + described(other);
    }
    return found;
}

}  // namespace

class TestLayout : public QObject {
    Q_OBJECT
private slots:
    void nothingIsCutOrCovered() {
        support::Office office;
        support::furnish(office);
        support::WindowWalk walk(office.mod);
        walk.main.resize(1366, 720);
        walk.each([](const QString& name, QWidget& window) {
            const support::InCase in(name);
            QCOMPARE(faults(window).join("; "), QString());
        });
    }
};

QTEST_MAIN(TestLayout)
#include "test_layout.moc"
