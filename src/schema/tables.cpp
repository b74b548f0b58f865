#include "schema/tables.h"

namespace schema {
namespace {

using namespace Qt::Literals::StringLiterals;
using data::ColumnType;

constexpr int defaultTextSize = 255;
constexpr int shortTextSize = 30;  // names, addresses, telephones
constexpr int addressSize = 40;    // e-mail and web addresses
constexpr int postalCodeSize = 10;

Column column(const QString& name, ColumnType type) {
    return {name, type, type == ColumnType::Text ? defaultTextSize : 0};
}
Column text(const QString& name, int size = defaultTextSize) {
    return {name, ColumnType::Text, size};
}
Column memo(const QString& name) {
    return column(name, ColumnType::Memo);
}
Column flag(const QString& name) {
    return column(name, ColumnType::YesNo);
}
Column date(const QString& name) {
    return column(name, ColumnType::DateTime);
}
Column real(const QString& name) {
    return column(name, ColumnType::Double);
}
Column whole(const QString& name) {
    return column(name, ColumnType::Long);
}
Column autonumber(const QString& name) {
    return column(name, ColumnType::Autonumber);
}

// prefix1 .. prefixN
QStringList names(const QString& prefix, int count) {
    QStringList all;
    for (int i = 1; i <= count; ++i) all += prefix + QString::number(i);
    return all;
}
QVector<Column> numbered(const QString& prefix, int count, ColumnType type) {
    QVector<Column> columns;
    for (const QString& name : names(prefix, count)) columns += column(name, type);
    return columns;
}
QStringList names(const QVector<Column>& columns) {
    QStringList all;
    for (const Column& column : columns) all += column.name;
    return all;
}

QVector<Column> join(std::initializer_list<QVector<Column>> groups) {
    QVector<Column> all;
    for (const auto& group : groups) all += group;
    return all;
}

// Every column that the card search compares from its start is indexed, since one that isn't makes the
// whole OR walk the table.
Table cards() {
    return {
        u"Cards"_s,
        join({
            {autonumber(u"code"_s),
             text(u"codefull"_s),
             text(u"επωνυμο"_s, shortTextSize),
             text(u"ονομα"_s, shortTextSize),
             text(u"πατρονυμο"_s),
             column(u"category"_s, ColumnType::Integer),
             date(u"ΗΜ_ΓΕΝΗΣΗΣ"_s),
             text(u"ΤΟΠΟΣ_ΓΕΝΗΣΗΣ"_s),
             date(u"ΗΜ_ΕΟΡΤΗΣ"_s),
             text(u"KEIM_ΕΟΡΤΗΣ"_s),
             text(u"επαγγελμα"_s, shortTextSize),
             text(u"διευθυνση"_s, shortTextSize),
             text(u"περιοχη"_s, shortTextSize),
             text(u"ταχ_κωδ"_s, postalCodeSize),
             text(u"πολη"_s, shortTextSize),
             text(u"τηλεφωνο1"_s, shortTextSize),
             text(u"τηλεφωνο2"_s, shortTextSize),
             text(u"τηλεφωνο3"_s, shortTextSize),
             text(u"τηλεφωνο4"_s, shortTextSize),
             text(u"ΚΙΝΗΤΟ"_s, shortTextSize),
             text(u"FAX"_s, shortTextSize),
             text(u"email"_s, addressSize),
             text(u"URL"_s, addressSize),
             flag(u"ΑΝΔΡΑΣ"_s),
             memo(u"σχολια"_s),
             text(u"εταιρια"_s, shortTextSize),
             text(u"ΔΙΕΥΘΥΝΣΗ_ΕΡΓΑΣΙΑΣ"_s, shortTextSize),
             text(u"ΣΥΣΤΑΣΗ"_s),
             memo(u"ΣΧΟΛΙΑ1"_s)},
            numbered(u"FIELdchar"_s, 10, ColumnType::Text),
            numbered(u"FIELdnum"_s, 6, ColumnType::Double),
            numbered(u"FIELddate"_s, 4, ColumnType::DateTime),
            {date(u"ΤΕΛΕΥΤΑΙΑ_ΚΙΝΗΣΗ"_s), real(u"ΣΥΧΝΟΤΗΤΑ_ΚΙΝΗΣΗΣ"_s), real(u"ΠΟΣΟ_ΚΙΝΗΣΗΣ"_s)},
            numbered(u"ΚΕΙΜΕΝΟ"_s, 6, ColumnType::Memo),
            numbered(u"FieldYes"_s, 8, ColumnType::YesNo),
            numbered(u"FieldCombo"_s, 4, ColumnType::Text),
            {column(u"Photo"_s, ColumnType::LongBinary), real(u"total"_s), text(u"OutlookEntryID"_s), text(u"afm"_s),
             text(u"doy"_s)},
        }),
        {
            {u"Cards_surname"_s, {u"επωνυμο"_s}, {u"επωνυμο"_s, u"OutlookEntryID"_s}, 1, 1},
            // The card window reads code and OutlookEntryID of every card in this order each time it opens.
            {u"Cards_order"_s, {u"επωνυμο"_s, u"code"_s}, {u"επωνυμο"_s, u"OutlookEntryID"_s}, 2},
            // A narrow copy of the card for the lists, which would read past long texts otherwise.
            {u"Cards_list"_s,
             {u"επωνυμο"_s, u"code"_s},
             {u"επωνυμο"_s, u"ονομα"_s, u"εταιρια"_s, u"διευθυνση"_s, u"τηλεφωνο1"_s, u"ΚΙΝΗΤΟ"_s, u"email"_s,
              u"category"_s, u"πολη"_s, u"περιοχη"_s, u"επαγγελμα"_s, u"total"_s},
             2},
            // When a card's next visit falls due, with all that its lists show; who has a birthday or a name day.
            {u"Cards_due"_s, {u"dateadd('d',ΣΥΧΝΟΤΗΤΑ_ΚΙΝΗΣΗΣ,ΤΕΛΕΥΤΑΙΑ_ΚΙΝΗΣΗ)"_s}, {}, 2, 2},
            {u"Cards_due"_s,
             {u"dateadd('d',ΣΥΧΝΟΤΗΤΑ_ΚΙΝΗΣΗΣ,ΤΕΛΕΥΤΑΙΑ_ΚΙΝΗΣΗ)"_s, u"code"_s},
             {u"ΣΥΧΝΟΤΗΤΑ_ΚΙΝΗΣΗΣ"_s, u"ΤΕΛΕΥΤΑΙΑ_ΚΙΝΗΣΗ"_s, u"επωνυμο"_s, u"ονομα"_s, u"εταιρια"_s, u"ΠΟΣΟ_ΚΙΝΗΣΗΣ"_s},
             3},
            {u"Cards_birthday"_s, {u"month(ΗΜ_ΓΕΝΗΣΗΣ)"_s, u"day(ΗΜ_ΓΕΝΗΣΗΣ)"_s}, {}, 2},
            // A number is found however it was written.
            {u"Cards_number1"_s, {u"phonekey(τηλεφωνο1)"_s}, {}, 2},
            {u"Cards_number2"_s, {u"phonekey(τηλεφωνο2)"_s}, {}, 2},
            {u"Cards_number3"_s, {u"phonekey(τηλεφωνο3)"_s}, {}, 2},
            {u"Cards_number4"_s, {u"phonekey(τηλεφωνο4)"_s}, {}, 2},
            {u"Cards_number5"_s, {u"phonekey(ΚΙΝΗΤΟ)"_s}, {}, 2},
            {u"Cards_nameday"_s, {u"month(ΗΜ_ΕΟΡΤΗΣ)"_s, u"day(ΗΜ_ΕΟΡΤΗΣ)"_s}, {}, 2},
            {u"Cards_name"_s, {u"ονομα"_s}},
            {u"Cards_company"_s, {u"εταιρια"_s}},
            {u"Cards_phone1"_s, {u"τηλεφωνο1"_s}},
            {u"Cards_phone2"_s, {u"τηλεφωνο2"_s}},
            {u"Cards_phone3"_s, {u"τηλεφωνο3"_s}},
            {u"Cards_phone4"_s, {u"τηλεφωνο4"_s}},
            {u"Cards_mobile"_s, {u"ΚΙΝΗΤΟ"_s}},
            {u"Cards_email"_s, {u"email"_s}},
            // The quick selection offers every town and district that there is.
            {u"Cards_town"_s, {u"πολη"_s}, {u"πολη"_s}},
            {u"Cards_district"_s, {u"περιοχη"_s}, {u"περιοχη"_s}},
            {u"Cards_outlook"_s, {u"OutlookEntryID"_s}},
        },
        u"code"_s,
        {names(u"ΚΕΙΜΕΝΟ"_s, 6)},
    };
}

// The order is what "INSERT into CustomFields VALUES" fills by position.
Table customFields() {
    return {
        u"CustomFields"_s,
        join({
            {whole(u"id"_s)},
            numbered(u"FIELdchar"_s, 10, ColumnType::Text),
            numbered(u"FIELdnum"_s, 6, ColumnType::Text),
            numbered(u"FIELddate"_s, 4, ColumnType::Text),
            {text(u"fnph5"_s)},
            numbered(u"fc"_s, 10, ColumnType::YesNo),
            numbered(u"fn"_s, 6, ColumnType::YesNo),
            numbered(u"fd"_s, 4, ColumnType::YesNo),
            numbered(u"FIELdcharh"_s, 2, ColumnType::Text),
            numbered(u"fch"_s, 2, ColumnType::YesNo),
            numbered(u"FieldNumh"_s, 4, ColumnType::Text),
            numbered(u"fnh"_s, 4, ColumnType::YesNo),
            numbered(u"Memo"_s, 6, ColumnType::Text),
            numbered(u"FieldYes"_s, 8, ColumnType::Text),
            numbered(u"fy"_s, 8, ColumnType::YesNo),
            numbered(u"FieldCombo"_s, 4, ColumnType::Text),
            numbered(u"fcb"_s, 4, ColumnType::YesNo),
        }),
        {},
        {},
    };
}

Table lookupList(int number) {
    return {u"Combo"_s + QString::number(number), {autonumber(u"code"_s), text(u"Description"_s)}, {}, u"code"_s};
}

QVector<Table> moneyAndLinks() {
    return {
        {u"History"_s,
         join({{autonumber(u"aa"_s), whole(u"codecards"_s), date(u"ΗΜΕΡΟΜΗΝΙΑ"_s), text(u"ΑΙΤΙΟΛΟΓΙΑ"_s),
                real(u"ΧΡΕΩΣΗ"_s), real(u"ΠΙΣΤΩΣΗ"_s)},
               numbered(u"s"_s, 2, ColumnType::Text),
               numbered(u"n"_s, 4, ColumnType::Double),
               {memo(u"notes"_s), column(u"Photo"_s, ColumnType::LongBinary)}}),
         {{u"History_card"_s, {u"codecards"_s, u"ΗΜΕΡΟΜΗΝΙΑ"_s}}, {u"History_day"_s, {u"ΗΜΕΡΟΜΗΝΙΑ"_s}}},
         u"aa"_s,
         {{u"ΑΙΤΙΟΛΟΓΙΑ"_s}}},
        {u"Links"_s,
         {autonumber(u"aa"_s), whole(u"codecards"_s), text(u"ΠΕΡΙΓΡΑΦΗ"_s), text(u"ΣΥΝΔΕΣΗ"_s)},
         {{u"Links_card"_s, {u"codecards"_s, u"ΠΕΡΙΓΡΑΦΗ"_s}}},
         u"aa"_s},
    };
}

QVector<Table> diary() {
    return {
        {u"Dates"_s,
         {autonumber(u"aa"_s), whole(u"codecard"_s), text(u"contact"_s), text(u"Subject"_s), text(u"Location"_s),
          date(u"Day"_s), date(u"Start"_s), date(u"End"_s), date(u"Remind"_s), memo(u"notes"_s), text(u"User"_s),
          text(u"Entoleas"_s)},
         {{u"Dates_day"_s, {u"Day"_s, u"Start"_s}}, {u"Dates_card"_s, {u"codecard"_s}}},
         u"aa"_s},
        {u"ThinksToDo"_s,
         {autonumber(u"aa"_s), text(u"Subject"_s), text(u"Priority"_s), memo(u"notes"_s), text(u"User"_s),
          text(u"Entoleas"_s)},
         {},
         u"aa"_s},
        {u"Calls"_s,
         {autonumber(u"aa"_s), date(u"ΗΜΕΡΟΜΗΝΙΑ"_s), text(u"ΩΡΑ"_s), text(u"ΟΝΟΜΑ"_s), text(u"ΤΗΛΕΦΩΝΟ"_s),
          whole(u"CODECARD"_s)},
         {{u"Calls_day"_s, {u"ΗΜΕΡΟΜΗΝΙΑ"_s}}, {u"Calls_name"_s, {u"ΟΝΟΜΑ"_s}}},
         u"aa"_s},
    };
}

QVector<Table> savedQueries() {
    return {
        {u"QueryHead"_s, {autonumber(u"aaQuery"_s), text(u"perigrafh"_s)}, {}, u"aaQuery"_s},
        {u"QueryFields"_s, {whole(u"codeQuery"_s), text(u"selectedfield"_s)}, {}, {}},
        {u"QueryWhere"_s, join({{whole(u"codeQuery"_s)}, numbered(u"queryWhere"_s, 6, ColumnType::Text)}), {}, {}},
    };
}

QVector<Table> referenceTables() {
    const QVector<Column> medicines = {text(u"name"_s), text(u"company"_s), text(u"use"_s), text(u"ousia"_s)};
    const QVector<Column> terms = {
        text(u"Προτιμώμενος Όρος (PT) _κωδικός"_s),  text(u"Preferred Term (PT)_ name"_s),
        text(u"Προτιμώμενος Όρος (PT)_ ονομασία"_s), text(u"Κατηγορία/Οργανικό Σύστημα (SOC)_   κωδικός"_s),
        text(u"System Organ Class (SOC)_ name"_s),   text(u"Κατηγορία/Οργανικό Σύστημα (SOC)_ονομασία"_s)};
    return {
        {u"NameDay"_s, {text(u"ONOMA"_s), date(u"HMERA"_s)}, {}, {}},
        {u"Farmaka"_s, medicines, {}, {}, {names(medicines)}},
        {u"MEDRA"_s, terms, {}, {}, {names(terms)}},
    };
}

QVector<Table> mainTables() {
    QVector<Table> all = {
        cards(),
        {u"CardKategory"_s, {autonumber(u"Code"_s), text(u"Description"_s), flag(u"payable"_s)}, {}, u"Code"_s},
        customFields(),
    };
    all += moneyAndLinks();
    all += diary();
    all += Table{u"ToBeDeleted"_s, {text(u"EntryID"_s)}, {}, {}};
    all += savedQueries();
    for (int list = 1; list <= 4; ++list) all += lookupList(list);
    all += Table{u"Options"_s, {whole(u"aa"_s)}, {}, {}};
    return all + referenceTables();
}

QVector<Table> usersTables() {
    return {
        {u"Users"_s,
         {autonumber(u"aa"_s), text(u"UserName"_s), text(u"Password"_s), column(u"Group"_s, ColumnType::Single)},
         {},
         u"aa"_s},
        {u"Groups"_s, {whole(u"code"_s), text(u"name"_s)}, {}, u"code"_s},
        {u"Admin"_s, {text(u"Pass"_s)}, {}, {}},
    };
}

}  // namespace

const QVector<Table>& tables(Database database) {
    static const QVector<Table> main = mainTables();
    static const QVector<Table> users = usersTables();
    return database == Database::Main ? main : users;
}

const Table* findTable(Database database, QStringView name) {
    for (const Table& table : tables(database))
        if (data::nameKey(table.name) == data::nameKey(name)) return &table;
    return nullptr;
}

data::TableInfo tableInfo(const Table& table) {
    data::TableInfo info;
    info.name = table.name;
    for (const Column& column : table.columns) {
        if (column.type == ColumnType::Autonumber) info.autonumber = int(info.columns.size());
        info.columns += data::ColumnInfo{column.name, column.type, column.size};
    }
    return info;
}

}  // namespace schema
