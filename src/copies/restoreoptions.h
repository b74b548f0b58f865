#pragma once

#include <QDateTime>
#include <QVector>
#include <optional>

#include "copies/servertools.h"
#include "data/opening/serverdescription.h"
#include "schema/progress.h"
#include "schema/tables.h"

namespace copies {

struct RestoreOptions {
    bool force = false;  // a database that is there is kept aside under a dated name instead of being refused
    // Databases in files may take the place of a server's, whose description is then kept aside.
    bool asFiles = false;
    QVector<schema::Database> databases = {std::begin(schema::allDatabases), std::end(schema::allDatabases)};
    QDateTime now = QDateTime::currentDateTime();
    schema::Progress progress = {};
    // Where the dumps of a server's databases go, as in NewOffice; without it, where the files in the folder say.
    std::optional<data::ServerDescription> server = {};
    ServerTools tools = findServerTools();
};

}  // namespace copies
