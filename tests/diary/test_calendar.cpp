// What the diary computes without a window: months, half hours, clashes, due cards, reminders.
#include "diary/appointment.h"
#include "diary/clockface.h"
#include "diary/due.h"
#include "diary/month.h"
#include "diary/planner.h"
#include "diary/reminders.h"
#include "diaryoffice.h"
#include "support/cases.h"

using namespace diary;

namespace {

QDateTime onClock(const QString& text) {
    return QDateTime::fromString(text + "Z", "yyyy-MM-dd HH:mm:sst").toUTC();
}

// Half hours as "09:30 10:00".
QString taken(const char* start, const char* end) {
    QStringList texts;
    for (const int slot : takenSlots(QTime::fromString(start, "HH:mm"), QTime::fromString(end, "HH:mm")))
        texts << slotText(slot);
    return texts.join(' ');
}

struct Diary : support::DiaryOffice {
    qint64 add(QDate day, const char* start, const char* end, const QVariantMap& more = {}) {
        return DiaryOffice::add("Dates",
                                {{"Day", data::wallClock(day)},
                                 {"Start", support::at(start)},
                                 {"End", support::at(end)},
                                 {"Subject", QString(start)},
                                 {"User", "Admin"},
                                 {"Remind", support::at(start)}},
                                more);
    }
    bool clashes(const char* start, const char* end, qint64 except = 0, QDate day = {2026, 11, 5}) {
        return diary::clashes(mod.gConn, day, QTime::fromString(start, "HH:mm"), QTime::fromString(end, "HH:mm"),
                              except);
    }
};

}  // namespace

class TestCalendar : public QObject {
    Q_OBJECT
private slots:
    void leapYearsFollowTheirOwnRule() {
        const struct {
            const char* name;
            int year, days;
        } cases[] = {{"1900", 1900, 29}, {"2000", 2000, 29}, {"2001", 2001, 28}, {"2100", 2100, 29},
                     {"1000", 1000, 28}, {"3000", 3000, 28}, {"2024", 2024, 29}};
        support::forEach(cases, [](const auto& one) { QCOMPARE(HowManyDays(2, one.year), one.days); });
        QVERIFY(!dayOf(29, 2, 1900).isValid() && !dayOf(29, 2, 2100).isValid());
        QCOMPARE(dayOf(29, 2, 2000), QDate(2000, 2, 29));
    }

    // Against the calendar of the toolkit, but for the two days that it doesn't have.
    void everyDayStandsUnderItsWeekday() {
        for (int year = 1899; year <= 2100; ++year)
            for (int month = 1; month <= 12; ++month) {
                const QVector<Week> weeks = weeksOf(month, year);
                QVERIFY(weeks.size() == 5 || weeks.size() == 6);
                int expected = 0;
                for (const Week& week : weeks)
                    for (size_t column = 0; column < 7; ++column) {
                        if (week[column] == 0) continue;
                        QCOMPARE(week[column], ++expected);
                        const QDate day = dayOf(week[column], month, year);
                        if (day.isValid()) QCOMPARE(day.dayOfWeek(), int(column) + 1);
                    }
                QCOMPARE(expected, HowManyDays(month, year));
            }
    }

    void weeksOfAMonth() {
        const struct {
            const char* name;
            int month, year, weeks, lastFilled;
        } cases[] = {{"31 days from a Sunday", 8, 2027, 6, 6},     // both 30 and 31 lie in the sixth
                     {"ends on the fifth Sunday", 5, 2026, 6, 5},  // an empty week behind
                     {"four whole weeks", 2, 2027, 5, 4},
                     {"usual", 9, 2026, 5, 5}};
        support::forEach(cases, [](const auto& one) {
            const QVector<Week> weeks = weeksOf(one.month, one.year);
            QCOMPARE(weeks.size(), one.weeks);
            int last = 0;
            for (int i = 0; i < weeks.size(); ++i)
                if (*std::max_element(weeks[i].begin(), weeks[i].end()) > 0) last = i + 1;
            QCOMPARE(last, one.lastFilled);
        });
    }

    void monthsTurnOverTheYearAndStopAtTheEnds() {
        QCOMPARE(turned({12, 2026}, 1), (Month{1, 2027}));
        QCOMPARE(turned({1, 2026}, -1), (Month{12, 2025}));
        QCOMPARE(turned({1, 100}, -1), (Month{1, 100}));
        QCOMPARE(turned({12, 9999}, 1), (Month{12, 9999}));
    }

    void halfHours() {
        QCOMPARE(timesOf(0).remind, "00:00");
        QCOMPARE(timesOf(19).start + ' ' + timesOf(19).end + ' ' + timesOf(19).remind, "09:30 10:00 09:00");
        QCOMPARE(timesOf(47).end, "23:59");
        const struct {
            const char *name, *start, *end, *slots_;
        } cases[] = {{"within a half hour", "09:10", "09:20", ""}, {"over a beginning", "09:10", "09:40", "09:30"},
                     {"whole", "09:00", "10:00", "09:00 09:30"},   {"a minute less", "09:00", "09:59", "09:00 09:30"},
                     {"none long", "09:00", "09:00", ""},          {"the last", "23:30", "23:59", "23:30"}};
        support::forEach(cases, [](const auto& one) { QCOMPARE(taken(one.start, one.end), one.slots_); });
    }

