// How a window reaches what another window shows, without knowing it.
#pragma once

#include <QtGlobal>
#include <functional>

namespace core {

// Filled by the rooms when they register their windows; a door without a room behind it does nothing. They lead into
// the windows of one logon and are taken back when its main window goes.
struct Doors {
    std::function<void(qint64 code)> openCard = [](qint64) {};  // in front, with this card
    std::function<void(int number)> openValues = [](int) {};    // the values of one of the office's lists, from 1
    std::function<void()> listsChanged = [] {};                 // categories or values were written: read them again
};

}  // namespace core
