#include "cards/dialogplace.h"

#include <QDialog>
#include <QScreen>

#include "controls/theme.h"
#include "core/form.h"

namespace cards {

void placeOver(QDialog& dialog, const QWidget* part, QPoint offset) {
    const QWidget* window = part;
    while (!window->isWindow() && !qobject_cast<const core::Form*>(window)) window = window->parentWidget();
    const QPoint corner =
        window->mapToGlobal(QPoint()) + QPoint(controls::toPixels(offset.x()), controls::toPixels(offset.y()));
    dialog.move(core::fitInto({corner, dialog.size()}, window->screen()->availableGeometry()).topLeft());
}

}  // namespace cards
