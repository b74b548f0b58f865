#include "data/sqlite/sqliteparserlimit.h"
#include "dialectdatabase.h"

#include "data/dialect/enginedialect.h"
#include "data/opening/fileidentity.h"
#include "data/sqlite/sqliteengine.h"
#include "schema/tables.h"

using namespace Qt::Literals::StringLiterals;

using namespace data;

// Rows as a user reads them.
class Cells : public RowSink {
public:
    explicit Cells(const QVector<dialect::OutputColumn>& columns) : columns_(columns) {}
    QStringList rows() const {
        QStringList rows;
        for (const QStringList& row : rows_) rows << row.first(qMin(row.size(), columns_.size())).join(u'|');
        return rows;
    }

    void beginRow() override { rows_ << QStringList(); }
    void null() override { add(u"-"_s); }
    void integer(qint64 value) override {
        const qsizetype at = rows_.last().size();
        const ColumnType type = at < columns_.size() ? columns_[at].type : ColumnType::Long;
        if (type == ColumnType::DateTime)
            add(valueText(secondsToDate(value)));
        else
            add(type == ColumnType::YesNo ? valueText(value != 0) : QString::number(value));
    }
    void real(double value) override { add(valueText(value)); }
    void text(const char* utf8, qsizetype size) override { add(QString::fromUtf8(utf8, size)); }
    void blob(const char* bytes, qsizetype size) override { add(QString::fromUtf8(bytes, size)); }

private:
    void add(const QString& cell) { rows_.last() << cell; }

    const QVector<dialect::OutputColumn>& columns_;
    QVector<QStringList> rows_;
};

DialectDatabase::DialectDatabase(Engine engine) {
    if (engine == Engine::OfTheRun && testengine::isPostgres()) {
        schema_ = std::make_unique<testengine::Schema>();
        engine_ = std::make_unique<postgres::PgEngine>(schema_->description(), OpenSettings());
    } else {
        const QString file = folder_.filePath(u"dorvalist.mdb"_s);
        sqlite::createSqliteFile(file, mainApplicationId);
        engine_ = std::make_unique<sqlite::SqliteEngine>(OpenSettings{file, {}, false, 5000});
    }
    engine_->begin();
    for (const schema::Database database : schema::allDatabases)
        for (const schema::Table& table : schema::tables(database))
            engine_->script(dialect().createTable(schema::tableInfo(table), table.key));
    engine_->commit();
    catalog_ = engine_->readCatalog();
    translator_ = std::make_unique<dialect::Translator>(catalog_, dialect(), sqlite::sqliteParserLimit());
}

DialectDatabase::~DialectDatabase() = default;

const dialect::EngineDialect& DialectDatabase::dialect() const {
    return engine_->dialect();
}

void DialectDatabase::engine(const QByteArray& dialect::sql) {
    engine_->script(dialect::sql);
}

void DialectDatabase::empty() {
    QByteArray dialect::sql = testengine::isPostgres() ? "" : "DELETE FROM sqlite_sequence;";
    for (const TableInfo& table : catalog_.tables()) {
        const QByteArray name = dialect().identifier(table.name);
        dialect::sql += testengine::isPostgres() ? "TRUNCATE " + name + " RESTART IDENTITY;" : "DELETE FROM " + name + ';';
    }
    engine_->begin();
    engine_->script(dialect::sql);
    engine_->commit();
}

void DialectDatabase::prepare(const dialect::Translation& translation) {
    // Values make no difference to a plan.
    const QVector<QVariant> values(translation.parameters.size());
    if (translation.kind == dialect::StatementKind::Select)
        engine_->query("EXPLAIN " + translation.sql, values, nullptr);
    else
        engine_->execute("EXPLAIN " + translation.sql, values);
}

QString DialectDatabase::run(const QString& dialect::sql, const dialect::DialectOptions& options,
                             const QMap<QString, QVariant>& parameters) {
    dialect::DialectOptions all = options;
    all.parameters += parameters.keys();
    const auto translation = translator_->translate(dialect::sql, all);
    QVector<QVariant> values;
    for (const QString& name : translation->parameters) values << parameters.value(name.toLower());
    if (translation->kind != dialect::StatementKind::Select)
        return QString::number(engine_->execute(translation->dialect::sql, values).affected);
    Cells cells(translation->columns);
    engine_->query(translation->dialect::sql, values, &cells);
    return cells.rows().join(u" / "_s);
}

QString DialectDatabase::plan(const QString& dialect::sql) {
    const QByteArray explain = testengine::isPostgres() ? "EXPLAIN " : "EXPLAIN QUERY PLAN ";
    const QVector<dialect::OutputColumn> all(9);
    Cells cells(all);
    engine_->query(explain + translator_->translate(dialect::sql)->dialect::sql, {}, &cells);
    return cells.rows().join(u"; "_s);
}
