// Reports in bands, read back from their pages: heads, groups, texts that outgrow a page, numbers.
#include "controls/theme.h"
#include "core/report.h"
#include "support/cases.h"
#include "support/failure.h"
#include "support/printedpdf.h"

using core::Report;
using core::ReportItem;
using support::PrintedPdf;

namespace {

PrintedPdf pdfOf(const Report& report, const platform::PageSetup& setup = {}) {
    return support::printedPdf([&](platform::Printer& printer) { core::drawReport(printer, report, {}); },
                               [](const QString& name) { return controls::font(name, 10); }, setup);
}

// Rows "Γραμμή1" and so on, so many in each group.
Report grouped(const QVector<int>& sizes, const QString& notes = {}) {
    Report report{.title = "Ομάδες", .groupBy = "ομάδα", .fields = {"ομάδα", "όνομα", "ποσό", "σημειώσεις"}};
    report.head = core::ownerBand({"Γραφείο", "Ερμού", "", "info@example.gr"}, "ΚΑΤΑΣΤΑΣΗ");
    report.pageHead.lines = {{ReportItem{.text = "Κεφαλή"}}};
    report.groupHead.lines = {{ReportItem{.text = "Ομάδα: ", .field = "ομάδα"}}};
    report.groupHead.ruled = true;
    report.detail.lines = {{ReportItem{.width = 60, .field = "όνομα"},
                            ReportItem{.x = 61, .width = 39, .field = "ποσό", .align = Qt::AlignRight}},
                           {ReportItem{.x = 10, .width = 90, .field = "σημειώσεις"}}};
    int number = 0;
    for (int group = 0; group < sizes.size(); ++group)
        for (int i = 0; i < sizes[group]; ++i)
            report.rows.append(
                {QString("Ο%1").arg(group + 1), QString("Γραμμή%1").arg(++number), QString("%1,50").arg(i), notes});
    return report;
}

// What is wrong with the pages, whatever is on them: heads, numbers, edges, texts over each other.
QString fault(const PrintedPdf& pdf, const QString& head = "Κεφαλή") {
    if (!pdf.outside().isEmpty()) return "outside: " + pdf.outside().join(' ');
    for (int page = 0; page < pdf.pageCount(); ++page) {
        const auto words = pdf.words(page);
        const QString text = pdf.text(page);
        if (text.count(head) != 1) return QString("heads on page %1: ").arg(page + 1) + text.left(200);
        if (!text.endsWith(QString("Σελίδα: %1").arg(page + 1))) return "number: " + text.right(60);
        for (int i = 0; i < words.size(); ++i)
            for (int j = 0; j < i; ++j)
                if (words[i].box.adjusted(1, 3, -1, -3).intersects(words[j].box.adjusted(1, 3, -1, -3)))
                    return words[i].text + " lies on " + words[j].text;
    }
    return {};
}

QStringList wordsLike(const PrintedPdf& pdf, const QString& beginning) {
    QStringList found;
    for (int page = 0; page < pdf.pageCount(); ++page)
        for (const PrintedPdf::Word& word : pdf.words(page))
            if (word.text.startsWith(beginning)) found << word.text;
    return found;
}

}  // namespace

