// A dump put into a schema of a server.
//
// A dump names its schema, and `pg_restore` can't give it another name. So its text is played through the program's own
// connection, in one transaction: whoever has that name in the database gives it up, the schema is made and filled,
// becomes `NAME_restoring`, and the name goes back. Nobody else sees any of that. It gets its indexes from the tables'
// descriptions and is counted; then one transaction renames the old schemas to a dated name and the new ones to theirs,
// and makes the functions anew, which may know their schema by name. When it is killed before, a `NAME_restoring` is
// left, which the next restoring drops. What an index computes must work without a search path, since the server's own
// housekeeping has none.
#pragma once

#include "copies/restoreoptions.h"
#include "data/postgres/pgschemas.h"

namespace copies {

// What is there stays as it is until the exchange: the dump is filled into a schema with a name of its own
// ("dorvalist_restoring"), indexed and counted there. What a killed one leaves under that name goes away with the next.
class SchemaRestore {
public:
    // Throws data::Error: Constraint when the schema has tables and nothing was said of force, Busy while a seat has it
    // open. `options` outlives this.
    SchemaRestore(const data::ServerDescription& place, const RestoreOptions& options);
    ~SchemaRestore();
    SchemaRestore(const SchemaRestore&) = delete;
    SchemaRestore& operator=(const SchemaRestore&) = delete;

    // `schemaOfDump` is the name that stands in the dump; a schema of that name is not touched.
    void fill(const QString& dump, const QString& schemaOfDump);
    // Where the dump was put, until the exchange.
    data::ServerDescription filled() const;

    const data::ServerDescription& place() const { return place_; }
    // Gives the filled schema the place's name, in a transaction on the place's server database. Returns the dated name
    // of the old one, empty when there was none.
    QString exchange(data::postgres::PgSchemaWork& work);
    // The exchange is committed.
    void keep() { kept_ = true; }

private:
    void refuseUnlessFree(data::postgres::PgSchemaWork& work) const;

    data::ServerDescription place_;
    const RestoreOptions& options_;
    QString filling_;
    data::postgres::PgSchemaWork claim_;  // one restoring at a time
    bool mine_ = false, kept_ = false;
};

}  // namespace copies
