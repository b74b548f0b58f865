#include "data/connection.h"

#include "data/dialect/translator.h"
#include "data/opening/connectionstring.h"
#include "data/opening/fileidentity.h"
#include "data/postgres/pgengine.h"
#include "data/sqlite/sqliteengine.h"
#include "data/sqlite/sqliteparserlimit.h"
#include "data/values/format.h"

using namespace Qt::Literals::StringLiterals;

namespace data {
namespace {

OpenSettings settingsFrom(const QString& connectionString) {
    const QHash<QString, QString> properties = parseConnectionString(connectionString);
    OpenSettings settings;
    settings.file = properties.value(u"data source"_s);
    settings.password = properties.value(u"jet oledb:database password"_s);
    settings.readOnly = properties.value(u"mode"_s).compare(u"read", Qt::CaseInsensitive) == 0;
    bool ok = false;
    const int timeout = properties.value(u"busy timeout"_s).toInt(&ok);
    if (ok && timeout >= 0) settings.busyTimeoutMs = timeout;
    if (settings.file.isEmpty())
        throw Error(ErrorCategory::Connection, u"Η σύνδεση δεν λέει ποιο αρχείο να ανοίξει."_s);
    return settings;
}

QVariant storedForm(const QVariant& value) {
    switch (value.typeId()) {
        case QMetaType::QDateTime:
            return value.toDateTime().isValid() ? QVariant(dateToSeconds(value.toDateTime())) : QVariant();
        case QMetaType::QDate:
            return value.toDate().isValid() ? QVariant(dateToSeconds(wallClock(value.toDate()))) : QVariant();
        case QMetaType::QTime:
            return dateToSeconds(wallClock(QDate(1899, 12, 30), value.toTime()));
        case QMetaType::Bool:
            return qint64(value.toBool());
        default:
            return value;
    }
}

std::unique_ptr<Engine> openEngine(const OpenSettings& settings) {
    if (identifyFile(settings.file).kind == FileKind::ServerDescription)
        return std::make_unique<postgres::PgEngine>(readServerDescription(settings.file), settings);
    return std::make_unique<sqlite::SqliteEngine>(settings);
}

}  // namespace

struct Connection::Private {
    std::unique_ptr<Engine> engine;
    Catalog catalog;
    std::unique_ptr<dialect::Translator> translator;
    QString connectionString;
};

Connection::Connection() : d(std::make_unique<Private>()) {}
Connection::~Connection() = default;

void Connection::open(const QString& connectionString) {
    close();
    std::unique_ptr<Engine> engine = openEngine(settingsFrom(connectionString));
    d->catalog = engine->readCatalog();
    d->translator = std::make_unique<dialect::Translator>(d->catalog, engine->dialect(), sqlite::sqliteParserLimit());
    d->engine = std::move(engine);
    d->connectionString = connectionString;
}

void Connection::close() noexcept {
    d->translator.reset();
    d->engine.reset();
    d->catalog.clear();
}

bool Connection::isOpen() const {
    return d->engine != nullptr;
}

const QString& Connection::connectionString() const {
    return d->connectionString;
}

Engine& Connection::engine() {
    if (!d->engine) throw Error(ErrorCategory::Connection, u"Η σύνδεση με τη βάση δεδομένων είναι κλειστή."_s);
    return *d->engine;
}

const Catalog& Connection::catalog() const {
    return d->catalog;
}

void Connection::reloadCatalog() {
    d->catalog = engine().readCatalog();
    d->translator->clear();
}

std::shared_ptr<const dialect::Translation> Connection::translate(const QString& sql, const OpenOptions& options) {
    engine();
    dialect::DialectOptions dialect;
    dialect.parameters = options.parameters.keys();
    if (options.userComposed) {
        dialect.dateOrder = DateOrder::DayFirst;
        dialect.decimalComma = true;
        dialect.selectOnly = true;
    }
    try {
        return d->translator->translate(sql, dialect);
    } catch (const Error& error) {
        throw error.withStatement(sql);
    }
}

AccessPath Connection::accessPath(const QString& sql, const OpenOptions& options) {
    const auto translation = translate(sql, options);
    if (translation->probe.isEmpty()) return AccessPath::Period;
    try {
        const bool few = engine().query(translation->probe, {}, nullptr) <= dialect::Translation::probeLimit;
        return few ? AccessPath::WordIndex : AccessPath::Period;
    } catch (const Error& error) {
        throw error.withStatement(sql);
    }
}

QByteArray Connection::indexedExpression(const QString& table, const QString& expression) {
    engine();
    return d->translator->expression(table, expression);
}

qint64 Connection::execute(const QString& sql, const Parameters& parameters) {
    const auto translation = translate(sql, {parameters, false});
    const QVector<QVariant> values = parameterValues(*translation, parameters);
    try {
        if (translation->kind == dialect::StatementKind::Select) {
            engine().query(translation->sql, values, nullptr);
            return 0;
        }
        return engine().execute(translation->sql, values).affected;
    } catch (const Error& error) {
        throw error.withStatement(sql);
    }
}

QVector<QVariant> parameterValues(const dialect::Translation& translation, const Parameters& given) {
    QVector<QVariant> values;
    for (const QString& wanted : translation.parameters) {
        const QString key = nameKey(wanted);
        const auto it =
            std::find_if(given.keyBegin(), given.keyEnd(), [&](const QString& name) { return nameKey(name) == key; });
        if (it == given.keyEnd()) {
            throw Error(ErrorCategory::Parameter, u"Δεν δόθηκε τιμή για την παράμετρο «%1»."_s.arg(wanted));
        }
        values.append(storedForm(*it.base()));
    }
    return values;
}

Transaction::Transaction(Connection& connection) : engine_(&connection.engine()) {
    engine_->begin();
}

Transaction::~Transaction() {
    if (engine_) engine_->rollback();
}

void Transaction::commit() {
    engine_->commit();
    engine_ = nullptr;
}

}  // namespace data
