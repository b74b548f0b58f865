// Where the drives and servers of an office's Windows computers lie on this one: a table in the settings.
//
// An office that comes from Windows has links such as "G:\Έγγραφα\α.pdf" or "\\server\κοινά\α.pdf". What lies there is
// reached here through a folder, which differs from seat to seat; so the links stay as they are stored.
#pragma once

#include <QVector>

#include "cards/linkpath.h"
#include "platform/settings.h"

namespace cards {

struct LinkFolder {
    QString place;   // "G:", "\\server" or "\\server\share"
    QString folder;  // of this computer
};

QVector<LinkFolder> linkFolders(const platform::Settings& settings);
void setLinkFolders(platform::Settings& settings, const QVector<LinkFolder>& folders);

// A place as it is typed: "g", "G:\", "server", "\\server\κοινά\"; empty when it is none.
QString linkPlace(const QString& typed);
// The place that a stored link lies in, empty for one that names no drive or share.
QString linkPlaceOf(const QString& stored);

// As readLink(), but what only another system can follow is looked for in the folder of its place. Windows tells upper
// from lower case nowhere, so a name is found however it is written.
LinkTarget findLink(const QString& stored, const QVector<LinkFolder>& folders,
                    platform::PathStyle here = platform::nativePathStyle());

}  // namespace cards
