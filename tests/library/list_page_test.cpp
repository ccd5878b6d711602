// frmkerala's list page on the sample library: the fills of the dormant tree keys, the click that points
// the document window by toolbar key, the search box as the user types in it.
#include "library/frm_kerala.h"
#include "library/keralaforms.h"
#include "platform/forms/list_box.h"
#include "platform/forms/msgbox.h"
#include "platform/forms/status_bar.h"
#include "platform/forms/window_registry.h"
#include "shell/library_fixture.h"
#include "shell/word_search.h"

#include <QDir>
#include <QTest>
#include <optional>

using library::frmkerala;
using library::keralaforms;

namespace {

const QString kSelectHint = QStringLiteral(
    "Select the required item from list box by search or manual and press Go button to display the data");
const QString kSearchHint = QStringLiteral(
    "Type the required words with space on priority in the search box and click this Button.To restore the "
    "datas, delete the search words and again press the button.");

// The bytes of a sample document, by the row that names it.
QByteArray sampleDocument(const QString& table, const QString& name) {
    for (const auto& row : sampleRows(table))
        if (row.value(QStringLiteral("name")) == name) {
            QFile f(QStringLiteral(VORLAN_SOURCE_DIR "/data/library/documents/") + row.value(QStringLiteral("fname")));
            return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
        }
    ADD_FAILURE() << "no row " << name.toStdString() << " in " << table.toStdString();
    return {};
}

class ListPage : public LibraryFixture {
protected:
    void SetUp() override {
        LibraryFixture::SetUp();
        forms::reset();
        forms::define(QStringLiteral("main"), [] { return new QWidget; });
        forms::define(QStringLiteral("keralaforms"), [] { return new keralaforms; });
        forms::define(QStringLiteral("frmkerala"), [] { return new frmkerala; });
        w = forms::get<frmkerala>(QStringLiteral("frmkerala"));
        kf = forms::get<keralaforms>(QStringLiteral("keralaforms"));
        w->setWindowState(Qt::WindowNoState);
        w->resize(1366, 768);
        w->show();
        w->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(w));
    }
    void TearDown() override {
        forms::reset();
        LibraryFixture::TearDown();
    }
    // The entry drawn on top at the Go (or Back) buttons' common spot.
    QWidget* onTop(QPushButton* b) const { return w->Frame2->childAt(b->geometry().center()); }
    QStringList listed() const {
        QStringList all;
        for (int i = 0; i < w->List1->ListCount(); ++i) all << w->List1->List(i);
        return all;
    }
    QString status() const { return w->StatusBar1->Panels(1).Text(); }

    forms::MsgBoxRecorder boxes;
    frmkerala* w = nullptr;
    keralaforms* kf = nullptr;
};

TEST_F(ListPage, SectionwiseListsTheActSectionsCutAtTheLastHyphen) {
    w->Toolbar2_ButtonClick(QStringLiteral("Act"));
    w->FillSectionwiseList();

    // "1-2-Sale within the State" lists as 1-2; "-Levy of tax" whole; the empty text and Null not at all.
    EXPECT_EQ(listed(), QStringList({"1", "2", "6", "6A", "1-2", "10", "-Levy of tax", "99", "7"}));
    for (int i = 0; i < w->List1->ListCount(); ++i) EXPECT_EQ(w->List1->ItemData(i), i + 1);
    EXPECT_EQ(shell::wordSearchTable, QStringLiteral("Keralafields"));
    EXPECT_EQ(shell::wordSearchColumn, QStringLiteral("ActSection"));
    EXPECT_EQ(shell::wordSearchOrderBy, QStringLiteral("ActSection"));
    EXPECT_TRUE(w->Frame2->isVisible());
    EXPECT_FALSE(w->Frame1->isVisible());
    EXPECT_EQ(onTop(w->cmdactgo), w->cmdactgo);
    EXPECT_EQ(onTop(w->cmdactback), w->cmdactback);
    EXPECT_TRUE(w->Text3->hasFocus());
    EXPECT_EQ(status(), kSelectHint);
    EXPECT_TRUE(boxes.boxes().empty());
}

