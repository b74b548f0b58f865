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
    // `contact` is the name of the card on show.
    AppointmentsTab(core::MainMod& mod, std::function<QString()> contact);

    void fill(const QString& code);  // a failure ends in its box, with the list as far as it had come
    void clear();

private:
    QVector<core::Command> commands();
    void edit();
    bool mayDelete() const;
    void deleteAppointment();

    std::function<QString()> contact_;
    QString code_;
    QHash<qint64, QString> owners_;  // of the appointments listed
    core::StoredList* ListView3;
    core::Commands commands_;
};

}  // namespace cards
