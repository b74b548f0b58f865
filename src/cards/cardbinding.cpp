#include "cards/cardbinding.h"

#include <QRegularExpression>

#include "controls/choicebox.h"
#include "controls/fieldvalue.h"
#include "core/categories.h"
#include "data/values/format.h"

using namespace Qt::Literals::StringLiterals;

namespace cards {

namespace {

const QString datePattern = u"dd/mm/yyyy"_s;
const QString amountPattern = u"#,##0.00"_s;
const QString man = u"Άνδρας"_s;
const QString woman = u"Γυναίκα"_s;

// Boxes show line ends their own way and drop control characters.
bool sameOnScreen(const QString& shown, const QString& stored) {
    if (shown == stored) return true;
    if (shown.contains(u'\n') && shown == QString(stored).replace(u"\r\n"_s, u"\n"_s)) return true;
    controls::TextBox probe;
    probe.setText(stored);
    return probe.text() == shown;
}

void setListText(QComboBox* combo, const QString& text) {
    combo->setCurrentIndex(combo->findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive));
    if (combo->isEditable())
        combo->setEditText(text);
    else if (combo->currentIndex() < 0 && !text.isEmpty()) {
        // A name that came into the table after the list was filled.
        combo->addItem(text);
        combo->setCurrentIndex(combo->count() - 1);
    }
}

double numberOf(const QString& text) {
    if (const auto number = data::parseNumber(text)) return *number;
    throw data::Error(data::ErrorCategory::Type, u"Το «%1» δεν είναι αριθμός."_s.arg(text.left(40)));
}

QString shownValue(const CardView& view, const CardField& field) {
    return controls::fieldValue(view.control(field)).toString();
}

QVariant dateOf(const controls::DateBox* box) {
    return box->settledText();
}

void writeNameDay(const QString& line, data::Recordset& row, int year) {
    // An empty choice keeps what the card has.
    if (line.isEmpty()) return;
    row[u"ΗΜ_ΕΟΡΤΗΣ"].setValue(nameDayDate(line, year));
    row[u"KEIM_ΕΟΡΤΗΣ"].setValue(line);
}

}  // namespace

void writeText(data::Field column, const QString& text) {
    const QVariant old = column.value();
    if (old.isValid() && sameOnScreen(text, old.toString())) return;
    column.setValue(text);
}

bool isNameDayLine(const QString& line) {
    constexpr int leapYear = 2024;  // knows 29/02
    static const QRegularExpression form(u"\\S\\s+[0-9]{2}/[0-9]{2}$"_s);
    return form.match(line).hasMatch() && QDate::fromString(nameDayDate(line, leapYear), u"dd/MM/yyyy"_s).isValid();
}

QString nameDayDate(const QString& line, int year) {
    return u"%1/%2"_s.arg(line.right(5)).arg(year, 4, 10, QChar(u'0'));
}

QString nameDayLine(const QString& name, const QDateTime& feast) {
    return name + u"   "_s + data::format(feast, u"dd/mm/yyyy").left(5);
}

void clearControls(CardView& view, QDate today) {
    for (const CardField& field : cardFields()) clearField(view, field, today);
}

void clearField(CardView& view, const CardField& field, QDate today) {
    switch (field.kind) {
        case CardKind::Text:
        case CardKind::ParamText:
            view.text(field)->setText({});
            break;
        case CardKind::Notes:
        case CardKind::LongText:
            view.memo(field)->setText({});
            break;
        case CardKind::ParamNumber:
        case CardKind::Frequency:
        case CardKind::Amount:
            view.text(field)->setText(u"0"_s);
            break;
        case CardKind::ParamDate:
        case CardKind::LastMovement:
            view.dateField(field)->setDate(today);
            break;
        case CardKind::BirthDate:
            view.dateField(field)->setDate(noBirthDate);
            break;
        case CardKind::ParamFlag:
            view.check(field)->setChecked(false);
            break;
        case CardKind::ParamList:
            setListText(view.combo(field), {});
            break;
        case CardKind::NameDay:
            view.combo(field)->setCurrentIndex(0);
            break;
        case CardKind::Category:
            view.combo(field)->setCurrentIndex(view.combo(field)->count() > 1 ? 1 : 0);
            break;
        case CardKind::Sex:
            view.combo(field)->setCurrentText(man);
            break;
    }
}