TEST_F(ListPage, IndexAndFullTextPutTheirOneEntryWithoutWordSearch) {
    struct Case {
        const char* key;
        const char* entry;
        bool searchBoxFocused;
    };
    for (const Case& c : {Case{"Index", "Index to Rules", false}, Case{"FullText", "Full Text of Rules", true}}) {
        w->FillSectionwiseList();
        w->List1->setFocus();
        w->StatusBar1->Panels(1).setText(QStringLiteral("before"));
        w->FillRulesList(QString::fromUtf8(c.key));
        EXPECT_EQ(listed(), QStringList{QString::fromUtf8(c.entry)}) << c.key;
        EXPECT_TRUE(shell::wordSearchTable.isEmpty() && shell::wordSearchColumn.isEmpty() &&
                    shell::wordSearchOrderBy.isEmpty());
        EXPECT_EQ(onTop(w->cmdrulego), w->cmdrulego) << c.key;
        EXPECT_EQ(onTop(w->cmdruleback), w->cmdruleback) << c.key;
        EXPECT_EQ(w->Text3->hasFocus(), c.searchBoxFocused) << c.key;
        // With no column to search, neither hint comes up.
        EXPECT_EQ(status(), QStringLiteral("before")) << c.key;
    }
}

TEST_F(ListPage, ClickPointsTheDocumentByToolbarKey) {
    const QString cn1 = shell::strLibraryCn1, cn2 = shell::strLibraryCn2, before = QStringLiteral("before");
    struct Case {
        const char* key;
        const char* column;       // the Keralafields column listed; nullptr: the entries below
        QStringList entries;
        const char* click;        // nullptr: no entry chosen
        QString connect, sql;
        std::optional<std::pair<QString, QString>> document;  // table and name of the row shown
    };
    const Case cases[] = {
        {"Act", "ActSection", {}, "1-2", cn1, "select fname from KERALA where name='1-2' and type='Act'",
         {{"Kerala", "1-2"}}},
        {"rul", nullptr, {"Rule 9"}, "Rule 9", cn1, "select fname from KERALA where name='Rule 9' and type='Rules'",
         {{"Kerala", "Rule 9"}}},
        {"forms", nullptr, {"FORM 1"}, "FORM 1", cn1, "select fname from KERALA where name='FORM 1'",
         {{"Kerala", "FORM 1"}}},
        // Listed up to the last hyphen, looked up behind the first.
        {"circu", "CircularNumber", {}, "5-2008", cn1,
         "select fname from Kerala where name='2008-Works contract composition'",
         {{"Kerala", "2008-Works contract composition"}}},
        {"not", "NotificationNumber", {}, "SRO 82/2006", cn1, "select fname from Kerala where name='SRO 82/2006'",
         {{"Kerala", "SRO 82/2006"}}},
        {"jud", "VatJudgmentSection", {}, "Sec 6-Kerala Cashew Board", cn2,
         "select fname from Globalvatse where name='Kerala Cashew Board-Assessment appeal'",
         {{"Globalvatse", "Kerala Cashew Board-Assessment appeal"}}},
        {"rec", "RJudjmentSection", {}, "Sec 5", cn1,
         "select fname from Globalvat where name='Malabar Tiles v. Commissioner'",
         {{"Globalvat", "Malabar Tiles v. Commissioner"}}},
        // In neither table: Globalvatse, and nothing to show.
        {"rec", "RJudjmentSection", {}, "Sec 7", cn2, "select fname from Globalvatse where name='Unreported order'",
         {{"", ""}}},
        // A value ending in its hyphen, one without a hyphen, no entry chosen: the document is not pointed;
        // "jud" has set its connect string before it looks.
        {"circu", "CircularNumber", {}, "14/2008", before, before, std::nullopt},
        {"circu", "CircularNumber", {}, "X", before, before, std::nullopt},
        {"jud", "VatJudgmentSection", {}, "Sec 11", cn1, before, std::nullopt},
        {"not", "NotificationNumber", {}, nullptr, before, before, std::nullopt},
        {"jud", "VatJudgmentSection", {}, nullptr, cn1, before, std::nullopt},
    };
    for (const Case& c : cases) {
        const QString label = QString::fromUtf8(c.key) + u' ' + QString::fromUtf8(c.click ? c.click : "(none)");
        w->CurrentToolbarKey = QString::fromUtf8(c.key);
        if (c.column) {
            shell::wordSearchTable = QStringLiteral("Keralafields");
            shell::wordSearchColumn = QString::fromUtf8(c.column);
            shell::WordSearchToList(w->List1, shell::wordSearchTable, shell::wordSearchColumn, QString(),
                                    QStringLiteral("ID"));
        } else {
            w->List1->Clear();
            for (const QString& e : c.entries) w->List1->AddItem(e);
        }
        kf->MSRDC1->setConnect(before);
        kf->MSRDC1->setSQL(before);
        const QByteArray shownBefore = kf->OLE1->document();

        const int index = c.click ? static_cast<int>(listed().indexOf(QString::fromUtf8(c.click))) : -1;
        ASSERT_TRUE(!c.click || index >= 0) << label.toStdString();
        if (index >= 0)
            w->List1->setListIndex(index);  // the list raises its click
        else
            w->List1_Click();

        EXPECT_EQ(w->Text1->text(), QString::fromUtf8(c.click ? c.click : "")) << label.toStdString();
        EXPECT_EQ(kf->MSRDC1->Connect(), c.connect) << label.toStdString();
        EXPECT_EQ(kf->MSRDC1->SQL(), c.sql) << label.toStdString();
        if (c.document) {
            EXPECT_EQ(kf->OLE1->DataField(), QStringLiteral("fname")) << label.toStdString();
            const QByteArray expected =
                c.document->first.isEmpty() ? QByteArray() : sampleDocument(c.document->first, c.document->second);
            EXPECT_EQ(kf->OLE1->document(), expected) << label.toStdString();
        } else {
            EXPECT_EQ(kf->OLE1->document(), shownBefore) << label.toStdString();
        }
        EXPECT_FALSE(kf->isVisible()) << label.toStdString();  // a click prepares, Go shows
    }
    EXPECT_TRUE(boxes.boxes().empty());
}

