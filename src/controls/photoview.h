// A photo: raw file bytes, decoded only when they come into view.
#pragma once

#include <QByteArray>
#include <QFrame>
#include <QPixmap>

namespace controls {

class PhotoView : public QFrame {
    Q_OBJECT
public:
    explicit PhotoView(QWidget* parent = nullptr);

    void setBytes(const QByteArray& bytes);  // empty clears; bytes that are no picture show as an empty frame
    const QByteArray& bytes() const { return bytes_; }
    bool hasPicture() const { return !bytes_.isEmpty(); }
    QSize sizeHint() const override { return {260, 320}; }

    // True when the bytes decode to a picture.
    static bool isPicture(const QByteArray& bytes);
    // Turned as the camera was held, at most so large; null for bytes that are no picture.
    static QImage read(const QByteArray& bytes, QSize bounds);

protected:
    void paintEvent(QPaintEvent*) override;
    void resizeEvent(QResizeEvent*) override;

private:
    void decode();
    QByteArray bytes_;
    QPixmap picture_;  // at the size on screen
    bool decoded_ = true;
};

}  // namespace controls
