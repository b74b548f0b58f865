// Lists on paper, the preview, and what happens when a printer is gone.
#include <QProgressBar>
#include <QPushButton>
#include <QScrollBar>

#include "controls/theme.h"
#include "core/printlist.h"
#include "core/printout.h"
#include "core/printpreview.h"
#include "core/printsettings.h"
#include "core/workprogress.h"
#include "support/cases.h"
#include "support/driver.h"
#include "support/failure.h"
#include "support/printedpdf.h"
#include "support/seat.h"

using core::PrintedList;
using core::PrintPreview;
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

struct Studio : support::Seat {
    QWidget parent;

    Studio() { desk.settings.setValue("Options", "PrintPreview", "1"); }
};

// A preview on show, driven by its controls' names.
struct PreviewDriver : support::Driver {
    PreviewDriver(Studio& studio, const core::PrintJob& job) : Driver(preview), preview(studio.mod, nullptr, job) {
        preview.show();
    }
    int pages() { return find<QSpinBox>("Page")->maximum(); }

    PrintPreview preview;
};

// Runs once a modal window of that name is up.
void whenModal(const QString& name, const std::function<void(QDialog&)>& act) {
    auto* timer = new QTimer(qApp);
    QObject::connect(timer, &QTimer::timeout, timer, [=] {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (!dialog || dialog->objectName() != name) return;
        timer->deleteLater();
        timer->stop();
        const QPointer<QDialog> alive(dialog);
        act(*dialog);
        if (alive && alive->isVisible()) alive->reject();
    });
    timer->start(1);
}

}  // namespace

