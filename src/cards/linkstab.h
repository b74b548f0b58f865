// The card's links to files: the list, and what is done to one link.
#pragma once

#include <QWidget>

#include "core/commands.h"
#include "core/guarded.h"
#include "core/storedlist.h"

namespace cards {

class LinksTab : public QWidget, core::Guarded {
    Q_OBJECT
public:
    explicit LinksTab(core::MainMod& mod);

    void fill(const QString& code);  // throws data::Error
    void clear();

signals:
    void written();  // a link was saved: the card is to be shown again

private:
    void openRow(int row);
    void editLink();
    void deleteLink();
    void showForm(std::optional<qint64> link, bool chooseAnew = false);

    QString code_;  // empty when no card is on show
    core::StoredList* ListView2;
    core::Commands commands_;
};

}  // namespace cards
