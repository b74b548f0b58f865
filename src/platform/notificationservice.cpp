#include "platform/notificationservice.h"

#include <QCoreApplication>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>

using namespace Qt::Literals::StringLiterals;

namespace platform {

namespace {

const QString service = u"org.freedesktop.Notifications"_s, path = u"/org/freedesktop/Notifications"_s;
const QString action = u"dorvalist"_s;  // not one that other programs' notices have
constexpr int usualTime = -1;

}  // namespace

NotificationService::NotificationService(const QString& bus) : address_(bus) {}

NotificationService::~NotificationService() {
    if (bus_ && !address_.isEmpty()) QDBusConnection::disconnectFromBus(bus_->name());
}

// At the first notice, and again until a bus is there.
bool NotificationService::connected() {
    if (bus_ && bus_->isConnected()) return true;
    bus_ = address_.isEmpty() ? QDBusConnection::sessionBus() : QDBusConnection::connectToBus(address_, address_);
    return bus_->isConnected() &&
           bus_->connect(service, path, service, u"ActionInvoked"_s, this, SLOT(pressed(uint, QString))) &&
           bus_->connect(service, path, service, u"NotificationClosed"_s, this, SLOT(closed(uint, uint)));
}

// A failure is no answer.
template <typename Answered>
void NotificationService::call(const QString& method, const QVariantList& arguments, Answered answered) {
    QDBusMessage message = QDBusMessage::createMethodCall(service, path, service, method);
    message.setArguments(arguments);
    auto* waiting = new QDBusPendingCallWatcher(bus_->asyncCall(message), this);
    connect(waiting, &QDBusPendingCallWatcher::finished, this, [waiting, answered] {
        waiting->deleteLater();
        if (!waiting->isError()) answered(waiting->reply().arguments().value(0));
    });
}

// Some services read the text as marked up, others show it as it is.
void NotificationService::notify(const QString& title, const QString& text, const Button& button) {
    if (!connected()) return;
    call(u"GetCapabilities"_s, {}, [=, this](const QVariant& able) {
        const bool markedUp = able.toStringList().contains(u"body-markup"_s);
        show(title, markedUp ? text.toHtmlEscaped() : text, button);
    });
}

void NotificationService::show(const QString& title, const QString& text, const Button& button) {
    const QStringList buttons = button.caption.isEmpty() ? QStringList() : QStringList{action, button.caption};
    call(u"Notify"_s,
         {QCoreApplication::applicationName(), 0U, u"appointment-soon"_s, title, text, buttons, QVariantMap(),
          usualTime},
         [this, run = button.run](const QVariant& notice) {
             if (run) buttons_.insert(notice.toUInt(), run);
         });
}

void NotificationService::pressed(uint notice, const QString& key) {
    if (key != action) return;
    if (const auto run = buttons_.take(notice)) run();
}

void NotificationService::closed(uint notice, uint) {
    buttons_.remove(notice);
}

std::unique_ptr<Notifier> desktopNotifier(const QString& bus) {
    return std::make_unique<NotificationService>(bus);
}

}  // namespace platform
