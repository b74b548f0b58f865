#include "core/drafts.h"

#include <QCryptographicHash>
#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>
#include <QUuid>

#include "data/recordset.h"
#include "data/values/fold.h"
#include "platform/folders.h"
#include "platform/processes.h"

using namespace Qt::Literals::StringLiterals;

namespace core {

namespace {

constexpr int version = 1;
constexpr qint64 largestFile = 256 << 20;

// Whose drafts these are, so that a file's name tells nobody; empty while nobody has logged on.
QString markOf(const DraftOwner& of) {
    const QString office = QFileInfo(of.office).canonicalFilePath();
    if (office.isEmpty() || of.user.isEmpty()) return {};
    const QByteArray owner = (office + u'\n' + data::fold(of.user)).toUtf8();
    return QString::fromLatin1(QCryptographicHash::hash(owner, QCryptographicHash::Sha256).toHex().left(32));
}

QString folderOf(const Drafts& drafts) {
    return drafts.folder.isEmpty() ? platform::workFolder() + u"/drafts"_s : drafts.folder;
}

// JSON knows texts, marks and doubles; the others say what they are.
QJsonValue toJson(const QVariant& value) {
    switch (value.typeId()) {
        case QMetaType::QByteArray:
            return QJsonObject{{u"bytes"_s, QString::fromLatin1(value.toByteArray().toBase64())}};
        case QMetaType::QDateTime:
            return QJsonObject{{u"date"_s, value.toDateTime().toString(Qt::ISODate)}};
        case QMetaType::Int:
        case QMetaType::LongLong:
            return QJsonObject{{u"whole"_s, QString::number(value.toLongLong())}};
        default:
            return QJsonValue::fromVariant(value);
    }
}

QVariant fromJson(const QJsonValue& value) {
    if (value.isArray()) return value.toVariant().toStringList();
    if (!value.isObject()) return value.isNull() ? QVariant() : value.toVariant();
    const QJsonObject marked = value.toObject();
    if (marked.contains(u"bytes"_s)) return QByteArray::fromBase64(marked[u"bytes"_s].toString().toLatin1());
    if (marked.contains(u"date"_s)) return QDateTime::fromString(marked[u"date"_s].toString(), Qt::ISODate);
    return marked[u"whole"_s].toString().toLongLong();
}

QJsonObject toJson(const QVariantMap& values) {
    QJsonObject object;
    for (auto [name, value] : values.asKeyValueRange()) object.insert(name, toJson(value));
    return object;
}

QVariantMap mapFromJson(const QJsonValue& value) {
    QVariantMap values;
    const QJsonObject object = value.toObject();
    for (auto each = object.begin(); each != object.end(); ++each) values.insert(each.key(), fromJson(each.value()));
    return values;
}

// Without a window when it isn't a draft of this owner, or one that is being written.
Draft read(const QString& path, const QString& owner) {
    QFile file(path);
    if (file.size() > largestFile || !file.open(QIODevice::ReadOnly)) return {};
    const QJsonObject stored = QJsonDocument::fromJson(file.readAll()).object();
    const bool ours = stored[u"version"_s].toInt() == version && stored[u"owner"_s].toString() == owner;
    if (!ours || platform::runsBeside(stored[u"process"_s].toString().toUtf8())) return {};
    Draft draft;
    draft.window = stored[u"window"_s].toString();
    draft.title = stored[u"title"_s].toString();
    draft.isNew = stored[u"new"_s].toBool();
    draft.key = mapFromJson(stored[u"key"_s]);
    draft.row = mapFromJson(stored[u"row"_s]);
    draft.typed = mapFromJson(stored[u"typed"_s]);
    draft.time = fromJson(stored[u"time"_s]).toDateTime();
    draft.file = path;
    return draft;
}

QJsonObject toJson(const Draft& draft, const QString& owner) {
    return {{u"version"_s, version},
            {u"owner"_s, owner},
            {u"process"_s, QString::fromUtf8(platform::processMark())},
            {u"window"_s, draft.window},
            {u"title"_s, draft.title},
            {u"new"_s, draft.isNew},
            {u"key"_s, toJson(draft.key)},
            {u"row"_s, toJson(draft.row)},
            {u"typed"_s, toJson(draft.typed)},
            {u"time"_s, toJson(draft.time)}};
}

QByteArray digest(const QByteArray& bytes) {
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha256);
}

}  // namespace

QVector<Draft> Drafts::all(const DraftOwner& of) const {
    QVector<Draft> found;
    const QString owner = markOf(of);
    if (owner.isEmpty()) return found;
    const QDir place(folderOf(*this));
    for (const QString& name : place.entryList({owner + u"-*.json"_s}, QDir::Files))
        if (Draft draft = read(place.filePath(name), owner); !draft.window.isEmpty()) found.append(std::move(draft));
    std::stable_sort(found.begin(), found.end(), [](const Draft& a, const Draft& b) { return a.time < b.time; });
    return found;
}

void Drafts::write(const DraftOwner& of, Draft& draft) const {
    const QString owner = markOf(of);
    const QString place = folderOf(*this);
    if (owner.isEmpty() || !QDir().mkpath(place)) return;
    if (draft.file.isEmpty())
        draft.file = QDir(place).filePath(u"%1-%2.json"_s.arg(owner, QUuid::createUuid().toString(QUuid::Id128)));
    QSaveFile file(draft.file);
    const bool written = file.open(QIODevice::WriteOnly) && file.setPermissions(QFile::ReadOwner | QFile::WriteOwner) &&
                         file.write(QJsonDocument(toJson(draft, owner)).toJson()) > 0 && file.commit();
    if (!written) qWarning("no draft: %s", qUtf8Printable(file.errorString()));
}

void Drafts::writeAll() const {
    for (Writer* window : *writers_) window->write();
}

QVariantMap draftRow(data::Recordset& row, const QStringList& columns) {
    QVariantMap values;
    for (int i = 0; i < row.fieldCount(); ++i) {
        const data::Field field = row.field(i);
        if (!columns.isEmpty() && !columns.contains(field.name(), Qt::CaseInsensitive)) continue;
        const QVariant value = field.value();
        values.insert(field.name(),
                      value.typeId() == QMetaType::QByteArray ? QVariant(digest(value.toByteArray())) : value);
    }
    return values;
}

void readAsDrafted(data::Recordset& now, const QVariantMap& row) {
    QVariantMap values = row;
    for (int i = 0; i < now.fieldCount(); ++i) {
        const data::Field field = now.field(i);
        if (field.columnType() != data::ColumnType::LongBinary || !values.value(field.name()).isValid()) continue;
        // Bytes that were changed meanwhile are unlike their digest, too, so that the save notices.
        if (now.isEmpty())
            values[field.name()] = QVariant();
        else if (values[field.name()] == QVariant(digest(field.value().toByteArray())))
            values.remove(field.name());
    }
    now.readAs(values);
}

}  // namespace core
