#include "schema/reference.h"

#include <algorithm>

#include "schema/tabfile.h"
#include "support/cases.h"
#include "support/failure.h"
#include "support/files.h"
#include "support/officefolder.h"

using namespace Qt::Literals::StringLiterals;
using namespace support;

class TestReference : public QObject {
    Q_OBJECT

    static QString delivered(const QString& name) { return QString::fromUtf8(DORV_REFERENCE "/") + name; }

    QString written(const QByteArray& content) {
        const QString file = folder_.filePath(u"own.tsv"_s);
        write(file, content);
        return file;
    }
    static const schema::ReferenceKind& kind(const QString& name) { return *schema::findReferenceKind(name); }

    QTemporaryDir folder_;

private slots:
    void deliveredNameDaysAreACalendar() {
        QHash<QString, int> daysOf;
        QSet<QString> pairs;
        QVector<int> perMonth(13);
        QPair<int, QString> last;  // part and day of the year
        for (const schema::TabRow& row : schema::readTabFile(delivered(u"namedays.tsv"_s), 2)) {
            const QString name = row.cells[0], day = row.cells[1];
            QVERIFY2(!pairs.contains(name + day), qPrintable(name + u' ' + day));
            pairs += name + day;
            // What the first part says of a name is its one first choice; each part runs through the year.
            QVERIFY2(++daysOf[name] == 1 || row.since > 1, qPrintable(name + u' ' + day));
            const QPair<int, QString> place(row.since, day.mid(3) + day.left(2));
            QVERIFY2(last <= place && row.since <= schema::currentVersion, qPrintable(name + u' ' + day));
            last = place;
            // In a year without 29 February, so that every feast comes every year.
            const QDate date = QDate::fromString(day + u"/2025"_s, u"dd/MM/yyyy"_s);
            QVERIFY2(date.isValid(), qPrintable(name + u' ' + day));
            ++perMonth[date.month()];
            QVERIFY2(name.size() <= 30 && name[0].isUpper() && !name.contains(u' '), qPrintable(name));
            const bool greek =
                std::all_of(name.cbegin(), name.cend(), [](QChar c) { return c.script() == QChar::Script_Greek; });
            QVERIFY2(greek && name == name.normalized(QString::NormalizationForm_C), qPrintable(name));
        }
        QVERIFY(daysOf.size() >= 1000);
        const auto several = std::count_if(daysOf.cbegin(), daysOf.cend(), [](int days) { return days > 1; });
        QVERIFY2(several >= 200, qPrintable(QString::number(several)));
        QVERIFY(*std::min_element(perMonth.cbegin() + 1, perMonth.cend()) >= 30);
    }

    void namesHaveAllTheirFixedFeasts() {
        QHash<QString, QStringList> daysOf;
        for (const schema::TabRow& row : schema::readTabFile(delivered(u"namedays.tsv"_s), 2))
            daysOf[row.cells[0]] += row.cells[1];
        const struct {
            QString name, days;
        } cases[] = {
            {u"Άννα"_s, u"09/09 03/02 25/07 09/12"_s},
            {u"Γρηγόριος"_s, u"10/01 25/01 14/11"_s},
            {u"Γρηγόρης"_s, u"10/01 25/01 14/11"_s},
            {u"Ιωάννης"_s, u"07/01 08/05 27/05 24/06 29/08 26/09 13/11"_s},
            {u"Γιάννης"_s, u"07/01 24/06 26/09 13/11"_s},
            {u"Αθανάσιος"_s, u"18/01 02/05 05/07"_s},
            {u"Θεόδωρος"_s, u"08/02 17/02"_s},
            {u"Γεώργιος"_s, u"23/04 03/11"_s},
            {u"Δημήτριος"_s, u"26/10"_s},
            {u"Νικόλαος"_s, u"06/12 20/05"_s},
            {u"Κωνσταντίνος"_s, u"21/05"_s},
            {u"Μαρία"_s, u"15/08 08/09 21/11"_s},
            {u"Δέσποινα"_s, u"15/08 21/11"_s},
            {u"Διονύσιος"_s, u"03/10 24/08 17/12"_s},
            {u"Γεράσιμος"_s, u"20/10 16/08"_s},
            {u"Νεκτάριος"_s, u"09/11 03/09"_s},
            {u"Σταμάτης"_s, u"03/02 08/11"_s},
            {u"Κοσμάς"_s, u"01/07 24/08 01/11"_s},
            {u"Στέφανος"_s, u"27/12 02/08"_s},
            {u"Φωτεινή"_s, u"06/01 26/02"_s},
            {u"Κύριλλος"_s, u"18/01 09/06"_s},
            {u"Ειρήνη"_s, u"05/05 28/07"_s},
            {u"Αναστασία"_s, u"22/12 29/10"_s},
            {u"Αθηνά"_s, u"01/09"_s},
            {u"Θεολόγος"_s, u"08/05 26/09"_s},
        };
        forEach(cases, [&](const auto& one) {
            for (const QString& day : one.days.split(u' ')) QVERIFY2(daysOf[one.name].contains(day), qPrintable(day));
        });
        QCOMPARE(daysOf[u"Αικατερίνη"_s], QStringList(u"25/11"_s));  // a name of one feast stays one of one feast
    }

