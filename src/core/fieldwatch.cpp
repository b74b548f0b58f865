#include "core/fieldwatch.h"

#include <algorithm>

#include "controls/fieldvalue.h"

namespace core {

void FieldWatch::watch(QWidget* field) {
    watched_.append(
        {field, [field = QPointer(field)] { return field ? controls::fieldValue(field) : QVariant(); }, {}});
}

void FieldWatch::watchAll(const QWidget* container) {
    for (QWidget* field : controls::fieldsIn(container)) watch(field);
}

void FieldWatch::watch(std::function<QVariant()> content) {
    watched_.append({{}, std::move(content), {}});
}

void FieldWatch::remember() {
    for (Watched& watched : watched_) watched.remembered = watched.content();
    remembering_ = true;
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

}  // namespace core
