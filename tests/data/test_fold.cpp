#include "data/types.h"
#include "data/values/fold.h"
#include "support/cases.h"

using namespace Qt::Literals::StringLiterals;

using namespace data;

class TestFold : public QObject {
    Q_OBJECT

private slots:
    void texts() {
        const struct {
            const char* name;
            QString text, folded;
        } cases[] = {
            {"capitals carry no accents", "ΠΑΠΑΔΟΠΟΥΛΟΣ", "παπαδοπουλοσ"},
            {"small letters do", "Παπαδόπουλος", "παπαδοπουλοσ"},
            {"both dots and accent", "Μαΐου Λαΰσ Ϊ Ϋ", "μαιου λαυσ ι υ"},
            {"polytonic", "ᾼᾳ Ὦ ῥῶ ᾅ", "αα ω ρω α"},
            {"decomposed", u"α\u0301ι\u0308\u0301 e\u0301"_s, "αι e"},
            {"latin", "ÀÉîõü Ñ Çé Åß İ", "aeiou n ce aß i"},
            {"micro sign", u"\u00B5m"_s, u"\u03BCm"_s},
            {"ohm and kelvin signs", u"\u2126\u212A"_s, u"ωk"_s},
            {"other scripts keep their marks", "でガ Привет עִברית", "でガ привет עִברית"},
            {"emoji", "👨‍👩‍👧 A", "👨‍👩‍👧 a"},
            {"deseret capital", QString::fromUcs4(U"\U00010400"), QString::fromUcs4(U"\U00010428")},
            {"grows in UTF-8", u"ȺȺȺȺȺȺȺ"_s, u"ⱥⱥⱥⱥⱥⱥⱥ"_s},
            {"NUL", QString::fromUtf8("Ά\0Β", 5), QString::fromUtf8("α\0β", 5)},
            {"lone surrogates", QString(QChar(0xD801)) + "Α", QString(QChar(0xD801)) + "α"},
            {"empty", "", ""},
            {"ASCII edges", "@AZ[`az{ABCDEFGH", "@az[`az{abcdefgh"},
        };
        support::forEach(cases, [](const auto& one) {
            QCOMPARE(fold(one.text), one.folded);
            if (!one.text.isValidUtf16()) return;
            const QByteArray utf8 = one.text.toUtf8();
            QCOMPARE(QString::fromUtf8(foldUtf8(utf8.constData(), utf8.size())), one.folded);
        });
    }

    // Every character: the fold of the fold is the fold, it doesn't grow, and both roads give the same.
    void wholeUnicode() {
        for (char32_t c = 1; c <= 0x10FFFF; ++c) {
            if (QChar::isSurrogate(c)) continue;
            const QString text = QString::fromUcs4(&c, 1), once = fold(text);
            const QByteArray utf8 = text.toUtf8(), onceUtf8 = foldUtf8(utf8.constData(), utf8.size());
            const bool good = fold(once) == once && once.size() <= text.size() && QString::fromUtf8(onceUtf8) == once;
            if (!good) QFAIL(qPrintable(u"U+%1 folds to %2"_s.arg(uint(c), 0, 16).arg(once)));
        }
    }

    void alphabet() {
        const QString order = u"αβγδεζηθικλμνξοπρστυφχψω"_s;
        QVERIFY(std::is_sorted(order.begin(), order.end()));
        const QString capitals = u"ΑΒΓΔΕΖΗΘΙΚΛΜΝΞΟΠΡΣΤΥΦΧΨΩ"_s;
        QCOMPARE(fold(capitals), order);
    }

    void brokenUtf8() {
        const struct {
            const char* name;
            QByteArray bytes, folded;
        } cases[] = {
            {"cut letter", "A\xCE", "a\xCE"},
            {"cut emoji", "A\xF0\x9F\x98", "a\xF0\x9F\x98"},
            {"Windows-1253", "\xC1\xC2 \xDD Z", "\xC1\xC2 \xDD z"},
            {"overlong", "\xC1\x81\xE0\x80\x81", "\xC1\x81\xE0\x80\x81"},
            {"surrogate", "\xED\xA0\x81Z", "\xED\xA0\x81z"},
            {"beyond Unicode", "\xF4\x90\x80\x80Z", "\xF4\x90\x80\x80z"},
        };
        support::forEach(
            cases, [](const auto& one) { QCOMPARE(foldUtf8(one.bytes.constData(), one.bytes.size()), one.folded); });
    }

    void names() {
        QCOMPARE(nameKey(u"ΕΠΩΝΥΜΟΣ"), nameKey(u"επωνυμος"));
        QCOMPARE(nameKey(u"ΤΕΛΕΥΤΑΙΑ_ΚΙΝΗΣΗ"), nameKey(u"τελευταια_κινηση"));
        QVERIFY(nameKey(u"ΗΜΕΡΑ") != nameKey(u"Ημέρα"));
        Catalog catalog;
        catalog.add({"Cards", {{"code", ColumnType::Autonumber, 0}, {"ΟΡΟΣ", ColumnType::Text, 30}}, "code", 0, {}});
        catalog.add({"Dates", {}, "aa", -1, {}});
        QVERIFY(!catalog.find(u"Card"));
        QCOMPARE(catalog.find(u"CARDS")->indexOf(u"όρος"), -1);
        QCOMPARE(catalog.find(u"cards")->indexOf(u"ορος"), 1);
        catalog.add({"CARDS", {}, "code", -1, {}});
        QCOMPARE(catalog.tables().size(), 2);
    }
};

QTEST_APPLESS_MAIN(TestFold)
#include "test_fold.moc"
