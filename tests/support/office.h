// A real office in a scratch folder, on the engine that the test runs on, opened as the program opens it.
#pragma once

#include <QTemporaryDir>

#include "copies/upgradecopy.h"
#include "core/mainmod.h"
#include "data/recordset.h"
#include "schema/creation.h"
#include "schema/office.h"
#include "support/services.h"
#include "support/testengine.h"

namespace support {

using namespace Qt::Literals::StringLiterals;

class Office {
public:
    // Default rows, the delivered name days, Admin's password "admin".
    Office() {
        schema::NewOffice office{u"admin"_s, QString::fromUtf8(DORV_REFERENCE)};
        if (testengine::isPostgres()) office.server = testengine::server(testengine::Schema::newName());
        schema::createOffice(folder(), office);
        open(mod);
        mod.gDataPath = folder();
        mod.gUserName = u"Admin"_s;
        mod.gUserGroup = core::groupAdministrators;
    }

    ~Office() {
        mod.gConn.close();
        mod.gConnUsers.close();
        if (!testengine::isPostgres()) return;
        for (const QString& file : {schema::mainDatabasePath(folder()), schema::usersDatabasePath(folder())})
            data::dropPgDatabase(data::readServerDescription(file));
    }
    Q_DISABLE_COPY_MOVE(Office)

    QString folder() const { return directory_.filePath(u"office"_s); }

    // A further seat on the same folder.
    void open(core::MainMod& seat) {
        using schema::Database;
        copies::openUpgraded(seat.gConn, schema::connectionString(Database::Main, schema::mainDatabasePath(folder())));
        copies::openUpgraded(seat.gConnUsers,
                             schema::connectionString(Database::Users, schema::usersDatabasePath(folder())));
    }

    qint64 addCard(const QString& surname, const QString& name, const QVariantMap& more = {}) {
        data::Recordset card(mod.gConn, u"Select * from cards where code=0"_s);
        card.addNew();
        card[u"επωνυμο"].setValue(surname);
        card[u"ονομα"].setValue(name);
        card[u"category"].setValue(1);
        for (auto [column, value] : more.asKeyValueRange()) card[column].setValue(value);
        card.update();
        return card[u"code"].toLong();
    }

    QVariant value(const QString& sql) {
        data::Recordset rows(mod.gConn, sql);
        return rows.isEmpty() ? QVariant() : rows.field(0).value();
    }

    QTemporaryDir directory_;
    Desk desk;
    core::MainMod mod{desk.services};
};

}  // namespace support
