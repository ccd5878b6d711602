#include "platform/documents/rtf_tables.h"

#include "platform/documents/rtf_reader_parts.h"

#include <QTextDocument>
#include <QTextTable>

#include <algorithm>
#include <cmath>

namespace documents::rtf {

bool CellDef::hasBorder() const {
    return std::any_of(borders.begin(), borders.end(), [](const Border& b) { return b.kind != BorderKind::None; });
}

QTextTableFormat tableFormat(const std::vector<CellDef>& cells) {
    QTextTableFormat format;
    format.setBorder(0);
    format.setBorderCollapse(true);
    format.setCellSpacing(0);
    format.setCellPadding(4);
    QList<QTextLength> widths;
    int left = 0;
    for (const CellDef& cell : cells) {
        widths.append(QTextLength(QTextLength::FixedLength, std::max(15, cell.right - left) / 15.0));
        left = cell.right;
    }
    if (!widths.isEmpty()) format.setColumnWidthConstraints(widths);
    return format;
}

QTextTableCellFormat cellFormat(const CellDef& cell, bool withoutTop) {
    QTextTableCellFormat format;
    for (int side = Top; side <= Right; ++side) {
        const Border& b = cell.borders[side];
        const double pixels = std::max(1.0, std::round(b.width / 15.0));
        double width = 0;
        QTextFrameFormat::BorderStyle style = QTextFrameFormat::BorderStyle_None;
        switch (side == Top && withoutTop ? BorderKind::None : b.kind) {
        case BorderKind::None: break;
        case BorderKind::Single: width = pixels; style = QTextFrameFormat::BorderStyle_Solid; break;
        case BorderKind::Thick: width = std::max(2.0, 2 * pixels); style = QTextFrameFormat::BorderStyle_Solid; break;
        case BorderKind::Double: width = std::max(3.0, 3 * pixels); style = QTextFrameFormat::BorderStyle_Double; break;
        case BorderKind::Dotted: width = pixels; style = QTextFrameFormat::BorderStyle_Dotted; break;
        case BorderKind::Dashed: width = pixels; style = QTextFrameFormat::BorderStyle_Dashed; break;
        }
        switch (side) {
        case Top: format.setTopBorder(width); format.setTopBorderStyle(style); break;
        case Left: format.setLeftBorder(width); format.setLeftBorderStyle(style); break;
        case Bottom: format.setBottomBorder(width); format.setBottomBorderStyle(style); break;
        case Right: format.setRightBorder(width); format.setRightBorderStyle(style); break;
        }
    }
    format.setBorderBrush(QBrush(Qt::black));
    return format;
}

// ---- the reader's tables ----------------------------------------------------------------------------

// Tables. A cell or row end only marks the end; the cursor moves on when the next content comes, so
// that the last \cell of a row makes no extra column and the last \row no extra row.
void Reader::placeForTable(const ParaProps& para) {
    if (!para.inTable) {
        if (table_) closeTable();
        return;
    }
    if (!table_) {
        openTable(false);
    } else if (rowEnded_) {
        flush();
        if (row_ + 1 >= kRowsPerTable) {
            closeTable();
            openTable(true);
        } else {
            // Rows are made in doubling batches: each batch costs Qt a pass over the table's cells.
            if (row_ + 1 >= table_->rows()) table_->appendRows(std::min(table_->rows(), kRowsPerTable - table_->rows()));
            ++row_;
            col_ = 0;
            widenTable(int(cellDefs_.size()));
            enterCell();
        }
    } else if (cellEnded_) {
        flush();
        if (col_ + 1 >= table_->columns()) widenTable(col_ + 2);
        if (col_ + 1 < table_->columns()) {
            ++col_;
            enterCell();
        } else {
            run_.append(QChar(u'\t'));  // beyond the widest table: the cell runs on
        }
    }
    rowEnded_ = cellEnded_ = false;
}

// `continued`: the rows go on from the table just closed, whose last row drew its bottom line.
void Reader::openTable(bool continued) {
    flush();
    pendingBlock_ = false;  // Qt puts the table after the paragraph that just ended
    const int columns = std::max<int>(1, int(cellDefs_.size()));
    table_ = cursor_.insertTable(1, columns, tableFormat(cellDefs_));
    row_ = col_ = 0;
    continued_ = continued;
    enterCell();
}

void Reader::enterCell() {
    QTextTableCell cell = table_->cellAt(row_, col_);
    if (col_ < int(cellDefs_.size()) && cellDefs_[col_].hasBorder()) {
        const bool lineAbove = continued_ && row_ == 0 && col_ < int(bottoms_.size()) && bottoms_[col_];
        cell.setFormat(cellFormat(cellDefs_[col_], lineAbove));
    }
    cursor_ = cell.firstCursorPosition();
    continuing_ = false;
    blockChars_ = 0;
}

void Reader::widenTable(int columns) {
    columns = std::min(columns, kMaxColumns);
    if (columns > table_->columns()) table_->appendColumns(columns - table_->columns());
}

void Reader::closeTable() {
    flush();
    if (table_->rows() > row_ + 1) table_->removeRows(row_ + 1, table_->rows() - row_ - 1);  // unused batch
    cursor_ = table_->lastCursorPosition();
    cursor_.movePosition(QTextCursor::NextBlock);
    table_ = nullptr;
    pendingBlock_ = rowEnded_ = cellEnded_ = false;
    continuing_ = false;
    blockChars_ = 0;
}

void Reader::endCell() {
    if (skipping() || top().dest != Dest::Text) return;
    if (!top().para.inTable && !table_) {
        put(QChar(u'\t'));  // a cell outside any table reads as a tab
        return;
    }
    placeForTable(top().para);
    flush();
    // A cell's last paragraph has no \par: it takes its alignment, spacing and indents here.
    if (table_ && !pendingBlock_) cursor_.setBlockFormat(pieceFormat(top().para, true));
    if (table_) padCell();
    pendingBlock_ = false;
    cellEnded_ = true;
    replaceable_ = false;
}

// Qt lays out no space above a cell's first paragraph nor below its last; the cell's padding takes it.
void Reader::padCell() {
    QTextTableCell cell = table_->cellAt(row_, col_);
    const double above = document_.findBlock(cell.firstPosition()).blockFormat().topMargin();
    const double below = cursor_.block().blockFormat().bottomMargin();
    if (above <= 0 && below <= 0) return;
    QTextTableCellFormat format = cell.format().toTableCellFormat();
    format.setTopPadding(table_->format().cellPadding() + std::max(0.0, above));
    format.setBottomPadding(table_->format().cellPadding() + std::max(0.0, below));
    cell.setFormat(format);
}

void Reader::endRow() {
    if (skipping() || top().dest != Dest::Text) return;
    if (!table_) {
        paragraph();
        return;
    }
    flush();
    pendingBlock_ = false;
    rowEnded_ = true;
    cellEnded_ = false;
    replaceable_ = false;
    bottoms_.assign(cellDefs_.size(), false);
    for (std::size_t c = 0; c < cellDefs_.size(); ++c)
        bottoms_[c] = cellDefs_[c].borders[Bottom].kind != BorderKind::None;
}

}  // namespace documents::rtf
