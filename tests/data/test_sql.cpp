// Values in statements: what is written is what the engine reads, and a text that doesn't fit its values is refused.
#include <limits>

#include "roadfixture.h"

using namespace data;
using namespace Qt::Literals::StringLiterals;

namespace {

const QDate day(2026, 11, 5);

struct ValueCase {
    const char* name;
    Sql::Value value;
    QString literal;
    QVariant read;
};

const ValueCase valueCases[] = {
    {"a quote inside", u"O'Neil"_s, u"'O''Neil'"_s, u"O'Neil"_s},
    {"quotes at both ends", u"'abc'"_s, u"'''abc'''"_s, u"'abc'"_s},
    {"two quotes", u"''"_s, u"''''''"_s, u"''"_s},
    {"empty", QString(), u"''"_s, u""_s},
    {"a question mark", u"who? {me}"_s, u"'who? {me}'"_s, u"who? {me}"_s},
    {"other marks", u"[a] \"b\" #c# %1 `\n\\"_s, u"'[a] \"b\" #c# %1 `\n\\'"_s, u"[a] \"b\" #c# %1 `\n\\"_s},
    {"a view", QStringView(u"Άννα"), u"'Άννα'"_s, u"Άννα"_s},
    {"zero", 0, u"0"_s, 0LL},
    {"beyond a double's digits", 9007199254740993LL, u"9007199254740993"_s, 9007199254740993LL},
    {"negative", -17, u"-17"_s, -17LL},
    {"a tenth", 0.1, u"0.1"_s, 0.1},
    {"tiny", 1e-7, u"1e-07"_s, 1e-7},
    {"huge", std::numeric_limits<double>::max(), u"1.7976931348623157e+308"_s, std::numeric_limits<double>::max()},
    {"all digits", 1 / 3.0, u"0.3333333333333333"_s, 1 / 3.0},
    {"seventeen digits", 0.1 + 0.2, u"0.30000000000000004"_s, 0.1 + 0.2},
    {"negative fraction", -2.5, u"-2.5"_s, -2.5},
    {"a day", day, u"#2026/11/05#"_s, wallClock(day)},
    {"a day before 1900", QDate(1821, 3, 25), u"#1821/03/25#"_s, wallClock(QDate(1821, 3, 25))},
    {"the first year", QDate(100, 1, 2), u"#0100/01/02#"_s, wallClock(QDate(100, 1, 2))},
    {"a time", QTime(9, 5), u"#09:05:00#"_s, wallClock(QDate(1899, 12, 30), QTime(9, 5))},
    {"a moment", QDateTime(day, QTime(23, 59, 59)), u"#2026/11/05 23:59:59#"_s, wallClock(day, QTime(23, 59, 59))},
    {"no day", QDate(), u"Null"_s, QVariant()},
    {"no time", QTime(), u"Null"_s, QVariant()},
    {"no moment", QDateTime(), u"Null"_s, QVariant()},
    {"yes", true, u"True"_s, true},
    {"no", false, u"False"_s, false},
    {"null", nullptr, u"Null"_s, QVariant()},
    {"a field's Null", QVariant(), u"Null"_s, QVariant()},
    {"a field's text", QVariant(u"a'b"_s), u"'a''b'"_s, u"a'b"_s},
    {"a field's number", QVariant(5LL), u"5"_s, 5LL},
    {"a field's fraction", QVariant(0.07), u"0.07"_s, 0.07},
    {"a field's date", QVariant(wallClock(day)), u"#2026/11/05 00:00:00#"_s, wallClock(day)},
    {"a field's flag", QVariant(true), u"True"_s, true},
    {"given", std::optional<qint64>(7), u"7"_s, 7LL},
};

struct TextCase {
    const char* name;
    Sql dialect::sql;
    QString text;
};

const TextCase textCases[] = {
    {"several kinds", Sql(u"update t set a=?,b=? where c=?"_s, u"x"_s, 0.5, day),
     u"update t set a='x',b=0.5 where c=#2026/11/05#"_s},
    {"no places", Sql(u"select * from t"_s), u"select * from t"_s},
    {"between quotes", Sql(u"select '?',\"?\" from t where a=?"_s, 1), u"select '?',\"?\" from t where a=1"_s},
    {"a doubled quote", Sql(u"select 'a''?' from t where a=?"_s, 1), u"select 'a''?' from t where a=1"_s},
    {"between marks and brackets", Sql(u"select [a?],`b?` from t where c=#?# or d=?"_s, 1),
     u"select [a?],`b?` from t where c=#?# or d=1"_s},
    {"a value isn't read again", Sql(u"a=? and b=?"_s, u"? '"_s, u"{"_s), u"a='? ''' and b='{'"_s},
    {"an open quote", Sql(u"a=? and b='?"_s, 1), u"a=1 and b='?"_s},
    {"a part that stays", Sql(u"a=? {and b=?}"_s, 1, std::optional<int>(2)), u"a=1 and b=2"_s},
    {"a part that goes", Sql(u"a=? {and b=?}"_s, 1, std::optional<int>()), u"a=1 "_s},
    {"one of its values is missing", Sql(u"a=1{ and b=? and c=?}{ and d=?}"_s, 1, std::nullopt, 3), u"a=1 and d=3"_s},
    {"Null stays", Sql(u"a=1 {and b=?}"_s, nullptr), u"a=1 and b=Null"_s},
    {"braces in a text", Sql(u"a='{?}' {and b=?}"_s, std::nullopt), u"a='{?}' "_s},
    {"names",
     Sql(u"select ? from ? where ?=?"_s, Sql::name(u"Code"_s), Sql::name(u"combo1"_s), Sql::name(u"ΗΜ_ΓΕΝΗΣΗΣ"_s), day),
     u"select [Code] from [combo1] where [ΗΜ_ΓΕΝΗΣΗΣ]=#2026/11/05#"_s},
    {"a list", Sql(u"a in (?) and b=?"_s, Sql::list({1, u"O'Neil"_s, nullptr}), 4),
     u"a in (1,'O''Neil',Null) and b=4"_s},
    {"an empty list", Sql(u"b=? {and a in (?)}"_s, 4, Sql::list({})), u"b=4 "_s},
    {"values together", Sql(u"a=? and b=?"_s, QVector<Sql::Value>{1, true}), u"a=1 and b=True"_s},
};

}  // namespace

