#include "controls/fieldvalue.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QSpinBox>

#include "controls/choicebox.h"
#include "controls/datepair.h"

namespace controls {

QVariant fieldValue(const QWidget* field) {
    if (const auto* date = qobject_cast<const DateBox*>(field)) return date->formattedText();
    if (const auto* box = qobject_cast<const QLineEdit*>(field)) return box->text();
    if (const auto* memo = qobject_cast<const QPlainTextEdit*>(field)) return memo->toPlainText();
    if (const auto* choice = qobject_cast<const ChoiceBox*>(field)) return choice->chosenText();
    if (const auto* choice = qobject_cast<const QComboBox*>(field)) return choice->currentText();
    if (const auto* spin = qobject_cast<const QSpinBox*>(field)) return spin->value();
    const auto* button = qobject_cast<const QAbstractButton*>(field);
    return button && button->isCheckable() ? QVariant(button->isChecked()) : QVariant();
}

void setFieldValue(QWidget* field, const QVariant& value) {
    if (auto* date = qobject_cast<DateBox*>(field)) return date->setFormattedText(value.toString());
    if (auto* box = qobject_cast<QLineEdit*>(field)) return box->setText(value.toString());
    if (auto* memo = qobject_cast<QPlainTextEdit*>(field)) return memo->setPlainText(value.toString());
    if (auto* choice = qobject_cast<QComboBox*>(field)) {
        choice->setCurrentIndex(choice->findText(value.toString(), Qt::MatchExactly | Qt::MatchCaseSensitive));
        if (choice->isEditable()) choice->setEditText(value.toString());
    } else if (auto* spin = qobject_cast<QSpinBox*>(field)) {
        spin->setValue(value.toInt());
    } else if (auto* button = qobject_cast<QAbstractButton*>(field); button && button->isCheckable()) {
        button->setChecked(value.toBool());
    }
}

void whenFieldChanges(const QWidget* field, QObject* context, const std::function<void()>& run) {
    if (const auto* box = qobject_cast<const QLineEdit*>(field))
        QObject::connect(box, &QLineEdit::textChanged, context, run);
    else if (const auto* memo = qobject_cast<const QPlainTextEdit*>(field))
        QObject::connect(memo, &QPlainTextEdit::textChanged, context, run);
    else if (const auto* choice = qobject_cast<const QComboBox*>(field))
        QObject::connect(choice, &QComboBox::currentTextChanged, context, run);
    else if (const auto* spin = qobject_cast<const QSpinBox*>(field))
        QObject::connect(spin, &QSpinBox::valueChanged, context, run);
    else if (const auto* button = qobject_cast<const QAbstractButton*>(field))
        QObject::connect(button, &QAbstractButton::toggled, context, run);
}

QList<QWidget*> fieldsIn(const QWidget* container) {
    QList<QWidget*> fields;
    for (QWidget* widget : container->findChildren<QWidget*>()) {
        // The box inside a choice or a spin box is a part of it.
        const QWidget* outer = widget->parentWidget();
        const bool inner = qobject_cast<const QComboBox*>(outer) || qobject_cast<const QAbstractSpinBox*>(outer);
        if (!inner && fieldValue(widget).isValid()) fields << widget;
    }
    return fields;
}

}  // namespace controls
