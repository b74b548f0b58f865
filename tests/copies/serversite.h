// An office on a server with cards in it, and further databases there.
#pragma once

#include "copies/backup.h"
#include "copies/servertools.h"
#include "schema/check.h"
#include "support/files.h"
#include "support/officefolder.h"

namespace support {

using schema::Database;

struct ServerSite {
    ServerSite() {
        const QString odd = u"α\tβ\nCOPY x.y (z) FROM stdin;\n\\.\n\\\\"_s;
        data::Transaction transaction(office.main);
        for (int i = 0; i < 300; ++i)
            office.main.execute(u"insert into Cards (ΕΠΩΝΥΜΟ, σχολια) values ('Επαφή %1', '%2')"_s.arg(i).arg(odd));
        office.main.execute(u"delete from Cards where code=300"_s);
        office.main.execute(u"update Cards set ΤΕΛΕΥΤΑΙΑ_ΚΙΝΗΣΗ=#2026/01/02#, ΣΥΧΝΟΤΗΤΑ_ΚΙΝΗΣΗΣ=30"_s);
        transaction.commit();
    }
    copies::BackupInfo backup(const copies::BackupOptions& options = {}) {
        return copies::backupOffice(office.folder(), file, options);
    }
    QStringList left() { return entriesOf(scratch.path()); }

    ScratchOffice office;
    QTemporaryDir scratch;
    QString file = scratch.filePath(u"αντίγραφο.tar"_s);
};

// A database of its own on the run's server, gone with this object.
class OtherDatabase {
public:
    explicit OtherDatabase(data::Connection& connection, const QByteArray& more = {}) : connection_(connection) {
        server_ = testengine::server({});
        server_.database = testengine::Schema::newName();
        connection_.engine().script("CREATE DATABASE " + server_.database.toUtf8() + " TEMPLATE template0" + more);
    }
    ~OtherDatabase() { connection_.engine().script("DROP DATABASE " + server_.database.toUtf8() + " WITH (FORCE)"); }
    const data::ServerDescription& server() const { return server_; }

private:
    data::Connection& connection_;
    data::ServerDescription server_;
};

inline const QDateTime moment(QDate(2026, 11, 5), QTime(10, 30), Qt::UTC);

inline QString count(data::Connection& connection) {
    return firstText(connection, u"select count(*) from Cards"_s);
}

inline QStringList allFindings(Databases& office) {
    return schema::findings(office.main, Database::Main) + schema::findings(office.users, Database::Users);
}

}  // namespace support
