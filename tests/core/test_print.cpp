// Lists on paper, the preview, and what happens when a printer is gone.
#include <QProgressBar>
#include <QPushButton>
#include <QToolButton>

#include "controls/theme.h"
#include "core/guard.h"
#include "core/printlist.h"
#include "core/printpreview.h"
#include "core/printsettings.h"
#include "core/workprogress.h"
#include "support/printedpdf.h"
#include "support/services.h"

using core::PrintedList;
using core::PrintPreview;
using support::Desk;
using support::PrintedPdf;

namespace {

QFont fontOf(const QString& name) {
    return controls::font(name, 10);
}

controls::ListView* listOf(int rows) {
    auto* list = new controls::ListView;
    list->setColumns({{"Α", "Αριθμός", 1000, true}, {"Ε", "Επώνυμο", 3000}, {"Π", "Ποσό", 1500, true}});
    QVector<controls::ListRow> all;
    for (int i = 1; i <= rows; ++i)
        all.append({{QString::number(i), QString("Παπαδόπουλος%1").arg(i), QString("%1,50").arg(i)}, {}, {}});
    list->setRows(all);
    return list;
}

PrintedList printedList(int rows) {
    const std::unique_ptr<controls::ListView> list(listOf(rows));
    PrintedList printed{"Τίτλος", QDate(2026, 11, 5), {}, {}, {}, list->rows()};
    for (const controls::ListColumn& column : list->columns())
        printed.columns.append({column.header, double(column.width), column.number ? Qt::AlignRight : Qt::AlignLeft});
    return printed;
}

PrintedPdf pdfOf(const PrintedList& list, const platform::PageSetup& setup = {}) {
    return support::printedPdf([&](platform::Printer& printer) { core::drawList(printer, list, {}); }, fontOf, setup);
}

core::PrintJob pages(int count) {
    return {"Δοκιμή: α/β", [count](platform::Printer& printer, const core::PrintStep&) {
                for (int i = 1; i <= count; ++i) {
                    if (i > 1) printer.newPage();
                    printer.print(QString("Σελίδα %1").arg(i));
                }
            }};
}

struct Studio {
    Desk desk;
    core::MainMod mod{desk.services};
    QWidget parent;

    Studio() { desk.settings.setValue("Options", "PrintPreview", "1"); }
};

template <typename W>
W* part(QWidget& window, const char* name) {
    W* found = window.findChild<W*>(name);
    if (!found) QTest::qFail(qPrintable(QString("no ") + name), __FILE__, __LINE__);
    return found;
}

// Runs when the next preview is up, and closes it if that leaves it open.
void whenPreviewed(const std::function<void(PrintPreview&)>& act) {
    auto* timer = new QTimer(qApp);
    QObject::connect(timer, &QTimer::timeout, timer, [timer, act] {
        auto* preview = qobject_cast<PrintPreview*>(QApplication::activeModalWidget());
        if (!preview) return;
        timer->deleteLater();
        timer->stop();
        const QPointer<PrintPreview> alive(preview);
        act(*preview);
        if (alive && alive->isVisible()) alive->reject();
    });
    timer->start(1);
}

// Presses the stop button once the bar shows.
void stopWhenBusy() {
    auto* timer = new QTimer(qApp);
    QObject::connect(timer, &QTimer::timeout, timer, [timer] {
        QWidget* busy = QApplication::activeModalWidget();
        if (!busy || busy->objectName() != "WorkProgress") return;
        timer->deleteLater();
        timer->stop();
        part<QPushButton>(*busy, "cmdStop")->click();
    });
    timer->start(1);
}

}  // namespace

