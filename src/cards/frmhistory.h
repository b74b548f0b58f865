// One movement of a card: added or changed.
#pragma once

#include <functional>

#include "controls/datefield.h"
#include "controls/photoview.h"
#include "core/commands.h"
#include "core/dialog.h"
#include "data/recordset.h"

namespace cards {

class frmHistory : public core::Dialog {
    Q_OBJECT
public:
    // `saved` runs once a movement was written.
    frmHistory(core::MainMod& mod, QWidget* parent, std::function<void(qint64 movement)> saved);

    bool EditMode = false;
    qint64 MovementId = 0;  // the movement to change
    QString CodeCards;      // the card of a new one

    // The list behind is older than the table: somebody else changed or deleted the movement.
    bool metChange() const { return metChange_; }

    // Before the window is shown, once the members above are set.
    void load();
    void resume(const core::Draft& draft);  // in place of load()

private:
    QFormLayout* fields();
    QHBoxLayout* buttons();
    void begin(const std::function<void()>& read);
    core::Draft draft();
    void dress();
    void clearForm();
    void startAnew();
    void readPhoto();
    void setPhoto(const QByteArray& bytes);
    void readMovement();
    bool isComplete();
    void save();
    void write(data::Recordset& row);
    void writeMovement();
    bool settleConflict(const data::Error& error);
    bool settleDeletion();
    void addAgain();
    struct Bound {
        QWidget* box;
        QString column;
    };
    QVector<Bound> bound() const;
    void openCarrier();

    std::function<void(qint64)> saved_;
    QFormLayout* form_ = nullptr;
    controls::DateField* txtDate;
    QVector<controls::TextBox*> Text7;
    QVector<QLabel*> Label1;  // captions of Text7
    controls::NumberBox *txtXreosh, *txtPistosi;
    controls::MemoBox* Text1;
    controls::PhotoView* Image1;
    bool metChange_ = false;
    QStringList nothing_;        // columns that held nothing in a movement that is added again
    data::Recordset mRsHistory;  // the movement as it was read, so that a change by somebody else is noticed
    core::Commands commands_;
};

}  // namespace cards
