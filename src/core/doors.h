// How a window reaches what another window shows, without knowing it.
#pragma once

#include <QString>
#include <QVector>
#include <functional>

class QWidget;

namespace core {

// Something was written that lists elsewhere show; each room that has such lists puts in what reads them again.
class Notice {
public:
    void add(std::function<void()> reader) { readers_.append(std::move(reader)); }
    void operator()() const {
        for (const auto& reader : readers_) reader();
    }

private:
    QVector<std::function<void()>> readers_;
};

// Filled by the rooms when they register their windows; a door without a room behind it does nothing. They lead into
// the windows of one logon and are taken back when its main window goes.
struct Doors {
    std::function<void(qint64 code)> openCard = [](qint64) {};                  // in front, with this card
    std::function<void(qint64 code, int tab)> openCardAt = [](qint64, int) {};  // and this tab of it, from 0
    std::function<void(int number)> openValues = [](int) {};  // the values of one of the office's lists, from 1
    Notice listsChanged;                                      // categories or values
    Notice cardsChanged;                                      // a card was saved or deleted

    // The search over `opener`; the chosen card goes to `chosen` with surname and first name.
    using Chosen = std::function<void(qint64 code, const QString& contact)>;
    std::function<void(QWidget* opener, Chosen chosen)> findCard = [](QWidget*, const Chosen&) {};

    // In an editor of its own, a new one for 0; `opener`, if any, takes no input until that one closes.
    std::function<void(qint64 aa, QWidget*opener)> openAppointment = [](qint64, QWidget*) {},
                                                   openTask = openAppointment;
    std::function<void()> openCalendar = [] {};
    // The calendar; a new appointment made there is with this card.
    std::function<void(qint64 code, const QString& contact)> openCalendarFor = [](qint64, const QString&) {};
    Notice appointmentsChanged, tasksChanged;

    std::function<void(const QString& text)> say = [](const QString&) {
    };  // for a while, at the foot of the main window
};

}  // namespace core
