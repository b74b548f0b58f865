// The report list of many windows: columns with headers, whole rows, a tag behind each row.
#pragma once

#include <QColor>
#include <QIcon>
#include <QTreeView>
#include <QVariant>
#include <QVector>

namespace controls {

struct ListColumn {
    QString key;  // under which its width is stored
    QString header;
    int width = 1000;       // twips
    bool number = false;    // figures, right-aligned
    bool spare = false;     // takes the width that is left; where no column says so, the last one of texts does
    bool kept = false;      // as a user chose it: it doesn't grow with what stands in it
    QString section = {};   // of the settings, where its width lies in another one than the list's
    QString storedAs = {};  // the key that its width is stored under, where it isn't the one that it is read from
    bool stored = true;
};

struct ListRow {
    QStringList cells;
    QVariant tag;     // what the row stands for; invalid for rows that stand for nothing (sums, blanks)
    QColor colour;    // of its text; invalid for the theme's
    QIcon icon = {};  // small, before the first cell
};

// Holds its rows itself; a hundred thousand are no burden. Enter and a double click activate a row alike.
class ListView : public QTreeView {
    Q_OBJECT
public:
    explicit ListView(QWidget* parent = nullptr);
    ~ListView() override;

    // Shown, one column of texts takes the width that the others leave, so that what stands right of it stays in view
    // beside a scroll bar, too. The others grow with what stands in them, a text only so far, and never shrink again.
    void setColumns(const QVector<ListColumn>& columns);
    const QVector<ListColumn>& columns() const;  // with the widths that a user dragged
    int columnTwips(int column) const;           // as shown

    void setRows(QVector<ListRow> rows);
    void clear() { setRows({}); }
    int count() const;
    const ListRow& row(int index) const;
    const QVector<ListRow>& rows() const;
    int currentRow() const;  // -1 when nothing is selected
    void selectRow(int index);
    QVariant currentTag() const;          // invalid when nothing is selected, or a row that stands for nothing
    bool selectTag(const QVariant& tag);  // and brings the row into view; false when no row has it

signals:
    void rowActivated(int row);
    void columnClicked(int column);
    // Right click, row is -1 beside the rows; or menu key and Shift+F10 for the selected row, -1 when there is none.
    void menuRequested(int row, QPoint globalPosition);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    bool viewportEvent(QEvent* event) override;

private:
    void requestMenuAtRow();
    int spareColumn() const;
    int leastSpare(int column) const;
    int widestText(int column) const;
    void grow();
    void placeColumns();
    void keepDragged(int column, int pixels);

    class Rows;
    Rows* rows_;
    QVector<int> grown_;    // in pixels, by column
    bool placing_ = false;  // the widths that change are not a user's
};

}  // namespace controls
