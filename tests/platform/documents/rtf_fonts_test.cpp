#include "platform/documents/document_view.h"
#include "platform/documents/rtf_reader.h"

#include <QAbstractTextDocumentLayout>
#include <QFontDatabase>
#include <QFontMetrics>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextDocument>
#include <QTextLayout>
#include <QTest>

#include <gtest/gtest.h>

namespace documents {

// Each fragment as "text{family|family}".
QString fontRuns(const QTextDocument& document) {
    QString out;
    for (auto it = document.begin().begin(); !it.atEnd(); ++it)
        out += it.fragment().text() + '{' + it.fragment().charFormat().fontFamilies().toStringList().join('|') + '}';
    return out;
}

TEST(RtfFonts, RunsTakeTheirFamilyAndCodePage) {
    const QByteArray table = "{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0\\froman\\fcharset0 Times New Roman;}"
                             "{\\f1\\fswiss\\fcharset204 Arial{\\*\\panose 020b0604020202020204};}{\\f2\\ftech\\fcharset2 Symbol;}"
                             "{\\f3\\fmodern Courier New;}{\\f4\\fnil\\fcharset161 Greek Face;}{\\f5\\fswiss Verdana;}"
                             "{\\f6\\fswiss\\fcharset2 Wingdings;}}";
    const std::pair<QByteArray, const char*> cases[] = {
        {"a", "a{Times New Roman|Liberation Serif}"},
        {"\\f1 \\'cf\\'f0\\'e8\\'e2\\'e5\\'f2", "Привет{Arial|Liberation Sans}"},
        {"\\f2 \\'b7\\'61\\f6 \\'a7", "•α▪{}"},
        {"\\f4 \\'e1\\'e2", "αβ{Greek Face}"},
        {"\\f3 x\\f5 y\\plain z", "x{Courier New|Liberation Mono}y{Verdana|Liberation Sans}z{Times New Roman|Liberation Serif}"},
        {"{\\f1 \\u1044?\\'e0}\\'e0", "Да{Arial|Liberation Sans}à{Times New Roman|Liberation Serif}"},
        {"a\\~b\\'a0c", "a\u00A0b\u00A0c{Times New Roman|Liberation Serif}"},
    };
    for (const auto& [text, expected] : cases) {
        QTextDocument document;
        readRtf(table + text + "}", document);
        EXPECT_EQ(fontRuns(document), QString::fromUtf8(expected)) << text.constData();
    }
}

// Drawn in the view: no-break spaces hold their words on one line, and Malayalam finds a font that has
// every glyph of it, whatever font the document names.
TEST(RtfFonts, ViewDrawsEveryGlyphAndKeepsNoBreakSpaces) {
    ASSERT_FALSE(QFontDatabase::families(QFontDatabase::Malayalam).isEmpty()) << "no Malayalam font installed";
    DocumentView view;
    view.resize(160, 400);
    view.setDocument("{\\rtf1{\\fonttbl{\\f0\\fnil Kartika;}}\\f0 \\u3374?\\u3378?\\u3375?\\u3390?\\u3379?\\u3330? "
                     "\\u3368?\\u3391?\\u3349?\\u3393?\\u3364?\\u3391?\\par "
                     "Section\\~5 Rule\\~58 Form\\~10 Act\\~1963 Schedule\\~III\\par}");
    view.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&view));
    const QTextDocument* document = view.textBrowser()->document();
    document->documentLayout()->documentSize();
    // Every character of the Malayalam line is in the run's font or in one it falls back to.
    const QTextBlock line = document->firstBlock();
    const QFontMetrics metrics(line.begin().fragment().charFormat().font());
    for (QChar ch : line.text()) EXPECT_TRUE(metrics.inFont(ch)) << int(ch.unicode());
    const QTextBlock words = document->firstBlock().next();
    const QTextLayout* layout = words.layout();
    ASSERT_GT(layout->lineCount(), 1);
    EXPECT_EQ(words.text().count(QChar(0x00A0)), 5);
    for (int p = 0; p < words.text().size(); ++p)
        if (words.text()[p] == QChar(0x00A0)) {
            EXPECT_EQ(layout->lineForTextPosition(p - 1).lineNumber(), layout->lineForTextPosition(p + 1).lineNumber()) << p;
        }
}

}  // namespace documents
