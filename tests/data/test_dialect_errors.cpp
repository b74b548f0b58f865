// What is refused, as what, and whether the text leads its reader to the place.
#include <QtTest/QtTest>

#include "data/error.h"
#include "dialectdatabase.h"

using namespace Qt::Literals::StringLiterals;

using namespace data;

namespace {

struct Case {
    const char16_t* sql;
    ErrorCategory category;
    int position;             // from 1; in a statement of several lines, 0
    const char16_t* says[3];  // all must stand in the text
};

using E = ErrorCategory;

constexpr Case cases[] = {
    // Shape
    {u"", E::Syntax, 1, {u"SELECT", u"τέλος"}},
    {u"   ;", E::Syntax, 4, {u"SELECT"}},
    {u"selct * from cards", E::Syntax, 1, {u"SELECT", u"«selct»"}},
    {u"select * form cards", E::Syntax, 10, {u"περίμενα FROM", u"«form»"}},
    {u"select from cards", E::Syntax, 8, {u"στήλη", u"«from»"}},
    {u"select code, from cards", E::Syntax, 14, {u"στήλη", u"«from»"}},
    {u"select * from", E::Syntax, 14, {u"όνομα πίνακα", u"τέλος"}},
    {u"select * from cards where", E::Syntax, 26, {u"τιμή", u"τέλος"}},
    {u"select * from cards where code=", E::Syntax, 32, {u"τιμή", u"τέλος"}},
    {u"select * from cards where code 5", E::Syntax, 32, {u"τέλος", u"«5»"}},
    {u"select * from cards where (code=5", E::Syntax, 34, {u"παρένθεση", u"τέλος"}},
    {u"select * from cards where code=5)", E::Syntax, 33, {u"τέλος", u"«)»"}},
    {u"select * from cards order επωνυμο", E::Syntax, 27, {u"BY", u"«επωνυμο»"}},
    {u"select * from cards where code not 5", E::Syntax, 36, {u"LIKE, BETWEEN ή IN", u"«5»"}},
    {u"select * from cards where code between 1 or 2", E::Syntax, 42, {u"AND", u"«or»"}},
    {u"select * from cards where code in 1", E::Syntax, 35, {u"παρένθεση", u"«1»"}},
    {u"select * from cards where code is 5", E::Syntax, 35, {u"NULL", u"«5»"}},
    {u"select * from cards c inner join history h", E::Syntax, 43, {u"ON"}},
    {u"select * from cards left history", E::Syntax, 26, {u"JOIN", u"«history»"}},
    {u"select * from cards; delete from cards", E::Syntax, 22, {u"τέλος", u"«delete»"}},
    {u"select top 5 percent * from cards", E::Syntax, 14, {u"PERCENT"}},
    {u"select code as from cards", E::Syntax, 16, {u"όνομα μετά το AS", u"«from»"}},
    {u"insert cards values (1)", E::Syntax, 8, {u"INTO", u"«cards»"}},
    {u"insert into combo1 (code, description) values (1)", E::Syntax, 47, {u"στήλες είναι 2", u"τιμές 1"}},
    {u"insert into combo1 values (1)", E::Syntax, 13, {u"«Combo1»", u"2 στήλες"}},
    {u"update cards total=1", E::Syntax, 19, {u"SET"}},
    {u"update cards set total", E::Syntax, 23, {u"="}},
    {u"delete cards where code=1", E::Syntax, 8, {u"FROM", u"«cards»"}},
    {u"select * from cards union delete", E::Syntax, 27, {u"SELECT", u"«delete»"}},
    {u"select code from cards union select code, total from cards", E::Syntax, 30, {u"1 στήλες", u"2"}},
    {u"select code\nfrom cards\nwhere code==1", E::Syntax, 0, {u"γραμμή 3, στήλη 12", u"«=»"}},
    {u"select code\r\nfrom cards\r\nwhere kode=1", E::Parameter, 0, {u"γραμμή 3, στήλη 7", u"«kode»", u"«code»"}},
    // Signs
    {u"select 'αβγ from cards", E::Syntax, 8, {u"'", u"κλείνει"}},
    {u"select [αβγ from cards", E::Syntax, 8, {u"]", u"κλείνει"}},
    {u"select #2026/11/05 from cards", E::Syntax, 8, {u"#", u"κλείνει"}},
    {u"select [] from cards", E::Syntax, 8, {u"όνομα"}},
    {u"select #31/31/2026# from cards", E::Syntax, 8, {u"ημερομηνία", u"31/31/2026"}},
    {u"select #__/__/____# from cards", E::Syntax, 8, {u"ημερομηνία"}},
    {u"select 5x from cards", E::Syntax, 9, {u"αριθμό", u"«x»"}},
    {u"select code from cards where code=1 -- x", E::Parameter, 40, {u"«x»"}},
    {u"select code € from cards", E::Syntax, 13, {u"«€»"}},
    {u"select \U0001F600 from cards", E::Syntax, 8, {u"\U0001F600"}},
    // Names
    {u"select * from card", E::Syntax, 15, {u"πίνακας «card»", u"μήπως εννοείτε «Cards»"}},
    {u"select * from qwerty", E::Syntax, 15, {u"πίνακας «qwerty»"}},
    {u"select επωνμο from cards", E::Parameter, 8, {u"«επωνμο»", u"μήπως εννοείτε «επωνυμο»"}},
    {u"select επώνυμο from cards", E::Parameter, 8, {u"μήπως εννοείτε «επωνυμο»"}},
    {u"select cards.cod from cards", E::Syntax, 8, {u"«cards»", u"«cod»", u"«code»"}},
    {u"select history.aa from cards", E::Syntax, 8, {u"«history»", u"FROM"}},
    {u"select cards.code from cards c", E::Syntax, 8, {u"«cards»", u"FROM"}},
    {u"select x.* from cards", E::Syntax, 8, {u"«x»", u"FROM"}},
    {u"select *", E::Syntax, 8, {u"FROM"}},
    {u"select onoma from cards, calls", E::Parameter, 8, {u"«onoma»"}},
    {u"select ονομα from cards, calls", E::Syntax, 8, {u"«Cards»", u"«Calls»"}},
    {u"select * from cards, cards", E::Syntax, 22, {u"«Cards»", u"AS"}},
    {u"insert into combo1 (kode) values (1)", E::Syntax, 21, {u"«kode»", u"«code»"}},
    {u"insert into combo1 (code,code) values (1,1)", E::Syntax, 26, {u"δύο φορές"}},
    {u"update cards set history.aa=1", E::Syntax, 18, {u"«Cards»", u"«history»"}},
    {u"select lef(επωνυμο,1) from cards", E::Syntax, 8, {u"συνάρτηση «lef»", u"«left»"}},
    {u"select left(επωνυμο) from cards", E::Syntax, 8, {u"«left»", u"2", u"1"}},
    {u"select dateadd('x',1,day) from dates", E::Syntax, 16, {u"yyyy", u"«x»"}},
    {u"select code from cards order by 2", E::Syntax, 33, {u"1 έως 1", u"2"}},
    {u"select (select code, total from cards) from cards", E::Syntax, 9, {u"μία στήλη", u"2"}},
    // Groups
    {u"select πολη, count(*) from cards", E::Syntax, 8, {u"GROUP BY", u"«πολη»"}},
    {u"select ονομα from cards group by πολη", E::Syntax, 8, {u"GROUP BY", u"«ονομα»"}},
    {u"select code from cards where count(*)>1", E::Syntax, 30, {u"«count»", u"WHERE"}},
    {u"select sum(count(*)) from cards", E::Syntax, 12, {u"«count»"}},
    {u"select count(*) from cards group by 1", E::Syntax, 37, {u"GROUP BY"}},
    {u"select distinct πολη from cards order by ονομα", E::Syntax, 42, {u"DISTINCT", u"«ονομα»"}},
    // Types
    {u"select code from cards where total='αβγ'", E::Type, 36, {u"αριθμό", u"«αβγ»", u"«total»"}},
    {u"select code from cards where total=''", E::Type, 36, {u"αριθμό", u"«total»"}},
    {u"select aa from dates where day='99/99/2026'", E::Type, 32, {u"ημερομηνία", u"«Day»"}},
    {u"select code from cards where FieldYes1='ίσως'", E::Type, 40, {u"True ή False", u"«ίσως»"}},
    {u"select code from cards where total between 1 and 'x'", E::Type, 50, {u"αριθμό", u"«x»"}},
    {u"select code from cards where code in (1,'x')", E::Type, 41, {u"αριθμό", u"«x»"}},
    {u"select code from cards where photo='x'", E::Type, 35, {u"IS NULL"}},
    {u"select 1e999 from cards", E::Type, 8, {u"1e999"}},
    {u"update cards set total='αβγ'", E::Type, 24, {u"«total»", u"αριθμός"}},
    {u"update cards set ταχ_κωδ='12345678901'", E::Constraint, 26, {u"«ταχ_κωδ»", u"11", u"10"}},
};

}  // namespace

