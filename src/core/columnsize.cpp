#include "core/columnsize.h"

#include <QComboBox>
#include <QLineEdit>

#include "schema/tables.h"

namespace core {

static int sizeOf(const QString& table, const QString& column) {
    for (const schema::Database database : schema::allDatabases)
        if (const schema::Table* found = schema::findTable(database, table))
            for (const schema::Column& each : found->columns)
                if (each.name.compare(column, Qt::CaseInsensitive) == 0) return each.size;
    return 0;
}

void limitToColumn(QWidget* field, const QString& table, const QString& column) {
    auto* const choice = qobject_cast<QComboBox*>(field);
    QLineEdit* const line = choice ? choice->lineEdit() : qobject_cast<QLineEdit*>(field);
    const int size = line ? sizeOf(table, column) : 0;
    if (size > 0) line->setMaxLength(size);
}

}  // namespace core
