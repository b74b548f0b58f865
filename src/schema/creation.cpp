#include "schema/creation.h"

#include <QDir>

#include "data/error.h"
#include "data/opening/databasepassword.h"
#include "data/opening/password.h"
#include "schema/office.h"
#include "schema/officebuilder.h"
#include "schema/reference.h"
#include "schema/tablewriter.h"
#include "schema/upgrade.h"

namespace schema {
namespace {

using namespace Qt::Literals::StringLiterals;
using data::Error;
using data::ErrorCategory;

void fillDatabase(const QString& file, Database database, const std::function<void(data::Connection&)>& fill) {
    data::Connection connection;
    connection.open(connectionString(database, file));
    {
        data::Transaction transaction(connection);
        makeTables(connection, database);
        makeIndexes(connection, database);
        for (const QString& statement : defaultRows(database)) connection.execute(statement);
        fill(connection);
        storeVersion(connection, currentVersion);
        transaction.commit();
    }
    connection.close();
}

void loadDeliveredReference(const QString& mainFile, const QString& folder) {
    data::Connection connection;
    connection.open(connectionString(Database::Main, mainFile));
    for (const ReferenceKind& kind : referenceKinds())
        loadReference(connection, kind, QDir(folder).filePath(kind.name + u".tsv"_s));
}

void fillUsers(data::Connection& users, const QString& adminPassword) {
    TableWriter(users, *findTable(Database::Users, u"Admin"), {u"Pass"_s}).write({data::makeVerifier(adminPassword)});
    data::setDatabasePassword(users.engine(), usersDatabasePassword());
}

}  // namespace

void createOffice(const QString& folder, const NewOffice& options) {
    if (options.adminPassword.isEmpty())
        throw Error(ErrorCategory::Constraint, u"Ο κωδικός του Admin δεν μπορεί να είναι κενός."_s);
    OfficeBuilder builder(folder, options.server);
    builder.make(Database::Main);
    fillDatabase(builder.file(Database::Main), Database::Main, [](data::Connection&) {});
    builder.make(Database::Users);
    fillDatabase(builder.file(Database::Users), Database::Users,
                 [&](data::Connection& connection) { fillUsers(connection, options.adminPassword); });
    if (!options.referenceFolder.isEmpty())
        loadDeliveredReference(builder.file(Database::Main), options.referenceFolder);
    builder.finish();
}

}  // namespace schema
