// frmGlobalSections on the sample library, driven as a user drives it.
#include "library_window_fixture.h"

#include <QHeaderView>
#include <QPlainTextEdit>
#include <QSignalSpy>

using library::frmGlobalSections;

namespace {

const QString kActList = QStringLiteral(
    "SELECT name & ' ' & SecDesc AS Search, name, SecDesc, id FROM Kerala WHERE type='Act' ORDER BY id");

}  // namespace

class GridWindow : public LibraryWindows {
protected:
    // The calling order of every owner: properties, then LoadGridData.
    frmGlobalSections* open(const QString& query, bool dontShow = false) {
        auto* w = new frmGlobalSections;
        owned.reset(w);
        w->setDontShowOleForm(dontShow);
        w->setRecSet(shell::getRecordSetByCn(query, shell::cnLibrary1));
        w->setHeader(QStringLiteral("Sections"));
        w->setAutoSizeColumnIndex(2);
        w->setSearchColumnIndex(1);
        w->setDetailIndex(2);
        w->setHiddenIDIndex(3);
        w->setConnectionString(shell::strLibraryCn1);
        w->setOleTableName(QStringLiteral("Kerala"));
        w->setOleColumnName(QStringLiteral("fname"));
        w->setPredicateColumnName(QStringLiteral("name"));
        w->setPredicateValueColumnIndex(1);
        w->LoadGridData();
        return w;
    }
    std::unique_ptr<frmGlobalSections> owned;
};

TEST_F(GridWindow, DoubleClicksOnAnEmptyListDoNothing) {
    auto* w = open(QStringLiteral("SELECT name AS Search, name, SecDesc, id FROM Kerala WHERE 1=0"));
    int go = 0;
    QObject::connect(w, &frmGlobalSections::GoClicked, [&] { ++go; });
    w->show();
    QTest::mouseDClick(w->DataGrid1->viewport(), Qt::LeftButton);
    QTest::mouseDClick(w->txtSearch, Qt::LeftButton);
    QTest::mouseDClick(w->txtDetail->viewport(), Qt::LeftButton);
    EXPECT_EQ(go, 0);
    EXPECT_FALSE(forms::exists(QStringLiteral("keralaforms")));
}

TEST_F(GridWindow, LoadHidesTheSearchColumnAndTheKeyButKeepsALoneColumn) {
    const struct { QString query; int hiddenId; std::vector<bool> visible; } cases[] = {
        {kActList, 3, {false, true, true, false}},
        {kActList, 9, {false, true, true, true}},           // out of range hides nothing more
        {QStringLiteral("SELECT name FROM Kerala WHERE type='Act'"), -1, {true}},
    };
    for (const auto& c : cases) {
        auto* w = open(c.query);
        w->setHiddenIDIndex(c.hiddenId);
        w->LoadGridData();
        ASSERT_EQ(w->DataGrid1->ColumnCount(), int(c.visible.size())) << c.query.toStdString();
        for (int i = 0; i < w->DataGrid1->ColumnCount(); ++i) {
            EXPECT_EQ(w->DataGrid1->ColumnVisible(i), c.visible[size_t(i)]) << c.query.toStdString() << " column " << i;
            EXPECT_TRUE(w->DataGrid1->ColumnLocked(i));
        }
        EXPECT_TRUE(w->cmdGO->isEnabled());
    }
}

TEST_F(GridWindow, AutoSizeColumnFillsTheFreeWidthOnlyForAnIndexAboveZero) {
    for (int index : {0, 2, 4}) {
        auto* w = open(kActList);
        w->resize(forms::twips(12000), forms::twips(9000));
        w->DataGrid1->setColumnWidth(1, 1000);
        w->DataGrid1->setColumnWidth(2, 2000);
        w->setAutoSizeColumnIndex(std::int16_t(index));
        w->AutoSizeColumn();
        const int others = 1000 + 273;   // columns 0 and 3 are hidden at width 0
        const std::vector<int> widths = {0, 1000, 2000, 0};
        for (int c = 0; c < 4; ++c) {
            const bool sized = c == index && index > 0 && index < 4;
            const int expected = sized ? w->DataGrid1->Width() - others : widths[size_t(c)];
            EXPECT_EQ(w->DataGrid1->ColumnWidth(c), expected) << "index " << index << " column " << c;
        }
    }
}

// The detail follows the row, arrows in the search box stop at the ends, Ctrl+Backspace empties the box,
// and typing in the grid goes to the search box unless Ctrl is down.
TEST_F(GridWindow, KeysOfTheSearchBoxAndTheGrid) {
    auto* w = open(kActList);
    w->show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(w));
    const long rows = w->DataGrid1->RowCount();
    ASSERT_GT(rows, 2);
    EXPECT_EQ(w->txtDetail->toPlainText(), w->DataGrid1->ColumnText(2));
    QTest::keyClick(w->txtSearch, Qt::Key_Up);
    EXPECT_EQ(w->DataGrid1->Row(), 0);
    for (long i = 0; i < rows + 3; ++i) QTest::keyClick(w->txtSearch, Qt::Key_Down);
    EXPECT_EQ(w->DataGrid1->Row(), rows - 1);
    EXPECT_EQ(w->DataGrid1->SelBookmarksCount(), 1);
    EXPECT_EQ(w->DataGrid1->SelBookmarks(0), w->DataGrid1->Bookmark());
    EXPECT_EQ(w->txtDetail->toPlainText(), w->DataGrid1->ColumnText(2));
    EXPECT_TRUE(w->txtSearch->text().isEmpty());

    QTest::keyClicks(w->txtSearch, QStringLiteral("def"));
    QTest::keyClick(w->txtSearch, Qt::Key_Backspace);
    EXPECT_EQ(w->txtSearch->text(), QStringLiteral("de"));
    QTest::keyClick(w->txtSearch, Qt::Key_Backspace, Qt::ControlModifier);
    EXPECT_EQ(w->txtSearch->text(), QString());

    for (bool ctrl : {true, false}) {
        w->DataGrid1->setFocus();
        ASSERT_TRUE(w->DataGrid1->hasFocus());
        QTest::keyClick(w->DataGrid1, Qt::Key_A, ctrl ? Qt::ControlModifier : Qt::NoModifier);
        EXPECT_EQ(w->DataGrid1->hasFocus(), ctrl);
        EXPECT_EQ(w->txtSearch->hasFocus(), !ctrl);
    }
}

