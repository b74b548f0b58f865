#include "core/columnwidths.h"

namespace core {

void loadColumns(const platform::Settings& settings, const QString& section, controls::ListView& list,
                 QVector<controls::ListColumn> columns) {
    // A width dragged to nothing would hide the column for good.
    constexpr int narrowest = 150;
    bool stored = false;
    for (controls::ListColumn& column : columns) {
        stored |= !settings.value(section, column.key).isEmpty();
        column.width = std::max(narrowest, settings.number(section, column.key, column.width));
    }
    if (!stored) list.shareWidth();
    list.setColumns(columns);
}

void storeColumns(platform::Settings& settings, const QString& section, const controls::ListView& list) {
    // The last column fills what is left of the list; its own width is the one it was given.
    const auto& columns = list.columns();
    for (int i = 0; i < columns.size(); ++i)
        settings.setNumber(section, columns[i].key, i + 1 < columns.size() ? list.columnTwips(i) : columns[i].width);
}

}  // namespace core
