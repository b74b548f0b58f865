#pragma once

#include "core/listeditor.h"

namespace cards {

using namespace Qt::Literals::StringLiterals;

// The categories of the cards; one that is payable shows in red.
class frmCategory : public core::ListEditor {
    Q_OBJECT
public:
    explicit frmCategory(core::MainMod& mod);

protected:
    QString table() const override { return u"CardKategory"_s; }
};

// The values of one of the four lists, Combo1 to Combo4.
class frmCombos : public core::ListEditor {
    Q_OBJECT
public:
    explicit frmCombos(core::MainMod& mod);

    // Which list, 1 to 4; a list under edit is left without a change.
    void setList(int number);

protected:
    QString table() const override { return u"Combo%1"_s.arg(number_); }

private:
    int number_ = 1;
};

}  // namespace cards
