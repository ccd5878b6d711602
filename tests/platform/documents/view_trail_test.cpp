// The full viewer's history: Alt+Left and Alt+Right between the documents it has shown, through links
// followed and documents opened in full, each back at the place the reader left it.
#include "platform/documents/document_view.h"
#include "platform/documents/full_viewer.h"
#include "platform/documents/view_place.h"

#include "support/case_name.h"
#include "support/printers.h"

#include <QScrollBar>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBrowser>

#include <gtest/gtest.h>

namespace documents {
namespace {

struct TrailCase {
    const char* name;
    const char* steps;   // "a" "b" "c": that file's link followed; "S": a stored page opened in full; "<" ">"
    char shown;          // the document shown at the end, by its first letter
};

class FullViewerTrail : public ::testing::TestWithParam<TrailCase> {};

TEST_P(FullViewerTrail, StepsBackAndForthToThePlaceLeft) {
    QTemporaryDir dir;
    for (const char name : {'a', 'b', 'c'}) {
        QFile f(dir.filePath(QStringLiteral("%1.rtf").arg(name)));
        f.open(QIODevice::WriteOnly);
        f.write("{\\rtf1 " + QByteArray(1, char(name - 32)) + " page\\par " + QByteArray("a line of the page\\par ").repeated(200) + "}");
    }
    QFile first(dir.filePath("a.rtf"));
    first.open(QIODevice::ReadOnly);
    openInFull(first.readAll(), dir.path());
    FullViewer* viewer = FullViewer::existing();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(viewer));
    viewer->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(viewer));

    QHash<QChar, QString> placeLeft;
    const auto shown = [&] { return viewer->view()->plainText().left(1); };
    const QByteArray steps = QByteArray(GetParam().steps).replace(' ', "");
    for (const char step : steps) {
        // Each document is left a little further down than the one before.
        QScrollBar* bar = viewer->view()->textBrowser()->verticalScrollBar();
        bar->setValue(bar->maximum() * (placeLeft.size() + 1) / 8);
        placeLeft[shown()[0]] = placeOf(viewer->view());
        if (step == '<' || step == '>') QTest::keyClick(viewer, step == '<' ? Qt::Key_Left : Qt::Key_Right, Qt::AltModifier);
        else if (step == 'S') openInFull("{\\rtf1 Stored page}");
        else viewer->followLink(QStringLiteral("%1.rtf").arg(step));
    }
    EXPECT_EQ(shown(), QString(QChar::fromLatin1(GetParam().shown)));
    if (steps.endsWith('<') || steps.endsWith('>')) {
        EXPECT_EQ(placeOf(viewer->view()), placeLeft.value(shown()[0]));
    }
    delete viewer;   // the next case starts with a viewer of its own, as a new run does
}

INSTANTIATE_TEST_SUITE_P(Viewer, FullViewerTrail, ::testing::Values(
    TrailCase{"BackThroughTwoLinks", "b c < <", 'A'},
    TrailCase{"BackAndForward", "b c < < >", 'B'},
    TrailCase{"ALinkDropsWhatLayAhead", "b c < < c >", 'C'},
    TrailCase{"AStoredPageOpenedInFull", "b S <", 'B'},
    TrailCase{"NothingBeforeTheFirst", "<", 'A'}),
    CaseName());

}  // namespace
}  // namespace documents
