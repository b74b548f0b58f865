#include <QTest>

#include "platform/settings.h"

using namespace Qt::Literals::StringLiterals;

// The settings store on a real file: what is written must be found again by any spelling, in any later run.
class TestSettings : public QObject {
    Q_OBJECT

    QTemporaryDir folder_;
    QString file() const { return folder_.filePath(u"store.ini"_s); }

    void writeFile(const QByteArray& content) {
        QFile f(file());
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write(content);
    }

private slots:
    void init() { QFile::remove(file()); }

    void roundTrip_data() {
        QTest::addColumn<QString>("section");
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("otherSection");
        QTest::addColumn<QString>("otherKey");
        QTest::addColumn<QString>("value");
        QTest::newRow("case of Latin") << "Startup"
                                       << "Path"
                                       << "StartUp"
                                       << "PATH"
                                       << "C:\\Data\\Γραφείο";
        QTest::newRow("case of Greek") << "lvHistory"
                                       << "Ημερομηνία"
                                       << "LVHISTORY"
                                       << "ΗΜΕΡΟΜΗΝΊΑ"
                                       << "1100";
        QTest::newRow("final sigma") << "lvDates"
                                     << "Εντολέας"
                                     << "lvdates"
                                     << "ΕΝΤΟΛΈΑΣ"
                                     << "1000";
        QTest::newRow("section General") << "General"
                                         << "x"
                                         << "general"
                                         << "X"
                                         << "1";
        QTest::newRow("separators in names") << "a/b\\c%"
                                             << "d/e"
                                             << "A/B\\C%"
                                             << "D/E"
                                             << "v";
        QTest::newRow("empty names") << ""
                                     << ""
                                     << ""
                                     << ""
                                     << "v";
        QTest::newRow("empty value") << "Settings"
                                     << "Prefix"
                                     << "settings"
                                     << "prefix"
                                     << "";
        QTest::newRow("commas, quotes, lines") << "s"
                                               << "k"
                                               << "S"
                                               << "K"
                                               << "a, \"b\"; 'c'\nd\t=[x]\\n";
        QTest::newRow("looks like a variant") << "s"
                                              << "k"
                                              << "S"
                                              << "K"
                                              << "@ByteArray(x)";
        QTest::newRow("emoji and right-to-left") << "s"
                                                 << "κλειδί"
                                                 << "S"
                                                 << "ΚΛΕΙΔΊ" << QString::fromUtf8("😀 שלום");
        QTest::newRow("long") << "s"
                              << "k"
                              << "S"
                              << "K" << QString(10000, u'Ω');
    }
    void roundTrip() {
        QFETCH(QString, section);
        QFETCH(QString, key);
        QFETCH(QString, otherSection);
        QFETCH(QString, otherKey);
        QFETCH(QString, value);
        const auto first = platform::iniSettings(file());
        first->setValue(section, key, value);
        QCOMPARE(first->value(otherSection, otherKey, "missing"), value);
        // From the disk, while the first store still lives: nothing waits for a regular end. A copy, since two stores
        // on one file share their memory.
        QTemporaryDir elsewhere;
        const QString copy = elsewhere.filePath("copy.ini");
        QVERIFY(QFile::copy(file(), copy));
        QCOMPARE(platform::iniSettings(copy)->value(otherSection, otherKey, "missing"), value);
    }

    void overwritingByAnotherSpellingLeavesOneKey() {
        const auto store = platform::iniSettings(file());
        store->setValue("Settings", "html", "a");
        store->setValue("SETTINGS", "Html", "b");
        QCOMPARE(store->value("Settings", "html"), QString("b"));
        QFile f(file());
        QVERIFY(f.open(QIODevice::ReadOnly));
        const QByteArray text = f.readAll();
        QCOMPARE(text.toLower().count("html="), 1);
        QVERIFY2(text.contains("html=b"), "the key keeps its first spelling");
    }

    void numbers_data() {
        QTest::addColumn<QString>("stored");
        QTest::addColumn<int>("expected");
        QTest::newRow("number") << "105" << 105;
        QTest::newRow("negative") << "-30" << -30;
        QTest::newRow("blanks") << " 7 " << 7;
        QTest::newRow("text") << "abc" << 42;
        QTest::newRow("empty") << "" << 42;
        QTest::newRow("too large") << "99999999999" << 42;
        QTest::newRow("decimals") << "1,5" << 42;
    }
    void numbers() {
        QFETCH(QString, stored);
        QFETCH(int, expected);
        const auto store = platform::iniSettings(file());
        QCOMPARE(store->number("Settings", "MainLeft", 42), 42);
        store->setValue("Settings", "MainLeft", stored);
        QCOMPARE(store->number("Settings", "MainLeft", 42), expected);
    }

    void handEditedFile() {
        writeFile("[settings]\nname=Γιώργος Παπαδόπουλος, Υιοί\nMAINLEFT=200\n");
        const auto store = platform::iniSettings(file());
        QCOMPARE(store->value("Settings", "Name"), QString::fromUtf8("Γιώργος Παπαδόπουλος, Υιοί"));
        QCOMPARE(store->number("Settings", "MainLeft", 0), 200);
    }

    void brokenFileStillServes_data() {
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("binary") << QByteArray("\x00\xff[\x80=\x01]]]\n\n%%%U12=\xc3\x28\n@Variant(\0\0\0\x7f", 34);
        QTest::newRow("no sections") << QByteArray("just some words\nmore\n");
        QTest::newRow("bad variant") << QByteArray("[a]\nb=@Variant(\\0\\0\\0\\xff\\xff\\xff)\n");
        QTest::newRow("one long line") << QByteArray(200000, '[');
    }
    void brokenFileStillServes() {
        QFETCH(QByteArray, content);
        writeFile(content);
        const auto store = platform::iniSettings(file());
        QCOMPARE(store->value("a", "missing", "default"), QString("default"));
        store->value("a", "b");
        store->setValue("Settings", "UserName", "Admin");
        QCOMPARE(store->value("Settings", "UserName"), QString("Admin"));
    }

    void unwritablePlaceKeepsValuesInMemory() {
        writeFile("");
        // A file where a folder should be: nobody can write below it, not even the superuser.
        const auto store = platform::iniSettings(file() + "/below/store.ini");
        store->setValue("Settings", "UserName", "Admin");
        QCOMPARE(store->value("settings", "username"), QString("Admin"));
    }
};

QTEST_GUILESS_MAIN(TestSettings)
#include "test_settings.moc"
