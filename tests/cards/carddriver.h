// Drives the card by control names, as a user would.
#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QTabWidget>
#include <QTimer>

#include "cards/frmaddress.h"
#include "support/office.h"

namespace support {

// A dialog counts as active with its parent, so the toolkit's own wait would end too soon.
inline void activate(QWidget& window) {
    window.activateWindow();
    if (!QTest::qWaitFor([&window] { return QApplication::activeWindow() == &window; }))
        QTest::qFail("the window never got the focus", __FILE__, __LINE__);
}

// Runs `act` in the dialog that the next event opens, and closes the dialog if `act` left it open.
template <typename Dialog>
void inNextDialog(std::function<void(Dialog&)> act) {
    QTimer::singleShot(0, qApp, [act] {
        auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
        if (!dialog) return QTest::qFail("the dialog didn't open", __FILE__, __LINE__);
        activate(*dialog);
        act(*dialog);
        if (dialog->isVisible()) dialog->done(QDialog::Rejected);
    });
}

struct CardDriver {
    explicit CardDriver(core::MainMod& mod) : form(mod) {
        form.load();
        form.resize(960, 640);
        form.show();
        form.activateWindow();
        if (!QTest::qWaitForWindowActive(&form)) QTest::qFail("the card never got the focus", __FILE__, __LINE__);
    }

    template <typename W = QWidget>
    W* find(const QString& name) {
        W* widget = form.findChild<W*>(name);
        if (!widget) QTest::qFail(qPrintable("no control " + name), __FILE__, __LINE__);
        return widget;
    }
    controls::TextBox* text(int i) { return find<controls::TextBox>(QString("Text7(%1)").arg(i)); }
    controls::TextBox* special(int i) { return find<controls::TextBox>(QString("Text8(%1)").arg(i)); }
    controls::MemoBox* memo(int i) { return find<controls::MemoBox>(QString("txtMemo(%1)").arg(i)); }
    controls::MemoBox* notes() { return find<controls::MemoBox>("Text7(17)"); }
    controls::DateBox* date(const QString& name) { return find<controls::DateBox>(name); }
    QComboBox* combo(const QString& name) { return find<QComboBox>(name); }
    QString label(const QString& name) { return find<QLabel>(name)->text(); }
    QString counter() { return label("Label4"); }
    QString tab() { return find<QTabWidget>("TabStrip1")->tabText(find<QTabWidget>("TabStrip1")->currentIndex()); }
    void openTab(const QString& caption) {
        auto* tabs = find<QTabWidget>("TabStrip1");
        for (int i = 0; i < tabs->count(); ++i)
            if (tabs->tabText(i) == caption) tabs->setCurrentIndex(i);
    }
    controls::ListView* list(int i) { return find<controls::ListView>(QString("ListView%1").arg(i)); }
    // Cells of a list's rows joined by '|'.
    QStringList rows(int i) {
        QStringList lines;
        for (int row = 0; row < list(i)->count(); ++row) lines << list(i)->row(row).cells.join('|');
        return lines;
    }
    void click(const QString& name) { find<QAbstractButton>(name)->click(); }
    controls::PictureButton* button(int i) { return find<controls::PictureButton>(QString("lblClick(%1)").arg(i)); }
    void press(int i) { button(i)->click(); }
    bool enabled(int i) { return button(i)->isEnabled(); }

    cards::frmAddress form;
};

}  // namespace support
