// The card, its movements and the journal on paper.
#include "carddriver.h"
#include "cards/frmhmerologio.h"
#include "cards/historyreport.h"
#include "cards/kartela.h"
#include "controls/theme.h"
#include "support/cases.h"
#include "support/printedpdf.h"

using namespace support;
using namespace support::card;

namespace {

PrintedPdf pdfOf(const std::function<void(platform::Printer&)>& draw) {
    return support::printedPdf(draw, [](const QString& name) { return controls::font(name, 10); });
}

cards::Kartela kartela() {
    cards::Kartela card;
    card.title = "ΣΤΟΙΧΕΙΑ ΚΑΡΤΕΛΑΣ";
    card.owner = {"Γραφείο Α", "Ερμού 12", "210 1234567", "info@example.gr"};
    card.today = QDate(2026, 11, 5);
    for (int i = 1; i <= 24; ++i) card.basic.append({QString("Πεδίο%1:").arg(i), QString("τιμή%1").arg(i)});
    card.surname = "Σκίννερ";
    return card;
}

PrintedPdf pdfOf(const cards::Kartela& card) {
    return pdfOf([&](platform::Printer& printer) { cards::drawKartela(printer, card); });
}

}  // namespace

class TestCardPrint : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { controls::applyTheme(*qApp, controls::ThemeKind::Light); }

    void theCardOnShowIsPrinted() {
        Office office;
        office.desk.setOwner();
        office.mod.gConn.execute("INSERT into CardKategory VALUES (7,'ΠΕΛΑΤΕΣ',1)");
        office.mod.gConn.execute(
            "update CustomFields set FIELdchar2='Χόμπι',fc2=True,FieldNum1='Παιδιά',fn1=True,"
            "FIELddate3='Άφιξη',fd3=True,FieldYes1='Ναι;',fy1=True where id=1");
        const QStringList basic[] = {{"Επώνυμο:", "επωνυμο", "O'Σκίννερ"},
                                     {"Όνομα:", "ονομα", "Άννα"},
                                     {"Πατρώνυμο:", "πατρονυμο", "Νίκος"},
                                     {"Διεύθυνση:", "διευθυνση", "Ερμού 7"},
                                     {"Περιοχή:", "περιοχη", "Κέντρο"},
                                     {"Πόλη:", "πολη", "Βόλος"},
                                     {"Ταχ. Κώδικας:", "ταχ_κωδ", "38221"},
                                     {"Τηλ. Οικίας 1:", "τηλεφωνο1", "2310 1"},
                                     {"Τηλ. Οικίας 2:", "τηλεφωνο3", "2310 3"},
                                     {"Φύλλο:", "ΑΝΔΡΑΣ", "Γυναίκα"},
                                     {"Ημ.Γέννησης:", "ΗΜ_ΓΕΝΗΣΗΣ", "05/03/1970"},
                                     {"Τόπος Γέννησης:", "ΤΟΠΟΣ_ΓΕΝΗΣΗΣ", "Κως"},
                                     {"Επάγγελμα:", "επαγγελμα", "γιατρός"},
                                     {"Εταιρία:", "εταιρια", "Α.Ε."},
                                     {"Διεύθ. Εργασίας:", "ΔΙΕΥΘΥΝΣΗ_ΕΡΓΑΣΙΑΣ", "Άλλη 2"},
                                     {"Τηλ. Εργασίας 1:", "τηλεφωνο2", "2310 2"},
                                     {"Τηλ. Εργασίας 2:", "τηλεφωνο4", "2310 4"},
                                     {"Fax:", "FAX", "2310 5"},
                                     {"Κινητό:", "ΚΙΝΗΤΟ", "6970"},
                                     {"e-mail:", "email", "a@b.gr"},
                                     {"URL:", "URL", "b.gr"},
                                     {"Κατηγορία:", "category", "ΠΕΛΑΤΕΣ"},
                                     {"Σύσταση:", "ΣΥΣΤΑΣΗ", "φίλος"},
                                     {"Σχόλια:", "ΣΧΟΛΙΑ1", "καλή"}};
        QVariantMap row{{"FIELdchar2", "σκάκι"},           {"FIELdnum1", 2},
                        {"FIELddate3", "1/2/2020"},        {"FIELdchar5", "κρυφό"},
                        {"σχολια", "Σημείωση της κάρτας"}, {"Photo", pictureBytes({40, 30})}};
        QStringList first =
            office.desk.owner + QStringList{"Πέμπτη, 05/11/2026", "ΣΤΟΙΧΕΙΑ ΚΑΡΤΕΛΑΣ", "Βασικά Στοιχεία"};
        for (const QStringList& line : basic) {
            row.insert(line[1], line[2]);
            first << line[0] << line[2];
        }
        row.insert("ΑΝΔΡΑΣ", false);
        row.insert("category", 7);
        row.insert("διευθυνση", "Παλιά 1");
        first << QStringList{"Ειδικά Στοιχεία", "Χόμπι", "σκάκι", "Παιδιά", "2", "Άφιξη", "01/02/2020"};
        office.addCard("", "", row);
        office.addCard("Ω", "χωρίς φωτογραφία");
        CardDriver card(office.mod);
        // What stands in the boxes is printed, not the row.
        card.press(Edit);
        card.type("Text7(5)", "Ερμού 7");
        card.press(Print);
        QCOMPARE(office.desk.prompts.lastText(), "Η εκτύπωση της καρτέλας ολοκληρώθηκε !");
        card.press(Cancel);
        card.press(Next);
        card.press(Print);
        QCOMPARE(office.desk.printers.sent.size(), 2);
        const auto& pages = office.desk.printers.sent[0].pages;
        QCOMPARE(pages.size(), 2);
        QCOMPARE(pages[0], first);
        QCOMPARE(pages[1].mid(office.desk.owner.size() + 1),
                 QStringList({"ΣΧΟΛΙΑ ΚΑΡΤΕΛΑΣ", "Επώνυμο:", "O'Σκίννερ", "Σημείωση της κάρτας"}));
        // What the second card doesn't have goes on no page as a date.
        for (const QString date : {"01/01/1900", "05/11/2026"})
            QVERIFY2(!office.desk.printers.sent[1].texts().contains(date), qPrintable(date));
        for (const int sent : {0, 1}) {
            const QImage& page = office.desk.printers.sent[sent].firstPage;
            const QColor beside = page.pixelColor(page.width() * 3 / 4, page.height() / 4);
            QCOMPARE(beside, QColor(sent == 0 ? Qt::darkCyan : Qt::white));
        }
    }

    void withoutSpecialFieldsOrTitle() {
        CardSite card{{"Α", "Β"}};
        QVERIFY(card.form.gPrintKartela({}));
        const auto& pages = card.desk.printers.sent[0].pages;
        QCOMPARE(pages[0].mid(0, 3), QStringList({"Βασικά Στοιχεία", "Επώνυμο:", "Α"}));
        QVERIFY(!pages[0].contains("Ειδικά Στοιχεία"));
        QCOMPARE(pages[1], QStringList({"Επώνυμο:", "Α"}));
    }

    // Stopped half way, or failed behind the printer.
    void whatIsNotPrintedIsNotReportedAsPrinted() {
        CardOffice office;
        office.addMovement(office.addCard("Α", "Β"), "2026-11-03T00:00:00", "Επίσκεψη", 10, 0);
        CardDriver card(office.mod);
        cards::frmHmerologio journal(office.mod);
        journal.load();
        const auto printAll = [&](const QStringList& told) {
            office.desk.prompts.clear();
            card.press(Print);
            card.click("cmdPrint");
            Driver(journal).click("lblClick(1)");
            QVERIFY(office.desk.printers.sent.isEmpty());
            QStringList texts;
            for (const auto& shown : office.desk.prompts.shown()) texts << shown.text.section('\n', 0, 0);
            QCOMPARE(texts, told);
        };
        office.desk.printers.stopsAtPage = 0;
        printAll({});
        // The card's own ends quietly.
        office.desk.printers.fault = [] { throw data::Error(data::ErrorCategory::Full, "Γέμισε ο δίσκος"); };
        const QString failed = "gPrintListView() failed with the following error:-";
        printAll({failed, failed});
    }

    void closingThePreviewPrintsNothing() {
        Office office;
        office.addCard("Α", "Β");
        office.desk.settings.setValue("Options", "PrintPreview", "1");
        CardDriver card(office.mod);
        inNextDialog("PrintPreview", [](Driver& preview) { preview.click("cmdClose"); });
        card.key(Qt::Key_P, Qt::ControlModifier);
        QVERIFY(office.desk.printers.sent.isEmpty());
        QVERIFY(office.desk.prompts.isEmpty());
    }

    void thePageOfTheCard() {
        cards::Kartela card = kartela();
        card.photo = QImage::fromData(pictureBytes({40, 30}));
        card.basic[4].second = QString("πολύ μακριά τιμή ").repeated(20);
        card.basic[5].second = QString("Ω").repeated(300);
        card.special = {{QString("Ονομασία πεδίου χωρίς τέλος ").repeated(8), QString("τιμή ").repeated(60)},
                        {"Τελευταίο:", "τέλος"}};
        const PrintedPdf pdf = pdfOf(card);
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
        const PrintedPdf pdf = pdfOf(card);
        QVERIFY(pdf.pageCount() > 2);
        QCOMPARE(pdf.outside(), QStringList());
        QVERIFY(pdf.text(pdf.pageCount() - 1).contains("ΣΧΟΛΙΑ"));
        const QString all = pdf.text();
        for (int i = 0; i < 60; ++i) QVERIFY(all.contains(QString("Ειδικό%1:").arg(i)));
        QCOMPARE(all.count(u'ψ'), 60 * 200);
    }

    void notesBreakAtBlanksAfter120Characters() {
        const QString words = QString("ιιι ").repeated(29) + "ιιιι";  // 120 characters
        struct Case {
            const char* name;
            QString notes;
            QStringList lines;
        };
        const Case cases[] = {
            {"none", "", {}},
            {"120 characters", words, {words}},
            {"121 characters", words + "ι", {words.chopped(5), "ιιιιι"}},
            {"a blank just behind", words + " ιι", {words.chopped(5), "ιιιι ιι"}},
            {"without a blank", QString(130, u'ι'), {QString(120, u'ι'), QString(10, u'ι')}},
            {"lines of its own", "ένα\r\nδύο\n\nτρία", {"ένα", "δύο", "τρία"}},
            {"blanks are kept", "ένα  δύο", {"ένα  δύο"}},
        };
        for (const Case& c : cases) {
            const InCase in(c.name);
            platform::Printer printer({}, {}, [](const QString& name) { return controls::font(name, 10); });
            cards::PrintNotes(printer, c.notes);
            QCOMPARE(printer.scaleLeft, 0.0);
            QVERIFY(!printer.font.italic);
            QCOMPARE(printer.endDoc()->texts(0), c.lines);
        }
    }

    void longNotesAreAllThere() {
        cards::Kartela card = kartela();
        QStringList sent;
        for (int i = 0; i < 3000; ++i) sent << QString("ΛΕΞΗ%1").arg(i);
        card.notes = sent.join(u' ') + "\n" + QString("Ω").repeated(2000) + QChar(0) + "\n😀";
        const PrintedPdf pdf = pdfOf(card);
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

    void movementsArePrintedFromTheCardAndTheJournal() {
        CardOffice office;
        office.desk.setOwner();
        const qint64 code = office.addCard("Σκίννερ", "Άννα", {{"τηλεφωνο1", "2310"}, {"ΚΙΝΗΤΟ", "6970"}});
        office.addMovement(code, "2026-11-03T00:00:00", "Επίσκεψη", 1200.5, 2.5);
        CardDriver card(office.mod);
        card.click("cmdPrint");
        QCOMPARE(office.desk.prompts.lastText(), "Η εκτύπωση ολοκληρώθηκε");
        const auto texts = [&](int sent) {
            return office.desk.printers.sent.value(sent).texts().filter(QRegularExpression("\\S"));
        };
        const QStringList owner = office.desk.owner + QStringList{"Πέμπτη, 05/11/2026"};
        QCOMPARE(texts(0), owner + QStringList({"ΙΣΤΟΡΙΚΟ ΕΠΑΦΗΣ από 01/11/2026 έως 05/11/2026",
                                                "EΠΩΝΥΜΟ: ",
                                                "Σκίννερ",
                                                "ΤΗΛΕΦΩΝΟ: ",
                                                "2310",
                                                "ONOMA: ",
                                                "Άννα",
                                                "ΚΙΝΗΤΟ: ",
                                                "6970",
                                                "Ημερομηνία",
                                                "Αιτιολογία",
                                                "Χρέωση",
                                                "Πίστωση",
                                                "Υπόλοιπο",
                                                "ΑΠΟ ΜΕΤΑΦΟΡΑ",
                                                "1.198,00",
                                                "03/11/2026",
                                                "Επίσκεψη",
                                                "1.200,50",
                                                "2,50",
                                                "1.198,00",
                                                "ΣΥΝΟΛΑ",
                                                "1.200,50",
                                                "2,50",
                                                "1.198,00",
                                                "Σελίδα 1"}));
        cards::frmHmerologio journal(office.mod);
        journal.load();
        office.desk.prompts.clear();
        Driver(journal).click("lblClick(1)");
        QCOMPARE(office.desk.prompts.lastText(), "Η εκτύπωση ολοκληρώθηκε");
        QCOMPARE(texts(1),
                 owner + QStringList({"Ημερολόγιο από 01/11/2026 έως 05/11/2026", "Ημερομηνία", "Επώνυμο", "Όνομα",
                                      "Αιτιολογία", "Χρέωση", "Πίστωση", "03/11/2026", "Σκίννερ", "Άννα", "Επίσκεψη",
                                      "1.200,50", "2,50", "ΣΥΝΟΛΑ", "1.200,50", "2,50", "Σελίδα 1"}));
    }

    void theReportOfMovements() {
        CardOffice office;
        office.desk.setOwner();
        const qint64 code = office.addCard("Σκίννερ", "Άννα", {{"τηλεφωνο1", "2310"}, {"ΚΙΝΗΤΟ", "6970"}});
        office.addMovement(code, "2026-11-03T00:00:00", "Δεύτερη", 0, 5, "με σημείωση");
        office.addMovement(code, "2026-02-01T00:00:00", "Πρώτη", 1234.5, 0);
        office.addMovement(office.addCard("Άλλη", "Κάρτα"), "2026-02-01T00:00:00", "Ξένη", 1, 0);
        QVERIFY(cards::dtpHistory(office.mod, nullptr, code));
        QVERIFY(!cards::dtpHistory(office.mod, nullptr, 999));
        office.desk.printers.stopsAtPage = 0;
        QVERIFY(!cards::dtpHistory(office.mod, nullptr, code));
        QCOMPARE(office.desk.printers.sent.size(), 1);
        QCOMPARE(office.desk.printers.sent[0].texts(),
                 office.desk.owner +
                     QStringList(
                         {"ΙΣΤΟΡΙΚΟ ΕΠΑΦΗΣ", "ΕΠΩΝΥΜΟ:", "Σκίννερ",    "ΤΗΛΕΦΩΝΟ:",  "2310",   "ΟΝΟΜΑ:",  "Άννα",
                          "ΚΙΝΗΤΟ:",         "6970",     "ΗΜΕΡΟΜΗΝΙΑ", "ΑΙΤΙΟΛΟΓΙΑ", "ΧΡΕΩΣΗ", "ΠΙΣΤΩΣΗ", "1/02/2026",
                          "1.234,50",        "0,00",     "Πρώτη",      "3/11/2026",  "0,00",   "5,00",    "Δεύτερη",
                          "με σημείωση",     "Σελίδα: 1"}));
    }

    void aLongReportRepeatsItsHeads() {
        CardOffice office;
        office.addCard("Σκίννερ", "Άννα");
        data::Recordset card(office.mod.gConn, "select * from cards");
        core::Report report = cards::historyReport({"Γραφείο", "", "", ""}, card);
        report.fields = QStringList{"ΗΜΕΡΟΜΗΝΙΑ", "ΑΙΤΙΟΛΟΓΙΑ", "ΧΡΕΩΣΗ", "ΠΙΣΤΩΣΗ", "notes"};
        for (int i = 1; i <= 1000; ++i)
            report.rows.append({"1/1/2026", QString("Αιτία%1").arg(i), "1,00", "2,00",
                                i % 50 ? QString() : QString("μεγάλη σημείωση ").repeated(400)});
        const PrintedPdf pdf = pdfOf([&](platform::Printer& printer) { core::drawReport(printer, report, {}); });
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
