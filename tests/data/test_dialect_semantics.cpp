// What translated statements answer on a small filled database.
#include <QtTest/QtTest>

#include "data/dialect/enginedialect.h"
#include "data/error.h"
#include "dialectdatabase.h"

using namespace Qt::Literals::StringLiterals;

using namespace data;

namespace {

// The rows that most cases speak of.
constexpr const char16_t* filling[] = {
    u"INSERT INTO CardKategory VALUES (1, 'ΕΠΑΦΕΣ', 1)",
    u"INSERT INTO CardKategory VALUES (2, 'Πελάτες', 0)",
    u"INSERT INTO Cards (code, επωνυμο, ονομα, category, πολη, ταχ_κωδ, total, FieldYes1, ΗΜ_ΓΕΝΗΣΗΣ, τηλεφωνο1) "
    u"VALUES (1, 'Παπαδόπουλος', 'Γιάννης', 1, 'Αθήνα', '11141', '5,5', 1, '29/2/1972', '2101234567')",
    u"INSERT INTO Cards (code, επωνυμο, ονομα, category, πολη, ταχ_κωδ, total, FieldYes1, ΗΜ_ΓΕΝΗΣΗΣ) "
    u"VALUES (2, 'ΠΑΠΑΔΟΠΟΥΛΟΣ', 'Μαρία', 2, 'ΑΘΗΝΑ', '11200', -3, 'Ναι', #1980-12-31#)",
    u"INSERT INTO Cards (code, επωνυμο, ονομα, category, πολη, ταχ_κωδ, total) "
    u"VALUES (3, 'O''Neil', 'Anna', 2, 'Πάτρα', '26221', 100)",
    u"INSERT INTO Cards (code, επωνυμο, category, σχολια) VALUES (4, '50%_\\x', 9, 'α')",
    u"INSERT INTO History (aa, codecards, ΗΜΕΡΟΜΗΝΙΑ, ΑΙΤΙΟΛΟΓΙΑ, ΧΡΕΩΣΗ, ΠΙΣΤΩΣΗ) "
    u"VALUES (1, 1, #2026/01/31#, 'Αγορά', 10, 0)",
    u"INSERT INTO History (aa, codecards, ΗΜΕΡΟΜΗΝΙΑ, ΑΙΤΙΟΛΟΓΙΑ, ΧΡΕΩΣΗ, ΠΙΣΤΩΣΗ) "
    u"VALUES (2, 1, #2026/02/01#, 'αγορα', 2.5, 0)",
    u"INSERT INTO History (aa, codecards, ΗΜΕΡΟΜΗΝΙΑ, ΑΙΤΙΟΛΟΓΙΑ, ΧΡΕΩΣΗ, ΠΙΣΤΩΣΗ) "
    u"VALUES (3, 2, #2026/11/05 14:30:05#, 'Πληρωμή', 0, 7)",
    u"INSERT INTO Dates (aa, codecard, Subject, Day, Start, [End], User) "
    u"VALUES (1, 1, 'Οδοντίατρος', #2026/11/05#, #09:00#, #09:30#, 'Μαρία')",
    u"INSERT INTO Dates (aa, codecard, Subject, Day, Start, [End], User) "
    u"VALUES (2, 0, 'Συνάντηση', #2026/05/11#, #14:00#, #15:15#, 'ΜΑΡΙΑ')",
    u"INSERT INTO Users VALUES (1, 'a', 'x', 1)",
    u"INSERT INTO Users VALUES (2, 'b', 'y', 3)",
};

struct Case {
    const char* name;
    const char16_t* sql;
    const char16_t* rows;
};

constexpr Case reading[] = {
    // Texts
    {"equality folds", u"select code from cards where επωνυμο='παπαδοπουλοσ' order by code", u"1 / 2"},
    {"final sigma", u"select code from cards where επωνυμο='ΠαπαδόπουλοΣ' order by code", u"1 / 2"},
    {"two columns fold", u"select a.code from cards a, cards b where a.πολη=b.πολη and a.code<>b.code order by 1",
     u"1 / 2"},
    {"greater folds", u"select code from cards where επωνυμο>'Ο' order by code", u"1 / 2"},
    {"not equal leaves Null out", u"select code from cards where πολη<>'Αθηνα'", u"3"},
    {"order folds", u"select code from cards order by επωνυμο desc,code", u"1 / 2 / 3 / 4"},
    {"memo equality", u"select code from cards where σχολια='Α'", u"4"},
    {"doubled quote", u"select code from cards where επωνυμο='o''neil'", u"3"},
    {"double quotes", u"select code from cards where επωνυμο=\"O'Neil\"", u"3"},
    {"prefix", u"select code from cards where επωνυμο like 'πΑπ%' order by code", u"1 / 2"},
    {"prefix of final sigma", u"select code from cards where επωνυμο like 'παπαδοπουλος%' order by code", u"1 / 2"},
    {"contains", u"select code from cards where επωνυμο like '%ΔΌΠ%' order by code", u"1 / 2"},
    {"ends", u"select code from cards where επωνυμο like '%ος' order by code", u"1 / 2"},
    {"underscore", u"select code from cards where ονομα like '_ν__'", u""},
    {"underscore is a letter", u"select code from cards where ονομα like '_nn_'", u"3"},
    {"middle percent", u"select code from cards where επωνυμο like 'π%δ%ς' order by code", u"1 / 2"},
    {"backslash is plain", u"select code from cards where επωνυμο like '%\\x'", u"4"},
    {"backslash escapes nothing", u"select code from cards where επωνυμο like '50\\%'", u""},
    {"star is plain", u"select code from cards where επωνυμο like 'π*'", u""},
    {"pattern without wildcard", u"select code from cards where επωνυμο like 'o''neil'", u"3"},
    {"empty pattern", u"select count(*) from cards where επωνυμο like ''", u"0"},
    {"all but Null", u"select count(*) from cards where πολη like '%'", u"3"},
    {"not like leaves Null out", u"select code from cards where πολη not like 'αθ%'", u"3"},
    {"not like percent", u"select count(*) from cards where πολη not like '%'", u"0"},
    {"like on a number", u"select code from cards where total like '%,5'", u"1"},
    {"like on a date", u"select code from cards where ΗΜ_ΓΕΝΗΣΗΣ like '29/02/%'", u"1"},
    {"like a column", u"select a.code from cards a where a.επωνυμο like a.επωνυμο order by 1", u"1 / 2 / 3 / 4"},
    {"concatenation", u"select επωνυμο & ' ' & ονομα & total from cards where code=4", u"50%_\\x "},
    {"plus joins texts", u"select ονομα + '!' from cards where code=1", u"Γιάννης!"},
    {"plus keeps Null", u"select ονομα + '!' from cards where code=4", u"-"},
    {"number beside text", u"select code & '' from cards where code=1", u"1"},
    {"decimal comma in text", u"select total & 'x' from cards where code=1", u"5,5x"},
    // Null and logic
    {"is null", u"select code from cards where total is null", u"4"},
    {"is not null", u"select count(*) from cards where total is not null", u"3"},
    {"equals null is unknown", u"select count(*) from cards where total = null", u"0"},
    {"not of unknown", u"select count(*) from cards where not (total = 100)", u"2"},
    {"and before or", u"select code from cards where code=1 or code=2 and code=3", u"1"},
    {"xor", u"select code from cards where code<3 xor code<2", u"2"},
    {"not binds looser than equals", u"select count(*) from cards where not code=1", u"3"},
    {"chain of nots", u"select count(*) from cards where not not not code=1", u"3"},
    {"in", u"select code from cards where code in (1,3,7)", u"1 / 3"},
    {"in texts", u"select code from cards where πολη in ('αθηνα') order by code", u"1 / 2"},
    {"in of mixed kinds", u"select code from cards where code in (1,'2') order by code", u"1 / 2"},
    {"not in", u"select code from cards where code not in (1,2,4)", u"3"},
    {"between", u"select code from cards where code between 2 and 3", u"2 / 3"},
    {"not between", u"select code from cards where code not between 2 and 3", u"1 / 4"},
    {"odd signs", u"select code from cards where code >< 1 and code => 3 and code =< 3", u"3"},
    // Numbers
    {"precedence", u"select 2+3*4, -2^2, 7\\2*2, 10-4-3, 2*3 mod 4, 2^3^2, 1-(2-3)", u"14|-4|1|3|2|64|2"},
    {"division is real", u"select code/2 from cards where code=1", u"0,5"},
    {"division of sums", u"select sum(code)/4 from cards", u"2,5"},
    {"whole division rounds", u"select 7.6\\2, -7\\2, 8 mod 3, -8 mod 3, 5.5 mod 2", u"4|-3|2|-2|0"},
    {"by zero", u"select 1/0, 1\\0, 1 mod 0", u"-|-|-"},
    {"minus a name", u"select aa from users order by -group", u"2 / 1"},
    {"minus minus", u"select 5 - -3, - -4, -(-4)", u"8|4|4"},
    {"number in quotes", u"select code from cards where total='5,5'", u"1"},
    {"text column as number", u"select code from cards where ταχ_κωδ > 11141 order by code", u"2 / 3"},
    {"text column equals number", u"select code from cards where ταχ_κωδ = 11141", u"1"},
    {"text that is no number", u"select count(*) from cards where επωνυμο = 5", u"0"},
    // YesNo
    {"true", u"select code from cards where FieldYes1=true order by code", u"1 / 2"},
    {"alone", u"select code from cards where FieldYes1 order by code", u"1 / 2"},
    {"minus one", u"select code from cards where FieldYes1=-1 order by code", u"1 / 2"},
    {"any number", u"select count(*) from cards where FieldYes1<>7", u"2"},
    {"word", u"select code from cards where FieldYes1='Ναι' order by code", u"1 / 2"},
    {"false word", u"select code from cards where FieldYes1='false' order by code", u"3 / 4"},
    {"counts as minus one", u"select sum(FieldYes1), -(FieldYes1)+0 from cards where code=1 group by FieldYes1",
     u"-1|1"},
    {"not", u"select code from cards where not FieldYes1 order by code", u"3 / 4"},
    // Dates
    {"month first", u"select aa from dates where day=#11/05/2026#", u"1"},
    {"the other order", u"select aa from dates where day=#5/11/2026# or day=#25/11/2026#", u"2"},
    {"year first", u"select aa from dates where day=#2026-11-05# and start=#09:00#", u"1"},
    {"text date is day first", u"select aa from dates where day='5/11/2026'", u"1"},
    {"with time", u"select aa from history where ΗΜΕΡΟΜΗΝΙΑ=#11/5/2026 2:30:05 PM#", u"3"},
    {"midnight bound", u"select aa from history where ΗΜΕΡΟΜΗΝΙΑ between #2026/11/01# and #2026/11/05#", u""},
    {"unquoted keywords", u"select day,user from dates where start between #08:00# and #10:00#", u"05/11/2026|Μαρία"},
    {"day plus number", u"select day+1, day-1, day+0.5 from dates where aa=1",
     u"06/11/2026|04/11/2026|05/11/2026 12:00:00"},
    {"difference in days", u"select [end]-start, day-#2026/11/01# from dates where aa=1", u"0,0208333333333333|4"},
    {"day plus time", u"select day+start from dates where aa=1", u"05/11/2026 09:00:00"},
    {"time alone", u"select start, [end] from dates where aa=2", u"14:00:00|15:15:00"},
    {"max of dates", u"select max(day), min(start) from dates", u"05/11/2026|09:00:00"},
    {"number is days", u"select aa from dates where start < 0.4", u"1"},
    // Shapes
    {"star of one",
     u"select CardKategory.* from cards inner join cardkategory on category=cardkategory.code where cards.code=1",
     u"1|ΕΠΑΦΕΣ|True"},
    {"comma join",
     u"select c.code, k.description from cards c, cardkategory as k where c.category=k.code order by c.code",
     u"1|ΕΠΑΦΕΣ / 2|Πελάτες / 3|Πελάτες"},
    {"left join",
     u"select c.code, description from cards c left join cardkategory k on c.category=k.code order by c.code desc",
     u"4|- / 3|Πελάτες / 2|Πελάτες / 1|ΕΠΑΦΕΣ"},
    {"right join",
     u"select k.description, count(c.code) from cards c right join cardkategory k on c.category=k.code "
     u"group by k.description order by 1",
     u"ΕΠΑΦΕΣ|1 / Πελάτες|2"},
    {"nested joins",
     u"select h.aa, description from (cards c inner join history h on c.code=h.codecards) inner join "
     u"cardkategory k on c.category=k.code order by h.aa",
     u"1|ΕΠΑΦΕΣ / 2|ΕΠΑΦΕΣ / 3|Πελάτες"},
    {"brackets to the right",
     u"select c.code, h.aa from cards c left join (history h inner join cardkategory k on "
     u"h.codecards=k.code) on c.code=h.codecards order by c.code,h.aa",
     u"1|1 / 1|2 / 2|3 / 3|- / 4|-"},
    {"top", u"select top 2 code from cards order by code desc", u"4 / 3"},
    {"distinct folds", u"select distinct πολη from cards order by πολη", u"- / ΑΘΗΝΑ / Πάτρα"},
    {"distinct of several", u"select distinct πολη, category from cards where code<4 order by category desc, πολη",
     u"ΑΘΗΝΑ|2 / Πάτρα|2 / Αθήνα|1"},
    {"top of distinct", u"select distinct top 1 πολη from cards where πολη is not null order by πολη desc", u"Πάτρα"},
    {"union folds", u"select πολη from cards where code=1 union select πολη from cards where code=2", u"ΑΘΗΝΑ"},
    {"union all keeps", u"select πολη from cards where code=1 union all select πολη from cards where code=2 order by 1",
     u"Αθήνα / ΑΘΗΝΑ"},
    {"union all behind union",
     u"select code from cards where code=1 union select code from cards where code=1 "
     u"union all select code from cards where code=1",
     u"1 / 1"},
    {"union of kinds", u"select code from cards where code=1 union select επωνυμο from cards where code=3 order by 1",
     u"1 / O'Neil"},
    {"group folds", u"select πολη, count(*), sum(total) from cards group by πολη order by count(*) desc, πολη",
     u"ΑΘΗΝΑ|2|2,5 / -|1|- / Πάτρα|1|100"},
    {"having", u"select ΑΙΤΙΟΛΟΓΙΑ, count(*) as n from history group by ΑΙΤΙΟΛΟΓΙΑ having count(*)>1", u"Αγορά|2"},
    {"having on a text", u"select πολη from cards group by πολη having πολη='αθηνα'", u"ΑΘΗΝΑ"},
    {"group by expression",
     u"select year(ΗΜΕΡΟΜΗΝΙΑ)*100+month(ΗΜΕΡΟΜΗΝΙΑ), sum(ΧΡΕΩΣΗ-ΠΙΣΤΩΣΗ) from history group by "
     u"year(ΗΜΕΡΟΜΗΝΙΑ)*100+month(ΗΜΕΡΟΜΗΝΙΑ) order by 1",
     u"202601|10 / 202602|2,5 / 202611|-7"},
    {"aggregates", u"select count(*), count(total), sum(total), avg(total), min(total), max(total) from cards",
     u"4|3|102,5|34,1666666666667|-3|100"},
    {"aggregates of texts", u"select min(επωνυμο), max(επωνυμο) from cards", u"50%_\\x|Παπαδόπουλος"},
    {"first and last", u"select first(code), last(code) from (select code from cards order by code) as x", u"1|4"},
    {"nothing to add", u"select sum(total), count(*) from cards where code=99", u"-|0"},
    {"scalar subquery",
     u"select code, (select count(*) from history where codecards=cards.code) from cards order by code",
     u"1|2 / 2|1 / 3|0 / 4|0"},
    {"in subquery", u"select code from cards where code in (select codecards from history) order by code", u"1 / 2"},
    {"in text subquery", u"select code from cards where ονομα in (select user from dates)", u"2"},
    {"not in subquery", u"select code from cards where code not in (select codecards from history) order by code",
     u"3 / 4"},
    {"exists", u"select code from cards c where exists (select * from history where codecards=c.code) order by code",
     u"1 / 2"},
    {"derived table", u"select t.n from (select count(*) as n, πολη from cards group by πολη) t where t.πολη='Αθήνα'",
     u"2"},
    {"alias in order", u"select code*-1 as x from cards order by x", u"-4 / -3 / -2 / -1"},
    {"alias with and without as", u"select code n, code as [μια στήλη] from cards where code=1", u"1|1"},
    {"without from", u"select 1+1 as δύο", u"2"},
    {"semicolon", u"select code from cards where code=1 ; ", u"1"},
    {"several lines", u"select code\r\nfrom cards\r\nwhere code=1\r\n", u"1"},
    {"case of names", u"SELECT CODE FROM CARDS WHERE Επωνυμο='x' OR FIELDCHAR1 is null and κινητο is null and CODE=1",
     u"1"},
    {"bracketed table", u"select [Cards].[code] from [CARDS] where [code]=1", u"1"},
};

}  // namespace

