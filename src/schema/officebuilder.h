// A new office under construction: on a failure nothing of it stays behind.
#pragma once

#include <QString>
#include <QTemporaryDir>
#include <memory>
#include <optional>

#include "data/connection.h"
#include "data/opening/serverdescription.h"
#include "schema/tables.h"

namespace schema {

// The two databases are made in a folder inside the office's, and on a server in schemas of their own; finish() gives
// the files their names. Without it, files, schemas and a folder that wasn't there go away with the builder.
class OfficeBuilder {
public:
    // Throws data::Error when `folder` holds either file already.
    OfficeBuilder(const QString& folder, const std::optional<data::ServerDescription>& server);
    ~OfficeBuilder();
    OfficeBuilder(const OfficeBuilder&) = delete;
    OfficeBuilder& operator=(const OfficeBuilder&) = delete;

    // An empty database, or its place on the server with a description in its file.
    void make(Database database);
    QString file(Database database) const;
    void finish();

private:
    QString folder_;
    std::optional<data::ServerDescription> server_;
    bool folderWasThere_, finished_ = false;
    QVector<data::ServerDescription> schemas_;
    std::unique_ptr<QTemporaryDir> workFolder_;
};

// Each database of an office on a server has a schema of its own, named like its file: NAME and NAMEu of the given
// schema, "dorvalist" when none is given.
data::ServerDescription serverFor(const data::ServerDescription& office, Database database);

// The tables and the indexes of an empty database, as they were in a version. A transaction is the caller's.
void makeTables(data::Connection& connection, Database database, int version = currentVersion);
void makeIndexes(data::Connection& connection, Database database, int version = currentVersion);

}  // namespace schema
