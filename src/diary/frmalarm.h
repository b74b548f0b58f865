// The reminder: hidden while it watches the clock, shown when appointments are due.
#pragma once

#include <QLabel>
#include <QTimer>

#include "core/commands.h"
#include "core/dialog.h"
#include "core/storedlist.h"
#include "diary/reminders.h"

namespace diary {

class frmAlarm : public core::Dialog {
    Q_OBJECT
public:
    frmAlarm(core::MainMod& mod, QWidget* parent);
    ~frmAlarm() override;

    void watch();      // checks at once, and from then on at each change of the minute
    void check();      // the present minute; a failure is quiet, and the next check works
    void showFront();  // for the choice of the sound

    void reject() override { dismiss(); }

private:
    QVector<core::Command> commands();
    void armTimer();
    void remind(const QVector<Reminder>& due);
    void notifyElsewhere(const QVector<Reminder>& due);
    void openCalendar();
    void dismiss();
    void flash();
    void chooseSound();
    void place();
    QPoint origin() const;
    void setHeading(const QString& text);

    QLabel *lblAlarm, *Label2;
    core::StoredList* ListView1;
    QTimer Timer1, Timer2;
    Reminders reminders_;
    QString gAlarmSound;
    bool bright_ = false;
    core::Commands commands_;
};

}  // namespace diary
