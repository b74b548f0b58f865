// The search of the cards: one text at the start of nine columns at once.
#pragma once

#include <QDialog>
#include <functional>

#include "controls/boxes.h"
#include "controls/listview.h"
#include "core/mainmod.h"

namespace cards {

struct FoundCard {
    qint64 code = 0;
    QString surname;
    QString firstName;
};

// The statement behind a search text; matches are from the start of a column.
QString findStatement(const QString& text);

class frmFind : public QDialog {
    Q_OBJECT
public:
    // `chosen` gets the card that the user picks, once, right before the window closes.
    frmFind(core::MainMod& mod, QWidget* parent, std::function<void(const FoundCard&)> chosen);

    void search(const QString& text);

protected:
    void done(int result) override;

private:
    void build();
    bool eventFilter(QObject* watched, QEvent* event) override;
    void choose(int row);

    core::MainMod& mod_;
    std::function<void(const FoundCard&)> chosen_;
    controls::TextBox* text_;
    controls::ListView* list_;
};

}  // namespace cards
