// One appointment: made, changed, deleted, printed.
#pragma once

#include <QGroupBox>

#include "controls/boxes.h"
#include "controls/choicebox.h"
#include "core/boundrow.h"
#include "core/commands.h"
#include "core/form.h"
#include "diary/frmcalend.h"

namespace diary {

class frmDate : public core::Form {
    Q_OBJECT
public:
    explicit frmDate(core::MainMod& mod);

    // One of the two, right after the window was loaded.
    void startNew(const NewAppointment& start);
    void edit(qint64 aa);  // an appointment that is gone is told, and the window closes
    void resume(const core::Draft& draft);

signals:
    void saved(QDate day);
    void deleted(QDate day);  // or given up before it was saved

protected:
    void onLoad() override;

private:
    QVector<core::Command> commands();
    core::BoundRow boundRow();
    QLayout* form();
    QLayout* buttons();
    void FillCombo();
    void show(data::Recordset& row);
    void settle();
    core::Draft draft();
    QWidget* firstFault(QString& text) const;
    bool writesCard(data::Recordset& row) const;
    void SaveAppointment();
    void DeleteAppointment();
    void chooseContact();
    void printSheet();
    bool isWritable() const;

    QGroupBox* Frame1;
    QLabel* lblDate;
    controls::TextBox *txtContact, *txtSubject, *txtLocation;
    controls::ChoiceBox *txtStart, *txtEnd, *txtRemind, *Combo1;
    controls::MemoBox* txtNotes;
    core::BoundRow row_;
    NewAppointment start_;
    QDate day_;
    qint64 mCodeCard = 0;
    qint64 shownCard_ = 0;  // as the row had it
    QString owner_;         // the user of the row on show; of a new one, whoever is at work
    core::Commands commands_;
};

}  // namespace diary
