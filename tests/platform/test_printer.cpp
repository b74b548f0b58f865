// The drawing surface, and what reaches a PDF.
#include "support/cases.h"
#include "support/failure.h"
#include "support/pageimage.h"
#include "support/printedpdf.h"

using namespace Qt::Literals::StringLiterals;

using platform::PageSetup;
using platform::Printer;
using platform::PrintError;
using support::PrintedPdf;
using support::printedPdf;

namespace {

QFont plainFont(const QString&) {
    return QFont(u"Liberation Sans"_s);
}

constexpr double margin = 340;
double points(double twips) {
    return (margin + twips) / 20;
}

bool isAt(const QRectF& box, double x, double y) {
    // A box may be taller than the letters by what the font leaves above them.
    return std::abs(box.left() - points(x)) < 1.5 && std::abs(box.top() - points(y)) < 4;
}

}  // namespace

class TestPrinter : public QObject {
    Q_OBJECT

    QTemporaryDir folder_;
    QString file(const QString& name) { return folder_.filePath(name); }

private slots:
    void placesAreTwipsAndTextStaysText() {
        const PrintedPdf pdf = printedPdf(
            [](Printer& printer) {
                printer.currentX = 1440;
                printer.currentY = 2880;
                printer.printInline("Ἀθηνᾶ");
                printer.printInline("Ωραίος");
                printer.print();
                printer.print("Κάτω");
                printer.scaleLeft = -300;
                printer.currentX = 300;
                printer.print("Μέσα");
                printer.printAt(5000, 1000, "Αλλού");
                printer.print("Πρώτη\r\nΔεύτερη");
            },
            plainFont);
        QCOMPARE(pdf.pageCount(), 1);
        QCOMPARE(pdf.outside(), QStringList());
        Printer measure({}, {}, plainFont);
        const double height = measure.textHeight();
        // Two texts of one line without a gap are one word.
        QVERIFY(isAt(pdf.boxOf("ἈθηνᾶΩραίος"), 1440, 2880));
        QVERIFY(std::abs(pdf.boxOf("ἈθηνᾶΩραίος").width() * 20 - measure.textWidth("ἈθηνᾶΩραίος")) < 30);
        QVERIFY(isAt(pdf.boxOf("Κάτω"), 0, 2880 + height));
        QVERIFY(isAt(pdf.boxOf("Μέσα"), 600, 2880 + 2 * height));
        QVERIFY(isAt(pdf.boxOf("Αλλού"), 5300, 1000));
        QVERIFY(isAt(pdf.boxOf("Πρώτη"), 300, 2880 + 3 * height));
        QVERIFY(isAt(pdf.boxOf("Δεύτερη"), 300, 2880 + 4 * height));
    }

    void paperHasItsSize() {
        struct Case {
            const char* name;
            QPageSize::PageSizeId paper;
            bool landscape;
            QSizeF points;
        };
        const Case cases[] = {{"A4", QPageSize::A4, false, {595, 842}},
                              {"A4 turned", QPageSize::A4, true, {842, 595}},
                              {"A5", QPageSize::A5, false, {420, 595}}};
        for (const Case& c : cases) {
            const support::InCase in(c.name);
            const PrintedPdf pdf = printedPdf(
                [](Printer& printer) {
                    printer.printAt(printer.scaleWidth() - printer.textWidth("Γωνία"),
                                    printer.scaleHeight() - printer.textHeight(), "Γωνία");
                },
                plainFont, {QPageSize(c.paper), c.landscape});
            QVERIFY(std::abs(pdf.paper().width() - c.points.width()) < 1.5);
            QVERIFY(std::abs(pdf.paper().height() - c.points.height()) < 1.5);
            QVERIFY(std::abs(pdf.boxOf("Γωνία").right() - (c.points.width() - margin / 20)) < 1.5);
            QCOMPARE(pdf.outside(), QStringList());
        }
    }

    // In memory, in a file, and some here and some there.
    void textRunsOnOverPages() {
        QStringList lines;
        for (int i = 1; i <= 1000; ++i) lines << QString("Γραμμή%1").arg(i);
        for (const qint64 memory : {platform::PrintDocument::usualMemory, qint64(0), qint64(2000)}) {
            const support::InCase in(QString::number(memory));
            const PrintedPdf pdf = printedPdf(
                [&](Printer& printer) {
                    for (const QString& line : lines) printer.print(line);
                },
                plainFont, {}, memory);
            QVERIFY(pdf.pageCount() > 10 && pdf.pageCount() < 30);
            QCOMPARE(pdf.outside(), QStringList());
            QCOMPARE(pdf.text().split(u' '), lines);
        }
    }

    void documentsEndAndAreForgotten() {
        Printer printer({}, "Δοκιμή", plainFont);
        printer.print("Άχρηστο");
        printer.newPage();
        printer.print("Κι αυτό");
        printer.killDoc();
        QCOMPARE(printer.page(), 1);
        QCOMPARE(printer.currentY, 0.0);
        printer.print("Ένα");
        printer.newPage();
        printer.print("Δύο");
        const auto document = printer.endDoc();
        QCOMPARE(document->pageCount(), 2);
        QCOMPARE(document->texts(0), QStringList("Ένα"));
        QCOMPARE(document->texts(1), QStringList("Δύο"));
        QCOMPARE(printer.endDoc()->pageCount(), 1);
    }

