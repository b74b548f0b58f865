#include "controls/numbertext.h"

#include <QRegularExpression>

using namespace Qt::Literals::StringLiterals;

namespace controls::detail {

namespace {

bool isOneNumber(const QString& text) {
    static const QRegularExpression form(u"^-?([0-9]+(,[0-9]*)?|,[0-9]+)$"_s);
    return form.match(text).hasMatch();
}

}  // namespace

std::optional<QString> numberText(QString text) {
    static const QRegularExpression greek(u"^[-−]?([0-9]{1,3}(\\.[0-9]{3})+|[0-9]+)(,[0-9]+)?$"_s);
    static const QRegularExpression plain(u"^[-−]?[0-9]+\\.[0-9]+$"_s);
    text.remove(u'€');
    text = text.trimmed();
    const bool isGreek = greek.match(text).hasMatch();
    if (!isGreek && !plain.match(text).hasMatch()) return {};
    text.replace(QChar(0x2212), u'-');
    return isGreek ? text.remove(u'.') : text.replace(u'.', u',');
}

std::optional<BroughtIn> withNumberBroughtIn(const QString& before, const QString& edited, int cursor) {
    const QString tail = edited.mid(cursor);
    if (!before.endsWith(tail)) return {};
    qsizetype head = 0;
    const qsizetype most = std::min<qsizetype>(cursor, before.size() - tail.size());
    while (head < most && edited[head] == before[head]) ++head;
    if (head == cursor) return BroughtIn{edited, cursor};  // nothing came in, something went
    // One sign comes by an input method as by a key.
    if (cursor - head == 1 && (edited[head] == u',' || edited[head] == u'.'))
        return BroughtIn{edited.left(head) + u',' + tail, cursor};
    // Where the piece begins can't be told when it replaced a selection that began alike.
    for (; head >= 0; --head) {
        const auto number = numberText(edited.mid(head, cursor - head));
        if (!number) continue;
        const QString whole = edited.left(head) + *number + tail;
        if (isOneNumber(whole)) return BroughtIn{whole, int(head + number->size())};
    }
    return {};
}

}  // namespace controls::detail
