// A combo box with the manners of the text boxes.
#pragma once

#include <QComboBox>

namespace controls {

// Enter moves on as Tab does; the highlight colour shows while the box has the focus and `highlighting` is on. The
// mouse wheel changes nothing until the box has the focus, so that scrolling over a form alters no card.
class ChoiceBox : public QComboBox {
    Q_OBJECT
public:
    explicit ChoiceBox(bool editable, QWidget* parent = nullptr);
    void setHighlighting(bool on);
    void showPopup() override;

signals:
    void opening();  // the list is about to drop down, and may be filled anew

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    bool movesOn(QKeyEvent* event);
    bool highlighting_ = false;
};

}  // namespace controls
