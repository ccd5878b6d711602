#pragma once
// The tables of an RTF document: a row definition's cells with their right edges and borders, and the
// Qt formats that draw them.
#include <QTextTableCellFormat>
#include <QTextTableFormat>

#include <array>
#include <vector>

namespace documents::rtf {

enum class BorderKind { None, Single, Double, Thick, Dotted, Dashed };

struct Border {
    BorderKind kind = BorderKind::None;
    int width = 15;  // \brdrwN, twips
};

enum Side { Top, Left, Bottom, Right };

// One cell of a row definition: \clbrdrt, \clbrdrl, \clbrdrb, \clbrdrr with their kinds, ended by \cellx.
struct CellDef {
    int right = 0;  // twips from the row's left edge
    std::array<Border, 4> borders;
    bool hasBorder() const;
};

// A table for the row definition: fixed columns as wide as its cells, lines only where cells have them.
QTextTableFormat tableFormat(const std::vector<CellDef>& cells);

// The cell's borders in pixels at 96 dpi; a double line takes at least three pixels so that both show.
// `withoutTop` leaves the top edge to the row above, when that row ended a table of its own.
QTextTableCellFormat cellFormat(const CellDef& cell, bool withoutTop);

}  // namespace documents::rtf
