#include "cards/linkpath.h"

using namespace Qt::Literals::StringLiterals;

namespace cards {

using platform::PathStyle;

namespace {

bool isSlash(QChar c) {
    return c == u'/' || c == u'\\';
}

bool isDrivePath(const QString& path) {
    return path.size() > 2 && path[0].unicode() < 0x80 && path[0].isLetter() && path[1] == u':' && isSlash(path[2]);
}

bool isShare(const QString& path) {
    return path.startsWith(u"\\\\"_s) && path.size() > 2 && !isSlash(path[2]);
}

QString withSlash(QString path, QChar slash) {
    return path.replace(u'\\', slash).replace(u'/', slash);
}

// "C:\\a.pdf", as a file in the root of a drive was stored.
QString withoutDoubledSlashes(QString path) {
    const QString doubled(2, u'\\');
    for (qsizetype at; (at = path.indexOf(doubled, 2)) >= 0;) path.remove(at, 1);
    return path;
}

bool hasWebScheme(const QString& text) {
    const QString scheme = text.section(u"://"_s, 0, 0).toLower();
    return text.contains(u"://"_s) && QStringList{u"http"_s, u"https"_s, u"ftp"_s}.contains(scheme);
}

bool isWebAddress(const QString& text) {
    return hasWebScheme(text) || text.startsWith(u"www."_s, Qt::CaseInsensitive);
}

LinkTarget network(const QString& share) {
    LinkTarget target{LinkTarget::Network, share, QUrl()};
    const QString path = withSlash(share, u'/').mid(2);
    target.url.setScheme(u"smb"_s);
    target.url.setHost(path.section(u'/', 0, 0));
    target.url.setPath(u'/' + path.section(u'/', 1));
    if (!target.url.isValid() || target.url.host().isEmpty()) return {LinkTarget::Foreign, share, QUrl()};
    return target;
}

}  // namespace

LinkTarget readLink(const QString& stored, PathStyle here) {
    const QString path = stored.trimmed();
    if (path.isEmpty() || path.contains(QChar(0))) return {};
    if (isWebAddress(path)) return {LinkTarget::Web, path, webAddress(path)};
    const bool drive = isDrivePath(path), share = isShare(path);
    if (here == PathStyle::Windows) {
        if (drive || share) return {LinkTarget::Here, withoutDoubledSlashes(withSlash(path, u'\\')), QUrl()};
        return {path.startsWith(u'/') ? LinkTarget::Foreign : LinkTarget::Nowhere, path, QUrl()};
    }
    if (drive) return {LinkTarget::Foreign, path, QUrl()};
    if (share) return network(path);
    // A backslash is a letter like any other in a name here. Blanks at the ends may belong to the name.
    if (stored.startsWith(u'/')) return {LinkTarget::Here, stored, QUrl()};
    return {LinkTarget::Nowhere, path, QUrl()};
}

QUrl webAddress(const QString& typed) {
    const QString text = typed.trimmed();
    return QUrl(hasWebScheme(text) ? text : u"http://"_s + text);
}

QUrl mailAddress(const QString& typed) {
    QUrl url;
    url.setScheme(u"mailto"_s);
    // As plain text: a question mark in it must not become a subject or an attachment.
    url.setPath(QString::fromUtf8(QUrl::toPercentEncoding(typed.trimmed(), "@")), QUrl::TolerantMode);
    return url;
}

}  // namespace cards
