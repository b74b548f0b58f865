// The journal: the movements of all cards in a period.
#pragma once

#include <QLabel>
#include <memory>

#include "cards/journal.h"
#include "controls/choicebox.h"
#include "controls/period.h"
#include "core/commands.h"
#include "core/form.h"
#include "core/pieces.h"
#include "core/sortkeys.h"
#include "core/storedlist.h"

namespace cards {

class frmHmerologio : public core::Form {
    Q_OBJECT
public:
    explicit frmHmerologio(core::MainMod& mod);

    // Starts reading; the list stands when isReading() is false again. Starts anew when it is reading already.
    void FillList();
    void FillCombo();  // with the categories; keeps the chosen one
    bool isReading() const { return pieces_.isRunning(); }

protected:
    void onLoad() override;
    void onUnload() override;

private:
    QWidget* filter();
    QWidget* foot();
    JournalFilter chosen();
    QVector<controls::ListRow> takeRows();
    void finish();
    void showSums();
    void fail(const data::Error& error);
    void columnClicked(int column);
    void print();

    controls::Period* period_;
    controls::ChoiceBox* Combo1;
    controls::TextBox* txtAitia;
    core::StoredList* ListView1;
    QLabel *debit_, *lblYpoloipo;
    core::Commands commands_;
    core::Pieces pieces_;
    core::SortKeys keys_;
    std::unique_ptr<JournalReader> reader_;
};

}  // namespace cards
