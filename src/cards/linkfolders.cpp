#include "cards/linkfolders.h"

#include <QDir>
#include <QRegularExpression>

using namespace Qt::Literals::StringLiterals;

namespace cards {

namespace {

const QString section = u"Links"_s, key = u"Folders"_s;

QString withBackslashes(QString path) {
    return path.replace(u'/', u'\\');
}

QStringList namesOf(const QString& path) {
    return path.split(u'\\', Qt::SkipEmptyParts);
}

// An existing name first as it is written, then in any case; else as it is written, which is then missing.
QString below(const QString& folder, const QStringList& names) {
    QDir place(folder);
    for (const QString& name : names) {
        QString found = name;
        if (!place.exists(name))
            for (const QString& each : place.entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot))
                if (each.compare(name, Qt::CaseInsensitive) == 0) found = each;
        place.setPath(place.filePath(found));
    }
    return place.path();
}

}  // namespace

QVector<LinkFolder> linkFolders(const platform::Settings& settings) {
    QVector<LinkFolder> folders;
    for (const QString& line : settings.value(section, key).split(u'\n', Qt::SkipEmptyParts))
        folders.append({line.section(u'\t', 0, 0), line.section(u'\t', 1)});
    return folders;
}

void setLinkFolders(platform::Settings& settings, const QVector<LinkFolder>& folders) {
    QStringList lines;
    for (const LinkFolder& each : folders) lines << each.place + u'\t' + each.folder;
    settings.setValue(section, key, lines.join(u'\n'));
}

QString linkPlace(const QString& typed) {
    static const QRegularExpression drive(u"^[A-Za-z]:?\\\\*$"_s), name(u"^[^\\\\:*?\"<>|\\t\\n]+$"_s);
    const QString text = withBackslashes(typed.trimmed());
    if (drive.match(text).hasMatch()) return text.left(1).toUpper() + u':';
    const QStringList names = namesOf(text);
    const bool share = text.startsWith(u"\\\\"_s) || (names.size() == 1 && !text.startsWith(u'\\'));
    if (!share || names.isEmpty() || names.size() > 2) return {};
    for (const QString& each : names)
        if (!name.match(each).hasMatch()) return {};
    return u"\\\\"_s + names.join(u'\\');
}

QString linkPlaceOf(const QString& stored) {
    const QString path = withBackslashes(stored.trimmed());
    if (readLink(stored, platform::PathStyle::Windows).place != LinkTarget::Here) return {};
    return path.startsWith(u'\\') ? u"\\\\"_s + namesOf(path).mid(0, 2).join(u'\\') : path.left(2).toUpper();
}

LinkTarget findLink(const QString& stored, const QVector<LinkFolder>& folders, platform::PathStyle here) {
    const LinkTarget target = readLink(stored, here);
    if (target.place != LinkTarget::Foreign && target.place != LinkTarget::Network) return target;
    const QString path = withBackslashes(stored.trimmed());
    const LinkFolder* best = nullptr;
    for (const LinkFolder& each : folders)
        if (path.startsWith(each.place + u'\\', Qt::CaseInsensitive) &&
            (!best || each.place.size() > best->place.size()))
            best = &each;
    if (!best) return target;
    return {LinkTarget::Here, below(best->folder, namesOf(path.mid(best->place.size()))), QUrl()};
}

}  // namespace cards
