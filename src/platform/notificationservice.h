// The notification service that desktops have on their bus.
#pragma once

#include <QDBusConnection>
#include <QDBusPendingCall>
#include <QHash>
#include <QObject>
#include <optional>

#include "platform/notifier.h"

namespace platform {

class NotificationService : public QObject, public Notifier {
    Q_OBJECT
public:
    explicit NotificationService(const QString& bus);
    ~NotificationService() override;

    void notify(const QString& title, const QString& text, const Button& button) override;

private slots:
    void pressed(uint notice, const QString& action);
    void closed(uint notice, uint reason);

private:
    bool connected();
    template <typename Answered>
    void call(const QString& method, const QVariantList& arguments, Answered answered);
    void show(const QString& title, const QString& text, const Button& button);

    const QString address_;
    std::optional<QDBusConnection> bus_;
    QHash<uint, std::function<void()>> buttons_;  // of the notices on show
};

}  // namespace platform
