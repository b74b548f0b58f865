#include "core/guarded.h"

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QCheckBox>
#include <QShortcut>

#include "controls/datepair.h"
#include "controls/walk.h"

using namespace Qt::Literals::StringLiterals;

namespace core {

void Guarded::onKey(const QKeySequence& key, QWidget* where, std::function<void()> run) {
    auto* shortcut = new QShortcut(key, where, nullptr, nullptr, Qt::WidgetWithChildrenShortcut);
    on(shortcut, &QShortcut::activated, std::move(run));
}

void Guarded::enterRuns(QWidget* box, std::function<void()> run) {
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) onKey(key, box, run);
}

bool Guarded::askAndDelete(const QString& question, const std::function<void()>& remove) {
    if (!ask(question)) return false;
    remove();
    return true;
}

void Guarded::printAndTell(const std::function<bool()>& print) {
    if (print()) tell(u"Η εκτύπωση ολοκληρώθηκε"_s);
}

void Guarded::beepForRefused() {
    for (controls::NumberBox* box : self_->findChildren<controls::NumberBox*>())
        QObject::connect(box, &controls::NumberBox::refused, self_, [&mod = mod_] { mod.beep(); });
    for (controls::DateBox* box : self_->findChildren<controls::DateBox*>())
        QObject::connect(box, &controls::DateBox::refused, self_, [&mod = mod_] { mod.beep(); });
}

bool Guarded::takesEnter(QKeyEvent& event) {
    const bool enter = event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
    QWidget* const field = self_->focusWidget();
    auto* button = qobject_cast<QAbstractButton*>(field);
    const bool movesOn =
        qobject_cast<QCheckBox*>(field) || qobject_cast<QAbstractSpinBox*>(field) || controls::standsBeside(field);
    if (!enter || !(button || movesOn) || !field->isEnabled()) return false;
    event.accept();
    if (event.isAutoRepeat()) return true;
    if (movesOn) {
        controls::moveOn(field);
    } else {
        button->click();
    }
    return true;
}

}  // namespace core
