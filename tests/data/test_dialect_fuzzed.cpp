// Every entry that the fuzzer found worth keeping, once more.
#include <QtTest/QtTest>

#include "fuzz/corpusfile.h"
#include "fuzz/statementcheck.h"

class TestDialectFuzzed : public QObject {
    Q_OBJECT
private slots:
    void corpus();
    void entriesSurviveTheFile();
};

void TestDialectFuzzed::corpus() {
    const QVector<QByteArray> entries = readCorpus(QString::fromUtf8(DORV_CORPUS));
    QVERIFY(entries.size() > 300);
    StatementCheck check;
    for (const QByteArray& entry : entries) {
        QString fault;
        try {
            fault = check.fault(entry);
        } catch (const std::exception& error) {
            fault = QString::fromUtf8(error.what());
        }
        QVERIFY2(fault.isEmpty(), qPrintable(fault + u'\n' + QString::fromUtf8(escapedEntry(entry))));
    }
    QVERIFY(check.translated() * 5 > entries.size());
}

void TestDialectFuzzed::entriesSurviveTheFile() {
    for (const QByteArray& entry :
         {QByteArray("8select 'α'\n\\x\r\0 end", 21), QByteArray("\xff\xfe\\n"), QByteArray("plain"), QByteArray("\\")})
        QCOMPARE(plainEntry(escapedEntry(entry)), entry);
}

QTEST_GUILESS_MAIN(TestDialectFuzzed)
#include "test_dialect_fuzzed.moc"
