#include "core/fieldwatch.h"

#include <QLineEdit>
#include <algorithm>

#include "controls/fieldvalue.h"

namespace core {

void FieldWatch::watch(QWidget* field) {
    const QPointer box(field);
    watched_.append({box,
                     field->objectName(),
                     [box] { return box ? controls::fieldValue(box) : QVariant(); },
                     [box](const QVariant& value) {
                         if (box) controls::setFieldValue(box, value);
                     },
                     {}});
    controls::whenFieldChanges(field, &alive_, [this] { touch(); });
}

void FieldWatch::watchAll(const QWidget* container) {
    for (QWidget* field : controls::fieldsIn(container)) watch(field);
}

void FieldWatch::watch(const QString& name, std::function<QVariant()> content,
                       std::function<void(const QVariant&)> putBack) {
    watched_.append({{}, name, std::move(content), std::move(putBack), {}});
}

void FieldWatch::touch() const {
    if (remembering_ && changed_) changed_();
}

void FieldWatch::follow(std::function<void()> changed, std::function<void()> settled) {
    changed_ = std::move(changed);
    settled_ = std::move(settled);
}

void FieldWatch::remember() {
    for (Watched& watched : watched_) watched.remembered = watched.content();
    remembering_ = true;
    if (settled_) settled_();
}

void FieldWatch::forget() {
    remembering_ = false;
    if (settled_) settled_();
}

void FieldWatch::remember(const QWidget* field) {
    for (Watched& watched : watched_)
        if (watched.field == field) watched.remembered = watched.content();
}

bool FieldWatch::differs(const Watched& watched) const {
    return remembering_ && watched.content() != watched.remembered;
}

bool FieldWatch::isChanged() const {
    return std::any_of(watched_.begin(), watched_.end(), [this](const Watched& each) { return differs(each); });
}

bool FieldWatch::isChanged(const QWidget* field) const {
    return std::any_of(watched_.begin(), watched_.end(),
                       [&](const Watched& each) { return each.field == field && differs(each); });
}

QVariantMap FieldWatch::typed() const {
    QVariantMap values;
    for (const Watched& each : watched_) {
        const auto* box = qobject_cast<const QLineEdit*>(each.field);
        const bool secret = box && box->echoMode() != QLineEdit::Normal;
        if (!secret && !each.name.isEmpty() && differs(each)) values.insert(each.name, each.content());
    }
    return values;
}

void FieldWatch::put(const QVariantMap& typed) const {
    for (const Watched& each : watched_)
        if (typed.contains(each.name)) each.putBack(typed[each.name]);
}

}  // namespace core
