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
    for (controls::ListColumn& column : columns) {
        const int stored = std::max(narrowest, settings_.number(sectionOf(column), column.key, column.width));
        column.kept = stored != column.width;
        column.width = stored;
        known_.append(stored);
    }
    setColumns(columns);
}

QString StoredList::sectionOf(const controls::ListColumn& column) const {
    return column.section.isEmpty() ? section_ : column.section;
}

void StoredList::hideEvent(QHideEvent* event) {
    controls::ListView::hideEvent(event);
    // A minimised window hides its lists, too, and brings them back as they were.
    if (!event->spontaneous()) storeWidths();
}

void StoredList::storeWidths() {
    // The widths that were given or dragged, whatever the list has made of them.
    // Only those that were dragged: several lists with different widths of their own share a section.
    for (qsizetype i = 0; i < columns().size(); ++i)
        if (const controls::ListColumn& column = columns()[i]; column.stored && column.width != known_[i])
            settings_.setNumber(sectionOf(column), column.storedAs.isEmpty() ? column.key : column.storedAs,
                                column.width);
}

}  // namespace core