class TestDialectSemantics : public QObject {
    Q_OBJECT
private slots:
    void initTestCase();
    void reads_data();
    void reads();
    void userComposed_data();
    void userComposed();
    void writes_data();
    void writes();
    void refuses_data();
    void refuses();
    void namedParameters();
    void outputColumns_data();
    void outputColumns();
    void indexes();
    void declarations();
    void remembersByTextAndOptions();

private:
    void refill();
    DialectDatabase database_;
};

void TestDialectSemantics::refill() {
    database_.empty();
    for (const char16_t* sql : filling) database_.run(QString::fromUtf16(sql));
}

void TestDialectSemantics::initTestCase() {
    try {
        refill();
    } catch (const std::exception& error) {
        QFAIL(error.what());
    }
}

static void addCases(const Case* first, const Case* last) {
    QTest::addColumn<QString>("sql");
    QTest::addColumn<QString>("rows");
    for (const Case* c = first; c != last; ++c)
        QTest::newRow(c->name) << QString::fromUtf16(c->sql) << QString::fromUtf16(c->rows);
}

void TestDialectSemantics::reads_data() {
    addCases(std::begin(reading), std::end(reading));
}

static QString answer(DialectDatabase& database, const QString& sql, const DialectOptions& options = {}) {
    try {
        return database.run(sql, options);
    } catch (const std::exception& error) {
        return QString::fromUtf8(error.what());
    }
}

