// Appointments on their way to other calendars, read back by another library than the one that writes them.
#include <QProcess>

#include "diary/frmcalend.h"
#include "diary/frmdatesshow.h"
#include "diary/ics.h"
#include "platform/folders.h"
#include "schema/identity.h"
#include "support/cases.h"
#include "support/driver.h"
#include "support/files.h"
#include "support/office.h"

namespace {

const char* const reader = R"(
import icalendar, json, sys, datetime
calendar = icalendar.Calendar.from_ical(sys.stdin.buffer.read())
own = calendar.walk('VTIMEZONE')[0].to_tz()
def moment(value):
    if value is None: return None
    if not isinstance(value.dt, datetime.datetime): return value.dt.isoformat()
    here = own.localize(value.dt.replace(tzinfo=None)) if 'TZID' in value.params else value.dt
    assert here.utctimetuple() == value.dt.utctimetuple(), 'the zone of the file is another'
    return here.astimezone(datetime.timezone.utc).strftime('%Y-%m-%d %H:%M')
print(json.dumps([{
    'start': moment(event['DTSTART']), 'end': moment(event.get('DTEND')), 'stamp': moment(event['DTSTAMP']),
    'alarm': [alarm['TRIGGER'].dt.total_seconds() / 60 for alarm in event.walk('VALARM')],
    'uid': event['UID'], 'summary': event['SUMMARY'], 'location': event.get('LOCATION'),
    'notes': event.get('DESCRIPTION')} for event in calendar.walk('VEVENT')]))
)";

QVector<QVariantMap> read(const QByteArray& ics) {
    QProcess python;
    python.start("/usr/bin/python3", {"-c", reader});
    python.write(ics);
    python.closeWriteChannel();
    python.waitForFinished();
    if (python.exitCode() != 0) QTest::qFail(python.readAllStandardError().constData(), __FILE__, __LINE__);
    QVector<QVariantMap> events;
    for (const QVariant& event : QJsonDocument::fromJson(python.readAllStandardOutput()).toVariant().toList())
        events << event.toMap();
    return events;
}

struct IcsOffice : support::Office {
    qint64 add(QDate day, const char* start, const char* end, const char* remind, const QString& subject,
               const QVariantMap& more = {}) {
        const auto time = [](const char* text) {
            return text ? QVariant(data::wallClock(QDate(1899, 12, 30), QTime::fromString(text, "hh:mm"))) : QVariant();
        };
        data::Recordset row(mod.gConn, "select * from dates where aa=0");
        row.addNew();
        QVariantMap values{{"day", day.isValid() ? data::wallClock(day) : QVariant()},
                           {"start", time(start)},
                           {"end", time(end)},
                           {"remind", time(remind)},
                           {"subject", subject},
                           {"user", "Admin"}};
        values.insert(more);
        for (auto [column, value] : values.asKeyValueRange()) row[column].setValue(value);
        row.update();
        return row[u"aa"].toLong();
    }
    QByteArray exported(const diary::Wanted& wanted = {}) {
        return diary::icsText(diary::readAppointments(mod.gConn, wanted), schema::officeIdentity(mod.gConn),
                              desk.clock.now());
    }
    QString file() const { return directory_.filePath("a.ics"); }
    int eventsInFile() const { return int(support::bytesOf(file()).count("BEGIN:VEVENT")); }
};

const QDate today(2026, 11, 5);

// Over a row of the calendar's list, or beside them with -1.
void chooseInMenu(const support::Driver& calendar, const char* action, int row) {
    emit calendar.list()->menuRequested(row, QPoint());
    calendar.trigger(action);
    calendar.find<QMenu>("MnuPopUpDate")->close();
}

}  // namespace

