// Every statement in the program's source is understood by the engine with the tables as they are. Statements are
// found in the source and not at run time, so that none is left out.
#include <QDirIterator>
#include <QtTest>

#include "core/statementchecker.h"
#include "support/office.h"

using namespace Qt::Literals::StringLiterals;

namespace {

// Rooms without statements of the dialect; what src/data has is the engines' own.
const QStringList roomsWithout = {u"data"_s, u"platform"_s, u"controls"_s};

// Code, in which ` stands for a quote.
QString withQuotes(QString code) {
    return code.replace(u'`', u'"');
}

}  // namespace

class TestProgramStatements : public QObject {
    Q_OBJECT

    std::unique_ptr<support::Office> office_;

private slots:
    void initTestCase() { office_ = std::make_unique<support::Office>(); }
    void cleanupTestCase() { office_.reset(); }

    void theProgramsStatementsAreUnderstood() {
        StatementChecker checker(office_->mod.gConn, office_->mod.gConnUsers);
        const QDir root(QString::fromUtf8(DORV_SOURCE));
        QStringList complaints;
        for (const QString& top : {u"src"_s, u"admin"_s}) {
            for (QDirIterator files(root.filePath(top), {u"*.cpp"_s, u"*.h"_s}, QDir::Files,
                                    QDirIterator::Subdirectories);
                 files.hasNext();) {
                QFile file(files.next());
                const QString path = root.relativeFilePath(file.fileName()), room = path.section(u'/', 1, 1);
                if (top == u"src"_s && roomsWithout.contains(room)) continue;
                QVERIFY2(file.open(QIODevice::ReadOnly), qPrintable(path));
                complaints += checker.complaints(room, path, QString::fromUtf8(file.readAll()));
            }
        }
        for (const QString& complaint : complaints) qWarning().noquote() << complaint;
        QVERIFY(complaints.isEmpty());
        QVERIFY2(checker.statements() > 40, qPrintable(QString::number(checker.statements())));
    }

    // What would slip through if the search for statements were blind somewhere.
    void faultsAreFound() {
        const struct {
            const char* name;
            QString source;
        } cases[] = {
            {"a misspelled column", u"open(u`select description,cod from cardKategory`_s);"_s},
            {"a misspelled table", u"open(Sql(u`select * from cardz where code=?`_s, 1));"_s},
            {"in the second literal", u"open(u`select * from cards ` // all\n `where cod=?`_s, code);"_s},
            {"in capitals and lines", u"open(uR`(\n SELECT NOTHING FROM Cards)`_s);"_s},
            {"in a part", u"Sql(u`select * from cards where code=? {and cod=?}`_s, 1, x);"_s},
            {"without its part", u"Sql(u`select * from cards where {code=?}`_s, x);"_s},
            {"an insert", u"execute(u`insert into ToBeDeleted (Entry) values ('a')`_s);"_s},
            {"an update", u"execute(Sql(u`update cards set totl=? where code=1`_s, 2));"_s},
            {"a delete", u"execute(Sql(u`delete from history where code=?`_s, 2));"_s},
            {"of the users", u"open(u`select nme from groups`_s);"_s},
            {"in a constant", u"const QString rows = u`select cod from cards`_s;"_s},
            {"a narrow text", u"open(`select cod from cards`);"_s},
            {"behind a quote", u"if (c == '`' || c == '\\'') open(u`select cod from cards`_s);"_s},
            {"behind a large number", u"int n = 1'000; open(u`select cod from cards`_s); char c = 'x';"_s},
            {"a pasted value", u"open(u`select * from cards where code=%1`_s.arg(code));"_s},
            {"a glued value", u"open(u`select * from cards where code=`_s + code);"_s},
            {"a glued table", u"open(u`select * from `_s + table);"_s},
            {"a pasted condition", u"conditions << u`%1 like '%2%'`_s.arg(column, text);"_s},
            {"a pasted criterion", u"rows.find(u`code=%1`_s.arg(code));"_s},
            {"a pasted date", u"const QString day = u`#%1#`_s.arg(text);"_s},
            {"a further condition", u"sql += u` and category=1`_s;"_s},
            {"an order behind", u"return sql + u` ORDER BY aa`_s;"_s},
            {"a criterion's column", u"rows.find(Sql(u`cod=?`_s, code));"_s},
            {"a table from nowhere", u"open(Sql(u`select * from ?`_s, Sql::name(table)));"_s},
        };
        for (const auto& one : cases) {
            StatementChecker checker(office_->mod.gConn, office_->mod.gConnUsers);
            QVERIFY2(checker.complaints(u"cards"_s, u"src/cards/x.cpp"_s, withQuotes(one.source)).size() == 1,
                     one.name);
        }
    }

    void whatIsNoStatementIsLeftAlone() {
        StatementChecker checker(office_->mod.gConn, office_->mod.gConnUsers);
        const QString source = withQuotes(
            u"#include `select cod from cards`\n"
            "// u`select cod from cards`\n"
            "/* u`select cod from cards` */\n"
            "named(u`select`_s, u`delete`_s, u`Updates.txt`_s);\n"
            "show(u`Από %1 έως %2`_s.arg(from, to), u`a \\` select cod from cards`_s);\n"
            "open(Sql(u`select * from cards where code=? {and category=?} order by code`_s, 1, category));\n"
            "rows.find(Sql(u`code=?`_s, 1));\n"_s);
        const QStringList complaints = checker.complaints(u"cards"_s, u"src/cards/x.cpp"_s, source);
        QVERIFY2(complaints.isEmpty(), qPrintable(complaints.join(u'\n')));
        QCOMPARE(checker.statements(), 1);
    }
};

QTEST_MAIN(TestProgramStatements)
#include "test_programstatements.moc"
