#include "cards/linkopen.h"

#include "cards/frmlinkfolders.h"

using namespace Qt::Literals::StringLiterals;

namespace cards {

namespace {

void warn(core::MainMod& mod, QWidget* parent, const QString& text) {
    mod.services.prompts.message(parent, platform::MessageIcon::Warning, core::programTitle(), text);
}

QString noProgram(const QString& what) {
    return u"Το σύστημα δεν έχει πρόγραμμα που να ανοίγει το:\n"_s + what;
}

// Says what is wrong with a link and lets its user mend it.
void offer(core::MainMod& mod, QWidget* parent, const QString& wrong, const QString& stored,
           const std::function<void()>& chooseAnew) {
    const QString mapping = u"&Αντιστοίχιση..."_s, choosing = u"&Επιλογή ξανά..."_s;
    const QString place = linkPlaceOf(stored);
    QStringList answers;
    if (!place.isEmpty() && platform::nativePathStyle() != platform::PathStyle::Windows) answers << mapping;
    if (chooseAnew) answers << choosing;
    if (answers.isEmpty()) return warn(mod, parent, wrong);
    answers << u"&Κλείσιμο"_s;
    const QString answer = answers[mod.services.prompts.choose(parent, core::programTitle(), wrong, answers)];
    if (answer == choosing) return chooseAnew();
    if (answer != mapping) return;
    frmLinkFolders folders(mod, parent, place);
    const auto path = [&] { return findLink(stored, linkFolders(mod.services.settings)).path; };
    const QString before = path();
    folders.exec();
    if (path() != before) openLink(mod, parent, stored, chooseAnew);
}

}  // namespace

void openLink(core::MainMod& mod, QWidget* parent, const QString& stored, const std::function<void()>& chooseAnew) {
    platform::Shell& shell = mod.services.shell;
    const LinkTarget target = findLink(stored, linkFolders(mod.services.settings));
    const auto wrong = [&](const QString& text) { offer(mod, parent, text, stored, chooseAnew); };
    switch (target.place) {
        case LinkTarget::Here:
            if (!shell.exists(target.path)) return wrong(u"Δεν υπάρχει πλέον το αρχείο!\n"_s + target.path);
            if (!shell.openFile(target.path)) warn(mod, parent, noProgram(target.path));
            return;
        case LinkTarget::Network:
            if (!shell.openUrl(target.url)) wrong(noProgram(target.path));
            return;
        case LinkTarget::Web:
            return openAddress(mod, parent, target.url);
        case LinkTarget::Foreign:
            return wrong(u"Η σύνδεση δείχνει σε θέση άλλου υπολογιστή και δεν ανοίγει από εδώ:\n"_s + target.path);
        case LinkTarget::Nowhere:
            return wrong(u"Η σύνδεση δεν δείχνει σε αρχείο:\n"_s + target.path);
    }
}

void openAddress(core::MainMod& mod, QWidget* parent, const QUrl& address) {
    if (!address.isValid() || !mod.services.shell.openUrl(address))
        warn(mod, parent, noProgram(address.toDisplayString()));
}

}  // namespace cards
