#include "copies/upgradecopy.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

#include "copies/databasecopy.h"
#include "data/opening/fileidentity.h"
#include "data/opening/privatefile.h"
#include "schema/databasefiles.h"
#include "schema/office.h"
#include "schema/upgrade.h"
#include "schema/workfolder.h"

namespace copies {

using namespace Qt::Literals::StringLiterals;

static constexpr int upgradeCopiesKept = 3;

QString copyBeforeUpgrade(data::Connection& connection, schema::Database database, const QString& file,
                          const QDateTime& now, const schema::Progress& progress, const ServerTools& tools) {
    const bool onServer = data::identifyFile(file).kind == data::FileKind::ServerDescription;
    if (onServer && !tools.found()) return {};
    const QFileInfo info(file);
    const QString mark = info.fileName() + u".v"_s;
    const QString target =
        info.dir().filePath(u"%1%2-%3"_s.arg(mark).arg(schema::storedVersion(connection)).arg(schema::stamp(now)));
    const auto workFolder = schema::workFolderIn(info.absolutePath());
    const QString copy = schema::databasePath(workFolder->path(), database);
    if (onServer)
        dumpChecked(connection, data::readServerDescription(file), database, copy, tools, progress);
    else
        copyChecked(connection, database, copy, progress);
    const QString kept = schema::freeName(target);
    data::closeToOthers(copy, info.absolutePath());
    schema::moveTo(copy, kept, false);
    const QRegularExpression ours(
        QRegularExpression::anchoredPattern(QRegularExpression::escape(mark) + u"\\d+-\\d{8}-\\d{6}(-\\d+)?"_s));
    const QStringList copies = info.dir().entryList(QDir::Files, QDir::Time).filter(ours);
    for (const QString& old : copies.mid(upgradeCopiesKept))
        if (old != QFileInfo(kept).fileName()) info.dir().remove(old);
    return kept;
}

void openUpgraded(data::Connection& connection, const QString& connectionString, const schema::Progress& progress) {
    schema::open(connection, connectionString, [&](schema::Database database, const QString& file) {
        copyBeforeUpgrade(connection, database, file, QDateTime::currentDateTime(), progress);
        schema::report(progress, u"Προσαρμογή του %1 στη νέα έκδοση"_s.arg(QFileInfo(file).fileName()), -1);
    });
}

}  // namespace copies
