#include "platform/documents/document_view.h"

#include "support/case_name.h"
#include "support/made_pdfs.h"
#include "support/printers.h"

#include <QBuffer>
#include <QPainter>
#include <QPdfView>
#include <QPdfWriter>
#include <QSignalSpy>
#include <QTest>
#include <QTextBlock>
#include <QTextBrowser>

#include <gtest/gtest.h>

namespace documents {

// A view of the given size showing the document, on screen.
struct ShownView : DocumentView {
    ShownView(int w, int h, const QByteArray& bytes) {
        resize(w, h);
        setDocument(bytes);
        show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(this));
    }
};

// The pixels of the view dark enough to be ink.
int ink(QWidget& view) {
    const QImage picture = view.grab().toImage();
    int dark = 0;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x) dark += qGray(picture.pixel(x, y)) < 100;
    return dark;
}

// Each kind in its viewer, its text drawn, and cleared again. A PDF of three pages is made when the test
// runs, as it needs the application.
struct KindCase { const char* name; QByteArray bytes; Kind kind; const char* text; int pages; };

const KindCase kKinds[] = {
    {"Nothing", QByteArray(), Kind::None, "", 0},
    {"Rtf", "{\\rtf1\\ansi Rule {\\b 58}\\par caf\\'e9}", Kind::Rtf, "Rule 58\ncafé", 0},
    {"Html", "<html><body><p>Act <b>1963</b></p><p>caf\xC3\xA9</p></body></html>", Kind::Html, "Act 1963\ncafé", 0},
    {"TextInWindows1252", "Form 10\r\ncaf\xE9", Kind::Text, "Form 10\ncafé", 0},
    {"PdfOfThreePages", QByteArray(), Kind::Pdf, "", 3},
    {"DamagedPdf", "%PDF-1.4 not really", Kind::Pdf, "", 0}};

class DocumentKinds : public ::testing::TestWithParam<KindCase> {};

TEST_P(DocumentKinds, ShownInTheirViewerAndClearedAgain) {
    const KindCase& c = GetParam();
    ShownView view(600, 400, c.pages ? pdfOfLines({"Page 1", "Page 2", "Page 3"}) : c.bytes);
    EXPECT_EQ(view.kind(), c.kind);
    EXPECT_EQ(view.plainText(), QString::fromUtf8(c.text));
    EXPECT_EQ(view.pageCount(), c.pages);
    EXPECT_EQ(view.textBrowser()->isVisible(), c.kind != Kind::None && c.kind != Kind::Pdf);
    EXPECT_EQ(view.pdfView()->isVisible(), c.kind == Kind::Pdf);
    EXPECT_TRUE(view.textBrowser()->isReadOnly());
    if (*c.text) { EXPECT_GT(ink(view), 50); }
    view.clear();
    EXPECT_TRUE(view.kind() == Kind::None && view.plainText().isEmpty() && view.pageCount() == 0);
    EXPECT_FALSE(view.textBrowser()->isVisible() || view.pdfView()->isVisible());
}

INSTANTIATE_TEST_SUITE_P(Kinds, DocumentKinds, ::testing::ValuesIn(kKinds), CaseName());

// A click on a link reports its target and leaves the document as it was.
struct LinkCase { const char* name; QByteArray bytes; const char* target; };

const LinkCase kLinks[] = {
    {"HtmlLinkToAFile", "<html><body>Forms are <a href=\"FORMA.doc\">here</a>.</body></html>", "FORMA.doc"},
    {"RtfLinkToAnAnchor", "{\\rtf1 Section 10 is {\\field{\\*\\fldinst{HYPERLINK \\\\l \"a10\"}}{\\fldrslt here}}.}", "#a10"},
};

class DocumentLinks : public ::testing::TestWithParam<LinkCase> {};

TEST_P(DocumentLinks, ClickReportsTargetWithoutFollowing) {
    ShownView view(600, 300, GetParam().bytes);
    const QString before = view.plainText();
    QTextCursor cursor = view.textBrowser()->document()->find(QStringLiteral("here"));
    ASSERT_FALSE(cursor.isNull());
    cursor.setPosition(cursor.selectionStart() + 2);
    QSignalSpy spy(&view, &DocumentView::linkActivated);
    QTest::mouseClick(view.textBrowser()->viewport(), Qt::LeftButton, {}, view.textBrowser()->cursorRect(cursor).center());
    ASSERT_EQ(spy.count(), 1);
    EXPECT_EQ(spy.at(0).at(0).toString(), QLatin1String(GetParam().target));
    EXPECT_EQ(view.plainText(), before);
}

INSTANTIATE_TEST_SUITE_P(Links, DocumentLinks, ::testing::ValuesIn(kLinks), CaseName());

// A numbered paragraph with a hanging indent, as word processors write lists: the text after the number's
// tab starts where the wrapped lines start.
TEST(DocumentView, HangingIndentTabMeetsTheIndent) {
    ShownView view(300, 300, "{\\rtf1{\\pard\\li720\\fi-720\\tx720 1.\\tab Keep the original tax invoice of every bill"
                             " for six years from the end of the year.\\par}}");
    const QTextLayout* layout = view.textBrowser()->document()->firstBlock().layout();
    ASSERT_GE(layout->lineCount(), 2);
    EXPECT_EQ(layout->lineAt(0).cursorToX(3), layout->lineAt(1).x());
    EXPECT_EQ(layout->lineAt(1).x(), 48.0);  // 720 twips
}

}  // namespace documents
