#include "platform/documents/document_view.h"
#include "platform/documents/rtf_reader.h"
#include "support/case_name.h"

#include <QTextBrowser>
#include <QTextTable>
#include <QTest>

#include <algorithm>

#include <gtest/gtest.h>

namespace documents {

QByteArray rowsRtf(int rows) {
    QByteArray rtf = "{\\rtf1 ";
    for (int r = 0; r < rows; ++r)
        rtf += "\\trowd\\clbrdrb\\brdrs\\cellx1000\\cellx3000\\cellx4000\\pard\\intbl " + QByteArray::number(r) +
               "\\cell goods\\cell 4\\cell\\row ";
    return rtf + "\\pard end\\par}";
}

QByteArray wordsRtf(int bytes) {
    QByteArray rtf = "{\\rtf1 ";
    while (rtf.size() < bytes) rtf += "every dealer shall pay the tax ";
    return rtf + "}";
}

QString rowsText(int rows) {
    QString text;
    for (int r = 0; r < rows; ++r) text += QStringLiteral("%1goods4").arg(r);
    return text + QStringLiteral("end");
}

// Large documents keep every character, in pieces the view can lay out as it goes: tables of at most 100
// rows, blocks of at most 16,384 characters, at most 100 empty paragraphs in a row. The documents are
// made when the test runs.
struct LargeCase {
    const char* name;
    QByteArray (*rtf)();
    QString (*text)();
    int longestBlock, blocks, tableRows;
};

const LargeCase kLarge[] = {
    {"TableOf1010Rows", [] { return rowsRtf(1010); }, [] { return rowsText(1010); }, 10, 3045, 1010},
    {"ParagraphOf256KB", [] { return wordsRtf(256 << 10); },
     [] { return QString::fromLatin1(wordsRtf(256 << 10).mid(7).chopped(1)); }, 16384, 70, 0},
    {"WordOf100000Letters", [] { return "{\\rtf1 " + QByteArray(100000, 'x') + "}"; }, [] { return QString(100000, 'x'); },
     16384, 7, 0},
    {"MillionEmptyParagraphs", [] { return "{\\rtf1 a" + QByteArray("\\par ").repeated(1000000) + "b}"; },
     [] { return QStringLiteral("ab"); }, 1, 102, 0},
};

class RtfLarge : public ::testing::TestWithParam<LargeCase> {};

TEST_P(RtfLarge, ReadInBoundedPiecesWithEveryCharacter) {
    const LargeCase& c = GetParam();
    const QByteArray rtf = c.rtf();
    QTextDocument document;
    QElapsedTimer timer;
    timer.start();
    readRtf(rtf, document);
    EXPECT_LT(timer.elapsed(), 5000);  // tens of seconds when a piece grows with the document
    QString text;
    int longest = 0;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        text += block.text();
        longest = std::max(longest, block.length() - 1);
    }
    EXPECT_EQ(text, c.text());
    EXPECT_LE(longest, c.longestBlock);
    EXPECT_LE(document.blockCount(), c.blocks);
    int tableRows = 0, longestTable = 0;
    for (QTextFrame* table : document.rootFrame()->childFrames()) {
        tableRows += qobject_cast<QTextTable*>(table)->rows();
        longestTable = std::max(longestTable, qobject_cast<QTextTable*>(table)->rows());
    }
    EXPECT_EQ(tableRows, c.tableRows);
    EXPECT_LE(longestTable, 100);
}

INSTANTIATE_TEST_SUITE_P(Documents, RtfLarge, ::testing::ValuesIn(kLarge), CaseName());

// The view shows the first page of a table of 20,000 rows and of a paragraph of 3 MB at once.
struct FirstPageCase { const char* name; QByteArray (*rtf)(); const char* first; };

const FirstPageCase kFirstPages[] = {
    {"TableOf20000Rows", [] { return rowsRtf(20000); }, "0"},
    {"ParagraphOf3MB", [] { return wordsRtf(3 << 20); }, "every"},
};

class RtfLargeInView : public ::testing::TestWithParam<FirstPageCase> {};

TEST_P(RtfLargeInView, ShowsTheFirstPageAtOnce) {
    const QByteArray rtf = GetParam().rtf();
    DocumentView view;
    view.resize(800, 600);
    view.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&view));
    QElapsedTimer timer;
    timer.start();
    view.setDocument(rtf);
    view.repaint();
    EXPECT_LT(timer.elapsed(), 5000);  // tens of seconds when a piece grows with the document
    EXPECT_EQ(view.textBrowser()->cursorForPosition({20, 20}).block().text().left(5), QLatin1String(GetParam().first));
}

INSTANTIATE_TEST_SUITE_P(Documents, RtfLargeInView, ::testing::ValuesIn(kFirstPages), CaseName());

}  // namespace documents
