#include "platform/documents/document_view.h"

#include "support/printers.h"

#include <QBuffer>
#include <QFile>
#include <QPageSize>
#include <QPainter>
#include <QPdfView>
#include <QPdfWriter>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextDocument>
#include <QTextLayout>

#include <gtest/gtest.h>

namespace documents {
namespace {

QByteArray pdfOfPages(int pages) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setPageSize(QPageSize(QPageSize::A4));
    QPainter painter(&writer);
    for (int page = 1; page <= pages; ++page) {
        if (page > 1) writer.newPage();
        painter.drawText(100, 100, QStringLiteral("Page %1").arg(page));
    }
    painter.end();
    return buffer.data();
}

struct ViewCase {
    const char* name;
    QByteArray bytes;
    Kind kind;
    const char* text;  // what the reader sees, UTF-8
    int pages;
};

class DocumentViewShows : public ::testing::TestWithParam<ViewCase> {};

TEST_P(DocumentViewShows, EachKindInItsViewer) {
    const ViewCase& c = GetParam();
    DocumentView view;
    view.resize(600, 400);
    view.setDocument(c.bytes);
    view.show();
    EXPECT_EQ(view.kind(), c.kind);
    EXPECT_EQ(view.plainText(), QString::fromUtf8(c.text));
    EXPECT_EQ(view.pageCount(), c.pages);
    EXPECT_EQ(view.textBrowser()->isVisible(), c.kind == Kind::Rtf || c.kind == Kind::Html || c.kind == Kind::Text);
    EXPECT_EQ(view.pdfView()->isVisible(), c.kind == Kind::Pdf);
    EXPECT_TRUE(view.textBrowser()->isReadOnly());

    view.clear();  // and nothing is left of it
    EXPECT_TRUE(view.kind() == Kind::None && view.plainText().isEmpty() && view.pageCount() == 0);
    EXPECT_FALSE(view.textBrowser()->isVisible() || view.pdfView()->isVisible());
}

INSTANTIATE_TEST_SUITE_P(
    Documents, DocumentViewShows,
    ::testing::Values(
        ViewCase{"empty", QByteArray(), Kind::None, "", 0},
        ViewCase{"rtf", "{\\rtf1\\ansi Rule {\\b 58}\\par caf\\'e9}", Kind::Rtf, "Rule 58\ncafé", 0},
        ViewCase{"html", "<html><body><p>Act <b>1963</b></p><p>caf\xC3\xA9</p></body></html>", Kind::Html,
                 "Act 1963\ncafé", 0},
        ViewCase{"textLatin1", "Form 10\r\ncaf\xE9", Kind::Text, "Form 10\ncafé", 0},
        ViewCase{"pdf", pdfOfPages(3), Kind::Pdf, "", 3},
        ViewCase{"brokenPdf", "%PDF-1.4 not really", Kind::Pdf, "", 0}),
    [](const auto& info) { return std::string(info.param.name); });

struct LinkCase {
    const char* name;
    QByteArray bytes;
    const char* target;
};

class DocumentViewLinks : public ::testing::TestWithParam<LinkCase> {};

// A click on a link reports its target and leaves the document as it was.
TEST_P(DocumentViewLinks, ClickReportsTargetWithoutFollowing) {
    DocumentView view;
    view.resize(600, 300);
    view.setDocument(GetParam().bytes);
    view.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&view));
    QTextBrowser* browser = view.textBrowser();
    const QString before = view.plainText();

    QTextCursor cursor = browser->document()->find(QStringLiteral("here"));
    ASSERT_FALSE(cursor.isNull());
    cursor.setPosition(cursor.selectionStart() + 2);
    const QPoint at = browser->cursorRect(cursor).center();

    QSignalSpy spy(&view, &DocumentView::linkActivated);
    QTest::mouseClick(browser->viewport(), Qt::LeftButton, {}, at);
    ASSERT_EQ(spy.count(), 1);
    EXPECT_EQ(spy.at(0).at(0).toString(), QLatin1String(GetParam().target));
    EXPECT_EQ(view.plainText(), before);
}

INSTANTIATE_TEST_SUITE_P(
    Documents, DocumentViewLinks,
    ::testing::Values(
        LinkCase{"html", "<html><body>Forms are <a href=\"FORMA.doc\">here</a>.</body></html>", "FORMA.doc"},
        LinkCase{"rtf", "{\\rtf1 Section 10 is {\\field{\\*\\fldinst{HYPERLINK \\\\l \"a10\"}}{\\fldrslt here}}.}",
                 "#a10"}),
    [](const auto& info) { return std::string(info.param.name); });

TEST(DocumentViewLinks, BookmarkCanBeScrolledTo) {
    DocumentView view;
    view.resize(400, 200);
    view.setDocument("{\\rtf1 " + QByteArray("line\\par ").repeated(200) + "{\\*\\bkmkstart a32}Section 32}");
    view.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&view));
    QScrollBar* bar = view.textBrowser()->verticalScrollBar();
    ASSERT_EQ(bar->value(), 0);
    view.scrollToAnchor(QStringLiteral("a32"));
    EXPECT_EQ(bar->value(), bar->maximum());
}

// A numbered paragraph with a hanging indent, as word processors write lists: the text after the number's
// tab starts where the wrapped lines start.
TEST(DocumentViewLayout, HangingIndentTabMeetsTheIndent) {
    DocumentView view;
    view.resize(300, 300);
    view.setDocument("{\\rtf1{\\pard\\li720\\fi-720\\tx720 1.\\tab Keep the original tax invoice of every bill"
                     " for six years from the end of the year.\\par}}");
    view.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&view));
    const QTextBlock block = view.textBrowser()->document()->firstBlock();
    const QTextLayout* layout = block.layout();
    ASSERT_GE(layout->lineCount(), 2);
    const qreal afterTab = layout->lineAt(0).cursorToX(3);
    EXPECT_EQ(afterTab, layout->lineAt(1).x());
    EXPECT_EQ(afterTab, 48.0);  // 720 twips
}

// Draws a real document offscreen and keeps the picture for a look by eye.
TEST(DocumentViewPicture, DrawsTheText) {
    QFile file(QStringLiteral(VORLAN_SOURCE_DIR "/tests/platform/documents/fixtures/input_tax_credit.rtf"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    DocumentView view;
    view.resize(700, 420);
    view.setDocument(file.readAll());
    view.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&view));
    const QImage picture = view.grab().toImage();
    picture.save(QStringLiteral("/tmp/vorlan-document-view.png"));
    int dark = 0;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x) dark += qGray(picture.pixel(x, y)) < 100;
    EXPECT_GT(dark, 2000) << "text drawn";
}

}  // namespace
}  // namespace documents