class TestSql : public QObject {
    Q_OBJECT

    std::unique_ptr<road::Office> office_;
    std::unique_ptr<Connection> connection_;

    QStringList namesLike(const Sql::Value& pattern) {
        QStringList names;
        for (Recordset rows(*connection_, Sql(u"select ονομα from Cards where ονομα like ? order by code"_s, pattern));
             !rows.eof(); rows.moveNext())
            names += rows.field(0).text();
        return names;
    }

private slots:
    void initTestCase() {
        office_ = std::make_unique<road::Office>();
        connection_ = std::make_unique<Connection>();
        connection_->open(office_->connectionString());
        for (const QString& name : {u"O'Neil"_s, u"50% έκπτωση"_s, u"500 ευρώ"_s})
            connection_->execute(Sql(u"insert into Cards (ονομα) values (?)"_s, name));
    }
    void cleanupTestCase() {
        connection_.reset();
        office_.reset();
    }

    void valuesAreReadAsTheyWere() {
        for (const ValueCase& one : valueCases) {
            QVERIFY2(one.value.literal() == one.literal, one.name);
            Recordset rows(*connection_, Sql(u"select ? as found from Cards where code=1"_s, one.value));
            QVERIFY2(rows.field(0).value() == one.read, one.name);
        }
    }

    void searchesOfARecordsetReadThemToo() {
        Recordset rows(*connection_, u"select code,ονομα from Cards order by code"_s);
        rows.find(Sql(u"ονομα=?"_s, u"50% έκπτωση"_s));
        QCOMPARE(rows[u"code"].toLong(), 2);
        rows.moveFirst();
        rows.find(Sql(u"ονομα like ?"_s, Sql::inside(u"O'n"_s)));
        QCOMPARE(rows[u"code"].toLong(), 1);
    }

    void texts() {
        for (const TextCase& one : textCases)
            QVERIFY2(one.sql.text() == one.text, qPrintable(QString::fromUtf8(one.name) + u": "_s + one.sql.text()));
    }

    void wildcardsOfTheUserStay() {
        const QString all = namesLike(Sql::inside(QString())).join(u'|');
        QCOMPARE(all, u"O'Neil|50% έκπτωση|500 ευρώ"_s);
        QCOMPARE(namesLike(Sql::inside(u"'ne"_s)), QStringList{u"O'Neil"_s});
        QCOMPARE(namesLike(Sql::starting(u"o'"_s)), QStringList{u"O'Neil"_s});
        QCOMPARE(namesLike(Sql::starting(u"'"_s)), QStringList());
        QCOMPARE(namesLike(Sql::starting(u"50%ευρ"_s)), QStringList{u"500 ευρώ"_s});
        QCOMPARE(namesLike(Sql::inside(u"5_0"_s)), QStringList{u"500 ευρώ"_s});
    }

    void whatDoesNotFitIsRefused() {
        VERIFY_ERROR(Syntax, Sql(u"a=?"_s));
        VERIFY_ERROR(Syntax, Sql(u"a=1"_s, 1));
        VERIFY_ERROR(Syntax, Sql(u"a=? and b='?'"_s, 1, 2));
        VERIFY_ERROR(Syntax, Sql(u"a=? and b=?"_s, 1));
        VERIFY_ERROR(Syntax, Sql(u"a=?"_s, std::nullopt));
        VERIFY_ERROR(Syntax, Sql(u"a in (?)"_s, Sql::list({})));
        VERIFY_ERROR(Syntax, Sql(u"a=1 {and b=?"_s, 1));
        VERIFY_ERROR(Syntax, Sql(u"a=1 and b=?}"_s, 1));
        VERIFY_ERROR(Syntax, Sql(u"a=1 {and b=? {or c=?}}"_s, 1, 2));
        VERIFY_ERROR(Syntax, Sql(u"a=? {and b=1}"_s, 1));
        VERIFY_ERROR(Type, Sql(u"a=?"_s, std::numeric_limits<double>::infinity()));
        VERIFY_ERROR(Type, Sql(u"a=?"_s, QVariant(qQNaN())));
        VERIFY_ERROR(Type, Sql(u"a=?"_s, QVariant(QByteArray("x"))));
        for (const QString& name : {u""_s, u"1a"_s, u"a b"_s, u"a]"_s, u"a;"_s, u"a'"_s, u"a.b"_s, u"?"_s, u"a-b"_s})
            VERIFY_ERROR(Syntax, Sql::name(name));
    }
};

QTEST_GUILESS_MAIN(TestSql)
#include "test_sql.moc"
