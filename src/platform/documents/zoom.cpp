#include "platform/documents/zoom.h"

#include "platform/documents/document_view.h"
#include "platform/basic/settings.h"

#include <QAbstractTextDocumentLayout>
#include <QAction>
#include <QCoreApplication>
#include <QEvent>
#include <QPdfDocument>
#include <QPdfView>
#include <QScrollBar>
#include <QTextBrowser>
#include <QWheelEvent>

#include <algorithm>
#include <cstdlib>

namespace documents {

namespace {
const QString kKey = QStringLiteral("reader/zoom");
constexpr double kMetresPerInch = 0.0254;

// The layout told that its whole document is new, as when a document is first shown: it lays out what is in
// sight at once and the rest in steps between events. Told only that the text changed, it would lay out
// the whole document again before the next frame.
struct Relayout : QAbstractTextDocumentLayout {
    using QAbstractTextDocumentLayout::documentChanged;
};
void layOutAfresh(QTextDocument* document) {
    auto changed = &Relayout::documentChanged;
    (document->documentLayout()->*changed)(0, 0, document->characterCount());
}
}  // namespace

Zoom& Zoom::shared() {
    static Zoom* zoom = new Zoom;  // lives to the end of the process, as the settings it mirrors
    return *zoom;
}

Zoom::Zoom() {
    // Written a moment after the last step, not at each: a settings file written per key costs a frame.
    save_.setSingleShot(true);
    save_.setInterval(400);
    connect(&save_, &QTimer::timeout, this, [this] { basic::Settings().setValue(kKey, percent_); });
    if (QCoreApplication::instance())
        connect(QCoreApplication::instance(), &QCoreApplication::aboutToQuit, this, &Zoom::save);
    const int stored = basic::Settings().value(kKey, 100).toInt();
    int nearest = 100;
    for (int step : steps())
        if (std::abs(step - stored) < std::abs(nearest - stored)) nearest = step;
    percent_ = nearest;
}

const std::vector<int>& Zoom::steps() {
    static const std::vector<int> all = {50, 67, 80, 90, 100, 110, 125, 150, 175, 200, 250, 300, 400};
    return all;
}

void Zoom::setPercent(int percent) {
    int nearest = steps().front();
    for (int step : steps())
        if (std::abs(step - percent) < std::abs(nearest - percent)) nearest = step;
    if (nearest == percent_) return;
    percent_ = nearest;
    save_.start();
    emit changed(percent_);
}

void Zoom::save() {
    if (!save_.isActive()) return;
    save_.stop();
    basic::Settings().setValue(kKey, percent_);
}

void Zoom::stepIn() {
    const auto next = std::upper_bound(steps().begin(), steps().end(), percent_);
    if (next != steps().end()) setPercent(*next);
}

void Zoom::stepOut() {
    const auto at = std::lower_bound(steps().begin(), steps().end(), percent_);
    if (at != steps().begin()) setPercent(*(at - 1));
}

ViewZoom* ViewZoom::attach(DocumentView* view) { return new ViewZoom(view); }

ViewZoom::ViewZoom(DocumentView* view) : QObject(view), view_(view), resolution_(1, 1, QImage::Format_RGB32) {
    auto action = [view](const QString& text, const QList<QKeySequence>& keys, auto slot) {
        auto* a = new QAction(text, view);
        a->setShortcuts(keys);
        a->setShortcutContext(Qt::WindowShortcut);
        QObject::connect(a, &QAction::triggered, &Zoom::shared(), slot);
        view->addAction(a);
        return a;
    };
    zoomIn = action(QStringLiteral("Zoom in"), {QKeySequence(Qt::CTRL | Qt::Key_Plus), QKeySequence(Qt::CTRL | Qt::Key_Equal)},
                    &Zoom::stepIn);
    zoomOut = action(QStringLiteral("Zoom out"), {QKeySequence(Qt::CTRL | Qt::Key_Minus)}, &Zoom::stepOut);
    actualSize = action(QStringLiteral("Actual size"), {QKeySequence(Qt::CTRL | Qt::Key_0)}, &Zoom::reset);
    connect(&Zoom::shared(), &Zoom::changed, this, [this] { apply(true); });
    connect(view, &DocumentView::shown, this, [this] { apply(false); });
    view->textBrowser()->viewport()->installEventFilter(this);
    view->pdfView()->viewport()->installEventFilter(this);
    apply(false);
}

void ViewZoom::apply(bool keepPlace) {
    if (view_->kind() == Kind::Pdf) return applyToPdf();
    QTextBrowser* text = view_->textBrowser();
    QTextDocument* document = text->document();
    QAbstractTextDocumentLayout* layout = document->documentLayout();
    const int percent = Zoom::shared().percent();
    const int perMetre = int(text->viewport()->logicalDpiY() * percent / 100.0 / kMetresPerInch + 0.5);
    const bool ours = layout->paintDevice() == &resolution_;
    if (ours ? resolution_.dotsPerMeterY() == perMetre && laidOut_ == document : percent == 100) return;
    // The place read stays at the top: the line under the view's top edge before is there after, as much
    // of it hidden above the edge as before.
    // A document just shown starts at its top; the view's scroll bar may still tell the last one's place.
    // At the top itself there is no place to keep (and a point in the top margin finds no text).
    const bool scrolled = keepPlace && text->verticalScrollBar()->value() > 0;
    QTextCursor at = scrolled ? text->cursorForPosition(QPoint(0, 0)) : QTextCursor(document);
    const QRect before = text->cursorRect(at);
    resolution_.setDotsPerMeterX(perMetre);
    resolution_.setDotsPerMeterY(perMetre);
    layout->setPaintDevice(&resolution_);
    layOutAfresh(document);
    laidOut_ = document;
    if (at.position() > 0) {
        // Asking where the place is lays the text out to it; the scroll bar learns the new length later.
        QScrollBar* bar = text->verticalScrollBar();
        const QRect after = text->cursorRect(at);
        const int hidden = before.height() > 0 ? before.top() * after.height() / before.height() : 0;
        const int wanted = bar->value() + after.top() - hidden;
        if (wanted > bar->maximum()) bar->setMaximum(wanted);
        bar->setValue(wanted);
    }
}

// 100 is the width that fits the view; any other step a share of it, kept as the view's width changes.
void ViewZoom::applyToPdf() {
    QPdfView* pdf = view_->pdfView();
    const int percent = Zoom::shared().percent();
    QPdfDocument* document = pdf->document();
    if (percent == 100 || !document || document->pageCount() == 0) {
        pdf->setZoomMode(QPdfView::ZoomMode::FitToWidth);
        return;
    }
    const QMargins margins = pdf->documentMargins();
    const double pageWidth = document->pagePointSize(0).width() * pdf->logicalDpiX() / 72.0;
    const double fit = (pdf->viewport()->width() - margins.left() - margins.right()) / std::max(1.0, pageWidth);
    pdf->setZoomMode(QPdfView::ZoomMode::Custom);
    pdf->setZoomFactor(fit * percent / 100.0);
}

bool ViewZoom::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Wheel) {
        auto* wheel = static_cast<QWheelEvent*>(event);
        if (wheel->modifiers() & Qt::ControlModifier) {
            wheel_ += wheel->angleDelta().y();
            for (; wheel_ >= 120; wheel_ -= 120) Zoom::shared().stepIn();
            for (; wheel_ <= -120; wheel_ += 120) Zoom::shared().stepOut();
            return true;  // not the view's own zoom of its default font
        }
    }
    if (event->type() == QEvent::Resize && watched == view_->pdfView()->viewport() && view_->kind() == Kind::Pdf &&
        Zoom::shared().percent() != 100)
        applyToPdf();
    return QObject::eventFilter(watched, event);
}

}  // namespace documents
