// The dialect's functions, called through translated statements; more are among the typed ones.
#include "dialectdatabase.h"
#include "support/cases.h"
#include "support/failure.h"

using namespace Qt::Literals::StringLiterals;

namespace {

struct Case {
    QString name;  // an expression
    QString value;
};

const Case cases[] = {
    // Month ends and leap years
    {u"dateadd('m',1,#2024/01/31#)"_s, u"29/02/2024"_s},
    {u"dateadd('m',-1,#2026/03/31#)"_s, u"28/02/2026"_s},
    {u"dateadd('yyyy',1,#2024/02/29#)"_s, u"28/02/2025"_s},
    {u"dateadd('q',1,#2026/11/30#)"_s, u"28/02/2027"_s},
    {u"dateadd('d',1,#2026/12/31#)"_s, u"01/01/2027"_s},
    {u"dateadd('d',0,#2026/12/31#)"_s, u"31/12/2026"_s},
    {u"dateadd('d','2',#2026/12/31#)"_s, u"02/01/2027"_s},
    {u"dateadd('D',1.5,#2026/12/30#)"_s, u"01/01/2027"_s},
    {u"dateadd('h',25,#2026/01/01#)"_s, u"02/01/2026 01:00:00"_s},
    {u"dateadd('n',-1,#2026/01/01#)"_s, u"31/12/2025 23:59:00"_s},
    {u"dateadd('s',90,#10:00#)"_s, u"10:01:30"_s},
    {u"dateadd('d',1,null)"_s, u"-"_s},
    {u"dateadd('yyyy',9000,#2026/01/01#)"_s, u"-"_s},
    {u"dateadd('s',1e300,#2026/01/01#)"_s, u"-"_s},
    {u"dateadd('ww',-1.7e308,#2026/01/01#)"_s, u"-"_s},
    {u"dateadd('s',-60,#0100/01/01#)"_s, u"-"_s},
    {u"dateadd('s',0,#0100/01/01#)"_s, u"01/01/0100"_s},
    {u"dateadd('s',86399,#9999/12/31#)"_s, u"31/12/9999 23:59:59"_s},
    {u"dateadd('d',-4000000,#2026/11/05#)"_s, u"-"_s},
    {u"dateadd('yyyy',-8000,#2026/11/05#)"_s, u"-"_s},
    {u"dateadd('m',-149999,#2026/11/05#)"_s, u"-"_s},
    {u"dateadd('m',-9,#0100/09/30#)"_s, u"-"_s},
    {u"dateadd('yyyy',7973.5,#2026/12/31#)"_s, u"-"_s},
    {u"dateadd('m',2.5,#9999/10/31#)"_s, u"31/12/9999"_s},
    {u"datediff('m',#2026/01/31#,#2026/02/01#)"_s, u"1"_s},
    {u"datediff('d',#2026/03/28 23:00#,#2026/03/30 01:00#)"_s, u"2"_s},
    {u"datediff('d',#2026/03/30#,#2026/03/28#)"_s, u"-2"_s},
    {u"datediff('n',#10:59:59#,#11:00:00#)"_s, u"1"_s},
    {u"datediff('s',#1899/12/29#,#1899/12/30#)"_s, u"86400"_s},
    {u"datediff('w',#2026/01/01#,#2026/01/15#)"_s, u"2"_s},
    {u"datediff('ww',#2026/11/08#,#2026/11/09#,2)"_s, u"1"_s},
    {u"datepart('w',#2026/11/08#,2)"_s, u"7"_s},
    {u"datepart('ww',#2026/01/04#,2)"_s, u"1"_s},
    {u"datepart('ww',#2027/01/01#,2,2)"_s, u"53"_s},
    {u"datepart('ww',#2025/12/29#,2,2)"_s, u"1"_s},
    {u"weekday(#2026/11/08#)"_s, u"1"_s},
    {u"weekday(#2026/11/08#,2)"_s, u"7"_s},
    {u"day(#1899/12/29 18:00#) & '/' & hour(#1899/12/29 18:00#)"_s, u"29/18"_s},
    {u"year(#2026/11/05#)*10000+month(#2026/11/05#)*100+day(#2026/11/05#)"_s, u"20261105"_s},
    {u"hour(#14:30:05#)*10000+minute(#14:30:05#)*100+second(#14:30:05#)"_s, u"143005"_s},
    {u"day('22/11/2026')"_s, u"22"_s},
    {u"dateserial(26,1,1)"_s, u"01/01/2026"_s},
    {u"cdbl(#1899/12/31 12:00#)"_s, u"1,5"_s},
    {u"(now()-date())<1"_s, u"True"_s},
    {u"date=date()"_s, u"True"_s},
    // Texts
    {u"left('Γιώργος',3)"_s, u"Γιώ"_s},
    {u"right('Γιώργος',3)"_s, u"γος"_s},
    {u"right('αβ',9)"_s, u"αβ"_s},
    {u"mid('Γιώργος',2,3)"_s, u"ιώρ"_s},
    {u"mid('Γιώργος',5)"_s, u"γος"_s},
    {u"mid('αβ',9)"_s, u""_s},
    {u"left('α',-1) & '.'"_s, u"."_s},
    {u"len('Γιώργος')"_s, u"7"_s},
    {u"len(null)"_s, u"-"_s},
    {u"ucase('Γιώργος')"_s, u"ΓΙΩΡΓΟΣ"_s},
    {u"ucase('Μάιος, Χάιτογλου, ρολόι, άυλος, αϋπνία, ΆΥΛΟΣ')"_s, u"ΜΑΪΟΣ, ΧΑΪΤΟΓΛΟΥ, ΡΟΛΟΪ, ΑΫΛΟΣ, ΑΫΠΝΙΑ, ΑΫΛΟΣ"_s},
    {u"ucase('ή ήλιος ή φωτιά-ή ζωή')"_s, u"Ή ΗΛΙΟΣ Ή ΦΩΤΙΑ-Ή ΖΩΗ"_s},
    {u"ucase('straße')"_s, u"STRASSE"_s},
    {u"lcase('ΓΙΩΡΓΟΣ') = 'γιωργος'"_s, u"True"_s},
    {u"'[' & trim('  α β ') & '][' & ltrim(' α ') & '][' & rtrim(' α ') & ']'"_s, u"[α β][α ][ α]"_s},
    {u"instr('Παπαδόπουλος','ΔΟΠ')"_s, u"5"_s},
    {u"instr(4,'παπα','α')"_s, u"4"_s},
    {u"instr('παπα','χ')"_s, u"0"_s},
    {u"instr(9,'παπα','α')"_s, u"0"_s},
    {u"replace('Άλφα βήτα ΑΛΦΑ','αλφα','γ')"_s, u"γ βήτα γ"_s},
    {u"replace('αα','','β')"_s, u"αα"_s},
    {u"phonekey('2310 123-456')"_s, u"2310123456"_s},
    {u"phonekey('+30 (2310) 123456')"_s, u"2310123456"_s},
    {u"phonekey('0030-2310.123456 εσωτ. 5')"_s, u"2310123456"_s},
    {u"phonekey('(+30)2310\u00A0123\u2013456')"_s, u"2310123456"_s},
    {u"phonekey('+44 20')"_s, u"4420"_s},
    {u"phonekey('0044 20') = phonekey('+44/20')"_s, u"True"_s},
    {u"phonekey('3010')"_s, u"3010"_s},
    {u"phonekey('23+10')"_s, u"23"_s},
    {u"phonekey('τηλ 2310')"_s, u""_s},
    {u"phonekey('++30')"_s, u""_s},
    {u"phonekey(null)"_s, u"-"_s},
    {u"format('5/11/2026','yyyy/mm/dd')"_s, u"2026/11/05"_s},
    {u"cstr(1.5)"_s, u"1,5"_s},
    {u"cstr(#14:30#)"_s, u"14:30:00"_s},
    // Numbers
    {u"int(-1.5)"_s, u"-2"_s},
    {u"fix(-1.5)"_s, u"-1"_s},
    {u"round(0.5) & round(1.5) & round(2.5) & round(-2.5)"_s, u"022-2"_s},
    {u"round(2.665,2)"_s, u"2,66"_s},
    {u"round(-1.005,2)"_s, u"-1"_s},
    {u"round(1234567.8915,3)"_s, u"1234567,892"_s},
    {u"cint(2.5) & cint(3.5) & clng('7,6')"_s, u"248"_s},
    {u"abs(-3) & abs(-1.5) & sgn(-7) & sgn(0)"_s, u"31,5-10"_s},
    {u"val(' 12 34.5abc')"_s, u"1234,5"_s},
    {u"val('x')"_s, u"0"_s},
    // Choices and tests
    {u"iif(1=1,'α','β')"_s, u"α"_s},
    {u"iif(null,'α','β')"_s, u"β"_s},
    {u"iif(true,1,'β')"_s, u"1"_s},
    {u"nz(null,5) + nz(null)"_s, u"5"_s},
    {u"nz(null,'α') & nz('β','γ')"_s, u"αβ"_s},
    {u"isnull(null) and not isnull(1)"_s, u"True"_s},
    {u"isnumeric('1.234,5') and not isnumeric('α') and isnumeric(5) and not isnumeric(null)"_s, u"True"_s},
    {u"isdate('29/2/2024') and not isdate('29/2/2026') and isdate(#10:00#)"_s, u"True"_s},
    {u"cbool('Όχι')"_s, u"False"_s},
    {u"left(1234,2) + 1"_s, u"13"_s},
    {u"day(null) is null"_s, u"True"_s},
};

}  // namespace

class TestDialectFunctions : public QObject {
    Q_OBJECT

    DialectDatabase database_;

private slots:
    void values() {
        const int wrong = support::countFaults(cases, [&](const Case& one) {
            const QString answer = database_.run(u"select "_s + one.name);
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
        const Case columns[] = {
            {u"cdate(description)"_s, u"05/11/2026 / - / - / -"_s},
            {u"cdbl(description)"_s, u"- / 1,5 / - / -"_s},
            {u"day(description)"_s, u"5 / - / - / -"_s},
            {u"dateadd(description,1,#2026/01/01#)"_s, u"- / - / - / -"_s},
            {u"isnumeric(description)"_s, u"False / True / False / False"_s},
            {u"description*2"_s, u"- / 3 / - / -"_s},
            {u"description & '.'"_s, u"5/11/2026. / 1,5. / άλλο. / ."_s},
        };
        support::forEach(columns, [&](const Case& one) {
            const QString sql = u"select %1 from combo1 order by code"_s.arg(QStringView(one.name));
            QCOMPARE(database_.run(sql), one.value);
        });
    }
};

QTEST_GUILESS_MAIN(TestDialectFunctions)
#include "test_dialect_functions.moc"
