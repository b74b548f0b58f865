#include "platform/settings.h"

#include <QDir>
#include <QHash>
#include <QSettings>
#include <QStandardPaths>

using namespace Qt::Literals::StringLiterals;

namespace platform {

int Settings::number(const QString& section, const QString& key, int fallback) const {
    bool isNumber = false;
    const int n = value(section, key).trimmed().toInt(&isNumber);
    return isNumber ? n : fallback;
}

void Settings::setNumber(const QString& section, const QString& key, int value) {
    setValue(section, key, QString::number(value));
}

namespace {

// One level of a QSettings path: separators in a name must not open another level, and no level may be empty.
QString pathPart(QString name) {
    name.replace(u'%', u"%25"_s).replace(u'/', u"%2F"_s).replace(u'\\', u"%5C"_s);
    return name.isEmpty() ? u"%"_s : name;
}

QString pathOf(const QString& section, const QString& key) {
    return pathPart(section) + u'/' + pathPart(key);
}

// A line edited by hand may hold bare commas, which the INI reader takes for a list.
QString textOf(const QVariant& stored) {
    return stored.typeId() == QMetaType::QStringList ? stored.toStringList().join(u", "_s) : stored.toString();
}

class IniSettings : public Settings {
public:
    explicit IniSettings(const QString& file) : store_(file, QSettings::IniFormat) {
        const QStringList paths = store_.allKeys();
        for (const QString& path : paths) spelling_.insert(path.toCaseFolded(), path);
    }

    QString value(const QString& section, const QString& key, const QString& fallback) const override {
        const auto known = spelling_.constFind(pathOf(section, key).toCaseFolded());
        return known == spelling_.constEnd() ? fallback : textOf(store_.value(*known));
    }

    void setValue(const QString& section, const QString& key, const QString& value) override {
        const QString path = pathOf(section, key);
        QString& spelling = spelling_[path.toCaseFolded()];
        if (spelling.isEmpty()) {
            spelling = path;
        } else if (textOf(store_.value(spelling)) == value) {
            return;  // a closing window writes back everything; most of it has not changed
        }
        // An empty text, never a null one, which would read back as a missing value.
        store_.setValue(spelling, value.isNull() ? u""_s : value);
        store_.sync();
        if (store_.status() == QSettings::AccessError && refused) std::exchange(refused, {})(store_.fileName());
    }

private:
    QSettings store_;                   // keeps values in memory when its file can't be read or written
    QHash<QString, QString> spelling_;  // case-folded path → the path as first written
};

}  // namespace

std::unique_ptr<Settings> iniSettings(const QString& file) {
    const QString usersOwn = QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation);
    return std::make_unique<IniSettings>(file.isEmpty() ? QDir(usersOwn).filePath(u"dorvalist.ini"_s) : file);
}

}  // namespace platform
