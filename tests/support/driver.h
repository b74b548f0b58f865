// Drives a window by its controls' names, as a user would.
#pragma once

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QTest>
#include <QTimer>

#include "controls/datepair.h"
#include "controls/listview.h"

namespace support {

// Shows the window and waits for the focus. A dialog counts as active with its parent, so the toolkit's own wait would
// end too soon.
inline void activate(QWidget& window) {
    window.show();
    window.activateWindow();
    if (!QTest::qWaitFor([&window] { return QApplication::activeWindow() == &window; }))
        QTest::qFail(qPrintable("the window never got the focus: " + window.objectName()), __FILE__, __LINE__);
}

// Key by key, into what has the focus; the toolkit's own knows ASCII alone.
inline void typeKeys(QWidget* control, const QString& text) {
    for (const QChar c : text) {
        QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(c));
        QApplication::sendEvent(control, &press);
    }
}

class Driver {
public:
    explicit Driver(QWidget& window) : window_(window) {}

    QWidget& window() const { return window_; }
    bool isOpen() const { return window_.isVisible(); }
    QString title() const { return window_.windowTitle(); }
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) const { QTest::keyClick(&window_, key, modifiers); }

    template <typename W = QWidget>
    W* find(const QString& name) const {
        W* found = window_.findChild<W*>(name);
        if (!found) qFatal("no control %s in %s", qPrintable(name), qPrintable(window_.objectName()));
        return found;
    }

    // What a box, a list of choices, a label or a button shows.
    QString shown(const QString& name) const {
        for (const char* property : {"text", "currentText", "plainText"})
            if (const QVariant text = find(name)->property(property); text.isValid()) return text.toString();
        qFatal("%s shows no text", qPrintable(name));
    }
    // Into a box, or the entry of that text in a list of choices; a list that can be typed into takes any.
    void type(const QString& name, const QString& text) const {
        QWidget* control = find(name);
        if (auto* memo = qobject_cast<controls::MemoBox*>(control)) return memo->setText(text);
        if (auto* line = qobject_cast<QLineEdit*>(control)) return line->setText(text);
        auto* combo = qobject_cast<QComboBox*>(control);
        const int index = combo ? combo->findText(text) : -1;
        if (index >= 0) return combo->setCurrentIndex(index);
        if (!combo || !combo->isEditable()) qFatal("%s can't take %s", qPrintable(name), qPrintable(text));
        combo->setEditText(text);
    }
    void click(const QString& name) const { find<QAbstractButton>(name)->click(); }
    void trigger(const QString& action) const { find<QAction>(action)->trigger(); }
    bool isEnabled(const QString& name) const { return find<QObject>(name)->property("enabled").toBool(); }
    bool isVisible(const QString& name) const { return find(name)->isVisible(); }
    bool hasFocus(const QString& name) const { return find(name)->hasFocus(); }
    // By the control that has the focus, or would have it in the active window; "" when there is none.
    QString focused() const { return window_.focusWidget() ? window_.focusWidget()->objectName() : QString(); }

    controls::ListView* list(const QString& name = "ListView1") const { return find<controls::ListView>(name); }
    // The cells of a list's rows joined by '|'.
    QStringList rows(const QString& name = "ListView1") const {
        QStringList lines;
        for (const controls::ListRow& row : list(name)->rows()) lines << row.cells.join('|');
        return lines;
    }
    QStringList column(int index, const QString& name = "ListView1") const {
        QStringList cells;
        for (const controls::ListRow& row : list(name)->rows()) cells << row.cells.value(index);
        return cells;
    }
    // Row by the text of a cell; none is -1.
    int rowOf(const QString& text, int index = 0, const QString& name = "ListView1") const {
        return int(column(index, name).indexOf(text));
    }

private:
    QWidget& window_;
};

// Drives the dialog of that name, which the next events open, and closes it if `act` left it open.
inline void inNextDialog(const QString& name, const std::function<void(Driver&)>& act) {
    QTimer::singleShot(0, qApp, [name, act] {
        const QPointer<QDialog> dialog(qobject_cast<QDialog*>(QApplication::activeModalWidget()));
        if (!dialog || dialog->objectName() != name)
            return QTest::qFail(qPrintable("the dialog didn't open: " + name), __FILE__, __LINE__);
        activate(*dialog);
        Driver driver(*dialog);
        act(driver);
        if (dialog && dialog->isVisible()) dialog->done(QDialog::Rejected);
    });
}

}  // namespace support
