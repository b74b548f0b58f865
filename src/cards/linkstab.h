// The card's links to files: the list, and what is done to one link.
#pragma once

#include <QPushButton>
#include <QWidget>

#include "controls/listview.h"
#include "core/mainmod.h"

namespace cards {

class LinksTab : public QWidget {
    Q_OBJECT
public:
    explicit LinksTab(core::MainMod& mod);

    void load();
    void storeWidths();
    void fill(const QString& code);  // throws data::Error
    void clear();

signals:
    void written();  // a link was saved: the card is to be shown again

private:
    void openSelected(int row);
    void newLink();
    void editLink();
    void deleteLink();
    void showForm(std::optional<qint64> link);
    void enableCommands();

    core::MainMod& mod_;
    QString code_;  // empty when no card is on show
    controls::ListView* ListView2;
    QPushButton *Command8, *cmdEditLink, *cmdDelLink;
};

}  // namespace cards
