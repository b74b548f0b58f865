#include "controls/boxtext.h"

#include <QFocusEvent>
#include <QStyle>
#include <QVariant>
#include <QWidget>

namespace controls::detail {

QString cleaned(const QString& text, bool manyLines) {
    QString clean;
    clean.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text[i];
        const bool isLineEnd = c == u'\n' || c == u'\r' || c == QChar::LineSeparator || c == QChar::ParagraphSeparator;
        if (c == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n') continue;
        if (isLineEnd) {
            clean += manyLines ? u'\n' : u' ';
        } else if (c == u'\t') {
            clean += manyLines ? u'\t' : u' ';
        } else if (c.category() != QChar::Other_Control) {
            clean += c;
        }
    }
    return clean;
}

bool isPassing(const QFocusEvent& event) {
    return event.reason() == Qt::ActiveWindowFocusReason || event.reason() == Qt::PopupFocusReason ||
           event.reason() == Qt::MenuBarFocusReason;
}

void setHighlight(QWidget* box, bool on) {
    setMark(box, "highlight", on);
}

void setMark(QWidget* box, const char* property, bool on) {
    if (box->property(property).toBool() == on) return;
    box->setProperty(property, on);
    box->style()->unpolish(box);
    box->style()->polish(box);
    box->update();
}

}  // namespace controls::detail