TEST_F(ListPage, AFailedClickShowsItsBoxAndKeepsTheDocument) {
    w->CurrentToolbarKey = QStringLiteral("rec");
    shell::wordSearchTable = QStringLiteral("Keralafields");
    shell::wordSearchColumn = QStringLiteral("RJudgmentCitation");
    shell::WordSearchToList(w->List1, shell::wordSearchTable, shell::wordSearchColumn, QStringLiteral("neil"),
                            QString());
    ASSERT_EQ(listed(), QStringList{"(2001) 9 STC 7"});
    kf->MSRDC1->setConnect(shell::strLibraryCn1);
    kf->MSRDC1->setSQL(QStringLiteral("select fname from Kerala where name='1'"));
    kf->MSRDC1->Refresh();
    kf->OLE1->setDataField(QStringLiteral("fname"));
    const QByteArray shown = kf->OLE1->document();
    ASSERT_FALSE(shown.isEmpty());

    w->List1->setListIndex(0);  // the list raises its click
    w->List1_Click();
    ASSERT_EQ(boxes.boxes().size(), 2u);  // the list's own click, then ours
    const forms::RecordedBox& box = boxes.boxes()[1];
    // The apostrophe of "O'Neil Agencies v. State" breaks the statements, which are not quoted.
    EXPECT_TRUE(box.text.startsWith(QStringLiteral("Exc on L1C : "))) << box.text.toStdString();
    EXPECT_TRUE(box.text.contains(QStringLiteral(" | No: "))) << box.text.toStdString();
    EXPECT_EQ(box.style, forms::vbExclamation);
    EXPECT_EQ(box.title, QStringLiteral("_IN_DEBUG"));
    EXPECT_EQ(boxes.boxes()[0], box);
    EXPECT_EQ(kf->OLE1->document(), shown);
}

