// One link of a card: a file or an address of the web, named by a description.
#pragma once

#include <QLabel>
#include <functional>

#include "controls/boxes.h"
#include "core/commands.h"
#include "core/dialog.h"
#include "data/recordset.h"

namespace cards {

class frmLink : public core::Dialog {
    Q_OBJECT
public:
    // `saved` runs once a link was written.
    frmLink(core::MainMod& mod, QWidget* parent, std::function<void()> saved);

    bool EditMode = false;
    qint64 LinkId = 0;          // the link to change
    QString CodeCards;          // the card of a new one
    bool KnownMissing = false;  // its user comes to choose the file anew

    // Before the window is shown, once the members above are set. False when there is nothing to show: the link
    // is gone, and the user was told.
    bool load();

    void chooseFile();

    // The list behind is older than the table: somebody else changed or deleted the link.
    bool metChange() const { return metChange_; }

private:
    bool readLinkRow();
    bool isMissing() const;
    void showPath(const QString& path);
    void takePath(const QString& path);
    bool isComplete();
    void save();
    void writeLink();
    bool settleConflict();

    std::function<void()> saved_;
    controls::TextBox *Text1, *File1;  // description; the chosen path
    QLabel* note_;                     // what is to be known of the path
    QPushButton* choose_;
    data::Recordset mRsLink;  // the link as it was read, so that a change by somebody else is noticed
    QString path_;
    bool metChange_ = false;
    core::Commands commands_;
};

}  // namespace cards
