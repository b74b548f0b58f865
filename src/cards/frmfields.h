// The office's own fields: their captions and whether they are shown.
#pragma once

#include <QGroupBox>

#include "core/commands.h"
#include "core/form.h"

namespace cards {

// Fields of one kind: caption and switch columns of CustomFields, and the controls that hold them.
struct FieldGroup {
    QString frame;
    QString field;  // caption of a row, followed by its number
    int count;
    QString captionColumn;  // followed by 1, 2 ...
    QString textArray;
    int textIndex;       // of the first one
    int step;            // to the index of the next one; some arrays run backwards
    QString flagColumn;  // likewise; empty when the fields are always shown
    QString checkArray;
    bool lists = false;  // each field is a list, with a button that opens its values
};

class FieldsEditor : public core::Form {
    Q_OBJECT
protected:
    FieldsEditor(core::MainMod& mod, const QString& name, const QString& caption, const QVector<FieldGroup>& groups,
                 int columns, const QString& symbol);
    void onLoad() override;

private:
    struct Column {
        QString name;
        QWidget* field;
    };
    QVector<core::Command> commands();
    QGroupBox* buildGroup(const FieldGroup& group);
    void addColumn(const QString& name, QWidget* field, const QString& spokenName);
    void confirm();

    core::Commands commands_;
    QVector<Column> columns_;
};

// Fields of the card.
class frmFields : public FieldsEditor {
    Q_OBJECT
public:
    explicit frmFields(core::MainMod& mod);
};

// Fields of the movements.
class frmFields1 : public FieldsEditor {
    Q_OBJECT
public:
    explicit frmFields1(core::MainMod& mod);
};

}  // namespace cards
