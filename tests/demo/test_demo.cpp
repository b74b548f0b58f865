#include "demo/demo.h"

#include <QImage>
#include <QtTest>

#include "data/opening/password.h"
#include "demo/latin.h"
#include "schema/tables.h"
#include "support/officefolder.h"
#include "support/rowtexts.h"

using namespace Qt::Literals::StringLiterals;
using namespace support;
using schema::Database;

namespace {

constexpr int cards = 1200;
const QDate today(2026, 11, 23);

demo::DemoOptions options(quint64 seed, int count = cards) {
    demo::DemoOptions options;
    options.cards = count;
    options.seed = seed;
    options.referenceDate = today;
    return options;
}

QStringList contents(data::Connection& connection) {
    QStringList all;
    for (const schema::Table& table : schema::tables(Database::Main))
        all += rowTexts(connection.engine(), "SELECT * FROM \"" + table.name.toUtf8() + '"');
    return all;
}

}  // namespace

class TestDemo : public QObject {
    Q_OBJECT

    std::unique_ptr<ScratchOffice> office_;
    data::Connection& main() { return office_->main; }
    QString count(const QString& from) { return firstText(main(), u"select count(*) from "_s + from); }

private slots:
    void initTestCase() {
        office_ = std::make_unique<ScratchOffice>(QString::fromUtf8(DORV_REFERENCE));
        demo::fillDemo(main(), office_->users, options(7));
    }
    void cleanupTestCase() { office_.reset(); }

    void sameSeedSameOffice() {
        const auto made = [](quint64 seed) {
            ScratchOffice office(QString::fromUtf8(DORV_REFERENCE));
            demo::fillDemo(office.main, office.users, options(seed, 60));
            return contents(office.main);
        };
        const QStringList one = made(1);
        QVERIFY(made(1) == one);
        QVERIFY(made(2) != one);
    }

    void totalsAreTheLedgers() {
        QHash<qint64, double> balances;
        data::Recordset moves(main(), u"select codecards,ΧΡΕΩΣΗ,ΠΙΣΤΩΣΗ,ΗΜΕΡΟΜΗΝΙΑ from History"_s);
        for (; !moves.eof(); moves.moveNext()) {
            balances[moves.field(0).toLong()] += moves.field(1).toDouble() - moves.field(2).toDouble();
            QVERIFY(moves.field(3).toDate().date() <= today);
        }
        QVERIFY(balances.size() > cards / 10);
        data::Recordset all(main(), u"select code,total from Cards"_s);
        QCOMPARE(all.recordCount(), cards);
        for (; !all.eof(); all.moveNext())
            QVERIFY2(qAbs(all.field(1).toDouble() - balances.value(all.field(0).toLong())) < 0.005,
                     qPrintable(all.field(0).text()));
    }

    void everyTextFitsAndEveryCardIsComplete() {
        data::Recordset all(main(), u"select * from Cards"_s);
        for (; !all.eof(); all.moveNext()) {
            for (int i = 0; i < all.fieldCount(); ++i)
                if (all.field(i).columnType() == data::ColumnType::Text)
                    QVERIFY2(all.field(i).text().size() <= all.field(i).definedSize(), qPrintable(all.field(i).name()));
            for (const QString& mandatory : {u"επωνυμο"_s, u"ονομα"_s, u"category"_s})
                QVERIFY(!all[mandatory].isNull());
            QVERIFY(!all[u"ΚΙΝΗΤΟ"].isNull() || !all[u"τηλεφωνο1"].isNull());
            for (const QString& phone : {u"τηλεφωνο1"_s, u"τηλεφωνο2"_s, u"ΚΙΝΗΤΟ"_s})
                QVERIFY(all[phone].isNull() || all[phone].text().size() == 10);
        }
        QCOMPARE(count(u"Cards where category not in (select Code from CardKategory)"_s), u"0"_s);
    }

    void nameDayLinesAreTheCombosLines() {
        QSet<QString> lines;
        data::Recordset days(main(), u"select ONOMA,HMERA from NameDay"_s);
        for (; !days.eof(); days.moveNext())
            lines += days.field(0).text() + u"   "_s + days.field(1).toDate().toString(u"dd'/'MM");
        data::Recordset all(main(), u"select ονομα,KEIM_ΕΟΡΤΗΣ,ΗΜ_ΕΟΡΤΗΣ from Cards"_s);
        for (; !all.eof(); all.moveNext()) {
            const QString line = all.field(1).text();
            QVERIFY2(lines.contains(line), qPrintable(all.field(0).text()));
            QVERIFY(line.startsWith(all.field(0).text() + u"   "_s));
            QCOMPARE(all.field(2).text(), line.right(5) + u"/2026"_s);
        }
    }

