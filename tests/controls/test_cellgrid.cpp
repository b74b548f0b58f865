// The grid of cells: what keys and mouse do, what a screen reader hears, what is painted.
#include <QAccessible>
#include <QHeaderView>
#include <QSignalSpy>
#include <QToolTip>

#include "controls/cellgrid.h"
#include "controls/theme.h"
#include "support/cases.h"
#include "support/contrast.h"

using namespace controls;

namespace {

// November 2026 begins on a Sunday: six blank cells before it, and a fifth of the month that is today.
struct Month : CellGrid {
    QStringList log;

    Month() {
        setObjectName("MSFlexGrid1");
        setBehaviour(Unit::Cell, ActedBy::Click, Paging::Turns);
        setHeads({{"ΔΕΥ", "Δευτέρα"}, {"ΤΡΙ"}, {"ΤΕΤ"}, {"ΠΕΜ"}, {"ΠΑΡ"}, {"ΣΑΒ"}, {"ΚΥΡ", "Κυριακή"}});
        setCells(november());
        connect(this, &CellGrid::cellActivated, this, [this](int r, int c) { log << at("acts", r, c); });
        connect(this, &CellGrid::menuRequested, this, [this](int r, int c) { log << at("menu", r, c); });
        connect(this, &CellGrid::pageTurned, this, [this](int way) { log << QString("turns %1").arg(way); });
        resize(300, 220);
        show();
        activateWindow();
    }
    static QVector<QVector<GridCell>> november() {
        QVector<QVector<GridCell>> rows(6, QVector<GridCell>(7, {.text = {}, .off = true}));
        for (int day = 1; day <= 30; ++day) {
            const int place = day + 5;
            rows[place / 7][place % 7] = {.text = QString::number(day), .bold = place % 7 == 6};
        }
        rows[1][3].role = CellRole::Today;
        rows[1][3].spoken = "Πέμπτη 5 Νοεμβρίου 2026, σήμερα";
        rows[1][3].toolTip = "09:30 <Παπαδοπούλου>";
        return rows;
    }
    static QString at(const char* what, int row, int column) {
        return QString("%1 %2,%3").arg(what).arg(row).arg(column);
    }
    QPoint middle(int row, int column) const { return visualRect(model()->index(row, column)).center(); }
    QString cursor() const { return QString("%1,%2").arg(currentRow()).arg(currentColumn()); }
    QString take() { return std::exchange(log, {}).join("; "); }
};

QVector<QVector<GridCell>> halfHours() {
    QVector<QVector<GridCell>> rows;
    for (int i = 0; i < 48; ++i) rows.append({{QString("%1:%2").arg(i / 2).arg(i % 2 ? "30" : "00")}, {}});
    return rows;
}

QAccessibleInterface* spokenCell(QWidget& grid, int row, int column) {
    QAccessibleInterface* table = QAccessible::queryAccessibleInterface(&grid);
    return table && table->tableInterface() ? table->tableInterface()->cellAt(row, column) : nullptr;
}

}  // namespace

class TestCellGrid : public QObject {
    Q_OBJECT

private slots:
    void init() { applyTheme(*qApp, ThemeKind::Light); }

    void keysMove() {
        const struct {
            const char* name;
            int row, column;
            QList<QKeyCombination> keys;
            const char* cursor;
        } cases[] = {
            {"right over the week's end", 1, 6, {Qt::Key_Right}, "2,0"},
            {"left over the week's start", 2, 0, {Qt::Key_Left}, "1,6"},
            {"not before the first", 0, 6, {Qt::Key_Left, Qt::Key_Up}, "0,6"},
            {"not after the last", 5, 0, {Qt::Key_Right, Qt::Key_Down}, "5,0"},
            {"up and down keep the day of the week", 1, 2, {Qt::Key_Down, Qt::Key_Down, Qt::Key_Up}, "2,2"},
            {"not up into a blank", 1, 2, {Qt::Key_Up}, "1,2"},
            {"Home", 1, 3, {Qt::Key_Home}, "1,0"},
            {"End", 1, 3, {Qt::Key_End}, "1,6"},
            {"Home past blanks", 0, 6, {Qt::Key_Home}, "0,6"},
            {"End before blanks", 5, 0, {Qt::Key_End}, "5,0"},
            {"to the first", 3, 3, {Qt::CTRL | Qt::Key_Home}, "0,6"},
            {"to the last", 3, 3, {Qt::CTRL | Qt::Key_End}, "5,0"},
        };
        Month month;
        support::forEach(cases, [&](const auto& c) {
            month.setCurrentCell(c.row, c.column);
            for (const QKeyCombination key : c.keys) QTest::keyClick(&month, key.key(), key.keyboardModifiers());
            QCOMPARE(month.cursor(), c.cursor);
        });
        QCOMPARE(month.take(), "");
    }

