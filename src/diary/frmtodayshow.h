// What there is to do today: appointments, tasks, and the cards that fall due.
#pragma once

#include <QCheckBox>
#include <QTimer>

#include "controls/boxes.h"
#include "controls/period.h"
#include "core/commands.h"
#include "core/form.h"
#include "core/sortkeys.h"
#include "core/storedlist.h"

namespace diary {

class frmTodayShow : public core::Form {
    Q_OBJECT
public:
    explicit frmTodayShow(core::MainMod& mod);

    // Appointments of the period, of whoever is at work; a blank or impossible date beeps and lists none.
    void FillList2();
    void FillTasks();
    void FillDue();  // by the end of the period
    void refresh();

protected:
    void onLoad() override;
    void onUnload() override;

private:
    QVector<core::Command> commands();
    QWidget* section(const QString& caption, core::StoredList* list);
    void openRow(core::StoredList* list, const std::function<void(qint64)>& open);
    void setToday(QDate today);
    void followMidnight();

    core::Commands commands_;
    controls::Period* period_;
    core::StoredList *ListView1, *ListView2, *ListView3;
    controls::TextBox *lblSumTotalInc, *txtSumTotalPay;
    QCheckBox* Check1;
    core::SortKeys keys_;
    QTimer midnight_;
    QDate today_;
};

}  // namespace diary