void TestDialectSemantics::reads() {
    QFETCH(QString, sql);
    QTEST(answer(database_, sql), "rows");
}

// Day first, decimal commas.
void TestDialectSemantics::userComposed_data() {
    constexpr Case cases[] = {
        {"comma in a comparison", u"select code from cards where total =  5,5 ", u"1"},
        {"comma in arithmetic", u"select code from cards where total*2 = 10,5+0,5", u"1"},
        {"comma in between", u"select code from cards where total between 5,4 and 5,6", u"1"},
        {"comma in having", u"select πολη from cards group by πολη having sum(total)=2,5", u"ΑΘΗΝΑ"},
        {"comma in a list of columns", u"select 5,5 from cards where code=1", u"5|5"},
        {"comma in a list of values", u"select code from cards where code in (1,2) and total=5,5", u"1"},
        {"comma in a function",
         u"select code from cards where left(ταχ_κωδ,2)='11' and dateadd('d',1,#30/12/1980#)=ΗΜ_ΓΕΝΗΣΗΣ", u"2"},
        {"comma in order", u"select code from cards where code<3 order by 1,1", u"1 / 2"},
        {"blank ends a number", u"select code from cards where total =5.5 or code in (2, 3)", u"1 / 2 / 3"},
        {"comma in a subquery", u"select count(*) from cards where code in (select code from cards where total=5,5)",
         u"1"},
        {"comma in a function's subquery", u"select iif((select count(*) from cards where total=5,5)=1,'ναι','όχι')",
         u"ναι"},
        {"day first", u"select aa from dates where day=#05/11/2026#", u"1"},
        {"other order", u"select code from cards where ΗΜ_ΓΕΝΗΣΗΣ=#12/31/1980#", u"2"},
        {"quoted number", u"select code from cards where total >  '5,4' and total < '5,6'", u"1"},
    };
    addCases(std::begin(cases), std::end(cases));
}