class TestDialectErrors : public QObject {
    Q_OBJECT
private slots:
    void refused_data();
    void refused();
    void onlySelect_data();
    void onlySelect();
    void nesting_data();
    void nesting();
    void large_data();
    void large();
    void parameters();

private:
    DialectDatabase database_;
};

void TestDialectErrors::refused_data() {
    QTest::addColumn<int>("index");
    for (int i = 0; i < int(std::size(cases)); ++i)
        QTest::addRow("%d %s", i, qPrintable(QString::fromUtf16(cases[i].sql).left(50))) << i;
}

void TestDialectErrors::refused() {
    QFETCH(int, index);
    const Case& c = cases[index];
    try {
        database_.translator().translate(QString::fromUtf16(c.sql));
        QFAIL("accepted");
    } catch (const Error& error) {
        QCOMPARE(int(error.category()), int(c.category));
        const QString place = u"Στη θέση %1: "_s.arg(c.position);
        QVERIFY2(c.position == 0 || error.text().startsWith(place), qPrintable(error.text()));
        for (const char16_t* word : c.says)
            if (word) QVERIFY2(error.text().contains(QString::fromUtf16(word)), qPrintable(error.text()));
    }
}

void TestDialectErrors::onlySelect_data() {
    QTest::addColumn<QString>("sql");
    QTest::addColumn<bool>("allowed");
    QTest::newRow("select") << u"Select code from cards;"_s << true;
    QTest::newRow("union") << u"select code from cards union select aa from history"_s << true;
    const char* refused[] = {"delete from cards",
                             "insert into combo1 values (1,'α')",
                             "update cards set total=1",
                             "drop table cards",
                             "select code from cards; delete from cards",
                             "select code from cards; select 1",
                             "select code into x from cards",
                             ""};
    for (const char* sql : refused) QTest::newRow(sql) << QString::fromUtf8(sql) << false;
}

