#include "dialectdatabase.h"

#include "data/dialect/enginedialect.h"
#include "data/opening/fileidentity.h"
#include "data/sqlite/sqliteengine.h"
#include "data/sqlite/sqliteparserlimit.h"
#include "data/values/format.h"

using namespace Qt::Literals::StringLiterals;

using namespace data;

namespace {

// Letters of the types: a autonumber, l long, i integer, f single, d double, t text, m memo, y yes/no, D date,
// b binary; a number behind t is its width, a range "x1..3" three columns.
constexpr const char16_t* tables[] = {
    u"Cards: code a, codefull t, επωνυμο t30, ονομα t30, πατρονυμο t, category i, ΗΜ_ΓΕΝΗΣΗΣ D, ΤΟΠΟΣ_ΓΕΝΗΣΗΣ t, "
    u"ΗΜ_ΕΟΡΤΗΣ D, KEIM_ΕΟΡΤΗΣ t, επαγγελμα t30, διευθυνση t30, περιοχη t30, ταχ_κωδ t10, πολη t30, τηλεφωνο1..4 t30, "
    u"ΚΙΝΗΤΟ t30, FAX t30, email t40, URL t40, ΑΝΔΡΑΣ y, σχολια m, εταιρια t30, ΔΙΕΥΘΥΝΣΗ_ΕΡΓΑΣΙΑΣ t30, ΣΥΣΤΑΣΗ t, "
    u"ΣΧΟΛΙΑ1 m, FIELdchar1..10 t, FIELdnum1..6 d, FIELddate1..4 D, ΤΕΛΕΥΤΑΙΑ_ΚΙΝΗΣΗ D, ΣΥΧΝΟΤΗΤΑ_ΚΙΝΗΣΗΣ d, "
    u"ΠΟΣΟ_ΚΙΝΗΣΗΣ d, ΚΕΙΜΕΝΟ1..6 m, FieldYes1..8 y, FieldCombo1..4 t, Photo b, total d, OutlookEntryID t, afm t, doy "
    u"t",
    u"CardKategory: Code a, Description t, payable y",
    u"CustomFields: id l, FIELdchar1..10 t, FIELdnum1..6 t, FIELddate1..4 t, fnph5 t, fc1..10 y, fn1..6 y, fd1..4 y, "
    u"FIELdcharh1..2 t, fch1..2 y, FieldNumh1..4 t, fnh1..4 y, Memo1..6 t, FieldYes1..8 t, fy1..8 y, FieldCombo1..4 t, "
    u"fcb1..4 y",
    u"History: aa a, codecards l, ΗΜΕΡΟΜΗΝΙΑ D, ΑΙΤΙΟΛΟΓΙΑ t, ΧΡΕΩΣΗ d, ΠΙΣΤΩΣΗ d, s1..2 t, n1..4 d, notes m, Photo b",
    u"Links: aa a, codecards l, ΠΕΡΙΓΡΑΦΗ t, ΣΥΝΔΕΣΗ t",
    u"Dates: aa a, codecard l, contact t, Subject t, Location t, Day D, Start D, End D, Remind D, notes m, User t, "
    u"Entoleas t",
    u"ThinksToDo: aa a, Subject t, Priority t, notes m, User t, Entoleas t",
    u"Calls: aa a, ΗΜΕΡΟΜΗΝΙΑ D, ΩΡΑ t, ΟΝΟΜΑ t, ΤΗΛΕΦΩΝΟ t, CODECARD l",
    u"ToBeDeleted: EntryID t",
    u"QueryHead: aaQuery a, perigrafh t",
    u"QueryFields: codeQuery l, selectedfield t",
    u"QueryWhere: codeQuery l, queryWhere1..6 t",
    u"Combo1: code a, Description t",
    u"Combo2: code a, Description t",
    u"Combo3: code a, Description t",
    u"Combo4: code a, Description t",
    u"Options: aa l",
    u"NameDay: ONOMA t, HMERA D",
    u"Farmaka: name t, company t, use t, ousia t",
    u"MEDRA: Προτιμώμενος Όρος (PT) _κωδικός t, Preferred Term (PT)_ name t, Προτιμώμενος Όρος (PT)_ ονομασία t, "
    u"Κατηγορία/Οργανικό Σύστημα (SOC)_   κωδικός t, System Organ Class (SOC)_ name t, "
    u"Κατηγορία/Οργανικό Σύστημα (SOC)_ονομασία t",
    u"Users: aa a, UserName t, Password t, Group f",
    u"Groups: code l, name t",
    u"Admin: Pass t",
};

void addColumns(TableInfo& table, const QString& text) {
    static const QHash<QChar, ColumnType> types = {{u'a', ColumnType::Autonumber}, {u'l', ColumnType::Long},
                                                   {u'i', ColumnType::Integer},    {u'f', ColumnType::Single},
                                                   {u'd', ColumnType::Double},     {u't', ColumnType::Text},
                                                   {u'm', ColumnType::Memo},       {u'y', ColumnType::YesNo},
                                                   {u'D', ColumnType::DateTime},   {u'b', ColumnType::LongBinary}};
    const qsizetype blank = text.lastIndexOf(u' ');
    const QString letters = text.mid(blank + 1);
    ColumnInfo column;
    column.type = types.value(letters[0]);
    if (column.type == ColumnType::Text) column.size = letters.size() > 1 ? letters.mid(1).toInt() : 255;
    const QString name = text.left(blank);
    const qsizetype dots = name.indexOf(u"..");
    const int first = dots < 0 ? 0 : name.mid(dots - 1, 1).toInt();
    const int last = dots < 0 ? 0 : name.mid(dots + 2).toInt();
    for (int i = first; i <= last; ++i) {
        column.name = dots < 0 ? name : name.left(dots - 1) + QString::number(i);
        if (column.type == ColumnType::Autonumber) table.autonumber = int(table.columns.size());
        table.columns.append(column);
    }
}

}  // namespace