void TestDialectSemantics::userComposed() {
    QFETCH(QString, sql);
    QTEST(answer(database_, sql, {DateOrder::DayFirst, true, true, {}}), "rows");
}

// Each runs on a database filled anew; "rows" answers the second statement.
void TestDialectSemantics::writes_data() {
    QTest::addColumn<QString>("sql");
    QTest::addColumn<QString>("check");
    QTest::addColumn<QString>("rows");
    struct Row {
        const char* name;
        const char16_t* sql;
        const char16_t* check;
        const char16_t* rows;
    };
    constexpr Row table[] = {
        {"positional", u"insert into CardKategory values ('7','Νέοι',1)", u"select * from cardkategory where code=7",
         u"7|Νέοι|True"},
        {"autonumber by itself", u"insert into CardKategory (description) values ('Νέοι')",
         u"select * from cardkategory where code=3", u"3|Νέοι|False"},
        {"null into yes/no", u"insert into CardKategory (payable) values (null)",
         u"select payable from cardkategory where code=3", u"False"},
        {"from a select", u"insert into combo1 (description) select distinct πολη from cards where πολη is not null",
         u"select description from combo1 order by 1", u"ΑΘΗΝΑ / Πάτρα"},
        {"from a union", u"insert into combo1 (description) select 'β' union select code from cards where code=1",
         u"select description from combo1 order by 1", u"1 / β"},
        {"text into date", u"update [DATES] set [DAY]='23/11/2026' where aa=1", u"select day from dates where aa=1",
         u"23/11/2026"},
        {"text into number", u"update cards set total='1.234,5' where code=1", u"select total from cards where code=1",
         u"1234,5"},
        {"number into text", u"update cards set ταχ_κωδ=15.5 where code=1", u"select ταχ_κωδ from cards where code=1",
         u"15,5"},
        {"date into text", u"update cards set doy=#2026/11/05# where code=1", u"select doy from cards where code=1",
         u"05/11/2026"},
        {"half to even", u"update cards set category=2.5 where code=1", u"select category from cards where code=1",
         u"2"},
        {"expression of the row", u"update cards set total=total+1, category=category*2 where code<3",
         u"select total,category from cards where code<3", u"6,5|2 / -2|4"},
        {"column into column", u"update cards set περιοχη=πολη, διευθυνση=επωνυμο & '!' where code=1",
         u"select περιοχη,διευθυνση from cards where code=1", u"Αθήνα|Παπαδόπουλος!"},
        {"text column into number", u"update cards set FIELDnum1=ταχ_κωδ where code=1",
         u"select FIELDnum1+1 from cards where code=1", u"11142"},
        {"condition into yes/no", u"update cards set FieldYes2=(total>0) ",
         u"select code from cards where FieldYes2 order by 1", u"1 / 3"},
        {"null", u"update cards set total=null, FieldYes1=null where code=1",
         u"select total,FieldYes1 from cards where code=1", u"-|False"},
        {"emptied", u"delete * from history", u"select count(*) from history", u"0"},
        {"delete with a condition", u"delete from dates where [day] <=#2026/05/11#", u"select aa from dates", u"1"},
        {"delete under an alias", u"delete h.* from history h where h.aa<>2", u"select aa from history", u"2"},
        {"update with subquery",
         u"update cards set total=(select sum(ΧΡΕΩΣΗ-ΠΙΣΤΩΣΗ) from history where codecards=cards.code) where code<4",
         u"select total from cards where code<4", u"12,5 / -7 / -"},
        {"longest text fits", u"update cards set επωνυμο='123456789012345678901234567890' where code=1",
         u"select len(επωνυμο) from cards where code=1", u"30"},
        {"memo takes more", u"update cards set σχολια=επωνυμο & space(300) & 'x' where code=1",
         u"select len(σχολια) from cards where code=1", u"313"},
    };
    for (const Row& row : table)
        QTest::newRow(row.name) << QString::fromUtf16(row.sql) << QString::fromUtf16(row.check)
                                << QString::fromUtf16(row.rows);
}

