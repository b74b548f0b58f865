// Notices of the desktop, for whoever looks at another program.
#pragma once

#include <QString>
#include <functional>
#include <memory>

namespace platform {

class Notifier {
public:
    struct Button {
        QString caption;
        std::function<void()> run;  // later, in the windows' thread, if the notice's button is pressed at all
    };

    virtual ~Notifier() = default;
    // Returns at once. Where nobody shows notices this is silence.
    virtual void notify(const QString& title, const QString& text, const Button& button) = 0;
};

// The notification service of the desktop; it is looked for at each notice. `bus` is the address of the bus that it is
// on, the session's when empty.
std::unique_ptr<Notifier> desktopNotifier(const QString& bus = {});

}  // namespace platform
