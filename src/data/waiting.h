// Who is asked while a statement lasts: whether it shall go on.
//
// One listener for each thread, so that connections which work in the background ask nobody. An engine asks every few
// milliseconds while it computes, waits for a lock or for its server. Of a listener that shows a window meanwhile other
// handlers may be run, which must not come back to a connection in the midst of its work: while one is being asked,
// every statement of its thread is refused.
#pragma once

#include <QElapsedTimer>

namespace data {

class Waiting {
public:
    virtual ~Waiting() = default;
    // A statement lasts for so long now; false breaks it off.
    virtual bool goOn(qint64 milliseconds) = 0;
    virtual void over() = 0;  // the statement that goOn() heard of ended

    static Waiting* here();
    static void listenHere(Waiting* listener);  // null for none
};

// One statement's time. Throws Error(Busy) where none may begin.
class Wait {
public:
    Wait();
    ~Wait();
    Wait(const Wait&) = delete;
    Wait& operator=(const Wait&) = delete;

    bool isHeard() const { return listener_ != nullptr; }
    bool goOn();  // from then on false when the listener wants no more of it
    bool isStopped() const { return stopped_; }
    static bool isBeingAsked();

private:
    Waiting* const listener_;
    QElapsedTimer clock_;
    bool asked_ = false, stopped_ = false;
};

}  // namespace data
