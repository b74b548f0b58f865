// The dialect's functions, called through translated statements; more are among the typed ones.
#include "dialectdatabase.h"
#include "support/cases.h"
#include "support/failure.h"

using namespace Qt::Literals::StringLiterals;

namespace {

struct Case {
    const char16_t* name;  // an expression
    const char16_t* value;
};

constexpr Case cases[] = {
    // Month ends and leap years
    {u"dateadd('m',1,#2024/01/31#)", u"29/02/2024"},
    {u"dateadd('m',-1,#2026/03/31#)", u"28/02/2026"},
    {u"dateadd('yyyy',1,#2024/02/29#)", u"28/02/2025"},
    {u"dateadd('q',1,#2026/11/30#)", u"28/02/2027"},
    {u"dateadd('d',1,#2026/12/31#)", u"01/01/2027"},
    {u"dateadd('d',0,#2026/12/31#)", u"31/12/2026"},
    {u"dateadd('d','2',#2026/12/31#)", u"02/01/2027"},
    {u"dateadd('D',1.5,#2026/12/30#)", u"01/01/2027"},
    {u"dateadd('h',25,#2026/01/01#)", u"02/01/2026 01:00:00"},
    {u"dateadd('n',-1,#2026/01/01#)", u"31/12/2025 23:59:00"},
    {u"dateadd('s',90,#10:00#)", u"10:01:30"},
    {u"dateadd('d',1,null)", u"-"},
    {u"dateadd('yyyy',9000,#2026/01/01#)", u"-"},
    {u"dateadd('s',1e300,#2026/01/01#)", u"-"},
    {u"dateadd('ww',-1.7e308,#2026/01/01#)", u"-"},
    {u"dateadd('s',-60,#0100/01/01#)", u"-"},
    {u"dateadd('s',0,#0100/01/01#)", u"01/01/0100"},
    {u"dateadd('s',86399,#9999/12/31#)", u"31/12/9999 23:59:59"},
    {u"dateadd('d',-4000000,#2026/11/05#)", u"-"},
    {u"dateadd('yyyy',-8000,#2026/11/05#)", u"-"},
    {u"dateadd('m',-149999,#2026/11/05#)", u"-"},
    {u"dateadd('m',-9,#0100/09/30#)", u"-"},
    {u"dateadd('yyyy',7973.5,#2026/12/31#)", u"-"},
    {u"dateadd('m',2.5,#9999/10/31#)", u"31/12/9999"},
    {u"datediff('m',#2026/01/31#,#2026/02/01#)", u"1"},
    {u"datediff('d',#2026/03/28 23:00#,#2026/03/30 01:00#)", u"2"},
    {u"datediff('d',#2026/03/30#,#2026/03/28#)", u"-2"},
    {u"datediff('n',#10:59:59#,#11:00:00#)", u"1"},
    {u"datediff('s',#1899/12/29#,#1899/12/30#)", u"86400"},
    {u"datediff('w',#2026/01/01#,#2026/01/15#)", u"2"},
    {u"datediff('ww',#2026/11/08#,#2026/11/09#,2)", u"1"},
    {u"datepart('w',#2026/11/08#,2)", u"7"},
    {u"datepart('ww',#2026/01/04#,2)", u"1"},
    {u"datepart('ww',#2027/01/01#,2,2)", u"53"},
    {u"datepart('ww',#2025/12/29#,2,2)", u"1"},
    {u"weekday(#2026/11/08#)", u"1"},
    {u"weekday(#2026/11/08#,2)", u"7"},
    {u"day(#1899/12/29 18:00#) & '/' & hour(#1899/12/29 18:00#)", u"29/18"},
    {u"year(#2026/11/05#)*10000+month(#2026/11/05#)*100+day(#2026/11/05#)", u"20261105"},
    {u"hour(#14:30:05#)*10000+minute(#14:30:05#)*100+second(#14:30:05#)", u"143005"},
    {u"day('22/11/2026')", u"22"},
    {u"dateserial(26,1,1)", u"01/01/2026"},
    {u"cdbl(#1899/12/31 12:00#)", u"1,5"},
    {u"(now()-date())<1", u"True"},
    {u"date=date()", u"True"},
    // Texts
    {u"left('Γιώργος',3)", u"Γιώ"},
    {u"right('Γιώργος',3)", u"γος"},
    {u"right('αβ',9)", u"αβ"},
    {u"mid('Γιώργος',2,3)", u"ιώρ"},
    {u"mid('Γιώργος',5)", u"γος"},
    {u"mid('αβ',9)", u""},
    {u"left('α',-1) & '.'", u"."},
    {u"len('Γιώργος')", u"7"},
    {u"len(null)", u"-"},
    {u"ucase('Γιώργος')", u"ΓΙΩΡΓΟΣ"},
    {u"ucase('Μάιος, Χάιτογλου, ρολόι, άυλος, αϋπνία, ΆΥΛΟΣ')", u"ΜΑΪΟΣ, ΧΑΪΤΟΓΛΟΥ, ΡΟΛΟΪ, ΑΫΛΟΣ, ΑΫΠΝΙΑ, ΑΫΛΟΣ"},
    {u"ucase('ή ήλιος ή φωτιά-ή ζωή')", u"Ή ΗΛΙΟΣ Ή ΦΩΤΙΑ-Ή ΖΩΗ"},
    {u"ucase('straße')", u"STRASSE"},
    {u"lcase('ΓΙΩΡΓΟΣ') = 'γιωργος'", u"True"},
    {u"'[' & trim('  α β ') & '][' & ltrim(' α ') & '][' & rtrim(' α ') & ']'", u"[α β][α ][ α]"},
    {u"instr('Παπαδόπουλος','ΔΟΠ')", u"5"},
    {u"instr(4,'παπα','α')", u"4"},
    {u"instr('παπα','χ')", u"0"},
    {u"instr(9,'παπα','α')", u"0"},
    {u"replace('Άλφα βήτα ΑΛΦΑ','αλφα','γ')", u"γ βήτα γ"},
    {u"replace('αα','','β')", u"αα"},
    {u"phonekey('2310 123-456')", u"2310123456"},
    {u"phonekey('+30 (2310) 123456')", u"2310123456"},
    {u"phonekey('0030-2310.123456 εσωτ. 5')", u"2310123456"},
    {u"phonekey('(+30)2310\u00A0123\u2013456')", u"2310123456"},
    {u"phonekey('+44 20')", u"4420"},
    {u"phonekey('0044 20') = phonekey('+44/20')", u"True"},
    {u"phonekey('3010')", u"3010"},
    {u"phonekey('23+10')", u"23"},
    {u"phonekey('τηλ 2310')", u""},
    {u"phonekey('++30')", u""},
    {u"phonekey(null)", u"-"},
    {u"format('5/11/2026','yyyy/mm/dd')", u"2026/11/05"},
    {u"cstr(1.5)", u"1,5"},
    {u"cstr(#14:30#)", u"14:30:00"},
    // Numbers
    {u"int(-1.5)", u"-2"},
    {u"fix(-1.5)", u"-1"},
    {u"round(0.5) & round(1.5) & round(2.5) & round(-2.5)", u"022-2"},
    {u"round(2.665,2)", u"2,66"},
    {u"round(-1.005,2)", u"-1"},
    {u"round(1234567.8915,3)", u"1234567,892"},
    {u"cint(2.5) & cint(3.5) & clng('7,6')", u"248"},
    {u"abs(-3) & abs(-1.5) & sgn(-7) & sgn(0)", u"31,5-10"},
    {u"val(' 12 34.5abc')", u"1234,5"},
    {u"val('x')", u"0"},
    // Choices and tests
    {u"iif(1=1,'α','β')", u"α"},
    {u"iif(null,'α','β')", u"β"},
    {u"iif(true,1,'β')", u"1"},
    {u"nz(null,5) + nz(null)", u"5"},
    {u"nz(null,'α') & nz('β','γ')", u"αβ"},
    {u"isnull(null) and not isnull(1)", u"True"},
    {u"isnumeric('1.234,5') and not isnumeric('α') and isnumeric(5) and not isnumeric(null)", u"True"},
    {u"isdate('29/2/2024') and not isdate('29/2/2026') and isdate(#10:00#)", u"True"},
    {u"cbool('Όχι')", u"False"},
    {u"left(1234,2) + 1", u"13"},
    {u"day(null) is null", u"True"},
};

}  // namespace

