// frmkerala's list page on the sample library: the click that points the document window by toolbar key,
// the search box as the user types in it. The fills are driven from the nodes in section_handlers_test.
#include "library_window_fixture.h"

#include "shell/word_search.h"

namespace {

const QString kSearchHint = QStringLiteral(
    "Type the required words with space on priority in the search box and click this Button.To restore the "
    "datas, delete the search words and again press the button.");

using ListPage = KeralaWindow;

TEST_F(ListPage, ClickPointsTheDocumentByToolbarKey) {
    showActive();
    const QString cn1 = shell::strLibraryCn1, cn2 = shell::strLibraryCn2;
    // column: listed from Keralafields, nullptr the act sections; click nullptr: no entry chosen; sql "": not
    // pointed; found: the statement finds a document, which the window then holds.
    const struct { const char* key, *column, *click; QString connect, sql; bool found; } cases[] = {
        {"Act", nullptr, "1-2", cn1, "select fname from KERALA where name='1-2' and type='Act'", true},
        {"rul", nullptr, "1", cn1, "select fname from KERALA where name='1' and type='Rules'", false},
        {"forms", nullptr, "6A", cn1, "select fname from KERALA where name='6A'", true},
        // Listed up to the last hyphen, looked up behind the first.
        {"circu", "CircularNumber", "5-2008", cn1, "select fname from Kerala where name='2008-Works contract composition'", true},
        {"jud", "VatJudgmentSection", "Sec 6-Kerala Cashew Board", cn2,
         "select fname from Globalvatse where name='Kerala Cashew Board-Assessment appeal'", true},
        {"rec", "RJudjmentSection", "Sec 7", cn2, "select fname from Globalvatse where name='Unreported order'", false},
        {"rec", "RJudjmentSection", "Sec 5", cn1, "select fname from Globalvat where name='Malabar Tiles v. Commissioner'", true},
        // Ending in its hyphen, without one, no entry chosen: not pointed; "jud" sets its connect string first.
        {"not", "CircularNumber", "14/2008", "before", "", false},
        {"circu", "CircularNumber", "X", "before", "", false},
        {"jud", "VatJudgmentSection", "Sec 11", cn1, "", false},
        {"not", "NotificationNumber", nullptr, "before", "", false},
    };
    for (const auto& c : cases) {
        const std::string label = std::string(c.key) + ' ' + (c.click ? c.click : "(none)");
        w->CurrentToolbarKey = c.key;
        shell::wordSearchTable = "Keralafields";
        shell::wordSearchColumn = c.column ? c.column : "ActSection";
        shell::WordSearchToList(w->List1, shell::wordSearchTable, shell::wordSearchColumn, "", "ID");
        kf()->MSRDC1->setConnect("before");
        kf()->MSRDC1->setSQL("");
        const QByteArray shownBefore = kf()->OLE1->document();

        const int index = c.click ? int(listed().indexOf(c.click)) : -1;
        ASSERT_TRUE(!c.click || index >= 0) << label;
        index >= 0 ? w->List1->setListIndex(index) : w->List1_Click();  // the list raises its click

        EXPECT_EQ(w->Text1->text(), QString(c.click)) << label;
        EXPECT_EQ(kf()->MSRDC1->Connect(), c.connect) << label;
        EXPECT_EQ(kf()->MSRDC1->SQL(), c.sql) << label;
        EXPECT_EQ(kf()->OLE1->document(), c.sql.isEmpty() ? shownBefore : kf()->MSRDC1->bytes("fname")) << label;
        EXPECT_TRUE(c.sql.isEmpty() || kf()->OLE1->document().isEmpty() != c.found) << label;
        EXPECT_FALSE(kf()->isVisible()) << label;  // a click prepares, Go shows
    }
    EXPECT_TRUE(boxes.boxes().empty());

    // "O'Neil Agencies v. State" breaks the unquoted statements: the box, the document as it was.
    const QByteArray shown = kf()->OLE1->document();
    ASSERT_FALSE(shown.isEmpty());
    shell::wordSearchColumn = "RJudgmentCitation";
    w->CurrentToolbarKey = "rec";
    shell::WordSearchToList(w->List1, shell::wordSearchTable, shell::wordSearchColumn, "neil", "");
    ASSERT_EQ(listed(), QStringList{"(2001) 9 STC 7"});
    w->List1->setListIndex(0);
    ASSERT_EQ(boxes.boxes().size(), 1u);
    const forms::RecordedBox& box = boxes.boxes()[0];
    EXPECT_TRUE(box.text.startsWith("Exc on L1C : ") && box.text.contains(" | No: ")) << box.text.toStdString();
    EXPECT_EQ(std::pair(box.style, box.title), std::pair(int(forms::vbExclamation), QString("_IN_DEBUG")));
    EXPECT_EQ(kf()->OLE1->document(), shown);
}

TEST_F(ListPage, TypingJumpsThroughTheListEnterSearchesByWords) {
    showActive();
    // The route a user takes: the Act tree's node of the list, by Enter.
    w->Toolbar2_ButtonClick("Act");
    w->Tvw->setCurrentItem(w->Tvw->Nodes("Sectionwise").item());
    QTest::keyClick(w->Tvw, Qt::Key_Return);
    const std::tuple<const char*, int, const char*> steps[] = {
        {"6a", 3, "6A"}, {"x", -1, ""}, {"\b", 3, "6A"}, {"\b\b", 0, "1"}, {"-", 6, "-Levy of tax"}};
    for (const auto& [keys, index, name] : steps) {
        for (const char* k = keys; *k; ++k)
            *k == '\b' ? QTest::keyClick(w->Text3, Qt::Key_Backspace) : QTest::keyClicks(w->Text3, QString(QLatin1Char(*k)));
        EXPECT_EQ(w->List1->ListIndex(), index) << keys;
        EXPECT_EQ(w->Text1->text(), name) << keys;
        EXPECT_EQ(kf()->MSRDC1->SQL(), QStringLiteral("select fname from KERALA where name='%1' and type='Act'").arg(name));
        EXPECT_TRUE(w->Text3->hasFocus());
    }
    w->grab().save(screen("list-page.png"));

    w->Text3->setText("levy");
    QTest::keyClick(w->Text3, Qt::Key_Return);
    EXPECT_EQ(listed(), QStringList({"-Levy of tax", "6"}));
    // Emptied, the search brings the whole list back, in the order of the column.
    w->Text3->clear();
    w->List1->setFocus();
    EXPECT_EQ(w->StatusBar1->Panels(1).Text(), " ");
    QTest::mouseClick(w->Cmdwordsearch, Qt::LeftButton);
    EXPECT_EQ(listed(), QStringList({"-Levy of tax", "1-2", "1", "10", "2", "6", "6A", "7", "99"}));
    EXPECT_TRUE(w->Text3->hasFocus());
    EXPECT_EQ(w->StatusBar1->Panels(1).Text(), kSearchHint);
    // The box takes the focus at each change, and a box of blanks is emptied as it does.
    w->List1->setFocus();
    w->Text3->setText("   ");
    EXPECT_EQ(w->Text3->text(), "");
    EXPECT_TRUE(boxes.boxes().empty());
}

}  // namespace
