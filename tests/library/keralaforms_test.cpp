// The document window: hiding by Back, Esc and the close box, the way back, the sliding hint, the layout.
#include "library_window_fixture.h"

#include <QToolButton>

#include "platform/documents/full_viewer.h"

using forms::toTwips;

TEST_F(LibraryWindows, BackEscAndTheCloseBoxHideAndShowTheStateBrowserOnlyForKerala) {
    for (const std::int16_t state : {14, 3}) {
        shell::currentStateNo = state;
        for (int way = 0; way < 3; ++way) {
            QWidget* browser = forms::get(QStringLiteral("frmkerala"));
            browser->hide();
            kf()->show();
            if (way == 0) kf()->Picture4->click();
            if (way == 1) QTest::keyClick(kf(), Qt::Key_Escape);
            if (way == 2) { EXPECT_FALSE(kf()->close()); }
            EXPECT_FALSE(kf()->isVisible()) << state << " way " << way;
            EXPECT_EQ(browser->isVisible(), state == 14) << state << " way " << way;
        }
    }
    shell::currentStateNo = 14;
}

TEST_F(LibraryWindows, TheHintTurnsAtTheRightEdgeAndAtZero) {
    auto* w = kf();
    w->Timer1->setEnabled(false);   // stepped by hand here
    w->Label1->move(0, w->Label1->y());
    w->Timer1->setEnabled(true);
    for (int steps = 0; w->Timer1->Enabled() && steps < 1000; ++steps) w->Timer1_Timer();
    EXPECT_TRUE(w->Timer2->Enabled());
    EXPECT_GE(toTwips(w->Label1->x()), toTwips(w->frameGeometry().width()) - toTwips(w->Label1->width()));
    EXPECT_LT(toTwips(w->Label1->x()) - 100, toTwips(w->frameGeometry().width()) - toTwips(w->Label1->width()));
    for (int steps = 0; w->Timer2->Enabled() && steps < 1000; ++steps) w->Timer2_Timer();
    EXPECT_TRUE(w->Timer1->Enabled());
    EXPECT_LE(toTwips(w->Label1->x()), 0);
    EXPECT_GT(toTwips(w->Label1->x()), -100);
}

TEST_F(LibraryWindows, TheDocumentIsCentredAndANarrowWindowPutsItAtZero) {
    auto* w = kf();
    const int ole = toTwips(w->OLE1->width());
    struct Case { int width; int left; };
    for (Case c : {Case{15240, (15240 - ole) / 2}, Case{ole - 3000, 0}}) {
        w->resize(forms::twips(c.width), forms::twips(8595));
        w->show();
        EXPECT_NEAR(toTwips(w->OLE1->x()), c.left, 15) << c.width;
        EXPECT_EQ(w->OLE1->y(), forms::twips(270));
        EXPECT_NEAR(toTwips(w->OLE1->height()), 8595 - 540, 15);
        EXPECT_EQ(w->Picture4->x() + w->Picture4->width(), w->OLE1->x() + w->OLE1->width());
        EXPECT_EQ(w->Picture4->y(), 0);
    }
}

// Twice on a document, Esc closing the maximised viewer in between; then on a row with no document, which
// opens nothing.
TEST_F(LibraryWindows, AClickOnTheDocumentOpensItInFullEachTime) {
    auto* w = kf();
    w->MSRDC1->setConnect(shell::strLibraryCn1);
    forms::MsgBoxRecorder boxes;
    for (const QString name : {"2", "2", "none"}) {
        w->MSRDC1->setSQL(QStringLiteral("select fname from Kerala where name='%1' ").arg(name));
        w->MSRDC1->Refresh();
        w->OLE1->setDataField(QStringLiteral("fname"));
        w->OLE1_Click();
        documents::FullViewer* viewer = documents::FullViewer::existing();
        ASSERT_NE(viewer, nullptr);
        ASSERT_EQ(viewer->isVisible(), name != "none") << name.toStdString();
        if (name == "none") continue;
        EXPECT_TRUE(viewer->windowState() & Qt::WindowMaximized);
        EXPECT_EQ(viewer->view()->document(), w->OLE1->document());
        EXPECT_FALSE(w->OLE1->DataChanged());
        QTest::keyClick(viewer, Qt::Key_Escape);
        EXPECT_FALSE(viewer->isVisible());
    }
    EXPECT_TRUE(boxes.boxes().empty());
}
