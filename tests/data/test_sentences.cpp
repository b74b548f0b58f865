// What a user is told of failures below the road: Greek sentences, with nobody else's words in them.
#include <QRegularExpression>
#include <functional>

#include "data/opening/serverdescription.h"
#include "data/postgres/pgengine.h"
#include "roadfixture.h"
#include "support/cases.h"
#include "support/files.h"

using namespace data;

namespace {

// Words in Latin letters outside of a name that is quoted.
QString foreignWords(QString text) {
    static const QRegularExpression quoted(u"«[^»]*»"_s), word(u"[A-Za-z]{3,}"_s);
    return word.match(text.remove(quoted)).captured();
}

}  // namespace

class TestSentences : public QObject {
    Q_OBJECT
private slots:
    void failuresOfTheEngine() {
        road::Office office;
        Connection seat, other;
        seat.open(office.connectionString(100));
        other.open(office.connectionString(100));
        other.execute(u"insert into Cards (total) values (1)"_s);
        const struct {
            const char* name;
            std::function<void()> fails;
        } cases[] = {
            {"a column that only the engine misses",
             [&] { seat.engine().query("SELECT nope FROM nowhere", {}, nullptr); }},
            {"no statement of the engine's", [&] { seat.engine().script("SELEKT 1"); }},
            {"a lock",
             [&] {
                 Transaction held(other);
                 other.execute(u"update Cards set total=2"_s);
                 seat.execute(u"update Cards set total=3"_s);
             }},
            {"a key there already",
             [&] {
                 seat.engine().script("CREATE UNIQUE INDEX once ON \"Saves\" (a)");
                 for (int i = 0; i < 2; ++i) seat.engine().execute("INSERT INTO \"Saves\" (a) VALUES (7)", {});
             }},
            {"a server that isn't there",
             [&] {
                 ServerDescription server;
                 server.host = office.folder();
                 server.database = u"nowhere"_s;
                 postgres::PgEngine(server, {});
             }},
        };
        support::forEach(cases, [](const auto& one) {
            const auto error = errorOf([&] { one.fails(); });
            QVERIFY(error);
            QCOMPARE(foreignWords(error->text()), QString());
            QVERIFY(!error->details().isEmpty());
        });
    }

    void failuresOfFiles() {
        QTemporaryDir folder;
        const QString file = folder.filePath(u"α"_s), inNowhere = folder.filePath(u"β/α"_s);
        const struct {
            const char* name;
            QString file, says;
        } cases[] = {
            {"a folder", folder.path(), u"Είναι φάκελος"_s},
            {"gone", file, u"Δεν υπάρχει"_s},
            {"its folder is gone", inNowhere, u"Δεν υπάρχει ο φάκελός του"_s},
        };
        support::forEach(cases, [](const auto& one) {
            QFile source(one.file);
            QVERIFY(!source.open(QIODevice::ReadOnly));
            QVERIFY2(reasonOf(source).contains(one.says), qPrintable(reasonOf(source)));
            QCOMPARE(foreignWords(reasonOf(source)), QString());
        });
    }

    void failuresOfTheLibrary() {
        QCOMPARE(foreignWords(sentenceOf(std::runtime_error("vector::_M_range_check"))), QString());
        QCOMPARE(sentenceOf(std::runtime_error("Δεν γίνεται.")), u"Δεν γίνεται."_s);
    }
};

QTEST_GUILESS_MAIN(TestSentences)
#include "test_sentences.moc"
