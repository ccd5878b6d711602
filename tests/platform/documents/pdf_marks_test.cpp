// Hits on a PDF: the find bar (Ctrl+F) and a library search light the word where its ink is on the page,
// at any zoom and on a page further down, which is brought into view.
#include "view_fixture.h"
#include "support/case_name.h"

#include "platform/documents/hit_marks.h"
#include "platform/documents/pdf_marks.h"
#include "platform/store/text_query.h"

#include <QLabel>
#include <QLineEdit>
#include <QPdfView>

namespace documents {
namespace {

struct PdfFind {
    const char* name;
    int zoom;
    QStringList pages;
    bool bySearch;  // lit by a library search, not typed into the find bar
};
void PrintTo(const PdfFind& c, std::ostream* os) { *os << c.name; }

class PdfHits : public ViewFixture, public ::testing::WithParamInterface<PdfFind> {};

TEST_P(PdfHits, LightTheWordWhereItsInkIs) {
    const PdfFind& c = GetParam();
    Zoom::shared().setPercent(c.zoom);
    show(pdfOfLines(c.pages));
    if (c.bySearch) {
        EXPECT_EQ(markSearchHits(view, store::parseTextQuery(QStringLiteral("cred*"))), 1);
    } else {
        QTest::keyClick(view->pdfView(), Qt::Key_F, Qt::ControlModifier);
        ASSERT_TRUE(bar->isVisible());
        QTest::keyClicks(bar->field, QStringLiteral("CREDIT"));
        EXPECT_EQ(bar->count->text(), QStringLiteral("1 of 1"));
    }
    QApplication::processEvents();
    QTest::qWait(100);  // the page brought into view is drawn on a thread of its own
    const QList<QRectF> marks = PdfMarks::of(view)->marksOf(0);
    ASSERT_EQ(marks.size(), 1);
    const QRect mark = marks[0].toAlignedRect();
    // The marks lie over the viewport, beside it among the page view's children.
    const QImage seen = view->pdfView()->grab(view->pdfView()->viewport()->geometry()).toImage();
    ASSERT_TRUE(seen.rect().contains(mark)) << "the hit is out of sight";
    // The ink near the mark's line, which holds nothing but the word, must lie inside the mark.
    QRect ink;
    for (int y = std::max(0, mark.top() - mark.height()); y < std::min(seen.height(), mark.bottom() + mark.height()); ++y)
        for (int x = 0; x < seen.width(); ++x)
            if (qGray(seen.pixel(x, y)) < 60) ink |= QRect(x, y, 1, 1);
    ASSERT_FALSE(ink.isEmpty());
    EXPECT_TRUE(mark.adjusted(-2, -2, 2, 2).contains(ink)) << "mark " << mark.x() << "," << mark.y() << " " << mark.width()
                                                           << "x" << mark.height() << " ink " << ink.x() << "," << ink.y()
                                                           << " " << ink.width() << "x" << ink.height();
    EXPECT_LT(mark.height(), 3 * ink.height());
    const QRgb lit = seen.pixel(mark.left() + 1, mark.top() + 1);
    EXPECT_GT(qRed(lit), qBlue(lit) + 60) << "the paper under the mark is lit";
}

INSTANTIATE_TEST_SUITE_P(
    Marks, PdfHits,
    ::testing::Values(PdfFind{"FitToWidth", 100, {QStringLiteral("credit")}, false},
                      PdfFind{"Zoomed", 150, {QStringLiteral("credit")}, false},
                      PdfFind{"Small", 67, {QStringLiteral("credit")}, false},
                      PdfFind{"PageFurtherDown", 100,
                              {QStringLiteral("Section one"), QStringLiteral("Section two"), QStringLiteral("credit")}, false},
                      PdfFind{"LibrarySearch", 125, {QStringLiteral("Section one"), QStringLiteral("credit")}, true}),
    CaseName());

}  // namespace
}  // namespace documents