    void deliveredFilesLoad() {
        const struct {
            QString name, probe, answer;
        } cases[] = {
            {u"namedays"_s,
             u"select onoma from NameDay where day(hmera)=21 and month(hmera)=5 and "
             u"onoma='Ελένη'"_s,
             u"Ελένη"_s},
            {u"farmaka"_s, u"select top 1 ousia from Farmaka where name like 'Ατορβα%'"_s, u"Ατορβαστατίνη"_s},
            {u"medra"_s,
             u"select [Κατηγορία/Οργανικό Σύστημα (SOC)_ονομασία] from MEDRA where "
             u"[Preferred Term (PT)_ name]='Cough'"_s,
             u"Διαταραχές του αναπνευστικού συστήματος, του θώρακα και του μεσοθωρακίου"_s},
        };
        ScratchOffice office;
        forEach(cases, [&](const auto& one) {
            const QString file = delivered(one.name + u".tsv"_s);
            const int added = schema::loadReference(office.main, kind(one.name), file).added;
            QVERIFY(added >= 40);
            QCOMPARE(firstText(office.main, one.probe), one.answer);
            const schema::LoadCounts again = schema::loadReference(office.main, kind(one.name), file);
            QCOMPARE(again.added, 0);
            QCOMPARE(again.alreadyThere, added);
            QCOMPARE(schema::loadReference(office.main, kind(one.name), file, true).added, added);
            QCOMPARE(firstText(office.main, u"select count(*) from "_s + kind(one.name).table), QString::number(added));
        });
    }

    void badLineRejectsTheWholeFile() {
        const QByteArray good = "# c\nΆννα\t09/09\n";
        const struct {
            const char* name;
            QByteArray content;
            QString says;
        } cases[] = {
            {"columns", good + "Ελένη\n", u"γραμμή 3: χρειάζονται 2"_s},
            {"too many columns", good + "Ελένη\t21/05\tx\n", u"βρέθηκαν 3"_s},
            {"no date", good + "\nΕλένη\t31/04\n", u"γραμμή 4: το «31/04»"_s},
            {"month first", good + "Ελένη\t05/21\n", u"«05/21»"_s},
            {"signs for digits", good + "Ελένη\t+1/-5\n", u"«+1/-5»"_s},
            {"no name", good + "\t21/05\n", u"πρώτη στήλη"_s},
            {"twice", good + "Ελένη\t21/05\r\nΆννα\t09/09\n", u"γραμμή 4: είναι ίδια με τη γραμμή 2"_s},
            {"not UTF-8", good + QByteArray("\xC5\xEB\xDD\xED\xE7\t21/05\n"), u"γραμμή 3"_s},
            {"NUL", good + QByteArray("A\0B\t21/05\n", 10), u"χαρακτήρας ελέγχου"_s},
            {"too long", good + QByteArray(10000, 'a') + "\t21/05\n", u"έως 255"_s},
            {"nothing", "# only this\n\n", u"καμία γραμμή"_s},
        };
        ScratchOffice office;
        office.main.execute(u"insert into NameDay (ONOMA,HMERA) values ('Πρώτη',#2000/02/29#)"_s);
        forEach(cases, [&](const auto& one) {
            VERIFY_FAILURE(one.says,
                           schema::loadReference(office.main, kind(u"namedays"_s), written(one.content), true));
            QCOMPARE(firstText(office.main, u"select onoma from NameDay"_s), u"Πρώτη"_s);
        });
    }

    void missingFileSaysSo() {
        ScratchOffice office;
        VERIFY_FAILURE(u"nowhere.tsv",
                       schema::loadReference(office.main, kind(u"medra"_s), folder_.filePath(u"nowhere.tsv"_s)));
        VERIFY_FAILURE(u"Δεν διαβάζεται", schema::loadReference(office.main, kind(u"medra"_s), folder_.path()));
    }
};

QTEST_GUILESS_MAIN(TestReference)
#include "test_reference.moc"