void TestDialectSemantics::writes() {
    QFETCH(QString, sql);
    QFETCH(QString, check);
    refill();
    const QString touched = answer(database_, sql);
    QVERIFY2(touched.toInt() > 0, qPrintable(touched));
    QTEST(answer(database_, check), "rows");
}

// Refused, and nothing is changed. `says` stands in the text.
void TestDialectSemantics::refuses_data() {
    constexpr Case cases[] = {
        {"literal too long", u"update cards set ταχ_κωδ='12345678901' where code=1", u"«ταχ_κωδ»"},
        {"expression too long", u"update cards set ταχ_κωδ=επωνυμο where code=1", u"«ταχ_κωδ»"},
        {"literal no date", u"update dates set day='31/11/2026'", u"«Day»"},
        {"expression no date", u"update dates set day=subject", u"«Day»"},
        {"literal no number", u"update cards set total='abc'", u"«total»"},
        {"expression no number", u"update cards set total=επωνυμο", u"«total»"},
        {"number out of range", u"update cards set category=40000", u"«category»"},
        {"expression out of range", u"update cards set category=code*20000", u"«category»"},
        {"empty text into number", u"insert into options values ('')", u"«aa»"},
        {"select into too short", u"insert into cards (ταχ_κωδ) select επωνυμο from cards", u"«ταχ_κωδ»"},
    };
    addCases(std::begin(cases), std::end(cases));
}

