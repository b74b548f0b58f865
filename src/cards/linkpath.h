// The stored path of a card's link, read on whatever system the office sits at.
#pragma once

#include <QString>
#include <QUrl>

#include "platform/shell.h"

namespace cards {

struct LinkTarget {
    enum Place {
        Here,     // a path of this system
        Network,  // a share that this system reaches by address, not by path
        Foreign,  // a path that only another system can follow
        Web,      // an address
        Nowhere,  // names no file
    };
    Place place = Nowhere;
    QString path;  // in this system's writing; as stored for Foreign
    QUrl url;      // for Network and Web
};

// An address of the web begins as one. A path is told by its beginning: a drive letter or two backslashes are Windows',
// a slash is everybody else's.
LinkTarget readLink(const QString& stored, platform::PathStyle here = platform::nativePathStyle());

// The address that a typed web address means: with its own scheme when it names one of the web's, else "http://".
QUrl webAddress(const QString& typed);
QUrl mailAddress(const QString& typed);

}  // namespace cards
