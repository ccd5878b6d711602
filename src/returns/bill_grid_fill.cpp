#include "returns/bill_grid_fill.h"

#include "platform/basic/variant.h"
#include "platform/forms/flex_grid.h"

namespace returns {

namespace {

// Enough to take back the last few pastes of a month without holding many copies of a large grid.
constexpr std::size_t kFillsKept = 20;

bool blankRow(const std::vector<QString>& cells, int cols, int r) {
    for (int c = 1; c <= std::min(8, cols - 1); ++c)
        if (!cells[std::size_t(r) * cols + c].trimmed().isEmpty()) return false;
    return true;
}

}  // namespace

GridCells GridCells::of(const forms::FlexGrid* grid) {
    GridCells g;
    g.rows = grid->Rows();
    g.cols = grid->Cols();
    g.cells.reserve(std::size_t(g.rows) * g.cols);
    for (int r = 0; r < g.rows; ++r)
        for (int c = 0; c < g.cols; ++c) g.cells.push_back(grid->TextMatrix(r, c));
    return g;
}

void GridCells::restore(forms::FlexGrid* grid) const {
    grid->setRows(rows);
    for (int r = 0; r < rows; ++r)
        for (int c = 0; c < cols; ++c) grid->setTextMatrix(r, c, cells[std::size_t(r) * cols + c]);
}

bool GridCells::sameBills(const GridCells& other) const {
    if (cols != other.cols) return false;
    const GridCells& shorter = rows <= other.rows ? *this : other;
    const GridCells& longer = rows <= other.rows ? other : *this;
    for (std::size_t i = 0; i < shorter.cells.size(); ++i)
        if (shorter.cells[i] != longer.cells[i]) return false;
    for (int r = shorter.rows; r < longer.rows; ++r)
        if (!blankRow(longer.cells, cols, r)) return false;
    return true;
}

void FillBillRows(forms::FlexGrid* grid, int first, const std::vector<BillLine>& lines) {
    const int needed = first + int(lines.size());
    if (grid->Rows() < needed) grid->setRows(needed);
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const int r = first + int(i);
        const BillLine& line = lines[i];
        for (int c = kFirstBillField; c <= kLastBillField; ++c)
            if (line.filled[std::size_t(c)]) grid->setTextMatrix(r, c, line.cells[std::size_t(c)]);
        grid->setTextMatrix(r, 0, QString::number(r));
        const double total = (basic::Val(grid->TextMatrix(r, 7)) + basic::Val(grid->TextMatrix(r, 6))) +
                             basic::Val(grid->TextMatrix(r, 8));
        grid->setTextMatrix(r, 9, basic::Format(basic::Variant(total), QStringLiteral("#0.00")));
    }
}

int LastBillRow(const forms::FlexGrid* grid) {
    for (int r = grid->Rows() - 1; r >= grid->FixedRows(); --r)
        for (int c = 1; c <= std::min(8, grid->Cols() - 1); ++c)
            if (!grid->TextMatrix(r, c).trimmed().isEmpty()) return r;
    return 0;
}

void FillHistory::record(forms::FlexGrid* grid, GridCells before) {
    steps_.push_back({grid, std::move(before), GridCells::of(grid)});
    if (steps_.size() > kFillsKept) steps_.erase(steps_.begin());
}

FillHistory::Undo FillHistory::undo(forms::FlexGrid* grid) {
    for (auto it = steps_.rbegin(); it != steps_.rend(); ++it) {
        if (it->grid != grid) continue;
        const Step step = std::move(*it);
        steps_.erase(std::next(it).base());
        if (!step.after.sameBills(GridCells::of(grid))) {
            forget(grid);
            return Undo::Changed;
        }
        step.before.restore(grid);
        return Undo::Done;
    }
    return Undo::Nothing;
}

void FillHistory::forget(forms::FlexGrid* grid) {
    std::erase_if(steps_, [grid](const Step& s) { return s.grid == grid; });
}

}  // namespace returns
