// The folders of this computer in which the links to other computers' drives and servers are found.
#pragma once

#include "cards/linkfolders.h"
#include "controls/boxes.h"
#include "core/commands.h"
#include "core/dialog.h"
#include "core/storedlist.h"

namespace cards {

class frmLinkFolders : public core::Dialog {
    Q_OBJECT
public:
    // With the place of a link that doesn't open, the dialog closes once that place has its folder.
    frmLinkFolders(core::MainMod& mod, QWidget* parent, const QString& place = {});

private:
    void refresh(const QString& selected);
    void fill(const QString& place, const QString& folder);
    void showSelected();
    void chooseFolder();
    void save();
    void remove();

    const QString place_;
    QVector<LinkFolder> folders_;
    core::StoredList* ListView1;
    controls::TextBox *Text1, *File1;
    core::Commands commands_;
};

}  // namespace cards
