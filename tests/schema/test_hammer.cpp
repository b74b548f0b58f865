#include <QProcess>

#include "hammerworker.h"
#include "schema/check.h"
#include "support/failure.h"
#include "support/officefolder.h"

using namespace Qt::Literals::StringLiterals;
using namespace support;

// Several programs on one office at once, as the seats of a busy morning: eight on a server, four on one folder.
class TestHammer : public QObject {
    Q_OBJECT

    const int deeds = testengine::isPostgres() ? 10'000 : 2'000;  // each deed on files waits for the disk

    hammer::Account together(const QString& folder, int workers) {
        std::vector<std::unique_ptr<QProcess>> processes;
        for (int i = 0; i < workers; ++i) {
            processes.push_back(std::make_unique<QProcess>());
            processes.back()->setProcessChannelMode(QProcess::ForwardedErrorChannel);
            processes.back()->start(QCoreApplication::applicationFilePath(),
                                    {u"worker"_s, folder, QString::number(i + 1), QString::number(deeds / workers)});
        }
        hammer::Account all;
        for (const auto& process : processes) {
            constexpr int longest = 400'000;  // ms; a deadlock would last for ever
            if (!process->waitForFinished(longest) || process->exitCode() != 0) all.failures += u"a worker died"_s;
            const hammer::Account one = hammer::readAccount(process->readAllStandardOutput());
            all.added.insert(one.added);
            for (auto [code, times] : one.changed.asKeyValueRange()) all.changed[code] += times;
            for (auto [code, times] : one.moved.asKeyValueRange()) all.moved[code] += times;
            all.deleted += one.deleted;
            all.conflicts += one.conflicts;
            all.failures += one.failures;
        }
        return all;
    }

private slots:
    void nothingIsLost() {
        ScratchOffice office;
        for (int i = 1; i <= hammer::hotCards; ++i) {
            office.main.execute(u"insert into cards (επωνυμο,ονομα,ΚΕΙΜΕΝΟ1,FIELdnum1) values ('ζ','ζ','ζ',0)"_s);
            office.main.execute(u"insert into History (codecards,ΑΙΤΙΟΛΟΓΙΑ,ΧΡΕΩΣΗ) values (%1,'ζ',0)"_s.arg(i));
        }
        hammer::Account told = together(office.folder(), testengine::isPostgres() ? 8 : 4);
        QCOMPARE(told.failures.join(u'\n'), QString());
        QVERIFY(told.conflicts > 0);
        QVERIFY(told.added.size() > deeds / 5);
        QCOMPARE(QSet<qint64>(told.deleted.begin(), told.deleted.end()).size(), told.deleted.size());
        qInfo("%d conflicts, %d cards added, %d deleted", told.conflicts, int(told.added.size()),
              int(told.deleted.size()));

        for (const qint64 code : told.deleted) QVERIFY(told.added.remove(code) == 1);
        for (int i = 1; i <= hammer::hotCards; ++i) told.added[i] = u"ζ"_s;
        data::Recordset rows(office.main,
                             u"select cards.code,επωνυμο,ονομα,ΚΕΙΜΕΝΟ1,FIELdnum1,aa,ΑΙΤΙΟΛΟΓΙΑ,ΧΡΕΩΣΗ "
                             "from cards left join History on cards.code=History.codecards"_s);
        QCOMPARE(rows.recordCount(), told.added.size());
        for (; !rows.eof(); rows.moveNext()) {
            const qint64 code = rows[u"code"].toLong();
            QVERIFY(told.added.contains(code));
            for (const QString& column : {u"επωνυμο"_s, u"ονομα"_s, u"ΚΕΙΜΕΝΟ1"_s, u"ΑΙΤΙΟΛΟΓΙΑ"_s})
                QCOMPARE(rows[column].text(), told.added[code]);
            QCOMPARE(rows[u"FIELdnum1"].toLong(), told.changed.value(code));
            QCOMPARE(rows[u"ΧΡΕΩΣΗ"].toLong(), told.moved.value(code));
        }
        QCOMPARE(data::Recordset(office.main, u"select aa from History"_s).recordCount(), told.added.size());
        for (const QString& word : {u"select code from cards where ΚΕΙΜΕΝΟ1 like '%σημάδι%'"_s,
                                    u"select aa from History where ΑΙΤΙΟΛΟΓΙΑ like '%ημάδι%'"_s})
            QCOMPARE(data::Recordset(office.main, word).recordCount(), told.added.size() - hammer::hotCards);
        QCOMPARE(schema::findings(office.main, schema::Database::Main), QStringList());
    }
};

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.value(1) == u"worker")
        return hammer::work(arguments.value(2), arguments.value(3).toInt(), arguments.value(4).toInt());
    TestHammer test;
    return QTest::qExec(&test, argc, argv);
}
#include "test_hammer.moc"