class TestPrint : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { controls::applyTheme(*qApp, controls::ThemeKind::Light); }

    void headings_data() {
        QTest::addColumn<int>("form");
        QTest::addColumn<QStringList>("expected");
        const QStringList owner{"Γραφείο Α", "Ερμού 1", "210 1", "a@b.gr"}, day{"Πέμπτη, 05/11/2026", "Κινήσεις"};
        QTest::newRow("plain") << 0 << day;
        QTest::newRow("owner") << 1 << owner + day;
        QTest::newRow("card") << 2 << owner + day + QStringList{"EΠΩΝΥΜΟ: ", "Σκίννερ", "ΤΗΛΕΦΩΝΟ: ", "2310",
                                                                "ONOMA: ",   "Άννα",    "ΚΙΝΗΤΟ: ",   "6970"};
    }
    void headings() {
        QFETCH(int, form);
        QFETCH(QStringList, expected);
        Desk desk;
        core::MainMod mod(desk.services);
        const std::pair<const char*, const char*> owner[] = {
            {"Name", "Γραφείο Α"}, {"Address", "Ερμού 1"}, {"Phone", "210 1"}, {"Email", "a@b.gr"}};
        for (const auto& [key, value] : owner) desk.settings.setValue("Settings", key, value);
        const std::unique_ptr<controls::ListView> list(listOf(1));
        const bool printed =
            form == 2 ? core::gPrintListView(mod, nullptr, *list, "Κινήσεις", "Σκίννερ", "Άννα", "2310", "6970")
                      : core::gPrintListView(mod, nullptr, *list, "Κινήσεις",
                                             form ? core::ListHeading::Owner : core::ListHeading::Plain);
        QVERIFY(printed);
        QCOMPARE(desk.printers.sent.size(), 1);
        QCOMPARE(desk.printers.sent[0].texts(),
                 expected + QStringList({"Αριθμός", "Επώνυμο", "Ποσό", "1", "Παπαδόπουλος1", "1,50", "Σελίδα 1"}));
        QVERIFY(desk.prompts.isEmpty());
    }

    void aThousandRowsOverManyPages() {
        const PrintedPdf pdf = pdfOf(printedList(1000));
        QVERIFY(pdf.pageCount() > 10);
        QCOMPARE(pdf.outside(), QStringList());
        const double tableTop = pdf.boxOf("Επώνυμο").top();
        int row = 0;
        for (int page = 0; page < pdf.pageCount(); ++page) {
            const QStringList words = pdf.text(page).split(u' ');
            QCOMPARE(words.count("Επώνυμο"), page == 0 ? 1 : 0);
            QCOMPARE(words.mid(words.size() - 2), QStringList({"Σελίδα", QString::number(page + 1)}));
            // Further pages begin where the table began, each row lies below the one before, the number below them all.
            double free = page == 0 ? pdf.boxOf("Επώνυμο").bottom() : tableTop;
            for (const PrintedPdf::Word& word : pdf.words(page)) {
                if (!word.text.startsWith("Παπαδόπουλος")) continue;
                QCOMPARE(word.text, QString("Παπαδόπουλος%1").arg(++row));
                QVERIFY(word.box.top() > free - 1.5);
                QVERIFY(free > tableTop || word.box.top() < tableTop + 1.5);
                free = word.box.bottom();
            }
            QVERIFY(pdf.boxOf("Σελίδα", page).top() > free);
        }
        QCOMPARE(row, 1000);
    }

    void figuresEndAtTheSameEdge() {
        PrintedList list = printedList(120);
        list.columns[1].alignment = Qt::AlignHCenter;
        const PrintedPdf pdf = pdfOf(list);
        QCOMPARE(std::round(pdf.boxOf("1,50").right()), std::round(pdf.boxOf("40,50").right()));
        const auto centre = [&](const char* text) { return std::round(pdf.boxOf(text).center().x()); };
        QCOMPARE(centre("Παπαδόπουλος1"), centre("Παπαδόπουλος40"));
    }

    void longCellsStayInTheirColumn() {
        PrintedList list = printedList(1);
        list.rows[0].cells[1] = QString("Μακρύ ").repeated(2000);
        list.rows.append({{"2", "με\nαλλαγή\r\nγραμμής 😀", ""}, {}, {}});
        list.columns.append({"", 0, Qt::AlignLeft});
        list.columns.append({"Σχόλια που δεν χωρούν πουθενά", 10, Qt::AlignLeft});
        const PrintedPdf pdf = pdfOf(list);
        QVERIFY(pdf.text(0).contains("..."));
        QVERIFY(pdf.text(0).contains("με αλλαγή"));
        QCOMPARE(pdf.outside(), QStringList());
        double edge = 0;
        for (const PrintedPdf::Word& word : pdf.words(0))
            if (word.text.startsWith("Μακρύ")) edge = std::max(edge, word.box.right());
        QVERIFY(edge < pdf.boxOf("1,50").left());
    }

    void oddLists_data() {
        QTest::addColumn<PrintedList>("list");
        QTest::addColumn<QStringList>("expected");
        PrintedList empty = printedList(0);
        QTest::newRow("without rows") << empty
                                      << QStringList{
                                             "Πέμπτη, 05/11/2026", "Τίτλος", "Αριθμός", "Επώνυμο", "Ποσό", "Σελίδα 1"};
        empty.title.clear();
        QTest::newRow("without a title") << empty << QStringList{"Αριθμός", "Επώνυμο", "Ποσό", "Σελίδα 1"};
        empty.columns.clear();
        QTest::newRow("without columns") << empty << QStringList{"Σελίδα 1"};
        empty.columns = {{"Κρυφή", 0, Qt::AlignRight}};
        QTest::newRow("of width 0") << empty << QStringList{"Σελίδα 1"};
    }
    void oddLists() {
        QFETCH(PrintedList, list);
        QFETCH(QStringList, expected);
        platform::Printer printer({}, {}, fontOf);
        core::drawList(printer, list, {});
        QCOMPARE(printer.endDoc()->texts(0), expected);
    }

    void aLongOwnerMakesRoomForTheDate() {
        PrintedList list = printedList(3);
        list.owner = core::OwnerDetails{QString("Γραφείο με πολύ μακρύ όνομα ").repeated(8), "Οδός", "210",
                                        QString("μακρύ").repeated(20) + "@example.gr"};
        list.card = core::PrintedCard{QString("Επώνυμο ").repeated(30), "Όνομα", QString("2310 ").repeated(40), "69"};
        list.title = QString("Τίτλος που δεν τελειώνει ").repeated(10);
        const PrintedPdf pdf = pdfOf(list);
        QCOMPARE(pdf.outside(), QStringList());
        QVERIFY(!pdf.boxOf("Πέμπτη,").intersects([&] {
            for (const auto& word : pdf.words(0))
                if (word.text.contains("example.gr")) return word.box;
            return QRectF();
        }()));
    }

    void theStopButtonEndsADrawing() {
        Desk desk;
        core::MainMod mod(desk.services);
        stopWhenBusy();
        int steps = 0;
        QVERIFY(
            !core::printOut(mod, nullptr, {"Ατελείωτο", [&](platform::Printer& printer, const core::PrintStep& step) {
                                               for (;;) {
                                                   printer.print("γραμμή");
                                                   step(++steps, 1'000'000);
                                               }
                                           }}));
        QVERIFY(steps > 0);
        QVERIFY(desk.printers.sent.isEmpty() && desk.prompts.isEmpty());
        QVERIFY(!QApplication::activeModalWidget());
        QVERIFY(!QApplication::overrideCursor());
    }

    void theBackgroundIsWaitedForBehindAWindow() {
        QSemaphore seen;
        QThread* worker = nullptr;
        bool stopOffered = true, stays = false;
        QTimer watch;
        QObject::connect(&watch, &QTimer::timeout, [&] {
            QWidget* busy = QApplication::activeModalWidget();
            const QLabel* label = busy ? busy->findChild<QLabel*>() : nullptr;
            if (!label || label->text() != "Αντιγραφή") return;
            watch.stop();
            stopOffered = busy->findChild<QPushButton*>();
            QTest::keyClick(busy, Qt::Key_Escape);
            busy->close();
            stays = busy->isVisible();
            seen.release();
        });
        watch.start(1);
        const auto work = [&](const core::Tell& tell) {
            worker = QThread::currentThread();
            tell("Αντιγραφή", 40);
            if (seen.tryAcquire(1, 20000)) throw data::Error(data::ErrorCategory::Full, "ο δίσκος γέμισε");
        };
        QVERIFY_THROWS_EXCEPTION(data::Error, core::inBackground(nullptr, "Εργασία", work));
        QVERIFY(worker && worker != thread());
        QVERIFY(!stopOffered && stays);
        QVERIFY(!QApplication::activeModalWidget() && !QApplication::overrideCursor());
    }

    void nothingElseHappensMeanwhile() {
        QPushButton outside("Άλλο");
        outside.show();
        QVERIFY(QTest::qWaitForWindowExposed(&outside));
        int presses = 0, events = 0;
        QObject::connect(&outside, &QPushButton::clicked, [&] { ++presses; });
        QMetaObject::invokeMethod(
            &outside, [&] { ++events; }, Qt::QueuedConnection);
        core::WorkProgress progress(nullptr, "Εργασία");
        for (int i = 0; i < 100; ++i) QVERIFY(progress.step(i, 1000));
        // Without the bar, which blocks the other windows, no event gets out.
        QVERIFY(!QApplication::activeModalWidget());
        QCOMPARE(events, 0);
        QElapsedTimer clock;
        clock.start();
        while (clock.elapsed() < 400) QVERIFY(progress.step(600, 1000));
        QCOMPARE(events, 1);
        QVERIFY(QApplication::activeModalWidget());
        QCOMPARE(part<QProgressBar>(*QApplication::activeModalWidget(), "ProgressBar1")->value(), 600);
        QTest::mouseClick(outside.windowHandle(), Qt::LeftButton, {}, outside.rect().center());
        QCOMPARE(presses, 0);
        QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape);
        QVERIFY(!progress.step(700, 1000));
    }

    void aDrawingThatFailsIsTold() {
        Desk desk;
        core::MainMod mod(desk.services);
        QVERIFY_THROWS_EXCEPTION(platform::PrintError,
                                 core::printOut(mod, nullptr, {"Χαλασμένο", [](auto&, const auto&) {
                                                                   throw platform::PrintError("Γέμισε ο δίσκος");
                                                               }}));
        QVERIFY(desk.printers.sent.isEmpty());
        QVERIFY(!QApplication::overrideCursor());
    }

    void walkingThroughThePreview() {
        Studio studio;
        PrintPreview preview(studio.mod, &studio.parent, pages(5));
        preview.show();
        auto* view = part<core::PageView>(preview, "PageView");
        auto* page = part<QSpinBox>(preview, "Page");
        const auto press = [&](const char* name) { part<QAbstractButton>(preview, name)->click(); };
        const auto enabled = [&] {
            QString which;
            for (const char* name : {"cmdFirst", "cmdPrevious", "cmdNext", "cmdLast"})
                which += part<QAbstractButton>(preview, name)->isEnabled() ? '1' : '0';
            return which;
        };
        QCOMPARE(page->value(), 1);
        QCOMPARE(part<QLabel>(preview, "PageCount")->text(), QString("από 5"));
        QCOMPARE(enabled(), QString("0011"));
        press("cmdNext");
        QCOMPARE(page->value(), 2);
        QCOMPARE(enabled(), QString("1111"));
        QCOMPARE(view->accessibleName(), QString("Σελίδα 2 από 5"));
        QCOMPARE(view->accessibleDescription(), QString("Σελίδα 2"));
        press("cmdLast");
        QCOMPARE(enabled(), QString("1100"));
        page->setValue(3);
        QCOMPARE(view->page(), 2);
        press("cmdFirst");
        QCOMPARE(view->page(), 0);
        QTest::keyClick(view, Qt::Key_End);
        QCOMPARE(page->value(), 5);
        // Enter in a box or on a button of this row is no wish to print.
        page->setFocus();
        page->selectAll();
        QTest::keyClicks(page, "4");
        QTest::keyClick(page, Qt::Key_Return);
        QCOMPARE(view->page(), 3);
        part<QToolButton>(preview, "cmdPrevious")->setFocus();
        QTest::keyClick(part<QToolButton>(preview, "cmdPrevious"), Qt::Key_Return);
        QCOMPARE(view->page(), 2);
        QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r", true);
        QApplication::sendEvent(part<QToolButton>(preview, "cmdPrevious"), &held);
        QVERIFY(preview.isVisible() && studio.desk.printers.sent.isEmpty());
        // The keys of the pages change no box, not even where there is no such page.
        preview.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&preview));
        auto* copies = part<QSpinBox>(preview, "Copies");
        copies->setFocus();
        for (int i = 0; i < 4; ++i) QTest::keyClick(copies, Qt::Key_PageUp, Qt::ControlModifier);
        QCOMPARE(view->page(), 0);
        QCOMPARE(copies->value(), 1);
        part<QPushButton>(preview, "cmdClose")->setFocus();
        QTest::keyClick(part<QPushButton>(preview, "cmdClose"), Qt::Key_Space);
        QVERIFY(!preview.isVisible() && !preview.isDelivered());
        preview.show();
        for (int i = 0; i < 40 && view->page() > 0; ++i) QTest::keyClick(view, Qt::Key_PageUp);
        QCOMPARE(page->value(), 1);
    }

    void zoomingThePreview() {
        Studio studio;
        PrintPreview preview(studio.mod, &studio.parent, pages(1));
        preview.show();
        auto* view = part<core::PageView>(preview, "PageView");
        auto* zoom = part<QComboBox>(preview, "Zoom");
        const auto choose = [&](const char* text) { zoom->setCurrentIndex(zoom->findText(text)); };
        choose("Στο πλάτος");
        QVERIFY(view->pagePixels().width() <= view->viewport()->width());
        QVERIFY(view->pagePixels().width() > view->viewport()->width() * 0.8);
        choose("Ολόκληρη σελίδα");
        QVERIFY(view->pagePixels().height() <= view->viewport()->height());
        choose("100 %");
        QCOMPARE(view->pagePixels().width(), qRound(595 * 20 * preview.logicalDpiX() / 1440.0));
        QTest::keyClick(view, Qt::Key_Plus);
        QCOMPARE(zoom->currentText(), QString("150 %"));
        choose("400 %");
        QCOMPARE(view->pagePixels().width(), qRound(595 * 20 * preview.logicalDpiX() / 360.0));
        QTest::keyClick(view, Qt::Key_Plus);
        QCOMPARE(zoom->currentText(), QString("400 %"));
        QTest::keyClick(view, Qt::Key_Minus);
        QCOMPARE(zoom->currentText(), QString("300 %"));
        QVERIFY(!view->grab().isNull());
    }

    void printingFromThePreview() {
        Studio studio;
        studio.desk.printers.installed = {"Πρώτος", "Δεύτερος"};
        PrintPreview preview(studio.mod, &studio.parent, pages(2));
        auto* printers = part<QComboBox>(preview, "Printer");
        QCOMPARE(printers->currentText(), QString("Πρώτος"));
        printers->setCurrentIndex(1);
        part<QSpinBox>(preview, "Copies")->setValue(3);
        part<QComboBox>(preview, "Orientation")->setCurrentIndex(1);
        part<QPushButton>(preview, "cmdPrint")->click();
        QVERIFY(preview.isDelivered());
        QCOMPARE(studio.desk.printers.sent.size(), 1);
        const auto& sent = studio.desk.printers.sent[0];
        QCOMPARE(sent.printer, QString("Δεύτερος"));
        QCOMPARE(sent.copies, 3);
        QVERIFY(sent.setup.landscape);
        QCOMPARE(sent.texts(), QStringList({"Σελίδα 1", "Σελίδα 2"}));
        // The choice is remembered, unless that printer goes away.
        QCOMPARE(core::chosenPrinter(studio.desk.services), QString("Δεύτερος"));
        studio.desk.printers.installed.removeLast();
        QCOMPARE(core::chosenPrinter(studio.desk.services), QString("Πρώτος"));
    }

    void anotherPaperIsDrawnAnew() {
        Studio studio;
        const PrintedList list = printedList(300);
        const core::PrintJob job{"Λίστα", [list](platform::Printer& printer, const core::PrintStep& step) {
                                     core::drawList(printer, list, step);
                                 }};
        PrintPreview preview(studio.mod, &studio.parent, job);
        const auto count = [&] { return part<QSpinBox>(preview, "Page")->maximum(); };
        const int onA4 = count();
        auto* paper = part<QComboBox>(preview, "Paper");
        paper->setCurrentIndex(paper->findText("A5"));
        const int onA5 = count();
        QVERIFY(onA5 > onA4);
        part<QComboBox>(preview, "Orientation")->setCurrentIndex(1);
        QVERIFY(count() > onA5);
        PrintPreview next(studio.mod, &studio.parent, job);
        QCOMPARE(part<QComboBox>(next, "Paper")->currentText(), paper->currentText());
        QCOMPARE(part<QComboBox>(next, "Orientation")->currentIndex(), 0);
    }

    void aPaperThatCannotBeDrawnLeavesThePages() {
        Studio studio;
        int drawings = 0;
        PrintPreview preview(studio.mod, &studio.parent, {"Μία φορά", [&](platform::Printer& printer, const auto&) {
                                                              if (++drawings > 1) throw platform::PrintError("Όχι");
                                                              printer.print("Σελίδα");
                                                          }});
        auto* paper = part<QComboBox>(preview, "Paper");
        paper->setCurrentIndex(paper->findText("A5"));
        QVERIFY(studio.desk.prompts.lastText().contains("Όχι"));
        QCOMPARE(paper->currentText(), QString("A4"));
        part<QPushButton>(preview, "cmdPrint")->click();
        QCOMPARE(studio.desk.printers.sent.value(0).texts(), QStringList("Σελίδα"));
    }

    void savingAsPdf() {
        Studio studio;
        QTemporaryDir folder;
        PrintPreview preview(studio.mod, &studio.parent, pages(3));
        auto* pdf = part<QPushButton>(preview, "cmdPdf");
        studio.desk.prompts.answerFile({});
        pdf->click();
        QVERIFY(!preview.isDelivered());
        QCOMPARE(studio.desk.prompts.lastText(), QString("Δοκιμή- α-β.pdf"));
        studio.desk.prompts.answerFile(folder.filePath("δεν/υπάρχει.pdf"));
        pdf->click();
        QVERIFY(!preview.isDelivered());
        QVERIFY(studio.desk.prompts.lastText().contains("Δεν γράφτηκε"));
        studio.desk.prompts.answerFile(folder.filePath("σελίδες.pdf"));
        pdf->click();
        QVERIFY(preview.isDelivered());
        QCOMPARE(PrintedPdf(folder.filePath("σελίδες.pdf")).pageCount(), 3);
    }

    void aPrinterThatIsGoneLosesNothing() {
        Studio studio;
        PrintPreview preview(studio.mod, &studio.parent, pages(2));
        preview.show();
        studio.desk.printers.failure = "Ο εκτυπωτής «Γραφείο» δεν αποκρίνεται.";
        part<QPushButton>(preview, "cmdPrint")->click();
        QVERIFY(studio.desk.prompts.lastText().startsWith("Dorvalist Error: " + studio.desk.printers.failure));
        QCOMPARE(studio.desk.prompts.shown().last().icon, platform::MessageIcon::Critical);
        QVERIFY(preview.isVisible() && !preview.isDelivered());
        // The list of printers is read again, and another one takes the pages.
        studio.desk.printers.installed = {};
        part<QPushButton>(preview, "cmdPrint")->click();
        QVERIFY(!part<QComboBox>(preview, "Printer")->isEnabled());
        studio.desk.printers.failure.clear();
        studio.desk.printers.installed = {"Νέος"};
        part<QPushButton>(preview, "cmdPrint")->click();
        QVERIFY(!preview.isDelivered());
        QCOMPARE(part<QComboBox>(preview, "Printer")->currentText(), QString("Νέος"));
        part<QPushButton>(preview, "cmdPrint")->click();
        QVERIFY(preview.isDelivered());
        QCOMPARE(studio.desk.printers.sent.value(0).printer, QString("Νέος"));
    }

    void withoutThePreviewUntilItIsWantedAgain() {
        Studio studio;
        bool shown = false;
        whenPreviewed([&](PrintPreview& preview) {
            shown = true;
            part<QCheckBox>(preview, "Direct")->click();
        });
        QVERIFY(!core::printOut(studio.mod, &studio.parent, pages(1)));  // closed without printing
        QVERIFY(shown && studio.desk.printers.sent.isEmpty());
        QVERIFY(!core::previewsPrints(studio.desk.settings));
        QVERIFY(core::printOut(studio.mod, &studio.parent, pages(1)));
        QCOMPARE(studio.desk.printers.sent.size(), 1);
        // A printer that fails brings the preview, with the pages in it.
        studio.desk.printers.failure = "Χαλασμένος";
        QTemporaryDir folder;
        whenPreviewed([&](PrintPreview& preview) {
            studio.desk.prompts.answerFile(folder.filePath("α.pdf"));
            part<QPushButton>(preview, "cmdPdf")->click();
        });
        QVERIFY(core::printOut(studio.mod, &studio.parent, pages(2)));
        QVERIFY(studio.desk.prompts.shown().first().text.startsWith("Dorvalist Error: Χαλασμένος"));
        QCOMPARE(PrintedPdf(folder.filePath("α.pdf")).pageCount(), 2);
    }
};

QTEST_MAIN(TestPrint)
#include "test_print.moc"
