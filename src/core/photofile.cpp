#include "core/photofile.h"

#include <QFile>

#include "controls/photoview.h"

using namespace Qt::Literals::StringLiterals;

namespace core {

std::optional<QByteArray> choosePhoto(MainMod& mod, QWidget* parent) {
    const QString path =
        mod.services.prompts.openFile(parent, u"Εισαγωγή Φωτογραφίας"_s, u"Φωτογραφίες (*.bmp *.jpg *.gif)"_s);
    if (path.isEmpty()) return {};
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return {};
    const QByteArray bytes = file.readAll();
    if (!controls::PhotoView::isPicture(bytes)) return {};
    return bytes;
}

}  // namespace core
