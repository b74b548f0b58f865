#include <QApplication>
#include <QCalendarWidget>
#include <QFocusEvent>
#include <QFrame>
#include <QKeyEvent>
#include <QLocale>
#include <QPushButton>
#include <QScreen>
#include <QTextCharFormat>
#include <QVBoxLayout>

#include "controls/datepair.h"
#include "controls/pickeraccess.h"
#include "controls/popup.h"
#include "controls/theme.h"
#include "controls/walk.h"

using namespace Qt::Literals::StringLiterals;

namespace controls {

namespace {

QCalendarWidget* greekCalendar(QWidget* parent, QDate selected) {
    auto* calendar = new QCalendarWidget(parent);
    calendar->setLocale(QLocale(QLocale::Greek, QLocale::Greece));
    calendar->setFirstDayOfWeek(Qt::Monday);
    calendar->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    calendar->setDateRange(QDate(100, 1, 1), QDate(9999, 12, 31));
    calendar->setSelectedDate(selected);

    QTextCharFormat weekend;
    weekend.setForeground(theme().danger);
    calendar->setWeekdayTextFormat(Qt::Saturday, weekend);
    calendar->setWeekdayTextFormat(Qt::Sunday, weekend);
    QTextCharFormat today;
    today.setFontWeight(QFont::Bold);
    today.setFontUnderline(true);
    calendar->setDateTextFormat(QDate::currentDate(), today);
    return calendar;
}

// Below the button, or above it where the screen ends; never beyond the screen's sides.
QPoint placeFor(const QWidget* button, QSize popup) {
    const QRect screen = button->screen()->availableGeometry();
    const QPoint below = button->mapToGlobal(QPoint(0, button->height()));
    QPoint place(std::min(below.x(), screen.right() - popup.width()), below.y());
    if (place.y() + popup.height() > screen.bottom()) place.ry() = below.y() - button->height() - popup.height();
    return QPoint(std::max(place.x(), screen.left()), std::max(place.y(), screen.top()));
}

bool isDropKey(const QKeyEvent& event) {
    return event.key() == Qt::Key_F4 || (event.key() == Qt::Key_Down && event.modifiers().testFlag(Qt::AltModifier));
}

// What pairUp() must see happening inside the two widgets.
class PairWatcher : public QObject {
public:
    PairWatcher(DateBox* box, DatePicker* picker) : QObject(picker), box_(box), picker_(picker) {
        box->installEventFilter(this);
        picker->installEventFilter(this);
    }

    void takeBoxDate() {
        const auto* box = qobject_cast<DateBox*>(box_);
        if (!box) return;
        if (const std::optional<QDate> date = box->date()) picker_->setValue(*date);
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (watched == picker_ && event->type() == QEvent::FocusIn) {
            takeBoxDate();
        } else if (watched == box_ && event->type() == QEvent::KeyPress && picker_->isEnabled() &&
                   isDropKey(*static_cast<QKeyEvent*>(event))) {
            picker_->dropDown();
            return true;
        }
        return false;
    }

private:
    QPointer<QObject> box_;  // a box under destruction still sends events, when it is no DateBox any more
    DatePicker* picker_;
};

}  // namespace

DatePicker::DatePicker(QWidget* parent) : QToolButton(parent), value_(QDate::currentDate()) {
    detail::tellCalendars();
    setIcon(controls::icon(u"calendar"_s));
    setFocusPolicy(Qt::TabFocus);
    setAutoRaise(true);
    setAccessibleName(u"Επιλογή ημερομηνίας"_s);
    connect(this, &QToolButton::clicked, this, &DatePicker::dropDown);
}

void DatePicker::setValue(QDate date) {
    if (date.isValid()) value_ = date;
}

void DatePicker::keyPressEvent(QKeyEvent* event) {
    if (isDropKey(*event)) {
        dropDown();
    } else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        event->accept();
        if (!event->isAutoRepeat()) moveOn(this);
    } else {
        QToolButton::keyPressEvent(event);
    }
}

void DatePicker::dropDown() {
    if (findChild<QFrame*>(u"calendarPopup"_s)) return;
    emit aboutToDropDown();
    auto* popup = new QFrame(this, Qt::Popup);
    popup->setObjectName(u"calendarPopup"_s);
    popup->setAttribute(Qt::WA_DeleteOnClose);
    auto* calendar = greekCalendar(popup, value_);
    calendar->setAccessibleName(accessibleName());
    auto* layout = new QVBoxLayout(popup);
    layout->setContentsMargins(1, 1, 1, 1);
    layout->addWidget(calendar);
    auto* today = new QPushButton(u"Σήμερα"_s);
    today->setObjectName(u"calendarToday"_s);
    today->setAutoDefault(false);
    layout->addWidget(today);
    // A click and Enter both pick; the calendar may report one of them twice, but the first closes the popup.
    const auto choose = [this, popup](QDate date) {
        if (popup->isHidden()) return;
        popup->close();
        pick(date);
    };
    connect(calendar, &QCalendarWidget::clicked, this, choose);
    connect(calendar, &QCalendarWidget::activated, this, choose);
    connect(today, &QPushButton::clicked, this, [choose] { choose(QDate::currentDate()); });
    popup->adjustSize();
    popup->move(placeFor(this, popup->size()));
    detail::keepEscape(popup);
    popup->setAccessibleName(accessibleName());
    popup->show();
    calendar->setFocus();
}

void DatePicker::pick(QDate date) {
    value_ = date;
    emit picked(date);
}

void pairUp(DateBox* box, DatePicker* picker) {
    auto* watcher = new PairWatcher(box, picker);
    QObject::connect(picker, &DatePicker::aboutToDropDown, watcher, [watcher] { watcher->takeBoxDate(); });
    QObject::connect(box, &DateBox::accepted, picker, &DatePicker::setValue);
    QObject::connect(picker, &DatePicker::picked, box, [box](QDate date) {
        box->setDate(date);
        box->setFocus(Qt::OtherFocusReason);
    });
}

}  // namespace controls
