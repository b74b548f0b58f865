// One movement of a card: added or changed.
#pragma once

#include <QDialog>
#include <QLabel>
#include <functional>

#include "controls/boxes.h"
#include "controls/datepair.h"
#include "controls/photoview.h"
#include "core/mainmod.h"
#include "data/recordset.h"

class QFormLayout;

namespace cards {

class frmHistory : public QDialog {
    Q_OBJECT
public:
    // `saved` runs once a movement was written.
    frmHistory(core::MainMod& mod, QWidget* parent, std::function<void(qint64 movement)> saved);

    bool EditMode = false;
    qint64 MovementId = 0;  // the movement to change
    QString CodeCards;      // the card of a new one

    // Before the window is shown, once the members above are set.
    void load();

protected:
    void reject() override;

private:
    void build();
    QWidget* fields();
    QWidget* photoColumn();
    QWidget* buttons();
    void addRow(QFormLayout* form, const QString& caption, QWidget* box);
    void dress();
    void clearForm();
    void readMovement();
    bool isComplete();
    void save();
    void write(data::Recordset& row);
    void openCarrier();
    QStringList typed() const;

    core::MainMod& mod_;
    std::function<void(qint64)> saved_;
    QFormLayout* form_ = nullptr;
    controls::DateBox* txtDate;
    controls::DatePicker* DTPicker1;
    QVector<controls::TextBox*> Text7;
    QVector<QLabel*> Label1;  // captions of Text7
    controls::NumberBox *txtXreosh, *txtPistosi;
    controls::MemoBox* Text1;
    controls::PhotoView* Image1;
    QByteArray mPhotoBytes;
    data::Recordset mRsHistory;  // the movement as it was read, so that a change by somebody else is noticed
    QStringList untouched_;      // what the boxes held when nothing was typed yet
    QByteArray untouchedPhoto_;
};

}  // namespace cards
