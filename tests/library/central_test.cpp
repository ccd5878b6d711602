// The Central Sales Tax window as a user meets it: the tree of states, the toolbar bringing one page
// forward, a click on a page opening it in full with its links live, and the keys that run into objects
// never set, each reported while the window stays up.
#include "library/central.h"
#include "platform/basic/app_path.h"
#include "platform/documents/document_view.h"
#include "platform/documents/full_viewer.h"
#include "platform/documents/ole_container.h"
#include "platform/forms/msgbox.h"
#include "platform/forms/toolbar.h"
#include "platform/forms/tree_view.h"
#include "platform/forms/window_registry.h"
#include "support/printers.h"
#include "support/qt_app.h"

#include <QDir>
#include <QFile>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBrowser>
#include <gtest/gtest.h>

namespace {

const QString kNotSet = QStringLiteral("Run-time error '91':\n\nObject variable or With block variable not set");

class CentralWindow : public ::testing::Test {
protected:
    void SetUp() override {
        ensureApp();
        ASSERT_TRUE(dir.isValid());
        const QDir pages(QStringLiteral(VORLAN_PROGRAM_DIR "/central"));
        ASSERT_TRUE(QDir(dir.path()).mkdir(QStringLiteral("central")));
        for (const QString& f : pages.entryList(QDir::Files))
            ASSERT_TRUE(QFile::copy(pages.filePath(f), dir.filePath(QStringLiteral("central/") + f))) << f.toStdString();
        ASSERT_GE(pages.entryList(QDir::Files).size(), 4);
        basic::SetAppPath(dir.path());
        forms::reset();
        forms::define(QStringLiteral("central"), [] { return new library::central; });
        forms::define(QStringLiteral("main"), [] { return new QWidget; });
        forms::define(QStringLiteral("frmkerala"), [] { return new QWidget; });
    }
    void TearDown() override {
        if (auto* viewer = documents::FullViewer::existing()) viewer->hide();
        forms::reset();
        basic::SetAppPath(QString());
    }
    library::central* shown() {
        auto* w = forms::get<library::central>(QStringLiteral("central"));
        w->setWindowState(Qt::WindowNoState);
        w->resize(1000, 640);
        w->show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(w));
        return w;
    }
    // Which of the right-hand controls the window shows, as "OLE1 Label3".
    static QString visibleArea(library::central* w) {
        QStringList names;
        const std::pair<QWidget*, const char*> area[] = {
            {w->OLE1, "OLE1"}, {w->OLE2, "OLE2"}, {w->OLE3, "OLE3"}, {w->Label3, "Label3"}};
        for (const auto& [control, name] : area)
            if (control->isVisibleTo(w)) names << QLatin1String(name);
        return names.join(QLatin1Char(' '));
    }
    static void press(library::central* w, const char* key) {
        w->Toolbar2->Buttons(QLatin1String(key)).action()->trigger();
    }
    // Clicks the link whose text is `text` in the viewer.
    static void clickLink(documents::DocumentView* view, const QString& text) {
        QTextBrowser* browser = view->textBrowser();
        QTextCursor cursor = browser->document()->find(text);
        ASSERT_FALSE(cursor.isNull()) << text.toStdString();
        cursor.setPosition(cursor.selectionStart() + 1);
        browser->setTextCursor(cursor);
        browser->ensureCursorVisible();
        QTest::mouseClick(browser->viewport(), Qt::LeftButton, {}, browser->cursorRect(cursor).center());
    }

    QTemporaryDir dir;
};

