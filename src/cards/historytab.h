// The card's movements: a period, the list with its running balance, and what is done to one movement.
#pragma once

#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QWidget>

#include "cards/ledger.h"
#include "controls/datepair.h"
#include "controls/listview.h"
#include "core/mainmod.h"

class QHBoxLayout;

namespace cards {

class HistoryTab : public QWidget {
    Q_OBJECT
public:
    explicit HistoryTab(core::MainMod& mod);

    void load();  // columns, and the current month up to today
    // Lists the card's movements. Throws data::Error, with the rows as they were.
    void fill(const QString& code);
    // Writes the balance on show into the card, when it differs: a card that is merely looked at takes no lock and
    // waits for no disk. Throws data::Error.
    void storeBalance();
    void clear();
    // Movements are changed while the card itself isn't.
    void setBrowsing(bool browsing);

    void newMovement();
    void editMovement();
    void deleteMovement();

    const controls::ListView& list() const { return *ListView1; }
    QString period() const;  // "από ... έως ..."

signals:
    void written();  // a movement was saved: the card is to be shown again
    void printRequested();

private:
    QWidget* periodRow();
    QWidget* commandRow();
    controls::DateBox* dateBox(const QString& name, int picker, const QString& caption, QHBoxLayout* into);
    void buildMenu();
    void showMenu(int row, QPoint position);
    void enableCommands();
    void refresh();
    void selectChanged();
    std::optional<qint64> selected() const;
    void open(std::optional<qint64> movement);

    core::MainMod& mod_;
    QString code_;  // empty when no card is on show
    Money balance_;
    bool browsing_ = true;
    std::optional<qint64> changed_;
    controls::DateBox *txtFrom, *txtTo;
    controls::ListView* ListView1;
    QLabel* lblYpoloipo;
    QPushButton *cmdShow, *cmdAddHistory, *Command4, *cmdDelHistory, *cmdPrint;
    QMenu* MnuPopUpHist;
    QAction *MnuNewHistory, *mnuEditHistory, *MnuDelHistory;
};

}  // namespace cards
