// A real office in a scratch folder, on the engine that the test runs on; it goes away with its object.
#pragma once

#include <QDir>
#include <QTemporaryDir>
#include <map>

#include "copies/upgradecopy.h"
#include "data/opening/fileidentity.h"
#include "data/recordset.h"
#include "schema/creation.h"
#include "schema/office.h"
#include "support/testengine.h"

namespace support {

using namespace Qt::Literals::StringLiterals;

// Takes an office's databases off the server, if they are there.
inline void dropServerOf(const QString& folder) {
    for (const QString& file : {schema::mainDatabasePath(folder), schema::usersDatabasePath(folder)})
        if (data::identifyFile(file).kind == data::FileKind::ServerDescription)
            data::postgres::dropPgDatabase(data::readServerDescription(file));
}

class OfficeFolder {
public:
    explicit OfficeFolder(const QString& adminPassword, const QString& referenceFolder = {},
                          bool onServer = testengine::isPostgres()) {
        schema::NewOffice office{adminPassword, referenceFolder};
        if (onServer) {
            office.server = testengine::server(testengine::Schema::newName());
            schema::createOffice(folder(), office);
            return;
        }
        // Made once for a test's program and copied from then on, which waits for no disk.
        static std::map<std::pair<QString, QString>, QTemporaryDir> made;
        const QString model = made[{adminPassword, referenceFolder}].filePath(u"office"_s);
        if (!QFile::exists(model)) schema::createOffice(model, office);
        QDir().mkpath(folder());
        for (const QString& name : QDir(model).entryList(QDir::Files))
            if (!QFile::copy(model + u'/' + name, folder() + u'/' + name)) qFatal("the office wasn't copied");
    }
    ~OfficeFolder() { dropServerOf(folder()); }
    Q_DISABLE_COPY_MOVE(OfficeFolder)

    QString folder() const { return directory_.filePath(u"office"_s); }
    QString mainFile() const { return schema::mainDatabasePath(folder()); }
    QString usersFile() const { return schema::usersDatabasePath(folder()); }

    void open(data::Connection& main, data::Connection& users) const {
        using schema::Database;
        copies::openUpgraded(main, schema::connectionString(Database::Main, mainFile()));
        copies::openUpgraded(users, schema::connectionString(Database::Users, usersFile()));
    }

    QTemporaryDir directory_;  // free beside the office
};

// With its two databases open, without a program around them; Admin's password is "secret".
class ScratchOffice : public OfficeFolder {
public:
    explicit ScratchOffice(const QString& referenceFolder = {}, bool onServer = testengine::isPostgres())
        : OfficeFolder(u"secret"_s, referenceFolder, onServer) {
        openBoth();
    }
    void openBoth() { open(main, users); }
    void closeBoth() {
        main.close();
        users.close();
    }

    data::Connection main, users;
};

// The first cell of a statement's first row, Null when there is none.
inline QVariant firstValue(data::Connection& connection, const QString& sql) {
    data::Recordset rows(connection, sql);
    return rows.isEmpty() ? QVariant() : rows.field(0).value();
}
inline QString firstText(data::Connection& connection, const QString& sql) {
    data::Recordset rows(connection, sql);
    return rows.isEmpty() ? QString() : rows.field(0).text();
}

}  // namespace support
