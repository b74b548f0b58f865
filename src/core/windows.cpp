#include "core/windows.h"

#include "core/conflictdialog.h"
#include "core/printpreview.h"

using namespace Qt::Literals::StringLiterals;

namespace core {

Form* Windows::find(const QString& name) const {
    return forms_.value(name);
}

void Windows::open(const QString& name, QWidget* parent) {
    if (dialogs_.contains(name))
        dialog(name, parent)->exec();
    else
        front(name);
}

Form* Windows::front(const QString& name) {
    if (Form* form = find(name)) {
        host_.bringToFront(form);
        return form;
    }
    if (!factories_.contains(name)) return nullptr;
    Form* form = factories_[name]();
    forms_.insert(name, form);
    order_.append(name);
    QObject::connect(form, &Form::openRequested, form, [this](const QString& other) { front(other); });
    // One that was taken down before its wish came through asks nothing of the next of its name.
    const auto close = [this, name, form] {
        if (find(name) == form) unload(name);
    };
    QObject::connect(form, &Form::closeRequested, form, close, Qt::QueuedConnection);
    form->load();
    host_.add(form);
    host_.bringToFront(form);
    return form;
}

bool Windows::unload(const QString& name) {
    Form* form = find(name);
    if (!form) return true;
    if (!form->unload(!host_.isAtItsPlace(form), host_.position(form))) return false;
    forms_.remove(name);
    order_.removeAll(name);
    host_.remove(form);
    return true;
}

bool Windows::unloadAll() {
    for (auto name = order_.rbegin(); name != order_.rend(); ++name) {
        if (find(*name)->mayLeave()) continue;
        for (const QString& each : std::as_const(order_)) find(each)->stay();
        return false;
    }
    while (!order_.isEmpty())
        if (!unload(order_.last())) return false;
    return true;
}

void addWindows(Windows& windows, MainMod& mod) {
    // With an empty page in it: a preview is always of something.
    windows.addDialog(u"PrintPreview"_s, [&mod](QWidget* parent) {
        const PrintJob nothing{u"Προεπισκόπηση"_s, [](platform::Printer&, const PrintStep&) {}};
        return std::make_unique<PrintPreview>(mod, parent, nothing);
    });
    windows.addDialog(u"ConflictDialog"_s, [&mod](QWidget* parent) {
        const QVector<ConflictField> fields = {{u"Πόλη"_s, u"Λάρισα"_s, u"Βόλος"_s}};
        return std::make_unique<ConflictDialog>(mod, parent, u"την καρτέλα"_s, fields);
    });
}

}  // namespace core
