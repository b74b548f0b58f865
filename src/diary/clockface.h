// A clock with hands, and the half of the day under it.
#pragma once

#include <QLabel>
#include <QPointF>
#include <QTime>
#include <QWidget>
#include <array>

namespace diary {

// Where the hands of seconds, minutes and hours end on a face of this radius, in twips from its top left corner.
std::array<QPointF, 3> handEnds(QTime now, int radius);
// "MM" after the hour of noon, else "ΠΜ".
QString halfOfDay(QTime now);

// The face alone; it shows the time that it was told last.
class ClockFace : public QWidget {
    Q_OBJECT
public:
    explicit ClockFace(QWidget* parent = nullptr);
    void setTime(QTime now);
    QSize sizeHint() const override { return {96, 96}; }

protected:
    void paintEvent(QPaintEvent*) override;

private:
    QTime now_;
};

}  // namespace diary
