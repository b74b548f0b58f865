// The card, its movements and the journal on paper.
#include "cards/carddriver.h"
#include "cards/frmhmerologio.h"
#include "cards/historyreport.h"
#include "cards/kartela.h"
#include "controls/theme.h"
#include "support/printedpdf.h"

using support::CardDriver;
using support::Office;
using support::PrintedPdf;

namespace {

PrintedPdf pdfOf(const std::function<void(platform::Printer&)>& draw) {
    return support::printedPdf(draw, [](const QString& name) { return controls::font(name, 10); });
}

cards::Kartela kartela() {
    cards::Kartela card;
    card.title = "ΣΤΟΙΧΕΙΑ ΚΑΡΤΕΛΑΣ";
    card.owner = {"Γραφείο", "Ερμού 12", "210 1234567", "info@example.gr"};
    card.today = QDate(2026, 11, 5);
    for (int i = 1; i <= 24; ++i) card.basic.append({QString("Πεδίο%1:").arg(i), QString("τιμή%1").arg(i)});
    card.surname = "Σκίννερ";
    return card;
}

QByteArray photoBytes() {
    QImage image(40, 30, QImage::Format_RGB32);
    image.fill(Qt::darkCyan);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    image.save(&buffer, "PNG");
    return bytes;
}

}  // namespace

