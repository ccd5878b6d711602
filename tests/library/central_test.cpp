// The Central Sales Tax window as a user meets it: the tree of states, the toolbar bringing one page
// forward, a click on a page opening it in full with its links live, and the keys that run into objects
// never set, each reported while the window stays up.
#include "library/central.h"
#include "library_window_fixture.h"
#include "platform/documents/full_viewer.h"

#include <QScrollBar>
#include <QTextBlock>
#include <QTextBrowser>

namespace {

class CentralWindow : public LibraryWindows {   // the pages beside the library, in the program folder
protected:
    void SetUp() override {
        LibraryWindows::SetUp();
        const QDir pages(QStringLiteral(VORLAN_PROGRAM_DIR "/central"));
        ASSERT_TRUE(QDir(dir.path()).mkdir(QStringLiteral("central")));
        for (const QString& f : pages.entryList(QDir::Files))
            ASSERT_TRUE(QFile::copy(pages.filePath(f), dir.filePath(QStringLiteral("central/") + f)));
        forms::define(QStringLiteral("central"), [] { return new library::central; });
        forms::define(QStringLiteral("main"), [] { return new QWidget; });
    }
    void TearDown() override {
        if (auto* viewer = documents::FullViewer::existing()) viewer->hide();
        LibraryWindows::TearDown();
    }
    library::central* shown() {
        auto* w = forms::get<library::central>(QStringLiteral("central"));
        w->setWindowState(Qt::WindowNoState);
        w->resize(1000, 640);
        w->show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(w));
        return w;
    }
    // The right-hand controls the window shows, as "OLE1 Label3".
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
};

// Every link of the three pages leads to a file beside them, at a bookmark it holds: the forms page lists
// its ten forms in order, the Act's page reaches its sections' bookmarks up to "a32".
TEST_F(CentralWindow, EveryLinkOfThePagesLeadsToItsDocument) {
    const auto anchors = [](const QTextDocument& doc, bool names) {
        QStringList out;
        for (QTextBlock b = doc.begin(); b.isValid(); b = b.next())
            for (auto it = b.begin(); !it.atEnd(); ++it) {
                const QTextCharFormat f = it.fragment().charFormat();
                if (names) out += f.anchorNames();
                else if (!f.anchorHref().isEmpty() && !out.contains(f.anchorHref())) out << f.anchorHref();
            }
        return out;
    };
    auto* w = forms::get<library::central>(QStringLiteral("central"));
    QStringList actLinks;
    for (documents::OleContainer* page : {w->OLE1, w->OLE2, w->OLE3}) {
        const QStringList links = anchors(*page->textBrowser()->document(), false);
        ASSERT_FALSE(links.isEmpty());
        for (const QString& link : links) {
            documents::DocumentView target;
            QFile file(dir.filePath(QStringLiteral("central/") + link.section(u'#', 0, 0)));
            ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << link.toStdString();
            target.setDocument(file.readAll());
            const QString bookmark = link.section(u'#', 1);
            EXPECT_TRUE(bookmark.isEmpty() || anchors(*target.textBrowser()->document(), true).contains(bookmark)) << link.toStdString();
            if (page == w->OLE1) actLinks << bookmark;
        }
        if (page == w->OLE2) { EXPECT_EQ(links.join(' '), "FORMA.rtf FORMB.rtf FORM3.rtf FORMD.rtf FORMD1.rtf FORMD2.rtf FORMF.rtf FORMG.rtf FORMH.rtf FORMI.rtf"); }
    }
    for (int n = 10; n <= 32; ++n) EXPECT_TRUE(actLinks.contains(QStringLiteral("a%1").arg(n))) << n;
}

// Each sequence of presses, from a fresh window, and what the right-hand area shows after it.
TEST_F(CentralWindow, ToolbarBringsOnePageForward) {
    const struct { std::vector<const char*> keys; const char* shows; } cases[] = {
        {{}, ""}, {{"Act"}, "OLE1 Label3"}, {{"rul"}, "OLE3 Label3"}, {{"Act", "forms"}, "OLE2 Label3"},
        {{"forms", "rul", "Act"}, "OLE1 Label3"}, {{"circu"}, ""},
        {{"Act", "circu", "CP", "BP", "not", "sch", "jud", "Ali", "rec", "ca"}, "OLE1 Label3"},
    };
    for (const auto& c : cases) {
        forms::reset();
        auto* w = shown();
        for (const char* key : c.keys) press(w, key);
        EXPECT_EQ(visibleArea(w), QLatin1String(c.shows)) << c.keys.size();
    }
}

