// Making and taking away a database of this program in a schema of the server.
#include "data/postgres/functionscript.h"
#include "data/postgres/pgdialect.h"
#include "data/postgres/pgengine.h"
#include "data/postgres/pgparts.h"

using namespace Qt::Literals::StringLiterals;

namespace data::postgres {
namespace {

// Empties the current schema of all but what extensions put there. The schema itself goes too, unless it is the common
// one or this role couldn't make it again: somebody else prepared it then, with its rights.
const char emptying[] = R"sql(
DO $$
DECLARE
    command text;
    commands text[];
    home oid := quote_ident(current_schema())::regnamespace;
BEGIN
    commands := ARRAY(
        SELECT format('DROP TABLE IF EXISTS %s CASCADE', oid::regclass) FROM pg_class
            WHERE relnamespace = home AND relkind IN ('r', 'p')
                AND NOT EXISTS (SELECT FROM pg_depend WHERE classid = 'pg_class'::regclass AND objid = pg_class.oid AND deptype = 'e')
        UNION ALL
        SELECT format('DROP ROUTINE IF EXISTS %s CASCADE', oid::regprocedure) FROM pg_proc
            WHERE pronamespace = home
                AND NOT EXISTS (SELECT FROM pg_depend WHERE classid = 'pg_proc'::regclass AND objid = pg_proc.oid AND deptype = 'e')
        UNION ALL
        SELECT format('DROP DOMAIN IF EXISTS %s CASCADE', oid::regtype) FROM pg_type
            WHERE typnamespace = home AND typtype = 'd'
                AND NOT EXISTS (SELECT FROM pg_depend WHERE classid = 'pg_type'::regclass AND objid = pg_type.oid AND deptype = 'e')
    );
    FOREACH command IN ARRAY commands LOOP  -- what went with another one is no failure
        EXECUTE command;
    END LOOP;
    IF current_schema() <> 'public' AND has_database_privilege(current_database(), 'CREATE') THEN
        EXECUTE format('DROP SCHEMA %I', current_schema());
    END IF;
END $$)sql";

}  // namespace

qint64 pgObjects(PgEngine& engine, const QString& schema) {
    return textRows(engine,
                    "SELECT count(*) FROM (SELECT tableoid, oid, relnamespace AS home FROM pg_class UNION ALL SELECT "
                    "tableoid, "
                    "oid, "
                    "pronamespace FROM pg_proc UNION ALL SELECT tableoid, oid, typnamespace FROM pg_type) o JOIN "
                    "pg_namespace n ON "
                    "n.oid = o.home WHERE nspname = $1 AND NOT EXISTS (SELECT FROM pg_depend d WHERE d.classid = "
                    "o.tableoid AND "
                    "d.objid = o.oid AND d.deptype = 'e')",
                    {schema})
        .firstNumber();
}

bool PgEngine::hasSchema() {
    return textRows(*this, "SELECT count(*) FROM pg_namespace WHERE nspname = $1", {server_.schemaName()})
               .firstNumber() > 0;
}

// "IF NOT EXISTS" would ask for the right to make one also where one is there.
void PgEngine::makeSchema() {
    if (!hasSchema()) script("CREATE SCHEMA " + pgDialect().identifier(server_.schemaName()));
}

void PgEngine::requireUtf8() {
    const QString encoding = textRows(*this, "SELECT getdatabaseencoding()::text").first();
    if (encoding != u"UTF8")
        throw Error(ErrorCategory::Connection,
                    u"Η βάση του διακομιστή έχει κωδικοποίηση %1· χρειάζεται UTF8."_s.arg(encoding));
}

void createPgDatabase(const ServerDescription& server, DatabaseKind kind) {
    PgEngine engine(server, {}, PgEngine::Bare());
    if (pgObjects(engine, server.schemaName()) > 0)
        throw Error(ErrorCategory::Constraint,
                    u"Το σχήμα «%1» της βάσης «%2» έχει ήδη πίνακες· δεν πειράχτηκε τίποτα."_s.arg(
                        server.schemaName(), QString::fromUtf8(PQdb(engine.connection_))));
    engine.requireUtf8();
    engine.begin();
    try {
        engine.makeSchema();
        engine.script(
            "CREATE TABLE _dorvalist (name text PRIMARY KEY, value text NOT NULL); "
            "CREATE DOMAIN _variant AS text;");
        engine.script("SET LOCAL check_function_bodies TO off;" + foldScript() + functionsScript());
        engine.setProperty(u"kind"_s, pgKindName(kind));
        engine.setProperty(u"functions"_s, QString::number(functionsVersion));
        engine.commit();
    } catch (...) {
        engine.rollback();
        throw;
    }
}

void dropPgDatabase(const ServerDescription& server) noexcept {
    try {
        PgEngine(server, {}, PgEngine::Bare()).script(emptying);
    } catch (const Error&) {
        // What can't be reached can't be cleaned up either; the first failure is the one to tell of.
    }
}

}  // namespace data::postgres
