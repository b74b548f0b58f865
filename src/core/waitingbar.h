// The bar over a statement that lasts: another's lock, a server that doesn't answer, much to read.
#pragma once

#include <QObject>
#include <memory>

#include "core/workprogress.h"
#include "data/waiting.h"

namespace core {

// Listens for the thread that makes it, the one of the windows. A statement is inside its engine while the bar is on
// show, so nothing else may run: input goes to the bar alone, and the timers of all other windows ring later.
class WaitingBar : public QObject, public data::Waiting {
public:
    WaitingBar();
    ~WaitingBar() override;

    bool goOn(qint64 milliseconds) override;
    void over() override;
    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    std::unique_ptr<WorkProgress> bar_;
};

}  // namespace core
