#pragma once
// Hits on a PDF document: the text of its pages, as the text index reads it, and the places of words found
// in it lit over the pages as they are drawn, the current one stronger and brought into view. A layer over
// the page view draws the marks; the pages themselves are never changed.
#include "platform/documents/hit_marks.h"

#include <QByteArray>
#include <QList>
#include <QRectF>
#include <QWidget>
#include <vector>

class QPdfDocument;
class QPdfView;

namespace documents {

class DocumentView;

// Where each page lies in the page view's viewport, in pixels, with the view's zoom and scroll as they are.
std::vector<QRectF> pageRectsInView(const QPdfView& view);

class PdfMarks : public QWidget {
    Q_OBJECT
public:
    // The marks of the view's PDF page view, made on first use.
    static PdfMarks* of(DocumentView* view);

    // The text of every page, pages joined by a line break: the positions hits are counted in.
    const QString& text();
    // Lights `hits`; `current` (an index of hits, or -1) is brought into view, clear of `coveredBelow`
    // pixels at the foot of the view. No hits clears the marks.
    void show(const std::vector<TextRange>& hits, int current, int coveredBelow = 0);
    // The position in text() where the page at the top of the view begins.
    int firstVisiblePosition();
    // The marks of one hit in viewport pixels; empty when it is not lit.
    QList<QRectF> marksOf(int hit);

protected:
    void paintEvent(QPaintEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    PdfMarks(DocumentView* view, QPdfView* pdf);
    int pageAt(int position) const;
    QList<QRectF> marksOf(int hit, const QRectF& pageOnView);
    const QList<QRectF>& pointsOf(int hit);  // the hit's rectangles on its page, in points, read once
    bool shows(const QByteArray& bytes) const;  // whether the view still shows these very bytes
    DocumentView* view_;
    QPdfView* pdf_;
    QByteArray readBytes_, litBytes_;          // the documents the text was read from, and the marks lit on
    QString text_;
    std::vector<int> pageStarts_;
    std::vector<TextRange> hits_;
    std::vector<QList<QRectF>> points_;
    std::vector<bool> known_;
    int current_ = -1;
};

}  // namespace documents
