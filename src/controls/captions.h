// Captions and names that users type: shown as typed, `&` included, and never so wide that they push a value away.
#pragma once

#include <QAbstractButton>
#include <QLabel>

namespace controls {

void setTypedCaption(QLabel* label, const QString& caption);            // a long one wraps
void setTypedCaption(QAbstractButton* button, const QString& caption);  // a long one ends in dots, its tool tip tells it

// A text broken at blanks into lines of that width; what doesn't fit ends in dots.
QStringList brokenLines(const QString& text, const QFont& font, int width, int most);

// A text for a tool tip, as it is; the toolkit would read tags in it.
QString plainTip(const QString& text);

// A line of text that takes the width it gets: what doesn't fit ends in dots, and the tool tip tells it.
class ElidedLabel : public QLabel {
    Q_OBJECT
public:
    explicit ElidedLabel(QWidget* parent = nullptr);
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;

private:
    bool isCut() const;
};

}  // namespace controls