void TestDialectSemantics::refuses() {
    QFETCH(QString, sql);
    QFETCH(QString, rows);
    const QString state = u"select code,ταχ_κωδ,category,total,day from cards,dates order by code,aa"_s;
    refill();
    const QString before = answer(database_, state);
    QVERIFY2(answer(database_, sql).contains(rows), qPrintable(answer(database_, sql)));
    QCOMPARE(answer(database_, state), before);
}

void TestDialectSemantics::namedParameters() {
    const QString report =
        u"Select distinct day,user from Dates where (day between datefrom and dateto) and user=UsersD order by day"_s;
    const QDateTime from = wallClock(QDate(2026, 11, 1));
    const QDateTime to = wallClock(QDate(2026, 11, 30));
    const QString expected = u"05/11/2026|Μαρία"_s;
    QCOMPARE(database_.run(report, {}, {{u"datefrom"_s, from}, {u"dateto"_s, to}, {u"usersd"_s, u"ΜΑΡΙΑ"_s}}),
             expected);
    // Texts as a report's caller has them in its boxes.
    QCOMPARE(
        database_.run(report, {},
                      {{u"datefrom"_s, u"2026/11/01"_s}, {u"dateto"_s, u"30/11/2026"_s}, {u"usersd"_s, u"Μαρία"_s}}),
        expected);
    QCOMPARE(database_.run(u"select ονομα from cards where code=code1"_s, {}, {{u"code1"_s, u"3"_s}}), u"Anna"_s);
    const auto translation =
        database_.translator().translate(u"select code from cards where total>B or total<a or code=b"_s,
                                         {DateOrder::MonthFirst, false, false, {u"A"_s, u"b"_s}});
    QCOMPARE(translation->parameters, QStringList({u"B"_s, u"a"_s}));
}

