// The text file that stands in a database's place and says on which server it is.
#pragma once

#include <QString>

namespace data {

using namespace Qt::Literals::StringLiterals;

// Lines "key = value", the value between quotes if it must be; a line that begins with "#" is a comment, and so is what
// stands behind " #", but not in a password. "server" is another word for host, "dbname" for database. What is left out
// comes from where the server's own tools take it: the environment, the service file, the password file.
struct ServerDescription {
    QString host, port, database, user, password, sslMode, service;
    QString schema;  // the tables' schema in the server database; "public" when left out

    QString schemaName() const { return schema.isEmpty() ? u"public"_s : schema; }
};

// UTF-8, or UTF-16 that says so by its mark, as text editors save it.
QString decodeDescription(const QByteArray& bytes);

// True for a text with a line that names a server, a database or a service, even if other lines are wrong: those are
// told by their numbers then.
bool looksLikeDescription(const QString& text);

// Throws Error(Connection) for a file that can't be read, for a line that isn't understood, and for a schema's name
// that the server would shorten.
ServerDescription readServerDescription(const QString& file);
ServerDescription parseServerDescription(const QString& text, const QString& file = {});

// "host=... database=..." as the command line has it: pairs between blanks, a value with blanks in quotes.
ServerDescription serverFromOptions(const QString& text);

void writeServerDescription(const QString& file, const ServerDescription& server);

}  // namespace data
