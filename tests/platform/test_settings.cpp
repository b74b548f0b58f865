#include "platform/settings.h"

#include "support/cases.h"

using namespace Qt::Literals::StringLiterals;

// The settings store on a real file: what is written must be found again by any spelling, in any later run.
class TestSettings : public QObject {
    Q_OBJECT

    QTemporaryDir folder_;
    QString file() const { return folder_.filePath(u"store.ini"_s); }

    void writeFile(const QByteArray& content) {
        QFile f(file());
        QVERIFY(f.open(QIODevice::WriteOnly) && f.write(content) == content.size());
    }

private slots:
    void init() { QFile::remove(file()); }

    void aStoreThatTakesNothingSaysSoOnce() {
        writeFile("x");
        const auto store = platform::iniSettings(file() + "/below a file.ini");
        QStringList told;
        store->refused = [&](const QString& which) { told << which; };
        for (const char* value : {"1", "2"}) store->setValue("s", "k", value);
        QCOMPARE(told, QStringList{file() + "/below a file.ini"});
        QCOMPARE(store->value("s", "k"), "2");
    }

    void roundTrip() {
        struct Case {
            const char* name;
            QString section, key, otherSection, otherKey, value;
        };
        const Case cases[] = {
            {"case of Latin", "Startup", "Path", "StartUp", "PATH", "C:\\Data\\Γραφείο"},
            {"case of Greek", "lvHistory", "Ημερομηνία", "LVHISTORY", "ΗΜΕΡΟΜΗΝΊΑ", "1100"},
            {"final sigma", "lvDates", "Εντολέας", "lvdates", "ΕΝΤΟΛΈΑΣ", "1000"},
            {"section General", "General", "x", "general", "X", "1"},
            {"separators in names", "a/b\\c%", "d/e", "A/B\\C%", "D/E", "v"},
            {"empty names", "", "", "", "", "v"},
            {"empty value", "Settings", "Prefix", "settings", "prefix", ""},
            {"commas, quotes, lines", "s", "k", "S", "K", "a, \"b\"; 'c'\nd\t=[x]\\n"},
            {"looks like a variant", "s", "k", "S", "K", "@ByteArray(x)"},
            {"emoji and right-to-left", "s", "κλειδί", "S", "ΚΛΕΙΔΊ", "😀 שלום"},
            {"long", "s", "k", "S", "K", QString(10000, u'Ω')},
        };
        for (const Case& c : cases) {
            const support::InCase in(c.name);
            const auto first = platform::iniSettings(file());
            first->setValue(c.section, c.key, c.value);
            QCOMPARE(first->value(c.otherSection, c.otherKey, "missing"), c.value);
            // From the disk, while the first store still lives: nothing waits for a regular end. A copy, since two
            // stores on one file share their memory.
            QTemporaryDir elsewhere;
            const QString copy = elsewhere.filePath("copy.ini");
            QVERIFY(QFile::copy(file(), copy));
            QCOMPARE(platform::iniSettings(copy)->value(c.otherSection, c.otherKey, "missing"), c.value);
        }
    }

    void overwritingByAnotherSpellingLeavesOneKey() {
        const auto store = platform::iniSettings(file());
        store->setValue("Settings", "html", "a");
        store->setValue("SETTINGS", "Html", "b");
        QCOMPARE(store->value("Settings", "html"), "b");
        QFile f(file());
        QVERIFY(f.open(QIODevice::ReadOnly));
        const QByteArray text = f.readAll();
        QCOMPARE(text.toLower().count("html="), 1);
        QVERIFY2(text.contains("html=b"), "the key keeps its first spelling");
    }

    void numbers() {
        const std::pair<const char*, int> cases[] = {{"105", 105}, {"-30", -30},        {" 7 ", 7}, {"abc", 42},
                                                     {"", 42},     {"99999999999", 42}, {"1,5", 42}};
        const auto store = platform::iniSettings(file());
        QCOMPARE(store->number("Settings", "MainLeft", 42), 42);
        for (const auto& [stored, expected] : cases) {
            const support::InCase in(stored);
            store->setValue("Settings", "MainLeft", stored);
            QCOMPARE(store->number("Settings", "MainLeft", 42), expected);
        }
    }

    void handEditedFile() {
        writeFile("[settings]\nname=Γιώργος Παπαδόπουλος, Υιοί\nMAINLEFT=200\n");
        const auto store = platform::iniSettings(file());
        QCOMPARE(store->value("Settings", "Name"), "Γιώργος Παπαδόπουλος, Υιοί");
        QCOMPARE(store->number("Settings", "MainLeft", 0), 200);
    }

    void brokenFileStillServes() {
        const std::pair<const char*, QByteArray> cases[] = {
            {"binary", QByteArray("\x00\xff[\x80=\x01]]]\n\n%%%U12=\xc3\x28\n@Variant(\0\0\0\x7f", 34)},
            {"no sections", "just some words\nmore\n"},
            {"bad variant", "[a]\nb=@Variant(\\0\\0\\0\\xff\\xff\\xff)\n"},
            {"one long line", QByteArray(200000, '[')}};
        for (const auto& [name, content] : cases) {
            const support::InCase in(name);
            writeFile(content);
            const auto store = platform::iniSettings(file());
            QCOMPARE(store->value("a", "missing", "default"), "default");
            store->value("a", "b");
            store->setValue("Settings", "UserName", "Admin");
            QCOMPARE(store->value("Settings", "UserName"), "Admin");
        }
    }

    void unwritablePlaceKeepsValuesInMemory() {
        writeFile("");
        // A file where a folder should be: nobody can write below it, not even the superuser.
        const auto store = platform::iniSettings(file() + "/below/store.ini");
        store->setValue("Settings", "UserName", "Admin");
        QCOMPARE(store->value("settings", "username"), "Admin");
    }
};

QTEST_GUILESS_MAIN(TestSettings)
#include "test_settings.moc"