void TestDialectErrors::onlySelect() {
    QFETCH(QString, sql);
    QFETCH(bool, allowed);
    try {
        database_.translator().translate(sql, {DateOrder::DayFirst, true, true, {}});
        QVERIFY(allowed);
    } catch (const Error& error) {
        QVERIFY2(!allowed, qPrintable(error.text()));
        QCOMPARE(int(error.category()), int(ErrorCategory::ReadOnly));
    }
}

static QString repeated(const char* before, const char* middle, const char* after, int times) {
    return QString::fromUtf8(before).repeated(times) + QString::fromUtf8(middle) +
           QString::fromUtf8(after).repeated(times);
}

// A thousand levels end in an error, ten work.
void TestDialectErrors::nesting_data() {
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("middle");
    QTest::addColumn<QString>("after");
    QTest::addColumn<QString>("frame");
    const QString where = u"select code from cards where %1"_s;
    const auto row = [&](const char* name, const char* before, const char* middle, const char* after,
                         const QString& frame) {
        QTest::newRow(name) << QString::fromUtf8(before) << QString::fromUtf8(middle) << QString::fromUtf8(after)
                            << frame;
    };
    row("brackets", "(", "1=1", ")", where);
    row("functions", "len(", "'α'", ")", where);
    row("choices", "iif(code=1,1,", "2", ")", where);
    row("subqueries", "code in (select code from cards where ", "1=1", ")", where);
    row("scalars", "(select ", "1", ")", where);
    row("nots", "not (", "1=1", ")", where);
    row("sums", "1+(", "1", ")", where);
    row("minus", "-(", "code", ")", where);
    row("in", "1 in (", "1", ")", where);
    row("derived", "(select * from ", "cards", ")", u"select * from %1"_s);
    row("joins", "(", "cards", ")", u"select * from %1"_s);
    row("chain", "", "code", "+1", where);
    row("comparisons", "", "code", "=1", where);
    row("powers", "", "code", "^1", where);
    row("exclusive", "", "code=1", " xor code=2", where);
}