Catalog officeCatalog() {
    Catalog catalog;
    for (const char16_t* line : tables) {
        const QString text = QString::fromUtf16(line);
        TableInfo table;
        table.name = text.section(u':', 0, 0);
        for (const QString& column : text.section(u':', 1).trimmed().split(u", "_s)) addColumns(table, column);
        catalog.add(table);
    }
    return catalog;
}

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
    const Catalog wanted = officeCatalog();
    for (const TableInfo& table : wanted.tables())
        engine_->script(dialect().createTable(table, table.name == u"Groups" ? u"code"_s : QString()));
    engine_->commit();
    catalog_ = engine_->readCatalog();
    translator_ = std::make_unique<dialect::Translator>(catalog_, dialect(), sqlite::sqliteParserLimit());
}

DialectDatabase::~DialectDatabase() = default;

const dialect::EngineDialect& DialectDatabase::dialect() const {
    return engine_->dialect();
}

void DialectDatabase::engine(const QByteArray& sql) {
    engine_->script(sql);
}

void DialectDatabase::empty() {
    QByteArray sql = testengine::isPostgres() ? "" : "DELETE FROM sqlite_sequence;";
    for (const TableInfo& table : catalog_.tables()) {
        const QByteArray name = dialect().identifier(table.name);
        sql += testengine::isPostgres() ? "TRUNCATE " + name + " RESTART IDENTITY;" : "DELETE FROM " + name + ';';
    }
    engine_->begin();
    engine_->script(sql);
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

QString DialectDatabase::run(const QString& sql, const dialect::DialectOptions& options,
                             const QMap<QString, QVariant>& parameters) {
    dialect::DialectOptions all = options;
    all.parameters += parameters.keys();
    const auto translation = translator_->translate(sql, all);
    QVector<QVariant> values;
    for (const QString& name : translation->parameters) values << parameters.value(name.toLower());
    if (translation->kind != dialect::StatementKind::Select)
        return QString::number(engine_->execute(translation->sql, values).affected);
    Cells cells(translation->columns);
    engine_->query(translation->sql, values, &cells);
    return cells.rows().join(u" / "_s);
}

QString DialectDatabase::plan(const QString& sql) {
    const QByteArray explain = testengine::isPostgres() ? "EXPLAIN " : "EXPLAIN QUERY PLAN ";
    const QVector<dialect::OutputColumn> all(9);
    Cells cells(all);
    engine_->query(explain + translator_->translate(sql)->sql, {}, &cells);
    return cells.rows().join(u"; "_s);
}