    void keysAct() {
        Month month;
        month.setCurrentCell(1, 3);
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
            QTest::keyClick(&month, key);
            QCOMPARE(month.take(), "acts 1,3");
        }
        QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r", true);
        QApplication::sendEvent(&month, &held);
        QTest::keyClick(&month, Qt::Key_PageUp);
        QTest::keyClick(&month, Qt::Key_PageDown);
        QTest::keyClick(&month, Qt::Key_F10, Qt::ShiftModifier);
        QTest::keyClick(&month, Qt::Key_Menu);
        QCOMPARE(month.take(), "turns -1; turns 1; menu 1,3; menu 1,3");
        QCOMPARE(month.cursor(), "1,3");
        month.setCurrentCell(0, 0);
        QTest::keyClick(&month, Qt::Key_Return);
        QTest::keyClick(&month, Qt::Key_Menu);
        QCOMPARE(month.take(), "menu -1,-1");
    }

    void mouseActs() {
        Month month;
        const auto menuAt = [&](QPoint place) {
            QContextMenuEvent event(QContextMenuEvent::Mouse, place, month.viewport()->mapToGlobal(place));
            QApplication::sendEvent(month.viewport(), &event);
        };
        QTest::mouseClick(month.viewport(), Qt::LeftButton, {}, month.middle(2, 4));
        QCOMPARE(month.take(), "acts 2,4");
        QTest::mouseClick(month.viewport(), Qt::LeftButton, {}, month.middle(0, 1));
        QTest::mouseDClick(month.viewport(), Qt::LeftButton, {}, month.middle(0, 1));
        QTest::mouseClick(month.viewport(), Qt::RightButton, {}, month.middle(2, 4));
        QCOMPARE(month.take(), "");
        QCOMPARE(month.cursor(), "2,4");
        menuAt(month.middle(3, 1));
        QCOMPARE(month.cursor(), "3,1");
        menuAt(month.middle(5, 5));
        QCOMPARE(month.take(), "menu 3,1; menu -1,-1");
        month.setBehaviour(CellGrid::Unit::Cell, CellGrid::ActedBy::DoubleClick, CellGrid::Paging::Turns);
        QTest::mouseClick(month.viewport(), Qt::LeftButton, {}, month.middle(1, 3));
        QCOMPARE(month.take(), "");
        QTest::mouseDClick(month.viewport(), Qt::LeftButton, {}, month.middle(1, 3));
        QCOMPARE(month.take(), "acts 1,3");
    }

    void tabLeavesTheGrid() {
        QWidget window;
        auto* layout = new QVBoxLayout(&window);
        auto* month = new Month;
        auto* after = new QPushButton("Μετά");
        layout->addWidget(month);
        layout->addWidget(after);
        window.show();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        month->setFocus();
        QCOMPARE(month->cursor(), "0,6");
        QTest::keyClick(month, Qt::Key_Tab);
        QVERIFY(after->hasFocus());
    }

    void aDayOfHalfHours() {
        QWidget window;
        auto* layout = new QVBoxLayout(&window);
        CellGrid& day = *new CellGrid;
        layout->addWidget(&day);
        day.setBehaviour(CellGrid::Unit::Row, CellGrid::ActedBy::DoubleClick, CellGrid::Paging::Scrolls);
        day.setColumnWidths({60, CellGrid::stretch});
        day.setRowHeight(22);
        day.setCells(halfHours());
        day.showFromRow(16);
        window.resize(300, 240);
        window.show();
        const auto top = [&] { return day.rowAt(0); };
        QCOMPARE(top(), 16);
        QCOMPARE(day.columnWidth(0), 60);
        QCOMPARE(day.columnWidth(1), day.viewport()->width() - 60);
        QVERIFY(!day.horizontalHeader()->isVisible());
        day.setCurrentCell(18, 0);
        day.setCells(halfHours());
        QCOMPARE(QPair(top(), day.currentRow()), QPair(16, 18));
        const std::pair<Qt::Key, int> steps[] = {{Qt::Key_Down, 19}, {Qt::Key_End, 47},  {Qt::Key_Down, 47},
                                                 {Qt::Key_Home, 0},  {Qt::Key_Right, 0}, {Qt::Key_Right, 0}};
        for (const auto& [key, row] : steps) {
            QTest::keyClick(&day, key);
            QCOMPARE(day.currentRow(), row);
        }
        QTest::keyClick(&day, Qt::Key_PageDown);
        QVERIFY(day.currentRow() > 4 && day.currentRow() < 12);
        QTest::keyClick(&day, Qt::Key_PageUp);
        QCOMPARE(QPair(day.currentRow(), day.currentColumn()), QPair(0, 1));
    }

    void anotherMonthKeepsThePlace() {
        Month month;
        month.setCurrentCell(2, 3);
        auto shorter = Month::november();
        shorter.removeLast();
        month.setCells(shorter);
        QCOMPARE(QPair(month.rowCount(), month.cursor()), QPair(5, QString("2,3")));
        month.setCurrentCell(4, 6);
        shorter[4][6] = {.text = {}, .off = true};
        month.setCells(shorter);
        QCOMPARE(month.cursor(), "-1,-1");
        month.setCells({});
        QTest::keyClick(&month, Qt::Key_Down);
        QTest::keyClick(&month, Qt::Key_Return);
        QCOMPARE(month.take(), "");
    }

    void everyRowHasRoomWhenTheyShare() {
        Month month;
        QFont large = month.font();
        large.setPointSizeF(18);
        month.setFont(large);
        month.resize(month.minimumSizeHint());
        QVERIFY(month.rowHeight(0) >= QFontMetrics(large).height());
        QVERIFY(month.viewport()->rect().contains(month.visualRect(month.model()->index(5, 6))));
    }

    void aScreenReaderFindsATable() {
        Month month;
        QAccessibleInterface* table = QAccessible::queryAccessibleInterface(&month);
        QVERIFY(table && table->tableInterface());
        QCOMPARE(table->tableInterface()->rowCount(), 6);
        QCOMPARE(table->tableInterface()->columnCount(), 7);
        const auto name = [&](int row, int column) { return spokenCell(month, row, column)->text(QAccessible::Name); };
        QCOMPARE(name(1, 3), "Πέμπτη 5 Νοεμβρίου 2026, σήμερα");
        QCOMPARE(name(1, 4), "6");
        QAccessibleTableCellInterface* today = spokenCell(month, 1, 6)->tableCellInterface();
        QCOMPARE(today->columnHeaderCells().value(0)->text(QAccessible::Name), "Κυριακή");
        month.setCurrentCell(1, 3);
        QVERIFY(spokenCell(month, 1, 3)->state().selected);
        month.setCell(1, 3, {.text = "5", .spoken = "Πέμπτη 5, κλεισμένη"});
        QCOMPARE(name(1, 3), "Πέμπτη 5, κλεισμένη");
    }

    void headsStandOverTheirColumns() {
        Month month;
        const QImage head = month.horizontalHeader()->grab(QRect(0, 3, month.columnWidth(2) - 2, 16)).toImage();
        int left = head.width(), right = 0;
        for (int y = 0; y < head.height(); ++y)
            for (int x = 0; x < head.width(); ++x) {
                if (support::contrast(head.pixelColor(x, y), theme().window) < 3) continue;
                left = std::min(left, x);
                right = std::max(right, x);
            }
        QVERIFY(std::abs((left + right) / 2 - month.columnWidth(2) / 2) <= 2);
    }

    // The name of whom it is may look like markup.
    void restingOnACellTells() {
        Month month;
        const QPoint place = month.middle(1, 3);
        QHelpEvent rest(QEvent::ToolTip, place, month.viewport()->mapToGlobal(place));
        QApplication::sendEvent(month.viewport(), &rest);
        QTextDocument told;
        told.setHtml(QToolTip::text());
        QCOMPARE(told.toPlainText().trimmed(), "09:30 <Παπαδοπούλου>");
        QToolTip::hideText();
    }

    void paintedByTheTheme() {
        const std::pair<CellRole, QRgb> given[] = {{CellRole::Today, 0xFFFF8080},
                                                   {CellRole::Selected, 0xFF8080FF},
                                                   {CellRole::BusyTime, 0xFFFFC080},
                                                   {CellRole::BusyText, 0xFF8080FF}};
        for (const auto& [role, colour] : given) QCOMPARE(cellColors(role).ground, QColor::fromRgba(colour));
        Month month;
        const auto look = [&](const GridCell& cell) {
            month.setCell(1, 3, cell);
            return month.viewport()->grab(month.visualRect(month.model()->index(1, 3))).toImage();
        };
        for (const ThemeKind kind : {ThemeKind::Light, ThemeKind::Dark}) {
            applyTheme(*qApp, kind);
            for (const CellRole role : {CellRole::Plain, CellRole::Free, CellRole::Header, CellRole::Today,
                                        CellRole::Selected, CellRole::BusyTime, CellRole::BusyText}) {
                const CellColors colors = cellColors(role);
                const support::InCase in(colors.ground.name() + (theme().dark ? " dark" : " light"));
                QVERIFY(support::contrast(colors.ink, colors.ground) >= 4.5);
                const QImage plain = look({.text = "12", .role = role});
                QCOMPARE(plain.pixelColor(8, plain.height() - 8).name(), colors.ground.name());
                QVERIFY(look({.text = "12", .role = role, .bold = true}) != plain);
                QVERIFY(look({.text = "12", .role = role, .dot = true}) != plain);
            }
            month.setCurrentCell(-1, -1);
            const QImage without = month.viewport()->grab().toImage();
            month.setCurrentCell(1, 3);
            QVERIFY(month.viewport()->grab().toImage() != without);
        }
    }
};

QTEST_MAIN(TestCellGrid)
#include "test_cellgrid.moc"