// "bac" hides the window as it is; "back" (no button carries it) unloads it, so it next shows fresh.
TEST_F(CentralWindow, LeavingByBacKeepsThePageAndByBackDropsIt) {
    auto* w = shown();
    press(w, "forms");
    press(w, "bac");
    EXPECT_TRUE(!w->isVisible() && forms::get(QStringLiteral("main"))->isVisible());
    w->show();
    EXPECT_EQ(visibleArea(w), QLatin1String("OLE2 Label3"));

    w->Toolbar2->ButtonClick(QStringLiteral("back"));
    EXPECT_TRUE(!w->isVisible() && forms::get(QStringLiteral("frmkerala"))->isVisible());
    w->Tvw->Nodes(1).setExpanded(false);
    w->show();
    EXPECT_EQ(visibleArea(w), QString());
    EXPECT_TRUE(w->Tvw->Nodes.Count() == 29 && w->Tvw->Nodes(1).Expanded());
}

// A click on a page opens it in full; a link there opens the document it names, at its bookmark.
TEST_F(CentralWindow, PageOpensInFullWithLiveLinks) {
    const struct { const char* key; bool byEnter; const char* link; const char* leadsTo; bool scrolls; } cases[] = {
        {"Act", false, "Power to make rules", "13. Power to make rules.", true},
        {"Act", true, "Declarations and certificates named", "Form D, with its parts D-1 and D-2", true},
        {"forms", true, "Return of turnover of a registered dealer", "FORM 3", false},
        {"rul", false, "Form H", "FORM H", false},
        {"rul", false, "section 6A", "6A. Burden of proof", true},
    };
    auto* w = shown();
    for (const auto& c : cases) {
        press(w, c.key);
        documents::OleContainer* page = w->OLE1->isVisibleTo(w) ? w->OLE1 : w->OLE2->isVisibleTo(w) ? w->OLE2 : w->OLE3;
        if (c.byEnter)   // the keyboard's click: Enter on the page
            QTest::keyClick(page->textBrowser(), Qt::Key_Return);
        else
            QTest::mouseClick(page->textBrowser()->viewport(), Qt::LeftButton, {}, QPoint(40, 40));
        documents::FullViewer* viewer = documents::FullViewer::existing();
        ASSERT_TRUE(viewer && viewer->isVisible()) << c.key;
        ASSERT_TRUE(QTest::qWaitForWindowExposed(viewer));
        EXPECT_EQ(viewer->view()->plainText(), page->plainText());

        QTextBrowser* browser = viewer->view()->textBrowser();
        QTextCursor link = browser->document()->find(QLatin1String(c.link));
        ASSERT_FALSE(link.isNull()) << c.link;
        link.setPosition(link.selectionStart() + 1);
        browser->setTextCursor(link);
        browser->ensureCursorVisible();
        QTest::mouseClick(browser->viewport(), Qt::LeftButton, {}, browser->cursorRect(link).center());
        EXPECT_TRUE(viewer->view()->plainText().contains(QLatin1String(c.leadsTo))) << c.link;
        EXPECT_EQ(browser->verticalScrollBar()->value() > 0, c.scrolls) << c.link;
        viewer->hide();
    }
    press(w, "rul");
    EXPECT_TRUE(w->OLE3->plainText().startsWith(QLatin1String("Short title extend and commencement")));
}

// The keys that reach objects nothing sets end in the run-time error box; the window stays as it was.
TEST_F(CentralWindow, UnsetObjectsAreReportedAndTheWindowStays) {
    const struct { const char* node; const char* key; bool enter; bool reported; } cases[] = {
        // Assam, Andhra Pradesh by Enter, chattisgarh, Delhi, Arunachal Pradesh by Enter; two toolbar keys.
        {"DEP", nullptr, false, true}, {"COM", nullptr, true, true}, {"EMP", nullptr, false, true},
        {"Del", nullptr, false, false}, {"CAT", nullptr, true, false}, {nullptr, "print", false, true},
        {nullptr, "dele", false, true},
    };
    const forms::RecordedBox unset{QStringLiteral("Run-time error '91':\n\nObject variable or With block variable not set"),
                                   16, QStringLiteral("Vorlan")};
    auto* w = shown();
    press(w, "Act");
    for (const auto& c : cases) {
        forms::MsgBoxRecorder boxes;
        if (c.key) {
            w->Toolbar2->ButtonClick(QLatin1String(c.key));
        } else {
            const forms::Node node = w->Tvw->Nodes(QLatin1String(c.node));
            w->Tvw->setSelectedItem(node);
            if (c.enter)
                QTest::keyClick(w->Tvw, Qt::Key_Return);
            else
                QTest::mouseDClick(w->Tvw->viewport(), Qt::LeftButton, {}, w->Tvw->visualItemRect(node.item()).center());
        }
        const char* name = c.node ? c.node : c.key;
        EXPECT_EQ(boxes.boxes(), c.reported ? std::vector{unset} : std::vector<forms::RecordedBox>{}) << name;
        EXPECT_TRUE(w->isVisible() && visibleArea(w) == QLatin1String("OLE1 Label3")) << name;
    }

    w->Tvw->setSelectedItem(w->Tvw->Nodes(QStringLiteral("Ker")));
    w->grab().save(screen(QStringLiteral("central.png")));
}

}  // namespace