class TestCardPrint : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { controls::applyTheme(*qApp, controls::ThemeKind::Light); }

    void theCardOnShowIsPrinted() {
        Office office;
        office.desk.settings.setValue("Settings", "Name", "Γραφείο");
        office.mod.gConn.execute(
            "update CustomFields set FIELdchar2='Χόμπι',fc2=True,FieldNum1='Παιδιά',fn1=True,"
            "FIELddate3='Άφιξη',fd3=True,FieldYes1='Ναι;',fy1=True where id=1");
        office.addCard("O'Σκίννερ", "Άννα",
                       {{"τηλεφωνο1", "2310 123456"},
                        {"ΗΜ_ΓΕΝΗΣΗΣ", "5/3/1970"},
                        {"ΑΝΔΡΑΣ", false},
                        {"FIELdchar2", "σκάκι"},
                        {"FIELdnum1", 2},
                        {"FIELddate3", "1/2/2020"},
                        {"FIELdchar5", "κρυφό"},
                        {"σχολια", "Σημείωση της κάρτας"}});
        CardDriver card(office.mod);
        // What stands in the boxes is printed, not the row.
        card.press(6);
        card.text(5)->setText("Καινούργια 7");
        card.press(12);
        QCOMPARE(office.desk.prompts.lastText(), QString("Η εκτύπωση της καρτέλας ολοκληρώθηκε !"));
        QCOMPARE(office.desk.printers.sent.size(), 1);
        const auto& pages = office.desk.printers.sent[0].pages;
        QCOMPARE(pages.size(), 2);
        const QStringList expected{"Γραφείο",
                                   "Πέμπτη, 05/11/2026",
                                   "ΣΤΟΙΧΕΙΑ ΚΑΡΤΕΛΑΣ",
                                   "Βασικά Στοιχεία",
                                   "Επώνυμο:",
                                   "O'Σκίννερ",
                                   "Όνομα:",
                                   "Άννα",
                                   "Πατρώνυμο:",
                                   "Διεύθυνση:",
                                   "Καινούργια 7",
                                   "Περιοχή:",
                                   "Πόλη:",
                                   "Ταχ. Κώδικας:",
                                   "Τηλ. Οικίας 1:",
                                   "2310 123456",
                                   "Τηλ. Οικίας 2:",
                                   "Φύλλο:",
                                   "Γυναίκα",
                                   "Ημ.Γέννησης:",
                                   "05/03/1970",
                                   "Τόπος Γέννησης:"};
        QCOMPARE(pages[0].mid(0, expected.size()), expected);
        const int special = pages[0].indexOf("Ειδικά Στοιχεία");
        QCOMPARE(pages[0].mid(special),
                 QStringList({"Ειδικά Στοιχεία", "Χόμπι", "σκάκι", "Παιδιά", "2", "Άφιξη", "01/02/2020"}));
        QCOMPARE(pages[1].mid(2), QStringList({"ΣΧΟΛΙΑ ΚΑΡΤΕΛΑΣ", "Επώνυμο:", "O'Σκίννερ", "Σημείωση της κάρτας"}));
    }

    void withoutSpecialFieldsOrTitle() {
        Office office;
        office.addCard("Α", "Β");
        CardDriver card(office.mod);
        QVERIFY(card.form.gPrintKartela({}));
        const auto& pages = office.desk.printers.sent[0].pages;
        QCOMPARE(pages[0].mid(0, 3), QStringList({"Βασικά Στοιχεία", "Επώνυμο:", "Α"}));
        QVERIFY(!pages[0].contains("Ειδικά Στοιχεία"));
        QCOMPARE(pages[1], QStringList({"Επώνυμο:", "Α"}));
    }

    void closingThePreviewPrintsNothing() {
        Office office;
        office.addCard("Α", "Β");
        office.desk.settings.setValue("Options", "PrintPreview", "1");
        CardDriver card(office.mod);
        QTimer::singleShot(0, qApp, [] { qobject_cast<QDialog*>(QApplication::activeModalWidget())->reject(); });
        QTest::keyClick(&card.form, Qt::Key_P, Qt::ControlModifier);
        QVERIFY(office.desk.printers.sent.isEmpty());
        QVERIFY(office.desk.prompts.isEmpty());
    }

    void thePageOfTheCard() {
        cards::Kartela card = kartela();
        card.photo = QImage::fromData(photoBytes());
        card.basic[4].second = QString("πολύ μακριά τιμή ").repeated(20);
        card.basic[5].second = QString("Ω").repeated(300);
        card.special = {{QString("Ονομασία πεδίου χωρίς τέλος ").repeated(8), QString("τιμή ").repeated(60)},
                        {"Τελευταίο:", "τέλος"}};
        const PrintedPdf pdf = pdfOf([&](platform::Printer& printer) { cards::drawKartela(printer, card); });
        QCOMPARE(pdf.pageCount(), 2);
        QCOMPARE(pdf.outside(), QStringList());
        QVERIFY(pdf.text(0).contains("Πεδίο24: τιμή24"));
        QVERIFY(pdf.text(0).count("μακριά") == 20);
        QVERIFY(pdf.text(0).endsWith("τέλος"));
        // Nothing runs into the photo, in the right half below the heading.
        const double middle = pdf.paper().width() / 2, top = pdf.boxOf("Πεδίο1:").top();
        const QRectF photo(middle, top, middle - 50 - 17, middle - 50 - 17);
        for (const PrintedPdf::Word& word : pdf.words(0)) QVERIFY2(!word.box.intersects(photo), qPrintable(word.text));
        // Lines lie below one another.
        double bottom = 0;
        for (int i = 1; i <= 24; ++i) {
            const QRectF label = pdf.boxOf(QString("Πεδίο%1:").arg(i));
            QVERIFY(label.top() > bottom - 2);
            bottom = label.bottom();
        }
    }

    void aCardThatOutgrowsThePageRunsOn() {
        cards::Kartela card = kartela();
        for (int i = 0; i < 60; ++i) card.special.append({QString("Ειδικό%1:").arg(i), QString("ψ").repeated(200)});
        const PrintedPdf pdf = pdfOf([&](platform::Printer& printer) { cards::drawKartela(printer, card); });
        QVERIFY(pdf.pageCount() > 2);
        QCOMPARE(pdf.outside(), QStringList());
        QVERIFY(pdf.text(pdf.pageCount() - 1).contains("ΣΧΟΛΙΑ"));
        QString all;
        for (int page = 0; page < pdf.pageCount(); ++page) all += pdf.text(page);
        for (int i = 0; i < 60; ++i) QVERIFY(all.contains(QString("Ειδικό%1:").arg(i)));
        QCOMPARE(all.count(u'ψ'), 60 * 200);
    }

    void notes_data() {
        QTest::addColumn<QString>("notes");
        QTest::addColumn<QStringList>("lines");
        const QString words = QString("ιιι ").repeated(29) + "ιιιι";  // 120 characters
        QTest::newRow("none") << QString() << QStringList{};
        QTest::newRow("120 characters") << words << QStringList{words};
        QTest::newRow("121 characters") << words + "ι" << QStringList{words.chopped(5), "ιιιιι"};
        QTest::newRow("a blank just behind") << words + " ιι" << QStringList{words.chopped(5), "ιιιι ιι"};
        QTest::newRow("without a blank") << QString("ι").repeated(130)
                                         << QStringList{QString("ι").repeated(120), QString("ι").repeated(10)};
        QTest::newRow("lines of its own") << "ένα\r\nδύο\n\nτρία" << QStringList{"ένα", "δύο", "τρία"};
        QTest::newRow("blanks are kept") << "ένα  δύο" << QStringList{"ένα  δύο"};
    }
    void notes() {
        QFETCH(QString, notes);
        QFETCH(QStringList, lines);
        platform::Printer printer({}, {}, [](const QString& name) { return controls::font(name, 10); });
        cards::PrintNotes(printer, notes);
        QCOMPARE(printer.scaleLeft, 0.0);
        QVERIFY(!printer.font.italic);
        QCOMPARE(printer.endDoc()->texts(0), lines);
    }

    void longNotesAreAllThere() {
        cards::Kartela card = kartela();
        QStringList sent;
        for (int i = 0; i < 3000; ++i) sent << QString("ΛΕΞΗ%1").arg(i);
        card.notes = sent.join(u' ') + "\n" + QString("Ω").repeated(2000) + QChar(0) + "\n😀";
        const PrintedPdf pdf = pdfOf([&](platform::Printer& printer) { cards::drawKartela(printer, card); });
        QCOMPARE(pdf.outside(), QStringList());
        QStringList read;
        int omegas = 0;
        for (int page = 1; page < pdf.pageCount(); ++page)
            for (const PrintedPdf::Word& word : pdf.words(page)) {
                if (word.text.startsWith("ΛΕΞΗ")) read << word.text;
                omegas += word.text.count(u'Ω');
            }
        QVERIFY(pdf.pageCount() > 3);
        QCOMPARE(read, sent);
        QCOMPARE(omegas, 2000);
    }

    void movementsArePrintedFromTheCard() {
        Office office;
        const qint64 code = office.addCard("Σκίννερ", "Άννα", {{"τηλεφωνο1", "2310"}, {"ΚΙΝΗΤΟ", "6970"}});
        office.mod.gConn.execute(QString("Insert into History (codecards,ΗΜΕΡΟΜΗΝΙΑ,ΑΙΤΙΟΛΟΓΙΑ,ΧΡΕΩΣΗ,ΠΙΣΤΩΣΗ) values "
                                         "(%1,#2026/11/03#,'Επίσκεψη',1200.5,0)")
                                     .arg(code));
        CardDriver card(office.mod);
        card.find<QPushButton>("cmdPrint")->click();
        QCOMPARE(office.desk.prompts.lastText(), QString("Η εκτύπωση ολοκληρώθηκε"));
        const QStringList texts = office.desk.printers.sent.value(0).texts();
        QVERIFY(texts.contains("ΙΣΤΟΡΙΚΟ ΕΠΑΦΗΣ από 01/11/2026 έως 05/11/2026"));
        for (const char* text : {"Σκίννερ", "Άννα", "2310", "6970", "ΑΠΟ ΜΕΤΑΦΟΡΑ", "Επίσκεψη", "1.200,50", "ΣΥΝΟΛΑ"})
            QVERIFY2(texts.contains(text), text);
    }

    void theJournalIsPrinted() {
        Office office;
        office.desk.settings.setValue("Settings", "Name", "Γραφείο");
        const qint64 code = office.addCard("Σκίννερ", "Άννα");
        office.mod.gConn.execute(QString("Insert into History (codecards,ΗΜΕΡΟΜΗΝΙΑ,ΑΙΤΙΟΛΟΓΙΑ,ΧΡΕΩΣΗ,ΠΙΣΤΩΣΗ) values "
                                         "(%1,#2026/11/03#,'Επίσκεψη',10,2.5)")
                                     .arg(code));
        cards::frmHmerologio journal(office.mod);
        journal.load();
        journal.findChild<QAbstractButton*>("lblClick(1)")->click();
        QCOMPARE(office.desk.prompts.lastText(), QString("Η εκτύπωση ολοκληρώθηκε"));
        const QStringList texts = office.desk.printers.sent.value(0).texts();
        QVERIFY(texts.contains("Ημερολόγιο από 01/11/2026 έως 05/11/2026"));
        for (const char* text : {"Γραφείο", "Σκίννερ", "Επίσκεψη", "10,00", "2,50", "ΣΥΝΟΛΑ"})
            QVERIFY2(texts.contains(text), text);
    }

    void theReportOfMovements() {
        Office office;
        office.desk.settings.setValue("Settings", "Name", "Γραφείο");
        const qint64 code = office.addCard("Σκίννερ", "Άννα", {{"τηλεφωνο1", "2310"}});
        const qint64 other = office.addCard("Άλλη", "Κάρτα");
        for (const QString& row : {QString("(%1,#2026/11/03#,'Δεύτερη',0,5,'με σημείωση')").arg(code),
                                   QString("(%1,#2026/02/01#,'Πρώτη',1234.5,0,Null)").arg(code),
                                   QString("(%1,#2026/02/01#,'Ξένη',1,0,Null)").arg(other)})
            office.mod.gConn.execute(
                "Insert into History (codecards,ΗΜΕΡΟΜΗΝΙΑ,ΑΙΤΙΟΛΟΓΙΑ,ΧΡΕΩΣΗ,ΠΙΣΤΩΣΗ,notes) values " + row);
        QVERIFY(cards::dtpHistory(office.mod, nullptr, code));
        QVERIFY(!cards::dtpHistory(office.mod, nullptr, 999));
        QCOMPARE(office.desk.printers.sent.size(), 1);
        QCOMPARE(
            office.desk.printers.sent[0].texts(),
            QStringList(
                {"Γραφείο", "ΙΣΤΟΡΙΚΟ ΕΠΑΦΗΣ", "ΕΠΩΝΥΜΟ:",   "Σκίννερ", "ΤΗΛΕΦΩΝΟ:", "2310",        "ΟΝΟΜΑ:",   "Άννα",
                 "ΚΙΝΗΤΟ:", "ΗΜΕΡΟΜΗΝΙΑ",      "ΑΙΤΙΟΛΟΓΙΑ", "ΧΡΕΩΣΗ",  "ΠΙΣΤΩΣΗ",   "1/02/2026",   "1.234,50", "0,00",
                 "Πρώτη",   "3/11/2026",       "0,00",       "5,00",    "Δεύτερη",   "με σημείωση", "Σελίδα: 1"}));
    }

    void aLongReportRepeatsItsHeads() {
        cards::HistoryReport report{{"Γραφείο", "", "", ""}, "Σκίννερ", "Άννα", "2310", "", {}};
        for (int i = 1; i <= 1000; ++i)
            report.movements.append({"1/1/2026", QString("Αιτία%1").arg(i), "1,00", "2,00",
                                     i % 50 ? QString() : QString("μεγάλη σημείωση ").repeated(400)});
        const PrintedPdf pdf = pdfOf([&](platform::Printer& printer) { cards::drawHistory(printer, report, {}); });
        QCOMPARE(pdf.outside(), QStringList());
        QVERIFY(pdf.pageCount() > 20);
        int reasons = 0, notes = 0;
        for (int page = 0; page < pdf.pageCount(); ++page) {
            const QString text = pdf.text(page);
            QVERIFY(text.contains("ΑΙΤΙΟΛΟΓΙΑ"));
            QVERIFY(text.endsWith(QString("Σελίδα: %1").arg(page + 1)));
            notes += text.count("σημείωση");
            for (const PrintedPdf::Word& word : pdf.words(page))
                if (word.text.startsWith("Αιτία")) QCOMPARE(word.text, QString("Αιτία%1").arg(++reasons));
        }
        QCOMPARE(reasons, 1000);
        QCOMPARE(notes, 20 * 400);
    }
};

QTEST_MAIN(TestCardPrint)
#include "test_cardprint.moc"
