#include "core/guard.h"

namespace core {

void showFailure(MainMod& mod, QWidget* parent, const std::exception& error, const QString& lead) {
    const auto* dataError = dynamic_cast<const data::Error*>(&error);
    const QString text = dataError ? dataError->text() : QString::fromUtf8(error.what());
    if (dataError) qWarning("%s | %s", error.what(), qUtf8Printable(dataError->statement()));
    mod.services.prompts.message(parent, platform::MessageIcon::Critical, QStringLiteral("Μήνυμα λάθους"),
                                 lead + programTitle() + QStringLiteral(" Error: ") + text);
}

void complain(MainMod& mod, QWidget* parent, const QString& text, QWidget* field) {
    mod.services.prompts.message(parent, platform::MessageIcon::Critical, programTitle(), text);
    if (field) field->setFocus(Qt::OtherFocusReason);
}

}  // namespace core
