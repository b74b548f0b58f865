#include "dialectdatabase.h"

#include <stdexcept>

#include "data/sqlite/functions.h"
#include "data/sqlite/sqlitedialect.h"

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
        table.rowIdentity = QStringLiteral("rowid");
        for (const QString& column : text.section(u':', 1).trimmed().split(QStringLiteral(", ")))
            addColumns(table, column);
        catalog.add(table);
    }
    return catalog;
}

DialectDatabase::DialectDatabase() : catalog_(officeCatalog()) {
    sqlite3_open(":memory:", &database_);
    registerFunctions(database_);
    for (const TableInfo& table : catalog_.tables())
        engine(sqliteDialect().createTable(table, table.name == u"Groups" ? QStringLiteral("code") : QString()));
    translator_ = std::make_unique<Translator>(catalog_, sqliteDialect());
}

DialectDatabase::~DialectDatabase() {
    sqlite3_close(database_);
}

void DialectDatabase::fail(const QByteArray& sql) {
    throw std::runtime_error(sqlite3_errmsg(database_) + std::string(" in ") + sql.toStdString());
}

void DialectDatabase::engine(const QByteArray& sql) {
    if (sqlite3_exec(database_, sql.constData(), nullptr, nullptr, nullptr) != SQLITE_OK) fail(sql);
}

void DialectDatabase::prepare(const Translation& translation) {
    sqlite3_stmt* statement = nullptr;
    const int code =
        sqlite3_prepare_v2(database_, translation.sql.constData(), int(translation.sql.size()), &statement, nullptr);
    sqlite3_finalize(statement);
    if (code != SQLITE_OK) fail(translation.sql);
}

QString DialectDatabase::cell(sqlite3_stmt* statement, int index, ColumnType type) {
    switch (sqlite3_column_type(statement, index)) {
        case SQLITE_NULL:
            return QStringLiteral("-");
        case SQLITE_INTEGER: {
            const qint64 value = sqlite3_column_int64(statement, index);
            if (type == ColumnType::DateTime) return valueText(secondsToDate(value));
            if (type == ColumnType::YesNo) return valueText(value != 0);
            return QString::number(value);
        }
        case SQLITE_FLOAT:
            return valueText(sqlite3_column_double(statement, index));
        default:
            return QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(statement, index)));
    }
}

static void bind(sqlite3_stmt* statement, int number, const QVariant& value) {
    if (value.typeId() == QMetaType::QString) {
        const QByteArray text = value.toString().toUtf8();
        sqlite3_bind_text(statement, number, text.constData(), int(text.size()), SQLITE_TRANSIENT);
    } else if (value.typeId() == QMetaType::QDateTime) {
        sqlite3_bind_int64(statement, number, dateToSeconds(value.toDateTime()));
    } else if (value.typeId() == QMetaType::Double) {
        sqlite3_bind_double(statement, number, value.toDouble());
    } else if (value.isValid()) {
        sqlite3_bind_int64(statement, number, value.toLongLong());
    }
}

QString DialectDatabase::run(const QString& sql, const DialectOptions& options,
                             const QMap<QString, QVariant>& parameters) {
    DialectOptions all = options;
    all.parameters += parameters.keys();
    const auto translation = translator_->translate(sql, all);
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(database_, translation->sql.constData(), -1, &statement, nullptr) != SQLITE_OK)
        fail(translation->sql);
    for (qsizetype i = 0; i < translation->parameters.size(); ++i)
        bind(statement, int(i) + 1, parameters.value(translation->parameters[i].toLower()));
    QStringList rows;
    int code = sqlite3_step(statement);
    for (; code == SQLITE_ROW; code = sqlite3_step(statement)) {
        QStringList cells;
        for (int i = 0; i < translation->columns.size(); ++i) cells << cell(statement, i, translation->columns[i].type);
        rows << cells.join(u'|');
    }
    sqlite3_finalize(statement);
    if (code != SQLITE_DONE) fail(translation->sql);
    return translation->kind == StatementKind::Select ? rows.join(QStringLiteral(" / "))
                                                      : QString::number(sqlite3_changes(database_));
}

QString DialectDatabase::plan(const QString& sql) {
    const QByteArray explain = "EXPLAIN QUERY PLAN " + translator_->translate(sql)->sql;
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(database_, explain.constData(), -1, &statement, nullptr) != SQLITE_OK) fail(explain);
    QStringList steps;
    while (sqlite3_step(statement) == SQLITE_ROW)
        steps << QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(statement, 3)));
    sqlite3_finalize(statement);
    return steps.join(QStringLiteral("; "));
}

QVector<ColumnInfo> DialectDatabase::declaredColumns(const QString& table) {
    const QByteArray sql = "SELECT name, type, pk FROM pragma_table_info('" + table.toUtf8() + "') ORDER BY cid";
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(database_, sql.constData(), -1, &statement, nullptr) != SQLITE_OK) fail(sql);
    QVector<ColumnInfo> columns;
    while (sqlite3_step(statement) == SQLITE_ROW) {
        const auto text = [&](int i) {
            return QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(statement, i)));
        };
        columns << columnFromDeclaration(text(0), text(1), sqlite3_column_int(statement, 2) > 0);
    }
    sqlite3_finalize(statement);
    return columns;
}
