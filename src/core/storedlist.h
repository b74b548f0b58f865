// A list that keeps the widths of its columns from one showing to the next.
#pragma once

#include "controls/listview.h"
#include "platform/settings.h"

namespace core {

// The widths lie in the settings in a section of the list's own, a key per column, in twips. Shown, the list has the
// widths that were stored there, and grows those that nobody has dragged; hidden, it stores those that were.
class StoredList : public controls::ListView {
    Q_OBJECT
public:
    // `spokenName` names the list for a screen reader. The settings outlive the list.
    StoredList(platform::Settings& settings, const QString& name, const QString& spokenName, const QString& section,
               QVector<controls::ListColumn> columns);

protected:
    void hideEvent(QHideEvent* event) override;

private:
    void storeWidths();
    QString sectionOf(const controls::ListColumn& column) const;

    platform::Settings& settings_;
    QString section_;
    QVector<int> known_;  // the widths by column as they were read
};

}  // namespace core
