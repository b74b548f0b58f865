// The card's appointments.
#pragma once

#include <QWidget>

#include "core/commands.h"
#include "core/guarded.h"
#include "core/storedlist.h"

namespace cards {

class AppointmentsTab : public QWidget, core::Guarded {
    Q_OBJECT
public:
    explicit AppointmentsTab(core::MainMod& mod);

    void fill(const QString& code);  // a failure ends in its box, with the list as far as it had come
    void clear();

private:
    void deleteAppointment();

    QString code_;
    core::StoredList* ListView3;
    core::Commands commands_;
};

}  // namespace cards