TEST_F(CentralWindow, LoadsWithTheTreeOfStatesAndNoPage) {
    auto* w = forms::get<library::central>(QStringLiteral("central"));
    EXPECT_EQ(w->windowTitle(), QLatin1String("Central sales Act"));
    EXPECT_TRUE(w->windowState() & Qt::WindowMaximized);
    EXPECT_EQ(visibleArea(w), QString());
    EXPECT_EQ(w->Tvw->ToolTipText(), QLatin1String("double click on each state to get details"));

    ASSERT_EQ(w->Tvw->Nodes.Count(), 29);
    const struct { int index; const char* key; const char* text; } nodes[] = {
        {1, "One", "States"}, {2, "Two", "States"}, {3, "COM", "Andhra Pradesh"}, {5, "DEP", "Assam"},
        {7, "EMP", "chattisgarh"}, {8, "Del", "Delhi"}, {16, "Ker", "Kerala"}, {29, "We", "West Bangal"}};
    for (const auto& n : nodes) {
        EXPECT_EQ(w->Tvw->Nodes(n.index).Key(), QLatin1String(n.key));
        EXPECT_EQ(w->Tvw->Nodes(n.index).Text(), QLatin1String(n.text));
    }
    QTreeWidgetItem* root = w->Tvw->Nodes(1).item();
    EXPECT_EQ(w->Tvw->topLevelItemCount(), 1);
    EXPECT_EQ(root->childCount(), 28) << "every other node hangs from the root, the second \"States\" too";
    EXPECT_TRUE(w->Tvw->Nodes(1).Expanded());
}

// Each sequence of presses, from a fresh window, and what the right-hand area shows after it.
TEST_F(CentralWindow, ToolbarBringsOnePageForward) {
    const struct { std::vector<const char*> keys; const char* shows; } cases[] = {
        {{"Act"}, "OLE1 Label3"},
        {{"rul"}, "OLE3 Label3"},
        {{"forms"}, "OLE2 Label3"},
        {{"Act", "forms"}, "OLE2 Label3"},
        {{"forms", "rul", "Act"}, "OLE1 Label3"},
        {{"circu"}, ""},
        {{"Act", "circu", "CP", "BP", "not", "sch", "jud", "Ali", "rec", "ca"}, "OLE1 Label3"},
    };
    for (const auto& c : cases) {
        forms::reset();
        auto* w = shown();
        for (const char* key : c.keys) press(w, key);
        EXPECT_EQ(visibleArea(w), QLatin1String(c.shows)) << c.keys.back();
        EXPECT_TRUE(w->isVisible());
    }
}

TEST_F(CentralWindow, BackHidesAndMainReturnsKeepingThePage) {
    auto* w = shown();
    press(w, "forms");
    press(w, "bac");
    EXPECT_FALSE(w->isVisible());
    EXPECT_TRUE(forms::get(QStringLiteral("main"))->isVisible());
    EXPECT_FALSE(forms::get(QStringLiteral("frmkerala"))->isVisible());
    w->show();
    EXPECT_EQ(visibleArea(w), QLatin1String("OLE2 Label3"));

    // The key "back" (no button carries it) unloads: the next showing starts as a fresh window.
    w->Toolbar2->ButtonClick(QStringLiteral("back"));
    EXPECT_FALSE(w->isVisible());
    EXPECT_TRUE(forms::get(QStringLiteral("frmkerala"))->isVisible());
    w->Tvw->Nodes(1).setExpanded(false);
    w->show();
    EXPECT_EQ(visibleArea(w), QString());
    EXPECT_EQ(w->Tvw->Nodes.Count(), 29);
    EXPECT_TRUE(w->Tvw->Nodes(1).Expanded());
}

