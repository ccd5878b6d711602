// The main window as a user meets it: the state tree, the toolbar, the two pictures, the resize rule.
#include "library_fixture.h"

#include "platform/basic/clock.h"
#include "platform/forms/msgbox.h"
#include "platform/forms/twips.h"
#include "platform/forms/window_registry.h"
#include "platform/system/shutdown.h"
#include "shell/main_window.h"

#include <QTest>

namespace {

// Stands for the document window of the toolbar's documents.
class FakeHelp : public QWidget {
    Q_OBJECT
public:
    QList<int> shown;
public slots:
    void SHOW_DOCUMENT(int number) { shown << number; }
};

class FakeShutdown : public sys::Shutdown {
public:
    QList<unsigned> calls;
    long ExitWindowsEx(unsigned flags, unsigned) override {
        calls << flags;
        return 1;
    }
};

class MainWindow : public LibraryFixture {
protected:
    void SetUp() override {
        LibraryFixture::SetUp();
        basic::Clock::set(QDate(2008, 9, 26));
        forms::define("main", [] { return new shell::main; });
        forms::define("frmkerala", [] { return new QWidget; });
        w = forms::get<shell::main>("main");
        w->endProgram = [this] { ended = true; };
        w->resize(1366, 768);
        w->show();
    }
    void TearDown() override {
        forms::reset();
        basic::Clock::reset();
        LibraryFixture::TearDown();
    }
    shell::main* w = nullptr;
    bool ended = false;
};

}  // namespace

TEST_F(MainWindow, StateTreeInItsOrderWithItsTexts) {
    EXPECT_EQ(w->windowTitle(), "Vorlan on VAT Laws[09-26-2008]");
    ASSERT_EQ(w->Tvw->Nodes.Count(), 32);
    const struct { int index; const char* key; const char* text; const char* parent; } cases[] = {
        {1, "One", "Vorlan on VAT laws", ""}, {2, "Two", "States", "One"}, {3, "And", "Andhra Pradesh", "Two"},
        {7, "Chat", "chattisgarh", "Two"},    {14, "jk", "Jammu and kashmir", "Two"}, {16, "Ker", "Kerala", "Two"},
        {30, "We", "West Bangal", "Two"},     {31, "Centr", "Central Sales Tax", "One"},
        {32, "Glob", "Global Subject,Citation ", "Two"},
    };
    for (const auto& c : cases) {
        const forms::Node n = w->Tvw->Nodes(c.index);
        EXPECT_EQ(n.Key() + '|' + n.Text(), QString(c.key) + '|' + c.text);
        EXPECT_EQ(n.item()->parent(), *c.parent ? w->Tvw->Nodes(QString(c.parent)).item() : nullptr) << c.key;
    }
    EXPECT_EQ(w->Tvw->ToolTipText(), "choose state and double click on each state to get details");
    EXPECT_TRUE(w->Tvw->isVisible());  // shown once the window came up
    const QStringList keys = {"stat", "ack", "CP", "BP", "help", "dele", "not", "op", "bkp", "EXI"};
    ASSERT_EQ(w->Toolbar2->Buttons.Count(), keys.size());
    for (int i = 0; i < keys.size(); ++i) EXPECT_EQ(w->Toolbar2->Buttons(i + 1).Key(), keys[i]);
    EXPECT_EQ(w->Toolbar2->Buttons("EXI").ToolTipText(), "Exit ");
    EXPECT_EQ(w->Picture6->text(), "     SHUT DOWN     ");
}

TEST_F(MainWindow, AClickOnAnyNodeEntersTheStateBrowser) {
    for (const char* key : {"One", "Ker", "Glob"}) {
        w->show();
        forms::get("frmkerala")->hide();
        shell::currentStateNo = 0;
        const QRect r = w->Tvw->visualItemRect(w->Tvw->Nodes(QString(key)).item());
        QTest::mouseClick(w->Tvw->viewport(), Qt::LeftButton, {}, r.center());
        EXPECT_FALSE(w->isVisible()) << key;
        EXPECT_TRUE(forms::get("frmkerala")->isVisible()) << key;
        EXPECT_EQ(shell::currentStateNo, 14) << key;
    }
}

