// The document windows of the main toolbar: which document each number shows, print, back, resize.
#include "library_fixture.h"

#include "platform/forms/twips.h"
#include "shell/text_viewers.h"

#include <QPrinter>
#include <QProcess>
#include <QTest>

namespace {

class TextViewers : public LibraryFixture {
protected:
    void SetUp() override {
        LibraryFixture::SetUp();
        for (const char* f : {"docs/HELP VAT.rtf", "docs/ACK.rtf", "docs/DEALERS.rtf", "docs/PRODUCTS.rtf",
                              "Vorlan1/ca tools.rtf"}) {
            QDir(dir.path()).mkpath(QFileInfo(dir.filePath(f)).path());
            ASSERT_TRUE(QFile::copy(QStringLiteral(VORLAN_PROGRAM_DIR "/") + f, dir.filePath(f))) << f;
        }
        forms::define("main", [] { return new QWidget; });
        forms::define("help", [] { return new shell::help; });
        forms::define("frmca", [] { return new shell::frmca; });
    }
};

}  // namespace

TEST_F(TextViewers, ShowDocumentByNumberInOneWindow) {
    auto* w = forms::get<shell::help>("help");
    const struct { int number; const char* heading; } cases[] = {
        {1, "Vorlan on VAT Laws: Help"}, {3, "Acknowledgement"}, {5, "Dealers"}, {7, "Other Products"},
        {2, "Other Products"}, {1, "Vorlan on VAT Laws: Help"}, {0, "Vorlan on VAT Laws: Help"},
    };
    forms::MsgBoxRecorder boxes;
    for (const auto& c : cases) {
        w->SHOW_DOCUMENT(c.number);
        EXPECT_TRUE(w->isVisible());
        EXPECT_TRUE(w->RichTextBox1->plainText().startsWith(c.heading)) << c.number;
    }
    EXPECT_TRUE(boxes.boxes().empty());
    QFile::remove(dir.filePath("docs/ACK.rtf"));
    w->SHOW_DOCUMENT(3);
    ASSERT_EQ(boxes.boxes().size(), 1u);
    EXPECT_EQ(boxes.boxes()[0].text, "SHOW_DOCUMENT :Path/File access error");
    EXPECT_TRUE(w->RichTextBox1->plainText().startsWith("Vorlan on VAT Laws: Help"));
}

TEST_F(TextViewers, PrintBackAndResize) {
    int asked = 0;
    const QString pdf = dir.filePath("print.pdf");
    shell::TextViewer::choosePrinter = [&](QPrinter& p) {
        ++asked;
        p.setOutputFormat(QPrinter::PdfFormat);
        p.setOutputFileName(pdf);
        return true;
    };
    auto* h = forms::get<shell::help>("help");
    h->SHOW_DOCUMENT(1);
    QTest::mouseClick(h->Picture1, Qt::LeftButton);  // its file is no folder: nothing is printed
    EXPECT_EQ(asked, 0);

    auto* ca = forms::get<shell::frmca>("frmca");
    ca->show();
    QTest::mouseClick(ca->Picture1, Qt::LeftButton);
    EXPECT_EQ(asked, 1);
    QProcess text;
    text.start("pdftotext", {pdf, "-"});
    if (text.waitForFinished(5000)) {
        EXPECT_TRUE(text.readAll().contains("C A Tools"));
    }

    QTest::keyClick(ca->RichTextBox1, Qt::Key_P, Qt::ControlModifier);   // Print from the keyboard
    EXPECT_EQ(asked, 2);
    for (const bool byKey : {false, true}) {   // Back, by the picture and by Esc
        h->show();
        forms::get("main")->hide();
        byKey ? QTest::keyClick(h->RichTextBox1, Qt::Key_Escape) : QTest::mouseClick(h->Picture4, Qt::LeftButton);
        EXPECT_FALSE(h->isVisible());
        EXPECT_TRUE(forms::get("main")->isVisible());
    }

    h->setWindowState(Qt::WindowNoState);
    h->resize(400, 300);  // narrower than the text box
    h->Form_Resize();
    EXPECT_EQ(h->RichTextBox1->x(), 0);
    EXPECT_EQ(h->RichTextBox1->y(), forms::twips(540));
    EXPECT_LE(h->Picture4->x() + h->Picture4->width(), h->width() + 1);
    EXPECT_EQ(h->Picture1->x(), 0);
}

// The windows of the family that nothing opens yet: caption, maximising, and what Print and Back do.
TEST_F(TextViewers, SpareViewersShowAsDesigned) {
    const QString unset = "Run-time error '91':\n\nObject variable or With block variable not set";
    const struct { std::function<QWidget*()> make; const char* caption; bool maximised, browser; QString print, back; } cases[] = {
        {[] { return new shell::release; }, "", true, false, "", ""},
        {[] { return new shell::frmalied; }, "Tam ALieds", true, true, unset, unset},
        {[] { return new shell::formsform; }, "Form1", false, true, "", ""},
        {[] { return new shell::frmaliedcommon; }, "Form1", false, false, "", ""},
    };
    for (const auto& c : cases) {
        std::unique_ptr<QWidget> w(c.make());
        w->show();
        EXPECT_EQ(w->windowTitle(), c.caption);
        EXPECT_EQ(bool(w->windowState() & Qt::WindowMaximized), c.maximised) << c.caption;
        EXPECT_EQ(w->findChild<QTextBrowser*>() != nullptr, c.browser) << c.caption;
        for (const auto& [text, box] : {std::pair{"Print", c.print}, {"Back", c.back}}) {
            forms::MsgBoxRecorder boxes;
            for (QLabel* l : w->findChildren<QLabel*>())
                if (l->text() == text) QTest::mouseClick(l, Qt::LeftButton);
            EXPECT_EQ(boxes.boxes().empty() ? QString() : boxes.boxes().back().text, box) << c.caption << text;
        }
        EXPECT_EQ(w->isVisible(), c.back.isEmpty()) << c.caption;   // Back hides before it fails
    }
}
