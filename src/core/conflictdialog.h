// What to keep of a row that somebody else saved meanwhile.
#pragma once

#include <QRadioButton>

#include "core/commands.h"
#include "core/dialog.h"

namespace core {

// A field that both changed, as its window shows it.
struct ConflictField {
    QString caption, mine, theirs;
};

// Accepted when the save is to go on with what was chosen; left, nothing was decided.
class ConflictDialog : public Dialog {
    Q_OBJECT
public:
    // `what` is the row in the accusative, "την καρτέλα".
    ConflictDialog(MainMod& mod, QWidget* parent, const QString& what, const QVector<ConflictField>& fields);

    bool keepsMine(int field) const { return mine_[field]->isChecked(); }

private:
    QWidget* rows(const QVector<ConflictField>& fields);
    void choose(const QVector<QRadioButton*>& all);

    QVector<QRadioButton*> mine_, theirs_;
    Commands commands_;
};

}  // namespace core