TEST_F(MainWindow, ToolbarDispatch) {
    auto* help = new FakeHelp;
    const struct { const char* key; bool helpRegistered; int document; bool box; } cases[] = {
        {"CP", false, 0, false}, {"BP", false, 0, false}, {"wo", false, 0, false}, {"rul", false, 0, false},
        {"help", false, 0, true}, {"help", true, 1, false}, {"ack", true, 3, false}, {"dele", true, 5, false},
        {"op", true, 7, false},   {"bkp", false, 0, true},  {"Centr", false, 0, true},
    };
    for (const auto& c : cases) {
        if (c.helpRegistered) forms::define("help", [help] { return help; });
        help->shown.clear();
        forms::MsgBoxRecorder boxes;
        w->Toolbar2_ButtonClick(c.key);
        EXPECT_EQ(help->shown, c.document ? QList<int>{c.document} : QList<int>{}) << c.key;
        EXPECT_EQ(boxes.boxes().size(), c.box ? 1u : 0u) << c.key;
        for (const auto& b : boxes.boxes()) EXPECT_EQ(b, (forms::RecordedBox{"This feature is not working", forms::vbInformation, "Vorlan"}));
    }
    w->Tvw->setVisible(false);
    QTest::mouseClick(w->Toolbar2->widgetForAction(w->Toolbar2->Buttons("stat").action()), Qt::LeftButton);
    EXPECT_TRUE(w->Tvw->isVisible());
}

TEST_F(MainWindow, ExitClearsTheFlagAndEndsOnlyWhenItCould) {
    store::Connection cn;
    cn.Create("Driver={Microsoft Access Driver (*.mdb)};Dbq=" + dir.path() + "\\nwForm10DB.mdb");
    cn.Execute("CREATE TABLE tblMPage2 (cCode TEXT, FrmFlg INTEGER)");
    {
        forms::MsgBoxRecorder boxes;  // an empty page table: the flag cannot be written, the program stays
        w->Toolbar2_ButtonClick("EXI");
        EXPECT_FALSE(ended);
        EXPECT_EQ(boxes.boxes(), (std::vector<forms::RecordedBox>{{"This feature is not working", forms::vbInformation, "Vorlan"}}));
    }
    for (int i = 0; i < 2; ++i) cn.Execute("INSERT INTO tblMPage2 (cCode, FrmFlg) VALUES ('', 1)");
    forms::MsgBoxRecorder boxes;
    w->Toolbar2_ButtonClick("EXI");
    EXPECT_TRUE(ended);
    EXPECT_TRUE(boxes.boxes().empty());
    store::Recordset rs;
    rs.Open("SELECT FrmFlg FROM tblMPage2", cn, store::Recordset::adOpenStatic, store::Recordset::adLockReadOnly);
    EXPECT_EQ(rs.Fields(0).Value().integer(), 0);  // only the first row
    rs.MoveNext();
    EXPECT_EQ(rs.Fields(0).Value().integer(), 1);
}

TEST_F(MainWindow, ShutDownAsksFirst) {
    FakeShutdown fake;
    sys::Shutdown* before = sys::setShutdown(&fake);
    {
        forms::MsgBoxRecorder boxes{forms::vbNo};
        w->Picture6_Click();
        EXPECT_TRUE(fake.calls.isEmpty());
        ASSERT_EQ(boxes.boxes().size(), 2u);
        EXPECT_EQ(boxes.boxes()[0], (forms::RecordedBox{"Are  you Sure?", forms::vbYesNo, "Exit Windows"}));
        EXPECT_EQ(boxes.boxes()[1], (forms::RecordedBox{"You  Cancelled  Shut Down", forms::vbExclamation, " Sorry....."}));
    }
    {
        forms::MsgBoxRecorder boxes{forms::vbYes};
        QTest::mouseClick(w->Picture6, Qt::LeftButton);
        EXPECT_EQ(fake.calls, QList<unsigned>{1});
        EXPECT_EQ(boxes.boxes().size(), 1u);
    }
    sys::setShutdown(before);
}

TEST_F(MainWindow, FrameStaysLeftAndCentresVertically) {
    const struct { int height; int top; } cases[] = {{300, 0}, {768, (forms::toTwips(768) - 9600 + 1) / 2}};
    for (const auto& c : cases) {
        w->setWindowState(Qt::WindowNoState);
        w->resize(1366, c.height);
        w->Form_Resize();
        EXPECT_EQ(w->Frame1->x(), 0);
        EXPECT_NEAR(w->frameTop(), c.top, 1) << c.height;
        EXPECT_EQ(w->ShockwaveFlash1->x(), forms::twips(2590));
    }
    if (qEnvironmentVariableIsSet("VORLAN_SCREENS")) {
        w->resize(1366, 768);
        w->Form_Resize();
        w->grab().save(VORLAN_SOURCE_DIR "/docs/screens/main.png");
    }
}

#include "main_window_test.moc"