    void surnamesFollowTheSex() {
        QCOMPARE(count(u"Cards where ΑΝΔΡΑΣ=True and επωνυμο like '%οπουλου'"_s), u"0"_s);
        QCOMPARE(count(u"Cards where ΑΝΔΡΑΣ=False and επωνυμο like '%οπουλος'"_s), u"0"_s);
        QVERIFY(count(u"Cards where ΑΝΔΡΑΣ=False and επωνυμο like '%οπουλου'"_s).toInt() > 5);
    }

    void addressesAreWrittenAsPeopleWriteThem() {
        const QVector<QPair<QString, QString>> names = {{u"Ελευθέριος"_s, u"eleftherios"_s},
                                                        {u"Παύλος"_s, u"pavlos"_s},
                                                        {u"Παπαδοπούλου"_s, u"papadopoulou"_s},
                                                        {u"Άγγελος Ψυχάρης"_s, u"angelospsycharis"_s}};
        for (const auto& [greek, latin] : names) QCOMPARE(demo::latinName(greek), latin);
    }

    void photosAreImages() {
        data::Recordset photos(main(), u"select Photo from Cards where Photo is not null"_s);
        QVERIFY(photos.recordCount() >= 40 && photos.recordCount() <= 200);
        for (; !photos.eof(); photos.moveNext()) {
            const QByteArray bytes = photos.field(0).value().toByteArray();
            QVERIFY(bytes.size() < 20000);
            QCOMPARE(QImage::fromData(bytes).size(), QSize(64, 80));
        }
    }

    void diaryNeverClashesAndHasToday() {
        for (const QString& user : {u"Admin"_s, u"maria"_s, u"nikos"_s, u"eleni"_s}) {
            data::Recordset dates(
                main(),
                u"select [day],[start],[end],subject from Dates where [user]='%1' order by [day],[start]"_s.arg(user));
            int todays = 0;
            QDateTime freeFrom;
            for (; !dates.eof(); dates.moveNext()) {
                const QDate day = dates.field(0).toDate().date();
                const QDateTime start(day, dates.field(1).toDate().time(), Qt::UTC);
                todays += day == today;
                QVERIFY(!freeFrom.isValid() || start > freeFrom);
                freeFrom = QDateTime(day, dates.field(2).toDate().time(), Qt::UTC);
                QVERIFY(freeFrom > start);
                QCOMPARE(dates.field(1).toDate().date(), QDate(1899, 12, 30));
            }
            QVERIFY(todays >= 2);
        }
        for (const QString& table : {u"ThinksToDo"_s, u"Calls"_s, u"Links"_s, u"Combo1"_s, u"Combo4"_s})
            QVERIFY2(count(table).toInt() > 0, qPrintable(table));
        QCOMPARE(count(u"Dates where codecard<>0 and codecard not in (select code from Cards)"_s), u"0"_s);
    }

    void captionsAreOnAndUsersCanLogOn() {
        data::Recordset fields(main(), u"select FIELdchar1,fc1,fc4,FieldCombo1,fcb1 from CustomFields"_s);
        QCOMPARE(fields.field(0).text(), u"ΑΦΜ"_s);
        QVERIFY(fields.field(1).toBool() && !fields.field(2).toBool() && fields.field(4).toBool());
        for (const demo::DemoUser& user : demo::demoUsers()) {
            data::Recordset row(office_->users, u"select * from users where UserName='%1'"_s.arg(user.name));
            QVERIFY(data::isVerifier(row[u"Password"].text()));
            QVERIFY(data::verifyPassword(row[u"Password"].text(), user.password));
            QCOMPARE(row[u"Group"].toLong(), user.group);
        }
    }

    void emptyOfficeIsFine() {
        ScratchOffice office;
        demo::fillDemo(office.main, office.users, options(1, 0));
        QCOMPARE(firstText(office.main, u"select count(*) from Cards"_s), u"0"_s);
    }
};

QTEST_GUILESS_MAIN(TestDemo)
#include "test_demo.moc"
