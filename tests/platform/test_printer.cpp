// The drawing surface, and what reaches a PDF.
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

    void paperHasItsSize_data() {
        QTest::addColumn<int>("paper");
        QTest::addColumn<bool>("landscape");
        QTest::addColumn<QSizeF>("points");
        QTest::newRow("A4") << int(QPageSize::A4) << false << QSizeF(595, 842);
        QTest::newRow("A4 turned") << int(QPageSize::A4) << true << QSizeF(842, 595);
        QTest::newRow("A5") << int(QPageSize::A5) << false << QSizeF(420, 595);
    }
    void paperHasItsSize() {
        QFETCH(int, paper);
        QFETCH(bool, landscape);
        QFETCH(QSizeF, points);
        const PageSetup setup{QPageSize(static_cast<QPageSize::PageSizeId>(paper)), landscape};
        const PrintedPdf pdf = printedPdf(
            [](Printer& printer) {
                printer.printAt(printer.scaleWidth() - printer.textWidth("Γωνία"),
                                printer.scaleHeight() - printer.textHeight(), "Γωνία");
            },
            plainFont, setup);
        QVERIFY(std::abs(pdf.paper().width() - points.width()) < 1.5);
        QVERIFY(std::abs(pdf.paper().height() - points.height()) < 1.5);
        QVERIFY(std::abs(pdf.boxOf("Γωνία").right() - (points.width() - margin / 20)) < 1.5);
        QCOMPARE(pdf.outside(), QStringList());
    }

    void textRunsOnOverPages_data() {
        QTest::addColumn<qint64>("memory");
        QTest::newRow("kept in memory") << platform::PrintDocument::usualMemory;
        QTest::newRow("kept in a file") << qint64(0);
        QTest::newRow("some here and some there") << qint64(2000);
    }
    void textRunsOnOverPages() {
        QFETCH(qint64, memory);
        const PrintedPdf pdf = printedPdf(
            [](Printer& printer) {
                for (int i = 1; i <= 1000; ++i) printer.print(QString("Γραμμή%1").arg(i));
            },
            plainFont, {}, memory);
        QVERIFY(pdf.pageCount() > 10 && pdf.pageCount() < 30);
        QCOMPARE(pdf.outside(), QStringList());
        QStringList words;
        for (int page = 0; page < pdf.pageCount(); ++page) words += pdf.text(page).split(u' ');
        QCOMPARE(words.size(), 1000);
        for (int i = 1; i <= 1000; ++i) QCOMPARE(words[i - 1], QString("Γραμμή%1").arg(i));
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

    void wrappingLosesNothing_data() {
        QTest::addColumn<QString>("text");
        QTest::newRow("words") << QString("Καλημέρα σας από το γραφείο. ").repeated(200);
        QTest::newRow("one endless word") << QString("Ω").repeated(10000);
        QTest::newRow("an endless word among words") << "Πριν " + QString("Ψ").repeated(500) + " μετά";
        QTest::newRow("faces") << QString("😀").repeated(500);
        QTest::newRow("blanks") << QString("α  β   γ    ").repeated(100);
        QTest::newRow("empty lines") << QString("α\n\n\nβ\r\nγ");
        QTest::newRow("right to left") << QString("שלום עולם ").repeated(100);
    }
    void wrappingLosesNothing() {
        QFETCH(QString, text);
        Printer printer({}, {}, plainFont);
        const QStringList lines = printer.wrapped(text, 4000);
        for (const QString& line : lines) {
            QVERIFY2(printer.textWidth(line) < 4000, qPrintable(line));
            QVERIFY(line.isEmpty() || !line.back().isHighSurrogate());
        }
        const auto letters = [](QString all) { return all.remove(QRegularExpression("\\s")); };
        QCOMPARE(letters(lines.join(u' ')), letters(text));
        QCOMPARE(printer.wrapped("α\n\nβ", 4000), QStringList({"α", "", "β"}));
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
        QImage page((document->setup().areaTwips() / 20).toSize(), QImage::Format_RGB32);
        page.fill(Qt::white);
        QPainter painter(&page);
        painter.scale(1 / 20.0, 1 / 20.0);
        document->paint(painter, 0);
        painter.end();
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
        QVERIFY_THROWS_EXCEPTION(PrintError, printers.writePdf(*document, file("δεν/υπάρχει.pdf"), {}));
        QVERIFY_THROWS_EXCEPTION(PrintError, printers.writePdf(*document, folder_.path(), {}));
        QVERIFY(printers.writePdf(*document, old.fileName(), {}));
        QCOMPARE(PrintedPdf(old.fileName()).pageCount(), 6);
    }

    void aPrinterThatIsNotThereIsToldInGreek() {
        Printer printer({}, "Δοκιμή", plainFont);
        const auto document = printer.endDoc();
        for (const QString& name : {QString(), QString("Ανύπαρκτος")}) {
            try {
                platform::SystemPrinters().print(*document, name, 1, {});
                QFAIL("printed on nothing");
            } catch (const PrintError& error) {
                QVERIFY(error.text().contains("εκτυπωτής") || error.text().contains("εκτυπωτή"));
                QVERIFY(error.text().contains(name));
            }
        }
    }
};

QTEST_MAIN(TestPrinter)
#include "test_printer.moc"