class TestPrint : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { controls::applyTheme(*qApp, controls::ThemeKind::Light); }

    void headings() {
        const QStringList day{"Πέμπτη, 05/11/2026", "Κινήσεις"},
            card{"EΠΩΝΥΜΟ: ", "Σκίννερ", "ΤΗΛΕΦΩΝΟ: ", "2310", "ONOMA: ", "Άννα", "ΚΙΝΗΤΟ: ", "6970"},
            table{"Αριθμός", "Επώνυμο", "Ποσό", "1", "Παπαδόπουλος1", "1,50", "Σελίδα 1"};
        support::Seat seat;
        auto& [desk, mod] = seat;
        desk.setOwner();
        const std::unique_ptr<controls::ListView> list(listOf(1));
        QVERIFY(core::gPrintListView(mod, nullptr, *list, "Κινήσεις"));
        QVERIFY(core::gPrintListView(mod, nullptr, *list, "Κινήσεις", core::ListHeading::Owner));
        QVERIFY(core::gPrintListView(mod, nullptr, *list, "Κινήσεις",
                                     core::PrintedCard{"Σκίννερ", "Άννα", "2310", "6970"}));
        QCOMPARE(desk.printers.sent.value(0).texts(), day + table);
        QCOMPARE(desk.printers.sent.value(1).texts(), desk.owner + day + table);
        QCOMPARE(desk.printers.sent.value(2).texts(), desk.owner + day + card + table);
        QVERIFY(desk.prompts.isEmpty());
    }

    // What fails behind the printer is told, and never taken for printed; what the user stops isn't told.
    void aListThatIsNotPrintedSaysSo() {
        support::Seat seat;
        auto& [desk, mod] = seat;
        const std::unique_ptr<controls::ListView> list(listOf(1));
        const auto told = [](int number, const char* text) {
            return QString("gPrintListView() failed with the following error:-\nError Number: %1\nDescription:%2")
                .arg(number)
                .arg(text);
        };
        desk.printers.fault = [] { throw data::Error(data::ErrorCategory::Full, "Γέμισε ο δίσκος"); };
        QVERIFY(!core::gPrintListView(mod, nullptr, *list, "Κινήσεις"));
        QCOMPARE(desk.prompts.lastTitle(), core::programTitle());
        QCOMPARE(desk.prompts.lastText(), told(data::adoErrorNumber(data::ErrorCategory::Full), "Γέμισε ο δίσκος"));
        desk.printers.fault = [] { throw std::runtime_error("χωρίς μνήμη"); };
        QVERIFY(!core::gPrintListView(mod, nullptr, *list, "Κινήσεις"));
        QCOMPARE(desk.prompts.lastText(), told(482, "χωρίς μνήμη"));
        desk.printers.fault = {};
        desk.printers.stopsAtPage = 0;
        QVERIFY(!core::gPrintListView(mod, nullptr, *list, "Κινήσεις"));
        QCOMPARE(desk.prompts.count(), 2);
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

    void furtherPagesNameWhatTheyGoOnWith() {
        PrintedList list = printedList(200);
        list.card = core::PrintedCard{"Σκίννερ", "Άννα", "2310", "6970"};
        const PrintedPdf pdf = pdfOf(list);
        const QString line = "Τίτλος - Σκίννερ - σελίδα %1 από %2";
        QVERIFY(pdf.pageCount() > 2);
        QVERIFY(!pdf.text(0).contains("από"));
        for (int page = 1; page < pdf.pageCount(); ++page)
            QVERIFY2(pdf.text(page).contains(line.arg(page + 1).arg(pdf.pageCount())), qPrintable(pdf.text(page)));
    }

    // What other columns leave free goes to the one whose text would be cut.
    void aLongReasonGetsTheRoomOfNarrowColumns() {
        PrintedList list = printedList(1);
        const QString reason = QString("Αγορά ειδών γραφείου με δόσεις ").repeated(3).trimmed();
        list.rows[0].cells[1] = reason;
        list.columns[0].width = list.columns[2].width = 4000;
        list.columns[1].width = 2000;
        const PrintedPdf pdf = pdfOf(list);
        QVERIFY2(pdf.text(0).contains(reason), qPrintable(pdf.text(0)));
        QCOMPARE(pdf.outside(), QStringList());
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

    void oddLists() {
        const QStringList heads{"Αριθμός", "Επώνυμο", "Ποσό"}, foot{"Σελίδα 1"};
        PrintedList list = printedList(0);
        const auto texts = [&] {
            platform::Printer printer({}, {}, fontOf);
            core::drawList(printer, list, {});
            return printer.endDoc()->texts(0);
        };
        QCOMPARE(texts(), QStringList({"Πέμπτη, 05/11/2026", "Τίτλος"}) + heads + foot);
        list.title.clear();
        QCOMPARE(texts(), heads + foot);
        list.columns.clear();
        QCOMPARE(texts(), foot);
        list.columns = {{"Κρυφή", 0, Qt::AlignRight}};
        QCOMPARE(texts(), foot);
    }

    void aLongOwnerMakesRoomForTheDate() {
        PrintedList list = printedList(3);
        list.owner = core::OwnerDetails{QString("Γραφείο με πολύ μακρύ όνομα ").repeated(8), "Οδός", "210",
                                        QString("μακρύ").repeated(20) + "@example.gr"};
        list.card = core::PrintedCard{QString("Επώνυμο ").repeated(30), "Όνομα", QString("2310 ").repeated(40), "69"};
        list.title = QString("Τίτλος που δεν τελειώνει ").repeated(10);
        const PrintedPdf pdf = pdfOf(list);
        QCOMPARE(pdf.outside(), QStringList());
        int mails = 0;
        for (const PrintedPdf::Word& word : pdf.words(0)) {
            if (!word.text.contains("example.gr")) continue;
            QVERIFY(!pdf.boxOf("Πέμπτη,").intersects(word.box));
            ++mails;
        }
        QCOMPARE(mails, 1);
    }

    void theStopButtonEndsADrawing() {
        support::Seat seat;
        whenModal("WorkProgress", [](QDialog& busy) { support::Driver(busy).click("cmdStop"); });
        int steps = 0;
        const auto draw = [&](platform::Printer& printer, const core::PrintStep& step) {
            for (;;) {
                printer.print("γραμμή");
                step(++steps, 1'000'000);
            }
        };
        QVERIFY(!core::printOut(seat.mod, nullptr, {"Ατελείωτο", draw}));
        QVERIFY(steps > 0);
        QVERIFY(seat.desk.printers.sent.isEmpty() && seat.desk.prompts.isEmpty());
        QVERIFY(!QApplication::activeModalWidget() && !QApplication::overrideCursor());
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
        QCOMPARE(failureOf([&] { core::inBackground(nullptr, "Εργασία", work); }), "ο δίσκος γέμισε");
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
        QCOMPARE(support::Driver(*QApplication::activeModalWidget()).find<QProgressBar>("ProgressBar1")->value(), 600);
        QTest::mouseClick(outside.windowHandle(), Qt::LeftButton, {}, outside.rect().center());
        QCOMPARE(presses, 0);
        QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape);
        QVERIFY(!progress.step(700, 1000));
    }

    void aDrawingThatFailsGoesToTheCaller() {
        support::Seat seat;
        const auto draw = [](auto&, const auto&) { throw platform::PrintError("Γέμισε ο δίσκος"); };
        QCOMPARE(failureOf<platform::PrintError>([&] {
                     core::printOut(seat.mod, nullptr, {"Χαλασμένο", draw});
                 }),
                 "Γέμισε ο δίσκος");
        QVERIFY(seat.desk.printers.sent.isEmpty() && !QApplication::overrideCursor());
    }

    void walkingThroughThePreview() {
        Studio studio;
        PreviewDriver driver(studio, pages(5));
        auto* view = driver.find<core::PageView>("PageView");
        auto* page = driver.find<QSpinBox>("Page");
        // The page on show, and which of the four buttons can be pressed.
        const auto state = [&] {
            QString which = QString::number(page->value()) + ' ';
            for (const char* name : {"cmdFirst", "cmdPrevious", "cmdNext", "cmdLast"})
                which += driver.isEnabled(name) ? '1' : '0';
            return view->page() + 1 == page->value() ? which : "the view shows another page";
        };
        QCOMPARE(state(), "1 0011");
        QCOMPARE(driver.shown("PageCount"), "από 5");
        for (const auto& [button, expected] : {std::pair("cmdNext", "2 1111"),
                                               {"cmdLast", "5 1100"},
                                               {"cmdPrevious", "4 1111"},
                                               {"cmdFirst", "1 0011"}}) {
            driver.click(button);
            QCOMPARE(state(), expected);
        }
        page->setValue(2);
        QCOMPARE(view->accessibleName(), "Σελίδα 2 από 5");
        QCOMPARE(view->accessibleDescription(), "Σελίδα 2");
        QTest::keyClick(view, Qt::Key_End);
        QCOMPARE(state(), "5 1100");
        // Enter in a box or on a button of this row is no wish to print.
        page->setFocus();
        page->selectAll();
        QTest::keyClicks(page, "4");
        QTest::keyClick(page, Qt::Key_Return);
        QCOMPARE(state(), "4 1111");
        auto* previous = driver.find<QAbstractButton>("cmdPrevious");
        previous->setFocus();
        QTest::keyClick(previous, Qt::Key_Return);
        QCOMPARE(state(), "3 1111");
        QVERIFY(driver.preview.isVisible() && studio.desk.printers.sent.isEmpty());
        QTest::keyClick(driver.find("cmdClose"), Qt::Key_Space);
        QVERIFY(!driver.preview.isVisible() && !driver.preview.isDelivered());
        driver.preview.show();
        for (int i = 0; i < 40 && view->page() > 0; ++i) QTest::keyClick(view, Qt::Key_PageUp);
        QCOMPARE(state(), "1 0011");
    }

    void zoomingThePreview() {
        Studio studio;
        PreviewDriver driver(studio, pages(1));
        auto* view = driver.find<core::PageView>("PageView");
        const int across = qRound(595 * driver.preview.logicalDpiX() / 72.0);  // pixels of A4 at 100 %
        // Whatever is beyond the window can be scrolled to, and no further.
        const auto scrollsWhatIsHidden = [&] {
            const QSize page = view->pagePixels(), room = view->viewport()->size();
            constexpr int margins = 28;
            return view->horizontalScrollBar()->maximum() == std::max(0, page.width() + margins - room.width()) &&
                   view->verticalScrollBar()->maximum() == std::max(0, page.height() + margins - room.height());
        };
        driver.type("Zoom", "Στο πλάτος");
        QVERIFY(view->pagePixels().width() <= view->viewport()->width());
        QVERIFY(view->pagePixels().width() > view->viewport()->width() * 0.8);
        QVERIFY(scrollsWhatIsHidden() && view->verticalScrollBar()->maximum() > 0);
        driver.type("Zoom", "Ολόκληρη σελίδα");
        QVERIFY(view->pagePixels().height() <= view->viewport()->height());
        QVERIFY(scrollsWhatIsHidden() && view->verticalScrollBar()->maximum() == 0);
        struct Case {
            const char* before;
            Qt::Key key;
            const char* after;
            double zoom;
        };
        for (const Case& c : {Case{"100 %", Qt::Key_Plus, "150 %", 1.5},
                              {"400 %", Qt::Key_Plus, "400 %", 4},
                              {"400 %", Qt::Key_Minus, "300 %", 3},
                              {"50 %", Qt::Key_Minus, "50 %", 0.5},
                              {"Ολόκληρη σελίδα", Qt::Key_Plus, "50 %", 0.5}}) {
            const support::InCase in(QString(c.before) + c.after);
            driver.type("Zoom", c.before);
            QTest::keyClick(view, c.key);
            QCOMPARE(driver.shown("Zoom"), c.after);
            QVERIFY(std::abs(view->pagePixels().width() - across * c.zoom) <= 2);
            QVERIFY(scrollsWhatIsHidden());
        }
        QVERIFY(!view->grab().isNull());
    }

    void printingFromThePreview() {
        Studio studio;
        studio.desk.printers.installed = {"Πρώτος", "Δεύτερος"};
        PreviewDriver driver(studio, pages(2));
        QCOMPARE(driver.shown("Printer"), "Πρώτος");
        driver.type("Printer", "Δεύτερος");
        driver.find<QSpinBox>("Copies")->setValue(3);
        driver.type("Orientation", "Οριζόντια");
        // Stopped half way, nothing counts as printed.
        studio.desk.printers.stopsAtPage = 1;
        driver.click("cmdPrint");
        QVERIFY(driver.preview.isVisible() && !driver.preview.isDelivered());
        QCOMPARE(core::chosenPrinter(studio.desk.services), "Πρώτος");
        studio.desk.printers.stopsAtPage = -1;
        driver.click("cmdPrint");
        QVERIFY(!driver.preview.isVisible() && driver.preview.isDelivered());
        QCOMPARE(studio.desk.printers.sent.size(), 1);
        const auto& sent = studio.desk.printers.sent[0];
        QCOMPARE(sent.printer, "Δεύτερος");
        QCOMPARE(sent.copies, 3);
        QVERIFY(sent.setup.landscape && studio.desk.prompts.isEmpty());
        QCOMPARE(sent.texts(), QStringList({"Σελίδα 1", "Σελίδα 2"}));
        // The choice is remembered, unless that printer goes away.
        QCOMPARE(core::chosenPrinter(studio.desk.services), "Δεύτερος");
        studio.desk.printers.installed.removeLast();
        QCOMPARE(core::chosenPrinter(studio.desk.services), "Πρώτος");
    }

    void anotherPaperIsDrawnAnew() {
        Studio studio;
        const PrintedList list = printedList(300);
        const core::PrintJob job{"Λίστα", [list](platform::Printer& printer, const core::PrintStep& step) {
                                     core::drawList(printer, list, step);
                                 }};
        PreviewDriver driver(studio, job);
        const int onA4 = driver.pages();
        driver.type("Paper", "A5");
        const int onA5 = driver.pages();
        driver.type("Orientation", "Οριζόντια");
        QVERIFY(driver.pages() > onA5 && onA5 > onA4);
        PreviewDriver next(studio, job);
        QCOMPARE(next.shown("Paper"), "A5");
        QCOMPARE(next.shown("Orientation"), "Κατακόρυφα");
    }

    void aPaperThatCannotBeDrawnLeavesThePages() {
        Studio studio;
        int drawings = 0;
        PreviewDriver driver(studio, {"Μία φορά", [&](platform::Printer& printer, const auto&) {
                                          if (++drawings == 2) throw platform::PrintError("Όχι");
                                          if (drawings == 3) throw core::PrintStopped();
                                          printer.print("Σελίδα");
                                      }});
        driver.type("Paper", "A5");
        QVERIFY(studio.desk.prompts.lastText().contains("Όχι"));
        QCOMPARE(driver.shown("Paper"), "A4");
        driver.type("Orientation", "Οριζόντια");
        QCOMPARE(driver.shown("Orientation"), "Κατακόρυφα");
        QCOMPARE(studio.desk.prompts.count(), 1);
        driver.click("cmdPrint");
        QCOMPARE(studio.desk.printers.sent.value(0).texts(), QStringList("Σελίδα"));
        QVERIFY(!studio.desk.printers.sent[0].setup.landscape);
    }

    void savingAsPdf() {
        Studio studio;
        QTemporaryDir folder;
        PreviewDriver driver(studio, pages(3));
        const QString good = folder.filePath("σελίδες.pdf");
        for (const QString& file : {QString(), folder.filePath("δεν/υπάρχει.pdf"), good}) {
            studio.desk.prompts.answerFile(file);
            driver.click("cmdPdf");
            QCOMPARE(driver.preview.isDelivered(), file == good);
            QVERIFY(studio.desk.prompts.wasShown("Δοκιμή- α-β.pdf"));
            QCOMPARE(studio.desk.prompts.lastText().contains("Δεν γράφτηκε"), file.contains("δεν"));
        }
        QCOMPARE(PrintedPdf(good).pageCount(), 3);
    }

    void aPrinterThatIsGoneLosesNothing() {
        Studio studio;
        support::RecordingPrinters& printers = studio.desk.printers;
        PreviewDriver driver(studio, pages(2));
        printers.failure = "Ο εκτυπωτής «Γραφείο» δεν αποκρίνεται.";
        driver.click("cmdPrint");
        QVERIFY(studio.desk.prompts.lastText().startsWith("Dorvalist Error: " + printers.failure));
        QCOMPARE(studio.desk.prompts.shown().last().icon, platform::MessageIcon::Critical);
        QVERIFY(driver.preview.isVisible() && !driver.preview.isDelivered());
        // The list of printers is read again, and another one takes the pages.
        printers.installed = {};
        driver.click("cmdPrint");
        QVERIFY(!driver.isEnabled("Printer"));
        printers.failure.clear();
        printers.installed = {"Νέος"};
        driver.click("cmdPrint");
        QVERIFY(!driver.preview.isDelivered());
        QCOMPARE(driver.shown("Printer"), "Νέος");
        driver.click("cmdPrint");
        QVERIFY(driver.preview.isDelivered());
        QCOMPARE(printers.sent.value(0).printer, "Νέος");
    }

    void withoutThePreviewUntilItIsWantedAgain() {
        Studio studio;
        bool shown = false;
        whenModal("PrintPreview", [&](QDialog& preview) {
            shown = true;
            support::Driver(preview).click("Direct");
        });
        QVERIFY(!core::printOut(studio.mod, &studio.parent, pages(1)));  // closed without printing
        QVERIFY(shown && studio.desk.printers.sent.isEmpty());
        QVERIFY(!core::previewsPrints(studio.desk.settings));
        QVERIFY(core::printOut(studio.mod, &studio.parent, pages(1)));
        QCOMPARE(studio.desk.printers.sent.size(), 1);
        // A printer that fails brings the preview, with the pages in it.
        studio.desk.printers.failure = "Χαλασμένος";
        QTemporaryDir folder;
        whenModal("PrintPreview", [&](QDialog& preview) {
            studio.desk.prompts.answerFile(folder.filePath("α.pdf"));
            support::Driver(preview).click("cmdPdf");
        });
        QVERIFY(core::printOut(studio.mod, &studio.parent, pages(2)));
        QVERIFY(studio.desk.prompts.shown().first().text.startsWith("Dorvalist Error: Χαλασμένος"));
        QCOMPARE(PrintedPdf(folder.filePath("α.pdf")).pageCount(), 2);
    }
};

QTEST_MAIN(TestPrint)
#include "test_print.moc"
