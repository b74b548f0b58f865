#include "core/guard.h"

#include <QApplication>

#include "core/damage.h"

using namespace Qt::Literals::StringLiterals;

namespace core {

// A window that isn't on screen yet can't carry a box: it would lie anywhere, also behind the window in use.
static QWidget* visible(QWidget* parent) {
    return parent && !parent->isVisible() ? QApplication::activeWindow() : parent;
}

QWidget* frontWindow(QWidget* otherwise) {
    QWidget* const dialog = QApplication::activeModalWidget();
    return dialog ? dialog : otherwise;
}

void showFailure(MainMod& mod, QWidget* parent, const std::exception& error, const QString& lead) {
    const auto* dataError = dynamic_cast<const data::Error*>(&error);
    if (dataError && dataError->category() == data::ErrorCategory::Stopped)
        return tell(mod, parent, dataError->text());  // as was wanted
    const QString text = dataError ? dataError->text() : data::sentenceOf(error);
    qWarning("%s", error.what());
    if (dataError) qWarning("%s | %s", qUtf8Printable(dataError->details()), qUtf8Printable(dataError->statement()));
    mod.services.prompts.message(visible(parent), platform::MessageIcon::Critical, u"Μήνυμα λάθους"_s,
                                 lead + programTitle() + u" Error: "_s + text);
    if (dataError && dataError->category() == data::ErrorCategory::Corrupt) damageWasTold();
}

bool ask(MainMod& mod, QWidget* parent, const QString& question) {
    return mod.services.prompts.question(visible(parent), programTitle(), question);
}

platform::SaveChoice askToSave(MainMod& mod, QWidget* parent, const QString& what) {
    return mod.services.prompts.askToSave(visible(parent), programTitle(), what);
}

void tell(MainMod& mod, QWidget* parent, const QString& text) {
    mod.services.prompts.message(visible(parent), platform::MessageIcon::Plain, programTitle(), text);
}

void complain(MainMod& mod, QWidget* parent, const QString& text, QWidget* field) {
    mod.services.prompts.message(visible(parent), platform::MessageIcon::Critical, programTitle(), text);
    if (field) field->setFocus(Qt::OtherFocusReason);
}

}  // namespace core