QString shownAs(const CardField& field, const QVariant& value, const QString& categoryName) {
    switch (field.kind) {
        case CardKind::Category:
            return categoryName;
        case CardKind::Amount:
            return value.isValid() ? data::format(value, amountPattern) : QString();
        case CardKind::ParamDate:
        case CardKind::LastMovement:
        case CardKind::BirthDate:
            return value.isValid() ? data::format(value, datePattern) : QString();
        case CardKind::ParamFlag:
            return value.toBool() ? u"Ναι"_s : u"Όχι"_s;
        case CardKind::Sex:
            return value.toBool() ? man : woman;
        default:
            return data::valueText(value);
    }
}

QString typedText(const CardView& view, const CardField& field) {
    const QVariant value = controls::fieldValue(view.control(field));
    return field.kind == CardKind::ParamFlag ? shownAs(field, value, {}) : value.toString();
}

void showField(CardView& view, const CardField& field, const QVariant& value, const QString& categoryName) {
    if (field.kind == CardKind::Category)
        return core::chooseCategory(*view.combo(field), value.toLongLong(), categoryName);
    if (!value.isValid()) return;
    switch (field.kind) {
        case CardKind::Text:
        case CardKind::ParamText:
        case CardKind::ParamNumber:
        case CardKind::Frequency:
            view.text(field)->setText(data::valueText(value));
            break;
        case CardKind::Amount:
            view.text(field)->setText(data::format(value, amountPattern));
            break;
        case CardKind::Notes:
        case CardKind::LongText:
            view.memo(field)->setText(value.toString());
            break;
        case CardKind::ParamDate:
        case CardKind::LastMovement:
        case CardKind::BirthDate:
            view.dateField(field)->setDate(value.toDateTime().date());
            break;
        case CardKind::ParamFlag:
            view.check(field)->setChecked(value.toBool());
            break;
        case CardKind::ParamList:
        case CardKind::NameDay:
            setListText(view.combo(field), value.toString());
            break;
        case CardKind::Sex:
            view.combo(field)->setCurrentText(value.toBool() ? man : woman);
            break;
        case CardKind::Category:
            break;
    }
}

void writeField(const CardView& view, const CardField& field, data::Recordset& row, std::optional<qint64> category,
                int year) {
    data::Field column = row[field.column];
    switch (field.kind) {
        case CardKind::Text:
        case CardKind::ParamText:
            writeText(column, view.text(field)->text());
            break;
        case CardKind::Notes:
        case CardKind::LongText:
            writeText(column, view.memo(field)->text());
            break;
        case CardKind::ParamList:
            writeText(column, shownValue(view, field));
            break;
        case CardKind::ParamNumber:
        case CardKind::Frequency:
        case CardKind::Amount:
            column.setValue(numberOf(view.text(field)->text()));
            break;
        case CardKind::BirthDate:
            column.setValue(view.date(field)->isBlank() ? QVariant() : dateOf(view.date(field)));
            break;
        case CardKind::ParamDate:
        case CardKind::LastMovement:
            column.setValue(dateOf(view.date(field)));
            break;
        case CardKind::ParamFlag:
            column.setValue(view.check(field)->isChecked());
            break;
        case CardKind::Sex:
            column.setValue(view.combo(field)->currentText() == man);
            break;
        case CardKind::NameDay:
            writeNameDay(shownValue(view, field), row, year);
            break;
        case CardKind::Category:
            column.setValue(category ? QVariant(*category) : QVariant());
            break;
    }
}

void setLastVisit(CardView& view, QDate date) {
    view.dateField(*cardField(u"txtΤελευταία"_s))->setDate(date);
}

void setEditable(CardView& view, bool editable) {
    const auto unlock = [editable](auto* box) {
        box->setReadOnly(!editable);
        box->setHighlighting(editable);
    };
    for (const CardField& field : cardFields()) {
        QWidget* widget = view.control(field);
        if (controls::DateField* date = view.dateField(field)) {
            unlock(date->box());
            date->picker()->setEnabled(editable);
        } else if (auto* text = qobject_cast<controls::TextBox*>(widget)) {
            unlock(text);
        } else if (auto* memo = qobject_cast<controls::MemoBox*>(widget)) {
            unlock(memo);
        } else if (auto* choice = qobject_cast<controls::ChoiceBox*>(widget)) {
            unlock(choice);
        } else {
            widget->setEnabled(editable);
        }
    }
    view.saveHint()->setVisible(editable);
}

}  // namespace cards
