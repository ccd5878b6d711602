// Light on dark: Ctrl+Shift+L turns the paper of any kind of document dark and its ink light, a colour the
// document names keeps its contrast, and the choice is remembered; off, a text is ink on paper whatever the
// program's palette.
#include "view_fixture.h"
#include "support/case_name.h"

#include <QApplication>
#include <QPdfView>
#include <QTextBrowser>
#include <algorithm>

namespace documents {
namespace {

struct Shown {
    const char* name;
    QByteArray bytes;
    bool whileHidden;  // put in the view before its window shows, as the document window does
};
void PrintTo(const Shown& s, std::ostream* os) { *os << s.name; }

// The grey most of the view's pixels have (the paper), and the grey farthest from it (the ink).
std::pair<int, int> paperAndInk(QWidget* view) {
    const QImage picture = view->grab().toImage();
    std::vector<int> greys;
    for (int y = 0; y < picture.height(); y += 2)
        for (int x = 0; x < picture.width() - 40; x += 2) greys.push_back(qGray(picture.pixel(x, y)));
    std::nth_element(greys.begin(), greys.begin() + greys.size() / 2, greys.end());
    const int paper = greys[greys.size() / 2];
    const auto [lo, hi] = std::minmax_element(greys.begin(), greys.end());
    return {paper, std::abs(*lo - paper) > std::abs(*hi - paper) ? *lo : *hi};
}

class LightOnDarkView : public ViewFixture, public ::testing::WithParamInterface<Shown> {};

TEST_P(LightOnDarkView, TurnsPaperDarkAndInkLightAndBack) {
    // A dark desktop palette does not darken the paper while the choice is off.
    const QPalette before = QApplication::palette();
    QPalette dark = before;
    dark.setColor(QPalette::Base, Qt::black);
    dark.setColor(QPalette::Text, Qt::white);
    QApplication::setPalette(dark);
    if (GetParam().whileHidden) window.hide();
    show(GetParam().bytes);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    for (const bool on : {false, true, false}) {
        if (on != LightOnDark::shared().on()) QTest::keyClick(view->window(), Qt::Key_L, Qt::ControlModifier | Qt::ShiftModifier);
        QApplication::processEvents();
        const auto [paper, ink] = paperAndInk(view);
        EXPECT_EQ(LightOnDark::shared().on(), on);
        EXPECT_EQ(stored(QStringLiteral("reader/lightOnDark")).toBool(), on);
        if (on) {
            EXPECT_LT(paper, 60) << "on";
            // To the right edge of the text: the layer follows the viewport as its scroll bar comes and goes.
            QAbstractScrollArea* area = view->kind() == Kind::Pdf ? static_cast<QAbstractScrollArea*>(view->pdfView())
                                                                   : view->textBrowser();
            const QImage edge = area->grab().toImage();
            const QRect viewport = area->viewport()->geometry();
            EXPECT_LT(qGray(edge.pixel(viewport.right() - 1, viewport.bottom() - 1)), 110) << "the corner of the text";
            EXPECT_GT(ink, 150) << "on";
        } else {
            EXPECT_GT(paper, 230) << "off";
            EXPECT_LT(ink, 100) << "off";
        }
    }
    QApplication::setPalette(before);
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, LightOnDarkView,
    ::testing::Values(Shown{"Rtf", "{\\rtf1\\ansi\\fs40 Input tax credit\\par}", false},
                      Shown{"RtfBeforeTheWindowShows", "{\\rtf1\\ansi\\fs40 Input tax credit\\par}", true},
                      Shown{"HtmlInColour",
                            "<html><body><p style='color:#000080;font-size:30px'>Input tax credit</p></body></html>", false},
                      Shown{"Pdf", pdfOfLines({QStringLiteral("Input tax credit")}), false}),
    CaseName());

}  // namespace
}  // namespace documents
