// What the office calls its own fields, and which of them it shows.
#pragma once

#include <QString>

#include "data/recordset.h"

namespace core {

// The one row of the table CustomFields; columns by their names. Reading and writing throw data::Error.
class CustomFields {
public:
    explicit CustomFields(data::Connection& connection);

    bool isEmpty() const { return row_.isEmpty(); }  // the row is missing
    QString caption(const QString& column) { return row_[column].text(); }
    QVariant value(const QString& column) { return row_[column].value(); }  // a caption or a switch
    bool isShown(const QString& column) { return row_[column].toBool(); }

    // Written with save(), and nothing but what was set.
    void set(const QString& column, const QVariant& value) { row_[column].setValue(value); }
    void save() { row_.update(); }

private:
    data::Recordset row_;
};

}  // namespace core
