// Every statement that the windows compose translates and runs.
#include <QtTest/QtTest>

#include "dialectdatabase.h"

using namespace Qt::Literals::StringLiterals;

using namespace data;

class TestDialectCorpus : public QObject {
    Q_OBJECT
private slots:
    void runs_data();
    void runs();

private:
    DialectDatabase database_;
};

void TestDialectCorpus::runs_data() {
    QTest::addColumn<QString>("sql");
    QTest::addColumn<QStringList>("parameters");
    QTest::addColumn<bool>("user");
    QFile file(QFINDTESTDATA("corpus/statements.txt"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QStringList parameters;
    bool user = false;
    int number = 0;
    for (QString line : QString::fromUtf8(file.readAll()).split(u'\n')) {
        ++number;
        if (line.isEmpty() || line.startsWith(u'#')) continue;
        if (line == u"@ user") {
            user = true;
        } else if (line.startsWith(u"@ ")) {
            parameters = line.mid(2).split(u',');
        } else {
            line.replace(u"\\n"_s, u"\r\n"_s);
            QTest::addRow("line %d", number) << line << parameters << user;
            parameters.clear();
            user = false;
        }
    }
}

void TestDialectCorpus::runs() {
    QFETCH(QString, sql);
    QFETCH(QStringList, parameters);
    QFETCH(bool, user);
    DialectOptions options;
    if (user) options = {DateOrder::DayFirst, true, true, {}};
    QMap<QString, QVariant> values;
    for (const QString& name : parameters) values.insert(name.toLower(), QVariant());
    try {
        database_.run(sql, options, values);
    } catch (const std::exception& error) {
        QFAIL(error.what());
    }
}

QTEST_GUILESS_MAIN(TestDialectCorpus)
#include "test_dialect_corpus.moc"
