// A row of a table and the fields of a window that show it: read, written, and settled with what somebody else saved.
#pragma once

#include <functional>

#include "core/drafts.h"
#include "core/fieldwatch.h"
#include "core/mainmod.h"
#include "data/recordset.h"

namespace core {

class BoundRow {
public:
    struct Column {
        QString name;
        QWidget* field;
        QString caption;                                      // as a conflict names it
        std::function<QString(const QVariant&)> shown = {};   // a value as the field shows it; null: data::valueText
        std::function<QVariant(const QString&)> stored = {};  // the field's text as the column takes it; null: the text
        bool keptWhenEmptied = false;                         // an emptied field leaves the column as it is
    };
    struct Words {
        QString accusative;  // "τη συνάντηση", for the conflict's heading
        QString gone;        // somebody else deleted the row
    };

    // `statement` selects the row of the table by its number, a `?`. Fields take no more characters than their columns,
    // and are watched. All of it outlives this object.
    BoundRow(MainMod& mod, QWidget* window, FieldWatch& fields, const QString& table, const QString& statement,
             Words words, QVector<Column> columns);

    void startNew();  // the fields are the window's to fill
    // Shows the row of this number, with which it was entered into the table. False when there is none any more.
    bool read(qint64 aa);

    // For a draft of what is typed, and back: the row as it was read, so that a save meets what changed meanwhile. One
    // that is gone becomes a new one.
    void describe(Draft& draft);
    void resume(const Draft& draft);

    bool isNew() const { return aa_ == 0; }
    qint64 aa() const { return aa_; }
    data::Recordset& row() { return row_; }  // as it was read

    // Writes what was changed, of a new row everything, and what `more` puts into the row besides. What somebody else
    // changed meanwhile is shown and chosen from; a row that is gone is offered as a new one. False when the user went
    // back to what is typed. Throws data::Error with everything typed as it was.
    bool save(const std::function<void(data::Recordset&)>& more);

private:
    void open();
    void show();
    void write(const std::function<void(data::Recordset&)>& more);
    bool isToWrite(const Column& column) const;
    QString shownAs(const Column& column, const QVariant& value) const;
    bool settle();
    bool settleChange(data::Recordset& now);

    MainMod& mod_;
    QWidget* window_;
    FieldWatch& fields_;
    QString statement_;
    Words words_;
    QVector<Column> columns_;
    data::Recordset row_;
    qint64 aa_ = 0;
};

}  // namespace core
