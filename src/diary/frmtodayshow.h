// What there is to do today: appointments, tasks, and the cards that fall due.
#pragma once

#include <QCheckBox>
#include <QTimer>

#include "controls/boxes.h"
#include "controls/period.h"
#include "core/commands.h"
#include "core/form.h"
#include "core/pieces.h"
#include "core/sortkeys.h"
#include "core/storedlist.h"
#include "diary/due.h"

namespace diary {

class frmTodayShow : public core::Form {
    Q_OBJECT
public:
    explicit frmTodayShow(core::MainMod& mod);

    // Appointments of the period, of whoever is at work; a blank or impossible date beeps and lists none.
    void FillList2();
    void FillTasks();
    // By the end of the period: the first cards at once, all of them and their sum when they are read.
    void FillDue();
    void refresh();

protected:
    void onLoad() override;
    void onUnload() override;

private:
    QVector<core::Command> commands();
    QWidget* section(const QString& caption, core::StoredList* list);
    void openRow(core::StoredList* list, const std::function<void(qint64)>& open);
    void showDue();
    void setToday(QDate today);
    void followMidnight();

    controls::Period* period_;
    core::StoredList *ListView1, *ListView2, *ListView3;
    controls::TextBox *lblSumTotalInc, *txtSumTotalPay;
    QCheckBox* Check1;
    core::SortKeys keys_;
    std::unique_ptr<DueReader> due_;
    core::Pieces pieces_;
    QTimer midnight_;
    QDate today_;
    core::Commands commands_;
};

}  // namespace diary
