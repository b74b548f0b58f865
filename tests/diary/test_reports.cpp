// The diary's reports, from rows of the office to the printed page.
#include "controls/theme.h"
#include "diary/reports.h"
#include "diaryoffice.h"
#include "support/cases.h"
#include "support/printedpdf.h"

using support::at;
using support::DiaryOffice;
using support::PrintedPdf;

namespace {

const QDateTime leapDay = support::day(2028, 2, 29);

QStringList printed(const DiaryOffice& office) {
    return office.desk.printers.sent.last().texts();
}

PrintedPdf pdfOf(const core::Report& report, QPageSize::PageSizeId paper) {
    return support::printedPdf([&](platform::Printer& printer) { core::drawReport(printer, report, {}); },
                               [](const QString& name) { return controls::font(name, 10); },
                               {.paper = QPageSize(paper)});
}

QStringList under(const QStringList& texts, const QString& from) {
    return texts.mid(texts.indexOf(from));
}

}  // namespace

class TestReports : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { controls::applyTheme(*qApp, controls::ThemeKind::Light); }

    void appointmentsByDayOfTheUserWhoLoggedOn() {
        DiaryOffice office;
        office.addDate(leapDay.addDays(1), "09:00", "Μετά");
        office.addDate(leapDay, "14:30", "Έλεγχος",
                       {{"Location", "Γραφείο"}, {"contact", "Σκίννερ"}, {"notes", "ναι\nόχι"}, {"Entoleas", "Admin"}});
        office.addDate(leapDay, "09:00", "Πρώτη", {{"End", QVariant()}});
        office.addDate(leapDay, "08:00", "Ξένη", {{"User", "Admin"}});
        office.addDate(leapDay, "08:00", "Κανενός", {{"User", QVariant()}});
        office.addDate(leapDay.addDays(2), "09:00", "Εκτός");
        QVERIFY(diary::DatesReport(office.mod, nullptr, QDate(2028, 2, 29), QDate(2028, 3, 1)));
        const QStringList heads{"Θέμα", "Τόπος", "Έναρξη", "Τέλος", "Επαφή"}, nothing{"Σημειώσεις:", "Εντολέας:"};
        const QStringList first{"ΚΑΤΑΣΤΑΣΗ ΣΥΝΑΝΤΗΣΕΩΝ (Μαρία)", "Ημερομηνία:", "29/02/2028"}, second{"Πρώτη", "09:00"},
            third{"Έλεγχος", "Γραφείο", "14:30", "23:59", "Σκίννερ", "Σημειώσεις:", "ναι", "όχι", "Εντολέας:", "Admin"},
            fourth{"Ημερομηνία:", "01/03/2028"}, last{"Μετά", "09:00", "23:59"};
        QCOMPARE(printed(office), office.desk.owner + first + heads + second + nothing + third + fourth + heads + last +
                                      nothing + QStringList("Σελίδα: 1"));
        QCOMPARE(office.desk.printers.sent.last().title, "Κατάσταση Συναντήσεων");
        QVERIFY(diary::DatesReport(office.mod, nullptr, QDate(2028, 3, 1), QDate(2028, 2, 29)));
        QCOMPARE(under(printed(office), "ΚΑΤΑΣΤΑΣΗ ΣΥΝΑΝΤΗΣΕΩΝ (Μαρία)").size(), 2);
    }

    void tasksByPriority() {
        DiaryOffice office;
        office.desk.settings.setValue("Settings", "Phone", "");
        office.addTask("Δεύτερο", "4");
        office.addTask("Πρώτο", "1", {{"Entoleas", "Admin"}, {"notes", "α"}});
        office.addTask("Ξένο", "1", {{"User", "Admin"}});
        QVERIFY(diary::ThinksReport(office.mod, nullptr));
        QCOMPARE(under(printed(office), "ΚΑΤΑΣΤΑΣΗ ΕΚΡΕΜΩΝ ΕΡΓΑΣΙΩΝ (Μαρία)"),
                 QStringList({"ΚΑΤΑΣΤΑΣΗ ΕΚΡΕΜΩΝ ΕΡΓΑΣΙΩΝ (Μαρία)", "Θέμα:", "Πρώτο", "Προτεραιότητα:", "1",
                              "Εντολέας:", "Admin", "Σημειώσεις:", "α", "Θέμα:", "Δεύτερο", "Προτεραιότητα:", "4",
                              "Εντολέας:", "Σημειώσεις:", "Σελίδα: 1"}));
    }

    void cardsThatFallDue() {
        DiaryOffice office;
        const auto due = [&](const QString& surname, const QVariant& last, const QVariant& frequency,
                             const QVariantMap& more = {}) {
            QVariantMap values{{"ΤΕΛΕΥΤΑΙΑ_ΚΙΝΗΣΗ", last}, {"ΣΥΧΝΟΤΗΤΑ_ΚΙΝΗΣΗΣ", frequency}};
            values.insert(more);
            office.addCard(surname, "Άννα", values);
        };
        due("Τελευταία", leapDay, 1, {{"ΠΟΣΟ_ΚΙΝΗΣΗΣ", 1234.5}, {"ΔΙΕΥΘΥΝΣΗ", "Ερμού 1"}, {"ΤΗΛΕΦΩΝΟ1", "2310"}});
        due("Πρώτη", leapDay.addDays(-30), 30, {{"ΕΤΑΙΡΙΑ", "ΑΒΓ"}, {"ΠΟΣΟ_ΚΙΝΗΣΗΣ", QVariant()}});
        due("Αργότερα", leapDay, 2);
        due("Χωρίς κίνηση", QVariant(), 1);
        due("Χωρίς συχνότητα", leapDay, QVariant());
        QVERIFY(diary::LeigounReport(office.mod, nullptr, QDate(2028, 2, 29), QDate(2028, 3, 1)));
        QCOMPARE(printed(office), office.desk.owner + QStringList({"ΚΑΤΑΣΤΑΣΗ ΕΚΡΕΜΩΝ ΕΠΙΣΚΕΨΕΩΝ",
                                                                   "ΕΠΩΝΥΜΟ",
                                                                   "ΟΝΟΜΑ",
                                                                   "ΕΤΑΙΡΙΑ",
                                                                   "ΛΗΞΗ",
                                                                   "ΠΟΣΟ",
                                                                   "Πρώτη",
                                                                   "Άννα",
                                                                   "ΑΒΓ",
                                                                   "29/02/2028",
                                                                   "Διεύθυνση:",
                                                                   "Τηλέφωνο:",
                                                                   "Τελευταία",
                                                                   "Άννα",
                                                                   "01/03/2028",
                                                                   "1.234,50",
                                                                   "Διεύθυνση:",
                                                                   "Ερμού 1",
                                                                   "Τηλέφωνο:",
                                                                   "2310",
                                                                   "Σελίδα: 1"}));
    }

    // No word of a head or caption is torn on the smallest paper.
    void captionsStayWholeOnEveryPaper() {
        DiaryOffice office;
        office.addDate(leapDay, "09:00", "Θέμα1");
        office.addTask("α", "1");
        office.addCard("Σκίννερ", "Άννα",
                       {{"ΤΕΛΕΥΤΑΙΑ_ΚΙΝΗΣΗ", leapDay},
                        {"ΣΥΧΝΟΤΗΤΑ_ΚΙΝΗΣΗΣ", 0},
                        {"ΠΟΣΟ_ΚΙΝΗΣΗΣ", 1234567.89},
                        {"ΤΗΛΕΦΩΝΟ1", "2101234567"}});
        const QDate from(2028, 2, 1), to(2028, 2, 29);
        for (const auto& [report, expected] :
             {std::pair(diary::datesReport(office.mod, from, to),
                        "Ημερομηνία: 29/02/2028 Θέμα Τόπος Έναρξη Τέλος Επαφή Σημειώσεις: Εντολέας: 09:00 23:59"),
              {diary::thinksReport(office.mod), "Θέμα: Προτεραιότητα: Εντολέας: Σημειώσεις:"},
              {diary::leigounReport(office.mod, from, to),
               "ΕΠΩΝΥΜΟ ΟΝΟΜΑ ΕΤΑΙΡΙΑ ΛΗΞΗ ΠΟΣΟ Διεύθυνση: Τηλέφωνο: 29/02/2028 1.234.567,89 2101234567"}}) {
            const QStringList words = pdfOf(report, QPageSize::A5).text().split(' ');
            for (const QString& word : QString(expected).split(' '))
                QVERIFY2(words.contains(word), qPrintable(word + " not in " + words.join(' ')));
        }
    }

    void manyAppointmentsOverManyPages() {
        DiaryOffice office;
        data::Transaction all(office.mod.gConn);
        for (int i = 0; i < 200; ++i)
            office.addDate(leapDay.addDays(i / 5), "09:00", QString("Θέμα%1").arg(i),
                           {{"notes", i % 40 ? QString("σύντομη") : QString("μεγάλη σημείωση ").repeated(300)}});
        all.commit();
        const PrintedPdf pdf =
            pdfOf(diary::datesReport(office.mod, QDate(2028, 1, 1), QDate(2028, 12, 31)), QPageSize::A4);
        QCOMPARE(pdf.outside(), QStringList());
        int row = 0, notes = 0;
        for (int page = 0; page < pdf.pageCount(); ++page) {
            QVERIFY(pdf.text(page).contains("Έναρξη"));
            QVERIFY(pdf.text(page).endsWith(QString("Σελίδα: %1").arg(page + 1)));
            notes += pdf.text(page).count("σημείωση");
            auto words = pdf.words(page);
            std::sort(words.begin(), words.end(),
                      [](const auto& a, const auto& b) { return a.box.top() < b.box.top(); });
            for (const PrintedPdf::Word& word : words)
                if (word.text.startsWith("Θέμα") && word.text != "Θέμα")
                    QCOMPARE(word.text, QString("Θέμα%1").arg(row++));
        }
        QCOMPARE(row, 200);
        QCOMPARE(notes, 5 * 300);
    }
};

QTEST_MAIN(TestReports)
#include "test_reports.moc"