void TestDialectSemantics::outputColumns_data() {
    constexpr Case cases[] = {
        {"schema's spelling", u"select CODE, ΕΠΩΝΥΜΟ, ΗΜ_γενησησ from CARDS",
         u"code a0, επωνυμο t30, ΗΜ_ΓΕΝΗΣΗΣ D0; Cards"},
        {"expressions",
         u"select code+1, total*2, code/2, επωνυμο & '', day(ΗΜ_ΓΕΝΗΣΗΣ), ΗΜ_ΓΕΝΗΣΗΣ+1, code=1 from cards",
         u"Expr1000 l0, Expr1001 d0, Expr1002 d0, Expr1003 t255, Expr1004 l0, Expr1005 D0, Expr1006 y0; Cards"},
        {"same names of a join", u"select a.code, b.code, b.code from cards a, cards b",
         u"code l0, b.code l0, Expr1000 l0; "},
        {"same name twice", u"select code, code as code from cards", u"code a0, Cards.code a0; Cards"},
        {"choices",
         u"select iif(count(*)=1,1,0.5), nz(first(σχολια)), min(code), sum(total), first(επωνυμο), count(*) from cards",
         u"Expr1000 d0, Expr1001 m0, Expr1002 l0, Expr1003 d0, Expr1004 t30, Expr1005 l0; "},
        {"distinct has no rows of its own", u"select distinct code from cards", u"code l0; "},
        {"top has", u"select top 5 code from cards order by code", u"code a0; Cards"},
        {"subquery has not", u"select x from (select code as x from cards) t", u"x l0; "},
        {"union's common type", u"select code as x from cards union select total from cards", u"x d0; "},
        {"condition with a subquery still has",
         u"select total t from cards where code in (select code from history, cards c)", u"t d0; Cards"},
        {"dates", u"select [end]-start, day+start, dateadd('d',1,day) as d from dates",
         u"Expr1000 d0, Expr1001 D0, d D0; Dates"},
    };
    addCases(std::begin(cases), std::end(cases));
}