class TestReport : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { controls::applyTheme(*qApp, controls::ThemeKind::Light); }

    void bandsInTheirOrder() {
        const PrintedPdf pdf = pdfOf(grouped({2, 1}, "κείμενο"));
        QCOMPARE(pdf.text(),
                 "Γραφείο Ερμού info@example.gr ΚΑΤΑΣΤΑΣΗ Κεφαλή Ομάδα: Ο1 Γραμμή1 0,50 κείμενο "
                 "Γραμμή2 1,50 κείμενο Ομάδα: Ο2 Γραμμή3 0,50 κείμενο Σελίδα: 1");
        QCOMPARE(std::round(pdf.boxOf("0,50").right()), std::round(pdf.boxOf("1,50").right()));
        QCOMPARE(pdfOf(grouped({})).text(), "Γραφείο Ερμού info@example.gr ΚΑΤΑΣΤΑΣΗ Κεφαλή Σελίδα: 1");
    }

    void groupsGoOnUnderTheirHeadOnEveryPaper() {
        const struct {
            const char* name;
            QVector<int> sizes;
            platform::PageSetup setup;
        } cases[] = {{"one long group", {300}, {}},
                     {"many of all sizes", {1, 60, 2, 3, 55, 1, 1, 200, 7}, {}},
                     {"small paper", {1, 60, 2, 3, 55, 9}, {.paper = QPageSize(QPageSize::A5)}},
                     {"flat paper", {30, 30, 5}, {.paper = QPageSize(QPageSize::A5), .landscape = true}},
                     {"groups of one", QVector<int>(150, 1), {}}};
        support::forEach(cases, [&](const auto& c) {
            const Report report = grouped(c.sizes);
            const PrintedPdf pdf = pdfOf(report, c.setup);
            QCOMPARE(fault(pdf), QString());
            QVERIFY(pdf.pageCount() > 2);
            // No row is lost, and each lies below the head of its own group.
            int row = 0;
            for (int page = 0; page < pdf.pageCount(); ++page) {
                QString group, before;
                for (const PrintedPdf::Word& word : pdf.words(page)) {
                    if (before == "Ομάδα:") group = word.text;
                    if (before == group && !group.isEmpty())
                        QVERIFY2(word.text.startsWith("Γραμμή"), qPrintable("a head without rows: " + group));
                    before = word.text;
                    if (!word.text.startsWith("Γραμμή")) continue;
                    QCOMPARE(word.text, report.rows[row][1]);
                    QCOMPARE(group, report.rows[row++][0]);
                }
            }
            QCOMPARE(row, report.rows.size());
        });
    }

    void aLongTextGoesOnBehindThePageBreak() {
        QStringList words;
        for (int i = 0; i < 6000; ++i) words << QString("λέξη%1").arg(i);
        Report report = grouped({3});
        report.rows[1][3] = words.join(' ');
        report.rows[2][3] = QString("χωρίςκενά").repeated(600) + "\n\nτέλος";
        for (const bool landscape : {false, true}) {
            const PrintedPdf pdf = pdfOf(report, {.landscape = landscape});
            QCOMPARE(fault(pdf), QString());
            QVERIFY(pdf.pageCount() > 4);
            QCOMPARE(wordsLike(pdf, "λέξη"), words);
            QCOMPARE(wordsLike(pdf, "Γραμμή").size(), 3);
            QCOMPARE(wordsLike(pdf, "Ο1").size(), pdf.pageCount());
            QCOMPARE(QString(pdf.text()).remove(' ').count("χωρίςκενά") >= 590, true);
            QCOMPARE(wordsLike(pdf, "τέλος").size(), 1);
        }
    }

    void whatFitsAPageIsNotTornApart() {
        const PrintedPdf pdf = pdfOf(grouped({40}, QString("γραμμή κειμένου ").repeated(40)));
        QCOMPARE(fault(pdf), QString());
        for (int page = 0; page < pdf.pageCount(); ++page)
            QCOMPARE(pdf.text(page).count("κειμένου"), pdf.text(page).count("Γραμμή") * 40);
    }

    void longNamesLeaveTheReportItsPlace() {
        Report report = grouped(QVector<int>{20});
        const QString name = QString("Μακρύ όνομα ").repeated(80);
        report.head = core::ownerBand({name, name, name, name}, name);
        report.pageHead.lines = {core::titleLine("Κεφαλή (" + name + ")")};
        for (QStringList& row : report.rows) row[0] = name;
        // Wherever on its page the report's head ends.
        for (int line = 0; line < 30; ++line) {
            report.head.lines.append(core::ReportLine{ReportItem{.text = "γραμμή"}});
            const PrintedPdf pdf = pdfOf(report, {.paper = QPageSize(QPageSize::A5), .landscape = true});
            QCOMPARE(pdf.outside(), QStringList());
            QCOMPARE(wordsLike(pdf, "Γραμμή").size(), 20);
            for (int page = 0; page < pdf.pageCount(); ++page) {
                const double foot = pdf.boxOf("Σελίδα:", page).top();
                for (const PrintedPdf::Word& word : pdf.words(page))
                    QVERIFY(word.box.top() < foot + 1 && (word.box.bottom() < foot + 1 || word.box.top() > foot - 1));
            }
        }
    }

    void aFieldThatThereIsNotIsAFault() {
        Report report = grouped({1});
        report.detail.lines[0][0].field = "άγνωστο";
        QVERIFY(errorOf<std::logic_error>([&] { pdfOf(report); }).has_value());
    }
};

QTEST_MAIN(TestReport)
#include "test_report.moc"
