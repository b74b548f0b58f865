// The calendar: a month, the half hours and the appointments of one day, a clock.
#pragma once

#include <QTimer>

#include "controls/cellgrid.h"
#include "controls/choicebox.h"
#include "core/commands.h"
#include "core/form.h"
#include "core/storedlist.h"
#include "diary/appointment.h"
#include "diary/clockface.h"
#include "diary/ics.h"
#include "diary/monthpane.h"

namespace diary {

// What a new appointment starts with.
struct NewAppointment {
    QDate day;
    QString start, end, remind;  // "hh:mm"
    qint64 card = 0;             // none
    QString contact;
};

class frmCalend : public core::Form {
    Q_OBJECT
public:
    frmCalend(core::MainMod& mod, std::function<void(const NewAppointment&, QWidget*)> makeNew);

    void FillUsers();
    void ShowDay(QDate day);
    void refresh();  // the day on show and the dots of the month, after something was written
    // A new appointment will be with this card.
    void setContact(qint64 card, const QString& contact);
    QDate day() const { return mDay; }

protected:
    void onLoad() override;

private:
    QVector<core::Command> commands();
    QWidget* dayPane();
    QWidget* side();
    void startNew(int slot);
    void openMenu(int row, QPoint position);
    void changeDate();
    void deleteSelected();
    bool mayChangeSelected() const;
    Wanted outgoing() const;
    QSet<QDate> busyDays(Month month);
    void showPlanner(const QVector<QStringList>& entries);
    void tick();

    std::function<void(const NewAppointment&, QWidget*)> makeNew_;
    MonthPane* month_;
    controls::CellGrid* MSFlexGrid2;
    QLabel *lblDate, *lblPm;
    core::StoredList* ListView1;
    controls::ChoiceBox* Combo1;
    ClockFace* picClock;
    QTimer tmrClock;
    QMenu* MnuPopUpDate;
    QDate mDay, today_;
    qint64 mSelectedAa = 0;
    bool menuOnRow_ = false;  // the pop-up menu is an appointment's, and not the day's
    qint64 gAppointmentCode = 0;
    QString gAppointmentContact;
    core::Commands commands_;
};

}  // namespace diary