    void textIsCutToItsRoom() {
        Printer printer({}, {}, plainFont);
        const QString text = "Παπαδόπουλος";
        const double width = printer.textWidth(text);
        QCOMPARE(printer.textWidth(text + "\nΑ"), width);
        QCOMPARE(printer.fitted(text, width + 0.1), text);
        QVERIFY(printer.fitted(text, width).endsWith("..."));  // as wide as the room is too wide
        QVERIFY(printer.textWidth(printer.fitted(text, width)) < width);
        QVERIFY(printer.fitted(text, width).size() > 6);
        QCOMPARE(printer.fitted(text, printer.textWidth("...") + 1), QString("..."));
        QCOMPARE(printer.fitted(text, 10), QString());
        QCOMPARE(printer.fitted(text, -100), QString());
        const QString faces = printer.fitted(QString("😀").repeated(40), 2000);
        QVERIFY(faces.endsWith("...") && !faces.chopped(3).back().isHighSurrogate());
        QVERIFY(printer.textWidth(printer.fitted(QString(200000, u'Ω'), 2000)) < 2000);
    }

    void wrappingLosesNothing() {
        const QString texts[] = {QString("Καλημέρα σας από το γραφείο. ").repeated(200),
                                 QString("Ω").repeated(10000),
                                 "Πριν " + QString("Ψ").repeated(500) + " μετά",
                                 QString("😀").repeated(500),
                                 QString("α  β   γ    ").repeated(100),
                                 "α\n\n\nβ\r\nγ",
                                 QString("שלום עולם ").repeated(100)};
        Printer printer({}, {}, plainFont);
        for (const QString& text : texts) {
            const support::InCase in(text);
            const QStringList lines = printer.wrapped(text, 4000);
            for (const QString& line : lines) {
                QVERIFY2(printer.textWidth(line) < 4000, qPrintable(line));
                QVERIFY(line.isEmpty() || !line.back().isHighSurrogate());
            }
            const auto letters = [](QString all) { return all.remove(QRegularExpression("\\s")); };
            QCOMPARE(letters(lines.join(u' ')), letters(text));
        }
        QCOMPARE(printer.wrapped("α\n\nβ", 4000), QStringList({"α", "", "β"}));
        QCOMPARE(printer.wrapped("ένα δύο", printer.textWidth("ένα δύο")), QStringList({"ένα", "δύο"}));
    }

    void oddTextIsNoTrouble() {
        const PrintedPdf pdf = printedPdf(
            [](Printer& printer) {
                printer.print(QString("Πριν%1Μετά").arg(QChar(0)));
                printer.print("α\tβ");
                printer.print("שלום");
                printer.print("😀 τέλος");
                printer.font.size = 0;
                printer.print("μικρό");
                printer.font.size = 1e9;
                printer.printAt(0, 0, QString());
                printer.font = {"Γραμματοσειρά που δεν υπάρχει", 10};
                printer.print("Γεια");
                printer.paintPicture(QImage(), {0, 0, 100, 100});
            },
            plainFont);
        QVERIFY(pdf.text(0).contains("ΠρινΜετά"));
        QVERIFY(pdf.text(0).contains("Γεια"));
    }

    void picturesBoxesAndLinesAreWhereTheyBelong() {
        Printer printer({}, {}, plainFont);
        QImage red(8, 8, QImage::Format_RGB32);
        red.fill(Qt::red);
        printer.paintPicture(red, {1000, 1000, 2000, 2000});
        printer.fillBox({5000, 1000, 2000, 2000}, Qt::blue);
        printer.box({1000, 5000, 2000, 2000});
        printer.line(5000, 5000, 7000, 5000);
        const auto document = printer.endDoc();
        const QImage page = support::pageImage(*document);
        const auto at = [&page](int x, int y) { return page.pixelColor(x / 20, y / 20); };
        QCOMPARE(at(2000, 2000), QColor(Qt::red));
        QCOMPARE(at(6000, 2000), QColor(Qt::blue));
        QCOMPARE(at(4000, 2000), QColor(Qt::white));
        QCOMPARE(at(2000, 6000), QColor(Qt::white));
        QVERIFY(at(2000, 5000) != QColor(Qt::white));
        QVERIFY(at(6000, 5000) != QColor(Qt::white));
    }

    void aStoppedOrFailedFileLeavesTheOldOne() {
        QFile old(file("παλιό.pdf"));
        QVERIFY(old.open(QIODevice::WriteOnly));
        old.write("παλιό");
        old.close();
        Printer printer({}, "Δοκιμή", plainFont);
        for (int i = 0; i < 5; ++i) printer.newPage();
        const auto document = printer.endDoc();
        platform::SystemPrinters printers;
        QVERIFY(!printers.writePdf(*document, old.fileName(), [](int page) { return page < 3; }));
        QVERIFY(old.open(QIODevice::ReadOnly));
        QCOMPARE(old.readAll(), QByteArray("παλιό"));
        old.close();
        for (const QString& place : {file("δεν/υπάρχει.pdf"), folder_.path()})
            QVERIFY(failureOf<PrintError>([&] {
                        printers.writePdf(*document, place, {});
                    }).startsWith("Δεν γράφτηκε το αρχείο «" + place));
        QVERIFY(printers.writePdf(*document, old.fileName(), {}));
        QCOMPARE(PrintedPdf(old.fileName()).pageCount(), 6);
    }

    void aPrinterThatIsNotThereIsToldInGreek() {
        Printer printer({}, "Δοκιμή", plainFont);
        const auto document = printer.endDoc();
        for (const auto& [name, told] : {std::pair("", "Δεν υπάρχει εκτυπωτής στο σύστημα."),
                                         {"Ανύπαρκτος", "Ο εκτυπωτής «Ανύπαρκτος» δεν βρέθηκε ή δεν αποκρίνεται."}})
            QCOMPARE(failureOf<PrintError>([&] { platform::SystemPrinters().print(*document, name, 1, {}); }), told);
    }
};

QTEST_MAIN(TestPrinter)
#include "test_printer.moc"
