// One link of a card: a file, named by a description.
#pragma once

#include <QDialog>
#include <QLabel>
#include <functional>

#include "controls/boxes.h"
#include "core/mainmod.h"
#include "data/recordset.h"

class QPushButton;

namespace cards {

class frmLink : public QDialog {
    Q_OBJECT
public:
    // `saved` runs once a link was written.
    frmLink(core::MainMod& mod, QWidget* parent, std::function<void()> saved);

    bool EditMode = false;
    qint64 LinkId = 0;  // the link to change
    QString CodeCards;  // the card of a new one

    // Before the window is shown, once the members above are set. False when there is nothing to show: the link
    // or its file is gone, and the user was told.
    bool load();

protected:
    void reject() override;

private:
    void build();
    QPushButton* button(const QString& name, const QString& icon, const QString& caption, void (frmLink::*run)());
    bool readLinkRow();
    void chooseFile();
    void showPath(const QString& path);
    void openFile();
    void save();
    void leave() { reject(); }

    core::MainMod& mod_;
    std::function<void()> saved_;
    controls::TextBox *Text1, *File1;  // description; the chosen path
    QLabel* note_;                     // what is to be known of the path
    QPushButton *choose_, *Command1, *Command2, *Command3;
    data::Recordset mRsLink;  // the link as it was read, so that a change by somebody else is noticed
    QString path_;
    QStringList untouched_;
};

}  // namespace cards
