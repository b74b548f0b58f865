// Every window of the program, one after another, as the rooms have registered them.
#pragma once

#include "core/printpreview.h"
#include "main/mdimain.h"
#include "support/office.h"

namespace support {

class WindowWalk {
public:
    explicit WindowWalk(core::MainMod& mod) : main(mod), mod_(mod) {
        main.load();
        main.show();
    }

    // The main window alone, then in turn each form inside it and each dialog over it, shown and laid out. `look` gets
    // the window's name and the widget it is.
    template <typename Look>
    void each(Look look) {
        settle();
        look(main.objectName(), main);
        for (const QString& name : main.windows().forms()) {
            core::Form* form = main.windows().front(name);
            settle();
            look(name, *form);
            main.windows().unload(name);
        }
        for (const QString& name : main.windows().dialogs()) {
            const auto dialog = main.windows().dialog(name, &main);
            dialog->show();
            settle();
            look(name, *dialog);
        }
    }

    entry::MDIMain main;

private:
    static void settle() {
        for (int i = 0; i < 3; ++i) QApplication::processEvents();
    }
    core::MainMod& mod_;
};

// The office's settings name an owner, a card is there, and every kind of field of the office's own is switched on;
// some without a name.
inline void furnish(Office& office) {
    office.desk.settings.setValue(u"Settings"_s, u"Name"_s, u"Γραφείο"_s);
    office.addCard(u"Παπαδόπουλος"_s, u"Γεώργιος"_s);
    QStringList flags;
    for (const QString& flag : {u"fc1"_s, u"fn1"_s, u"fd1"_s, u"fy1"_s, u"fcb1"_s}) flags << flag + u"=True"_s;
    office.mod.gConn.execute(u"update CustomFields set Memo3='',FIELdchar1='',fy2=True,FieldYes2='',"_s +
                             flags.join(u',') + u" where id=1"_s);
}

}  // namespace support
