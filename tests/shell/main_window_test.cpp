// The main window as a user meets it: the state tree and the toolbar by mouse and by keyboard, the banner,
// the two pictures, the resize rule.
#include "library_fixture.h"

#include "platform/basic/clock.h"
#include "platform/forms/text_editor_window.h"
#include "platform/forms/twips.h"
#include "platform/system/shutdown.h"
#include "shell/main_window.h"
#include "support/screens.h"

#include <QMovie>
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
        for (const char* name : {"frmkerala", "central", "frmBackUpRestore"}) forms::define(name, [] { return new QWidget; });
        forms::define("Notepad", [] { return new forms::TextEditorWindow; });
        w = make();
    }
    shell::main* make() {
        forms::define("main", [] { return new shell::main; });
        auto* m = forms::get<shell::main>("main");
        m->endProgram = [] {};   // Exit must not end the test program
        m->resize(1366, 768);
        m->show();
        return m;
    }
    void TearDown() override {
        basic::Clock::reset();
        LibraryFixture::TearDown();
    }
    shell::main* w = nullptr;
};

}  // namespace

// Any node opens the browser: by a click, and from the keyboard by Enter or Space; other keys move only.
TEST_F(MainWindow, ANodeEntersTheStateBrowserByClickEnterOrSpace) {
    EXPECT_EQ(w->windowTitle(), "Vorlan on VAT Laws[09-26-2008]");
    const struct { const char* node; Qt::Key key; bool opens; } cases[] = {
        {"One", Qt::Key_unknown, true}, {"Glob", Qt::Key_unknown, true}, {"Ker", Qt::Key_Return, true},
        {"Centr", Qt::Key_Space, true}, {"Ker", Qt::Key_Down, false}, {"Ker", Qt::Key_A, false},
    };
    w->activateWindow();
    for (const auto& c : cases) {
        w->show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(w));
        forms::get("frmkerala")->hide();
        shell::currentStateNo = 0;
        QTreeWidgetItem* item = w->Tvw->Nodes(QString(c.node)).item();
        if (c.key == Qt::Key_unknown) {
            QTest::mouseClick(w->Tvw->viewport(), Qt::LeftButton, {}, w->Tvw->visualItemRect(item).center());
        } else {
            w->Tvw->setCurrentItem(item);
            QTest::keyClick(w->Tvw, c.key);
        }
        EXPECT_EQ(w->isVisible(), !c.opens) << c.node << c.key;
        EXPECT_EQ(forms::get("frmkerala")->isVisible(), c.opens) << c.node << c.key;
        EXPECT_EQ(shell::currentStateNo, c.opens ? 14 : 0) << c.node << c.key;
    }
}

// Each toolbar key and what it shows; the Central Sales Tax button stands second, beside "States".
TEST_F(MainWindow, ToolbarDispatch) {
    const forms::ToolbarButton central = w->Toolbar2->Buttons(2);
    EXPECT_EQ(central.Key() + '|' + central.Caption(), "Centr|Central Sales Tax");
    central.action()->trigger();
    EXPECT_TRUE(forms::get("central")->isVisible());
    auto* help = new FakeHelp;
    QTemporaryDir noEditors;   // a PATH with no text editor on it
    const struct { const char* key; bool helpRegistered; int document; bool box; const char* shows; } cases[] = {
        {"CP", false, 0, false, ""}, {"BP", false, 0, false, ""}, {"wo", false, 0, false, ""}, {"rul", false, 0, false, ""},
        {"help", false, 0, true, ""}, {"help", true, 1, false, ""}, {"ack", true, 3, false, ""},
        {"dele", true, 5, false, ""}, {"op", true, 7, false, ""}, {"bkp", false, 0, false, "frmBackUpRestore"},
        {"not", false, 0, false, "Notepad"},
    };
    const QByteArray path = qgetenv("PATH");
    qputenv("PATH", noEditors.path().toUtf8());
    for (const auto& c : cases) {
        if (c.helpRegistered) forms::define("help", [help] { return help; });
        help->shown.clear();
        forms::MsgBoxRecorder boxes;
        w->Toolbar2_ButtonClick(c.key);
        EXPECT_EQ(help->shown, c.document ? QList<int>{c.document} : QList<int>{}) << c.key;
        EXPECT_EQ(boxes.boxes().size(), c.box ? 1u : 0u) << c.key;
        for (const auto& b : boxes.boxes()) EXPECT_EQ(b, (forms::RecordedBox{"This feature is not working", forms::vbInformation, "Vorlan"}));
        if (*c.shows) {
            EXPECT_TRUE(forms::get(c.shows)->isVisible()) << c.key;
            forms::get(c.shows)->hide();
        }
    }
    qputenv("PATH", path);
    w->Tvw->setVisible(false);
    QTest::mouseClick(w->Toolbar2->widgetForAction(w->Toolbar2->Buttons("stat").action()), Qt::LeftButton);
    EXPECT_TRUE(w->Tvw->isVisible());
}

// The banner plays the publisher's "test.swf" where Qt can read it, else the program's own animation.
TEST_F(MainWindow, BannerPlaysThePublishersFileBeforeItsOwn) {
    const QString gif = QStringLiteral(VORLAN_PROGRAM_DIR "/banner.gif");
    const struct { const char* swf; bool ownBanner; const char* plays; } cases[] = {
        {nullptr, false, ""}, {nullptr, true, "banner.gif"}, {"flash", true, "banner.gif"}, {"gif", true, "test.swf"},
    };
    for (const auto& c : cases) {
        forms::reset();
        for (const char* f : {"test.swf", "banner.gif"}) QFile::remove(dir.filePath(f));
        if (c.ownBanner) QFile::copy(gif, dir.filePath("banner.gif"));
        if (c.swf) {
            QFile swf(dir.filePath("test.swf"));
            if (QByteArray(c.swf) == "gif") QFile::copy(gif, swf.fileName());
            else ASSERT_TRUE(swf.open(QIODevice::WriteOnly) && swf.write("FWS\x0a not an animation Qt reads") > 0);
        }
        QMovie* movie = make()->ShockwaveFlash1->movie();
        EXPECT_EQ(movie ? QFileInfo(movie->fileName()).fileName() : QString(), c.plays) << c.swf << c.ownBanner;
        EXPECT_TRUE(!movie || movie->state() == QMovie::Running);
    }
}

TEST_F(MainWindow, ShutDownAsksFirst) {
    FakeShutdown fake;
    sys::Shutdown* before = sys::setShutdown(&fake);
    const forms::RecordedBox sure{"Are  you Sure?", forms::vbYesNo, "Exit Windows"};
    const struct { int answer; QList<unsigned> calls; std::vector<forms::RecordedBox> boxes; } cases[] = {
        {forms::vbNo, {}, {sure, {"You  Cancelled  Shut Down", forms::vbExclamation, " Sorry....."}}},
        {forms::vbYes, {1}, {sure}},
    };
    for (const auto& c : cases) {
        forms::MsgBoxRecorder boxes{c.answer};
        QTest::mouseClick(w->Picture6, Qt::LeftButton);
        EXPECT_EQ(fake.calls, c.calls);
        EXPECT_EQ(boxes.boxes(), c.boxes);
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
    QFile::copy(VORLAN_PROGRAM_DIR "/banner.gif", dir.filePath("banner.gif"));   // the picture with its banner
    forms::reset();
    make()->grab().save(screen("main.png"));
}

#include "main_window_test.moc"
