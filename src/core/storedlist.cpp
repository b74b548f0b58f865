#include "core/storedlist.h"

#include "controls/names.h"

namespace core {

StoredList::StoredList(platform::Settings& settings, const QString& name, const QString& spokenName,
                       const QString& section, QVector<controls::ListColumn> columns)
    : settings_(settings), section_(section) {
    controls::named(this, name);
    setAccessibleName(spokenName);
    // A width dragged to nothing would hide the column for good.
    constexpr int narrowest = 150;
    bool stored = false;
    for (controls::ListColumn& column : columns) {
        stored |= !settings_.value(section_, column.key).isEmpty();
        column.width = std::max(narrowest, settings_.number(section_, column.key, column.width));
    }
    if (!stored) shareWidth();
    setColumns(columns);
}

void StoredList::hideEvent(QHideEvent* event) {
    controls::ListView::hideEvent(event);
    // A minimised window hides its lists, too, and brings them back as they were.
    if (!event->spontaneous()) storeWidths();
}

void StoredList::storeWidths() {
    // The last column fills what is left of the list; its own width is the one it was given.
    const auto& shown = columns();
    for (int i = 0; i < shown.size(); ++i)
        settings_.setNumber(section_, shown[i].key, i + 1 < shown.size() ? columnTwips(i) : shown[i].width);
}

}  // namespace core
