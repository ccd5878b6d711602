#include "returns/form_ten_layout.h"

#include <QFont>
#include <QFontMetricsF>
#include <QImage>
#include <QPainter>

namespace returns {

namespace {

constexpr double kFooterMm = 12.0;       // kept free at the foot of a page
constexpr double kPadMm = 0.9;           // between a cell's frame and its text
constexpr double kMinRowMm = 5.4;
constexpr double kBlockGapMm = 3.0;

QFont formFont(double points, bool bold = false) {
    QFont f(QStringLiteral("DejaVu Sans"));
    f.setPointSizeF(points);
    f.setBold(bold);
    return f;
}

// Sizes in points of what the form prints.
constexpr double kCellPt = 7.2, kHeadingPt = 6.3, kTitlePt = 9.0, kFormTitlePt = 11.0;

double cellPoints(PlacedCell::Role role, bool firstBlock) {
    switch (role) {
    case PlacedCell::Title: return firstBlock ? kTitlePt : kTitlePt - 0.5;
    case PlacedCell::Subtitle: return firstBlock ? kFormTitlePt : kCellPt + 0.6;
    case PlacedCell::Heading:
    case PlacedCell::Number: return kHeadingPt;
    case PlacedCell::Cell: return kCellPt;
    }
    return kCellPt;
}

// The height a text takes in a width, measured at a fine resolution so that paper and screen agree.
double textHeightMm(const QString& text, const QFont& font, double widthMm) {
    static const QImage device = [] {
        QImage image(1, 1, QImage::Format_RGB32);
        image.setDotsPerMeterX(23622);   // 600 dpi
        image.setDotsPerMeterY(23622);
        return image;
    }();
    constexpr double pxPerMm = 600.0 / 25.4;
    const QFontMetricsF metrics(font, &device);
    const QString shown = text.isEmpty() ? QStringLiteral("X") : text;
    return metrics.boundingRect(QRectF(0, 0, widthMm * pxPerMm, 1e7), Qt::TextWordWrap, shown).height() / pxPerMm;
}

bool rightAligned(const QString& box) {
    const FormBox* b = FormTenBox(box);
    return b && (b->shape == BoxShape::Amount || b->shape == BoxShape::Rate);
}

class Flow {
public:
    explicit Flow(const FormTenValues& v) : v_(v) { pages_.emplace_back(); }

    void block(const FormBlock& b, bool first) {
        first_ = first;
        std::vector<double> rowHeights;
        for (const FormRow& r : b.rows) rowHeights.push_back(rowHeight(b, r));
        const double headH = headingHeight(b);
        const double titleH = (b.title.isEmpty() ? 0 : (first ? 6.0 : 6.5)) + (b.subtitle.isEmpty() ? 0 : (first ? 7.0 : 5.5));
        // A block's titles and headings go to the next page with its first rows, never alone.
        double need = titleH + headH;
        for (size_t r = 0; r < std::min<size_t>(2, rowHeights.size()); ++r) need += rowHeights[r];
        if (y_ + need > bottom()) newPage();
        if (!b.title.isEmpty()) text(PlacedCell::Title, b.title, first ? 6.0 : 6.5, first);
        if (!b.subtitle.isEmpty()) text(PlacedCell::Subtitle, b.subtitle, first ? 7.0 : 5.5, first);
        headings(b, headH);
        for (size_t r = 0; r < b.rows.size(); ++r) {
            if (y_ + rowHeights[r] > bottom()) {
                newPage();
                headings(b, headH);
            }
            place(b, b.rows[r], rowHeights[r]);
        }
        y_ += kBlockGapMm;
    }

    std::vector<FormPage> pages() { return std::move(pages_); }

private:
    static double bottom() { return kPageHeightMm - kFooterMm; }
    void newPage() {
        pages_.emplace_back();
        y_ = kPageMarginMm;
    }

    QString shown(const FormCell& c) const { return c.box.isEmpty() ? c.text : BoxText(v_, c.box); }

    static double spanWidth(const FormBlock& b, size_t first, int span) {
        double w = 0;
        for (size_t c = first; c < first + size_t(span) && c < b.widths.size(); ++c) w += b.widths[c];
        return w;
    }

    double rowHeight(const FormBlock& b, const FormRow& r) const {
        double h = kMinRowMm;
        size_t col = 0;
        for (const FormCell& c : r.cells) {
            const QFont font = formFont(kCellPt, r.style != FormRow::Plain);
            h = std::max(h, textHeightMm(shown(c), font, spanWidth(b, col, c.span) - 2 * kPadMm) + 2 * kPadMm);
            col += size_t(c.span);
        }
        return h;
    }

    static double headingHeight(const FormBlock& b) {
        if (b.headings.isEmpty()) return 0;
        double h = kMinRowMm;
        for (qsizetype c = 0; c < b.headings.size(); ++c)
            h = std::max(h, textHeightMm(b.headings[c], formFont(kHeadingPt, true), b.widths[size_t(c)] - 2 * kPadMm) + 2 * kPadMm);
        return h + (b.numbered ? 4.0 : 0.0);
    }

    void text(PlacedCell::Role role, const QString& words, double height, bool centred) {
        PlacedCell c;
        c.role = role;
        c.mm = QRectF(kPageMarginMm, y_, kFormTextWidth, height);
        c.text = words;
        c.framed = !centred;   // a centred title stands free; the others mark their block's start
        pages_.back().cells.push_back(c);
        y_ += height;
    }

