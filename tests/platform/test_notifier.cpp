// Notices of the desktop, over a bus of the test's own and a service that stands in for the desktop's.
#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusMessage>
#include <QProcess>
#include <QTemporaryDir>

#include "platform/notifier.h"
#include "support/cases.h"
#include "support/files.h"

namespace {

const QString service = "org.freedesktop.Notifications", path = "/org/freedesktop/Notifications";

// Open to all, and without services of the machine, which would answer in the stand-in's place.
const QString busSettings = R"(<busconfig>
    <type>session</type>
    <listen>unix:path=%1</listen>
    <policy context="default">
        <allow send_destination="*" eavesdrop="true"/>
        <allow eavesdrop="true"/>
        <allow own="*"/>
    </policy>
</busconfig>
)";

// A bus that lives as long as this object.
class Bus {
public:
    Bus() {
        const QString settings = folder_.filePath("settings");
        support::write(settings, busSettings.arg(folder_.filePath("bus")).toUtf8());
        daemon_.start("dbus-daemon", {"--config-file=" + settings, "--nofork", "--nopidfile", "--print-address"});
        if (daemon_.waitForReadyRead()) address = QString::fromUtf8(daemon_.readLine()).trimmed();
    }
    ~Bus() { stop(); }
    void stop() {
        daemon_.terminate();
        daemon_.waitForFinished();
    }

    QString address;

private:
    QTemporaryDir folder_;
    QProcess daemon_;
};

// As the service of the desktops names and types it.
class Desktop : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Notifications")
public:
    explicit Desktop(const QString& address) : bus(QDBusConnection::connectToBus(address, "desktop")) {
        bus.registerObject(path, this, QDBusConnection::ExportAllSlots);
        bus.registerService(service);
    }
    ~Desktop() override {
        bus.unregisterService(service);
        QDBusConnection::disconnectFromBus("desktop");
    }
    void tell(const QString& signal, const QVariantList& arguments) {
        QDBusMessage message = QDBusMessage::createSignal(path, service, signal);
        message.setArguments(arguments);
        bus.send(message);
    }

    QDBusConnection bus;
    QStringList able{"actions"};
    QVector<QStringList> shown;  // title, text and buttons of each; its number is its place, from 1

public slots:
    QStringList GetCapabilities() { return able; }
    uint Notify(const QString&, uint, const QString&, const QString& title, const QString& text,
                const QStringList& actions, const QVariantMap&, int) {
        shown.append(QStringList{title, text} + actions);
        return uint(shown.size());
    }
};

}  // namespace

class TestNotifier : public QObject {
    Q_OBJECT

    int pressed_ = 0;
    platform::Notifier::Button button_{"Εμφάνιση", [this] { ++pressed_; }};

private slots:
    void init() { pressed_ = 0; }

    void theButtonOfANoticeRunsOnce() {
        const Bus bus;
        Desktop desktop(bus.address);
        QVERIFY2(desktop.bus.isConnected(), "dbus-daemon gave no bus");
        const auto notifier = platform::desktopNotifier(bus.address);
        int other = 0;
        notifier->notify("Υπενθύμιση", "09:30 Α & <Β>", button_);
        notifier->notify("Δεύτερη", "10:00", {"Άλλο", [&] { ++other; }});
        QTRY_COMPARE(desktop.shown.size(), 2);
        const QString key = desktop.shown[0].value(2);
        QCOMPARE(desktop.shown[0], QStringList({"Υπενθύμιση", "09:30 Α & <Β>", key, "Εμφάνιση"}));

        desktop.tell("ActionInvoked", {1U, "default"});
        desktop.tell("ActionInvoked", {77U, key});
        desktop.tell("ActionInvoked", {1U, key});
        desktop.tell("ActionInvoked", {1U, key});
        desktop.tell("NotificationClosed", {1U, 2U});
        desktop.tell("NotificationClosed", {2U, 2U});
        desktop.tell("ActionInvoked", {2U, key});
        desktop.able << "body-markup";
        notifier->notify("Τρίτη", "Α & <Β>", button_);
        QTRY_COMPARE(desktop.shown.size(), 3);
        QCOMPARE(desktop.shown[2].value(1), "Α &amp; &lt;Β&gt;");
        desktop.tell("ActionInvoked", {3U, key});
        QTRY_COMPARE(pressed_, 2);
        QCOMPARE(other, 0);
    }

    // The service may come later than the program, and the bus may go before it.
    void nobodyToShowItIsSilence() {
        Bus bus;
        const auto nowhere = platform::desktopNotifier("unix:path=/nonexistent/bus");
        nowhere->notify("α", "β", button_);
        const auto notifier = platform::desktopNotifier(bus.address);
        notifier->notify("Χαμένη", "β", button_);
        Desktop desktop(bus.address);
        notifier->notify("Φτάνει", "β", button_);
        QTRY_VERIFY(!desktop.shown.isEmpty() && desktop.shown.last().first() == "Φτάνει");
        bus.stop();
        notifier->notify("Χαμένη", "β", button_);
        QCOMPARE(pressed_, 0);
    }
};

QTEST_GUILESS_MAIN(TestNotifier)
#include "test_notifier.moc"
