// The text file that stands in a database's place and says on which server it is.
#pragma once

#include <QString>

namespace data {

// Lines "key = value"; "#" starts a comment. "server" is another word for host, "dbname" for database. What is left out
// comes from where the server's own tools take it: the environment, the service file, the password file.
struct ServerDescription {
    QString host, port, database, user, password, sslMode, service;
    QString schema;  // the tables' schema in the server database; "public" when left out

    QString schemaName() const { return schema.isEmpty() ? QStringLiteral("public") : schema; }
};

// Throws Error(Connection) for a file that can't be read and for a line that isn't understood.
ServerDescription readServerDescription(const QString& file);
ServerDescription parseServerDescription(const QString& text, const QString& file = {});

// "host=... database=..." as the command line has it: pairs between blanks, a value with blanks in quotes.
ServerDescription serverFromOptions(const QString& text);

void writeServerDescription(const QString& file, const ServerDescription& server);

}  // namespace data
