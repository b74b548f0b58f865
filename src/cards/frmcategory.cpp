#include "cards/frmcategory.h"

namespace cards {

frmCategory::frmCategory(core::MainMod& mod)
    : ListEditor(mod, QStringLiteral("frmCategory"), QStringLiteral("Κατηγορίες Καρτέλας"),
                 {QStringLiteral("Ενημέρωση Κατηγορίας"),
                  QStringLiteral("H Περιγραφή κατηγορίας δεν μπορεί να είναι κενή !!!"), QStringLiteral("MnuPopUpCat"),
                  QStringLiteral("mnuNewCategory"), QStringLiteral("Νέα Κατηγορία"), QStringLiteral("mnuEditCategory"),
                  QStringLiteral("Διόρθωση Κατηγορίας"), QStringLiteral("mnuDelCategory"),
                  QStringLiteral("Διαγραφή Κατηγορίας")},
                 QStringLiteral("Χρεωστική Κατηγορία")) {}

frmCombos::frmCombos(core::MainMod& mod)
    : ListEditor(mod, QStringLiteral("frmCombos"), QStringLiteral("Τιμές λίστας"),
                 {QStringLiteral("Ενημέρωση Κατηγορίας"),
                  QStringLiteral("H Περιγραφή τιμής δεν μπορεί να είναι κενή !!!"), QStringLiteral("mnuPopUpCombo"),
                  QStringLiteral("mnuNewTimh"), QStringLiteral("Νέα Τιμή"), QStringLiteral("mnuEditTimh"),
                  QStringLiteral("Διόρθωση Τιμής"), QStringLiteral("mnuDelTimh"), QStringLiteral("Διαγραφή Τιμή")},
                 QString()) {}

void frmCombos::setList(int number) {
    if (isEditing() && number == number_) return;
    if (isEditing()) {
        if (!queryUnload()) return;
        cancel();
    }
    number_ = number;
    setWindowTitle(QStringLiteral("Τιμές λίστας %1").arg(number));
    core::attempt(mod_, this, [this] { Refresh(); });
}

}  // namespace cards
