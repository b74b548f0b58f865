// The search of the cards: one text at the start of nine columns at once.
#pragma once

#include <functional>

#include "controls/boxes.h"
#include "core/dialog.h"
#include "core/storedlist.h"

namespace cards {

struct FoundCard {
    qint64 code = 0;
    QString surname;
    QString firstName;
};

// The statement behind a search text; matches are from the start of a column.
QString findStatement(const QString& text);

class frmFind : public core::Dialog {
    Q_OBJECT
public:
    // `chosen` gets the card that the user picks, once, right before the window closes.
    frmFind(core::MainMod& mod, QWidget* parent, std::function<void(const FoundCard&)> chosen);

    void search(const QString& text);

protected:
    void done(int result) override;

private:
    void enterList();
    void choose(int row);

    std::function<void(const FoundCard&)> chosen_;
    controls::TextBox* text_;
    core::StoredList* list_;
};

}  // namespace cards
