#include "platform/documents/pdf_marks.h"

#include "platform/documents/document_view.h"
#include "platform/documents/light_on_dark.h"

#include <QEvent>
#include <QGuiApplication>
#include <QPainter>
#include <QPaintEvent>
#include <QPdfDocument>
#include <QPdfSelection>
#include <QPdfView>
#include <QScreen>
#include <QScrollBar>

#include <algorithm>

namespace documents {

// The page view lays its pages one under the other, each as wide as its zoom makes it, centred, between the
// document's margins and with its spacing between pages; the same arithmetic finds them here.
std::vector<QRectF> pageRectsInView(const QPdfView& view) {
    QPdfDocument* document = view.document();
    const int pages = document ? document->pageCount() : 0;
    std::vector<QRectF> rects;
    if (pages <= 0) return rects;
    const double resolution = QGuiApplication::primaryScreen()->logicalDotsPerInch() / 72.0;
    const QSize viewport = view.viewport()->size();
    const QMargins margins = view.documentMargins();
    std::vector<QSize> sizes;
    int widest = 0;
    for (int p = 0; p < pages; ++p) {
        QSize size = QSizeF(document->pagePointSize(p) * resolution).toSize();
        if (view.zoomMode() == QPdfView::ZoomMode::Custom)
            size = QSizeF(document->pagePointSize(p) * resolution * view.zoomFactor()).toSize();
        else if (view.zoomMode() == QPdfView::ZoomMode::FitToWidth)
            size *= double(viewport.width() - margins.left() - margins.right()) / std::max(1, size.width());
        else
            size = size.scaled(viewport - QSize(margins.left() + margins.right(), view.pageSpacing()), Qt::KeepAspectRatio);
        widest = std::max(widest, size.width());
        sizes.push_back(size);
    }
    const int total = widest + margins.left() + margins.right();
    const int dx = view.horizontalScrollBar()->value(), dy = view.verticalScrollBar()->value();
    int top = margins.top();
    for (const QSize& size : sizes) {
        const int left = (std::max(total, viewport.width()) - size.width()) / 2;
        rects.emplace_back(left - dx, top - dy, size.width(), size.height());
        top += size.height() + view.pageSpacing();
    }
    return rects;
}

PdfMarks* PdfMarks::of(DocumentView* view) {
    if (auto* marks = view->pdfView()->findChild<PdfMarks*>(QString(), Qt::FindDirectChildrenOnly)) return marks;
    return new PdfMarks(view, view->pdfView());
}

PdfMarks::PdfMarks(DocumentView* view, QPdfView* pdf) : QWidget(pdf), view_(view), pdf_(pdf) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    // A sibling of the viewport, as the layer of light on dark is, and under it.
    setGeometry(pdf->viewport()->geometry());
    pdf->viewport()->installEventFilter(this);
    for (InvertingLayer* layer : pdf->findChildren<InvertingLayer*>(QString(), Qt::FindDirectChildrenOnly)) layer->raise();
    // Marks of the document shown before go with it; the finder may have lit the new one's already.
    connect(view, &DocumentView::shown, this, [this] {
        if (!shows(litBytes_)) show({}, -1);
    });
    QWidget::show();
}

bool PdfMarks::shows(const QByteArray& bytes) const {
    return !bytes.isNull() && bytes.constData() == view_->document().constData();
}

const QString& PdfMarks::text() {
    if (shows(readBytes_)) return text_;
    readBytes_ = view_->document();
    text_.clear();
    pageStarts_.clear();
    QPdfDocument* document = pdf_->document();
    if (view_->kind() != Kind::Pdf || !document) return text_;
    for (int page = 0; page < document->pageCount(); ++page) {
        pageStarts_.push_back(int(text_.size()));
        const QString onPage = document->getAllText(page).text();
        text_ += onPage;
        text_ += u'\n';
    }
    return text_;
}

int PdfMarks::pageAt(int position) const {
    const auto after = std::upper_bound(pageStarts_.begin(), pageStarts_.end(), position);
    return int(after - pageStarts_.begin()) - 1;
}

int PdfMarks::firstVisiblePosition() {
    text();
    const std::vector<QRectF> pages = pageRectsInView(*pdf_);
    for (size_t page = 0; page < pages.size() && page < pageStarts_.size(); ++page)
        if (pages[page].bottom() > 0) return pageStarts_[page];
    return 0;
}