    void theHandsOfTheClock() {
        const auto [seconds, minutes, hours] = handEnds(QTime(15, 30, 15), 700);
        QCOMPARE(seconds.toPoint(), QPoint(1150, 700));
        QCOMPARE(minutes.toPoint(), QPoint(700, 1150));
        QVERIFY(hours.x() > 980 && hours.y() > 770);  // between three and four
        ClockFace face;
        face.resize(72, 72);
        face.setTime(QTime(12, 0));
        const QImage dial = face.grab().toImage();
        for (const QPoint mark : {QPoint(65, 36), {36, 65}, {6, 36}})
            QVERIFY(dial.pixelColor(mark) != dial.pixelColor(mark.x(), 20));
        QCOMPARE(halfOfDay(QTime(12, 59)), "ΠΜ");
        QCOMPARE(halfOfDay(QTime(13, 0)), "MM");
    }

    void typedTimes() {
        const struct {
            const char *name, *time;
        } cases[] = {{"9:30", "09:30"}, {"09:30", "09:30"}, {"2:30 μμ", "14:30"}, {"00:00", "00:00"},
                     {"", ""},          {"25:00", ""},      {"αύριο", ""},        {"5/11/2026", ""}};
        support::forEach(cases, [](const auto& one) {
            QCOMPARE(typedTime(one.name).value_or(QTime()).toString("HH:mm"), one.time);
        });
    }

    void clashesWithTheEndsIncluded() {
        Diary office;
        const qint64 own = office.add({2026, 11, 5}, "10:00", "11:00", {{"User", "Μαρία"}});
        office.add({2026, 11, 6}, "12:00", "13:00");
        const struct {
            const char *name, *start, *end;
            bool clashes;
        } cases[] = {{"overlaps the start", "09:00", "10:30", true},
                     {"overlaps the end", "10:30", "12:00", true},
                     {"around it", "09:00", "12:00", true},
                     {"ends as it starts", "09:00", "10:00", true},
                     {"starts as it ends", "11:00", "12:00", true},
                     {"inside it", "10:15", "10:45", false},
                     {"before", "09:00", "09:59", false},
                     {"no length, at its end", "11:00", "11:00", true},
                     {"the next day's", "12:00", "13:00", false}};
        support::forEach(cases, [&](const auto& one) { QCOMPARE(office.clashes(one.start, one.end), one.clashes); });
        QVERIFY(!office.clashes("10:00", "11:00", own));
    }

    void remindsOncePerMinuteAndRun() {
        Diary office;
        const QDate day(2026, 10, 25);  // clocks go back at 04:00
        office.add(day, "03:30", "04:00", {{"Subject", "β"}});
        office.add(day, "03:30", "03:45", {{"Subject", "α"}, {"Start", data::wallClock({1899, 12, 30}, {3, 0})}});
        office.add(day, "03:30", "04:00", {{"User", "Μαρία"}});
        office.add(day, "03:30", "04:00", {{"User", QVariant()}});
        const auto texts = [&](Reminders& reminders, const char* now) {
            QStringList found;
            for (const Reminder& one : reminders.due(office.mod.gConn, "Admin", onClock(now)))
                found << one.start + one.end + one.subject;
            return found.join(' ');
        };
        QSet<QString> given;
        Reminders reminders(given);
        QCOMPARE(texts(reminders, "2026-10-25 03:29:59"), "");
        QCOMPARE(texts(reminders, "2026-10-25 03:30:58"), "03:0003:45α 03:3004:00β");
        QCOMPARE(texts(reminders, "2026-10-25 03:30:01"), "");  // the second 03:30 of that night
        Reminders reloaded(given);
        QCOMPARE(texts(reloaded, "2026-10-25 03:30:30"), "");
        QSet<QString> nextRun;
        Reminders restarted(nextRun);
        QCOMPARE(texts(restarted, "2026-10-25 03:30:30"), "03:0003:45α 03:3004:00β");
    }

    void whatPassedWithoutACheck() {
        Diary office;
        office.add({2026, 11, 5}, "10:00", "11:00");
        office.add({2026, 11, 5}, "10:02", "11:00");
        office.add({2026, 11, 6}, "08:00", "11:00");
        office.add({2026, 11, 5}, "10:01", "11:00", {{"User", "Μαρία"}});
        QSet<QString> given;
        Reminders reminders(given);
        const auto missed = [&](const char* now) {
            return reminders.missed(office.mod.gConn, "Admin", onClock(now)).join(", ");
        };
        QCOMPARE(missed("2026-11-05 12:00:00"), "");
        reminders.checked(onClock("2026-11-05 10:00:30"));
        QCOMPARE(missed("2026-11-05 10:01:00"), "");
        QCOMPARE(missed("2026-11-05 10:02:00"), "");
        QCOMPARE(missed("2026-11-05 10:03:00"), "10:02 10:02");
        QCOMPARE(missed("2026-11-06 08:00:00"), "10:02 10:02");
        QCOMPARE(missed("2026-11-06 09:00:00"), "10:02 10:02, 08:00 08:00");
        QCOMPARE(missed("2026-11-05 09:00:00"), "");  // the clock was set back
    }
};

QTEST_MAIN(TestCalendar)
#include "test_calendar.moc"
