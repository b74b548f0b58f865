#include "cards/frmcategory.h"

using namespace Qt::Literals::StringLiterals;

namespace cards {

frmCategory::frmCategory(core::MainMod& mod)
    : ListEditor(mod, u"frmCategory"_s, u"Κατηγορίες Καρτέλας"_s,
                 {u"Ενημέρωση Κατηγορίας"_s, u"H Περιγραφή κατηγορίας δεν μπορεί να είναι κενή !!!"_s, u"MnuPopUpCat"_s,
                  u"mnuNewCategory"_s, u"Νέα Κατηγορία"_s, u"mnuEditCategory"_s, u"Διόρθωση Κατηγορίας"_s,
                  u"mnuDelCategory"_s, u"Διαγραφή Κατηγορίας"_s},
                 u"Χρεωστική Κατηγορία"_s, u"category"_s) {}

frmCombos::frmCombos(core::MainMod& mod)
    : ListEditor(
          mod, u"frmCombos"_s, u"Τιμές λίστας"_s,
          {u"Ενημέρωση Κατηγορίας"_s, u"H Περιγραφή τιμής δεν μπορεί να είναι κενή !!!"_s, u"mnuPopUpCombo"_s,
           u"mnuNewTimh"_s, u"Νέα Τιμή"_s, u"mnuEditTimh"_s, u"Διόρθωση Τιμής"_s, u"mnuDelTimh"_s, u"Διαγραφή Τιμή"_s},
          QString(), u"list"_s) {}

void frmCombos::setList(int number) {
    if (isEditing() && (number == number_ || !cancel())) return;
    number_ = number;
    setWindowTitle(u"Τιμές λίστας %1"_s.arg(number));
    core::attempt(mod_, this, [this] { Refresh(); });
}

}  // namespace cards