TEST_F(ListPage, TypingJumpsThroughTheListAndPreparesTheDocument) {
    w->Toolbar2_ButtonClick(QStringLiteral("Act"));
    w->FillSectionwiseList();
    struct Step {
        const char* keys;   // typed into the search box; "\b" is a backspace
        int index;
        const char* name;
    };
    const Step steps[] = {{"6a", 3, "6A"}, {"x", -1, ""}, {"\b", 3, "6A"}, {"\b", 2, "6"}, {"\b", 0, "1"},
                          {"-l", 6, "-Levy of tax"}};
    for (const Step& s : steps) {
        for (const char* k = s.keys; *k; ++k) {
            if (*k == '\b')
                QTest::keyClick(w->Text3, Qt::Key_Backspace);
            else
                QTest::keyClicks(w->Text3, QString(QChar::fromLatin1(*k)));
        }
        EXPECT_EQ(w->List1->ListIndex(), s.index) << w->Text3->text().toStdString();
        EXPECT_EQ(w->Text1->text(), QString::fromUtf8(s.name)) << w->Text3->text().toStdString();
        EXPECT_EQ(kf->MSRDC1->SQL(), QStringLiteral("select fname from KERALA where name='") +
                                         QString::fromUtf8(s.name) + QStringLiteral("' and type='Act'"));
        EXPECT_TRUE(w->Text3->hasFocus());
    }
    EXPECT_TRUE(boxes.boxes().empty());
}

TEST_F(ListPage, EnterRunsTheWordSearchAndAnEmptySearchRestoresTheList) {
    w->Toolbar2_ButtonClick(QStringLiteral("Act"));
    w->FillSectionwiseList();
    QTest::keyClicks(w->Text3, QStringLiteral("LEVY"));
    QTest::keyClick(w->Text3, Qt::Key_Return);
    EXPECT_EQ(listed(), QStringList({"-Levy of tax", "6"}));
    EXPECT_EQ(w->Text3->text(), QStringLiteral("LEVY"));

    w->Text3->clear();
    QTest::mouseClick(w->Cmdwordsearch, Qt::LeftButton);
    EXPECT_EQ(listed(), QStringList({"-Levy of tax", "1-2", "1", "10", "2", "6", "6A", "7", "99"}));
    EXPECT_TRUE(w->Text3->hasFocus());
    EXPECT_EQ(status(), kSearchHint);

    // A hidden button searches nothing.
    w->Cmdwordsearch->hide();
    w->Text3->setText(QStringLiteral("levy"));
    w->Cmdwordsearch_Click();
    EXPECT_EQ(listed().size(), 9);
    EXPECT_TRUE(boxes.boxes().empty());
}

TEST_F(ListPage, FocusSetsTheHintAndEmptiesABlankSearchBox) {
    w->FillSectionwiseList();
    w->List1->setFocus();
    EXPECT_EQ(status(), QStringLiteral(" "));
    w->Text3->setText(QStringLiteral("   "));
    w->Text3->setFocus();
    EXPECT_EQ(status(), kSearchHint);
    EXPECT_EQ(w->Text3->text(), QString());

    // Without a column to search the box keeps its blanks and the bar what it had.
    w->FillRulesList(QStringLiteral("Index"));
    w->List1->setFocus();
    w->Text3->setText(QStringLiteral("  "));
    w->Text3->setFocus();
    EXPECT_EQ(status(), QStringLiteral(" "));
    EXPECT_EQ(w->Text3->text(), QStringLiteral("  "));
}

TEST_F(ListPage, ScreenOfTheListPage) {
    w->Toolbar2_ButtonClick(QStringLiteral("Act"));
    w->FillSectionwiseList();
    QTest::keyClicks(w->Text3, QStringLiteral("6"));
    const QString dir = qEnvironmentVariableIsSet("VORLAN_SCREENS") ? QString(VORLAN_SOURCE_DIR "/docs/screens")
                                                                     : QDir::tempPath();
    QDir().mkpath(dir);
    EXPECT_TRUE(w->grab().save(dir + "/list-page.png"));
}

}  // namespace
