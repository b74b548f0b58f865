#include "diary/frmalarm.h"

#include <QApplication>
#include <QPointer>

#include "controls/layout.h"
#include "controls/names.h"
#include "controls/theme.h"
#include "core/placement.h"
#include "platform/folders.h"

using namespace Qt::Literals::StringLiterals;

namespace diary {

using controls::named;

namespace {

const core::Placement alarmPlace{u"Alarm"_s, 1000, 0};
const QString settingsSection = u"Settings"_s, soundKey = u"AlarmSound"_s;
constexpr int minute = 60'000;  // milliseconds
constexpr int shownLetters = 12;
const QString usualHeading = u"Υπενθύμιση"_s;

QVector<controls::ListColumn> columns() {
    return {{u"Start"_s, u"Έναρξη"_s, 800}, {u"End"_s, u"Τέλος"_s, 800}, {u"Subject"_s, u"Θέμα"_s, 2900}};
}

QLabel* subjectLabel(const QString& name) {
    auto* label = named(new QLabel(usualHeading), name);
    label->setTextFormat(Qt::PlainText);
    label->setFont(controls::font(u"Tahoma"_s, 14, true));
    label->setAlignment(Qt::AlignCenter);
    return label;
}

}  // namespace

frmAlarm::frmAlarm(core::MainMod& mod, QWidget* parent)
    : Dialog(mod, parent, u"frmAlarm"_s, u"Υπενθύμιση!"_s, u"alarm"_s),
      lblAlarm(subjectLabel(u"lblAlarm"_s)),
      Label2(subjectLabel(u"Label2"_s)),
      ListView1(
          new core::StoredList(mod.services.settings, u"ListView1"_s, u"Υπενθυμίσεις"_s, u"ListView1"_s, columns())),
      reminders_(mod.reminded),
      gAlarmSound(mod.services.settings.value(settingsSection, soundKey,
                                              platform::programFolder() + u"/sounds/alarm001.wav"_s)),
      commands_(mod, this, commands()) {
    // The flashing one over the one that stays readable.
    auto* buttons = controls::row({controls::Item::rest()});
    commands_.addPictures(buttons);
    controls::add(controls::dialogLayout(this), {lblAlarm, {ListView1, 1}, Label2, buttons});
    resize(460, 320);
    // Whoever is typing goes on typing.
    setAttribute(Qt::WA_ShowWithoutActivating);
    setModal(false);
    on(ListView1, &controls::ListView::rowActivated, [this](int row) {
        if (parentWidget()) parentWidget()->activateWindow();
        mod_.doors.openAppointment(ListView1->row(row).tag.toLongLong(), nullptr);
    });
    Timer2.setSingleShot(true);
    Timer2.setTimerType(Qt::PreciseTimer);
    Timer1.setInterval(500);
    connect(&Timer2, &QTimer::timeout, this, [this] {
        check();
        armTimer();
    });
    connect(&Timer1, &QTimer::timeout, this, &frmAlarm::flash);
}

frmAlarm::~frmAlarm() {
    if (!isMinimized() && testAttribute(Qt::WA_Moved))
        core::storePosition(mod_.services.settings, alarmPlace, pos() - origin());
}

// Its place is kept as a way from the main window's corner.
QPoint frmAlarm::origin() const {
    return parentWidget() ? parentWidget()->pos() : QPoint();
}

QVector<core::Command> frmAlarm::commands() {
    return {{u"lblClick(0)"_s, u"calendar"_s, u"Εμφάνιση Ημερολογίου"_s, {}, [this] { openCalendar(); }},
            {u"lblClick(1)"_s, u"settings"_s, u"Αλλαγή Ήχου Υπενθύμισης"_s, {}, [this] { chooseSound(); }},
            {u"lblClick(2)"_s, u"exit"_s, u"Έξοδος"_s, {}, [this] { dismiss(); }}};
}

void frmAlarm::watch() {
    check();
    armTimer();
}

// To the next change of the minute on the wall.
void frmAlarm::armTimer() {
    const QTime now = mod_.services.clock.now().time();
    Timer2.start(minute - now.msecsSinceStartOfDay() % minute);
}

void frmAlarm::check() {
    const QDateTime now = mod_.services.clock.now();
    setWindowTitle(now.time().toString(u"HH:mm:ss"_s));
    try {
        const QStringList missed = reminders_.missed(mod_.gConn, mod_.gUserName, now);
        const QVector<Reminder> due = reminders_.due(mod_.gConn, mod_.gUserName, now);
        reminders_.checked(now);
        if (!missed.isEmpty()) mod_.doors.say(u"Πέρασαν χωρίς υπενθύμιση: "_s + missed.join(u" · "_s));
        if (!due.isEmpty()) remind(due);
    } catch (const std::exception& error) {
        qWarning("frmAlarm: %s", error.what());
    }
}

void frmAlarm::remind(const QVector<Reminder>& due) {
    QVector<controls::ListRow> rows = ListView1->rows();
    for (const Reminder& each : due) rows.append({{each.start, each.end, each.subject}, each.aa, {}});
    ListView1->setRows(rows);
    setHeading(rows.first().cells.last().left(shownLetters));
    Timer1.start();
    notifyElsewhere(due);
    place();
    show();
    raise();
    mod_.playSound(gAlarmSound);
}

// Whoever is at work in another program doesn't see this window.
void frmAlarm::notifyElsewhere(const QVector<Reminder>& due) {
    QWidget* const main = parentWidget();
    if (!main || (QApplication::activeWindow() && !main->isMinimized())) return;
    QStringList lines;
    for (const Reminder& each : due) lines << each.start + u' ' + each.subject;
    const auto show = [main, alarm = QPointer(this)] {
        if (!alarm) return;  // logged off meanwhile
        main->setWindowState((main->windowState() & ~Qt::WindowMinimized) | Qt::WindowActive);
        main->raise();
        main->activateWindow();
        core::attempt(alarm->mod_, main, [&] { alarm->openCalendar(); });
    };
    mod_.services.notifier.notify(usualHeading, lines.join(u'\n'), {u"Εμφάνιση Ημερολογίου"_s, show});
}

void frmAlarm::openCalendar() {
    dismiss();
    mod_.doors.openCalendar();
}

void frmAlarm::place() {
    if (isVisible()) return;
    const QPoint corner = origin() + core::loadPosition(mod_.services.settings, alarmPlace);
    move(core::fitInto({corner, size()}, screen()->availableGeometry()).topLeft());
}

void frmAlarm::showFront() {
    place();
    show();
    raise();
    activateWindow();
}

void frmAlarm::flash() {
    bright_ = !bright_;
    const controls::Theme& theme = controls::theme();
    QPalette palette = lblAlarm->palette();
    palette.setColor(QPalette::WindowText, bright_ ? theme.danger : theme.accent);
    lblAlarm->setPalette(palette);
}

void frmAlarm::setHeading(const QString& text) {
    for (QLabel* label : {lblAlarm, Label2}) label->setText(text);
}

void frmAlarm::dismiss() {
    ListView1->clear();
    setHeading(usualHeading);
    Timer1.stop();
    hide();
}

void frmAlarm::chooseSound() {
    const QString file =
        mod_.services.prompts.openFile(this, u"Ήχος Υπενθύμισης"_s, u"WAV Files Only (*.wav *.WAV)"_s, gAlarmSound);
    if (file.isEmpty()) return;
    gAlarmSound = file;
    mod_.services.settings.setValue(settingsSection, soundKey, file);
    mod_.playSound(file);
}

}  // namespace diary
