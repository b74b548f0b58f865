// The card's movements: a period, the list with its running balance, and what is done to one movement.
#pragma once

#include <QLabel>
#include <QWidget>

#include "cards/ledger.h"
#include "controls/period.h"
#include "core/commands.h"
#include "core/drafts.h"
#include "core/guarded.h"
#include "core/storedlist.h"

namespace cards {

class frmHistory;

class HistoryTab : public QWidget, core::Guarded {
    Q_OBJECT
public:
    // With the current month up to today as its period.
    explicit HistoryTab(core::MainMod& mod);

    // Lists the card's movements. Throws data::Error, with the rows as they were.
    void fill(const QString& code);
    // Writes the balance on show into the card, when it differs: a card that is merely looked at takes no lock and
    // waits for no disk. Throws data::Error.
    void storeBalance();
    // The window of a movement, with what was typed into it in a former run.
    void resume(const core::Draft& draft);
    // The movements of the period as it stands in its boxes, so that the heading and the rows are of one period.
    void listPeriod() { fill(code_); }
    void clear();
    // Movements are changed while the card itself isn't.
    void setBrowsing(bool browsing);

    const controls::ListView& list() const { return *ListView1; }
    QString period() const { return period_->text(); }  // "από ... έως ..."

signals:
    void written();  // a movement was saved: the card is to be shown again
    void printRequested();

private:
    QVector<core::Command> commands();
    QLayout* head();
    void setCode(const QString& code);
    void refresh();
    void editMovement();
    void deleteMovement();
    void showForm(const std::function<void(frmHistory&)>& load);
    void open(std::optional<qint64> movement);

    QString code_;  // empty when no card is on show
    Money balance_;
    bool browsing_ = true;
    std::optional<qint64> changed_;  // the movement that was just written
    controls::Period* period_;
    core::StoredList* ListView1;
    QLabel* lblYpoloipo;
    core::Commands commands_;
};

}  // namespace cards
