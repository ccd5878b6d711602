#include "platform/documents/rtf_tables.h"

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

}  // namespace documents::rtf
