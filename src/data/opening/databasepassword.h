// The gate of a users database: the property "Jet OLEDB:Database Password".
#pragma once

#include "data/engine.h"

namespace data {

// Stores the verifier of a new password in the database's internal table; an empty one takes the gate away.
void setDatabasePassword(Engine& engine, const QString& password);

// The stored verifier, empty when there is no gate.
QString databaseVerifier(Engine& engine);

// Internal tables are no business of statements, catalogs and lists.
bool isInternalTable(QStringView name);

}  // namespace data
