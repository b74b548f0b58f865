// The copies of the office, to choose one that takes the place of what is there.
#pragma once

#include "core/backupfolder.h"
#include "core/commands.h"
#include "core/dialog.h"
#include "core/storedlist.h"

namespace entry {

class frmRestore : public core::Dialog {
    Q_OBJECT
public:
    frmRestore(core::MainMod& mod, QWidget* parent, const QVector<core::ListedBackup>& copies);

    // The copy under the selection, once the dialog was accepted.
    core::ListedBackup chosen() const;

private:
    bool isGood() const;

    QVector<core::ListedBackup> copies_;
    core::StoredList* ListView1;
    core::Commands commands_;  // look at the list
};

}  // namespace entry
