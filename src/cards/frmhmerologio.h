// The journal: the movements of all cards in a period.
#pragma once

#include <QComboBox>
#include <QLabel>
#include <QTimer>
#include <memory>

#include "cards/journal.h"
#include "controls/datepair.h"
#include "controls/listview.h"
#include "core/form.h"

class QGridLayout;

namespace cards {

class frmHmerologio : public core::Form {
    Q_OBJECT
public:
    // `showCard` brings a card in front.
    frmHmerologio(core::MainMod& mod, std::function<void(qint64)> showCard);

    // Starts reading; the list stands when isReading() is false again. Starts anew when it is reading already.
    void FillList();
    bool isReading() const { return reader_ != nullptr; }

protected:
    void onLoad() override;
    void onUnload() override;

private:
    void build();
    QWidget* filterRow();
    QWidget* footRow();
    controls::DateBox* dateBox(const QString& name, int picker, const QString& caption, QLayout* into);
    void FillCombo();
    JournalFilter filter();
    bool readOn(int milliseconds);  // false after a failure, which was told
    void finish();
    void fail(const data::Error& error);
    void columnClicked(int column);
    void openCard(int row);
    void print();

    std::function<void(qint64)> showCard_;
    controls::DateBox *txtFrom, *txtTo;
    QComboBox* Combo1;
    controls::TextBox* txtAitia;
    controls::ListView* ListView1;
    QLabel *debit_, *lblYpoloipo;
    std::unique_ptr<JournalReader> reader_;
    QTimer next_;
};

}  // namespace cards
