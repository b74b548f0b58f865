// The widths of a list's columns in the settings store: a section named after the list, a key per column, twips.
#pragma once

#include "controls/listview.h"
#include "platform/settings.h"

namespace core {

// Gives the list its columns with the stored widths in the place of the defaults.
void loadColumns(const platform::Settings& settings, const QString& section, controls::ListView& list,
                 QVector<controls::ListColumn> columns);
void storeColumns(platform::Settings& settings, const QString& section, const controls::ListView& list);

}  // namespace core
