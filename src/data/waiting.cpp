#include "data/waiting.h"

#include "data/error.h"

using namespace Qt::Literals::StringLiterals;

namespace data {
namespace {

thread_local Waiting* listenerHere = nullptr;
thread_local bool asking = false;

}  // namespace

Waiting* Waiting::here() {
    return listenerHere;
}

void Waiting::listenHere(Waiting* listener) {
    listenerHere = listener;
}

Wait::Wait() : listener_(listenerHere) {
    if (asking) throw Error(ErrorCategory::Busy, u"Μια άλλη εργασία με τη βάση δεδομένων δεν τελείωσε ακόμη."_s);
    if (listener_) clock_.start();
}

Wait::~Wait() {
    if (asked_) listener_->over();
}

bool Wait::goOn() {
    if (!listener_ || stopped_ || asking) return !stopped_;
    asked_ = asking = true;
    stopped_ = !listener_->goOn(clock_.elapsed());
    asking = false;
    return !stopped_;
}

bool Wait::isBeingAsked() {
    return asking;
}

}  // namespace data
