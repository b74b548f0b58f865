// The bar at the foot of the main window: date, time, two free panels, the user.
#pragma once

#include <QLabel>
#include <QStatusBar>
#include <QTimer>

#include "platform/clock.h"

namespace entry {

class StatusBar : public QStatusBar {
    Q_OBJECT
public:
    explicit StatusBar(const platform::Clock& clock);

    void setUser(const QString& name);
    void say(const QString& text);                                         // over the panels, for a while
    QLabel* panel(int number) const { return panels_.value(number - 1); }  // from 1

private:
    void tick();

    const platform::Clock& clock_;
    QVector<QLabel*> panels_;
    QTimer timer_;
};

}  // namespace entry
