// The card's appointments.
#pragma once

#include <QPushButton>
#include <QWidget>

#include "controls/listview.h"
#include "core/mainmod.h"

namespace cards {

class AppointmentsTab : public QWidget {
    Q_OBJECT
public:
    explicit AppointmentsTab(core::MainMod& mod);

    void load();
    void fill(const QString& code);  // a failure ends in its box, with the list as far as it had come
    void clear();

private:
    void deleteAppointment();

    core::MainMod& mod_;
    QString code_;
    controls::ListView* ListView3;
    QPushButton* cmdDelAppoiment;
};

}  // namespace cards