    void headings(const FormBlock& b, double height) {
        if (b.headings.isEmpty()) return;
        const double numberH = b.numbered ? 4.0 : 0.0;
        double x = kPageMarginMm;
        for (qsizetype c = 0; c < b.headings.size(); ++c) {
            const double w = b.widths[size_t(c)];
            pages_.back().cells.push_back({PlacedCell::Heading, FormRow::Plain, QRectF(x, y_, w, height - numberH), b.headings[c], {}, true});
            if (b.numbered)
                pages_.back().cells.push_back(
                    {PlacedCell::Number, FormRow::Plain, QRectF(x, y_ + height - numberH, w, numberH), QStringLiteral("(%1)").arg(c + 1), {}, true});
            x += w;
        }
        y_ += height;
    }

    void place(const FormBlock& b, const FormRow& r, double height) {
        double x = kPageMarginMm;
        size_t col = 0;
        for (const FormCell& c : r.cells) {
            const double w = spanWidth(b, col, c.span);
            // The first block's caption is the form's own line under its title, standing free.
            const bool framed = (b.framed || !c.box.isEmpty()) && !(first_ && r.style == FormRow::Caption);
            pages_.back().cells.push_back({PlacedCell::Cell, r.style, QRectF(x, y_, w, height), c.text, c.box, framed});
            x += w;
            col += size_t(c.span);
        }
        if (!r.line.isEmpty()) pages_.back().lines.push_back({r.line, y_, height});
        y_ += height;
    }

    const FormTenValues& v_;
    std::vector<FormPage> pages_;
    double y_ = kPageMarginMm;
    bool first_ = false;
};

}  // namespace

QFont FormTenCellFont() { return formFont(kCellPt); }

std::vector<FormPage> LayFormTen(const FormTenValues& values) {
    Flow flow(values);
    const auto& blocks = FormTenBlocks();
    for (size_t b = 0; b < blocks.size(); ++b) flow.block(blocks[b], b == 0);
    return flow.pages();
}

void PaintFormPage(QPainter& p, const FormPage& page, const FormTenValues& values, const PagePaint& how, int pageNumber,
                   int pageCount) {
    const double k = how.pxPerMm;
    const auto px = [k](const QRectF& mm) { return QRectF(mm.x() * k, mm.y() * k, mm.width() * k, mm.height() * k); };
    const auto font = [&](double points, bool bold) { return formFont(points * how.fontScale, bold); };
    const QPen rule(Qt::black, std::max(1.0, 0.18 * k));
    const double pad = kPadMm * k;
    p.save();
    p.setRenderHint(QPainter::Antialiasing, false);
    p.setRenderHint(QPainter::TextAntialiasing, true);
    for (const PlacedCell& c : page.cells) {
        const QRectF r = px(c.mm);
        const QRectF inner = r.adjusted(pad, 0, -pad, 0);
        switch (c.role) {
        case PlacedCell::Title:
        case PlacedCell::Subtitle: {
            // The form's own title, on the first page, stands centred; a part's title at the left.
            const bool centred = !c.framed;
            p.setFont(font(cellPoints(c.role, centred), true));
            p.setPen(Qt::black);
            p.drawText(inner, (centred ? Qt::AlignHCenter : Qt::AlignLeft) | Qt::AlignBottom | Qt::TextWordWrap, c.text);
            break;
        }
        case PlacedCell::Heading:
        case PlacedCell::Number:
            p.fillRect(r, QColor(0xE6, 0xE6, 0xE6));
            p.setPen(rule);
            p.drawRect(r);
            p.setFont(font(kHeadingPt, c.role == PlacedCell::Heading));
            p.drawText(inner, Qt::AlignCenter | Qt::TextWordWrap, c.text);
            break;
        case PlacedCell::Cell: {
            const FormBox* box = c.box.isEmpty() ? nullptr : FormTenBox(c.box);
            const bool typed = box && box->kind == BoxKind::Typed;
            if (how.screen && typed) p.fillRect(r, QColor(0xFF, 0xF6, 0xC2));
            else if (c.style == FormRow::Total) p.fillRect(r, QColor(0xF2, 0xF2, 0xF2));
            if (c.framed) {
                p.setPen(rule);
                p.drawRect(r);
            }
            if (how.screen && typed) break;
            p.setPen(Qt::black);
            p.setFont(font(kCellPt, c.style != FormRow::Plain));
            const QString text = box ? BoxText(values, c.box) : c.text;
            const Qt::Alignment align = box && rightAligned(c.box) ? (Qt::AlignRight | Qt::AlignVCenter)
                                        : c.style == FormRow::Caption && !c.framed ? (Qt::AlignHCenter | Qt::AlignVCenter)
                                                                                   : (Qt::AlignLeft | Qt::AlignVCenter);
            p.drawText(inner, align | Qt::TextWordWrap, text);
            break;
        }
        }
    }
    if (!how.footer.isNull()) {
        p.setFont(font(kHeadingPt, false));
        p.setPen(Qt::black);
        const QRectF foot = px(QRectF(kPageMarginMm, kPageHeightMm - kFooterMm + 3, kFormTextWidth, 5));
        p.drawText(foot, Qt::AlignLeft | Qt::AlignVCenter, how.footer);
        p.drawText(foot, Qt::AlignRight | Qt::AlignVCenter, QStringLiteral("Page %1 of %2").arg(pageNumber).arg(pageCount));
    }
    p.restore();
}

}  // namespace returns
