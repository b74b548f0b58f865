// The text boxes of every form: one set of manners for focus, Enter and colour.
#pragma once

#include <QLineEdit>
#include <QPlainTextEdit>

namespace controls {

// Manners shared by all boxes of this header:
// - on focus the whole content is selected, by Tab and by the first click alike, unless that click drags a selection;
// - Enter moves on to the next field (in MemoBox it stays a new line);
// - while `highlighting` is on, the box with the focus takes the highlight colour of the theme;
// - read-only boxes stay readable, selectable and reachable by Tab;
// - NUL and other control characters (but line ends and tabs in a MemoBox) never get in, by paste either.
class TextBox : public QLineEdit {
    Q_OBJECT
public:
    explicit TextBox(QWidget* parent = nullptr);
    void setHighlighting(bool on);
    bool isHighlighting() const { return highlighting_; }
    // A date, or a word, stays readable beside the longest caption.
    QSize minimumSizeHint() const override;

protected:
    void focusInEvent(QFocusEvent*) override;
    void focusOutEvent(QFocusEvent*) override;
    void mousePressEvent(QMouseEvent*) override;
    void mouseReleaseEvent(QMouseEvent*) override;
    void keyPressEvent(QKeyEvent*) override;

    // For focusOutEvent: the user goes on to another field of the same form. False when a menu, a drop-down or another
    // window takes the focus, when the box is hidden or disabled, and when the focus had only been passing through.
    bool isLeft(const QFocusEvent& event) const;

private:
    bool highlighting_ = false;
    bool selectOnRelease_ = false;
    bool entered_ = false;
};

// Takes only the keys "0123456789," and Backspace (and the editing keys that bring no character); a point is a comma,
// too. A pasted text is taken when it is a number, in Greek (1.234,56) or plain form (-1234.56), and refused as a whole
// otherwise. A text set by the program stays as it is. An empty box becomes `whenEmpty` on leaving, unless that is null
// or the box is read-only.
class NumberBox : public TextBox {
    Q_OBJECT
public:
    explicit NumberBox(QWidget* parent = nullptr);
    void setWhenEmpty(const QString& text) { whenEmpty_ = text; }

signals:
    void refused();  // a pasted text that is no number; the box shows what it did before

protected:
    void focusOutEvent(QFocusEvent*) override;
    void keyPressEvent(QKeyEvent*) override;

private:
    void checkBroughtIn(const QString& edited);

    QString whenEmpty_;
    QString before_;  // the text before the edit at hand
    bool typing_ = false;
};

// Many lines of plain text. Tab moves on.
class MemoBox : public QPlainTextEdit {
    Q_OBJECT
public:
    explicit MemoBox(QWidget* parent = nullptr);
    void setHighlighting(bool on);
    bool isHighlighting() const { return highlighting_; }
    QString text() const { return toPlainText(); }
    void setText(const QString& text);

protected:
    void changeEvent(QEvent*) override;
    void focusInEvent(QFocusEvent*) override;
    void focusOutEvent(QFocusEvent*) override;
    void mousePressEvent(QMouseEvent*) override;
    void mouseReleaseEvent(QMouseEvent*) override;
    void insertFromMimeData(const QMimeData* source) override;

private:
    void selectWhole();

    bool highlighting_ = false;
    bool selectOnRelease_ = false;
    bool entered_ = false;
};

}  // namespace controls