void TestDialectErrors::nesting() {
    QFETCH(QString, before);
    QFETCH(QString, middle);
    QFETCH(QString, after);
    QFETCH(QString, frame);
    const auto statement = [&](int times) {
        return frame.arg(before.repeated(times) + middle + after.repeated(times));
    };
    if (!before.contains(u"select"_s)) database_.run(statement(10));
    database_.run(statement(3));
    for (const int times : {1000, 100'000}) {
        try {
            database_.translator().translate(statement(times));
            QFAIL("accepted");
        } catch (const Error& error) {
            QVERIFY2(error.text().contains(u"200"_s), qPrintable(error.text()));
        }
    }
}

// Long is not deep: these run.
void TestDialectErrors::large_data() {
    QTest::addColumn<QString>("sql");
    const QString select = u"select code from cards where "_s;
    QString list = u"0"_s;
    for (int i = 1; i < 20'000; ++i) list += u',' + QString::number(i);
    QTest::newRow("in of numbers") << select + u"code in ("_s + list + u')';
    QTest::newRow("in of texts") << select + u"επωνυμο in ('α'"_s + repeated(",'Άβγ'", "", "", 20'000) + u')';
    QTest::newRow("ors") << select + u"code=1"_s + repeated(" or επωνυμο='Άβγ'", "", "", 20'000);
    QTest::newRow("ands") << select + u"code=1"_s + repeated(" and code<>2", "", "", 20'000);
    QTest::newRow("ands and ors") << select + u"code=1"_s + repeated(" or code=2 and code=3", "", "", 10'000);
    QTest::newRow("megabyte of text") << select + u"σχολια like '%"_s + QString(1'000'000, u'ά') + u"%'"_s;
    QTest::newRow("megabyte of percents") << select + u"επωνυμο like '%α"_s + QString(1'000'000, u'%') + u"β'"_s;
    QTest::newRow("blanks") << select + QString(1'000'000, u' ') + u"code=1"_s;
    QTest::newRow("nots") << select + repeated("not ", "", "", 100'000) + u"code=1"_s;
    QTest::newRow("minus") << select + repeated("- ", "", "", 100'000) + u"code=1"_s;
    QTest::newRow("columns") << u"select code"_s + repeated(",code", "", "", 1500) + u" from cards"_s;
}

void TestDialectErrors::large() {
    QFETCH(QString, sql);
    try {
        database_.run(sql);
    } catch (const std::exception& error) {
        QFAIL(QByteArray(error.what()).left(300).constData());
    }
}

void TestDialectErrors::parameters() {
    const QString sql = u"select code from cards where code=datefrm"_s;
    try {
        database_.translator().translate(sql, {DateOrder::MonthFirst, false, false, {u"datefrom"_s}});
        QFAIL("accepted");
    } catch (const Error& error) {
        QCOMPARE(int(error.category()), int(ErrorCategory::Parameter));
        QVERIFY(error.text().contains(u"«datefrom»"_s));
        QCOMPARE(error.statement(), sql);
    }
}

QTEST_GUILESS_MAIN(TestDialectErrors)
#include "test_dialect_errors.moc"
