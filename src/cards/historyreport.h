// The report of a card's movements.
#pragma once

#include <QDate>
#include <QVector>

#include "core/mainmod.h"
#include "core/printheading.h"
#include "core/printjob.h"

namespace cards {

// "Εκτύπωση Ιστορικού" of all movements of a card, in the order of their dates. True when printed; false also for a
// card that isn't there any more. Throws data::Error.
bool dtpHistory(core::MainMod& mod, QWidget* parent, qint64 cardCode);

// What it draws.
struct HistoryReport {
    struct Movement {
        QString date, reason, debit, credit, notes;
    };
    core::OwnerDetails owner;
    QString surname, firstName, telephone, mobile;
    QVector<Movement> movements;
};

// Column heads and the page's number stand on every page; a movement whose notes outgrow a page goes on on the next.
void drawHistory(platform::Printer& printer, const HistoryReport& report, const core::PrintStep& step);

}  // namespace cards
