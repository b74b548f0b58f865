// The wall between an event handler and the toolkit: no failure gets past it unseen.
#pragma once

#include <QWidget>
#include <utility>

#include "core/mainmod.h"
#include "data/error.h"

namespace core {

// The window that a box about something in the background lies over: a dialog that is open, else `otherwise`.
QWidget* frontWindow(QWidget* otherwise);

// "Μήνυμα λάθους" with the program's title and the error's text.
void showFailure(MainMod& mod, QWidget* parent, const std::exception& error, const QString& lead = {});

// Runs `work`; a failure ends in the general error box and the window lives on. False when it failed.
template <typename Work>
bool attempt(MainMod& mod, QWidget* parent, Work&& work) {
    try {
        std::forward<Work>(work)();
        return true;
    } catch (const std::exception& error) {
        showFailure(mod, parent, error);
        return false;
    }
}

// Boxes with the program's title: a question (closing it is No), a plain message, and a critical one after which the
// focus goes to `field`.
bool ask(MainMod& mod, QWidget* parent, const QString& question);
platform::SaveChoice askToSave(MainMod& mod, QWidget* parent, const QString& what);
void tell(MainMod& mod, QWidget* parent, const QString& text);
void complain(MainMod& mod, QWidget* parent, const QString& text, QWidget* field = nullptr);

// Connects a signal to a handler that runs under attempt().
template <typename Sender, typename Signal, typename Handler>
void onSignal(MainMod& mod, QWidget* window, Sender* sender, Signal signal, Handler handler) {
    QObject::connect(sender, signal, window, [&mod, window, handler](auto&&... arguments) {
        attempt(mod, window, [&] {
            if constexpr (std::is_invocable_v<Handler, decltype(arguments)...>)
                handler(std::forward<decltype(arguments)>(arguments)...);
            else
                handler();
        });
    });
}

}  // namespace core
