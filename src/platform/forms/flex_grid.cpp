#include "platform/forms/flex_grid.h"

#include "platform/basic/runtime_error.h"
#include "platform/basic/variant.h"
#include "platform/forms/layout.h"
#include "platform/forms/twips.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>

namespace forms {

namespace {
constexpr int kDefaultColWidth = 960;   // twips, as the old grid started its columns
constexpr int kTextMarginX = 3;         // pixels between a cell's border and its text
constexpr int kTextMarginY = 1;

basic::RuntimeError gridError(int number, const char* text) {
    return basic::RuntimeError(number, QString::fromLatin1(text), QStringLiteral("FlexGrid"));
}

Qt::Alignment qtAlignment(int alignment, const QString& text) {
    switch (alignment) {
    case FlexGrid::LeftTop: return Qt::AlignLeft | Qt::AlignTop;
    case FlexGrid::LeftCenter: return Qt::AlignLeft | Qt::AlignVCenter;
    case FlexGrid::LeftBottom: return Qt::AlignLeft | Qt::AlignBottom;
    case FlexGrid::CenterTop: return Qt::AlignHCenter | Qt::AlignTop;
    case FlexGrid::CenterCenter: return Qt::AlignCenter;
    case FlexGrid::CenterBottom: return Qt::AlignHCenter | Qt::AlignBottom;
    case FlexGrid::RightTop: return Qt::AlignRight | Qt::AlignTop;
    case FlexGrid::RightCenter: return Qt::AlignRight | Qt::AlignVCenter;
    case FlexGrid::RightBottom: return Qt::AlignRight | Qt::AlignBottom;
    default:
        return (basic::IsNumeric(basic::Variant(text)) ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter;
    }
}
}  // namespace

FlexGrid::FlexGrid(QWidget* parent) : QAbstractScrollArea(parent) {
    setFocusPolicy(Qt::StrongFocus);
    viewport()->setBackgroundRole(QPalette::Base);
    verticalScrollBar()->setSingleStep(1);
    horizontalScrollBar()->setSingleStep(1);
    cells_.resize(std::size_t(rows_) * cols_);
    rowHeights_.assign(rows_, 0);
    colWidths_.assign(cols_, 0);
    colAlign_.assign(cols_, General);
    updateScrollBars();
}

// ---- structure -------------------------------------------------------------------------------------

void FlexGrid::setRows(int n) {
    if (n < fixedRows_ || n < 0) throw gridError(30009, "Invalid Row value");
    if (n == rows_) return;
    rows_ = n;
    cells_.resize(std::size_t(rows_) * cols_);
    rowHeights_.resize(rows_, 0);
    // A current cell that falls off the end moves up without events, as the old grid did.
    row_ = std::clamp(row_, 0, std::max(0, rows_ - 1));
    topRow_ = std::clamp(topRow_, fixedRows_, std::max(fixedRows_, rows_ - 1));
    updateScrollBars();
    viewport()->update();
}

void FlexGrid::setCols(int n) {
    if (n < fixedCols_ || n < 0) throw gridError(30010, "Invalid Col value");
    if (n == cols_) return;
    std::vector<QString> cells(std::size_t(rows_) * n);
    const int keep = std::min(n, cols_);
    for (int r = 0; r < rows_; ++r)
        for (int c = 0; c < keep; ++c) cells[std::size_t(r) * n + c] = std::move(cells_[std::size_t(r) * cols_ + c]);
    cells_ = std::move(cells);
    cols_ = n;
    colWidths_.resize(cols_, 0);
    colAlign_.resize(cols_, General);
    col_ = std::clamp(col_, 0, std::max(0, cols_ - 1));
    leftCol_ = std::clamp(leftCol_, fixedCols_, std::max(fixedCols_, cols_ - 1));
    updateScrollBars();
    viewport()->update();
}

void FlexGrid::setFixedRows(int n) {
    if (n < 0 || n > rows_) throw gridError(30009, "Invalid Row value");
    fixedRows_ = n;
    row_ = std::min(std::max(row_, fixedRows_), std::max(0, rows_ - 1));
    topRow_ = std::max(topRow_, fixedRows_);
    updateScrollBars();
    viewport()->update();
}

void FlexGrid::setFixedCols(int n) {
    if (n < 0 || n > cols_) throw gridError(30010, "Invalid Col value");
    fixedCols_ = n;
    col_ = std::min(std::max(col_, fixedCols_), std::max(0, cols_ - 1));
    leftCol_ = std::max(leftCol_, fixedCols_);
    updateScrollBars();
    viewport()->update();
}

void FlexGrid::checkRow(int r) const {
    if (r < 0 || r >= rows_) throw gridError(30009, "Invalid Row value");
}

void FlexGrid::checkCol(int c) const {
    if (c < 0 || c >= cols_) throw gridError(30010, "Invalid Col value");
}

// ---- the current cell ------------------------------------------------------------------------------

void FlexGrid::setRow(int r) {
    checkRow(r);
    if (r != row_) moveTo(r, col_);
}

void FlexGrid::setCol(int c) {
    checkCol(c);
    if (c != col_) moveTo(row_, c);
}

void FlexGrid::moveTo(int r, int c) {
    emit LeaveCell();
    // The leave handler may have reshaped the grid; stay inside it.
    row_ = std::clamp(r, 0, std::max(0, rows_ - 1));
    col_ = std::clamp(c, 0, std::max(0, cols_ - 1));
    scrollIntoView(row_, col_);
    viewport()->update();
    emit EnterCell();
}

void FlexGrid::setTopRow(int r) {
    checkRow(r);
    topRow_ = std::clamp(r, fixedRows_, lastTopRow());
    updateScrollBars();
    viewport()->update();
}

const QString& FlexGrid::TextMatrix(int r, int c) const {
    checkRow(r);
    checkCol(c);
    return cells_[std::size_t(r) * cols_ + c];
}

void FlexGrid::setTextMatrix(int r, int c, const QString& text) {
    checkRow(r);
    checkCol(c);
    cells_[std::size_t(r) * cols_ + c] = text;
    viewport()->update();
}

void FlexGrid::Clear() {
    std::fill(cells_.begin(), cells_.end(), QString());
    viewport()->update();
}

void FlexGrid::RemoveItem(int row) {
    checkRow(row);
    if (row < fixedRows_) throw gridError(30009, "Invalid Row value");
    if (rows_ - fixedRows_ <= 1) throw gridError(30015, "Cannot remove last non-fixed row");
    const auto first = cells_.begin() + std::ptrdiff_t(row) * cols_;
    cells_.erase(first, first + cols_);
    rowHeights_.erase(rowHeights_.begin() + row);
    --rows_;
    row_ = std::min(row_, rows_ - 1);
    topRow_ = std::clamp(topRow_, fixedRows_, std::max(fixedRows_, rows_ - 1));
    updateScrollBars();
    viewport()->update();
}

// ---- sizes -----------------------------------------------------------------------------------------

int FlexGrid::ColWidth(int c) const {
    checkCol(c);
    return colWidths_[c] > 0 ? colWidths_[c] : kDefaultColWidth;
}

void FlexGrid::setColWidth(int c, int twips) {
    checkCol(c);
    colWidths_[c] = std::max(0, twips);
    updateScrollBars();
    viewport()->update();
}

int FlexGrid::RowHeight(int r) const {
    checkRow(r);
    const int set = rowHeights_[r] > 0 ? rowHeights_[r] : toTwips(fontMetrics().height() + 3);
    return std::max(set, rowHeightMin_);
}

void FlexGrid::setRowHeight(int r, int twips) {
    checkRow(r);
    rowHeights_[r] = std::max(0, twips);
    updateScrollBars();
    viewport()->update();
}

void FlexGrid::setRowHeightMin(int twips) {
    rowHeightMin_ = std::max(0, twips);
    updateScrollBars();
    viewport()->update();
}

int FlexGrid::ColAlignment(int c) const {
    checkCol(c);
    return colAlign_[c];
}

void FlexGrid::setColAlignment(int c, int alignment) {
    checkCol(c);
    colAlign_[c] = std::clamp(alignment, 0, int(General));
    viewport()->update();
}

int FlexGrid::rowPixels(int r) const { return twips(RowHeight(r)); }
int FlexGrid::colPixels(int c) const { return twips(ColWidth(c)); }

// ---- geometry --------------------------------------------------------------------------------------

int FlexGrid::cellY(int r) const {
    int y = 0;
    for (int i = 0; i < std::min(r, fixedRows_); ++i) y += rowPixels(i);
    if (r < fixedRows_) return y;
    if (r < topRow_) {
        for (int i = r; i < topRow_; ++i) y -= rowPixels(i);
        return y;
    }
    for (int i = topRow_; i < r; ++i) y += rowPixels(i);
    return y;
}

int FlexGrid::cellX(int c) const {
    int x = 0;
    if (c < fixedCols_) {
        for (int i = 0; i < c; ++i) x += colPixels(i);
        return x;
    }
    for (int i = 0; i < fixedCols_; ++i) x += colPixels(i);
    if (c < leftCol_) {
        for (int i = c; i < leftCol_; ++i) x -= colPixels(i);
        return x;
    }
    for (int i = leftCol_; i < c; ++i) x += colPixels(i);
    return x;
}

int FlexGrid::CellLeft() const { return toTwips(viewport()->x() + cellX(col_)); }
int FlexGrid::CellTop() const { return toTwips(viewport()->y() + cellY(row_)); }
// The grid line on the right and bottom of a cell belongs to the grid, not to the cell.
int FlexGrid::CellWidth() const { return toTwips(std::max(0, colPixels(col_) - 1)); }
int FlexGrid::CellHeight() const { return toTwips(std::max(0, rowPixels(row_) - 1)); }

int FlexGrid::Left() const { return leftOf(this); }
void FlexGrid::setLeft(int twips) { forms::setLeft(this, twips); }
int FlexGrid::Top() const { return topOf(this); }
void FlexGrid::setTop(int twips) { forms::setTop(this, twips); }
int FlexGrid::Width() const { return widthOf(this); }
void FlexGrid::setWidth(int twips) { forms::setWidth(this, twips); }
int FlexGrid::Height() const { return heightOf(this); }
void FlexGrid::setHeight(int twips) { forms::setHeight(this, twips); }

void FlexGrid::Move(int left, int top, int width, int height) { place(this, left, top, width, height); }

// ---- scrolling -------------------------------------------------------------------------------------

int FlexGrid::lastTopRow() const {
    int room = viewport()->height();
    for (int i = 0; i < fixedRows_; ++i) room -= rowPixels(i);
    int r = rows_ - 1;
    int used = 0;
    while (r >= fixedRows_) {
        used += rowPixels(r);
        if (used > room) break;
        --r;
    }
    return std::clamp(r + 1, fixedRows_, std::max(fixedRows_, rows_ - 1));
}

int FlexGrid::lastLeftCol() const {
    int room = viewport()->width();
    for (int i = 0; i < fixedCols_; ++i) room -= colPixels(i);
    int c = cols_ - 1;
    int used = 0;
    while (c >= fixedCols_) {
        used += colPixels(c);
        if (used > room) break;
        --c;
    }
    return std::clamp(c + 1, fixedCols_, std::max(fixedCols_, cols_ - 1));
}

void FlexGrid::scrollIntoView(int r, int c) {
    if (r >= fixedRows_) {
        if (r < topRow_) {
            topRow_ = r;
        } else {
            int room = viewport()->height();
            for (int i = 0; i < fixedRows_; ++i) room -= rowPixels(i);
            int used = 0;
            bool fits = true;
            for (int i = topRow_; i <= r; ++i) {
                used += rowPixels(i);
                if (used > room) { fits = false; break; }
            }
            if (!fits) {
                // Put the row at the bottom: walk up from it while the rows above still fit.
                int top = r;
                used = rowPixels(r);
                while (top - 1 >= fixedRows_ && used + rowPixels(top - 1) <= room) used += rowPixels(--top);
                topRow_ = top;
            }
        }
    }
    if (c >= fixedCols_) {
        if (c < leftCol_) {
            leftCol_ = c;
        } else {
            int room = viewport()->width();
            for (int i = 0; i < fixedCols_; ++i) room -= colPixels(i);
            int used = 0;
            bool fits = true;
            for (int i = leftCol_; i <= c; ++i) {
                used += colPixels(i);
                if (used > room) { fits = false; break; }
            }
            if (!fits) {
                int left = c;
                used = colPixels(c);
                while (left - 1 >= fixedCols_ && used + colPixels(left - 1) <= room) used += colPixels(--left);
                leftCol_ = left;
            }
        }
    }
    updateScrollBars();
}

void FlexGrid::updateScrollBars() {
    syncingScroll_ = true;
    const int lastTop = lastTopRow();
    verticalScrollBar()->setRange(fixedRows_, std::max(lastTop, topRow_));
    verticalScrollBar()->setPageStep(std::max(1, rows_ > 0 ? (rows_ - fixedRows_) - (lastTop - fixedRows_) : 1));
    verticalScrollBar()->setValue(topRow_);
    const int lastLeft = lastLeftCol();
    horizontalScrollBar()->setRange(fixedCols_, std::max(lastLeft, leftCol_));
    horizontalScrollBar()->setPageStep(std::max(1, (cols_ - fixedCols_) - (lastLeft - fixedCols_)));
    horizontalScrollBar()->setValue(leftCol_);
    syncingScroll_ = false;
}

void FlexGrid::scrollContentsBy(int, int) {
    if (syncingScroll_) return;
    topRow_ = verticalScrollBar()->value();
    leftCol_ = horizontalScrollBar()->value();
    viewport()->update();
}

void FlexGrid::resizeEvent(QResizeEvent* event) {
    QAbstractScrollArea::resizeEvent(event);
    updateScrollBars();
}

// ---- drawing and input -----------------------------------------------------------------------------

void FlexGrid::paintEvent(QPaintEvent*) {
    QPainter p(viewport());
    const QPalette& pal = palette();
    const int w = viewport()->width();
    const int h = viewport()->height();

    std::vector<int> rowsShown, colsShown;
    for (int r = 0, y = 0; r < rows_ && y < h; ++r) {
        if (r >= fixedRows_ && r < topRow_) { r = topRow_ - 1; continue; }
        rowsShown.push_back(r);
        y += rowPixels(r);
    }
    for (int c = 0, x = 0; c < cols_ && x < w; ++c) {
        if (c >= fixedCols_ && c < leftCol_) { c = leftCol_ - 1; continue; }
        colsShown.push_back(c);
        x += colPixels(c);
    }

    int y = 0;
    for (int r : rowsShown) {
        const int rh = rowPixels(r);
        int x = 0;
        for (int c : colsShown) {
            const int cw = colPixels(c);
            const QRect cell(x, y, cw, rh);
            const bool fixed = r < fixedRows_ || c < fixedCols_;
            p.fillRect(cell, fixed ? pal.button() : pal.base());
            p.setPen(fixed ? pal.color(QPalette::Dark) : pal.color(QPalette::Midlight));
            p.drawLine(cell.right(), cell.top(), cell.right(), cell.bottom());
            p.drawLine(cell.left(), cell.bottom(), cell.right(), cell.bottom());
            QString text = cells_[std::size_t(r) * cols_ + c];
            if (!text.isEmpty()) {
                text.remove(u'\r');
                const QRect inner = cell.adjusted(kTextMarginX, kTextMarginY, -kTextMarginX - 1, -kTextMarginY - 1);
                p.setPen(fixed ? pal.color(QPalette::ButtonText) : pal.color(QPalette::Text));
                p.save();
                p.setClipRect(cell.adjusted(0, 0, -1, -1));
                p.drawText(inner, int(qtAlignment(colAlign_[c], text)), text);
                p.restore();
            }
            if (r == row_ && c == col_ && !fixed) {
                p.setPen(QPen(pal.color(QPalette::Text), 1, Qt::DotLine));
                p.drawRect(cell.adjusted(1, 1, -2, -2));
            }
            x += cw;
        }
        y += rh;
    }
}

int FlexGrid::hitRow(int y) const {
    int top = 0;
    for (int r = 0; r < rows_; ++r) {
        if (r >= fixedRows_ && r < topRow_) r = topRow_;
        const int rh = rowPixels(r);
        if (y < top + rh) return r;
        top += rh;
        if (top > viewport()->height()) break;
    }
    return -1;
}

int FlexGrid::hitCol(int x) const {
    int left = 0;
    for (int c = 0; c < cols_; ++c) {
        if (c >= fixedCols_ && c < leftCol_) c = leftCol_;
        const int cw = colPixels(c);
        if (x < left + cw) return c;
        left += cw;
        if (left > viewport()->width()) break;
    }
    return -1;
}

void FlexGrid::mousePressEvent(QMouseEvent* event) {
    event->accept();
    if (event->button() != Qt::LeftButton) return;
    const QPoint at = event->position().toPoint();
    const int r = hitRow(at.y());
    const int c = hitCol(at.x());
    if (r < fixedRows_ || c < fixedCols_) return;     // fixed cells and the empty area below take no click
    setFocus(Qt::MouseFocusReason);
    if (r != row_ || c != col_) moveTo(r, c);
}

void FlexGrid::mouseReleaseEvent(QMouseEvent* event) { event->accept(); }

void FlexGrid::keyPressEvent(QKeyEvent* event) {
    int r = row_, c = col_;
    switch (event->key()) {
    case Qt::Key_Up: r = std::max(fixedRows_, r - 1); break;
    case Qt::Key_Down: r = std::min(rows_ - 1, r + 1); break;
    case Qt::Key_Left: c = std::max(fixedCols_, c - 1); break;
    case Qt::Key_Right: c = std::min(cols_ - 1, c + 1); break;
    case Qt::Key_PageUp: r = fixedRows_; break;
    case Qt::Key_PageDown: r = rows_ - 1; break;
    default: QAbstractScrollArea::keyPressEvent(event); return;
    }
    if (r != row_ || c != col_) moveTo(r, c);
}

}  // namespace forms
