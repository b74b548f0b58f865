// The room inside the main window in which the child windows stand.
#pragma once

#include <QMdiArea>

#include "core/windows.h"

namespace entry {

class FormArea : public QMdiArea, public core::WindowHost {
    Q_OBJECT
public:
    explicit FormArea(const platform::Settings& settings);

    void followTheme();

    void add(core::Form* form) override;
    void bringToFront(core::Form* form) override;
    bool isAtItsPlace(core::Form* form) const override;
    QPoint position(core::Form* form) const override;
    void remove(core::Form* form) override;

signals:
    // A window doesn't fit; the main window may grow while this is told.
    void roomWanted(QSize missing);

private:
    QPoint freePlace(QPoint wanted) const;
    void makeRoomFor(QWidget* frame);
    void bringAwaited();

    const platform::Settings& settings_;
};

}  // namespace entry
