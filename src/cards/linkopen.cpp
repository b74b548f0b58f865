#include "cards/linkopen.h"

using namespace Qt::Literals::StringLiterals;

namespace cards {

namespace {

void tell(core::MainMod& mod, QWidget* parent, const QString& text) {
    mod.services.prompts.message(parent, platform::MessageIcon::Warning, core::programTitle(), text);
}

QString noProgram(const QString& what) {
    return u"Το σύστημα δεν έχει πρόγραμμα που να ανοίγει το:\n"_s + what;
}

}  // namespace

void openLink(core::MainMod& mod, QWidget* parent, const QString& stored) {
    platform::Shell& shell = mod.services.shell;
    const LinkTarget target = readLink(stored);
    switch (target.place) {
        case LinkTarget::Here:
            if (!shell.exists(target.path)) return tell(mod, parent, u"Δεν υπάρχει πλέον το αρχείο!\n"_s + target.path);
            if (!shell.openFile(target.path)) tell(mod, parent, noProgram(target.path));
            return;
        case LinkTarget::Network:
            if (!shell.openUrl(target.url)) tell(mod, parent, noProgram(target.path));
            return;
        case LinkTarget::Foreign:
            return tell(mod, parent,
                        u"Η σύνδεση δείχνει σε θέση άλλου υπολογιστή και δεν ανοίγει από εδώ:\n"_s + target.path);
        case LinkTarget::Nowhere:
            return tell(mod, parent, u"Η σύνδεση δεν δείχνει σε αρχείο:\n"_s + target.path);
    }
}

void openAddress(core::MainMod& mod, QWidget* parent, const QUrl& address) {
    if (!address.isValid() || !mod.services.shell.openUrl(address))
        tell(mod, parent, noProgram(address.toDisplayString()));
}

}  // namespace cards
