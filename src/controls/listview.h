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
    int width = 1000;     // twips
    bool number = false;  // right-aligned
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

    void setColumns(const QVector<ListColumn>& columns);
    // At the first showing the columns share the list's width in proportion, when they are narrower together. For
    // lists whose widths nobody has set yet.
    void shareWidth() { sharing_ = true; }
    const QVector<ListColumn>& columns() const;
    int columnTwips(int column) const;

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

private:
    void requestMenuAtRow();

    class Rows;
    Rows* rows_;
    bool sharing_ = false;
};

}  // namespace controls