const QList<QRectF>& PdfMarks::pointsOf(int hit) {
    if (!known_[hit]) {
        known_[hit] = true;
        const TextRange& h = hits_[hit];
        const int page = pageAt(h.start);
        const int end = std::min(h.end, page + 1 < int(pageStarts_.size()) ? pageStarts_[page + 1] - 1 : h.end);
        if (page >= 0 && pdf_->document()) {
            const QPdfSelection found = pdf_->document()->getSelectionAtIndex(page, h.start - pageStarts_[page], end - h.start);
            // The text layer bounds each glyph; the glyphs of one line make one mark.
            for (const QPolygonF& bound : found.bounds()) {
                const QRectF glyph = bound.boundingRect();
                QList<QRectF>& marks = points_[hit];
                if (!marks.isEmpty() && glyph.center().y() > marks.back().top() && glyph.center().y() < marks.back().bottom())
                    marks.back() |= glyph;
                else
                    marks << glyph;
            }
        }
    }
    return points_[hit];
}

QList<QRectF> PdfMarks::marksOf(int hit) {
    if (hit < 0 || hit >= int(hits_.size())) return {};
    const std::vector<QRectF> pages = pageRectsInView(*pdf_);
    const int page = pageAt(hits_[hit].start);
    return marksOf(hit, page >= 0 && page < int(pages.size()) ? pages[page] : QRectF());
}

QList<QRectF> PdfMarks::marksOf(int hit, const QRectF& onView) {
    QList<QRectF> marks;
    const int page = pageAt(hits_[hit].start);
    const QSizeF points = pdf_->document() ? pdf_->document()->pagePointSize(page) : QSizeF();
    if (onView.isEmpty() || points.isEmpty()) return marks;
    const double scale = onView.width() / points.width();
    for (const QRectF& r : pointsOf(hit))
        marks << QRectF(onView.left() + r.left() * scale, onView.top() + r.top() * scale, r.width() * scale,
                        r.height() * scale);
    return marks;
}

void PdfMarks::show(const std::vector<TextRange>& hits, int current, int coveredBelow) {
    text();
    litBytes_ = view_->document();
    hits_ = hits;
    points_.assign(hits.size(), {});
    known_.assign(hits.size(), false);
    current_ = current;
    if (current >= 0 && current < int(hits_.size())) {
        // The page is brought to the hit, a third of the way down the view.
        const QList<QRectF> marks = marksOf(current);
        if (!marks.isEmpty()) {
            QRectF around = marks.front();
            for (const QRectF& m : marks) around |= m;
            const int clear = pdf_->viewport()->height() - coveredBelow;
            if (around.top() < 0 || around.bottom() > clear) {
                QScrollBar* bar = pdf_->verticalScrollBar();
                bar->setValue(bar->value() + int(around.top()) - clear / 3);
            }
            QScrollBar* across = pdf_->horizontalScrollBar();
            if (around.left() < 0 || around.right() > pdf_->viewport()->width())
                across->setValue(across->value() + int(around.center().x()) - pdf_->viewport()->width() / 2);
        }
    }
    update();
}

void PdfMarks::paintEvent(QPaintEvent* event) {
    if (hits_.empty() || !shows(litBytes_) || !shows(readBytes_)) return;
    QPainter painter(this);
    painter.setClipRect(event->rect());
    // Multiplied over the page: white paper takes the colour, the ink stays black.
    painter.setCompositionMode(QPainter::CompositionMode_Multiply);
    const QColor lit(0xff, 0xe8, 0x6e), strong(0xff, 0x96, 0x32);
    const std::vector<QRectF> onViews = pageRectsInView(*pdf_);
    const int pages = int(std::min(pageStarts_.size(), onViews.size()));
    for (int page = 0; page < pages; ++page) {
        const QRectF& onView = onViews[page];
        if (onView.bottom() < 0 || onView.top() > height()) continue;
        const int from = pageStarts_[page], to = page + 1 < pages ? pageStarts_[page + 1] : int(text_.size());
        auto hit = std::lower_bound(hits_.begin(), hits_.end(), from,
                                    [](const TextRange& h, int at) { return h.start < at; });
        for (; hit != hits_.end() && hit->start < to; ++hit) {
            const int index = int(hit - hits_.begin());
            if (index >= kMostMarked && index != current_) continue;
            for (const QRectF& mark : marksOf(index, onView)) painter.fillRect(mark, index == current_ ? strong : lit);
        }
    }
}

bool PdfMarks::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize || event->type() == QEvent::Move || event->type() == QEvent::Show)
        setGeometry(pdf_->viewport()->geometry());
    return QWidget::eventFilter(watched, event);
}

}  // namespace documents
