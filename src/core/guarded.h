// What every window, and every part of one, has at hand: guarded handlers, questions, messages, keys.
#pragma once

#include <QKeyEvent>
#include <QKeySequence>
#include <functional>

#include "core/guard.h"

namespace core {

// A base beside QWidget; `self` is that widget. Every text is shown over it under the program's title.
class Guarded {
protected:
    Guarded(MainMod& mod, QWidget* self) : mod_(mod), self_(self) {}
    ~Guarded() = default;

    // Handlers connected through here run under the general error box.
    template <typename Sender, typename Signal, typename Handler>
    void on(Sender* sender, Signal signal, Handler handler) {
        onSignal(mod_, self_, sender, signal, std::move(handler));
    }
    // A key while the focus is on `where` or inside it.
    void onKey(const QKeySequence& key, QWidget* where, std::function<void()> run);
    // Enter in this box runs something, where in the other boxes of the program it moves on.
    void enterRuns(QWidget* box, std::function<void()> run);

    bool ask(const QString& question) const { return core::ask(mod_, self_, question); }
    platform::SaveChoice askToSave(const QString& what) const { return core::askToSave(mod_, self_, what); }
    void tell(const QString& text) const { core::tell(mod_, self_, text); }
    // Critical; the focus goes to `field` afterwards.
    void complain(const QString& text, QWidget* field = nullptr) const { core::complain(mod_, self_, text, field); }

    // Deletes after a Yes; a failure goes to the caller. True when it was deleted.
    bool askAndDelete(const QString& question, const std::function<void()>& remove);
    // Says so when `print` did print; it tells its failures itself.
    void printAndTell(const std::function<bool()>& print);

    // Enter on a button presses it; on a check box, in a spin box or on a button that stands beside a field it moves
    // on, as everywhere in the program. Held down it counts once. False for any other key or focus.
    bool takesEnter(QKeyEvent& event);

    // A date or number box that refuses what was typed beeps; for all inside.
    void beepForRefused();

    QWidget* self() const { return self_; }

    MainMod& mod_;

private:
    QWidget* const self_;
};

}  // namespace core
