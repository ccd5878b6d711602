#pragma once
// Form No. 10, the monthly return of a VAT dealer, as this program lays it out: its blocks with their
// columns and rows, and every box of it, with what the box holds and where its figure comes from. The
// screen, the paper and the store all read the form from here, and the form's arithmetic is here.
#include <QHash>
#include <QString>
#include <QStringList>
#include <optional>
#include <vector>

namespace returns {

enum class BoxKind {
    Fixed,      // the book's or the form's own text: the year, the period, the TIN
    Store,      // a figure of the month's return pages, or of its summary when the pages lack it
    Typed,      // typed on the form and kept in the book
    Computed,   // worked out by the form from other boxes
};

enum class BoxShape { Text, Amount, Rate, YesNo, Date, Nature };

struct FormBox {
    QString name;       // the return-page column's name where the store has one ("ISS15"), else our own
    BoxKind kind = BoxKind::Fixed;
    BoxShape shape = BoxShape::Text;
    QString caption;    // how a message names it: "Exemption claimed (Rs.), Sales (Local) at 4 %"
    QString pageTable;  // the return page that holds the box's column too ("tblMPage1"), else empty
    QString pageColumn;
};

struct FormCell {
    QString text;       // the form's own words
    QString box;        // or the box the cell shows
    int span = 1;       // the columns it covers
};

struct FormRow {
    enum Style { Plain, Caption, Total };
    Style style = Plain;
    QString line;       // the line's name, under which the form says something beside it ("SL1")
    std::vector<FormCell> cells;
};

struct FormBlock {
    QString title;                 // a heading above the block, bold; may be empty
    QString subtitle;
    QStringList headings;          // one per column; none: the block has no heading row
    std::vector<double> widths;    // in millimetres, together the width of the page's text
    bool numbered = false;         // a row "(1) (2) ..." under the headings
    bool framed = true;            // boxes drawn round the cells
    std::vector<FormRow> rows;
};

// The width of the page's text, A4 less its margins, in millimetres.
inline constexpr double kFormTextWidth = 186.0;

const std::vector<FormBlock>& FormTenBlocks();
const std::vector<FormBox>& FormTenBoxes();
// The box of that name; nullptr for a name the form does not have.
const FormBox* FormTenBox(const QString& name);

// What the form shows for one month.
struct FormTenValues {
    QHash<QString, QString> fixed;     // Fixed boxes
    QHash<QString, double> figures;    // Store boxes as read; Computed boxes after ComputeFormTen
    QHash<QString, QString> typed;     // Typed boxes, as typed
    QHash<QString, QString> notes;     // by line: what the form says beside it
};

// The figure of an Amount or Rate box, whatever its kind: a blank or unreadable typed box counts 0.
double BoxFigure(const FormTenValues& v, const QString& box);

// Every Computed box, from the others. Rounded to the paisa where the form multiplies.
void ComputeFormTen(FormTenValues& v);

// The text a box shows: figures in Indian grouping, "Nil" for a figure of 0; typed amounts regrouped
// when they read as amounts; Y or N in capitals; anything else as it stands.
QString BoxText(const FormTenValues& v, const QString& box);

// The first typed box that its shape refuses, or a line that cannot stand (an exemption above its
// turnover, more deferred than the net tax), with what to type instead.
struct TypedFault {
    QString box;
    QString message;
};
std::optional<TypedFault> CheckTyped(const FormTenValues& v);

// A typed box as it is kept: amounts and rates as plain figures ("125000.00"), Y or N in capitals,
// texts trimmed.
QString KeptText(const FormBox& box, const QString& typed);

}  // namespace returns
