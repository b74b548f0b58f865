#include "core/browsemod.h"

using namespace Qt::Literals::StringLiterals;

namespace core {

QString BrowseForFolder(MainMod& mod, const QString& title) {
    return mod.services.prompts.chooseFolder(nullptr, title);
}

void GivePath(MainMod& mod, const QString& fileName) {
    mod.gDataPath = BrowseForFolder(mod, u"Επιλογή Υποκαταλόγου %1 ..."_s.arg(fileName));
}

}  // namespace core
