#include "data/databasepassword.h"

#include "data/password.h"

namespace data {
namespace {

class OneText : public RowSink {
public:
    QString value;

    void beginRow() override {}
    void null() override {}
    void integer(qint64) override {}
    void real(double) override {}
    void text(const char* utf8, qsizetype size) override { value = QString::fromUtf8(utf8, size); }
    void blob(const char*, qsizetype) override {}
};

}  // namespace

void setDatabasePassword(Engine& engine, const QString& password) {
    engine.script("CREATE TABLE IF NOT EXISTS _dorvalista (name TEXT PRIMARY KEY, value TEXT)");
    if (password.isEmpty()) {
        engine.execute("DELETE FROM _dorvalista WHERE name='password'", {});
        return;
    }
    const QString verifier = makeVerifier(password, PasswordCost::Light);
    engine.execute(
        "INSERT INTO _dorvalista (name,value) VALUES ('password',?1) "
        "ON CONFLICT (name) DO UPDATE SET value=excluded.value",
        {verifier});
}

QString databaseVerifier(Engine& engine) {
    OneText sink;
    engine.query("SELECT name FROM sqlite_schema WHERE type='table' AND name='_dorvalista'", {}, &sink);
    if (sink.value.isEmpty()) return {};
    sink.value.clear();
    engine.query("SELECT value FROM _dorvalista WHERE name='password'", {}, &sink);
    return sink.value;
}

bool isInternalTable(QStringView name) {
    return name.startsWith(u'_') || name.startsWith(u"sqlite_", Qt::CaseInsensitive);
}

}  // namespace data