class TestIcs : public QObject {
    Q_OBJECT
private slots:
    void anotherReaderUnderstandsIt() {
        IcsOffice office;
        QString notes;
        while (notes.size() < 10'000) notes += "Γραμμή, με; \\κάθε: «σημείο» \"και\" 😀\r\nκαι\tάλλη\n\n";
        office.add(QDate(2026, 7, 1), "09:30", "10:00", "09:00", "Ώρα, θερινή; C:\\Α",
                   {{"contact", "Σκίννερ Άννα"}, {"location", "Ερμού 1;\r\nΑθήνα"}, {"notes", notes}});
        office.add(QDate(2026, 10, 25), "05:00", "05:30", "02:00", "Αλλαγή ώρας",
                   {{"location", "x" + QString("Ω").repeated(200)}});
        office.add(QDate(2026, 11, 23), "23:30", "23:59", nullptr, QString("Χει\u0001μώνας"));
        office.add(QDate(2026, 11, 24), nullptr, "10:00", nullptr, "Όλη μέρα");
        office.add(QDate(2026, 11, 25), "10:00", "10:00", nullptr, "", {{"contact", "Μόνο επαφή"}});
        office.add(QDate(), "10:00", "11:00", nullptr, "Χωρίς ημέρα");
        const QByteArray ics = office.exported();
        for (const QByteArray& line : ics.split('\n')) {
            QVERIFY2(line.size() <= 76 && (line.isEmpty() || line.endsWith('\r')), line.constData());
            QVERIFY2(line.isValidUtf8(), line.constData());
        }
        const auto events = read(ics);
        const struct {
            const char *name, *start, *end;
            QVariantList alarm;
        } cases[] = {{"Σκίννερ Άννα, Ώρα, θερινή; C:\\Α", "2026-07-01 06:30", "2026-07-01 07:00", {-30}},
                     {"Αλλαγή ώρας", "2026-10-25 03:00", "2026-10-25 03:30", {-240}},
                     {"Χειμώνας", "2026-11-23 21:30", "2026-11-23 21:59", {}},
                     {"Όλη μέρα", "2026-11-24", nullptr, {}},
                     {"Μόνο επαφή", "2026-11-25 08:00", nullptr, {}}};
        QCOMPARE(events.size(), qsizetype(std::size(cases)));
        for (qsizetype i = 0; i < events.size(); ++i) {
            const support::InCase in(support::caseName(cases[i]));
            QCOMPARE(events[i]["summary"].toString(), QString(cases[i].name));
            QCOMPARE(events[i]["start"].toString(), QString(cases[i].start));
            QCOMPARE(events[i]["end"].toString(), QString(cases[i].end));
            QCOMPARE(events[i]["alarm"].toList(), cases[i].alarm);
            QCOMPARE(events[i]["stamp"].toString(), "2026-11-05 08:30");
        }
        QCOMPARE(events[0]["notes"].toString(), QString(notes).replace("\r\n", "\n"));
        QCOMPARE(events[0]["location"].toString(), "Ερμού 1;\nΑθήνα");
        QCOMPARE(events[1]["location"].toString(), "x" + QString("Ω").repeated(200));
    }

    void anAppointmentIsTheSameInEveryExport() {
        const auto uids = [](IcsOffice& office) {
            QStringList all;
            for (const QVariantMap& event : read(office.exported())) all << event["uid"].toString();
            return all;
        };
        IcsOffice office, other;
        for (IcsOffice* each : {&office, &other})
            for (const char* subject : {"α", "β"}) each->add(today, "10:00", "11:00", nullptr, subject);
        const QStringList first = uids(office);
        QVERIFY(first.size() == 2 && first[0] != first[1]);
        office.lose();
        office.bringBack();
        office.mod.gConn.execute("update dates set subject='άλλο', day=#2027-01-01# where subject='β'");
        QCOMPARE(uids(office), first);
        QVERIFY(!uids(other).contains(first[0]));
    }

    void theCalendarsMenuSavesOneOrTheDay() {
        IcsOffice office;
        const qint64 one = office.add(today, "10:00", "11:00", nullptr, "Πρώτη");
        office.add(today, "12:00", "13:00", nullptr, "Δεύτερη");
        office.add(today, "12:00", "13:00", nullptr, "Ξένη", {{"user", "Μαρία"}});
        office.add(today.addDays(1), "10:00", "11:00", nullptr, "Αύριο");
        diary::frmCalend calendar(office.mod, {});
        calendar.load();
        const support::Driver driver(calendar);
        auto& prompts = office.desk.prompts;
        const struct {
            const char *name, *suggested;
            int row, events;
        } cases[] = {{"a row", "Συνάντηση 05-11-2026.ics", 0, 1}, {"beside", "Συναντήσεις 05-11-2026.ics", -1, 2}};
        support::forEach(cases, [&](const auto& each) {
            prompts.answerFile(office.file());
            chooseInMenu(driver, "mnuIcsSave", each.row);
            QCOMPARE(prompts.lastText(), QString(each.suggested));
            QCOMPARE(office.eventsInFile(), each.events);
        });
        prompts.answerFile({});
        chooseInMenu(driver, "mnuIcsSave", 0);
        prompts.answerFile(office.directory_.filePath("nowhere/a.ics"));
        chooseInMenu(driver, "mnuIcsSave", 0);
        QCOMPARE(prompts.lastTitle(), "Μήνυμα λάθους");
        office.mod.gConn.execute(data::Sql("delete from dates where aa=?", one));
        chooseInMenu(driver, "mnuIcsMail", 0);
        QCOMPARE(prompts.lastText(), "Η συγκεκριμένη συνάντηση έχει ακυρωθεί !");
        QVERIFY(office.desk.shell.mails.isEmpty());
    }

    void aLetterHasTheTextAndTheFileWhereItCan() {
        IcsOffice office;
        office.add(today, "10:00", "11:00", nullptr, "Α & Β?",
                   {{"contact", "Σκίννερ"}, {"location", "Ερμού 1"}, {"notes", "100%\n1+1=2;"}});
        diary::frmCalend calendar(office.mod, {});
        calendar.load();
        const support::Driver driver(calendar);
        auto& shell = office.desk.shell;
        chooseInMenu(driver, "mnuIcsMail", -1);
        const QString title = "Συναντήσεις 05-11-2026",
                      text = "05/11/2026 10:00 - 11:00 Σκίννερ, Α & Β?\nΕρμού 1\n100%\n1+1=2;",
                      file = platform::workFolder() + "/" + title + ".ics";
        QCOMPARE(shell.mails, {QStringList({title, text, file})});
        QCOMPARE(read(support::bytesOf(file)).size(), 1);
        QCOMPARE(QFileInfo(file).permissions() & 0x77, QFile::Permissions());

        shell.attaches = false;
        QString said;
        office.mod.doors.say = [&](const QString& words) { said = words; };
        chooseInMenu(driver, "mnuIcsMail", -1);
        const QUrlQuery query(QUrl(shell.opened.value(0)));
        QCOMPARE(query.queryItemValue("subject", QUrl::FullyDecoded), title);
        QCOMPARE(query.queryItemValue("body", QUrl::FullyDecoded), QString(text).replace("\n", "\r\n"));
        QVERIFY(said.contains(file));
        shell.missingPrograms = shell.opened;
        chooseInMenu(driver, "mnuIcsMail", -1);
        QVERIFY(office.desk.prompts.lastText().contains("ταχυδρομείου"));
    }

    void theListSavesItsPeriod() {
        IcsOffice office;
        office.add(today, "10:00", "11:00", nullptr, "Σήμερα");
        office.add(today, "10:00", "11:00", nullptr, "Ξένη", {{"user", "Μαρία"}});
        office.add(today.addYears(-1), "10:00", "11:00", nullptr, "Πέρσι");
        diary::frmDatesShow list(office.mod);
        list.load();
        const support::Driver driver(list);
        const int shown = int(driver.rows().size());
        office.desk.prompts.answerFile(office.file());
        driver.click("cmdIcs");
        QVERIFY(shown >= 2);
        QCOMPARE(office.eventsInFile(), shown);
        driver.type("Combo1", "Admin");
        office.desk.prompts.answerFile(office.file());
        driver.click("cmdIcs");
        QCOMPARE(office.eventsInFile(), 1);
        office.mod.gConn.execute("delete from dates");
        driver.click("cmdIcs");
        QCOMPARE(office.desk.prompts.lastText(), "Δεν υπάρχουν συναντήσεις σε αυτό το διάστημα.");
    }
};

QTEST_MAIN(TestIcs)
#include "test_ics.moc"
