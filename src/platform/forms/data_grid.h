#pragma once
// The bound data grid: the rows of a record set shown read-only through a model that reads only the rows
// in view, so a list of 100,000 rows binds and refilters at the cost of one screenful. The grid's current
// row is the record set's current row, as a bound grid keeps it. Sizes are in twips; all rows share one
// height. Columns count from 0.
#include <QColor>
#include <QFont>
#include <QList>
#include <QTableView>
#include <vector>

#include "platform/basic/variant.h"
#include "platform/store/recordset.h"

namespace forms {

class DataGridModel;

class DataGrid : public QTableView {
    Q_OBJECT
public:
    explicit DataGrid(QWidget* parent = nullptr);

    // Binding. setDataSource binds at once; ClearFields drops the column settings and ReBind rebuilds them
    // from the record set's fields (caption = field name), as the control does.
    void setDataSource(const store::Recordset& source);
    store::Recordset DataSource() const { return source_; }
    void ClearFields();
    void ReBind();
    // The record set's rows changed under the grid (a new filter): shows them, current row the first.
    void Refresh();

    int ColumnCount() const { return int(columns_.size()); }
    long RowCount() const;

    // Column properties; an index outside the columns raises 6148 "Invalid column index".
    QString ColumnCaption(int column) const;
    void setColumnCaption(int column, const QString& caption);
    int ColumnWidth(int column) const;                  // twips
    void setColumnWidth(int column, int twips);
    bool ColumnVisible(int column) const;
    void setColumnVisible(int column, bool visible);
    bool ColumnLocked(int column) const;
    void setColumnLocked(int column, bool locked);
    bool ColumnAllowSizing(int column) const;
    void setColumnAllowSizing(int column, bool allow);
    // The column's value in the current row; Null with no current row.
    basic::Variant ColumnValue(int column) const;
    QString ColumnText(int column) const { return basic::CStr(ColumnValue(column)); }

    // The current row: its index among the shown rows (-1 with none) and its bookmark (Null with none).
    int Row() const { return row_; }
    void setRow(int row);
    basic::Variant Bookmark() const;
    void setBookmark(const basic::Variant& bookmark);   // a bookmark of no shown row raises 6153
    // The bookmark `offset` rows from the current one; Null beyond the ends.
    basic::Variant GetBookmark(long offset) const;

    // Selected rows by bookmark.
    int SelBookmarksCount() const { return int(selBookmarks_.size()); }
    basic::Variant SelBookmarks(int index) const;
    void SelBookmarksAdd(const basic::Variant& bookmark);
    void SelBookmarksRemove(int index);

    int RowHeight() const { return rowHeight_; }        // twips
    void setRowHeight(int twips);

    QString Caption() const { return caption_; }
    void setCaption(const QString& caption);
    QColor BackColor() const;
    void setBackColor(const QColor& color);
    QColor ForeColor() const;
    void setForeColor(const QColor& color);
    QFont Font() const { return font(); }
    void setGridFont(const QFont& font);

    bool AllowAddNew = false, AllowDelete = false, AllowUpdate = false;
    int Appearance = 1, BorderStyle = 1;

    int Left() const;
    int Top() const;
    int Width() const;
    int Height() const;
    void Move(int left, int top, int width, int height);   // twips

signals:
    void Click();
    void DblClick();
    void KeyDown(int keyCode, int shift);
    void KeyUp(int keyCode, int shift);
    void KeyPress(int keyAscii);
    void RowColChange();
    void RowResize();                   // the user dragged a row to a new height; RowHeight has it
    void ColResize(int column);         // the user dragged a column to a new width

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

private:
    struct Column {
        QString caption;
        int width = 1500;                // twips
        bool visible = true, locked = false, allowSizing = true;
    };
    const Column& column(int c) const;
    Column& column(int c);
    void applyColumns();
    void applyRowHeight();
    void placeSource() const;           // the record set's current row := the grid's
    void moveTo(int row);

    friend class DataGridModel;
    DataGridModel* model_;
    store::Recordset source_ = store::Recordset::nothing();
    std::vector<Column> columns_;
    QList<basic::Variant> selBookmarks_;
    QString caption_;
    int row_ = -1;
    int rowHeight_ = 225;
    bool applying_ = false;             // our own size changes are no user resize
};

}  // namespace forms
