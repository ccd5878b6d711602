#include "platform/reports/register_painter.h"

#include "platform/basic/runtime_error.h"

#include <QDir>
#include <QFile>
#include <QFontMetricsF>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QPdfWriter>
#include <algorithm>
#include <cmath>

namespace reports {

namespace {

// A page of the register: a run of bills, and perhaps the summary under them.
struct Page {
    size_t firstBill = 0;
    size_t bills = 0;
    bool summary = false;
};

class RegisterPainter {
public:
    RegisterPainter(const ReportTemplate& t, const ReportData& d, QPainter& p, QRectF area)
        : t_(t), d_(d), p_(p), area_(area) {
        body_ = QFont(t.fontFamily);
        body_.setPointSizeF(t.fontSize);
        bold_ = body_;
        bold_.setBold(true);
        title_ = bold_;
        title_.setPointSizeF(t.fontSize * 1.5);
        const QFontMetricsF fm(body_, p.device());
        row_ = std::ceil(fm.height() * 1.45);
        pad_ = std::ceil(fm.averageCharWidth() * 0.5);
        titleRow_ = std::ceil(QFontMetricsF(title_, p.device()).height() * 1.4);

        double shares = 0;
        for (const BillColumn& c : t.columns) shares += c.width;
        double x = area.left();
        for (const BillColumn& c : t.columns) {
            const double w = area.width() * c.width / shares;
            cols_.push_back(QRectF(x, 0, w, row_));
            x += w;
        }
        // The summary takes the left part of the line: a wide label column, then the figures.
        const int figures = std::max<int>(1, int(t.summaryHeadings.size()) - 1);
        const double labelW = area.width() * 0.22;
        const double figW = std::min(area.width() * 0.15, (area.width() - labelW) / figures);
        summaryCols_.push_back(QRectF(area.left(), 0, labelW, row_));
        for (int i = 0; i < figures; ++i) summaryCols_.push_back(QRectF(area.left() + labelW + i * figW, 0, figW, row_));
        layout();
    }

    int pages() const { return int(pages_.size()); }

    void paint(QPagedPaintDevice* device) {
        for (size_t n = 0; n < pages_.size(); ++n) {
            if (n > 0) device->newPage();
            paintPage(pages_[n], int(n) + 1);
        }
    }

private:
    double headTop() const {
        return area_.top() + (t_.title.isEmpty() ? 0 : titleRow_) + double(t_.headingLines.size()) * row_ + row_ * 0.5;
    }
    double footTop() const { return area_.bottom() - row_; }
    double summaryHeight() const {
        if (t_.summaryRows.empty()) return 0;
        return row_ * (double(t_.summaryRows.size()) + (t_.summaryCaption.isEmpty() ? 1.5 : 2.5));
    }

    void layout() {
        const double rowsTop = headTop() + 2 * row_;    // under the column headings
        const size_t perPage = std::max<size_t>(1, size_t((footTop() - rowsTop) / row_));
        const size_t n = d_.bills.size();
        for (size_t first = 0; first < n; first += perPage) pages_.push_back({first, std::min(perPage, n - first), false});
        if (pages_.empty()) pages_.push_back({0, 0, false});
        if (t_.summaryRows.empty()) return;
        Page& last = pages_.back();
        const double used = rowsTop + double(last.bills) * row_;
        if (used + row_ + summaryHeight() <= footTop()) last.summary = true;
        else pages_.push_back({n, 0, true});
    }

    void text(const QRectF& cell, const QString& s, Qt::Alignment align) {
        const QRectF inner = cell.adjusted(pad_, 0, -pad_, 0);
        const QFontMetricsF fm(p_.font(), p_.device());
        const QString shown = fm.horizontalAdvance(s) > inner.width() ? fm.elidedText(s, Qt::ElideRight, inner.width()) : s;
        p_.drawText(inner, int(align | Qt::AlignVCenter), shown);
    }

