// The card's columns and the controls that hold them: the one map for layout, clear, show, save and lock.
#pragma once

#include <QString>
#include <QVector>

namespace cards {

enum class CardTab { Basic, Special, History, Notes, Texts, Links, Appointments };

enum class CardKind {
    Text,       // one line
    Notes,      // many lines
    LongText,   // one of the six texts
    ParamText,  // parametric fields from here on: caption and visibility are the office's
    ParamNumber,
    ParamDate,
    ParamFlag,
    ParamList,
    Category,   // number in the table, name on screen
    Sex,        // True on screen is "Άνδρας"
    NameDay,    // "name   dd/mm", feeds two columns
    BirthDate,  // may be blank
    LastMovement,
    Frequency,  // days
    Amount,     // two decimals
};

struct CardField {
    CardKind kind;
    QString array;  // control array, or the control's own name when index is -1
    int index;
    QString column;  // of Cards
    CardTab tab;
    QString caption;        // empty where the office names the field
    QString captionColumn;  // of CustomFields, for parametric fields and the six texts
    QString visibleColumn;  // of CustomFields, for parametric fields

    QString controlName() const;
};

// In the order in which a save writes the columns.
const QVector<CardField>& cardFields();

// The field behind a control, null if there is none.
const CardField* cardField(const QString& array, int index = -1);

}  // namespace cards
