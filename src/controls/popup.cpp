#include "controls/popup.h"

#include <QKeyEvent>
#include <QWidget>

namespace controls::detail {

namespace {

class EscapeKeeper : public QObject {
public:
    bool eventFilter(QObject*, QEvent* event) override {
        const bool isEscape =
            event->type() == QEvent::ShortcutOverride && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape;
        if (isEscape) event->accept();
        return isEscape;
    }
};

}  // namespace

void keepEscape(QWidget* popup) {
    static EscapeKeeper keeper;
    popup->installEventFilter(&keeper);
}

}  // namespace controls::detail
