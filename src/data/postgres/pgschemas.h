// The schemas of a server database, for tools that put whole databases into them.
#pragma once

#include "data/serverdescription.h"

namespace data {

enum class PgSchemaState { Absent, Empty, Taken };

PgSchemaState pgSchemaState(const ServerDescription& server);
// Gives the schema another name. Throws Error(Busy) while a seat has it open.
void renamePgSchema(const ServerDescription& server, const QString& name);
void createPgSchema(const ServerDescription& server);  // nothing to do when it is there

// What a tool of the server needs to find the same database, without a password.
QString pgConnectionText(const ServerDescription& server);

}  // namespace data
