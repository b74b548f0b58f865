// A combo box with the manners of the text boxes.
#pragma once

#include <QComboBox>
#include <functional>

namespace controls {

// Enter moves on to the next field; the highlight colour shows while the box has the focus and `highlighting` is on.
// The mouse wheel changes nothing until the box has the focus, so that scrolling over a form alters no card. Esc closes
// the open list and reaches nothing else.
//
// In an editable box the first item that begins as the typed text does is proposed behind it, selected. Texts are
// compared by their fold; a text that is an item but for that becomes the item on leaving.
class ChoiceBox : public QComboBox {
    Q_OBJECT
public:
    using Fold = std::function<QString(QStringView)>;  // never makes a text longer

    explicit ChoiceBox(bool editable, QWidget* parent = nullptr);
    void setHighlighting(bool on);
    // Nothing can be chosen or typed, but the text can still be reached, read and copied.
    void setReadOnly(bool on);
    bool isReadOnly() const { return readOnly_; }
    void compareBy(Fold fold) { fold_ = std::move(fold); }  // instead of by case alone
    // The item that the typed text means, else the text as it stands.
    QString chosenText() const;

    void showPopup() override;

signals:
    void opening();  // the list is about to drop down, and may be filled anew

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    bool movesOn(QKeyEvent* event);
    void readOnlyKey(QKeyEvent* event);
    void noteInput(const QEvent& event);
    void propose(const QString& typed);
    int meantItem() const;  // -1 when the text isn't the user's, or no item

    Fold fold_;
    QString typed_;         // the text as the user's last edit left it; null when the program set another
    bool growing_ = false;  // the edit at hand brings characters
    bool highlighting_ = false;
    bool readOnly_ = false;
};

}  // namespace controls