void TestDialectSemantics::outputColumns() {
    QFETCH(QString, sql);
    static const QHash<ColumnType, QChar> letterOf = {{ColumnType::Autonumber, u'a'}, {ColumnType::Long, u'l'},
                                                      {ColumnType::Integer, u'i'},    {ColumnType::Single, u'f'},
                                                      {ColumnType::Double, u'd'},     {ColumnType::Text, u't'},
                                                      {ColumnType::Memo, u'm'},       {ColumnType::YesNo, u'y'},
                                                      {ColumnType::DateTime, u'D'},   {ColumnType::LongBinary, u'b'}};
    const auto translation = database_.translator().translate(sql);
    QStringList columns;
    for (const OutputColumn& column : translation->columns) {
        columns << column.name + u' ' + letterOf.value(column.type) + QString::number(column.size);
        if (column.baseColumn >= 0 && !translation->baseTable.isEmpty())
            QCOMPARE(database_.catalog().find(translation->baseTable)->columns[column.baseColumn].type, column.type);
    }
    QTEST(columns.join(u", "_s) + u"; "_s + translation->baseTable, "rows");
}

// An index on the fold serves equality, prefixes and order.
void TestDialectSemantics::indexes() {
    const TableInfo& cards = *database_.catalog().find(u"Cards");
    database_.engine(database_.dialect().createIndex(u"byname"_s, cards, {u"επωνυμο"_s, u"ονομα"_s}));
    const bool postgres = testengine::isPostgres();
    if (postgres)  // an index on a few rows would be no gain
        database_.engine(
            "INSERT INTO \"Cards\" (\"επωνυμο\", \"ονομα\") SELECT 'Επαφή ' || n, n FROM generate_series(1, 5000) n;"
            "ANALYZE \"Cards\"");
    struct Served {
        const char16_t* sql;
        bool inOrder;
    };
    constexpr Served served[] = {
        {u"select * from cards where επωνυμο='Παππάς'", false},
        {u"select code from cards where επωνυμο like 'παπ%'", false},
        {u"select code from cards order by επωνυμο,ονομα", true},
        {u"select top 10 * from cards where επωνυμο>='Μ' order by επωνυμο", true},
        {u"select top 10 * from cards order by επωνυμο desc,ονομα desc", true},
    };
    for (const auto& [sql, inOrder] : served) {
        QString plan = database_.plan(QString::fromUtf16(sql));
        // Equal names are still put in the order of their rows, group by group.
        for (const char* inGroups : {"Incremental Sort", "Sort Key", "TEMP B-TREE FOR RIGHT PART"})
            plan.remove(QLatin1String(inGroups));
        const QString sorts = postgres ? u"Sort"_s : u"TEMP B-TREE"_s;
        QVERIFY2(plan.contains(u"byname"_s) && !(inOrder && plan.contains(sorts)), qPrintable(plan));
    }
}

// What a table is declared as reads back as the same columns.
void TestDialectSemantics::declarations() {
    const Catalog wanted = officeCatalog();
    for (const TableInfo& table : wanted.tables()) {
        const TableInfo* there = database_.catalog().find(table.name);
        QVERIFY(there && there->autonumber == table.autonumber);
        QCOMPARE(there->columns.size(), table.columns.size());
        for (qsizetype i = 0; i < there->columns.size(); ++i) {
            QCOMPARE(there->columns[i].name, table.columns[i].name);
            QCOMPARE(there->columns[i].type, table.columns[i].type);
            QCOMPARE(there->columns[i].size, table.columns[i].size);
        }
    }
}

void TestDialectSemantics::remembersByTextAndOptions() {
    const QString sql = u"select aa from dates where day=#11/05/2026#"_s;
    Translator& translator = database_.translator();
    const auto first = translator.translate(sql);
    QCOMPARE(translator.translate(sql).get(), first.get());
    QVERIFY(translator.translate(sql, {DateOrder::DayFirst, false, false, {}})->sql != first->sql);
    translator.clear();
    QVERIFY(translator.translate(sql).get() != first.get());
    for (int i = 0; i < 5000; ++i) translator.translate(u"select code from cards where code=%1"_s.arg(i));
    QCOMPARE(translator.translate(sql)->sql, first->sql);
}

QTEST_GUILESS_MAIN(TestDialectSemantics)
#include "test_dialect_semantics.moc"