TEST_F(GridWindow, CloseBoxHidesAndRaisesBackClickedKeepingTheFilter) {
    auto* w = open(kActList);
    QSignalSpy back(w, &frmGlobalSections::BackClicked);
    w->show();
    const long all = w->DataGrid1->RowCount();
    w->txtSearch->setText(QStringLiteral("defin"));
    const long filtered = w->DataGrid1->RowCount();
    EXPECT_LT(filtered, all);
    w->close();   // Back itself is driven from the browser's nodes
    EXPECT_FALSE(w->isVisible());
    ASSERT_EQ(back.count(), 1);
    EXPECT_EQ(back[0][0].value<frmGlobalSections*>(), w);
    w->show();
    EXPECT_EQ(w->txtSearch->text(), QStringLiteral("defin"));
    EXPECT_EQ(w->DataGrid1->RowCount(), filtered);
}

TEST_F(GridWindow, ARowDraggedOutOfItsBoundsFallsBack) {
    auto* w = open(kActList);
    w->show();
    const std::vector<std::pair<int, int>> cases = {{1500, 1000}, {100, 300}, {600, 600}};
    for (auto [dragged, expected] : cases) {
        w->DataGrid1->verticalHeader()->resizeSection(1, forms::twips(dragged));
        EXPECT_EQ(w->DataGrid1->RowHeight(), expected) << dragged;
        EXPECT_EQ(w->DataGrid1->rowHeight(0), forms::twips(expected));
        EXPECT_EQ(w->DataGrid1->rowHeight(1), forms::twips(expected));
    }
}

// A double click on the detail box shows the row's document, of the kind its bytes tell; a key with no row
// falls to the stand-by document. VORLAN_SCREENS=1 keeps the README's pictures.
TEST_F(GridWindow, GoShowsTheDocumentOrTheStandByOne) {
    const bool screens = qEnvironmentVariableIsSet("VORLAN_SCREENS");
    auto* w = open(kActList);
    w->setHeader(QStringLiteral("Sections of the Act"));
    w->resize(forms::twips(13500), forms::twips(8000));
    w->show();
    if (screens) w->grab().save(VORLAN_SOURCE_DIR "/docs/screens/frmGlobalSections.png");
    const struct { const char* key; documents::Kind kind; const char* text; const char* file; } cases[] = {
        {"2", documents::Kind::Html, "Definitions", "keralaforms-html.png"},
        {"1", documents::Kind::Rtf, "", "keralaforms-rtf.png"},
    };
    for (const auto& c : cases) {
        w->txtSearch->setText(c.key);
        while (w->DataGrid1->ColumnText(1) != c.key) QTest::keyClick(w->txtSearch, Qt::Key_Down);
        QTest::mouseDClick(w->txtDetail->viewport(), Qt::LeftButton);
        ASSERT_TRUE(forms::exists(QStringLiteral("keralaforms")));
        EXPECT_TRUE(kf()->isVisible());
        EXPECT_EQ(kf()->MSRDC1->SQL(), QStringLiteral("select fname from Kerala where name='%1' ").arg(c.key));
        EXPECT_EQ(kf()->OLE1->kind(), c.kind) << c.key;
        EXPECT_TRUE(kf()->OLE1->plainText().contains(QLatin1String(c.text), Qt::CaseInsensitive)) << c.key;
        kf()->resize(forms::twips(13000), forms::twips(8000));
        if (screens) kf()->grab().save(VORLAN_SOURCE_DIR "/docs/screens/" + QString(c.file));
    }

    w->setOleTableName(QStringLiteral("Globalvat"));
    w->cmdGO_Click();
    EXPECT_TRUE(kf()->MSRDC1->SQL().contains(QStringLiteral("'default'")));
    EXPECT_FALSE(kf()->OLE1->document().isEmpty());
}

TEST_F(GridWindow, GoOnAKeyWithAnApostropheShowsItsBox) {
    auto* w = open(QStringLiteral("SELECT 'x' AS Search, 'O''Brien' AS K"));
    w->setPredicateValueColumnIndex(1);
    forms::MsgBoxRecorder boxes;
    w->cmdGO_Click();
    ASSERT_EQ(boxes.boxes().size(), 2u);   // the shell's own box, then ours
    EXPECT_TRUE(boxes.boxes()[1].text.startsWith(QStringLiteral("Error on cmdGO_Click() \n")));
    EXPECT_EQ(std::pair(boxes.boxes()[1].style, boxes.boxes()[1].title), std::pair(0, forms::standardTitle()));
}
