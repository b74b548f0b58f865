#include "core/browsemod.h"

namespace core {

QString BrowseForFolder(MainMod& mod, const QString& title) {
    return mod.services.prompts.chooseFolder(nullptr, title);
}

void GivePath(MainMod& mod, const QString& fileName) {
    mod.gDataPath = BrowseForFolder(mod, QStringLiteral("Επιλογή Υποκαταλόγου %1 ...").arg(fileName));
}

}  // namespace core
