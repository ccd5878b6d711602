#pragma once
// Bills put into a grid all at once, as a paste or an import does, and taken back as a whole.
#include "returns/bill_cells.h"

#include <QString>
#include <vector>

namespace forms {
class FlexGrid;
}

namespace returns {

// Every cell of a grid with its number of rows: what a fill changes.
struct GridCells {
    int rows = 0;
    int cols = 0;
    std::vector<QString> cells;

    static GridCells of(const forms::FlexGrid* grid);
    void restore(forms::FlexGrid* grid) const;
    // The same bills: equal but for blank rows at the end, which the cursor's walk adds by itself.
    bool sameBills(const GridCells& other) const;
};

// Puts the lines into the grid from row `first` on, one line a row, with rows added at the end as
// needed. A line changes only the columns it fills; each row it touches gets its number and its total
// (Tax + Amount + Cess, "#0.00") as on leaving a cell. The current cell stays; no cell event is raised.
void FillBillRows(forms::FlexGrid* grid, int first, const std::vector<BillLine>& lines);

// The last row with anything in columns 1 to 8; 0 when there is none.
int LastBillRow(const forms::FlexGrid* grid);

// The fills of a window, taken back one at a time, the latest first, as long as the grid still holds
// what the fill left.
class FillHistory {
public:
    void record(forms::FlexGrid* grid, GridCells before);
    enum class Undo { Nothing, Done, Changed };
    // Nothing: no fill of this grid to take back; Changed: the bills were changed after it (the fill
    // is then forgotten); Done: the grid is back as before it.
    Undo undo(forms::FlexGrid* grid);
    void forget(forms::FlexGrid* grid);

private:
    struct Step {
        forms::FlexGrid* grid;
        GridCells before, after;
    };
    std::vector<Step> steps_;
};

}  // namespace returns
