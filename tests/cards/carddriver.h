// Drives the card by control names, as a user would.
#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QTabWidget>

#include "cards/frmaddress.h"
#include "support/office.h"

namespace support {

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
    controls::PictureButton* button(int i) { return find<controls::PictureButton>(QString("lblClick(%1)").arg(i)); }
    void press(int i) { button(i)->click(); }
    bool enabled(int i) { return button(i)->isEnabled(); }

    cards::frmAddress form;
};

}  // namespace support
