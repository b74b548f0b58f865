// The schemas of a server database, for tools that put whole databases into them.
#pragma once

#include <memory>

#include "data/opening/serverdescription.h"

namespace data::postgres {

class PgEngine;

// A connection and one transaction on it, in which schemas are made, filled and renamed: all of it happens at the
// commit, or none. All throw Error.
class PgSchemaWork {
public:
    // The schema of the description need not be there.
    explicit PgSchemaWork(const ServerDescription& server);
    ~PgSchemaWork();
    PgSchemaWork(const PgSchemaWork&) = delete;
    PgSchemaWork& operator=(const PgSchemaWork&) = delete;

    bool has(const QString& schema);
    bool hasObjects(const QString& schema);  // other than what extensions put there
    // Throws Error(Busy) while another work has this name for itself; until this one's end it does.
    void claim(const QString& name);
    // Throws Error(Busy) while a seat has the schema open.
    void requireNobodyIn(const QString& schema);

    // From here to the end or to actAsMyself(), what is made and renamed is the owner's of this schema, if it is there
    // and this role is a member of its owner's: a member's own could take no schema's place.
    void actAsOwnerOf(const QString& schema);
    void actAsMyself();

    void create(const QString& schema);
    void rename(const QString& schema, const QString& name);
    void drop(const QString& schema);       // with all that is in it
    void dropEmpty(const QString& schema);  // fails when something is in it
    // Makes the program's functions anew, which may know their schema by the name that it had.
    void renewFunctions(const QString& schema);

    void script(const QByteArray& sql);
    // "COPY ... FROM stdin", its rows in as many pieces as one likes, and their end.
    void beginCopy(const QByteArray& sql);
    void copyRows(const QByteArray& rows);
    void endCopy();

    void commit();

private:
    qint64 number(const QByteArray& sql, const QString& parameter);

    std::unique_ptr<PgEngine> engine_;
    QByteArray copy_;  // the statement whose rows are on their way
};

enum class PgSchemaState { Absent, Empty, Taken };

PgSchemaState pgSchemaState(const ServerDescription& server);

// `name` with an ending, shortened where the server would cut the ending off.
QString pgNameWith(const QString& name, const QString& ending);

// What a tool of the server needs to find the same database, without a password.
QString pgConnectionText(const ServerDescription& server);

}  // namespace data::postgres
