#pragma once
// The flex grid: a table of texts with fixed caption rows and columns and one current cell. Windows edit
// it through a floating text box that follows the current cell, so the grid itself only shows text,
// answers the cell geometry, and raises LeaveCell and EnterCell as the current cell moves.
// Sizes and places are in twips; the grid scrolls by whole rows and columns.
#include <QAbstractScrollArea>
#include <QString>
#include <vector>

namespace forms {

class FlexGrid : public QAbstractScrollArea {
    Q_OBJECT
public:
    // Alignments as numbered on the old platform: 0-8 are left/centre/right by top/centre/bottom,
    // 9 is general (text left, numbers right).
    enum Alignment {
        LeftTop, LeftCenter, LeftBottom, CenterTop, CenterCenter, CenterBottom,
        RightTop, RightCenter, RightBottom, General
    };

    explicit FlexGrid(QWidget* parent = nullptr);

    int Rows() const { return rows_; }
    void setRows(int n);
    int Cols() const { return cols_; }
    void setCols(int n);
    int FixedRows() const { return fixedRows_; }
    void setFixedRows(int n);
    int FixedCols() const { return fixedCols_; }
    void setFixedCols(int n);

    // Setting a new Row or Col raises LeaveCell while the old cell is still current, scrolls the new
    // cell into view, then raises EnterCell. Setting the value it already has raises nothing.
    int Row() const { return row_; }
    void setRow(int r);
    int Col() const { return col_; }
    void setCol(int c);
    int TopRow() const { return topRow_; }
    void setTopRow(int r);
    int LeftCol() const { return leftCol_; }

    const QString& TextMatrix(int r, int c) const;
    void setTextMatrix(int r, int c, const QString& text);
    QString Text() const { return TextMatrix(row_, col_); }
    void setText(const QString& text) { setTextMatrix(row_, col_, text); }

    // The current cell's rectangle in twips, relative to the grid's own top left corner.
    int CellLeft() const;
    int CellTop() const;
    int CellWidth() const;
    int CellHeight() const;

    int ColWidth(int c) const;
    void setColWidth(int c, int twips);
    int RowHeight(int r) const;
    void setRowHeight(int r, int twips);
    int RowHeightMin() const { return rowHeightMin_; }
    void setRowHeightMin(int twips);
    int ColAlignment(int c) const;
    void setColAlignment(int c, int alignment);

    // Empties every cell, fixed ones too; rows, columns and sizes stay.
    void Clear();
    // Takes a row out; the rows below move up. Run-time error 30015 when it is the last non-fixed row.
    void RemoveItem(int row);

    int Left() const;
    void setLeft(int twips);
    int Top() const;
    void setTop(int twips);
    int Width() const;
    void setWidth(int twips);
    int Height() const;
    void setHeight(int twips);
    void Move(int left, int top, int width, int height);
    bool Enabled() const { return isEnabled(); }
    bool Visible() const { return !isHidden(); }
    void SetFocus() { setFocus(Qt::OtherFocusReason); }

signals:
    void LeaveCell();
    void EnterCell();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;

private:
    void moveTo(int r, int c);
    void checkRow(int r) const;
    void checkCol(int c) const;
    int rowPixels(int r) const;
    int colPixels(int c) const;
    int cellX(int c) const;                     // pixel left of a column in the viewport
    int cellY(int r) const;                     // pixel top of a row in the viewport
    void scrollIntoView(int r, int c);
    void updateScrollBars();
    int lastTopRow() const;
    int lastLeftCol() const;
    int hitRow(int y) const;
    int hitCol(int x) const;

    int rows_ = 2, cols_ = 2, fixedRows_ = 1, fixedCols_ = 1;
    int row_ = 1, col_ = 1, topRow_ = 1, leftCol_ = 1;
    int rowHeightMin_ = 0;                      // twips
    std::vector<QString> cells_;                // row-major, rows_ x cols_
    std::vector<int> rowHeights_;               // twips; 0 = the default height
    std::vector<int> colWidths_;                // twips; 0 = the default width
    std::vector<int> colAlign_;
    bool syncingScroll_ = false;
};

}  // namespace forms
