// A flat button of the card's button row: an icon over a caption, with hover, pressed and disabled looks.
#pragma once

#include <QAbstractButton>

namespace controls {

// Reachable by Tab (a click leaves the focus in the field), pressed by Space and Enter, with a focus ring. The caption
// is also its accessible name and tool tip; a long one wraps to two lines. All have the same size hint, unless
// a caption needs more, and get narrower where a row is short of room. hovered() comes once each time the mouse comes
// in while enabled; pressed() of the base class comes from mouse and keys alike.
class PictureButton : public QAbstractButton {
    Q_OBJECT
public:
    PictureButton(const QString& caption, const QString& iconName, QWidget* parent = nullptr);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

signals:
    void hovered();

protected:
    void paintEvent(QPaintEvent*) override;
    void enterEvent(QEnterEvent*) override;
    void leaveEvent(QEvent*) override;
    void keyPressEvent(QKeyEvent*) override;

private:
    QString iconName_;
    bool hover_ = false;
};

}  // namespace controls
