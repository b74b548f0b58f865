// The office's own fields: their captions and whether they are shown.
#pragma once

#include <QCheckBox>
#include <functional>

#include "controls/boxes.h"
#include "core/form.h"

class QGroupBox;

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
};

class FieldsEditor : public core::Form {
    Q_OBJECT
protected:
    // `lists` gets a button beside each of its rows that opens the values of that list.
    FieldsEditor(core::MainMod& mod, const QString& name, const QString& caption, const QVector<FieldGroup>& groups,
                 int columns, std::function<void(int)> openList = {});
    void onLoad() override;
    bool queryUnload() override;

private:
    struct Row {
        QString captionColumn, flagColumn;
        controls::TextBox* text;
        QCheckBox* check;
    };
    QGroupBox* buildGroup(const FieldGroup& group);
    void confirm();

    std::function<void(int)> openList_;
    QVector<Row> rows_;
    bool confirmed_ = false;
    QStringList loaded_;
    QStringList shown() const;
};

// Fields of the card.
class frmFields : public FieldsEditor {
    Q_OBJECT
public:
    // `openList` opens the values of a list, by its number from 1.
    frmFields(core::MainMod& mod, std::function<void(int)> openList);
};

// Fields of the movements.
class frmFields1 : public FieldsEditor {
    Q_OBJECT
public:
    explicit frmFields1(core::MainMod& mod);
};

}  // namespace cards