// A click on a page opens it in full; its links open the documents it lists, at their bookmarks.
TEST_F(CentralWindow, PageOpensInFullWithLiveLinks) {
    const struct { const char* key; const char* opensWith; const char* link; const char* leadsTo; bool scrolls; } cases[] = {
        {"Act", "THE CENTRAL SALES TAX ACT, 1956", "Power to make rules", "13. Power to make rules.", true},
        {"forms", "FORMS UNDER THE CENTRAL SALES TAX ACT, 1956", "Form of declaration by the purchasing dealer",
         "FORM C", false},
        {"rul", "Short title extend and commencement", "Form H", "FORM H", false},
        {"rul", "Short title extend and commencement", "section 6A", "6A. Burden of proof", true},
    };
    auto* w = shown();
    documents::OleContainer* pages[] = {w->OLE1, w->OLE2, w->OLE3};
    for (const auto& c : cases) {
        press(w, c.key);
        documents::OleContainer* page = *std::find_if(std::begin(pages), std::end(pages),
                                                     [w](QWidget* p) { return p->isVisibleTo(w); });
        ASSERT_TRUE(page->plainText().startsWith(QLatin1String(c.opensWith))) << c.key;
        QTest::mouseClick(page->textBrowser()->viewport(), Qt::LeftButton, {}, QPoint(40, 40));

        documents::FullViewer* viewer = documents::FullViewer::existing();
        ASSERT_NE(viewer, nullptr);
        ASSERT_TRUE(viewer->isVisible()) << c.key;
        ASSERT_TRUE(QTest::qWaitForWindowExposed(viewer));
        EXPECT_EQ(viewer->view()->plainText(), page->plainText());

        clickLink(viewer->view(), QLatin1String(c.link));
        const QString text = viewer->view()->plainText();
        EXPECT_TRUE(text.contains(QLatin1String(c.leadsTo))) << c.link;
        EXPECT_NE(text, page->plainText()) << c.link;
        QScrollBar* bar = viewer->view()->textBrowser()->verticalScrollBar();
        EXPECT_EQ(bar->value() > 0, c.scrolls) << c.link;
        viewer->hide();
    }
}

// The keys that reach objects nothing sets end in the run-time error box; the window stays as it was.
TEST_F(CentralWindow, UnsetObjectsAreReportedAndTheWindowStays) {
    const struct { const char* node; const char* key; bool enter; bool reported; } treeCases[] = {
        {"DEP", nullptr, false, true},   // Assam
        {"COM", nullptr, true, true},    // Andhra Pradesh, by Enter
        {"EMP", nullptr, false, true},   // chattisgarh
        {"Del", nullptr, false, false},  // Delhi
        {"CAT", nullptr, true, false},   // Arunachal Pradesh
        {nullptr, "print", false, true},
        {nullptr, "dele", false, true},
        {nullptr, "CP", false, false},
    };
    auto* w = shown();
    press(w, "Act");
    for (const auto& c : treeCases) {
        forms::MsgBoxRecorder boxes;
        if (c.key) {
            w->Toolbar2->ButtonClick(QLatin1String(c.key));
        } else {
            forms::Node node = w->Tvw->Nodes(QLatin1String(c.node));
            w->Tvw->setSelectedItem(node);
            if (c.enter) {
                QTest::keyClick(w->Tvw, Qt::Key_Return);
            } else {
                const QPoint at = w->Tvw->visualItemRect(node.item()).center();
                QTest::mouseDClick(w->Tvw->viewport(), Qt::LeftButton, {}, at);
            }
        }
        const char* name = c.node ? c.node : c.key;
        if (c.reported) {
            ASSERT_EQ(boxes.boxes().size(), 1u) << name;
            EXPECT_EQ(boxes.boxes()[0].text, kNotSet) << name;
        } else {
            EXPECT_TRUE(boxes.boxes().empty()) << name;
        }
        EXPECT_TRUE(w->isVisible()) << name;
        EXPECT_EQ(visibleArea(w), QLatin1String("OLE1 Label3")) << name;
    }

    if (qEnvironmentVariableIsSet("VORLAN_SCREENS")) {
        w->Tvw->setSelectedItem(w->Tvw->Nodes(QStringLiteral("Ker")));
        w->grab().save(VORLAN_SOURCE_DIR "/docs/screens/central.png");
    }
}

TEST_F(CentralWindow, ProgramFolderWithoutPagesGivesEmptyPages) {
    QDir(dir.filePath(QStringLiteral("central"))).removeRecursively();
    forms::MsgBoxRecorder boxes;
    auto* w = shown();
    press(w, "Act");
    EXPECT_EQ(visibleArea(w), QLatin1String("OLE1 Label3"));
    EXPECT_EQ(w->OLE1->kind(), documents::Kind::None);
    if (auto* viewer = documents::FullViewer::existing()) viewer->hide();
    w->OLE1_Click();
    EXPECT_TRUE(documents::FullViewer::existing() == nullptr || !documents::FullViewer::existing()->isVisible());
    EXPECT_TRUE(boxes.boxes().empty());
}

}  // namespace
