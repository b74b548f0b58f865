// An office in a folder that goes away with it.
#pragma once

#include <QTemporaryDir>
#include <QtTest>

#include "copies/upgradecopy.h"
#include "data/recordset.h"
#include "schema/creation.h"
#include "schema/office.h"
#include "support/failure.h"
#include "support/testengine.h"

using namespace Qt::Literals::StringLiterals;

class ScratchOffice {
public:
    explicit ScratchOffice(const QString& referenceFolder = {}) {
        schema::NewOffice office{u"secret"_s, referenceFolder};
        if (testengine::isPostgres()) office.server = testengine::server(testengine::Schema::newName());
        schema::createOffice(folder.path(), office);
        openBoth();
    }
    ~ScratchOffice() {
        closeBoth();
        if (!testengine::isPostgres()) return;
        for (const QString& file : {mainFile(), usersFile()})
            if (QFile::exists(file)) data::dropPgDatabase(data::readServerDescription(file));
    }
    void openBoth() {
        using schema::Database;
        copies::openUpgraded(main, schema::connectionString(Database::Main, mainFile()));
        copies::openUpgraded(users, schema::connectionString(Database::Users, usersFile()));
    }
    void closeBoth() {
        main.close();
        users.close();
    }
    QString mainFile() const { return schema::mainDatabasePath(folder.path()); }
    QString usersFile() const { return schema::usersDatabasePath(folder.path()); }

    QTemporaryDir folder;
    data::Connection main, users;
};

// The first cell of a statement's first row, "" when there is none.
inline QString firstText(data::Connection& connection, const QString& sql) {
    data::Recordset rows(connection, sql);
    return rows.isEmpty() ? QString() : rows.field(0).text();
}
