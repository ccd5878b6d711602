#pragma once
// Form No. 10 laid out on A4 pages: every cell of every block placed in millimetres, the blocks flowing
// down the pages, a block's column headings repeated where it runs on to the next page. The screen and
// the paper paint the same pages.
#include "returns/form_ten_lines.h"

#include <QRectF>
#include <QString>
#include <vector>

class QFont;
class QPainter;

namespace returns {

inline constexpr double kPageWidthMm = 210.0;
inline constexpr double kPageHeightMm = 297.0;
inline constexpr double kPageMarginMm = 12.0;

struct PlacedCell {
    enum Role { Title, Subtitle, Heading, Number, Cell };
    Role role = Cell;
    FormRow::Style style = FormRow::Plain;
    QRectF mm;              // on the page, from its top left corner
    QString text;           // the form's words
    QString box;            // or the box it shows
    bool framed = true;
};

// Where a line of the form stands on its page, for what the screen says beside it.
struct PlacedLine {
    QString line;
    double topMm = 0;
    double heightMm = 0;
};

struct FormPage {
    std::vector<PlacedCell> cells;
    std::vector<PlacedLine> lines;
};

// The pages of the form with these values; heights follow the texts (a dealer's address of several lines).
std::vector<FormPage> LayFormTen(const FormTenValues& values);

// The font of the form's boxes; the boxes typed in on the screen take it too.
QFont FormTenCellFont();

// How a page is painted: the paper shows every text; the screen leaves the typed boxes to the boxes
// typed in, on a ground of their own.
struct PagePaint {
    double pxPerMm = 1;             // device pixels to a millimetre
    double fontScale = 1;           // the zoom of the fonts against the device's own resolution
    bool screen = false;
    QString footer;                 // printed at the foot, " - page n of m" added
};

void PaintFormPage(QPainter& painter, const FormPage& page, const FormTenValues& values, const PagePaint& how,
                   int pageNumber, int pageCount);

}  // namespace returns