    void paintPage(const Page& page, int number) {
        double y = area_.top();
        if (!t_.title.isEmpty()) {
            p_.setFont(title_);
            p_.drawText(QRectF(area_.left(), y, area_.width(), titleRow_), Qt::AlignCenter, fillFields(t_.title, d_.heading));
            y += titleRow_;
        }
        p_.setFont(body_);
        for (const QStringList& line : t_.headingLines) {
            const QRectF r(area_.left(), y, area_.width(), row_);
            p_.drawText(r, Qt::AlignLeft | Qt::AlignVCenter, fillFields(line.value(0), d_.heading));
            if (line.size() > 1) p_.drawText(r, Qt::AlignRight | Qt::AlignVCenter, fillFields(line[1], d_.heading));
            y += row_;
        }
        y = headTop();
        const QPen rule(Qt::black, 0);
        const QPen faint(QColor(190, 190, 190), 0);

        if (page.bills > 0 || (page.firstBill == 0 && !page.summary) || (page.summary && d_.bills.empty())) {
            // Column headings on two lines, as the bill grid has them.
            const double headH = 2 * row_;
            p_.setFont(bold_);
            p_.fillRect(QRectF(area_.left(), y, area_.width(), headH), QColor(232, 232, 232));
            for (size_t c = 0; c < cols_.size(); ++c) {
                const QRectF cell = QRectF(cols_[c].left(), y, cols_[c].width(), headH).adjusted(pad_, 0, -pad_, 0);
                const Qt::Alignment align = t_.columns[c].kind == BillColumn::Amount ? Qt::AlignRight : Qt::AlignLeft;
                p_.drawText(cell, int(align | Qt::AlignVCenter | Qt::TextWordWrap), t_.columns[c].heading);
            }
            p_.setPen(rule);
            p_.drawLine(QPointF(area_.left(), y), QPointF(area_.right(), y));
            p_.drawLine(QPointF(area_.left(), y + headH), QPointF(area_.right(), y + headH));
            y += headH;
            p_.setFont(body_);
            for (size_t b = page.firstBill; b < page.firstBill + page.bills; ++b) {
                const QStringList& bill = d_.bills[b];
                for (size_t c = 0; c < cols_.size(); ++c)
                    text(cols_[c].translated(0, y), bill.value(int(c)),
                         t_.columns[c].kind == BillColumn::Amount ? Qt::AlignRight : Qt::AlignLeft);
                y += row_;
                p_.setPen(faint);
                p_.drawLine(QPointF(area_.left(), y), QPointF(area_.right(), y));
                p_.setPen(rule);
            }
            y += row_;
        }

        if (page.summary) paintSummary(y);

        p_.setFont(body_);
        p_.setPen(rule);
        const QString foot = QString(t_.footer)
                                 .replace(QStringLiteral("{page}"), QString::number(number))
                                 .replace(QStringLiteral("{pages}"), QString::number(pages_.size()));
        p_.drawText(QRectF(area_.left(), footTop(), area_.width(), row_), Qt::AlignCenter, fillFields(foot, d_.heading));
    }

    void paintSummary(double y) {
        const QPen rule(Qt::black, 0);
        if (!t_.summaryCaption.isEmpty()) {
            p_.setFont(bold_);
            p_.drawText(QRectF(area_.left(), y, area_.width(), row_), Qt::AlignLeft | Qt::AlignVCenter, t_.summaryCaption);
            y += row_;
        }
        const double right = summaryCols_.back().right();
        p_.setFont(bold_);
        p_.fillRect(QRectF(area_.left(), y, right - area_.left(), row_), QColor(232, 232, 232));
        for (size_t c = 0; c < summaryCols_.size(); ++c)
            text(summaryCols_[c].translated(0, y), t_.summaryHeadings.value(int(c)), c == 0 ? Qt::AlignLeft : Qt::AlignRight);
        p_.setPen(rule);
        p_.drawLine(QPointF(area_.left(), y), QPointF(right, y));
        p_.drawLine(QPointF(area_.left(), y + row_), QPointF(right, y + row_));
        y += row_;
        for (size_t r = 0; r < t_.summaryRows.size(); ++r) {
            const SummaryRow& row = t_.summaryRows[r];
            if (row.total) p_.drawLine(QPointF(area_.left(), y), QPointF(right, y));
            p_.setFont(row.total ? bold_ : body_);
            text(summaryCols_[0].translated(0, y), row.label, Qt::AlignLeft);
            for (size_t c = 1; c < summaryCols_.size(); ++c)
                text(summaryCols_[c].translated(0, y), d_.summary[r].value(int(c) - 1), Qt::AlignRight);
            y += row_;
        }
        p_.drawLine(QPointF(area_.left(), y), QPointF(right, y));
    }

    const ReportTemplate& t_;
    const ReportData& d_;
    QPainter& p_;
    QRectF area_;
    QFont body_, bold_, title_;
    double row_ = 0, pad_ = 0, titleRow_ = 0;
    std::vector<QRectF> cols_, summaryCols_;
    std::vector<Page> pages_;
};

}  // namespace

int paintRegister(const ReportTemplate& t, const ReportData& d, QPagedPaintDevice* device) {
    device->setPageLayout(t.pageLayout());
    QPainter p;
    if (!p.begin(device)) throw basic::RuntimeError(75, QStringLiteral("The register cannot be drawn on this device."));
    // The painter's origin is the corner of the printable area, inside the margins.
    const QRectF area(0, 0, device->width(), device->height());
    RegisterPainter r(t, d, p, area);
    r.paint(device);
    p.end();
    return r.pages();
}

int writePdf(const ReportTemplate& t, const ReportData& d, const QString& pdfPath) {
    QFile probe(pdfPath);
    if (!probe.open(QIODevice::WriteOnly))
        throw basic::RuntimeError(75, QStringLiteral("The PDF file %1 cannot be written: %2")
                                          .arg(QDir::toNativeSeparators(pdfPath), probe.errorString()));
    probe.close();
    QPdfWriter pdf(pdfPath);
    pdf.setResolution(300);
    pdf.setCreator(QStringLiteral("Vorlan"));
    pdf.setTitle(fillFields(t.title, d.heading));
    return paintRegister(t, d, &pdf);
}

int writePdf(const QString& templatePath, const QString& dataFile, const QString& pdfPath) {
    const ReportTemplate t = readTemplate(templatePath);
    return writePdf(t, loadData(t, dataFile), pdfPath);
}

}  // namespace reports
