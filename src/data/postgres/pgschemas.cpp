#include "data/postgres/pgschemas.h"

#include "data/postgres/pgdialect.h"
#include "data/postgres/pgengine.h"
#include "data/postgres/pgparts.h"

namespace data {

PgSchemaState pgSchemaState(const ServerDescription& server) {
    PgEngine engine(server, {}, PgEngine::Bare());
    if (!engine.hasSchema()) return PgSchemaState::Absent;
    return pgObjects(engine, server.schemaName()) == 0 ? PgSchemaState::Empty : PgSchemaState::Taken;
}

void renamePgSchema(const ServerDescription& server, const QString& name) {
    PgEngine engine(server, {}, PgEngine::Bare());
    engine.requireAlone();
    engine.script("ALTER SCHEMA " + pgDialect().identifier(server.schemaName()) + " RENAME TO " +
                  pgDialect().identifier(name));
}

void createPgSchema(const ServerDescription& server) {
    PgEngine engine(server, {}, PgEngine::Bare());
    engine.requireUtf8();
    engine.makeSchema();
}

QString pgConnectionText(const ServerDescription& server) {
    const std::pair<const char16_t*, QString> parts[] = {{u"service", server.service}, {u"host", server.host},
                                                         {u"port", server.port},       {u"dbname", server.database},
                                                         {u"user", server.user},       {u"sslmode", server.sslMode}};
    QStringList pairs;
    for (const auto& [name, value] : parts) {
        if (value.isEmpty()) continue;
        QString quoted = value;
        quoted.replace(u'\\', QStringLiteral("\\\\")).replace(u'\'', QStringLiteral("\\'"));
        pairs += QString::fromUtf16(name) + QStringLiteral("='") + quoted + u'\'';
    }
    return pairs.join(u' ');
}

}  // namespace data
