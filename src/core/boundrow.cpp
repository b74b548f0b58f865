#include "core/boundrow.h"

#include "controls/fieldvalue.h"
#include "core/columnsize.h"
#include "core/conflictdialog.h"
#include "core/guard.h"
#include "data/values/format.h"

using namespace Qt::Literals::StringLiterals;

namespace core {

BoundRow::BoundRow(MainMod& mod, QWidget* window, FieldWatch& fields, const QString& table, const QString& statement,
                   Words words, QVector<Column> columns)
    : mod_(mod),
      window_(window),
      fields_(fields),
      statement_(statement),
      words_(std::move(words)),
      columns_(std::move(columns)) {
    for (const Column& column : columns_) {
        limitToColumn(column.field, table, column.name);
        fields_.watch(column.field);
    }
}

void BoundRow::open() {
    row_.open(mod_.gConn, data::Sql(statement_, aa_));
}

void BoundRow::startNew() {
    aa_ = 0;
    row_.close();
}

bool BoundRow::read(qint64 aa) {
    aa_ = aa;
    open();
    if (row_.isEmpty()) return false;
    show();
    return true;
}

void BoundRow::show() {
    for (const Column& column : columns_)
        controls::setFieldValue(column.field, shownAs(column, row_[column.name].value()));
}

void BoundRow::describe(Draft& draft) {
    draft.isNew = isNew();
    draft.key.insert(u"aa"_s, aa_);
    if (!isNew() && row_.isOpen() && !row_.isEmpty()) draft.row = draftRow(row_);
}

void BoundRow::resume(const Draft& draft) {
    if (draft.isNew) return startNew();
    aa_ = draft.key[u"aa"_s].toLongLong();
    open();
    const bool gone = row_.isEmpty();
    readAsDrafted(row_, draft.row);
    show();
    if (gone) startNew();
}

QString BoundRow::shownAs(const Column& column, const QVariant& value) const {
    return column.shown ? column.shown(value) : data::valueText(value);
}

bool BoundRow::isToWrite(const Column& column) const {
    const bool emptied = controls::fieldValue(column.field).toString().isEmpty();
    return (isNew() || fields_.isChanged(column.field)) && !(emptied && column.keptWhenEmptied);
}

void BoundRow::write(const std::function<void(data::Recordset&)>& more) {
    if (!row_.isOpen()) open();
    if (isNew() && row_.editMode() != data::EditMode::Add) row_.addNew();
    for (const Column& column : columns_) {
        if (!isToWrite(column)) continue;
        const QString text = controls::fieldValue(column.field).toString();
        row_[column.name].setValue(column.stored ? column.stored(text) : QVariant(text));
    }
    more(row_);
    row_.update();
}

bool BoundRow::save(const std::function<void(data::Recordset&)>& more) {
    for (;;) {
        try {
            if (!isNew() && row_.isEmpty()) throw data::Error(data::ErrorCategory::Conflict, words_.gone);
            write(more);
            aa_ = row_[u"aa"].toLong();
            return true;
        } catch (const data::Error& error) {
            if (isNew() || error.category() != data::ErrorCategory::Conflict) throw;
        }
        if (!settle()) return false;
    }
}

bool BoundRow::settle() {
    data::Recordset now(mod_.gConn, data::Sql(statement_, aa_));
    if (!now.isEmpty()) return settleChange(now);
    if (!ask(mod_, window_, words_.gone + u"\nΝα αποθηκευτεί ως νέα;"_s)) return false;
    startNew();
    return true;
}

bool BoundRow::settleChange(data::Recordset& now) {
    row_.cancelUpdate();
    QVector<ConflictField> shown;
    QVector<const Column*> both;
    for (const Column& column : columns_) {
        const QVariant theirs = now[column.name].value();
        if (!isToWrite(column) || theirs == row_[column.name].value()) continue;
        both << &column;
        shown.append({column.caption, controls::fieldValue(column.field).toString(), shownAs(column, theirs)});
    }
    ConflictDialog dialog(mod_, window_, words_.accusative, shown);
    if (!shown.isEmpty() && dialog.exec() != QDialog::Accepted) return false;
    for (const Column& column : columns_) {
        const qsizetype asked = both.indexOf(&column);
        if (asked >= 0 ? dialog.keepsMine(int(asked)) : fields_.isChanged(column.field)) continue;
        controls::setFieldValue(column.field, shownAs(column, now[column.name].value()));
        fields_.remember(column.field);
    }
    row_ = std::move(now);
    return true;
}

}  // namespace core