class TestDialectFunctions : public QObject {
    Q_OBJECT

    DialectDatabase database_;

private slots:
    void values() {
        const int wrong = support::countFaults(cases, [&](const Case& one) {
            const QString answer = database_.run(u"select "_s + QString::fromUtf16(one.name));
            return answer == QStringView(one.value) ? QString() : answer;
        });
        QCOMPARE(wrong, 0);
    }

    // Beyond all numbers: the embedded engine counts on, the server refuses, and both live.
    void tooLarge() {
        const QString sql = u"select 1e308*10 > 1"_s;
        if (testengine::isPostgres())
            VERIFY_ERROR(Type, database_.run(sql));
        else
            QCOMPARE(database_.run(sql), u"True"_s);
    }

    // Values that the statement doesn't know: wrong and empty ones give Null, and nothing fails.
    void overColumns() {
        for (const QString& value : {u"'5/11/2026'"_s, u"'1,5'"_s, u"'άλλο'"_s, u"null"_s})
            database_.run(u"insert into combo1 (description) values (%1)"_s.arg(value));
        constexpr Case columns[] = {
            {u"cdate(description)", u"05/11/2026 / - / - / -"},
            {u"cdbl(description)", u"- / 1,5 / - / -"},
            {u"day(description)", u"5 / - / - / -"},
            {u"dateadd(description,1,#2026/01/01#)", u"- / - / - / -"},
            {u"isnumeric(description)", u"False / True / False / False"},
            {u"description*2", u"- / 3 / - / -"},
            {u"description & '.'", u"5/11/2026. / 1,5. / άλλο. / ."},
        };
        support::forEach(columns, [&](const Case& one) {
            const QString sql = u"select %1 from combo1 order by code"_s.arg(QStringView(one.name));
            QCOMPARE(database_.run(sql), QString::fromUtf16(one.value));
        });
    }
};

QTEST_GUILESS_MAIN(TestDialectFunctions)
#include "test_dialect_functions.moc"
