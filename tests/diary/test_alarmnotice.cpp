// A reminder for somebody who is at work in another program.
#include "diary/frmalarm.h"
#include "support/cases.h"
#include "support/driver.h"
#include "support/office.h"

class TestAlarmNotice : public QObject {
    Q_OBJECT
private slots:
    void whoLooksElsewhereIsNotified() {
        const struct {
            const char* name;
            bool active, minimised;
            int notices;
        } cases[] = {{"at work here", true, false, 0}, {"elsewhere", false, false, 1}, {"minimised", false, true, 1}};
        support::forEach(cases, [](const auto& one) {
            support::Office office;
            const QDateTime now = office.desk.services.clock.now();
            for (const QString subject : {"Α & Β", "Δεύτερο"})
                office.mod.gConn.execute(
                    data::Sql("insert into dates (day,start,[end],remind,subject,[user]) values (?,?,?,?,?,'Admin')",
                              now.date(), QTime(11, 0), QTime(11, 30), now.time(), subject));
            int opened = 0;
            office.mod.doors.openCalendar = [&] { ++opened; };
            QWidget main;
            support::activate(main);
            QWidget other;
            if (!one.active) {
                support::activate(other);
                other.hide();
            }
            if (one.minimised) main.showMinimized();
            QTRY_COMPARE(QApplication::activeWindow() == &main, one.active);
            diary::frmAlarm alarm(office.mod, &main);
            alarm.watch();
            QVERIFY(alarm.isVisible());
            const auto& shown = office.desk.notifier.shown;
            QCOMPARE(shown.size(), one.notices);
            if (shown.isEmpty()) return;
            QCOMPARE(shown[0].title + '|' + shown[0].text + '|' + shown[0].button.caption,
                     "Υπενθύμιση|11:00 Α & Β\n11:00 Δεύτερο|Εμφάνιση Ημερολογίου");
            shown[0].button.run();
            QVERIFY(!alarm.isVisible() && !main.isMinimized());
            QTRY_VERIFY(main.isActiveWindow());
            QCOMPARE(opened, 1);
        });
    }

    void aButtonPressedAfterTheLogoffRunsNothing() {
        support::Office office;
        QWidget main;
        auto alarm = std::make_unique<diary::frmAlarm>(office.mod, &main);
        const QDateTime now = office.desk.services.clock.now();
        office.mod.gConn.execute(
            data::Sql("insert into dates (day,start,[end],remind,subject,[user]) values (?,?,?,?,'Θέμα','Admin')",
                      now.date(), QTime(11, 0), QTime(11, 30), now.time()));
        office.mod.doors.openCalendar = [] { QFAIL("opened"); };
        alarm->watch();
        alarm.reset();
        QCOMPARE(office.desk.notifier.shown.size(), 1);
        office.desk.notifier.shown[0].button.run();
    }
};

QTEST_MAIN(TestAlarmNotice)
#include "test_alarmnotice.moc"
