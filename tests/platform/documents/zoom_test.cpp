// The reader's zoom: its keys and the wheel step it, it reaches the document shown and the next one, a
// PDF's pages as well as a text, and it is remembered.
#include "view_fixture.h"
#include "support/case_name.h"

#include "platform/documents/pdf_marks.h"

#include <QAbstractTextDocumentLayout>
#include <QPdfView>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextBrowser>
#include <QWheelEvent>

namespace documents {
namespace {

struct ZoomStep {
    const char* name;
    int from;
    Qt::Key key;          // Key_unknown: the wheel instead
    int wheel;            // eighths of a degree, with Ctrl
    int to;
};
void PrintTo(const ZoomStep& s, std::ostream* os) { *os << s.name; }

class ZoomKeys : public ViewFixture, public ::testing::WithParamInterface<ZoomStep> {
protected:
    double lineHeight() const {
        QTextDocument* d = view->textBrowser()->document();
        return d->documentLayout()->blockBoundingRect(d->firstBlock()).height();
    }
};

TEST_P(ZoomKeys, StepTheTextAndThePagesOfTheNextDocument) {
    const ZoomStep& s = GetParam();
    show("{\\rtf1\\ansi\\fs24 Rule 58.\\par}");
    const double atHundred = lineHeight();
    Zoom::shared().setPercent(s.from);
    if (s.key != Qt::Key_unknown) {
        QTest::keyClick(view->textBrowser(), s.key, Qt::ControlModifier);
    } else {
        QWidget* viewport = view->textBrowser()->viewport();
        QWheelEvent wheel(QPointF(50, 50), viewport->mapToGlobal(QPointF(50, 50)), {}, {0, s.wheel}, Qt::NoButton,
                          Qt::ControlModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(viewport, &wheel);
    }
    EXPECT_EQ(Zoom::shared().percent(), s.to);
    Zoom::shared().save();  // as the program ends
    EXPECT_EQ(stored(QStringLiteral("reader/zoom")).toInt(), s.to);
    EXPECT_NEAR(lineHeight() / atHundred, s.to / 100.0, 0.12);

    show(pdfOfLines({QStringLiteral("Form 10")}));
    QPdfView* pdf = view->pdfView();
    const QMargins m = pdf->documentMargins();
    const double fit = pdf->viewport()->width() - m.left() - m.right();
    EXPECT_NEAR(pageRectsInView(*pdf).at(0).width() / fit, s.to / 100.0, 0.03);
}

INSTANTIATE_TEST_SUITE_P(
    Steps, ZoomKeys,
    ::testing::Values(ZoomStep{"CtrlPlus", 100, Qt::Key_Plus, 0, 110}, ZoomStep{"CtrlEquals", 125, Qt::Key_Equal, 0, 150},
                      ZoomStep{"CtrlMinus", 110, Qt::Key_Minus, 0, 100}, ZoomStep{"CtrlZero", 250, Qt::Key_0, 0, 100},
                      ZoomStep{"TopStays", 400, Qt::Key_Plus, 0, 400}, ZoomStep{"BottomStays", 50, Qt::Key_Minus, 0, 50},
                      ZoomStep{"WheelUp", 100, Qt::Key_unknown, 120, 110},
                      ZoomStep{"WheelDownTwice", 100, Qt::Key_unknown, -240, 80}),
    CaseName());

// Half way down a long document, the paragraph at the top of the view stays there as the text grows and
// shrinks.
TEST_F(ViewFixture, ThePlaceReadStaysAtTheTop) {
    show(longRtf(3000));
    QTextBrowser* text = view->textBrowser();
    text->verticalScrollBar()->setValue(text->verticalScrollBar()->maximum() / 2);
    const QTextBlock read = text->cursorForPosition(QPoint(0, 0)).block();
    for (const int percent : {150, 250, 80, 100}) {
        Zoom::shared().setPercent(percent);
        QApplication::processEvents();
        const QTextBlock top = text->cursorForPosition(QPoint(0, 0)).block();
        EXPECT_EQ(top.blockNumber(), read.blockNumber()) << percent;
    }
}

}  // namespace
}  // namespace documents
