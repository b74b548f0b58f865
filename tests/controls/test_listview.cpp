// The widths of a list's columns.
#include "controls/listview.h"

#include <QHeaderView>
#include <QScrollBar>
#include <QSignalSpy>

#include "controls/theme.h"
#include "support/cases.h"
#include "support/driver.h"

using controls::ListColumn;
using controls::ListView;

namespace {

struct Ledger : ListView {
    explicit Ledger(int rows) {
        setColumns({{"Η", "Ημερομηνία", 1100}, {"Α", "Αιτιολογία", 6000}, {"Υ", "Υπόλοιπο", 1000, true}});
        QVector<controls::ListRow> all;
        for (int i = 0; i < rows; ++i) all.append({{"05/11/2026", "Τιμολόγιο πώλησης", "-1.234.567,89"}, i});
        setRows(all);
        resize(700, 300);
        show();
        QApplication::processEvents();
    }
    int textWidth(const QString& text) const { return fontMetrics().horizontalAdvance(text); }
    // What is between the columns and the edge; negative when a column lies beyond it.
    int spare() const { return viewport()->width() - header()->length(); }
};

}  // namespace

class TestListView : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { controls::applyTheme(*qApp, controls::ThemeKind::Light); }

    void figuresStayInView() {
        for (const int rows : {1, 200}) {
            const support::InCase in(QString("%1 rows").arg(rows));
            Ledger list(rows);
            QCOMPARE(list.verticalScrollBar()->isVisible(), rows > 100);
            for (const int width : {700, 1200, 420}) {
                list.resize(width, 300);
                QApplication::processEvents();
                QCOMPARE(list.spare(), 0);
                QVERIFY(list.columnWidth(0) > list.textWidth("05/11/2026"));
                QVERIFY(list.columnWidth(2) > list.textWidth("-1.234.567,89"));
            }
            // Too narrow for all: the text stays readable, and the list scrolls.
            list.resize(200, 300);
            QApplication::processEvents();
            QVERIFY(list.spare() < 0 && list.columnWidth(1) >= list.textWidth("Αιτιολογία"));
        }
    }

    // Also in a list of one, where the cursor has no other row to move to.
    void theKeysChooseTheFirstRow() {
        Ledger list(1);
        support::activate(list);
        list.setFocus(Qt::TabFocusReason);
        QCOMPARE(list.currentRow(), -1);
        QSignalSpy activated(&list, &controls::ListView::rowActivated);
        QTest::keyClick(&list, Qt::Key_Down);
        QCOMPARE(list.currentRow(), 0);
        QTest::keyClick(&list, Qt::Key_Return);
        QCOMPARE(activated.size(), 1);
    }

    void aDraggedWidthIsKept() {
        Ledger list(5);
        list.setColumnWidth(2, 60);
        QCOMPARE(list.columnWidth(2), 60);
        QCOMPARE(list.spare(), 0);
        list.setRows(list.rows());
        list.resize(900, 300);
        QApplication::processEvents();
        QCOMPARE(list.columnWidth(2), 60);
        QCOMPARE(list.columns()[2].width, 900);   // of the user
        QCOMPARE(list.columns()[0].width, 1100);  // as given, however wide it is shown
        list.setColumnWidth(1, 1500);
        QCOMPARE(list.columnWidth(1), 1500);
    }

    void theSpareColumnIsChosen() {
        ListView list;
        list.setColumns({{"Θ", "Θέμα", 1000, false, true}, {"Η", "Ημέρα", 1000}});
        list.resize(500, 200);
        list.show();
        QApplication::processEvents();
        QVERIFY(list.columnWidth(0) > 300 && list.columnWidth(1) < 150);
    }
};

QTEST_MAIN(TestListView)
#include "test_listview.moc"
