#include "platform/documents/document_view.h"
#include "platform/documents/rtf_reader.h"

#include "support/case_name.h"
#include "support/printers.h"

#include <QAbstractTextDocumentLayout>
#include <QBuffer>
#include <QTest>
#include <QTextBrowser>
#include <QTextTable>

#include <gtest/gtest.h>

namespace documents {

QString read(const QByteArray& rtf) {
    QTextDocument document;
    readRtf(rtf, document);
    return document.toPlainText();
}

// The document as text with its formatting marked: <b>, <i>, <u>, <18pt>, <a href>, "[c]" before a
// centred paragraph, "|" between paragraphs; each fragment marked on its own, with "{family|family}" after
// it when fonts are asked for. A picture is "[WxH colour]": the name of its red or blue, or "box" for a
// placeholder.
QString describe(const QTextDocument& document, bool fonts = false) {
    QStringList blocks;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        QString out = block.blockFormat().alignment() & Qt::AlignHCenter ? QStringLiteral("[c]") : QString();
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            const QTextCharFormat f = it.fragment().charFormat();
            const QTextImageFormat image = f.toImageFormat();
            if (image.isValid()) {
                const QImage pixels = document.resource(QTextDocument::ImageResource, QUrl(image.name())).value<QImage>();
                out += QStringLiteral("[%1x%2 %3]").arg(image.width()).arg(image.height()).arg(
                    image.name().endsWith(QLatin1String("placeholder")) ? "box" : qRed(pixels.pixel(0, 0)) > 200 ? "red" : "blue");
                continue;
            }
            QString open, close = fonts ? '{' + f.fontFamilies().toStringList().join('|') + '}' : QString();
            auto mark = [&](bool on, const QString& tag, const char* name) {
                if (on) open += '<' + tag + '>', close.prepend(QStringLiteral("</%1>").arg(QLatin1String(name)));
            };
            mark(f.isAnchor(), "a " + f.anchorHref() + f.anchorNames().join('#'), "a");
            mark(f.fontWeight() == QFont::Bold, "b", "b");
            mark(f.fontItalic(), "i", "i");
            mark(f.fontUnderline(), "u", "u");
            mark(f.fontPointSize() != 12, QString::number(f.fontPointSize()) + "pt", "pt");
            out += open + it.fragment().text() + close;
        }
        blocks << out;
    }
    return blocks.join('|');
}

// Text and its formatting as read: characters in every escape and code page, paragraphs, links and
// anchors, the destinations left out, and input cut short or out of range.
struct TextCase { const char* name; QByteArray rtf; const char* expected; };

const TextCase kTexts[] = {
    {"DoubleBlanksKept", "{\\rtf1\\ansi Hello  world}", "Hello  world"},
    {"LineBreaksInTheSourceIgnored", "{\\rtf1 Sec\r\ntion\n 11}", "Section 11"},
    {"Bold", "{\\rtf1 a \\b bold\\b0  c}", "a <b>bold</b> c"},
    {"FontSizeInHalfPoints", "{\\rtf1 \\fs36 big\\fs24 normal}", "<18pt>big</pt>normal"},
    {"ItalicAndUnderlineOnAndOff", "{\\rtf1 \\i it\\i0 \\ul u\\ulnone x\\ul y\\ul0 z}", "<i>it</i><u>u</u>x<u>y</u>z"},
    {"GroupsRestoreTheFormat", "{\\rtf1 a{\\b b{\\i c}d}e}", "a<b>b</b><b><i>c</i></b><b>d</b>e"},
    {"PlainResetsTheFormat", "{\\rtf1\\b\\i\\fs40 x\\plain y}", "<b><i><20pt>x</pt></i></b>y"},
    {"Windows1252Escapes", "{\\rtf1\\ansi caf\\'e9 \\'80\\'93x\\'94}", "café €“x”"},
    {"CodePage1251", "{\\rtf1\\ansi\\ansicpg1251 \\'c0\\'e1}", "Аб"},
    {"EightBitByteAsWindows1252", "{\\rtf1 caf\xE9}", "café"},
    {"UnicodeWithItsAlternative", "{\\rtf1 \\u8364? 5}", "€ 5"},
    {"NegativeUnicode", "{\\rtf1 \\u-1279?x}", "ﬁx"},
    {"UnicodeAlternativeAsEscape", "{\\rtf1 \\u8364\\'80x}", "€x"},
    {"TwoByteAlternative", "{\\rtf1\\uc2 \\u8364??x}", "€x"},
    {"NoAlternative", "{\\rtf1\\uc0 \\u8364 x}", "€x"},
    {"AlternativeCountEndsWithItsGroup", "{\\rtf1 {\\uc2 \\u233??}\\u233?x}", "ééx"},
    {"AlternativeCountWithinAGroup", "{\\rtf1\\uc3 {\\u233?}x}", "éx"},
    {"DestinationsLeftOut", "{\\rtf1{\\fonttbl{\\f0\\fswiss Arial;}}{\\colortbl;\\red0\\green0\\blue0;}"
         "{\\stylesheet{\\s0 Normal;}}{\\info{\\title T}{\\author A}}Body"
         "{\\*\\generator x;}{\\pict\\pngblip 89504e47}{\\object\\objemb{\\*\\objdata 01}}"
         "{\\header H}{\\footer F}{\\headerl L}{\\*\\unknown zz{\\b deep}} end}",
         "Body end"},
    {"TabParAndLine", "{\\rtf1 a\\tab b\\par c\\line d}", "a\tb|c\u2028d"},
    {"LastParagraphMarkEndsNothing", "{\\rtf1 a\\par}", "a"},
    {"EmptyParagraphKept", "{\\rtf1 a\\par\\par b}", "a||b"},
    {"CentredBeforeTheParagraphMark", "{\\rtf1 a\\qc\\par\\pard b}", "[c]a|b"},
    {"EscapedSymbols", "{\\rtf1 \\{x\\} \\\\ a\\~b c\\-d e\\_f}", "{x} \\ a\u00A0b c\u00ADd e\u2011f"},
    {"TypographicQuotesAndDashes", "{\\rtf1 \\ldblquote q\\rdblquote\\emdash\\bullet}", "“q”—•"},
    {"CentredAtTheStart", "{\\rtf1\\qc a\\par\\pard b}", "[c]a|b"},
    {"HyperlinkToASite", "{\\rtf1 see {\\field{\\*\\fldinst{HYPERLINK \"http://x.in/a b\"}}{\\fldrslt{\\ul Site}}} now}",
         "see <a http://x.in/a b><u>Site</u></a> now"},
    {"HyperlinkToAnAnchor", "{\\rtf1{\\field{\\*\\fldinst HYPERLINK \\\\l \"a10\"}{\\fldrslt Sec 10}}}", "<a #a10>Sec 10</a>"},
    {"HyperlinkToAFileAtAnAnchor", "{\\rtf1{\\field{\\*\\fldinst HYPERLINK \"CST ACT.rtf\" \\\\l \"a10\" \\\\o \"tip\"}{\\fldrslt 10}}}",
         "<a CST ACT.rtf#a10>10</a>"},
    {"HyperlinkWithSwitchesBeforeTheFile", "{\\rtf1{\\field{\\*\\fldinst HYPERLINK \\\\o \"see\" \\\\n FORMA.rtf}{\\fldrslt A}}}", "<a FORMA.rtf>A</a>"},
    {"BookmarkAsAnAnchor", "{\\rtf1 a{\\*\\bkmkstart a10}{\\*\\bkmkend a10}Sec 10}", "a<a a10>S</a>ec 10"},
    {"OtherFieldsShowTheirResult", "{\\rtf1{\\field{\\*\\fldinst PAGE}{\\fldrslt 3}}}", "3"},
    {"BinaryPictureDataSkipped", "{\\rtf1 a{\\pict\\bin3 {{{}b}", "ab"},
    {"BinaryRunPastTheEnd", "{\\rtf1 a{\\pict\\bin99999999 xy", "a"},
    {"ClosingBracesPastTheEnd", "{\\rtf1 a}}}b", "ab"},
    {"EscapeCutShort", "{\\rtf1 a\\'4", "a"},
    {"NumbersOutOfRange", "{\\rtf1 \\u-99999999999?a\\fs99999999999999 b}", "a<500pt>b</pt>"},
};

class RtfReader : public ::testing::TestWithParam<TextCase> {};

TEST_P(RtfReader, TextAndFormatting) {
    QTextDocument document;
    readRtf(GetParam().rtf, document);
    EXPECT_EQ(describe(document), QString::fromUtf8(GetParam().expected));
}

INSTANTIATE_TEST_SUITE_P(Texts, RtfReader, ::testing::ValuesIn(kTexts), CaseName());

QByteArray fixture(const char* name) {
    QFile file(QStringLiteral(VORLAN_SOURCE_DIR "/tests/platform/documents/fixtures/") + QLatin1String(name));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name;
    return file.readAll();
}

// Text of each cell of the first table, a row a line, cells joined by "|"; "" when there is none.
QString firstTable(const QTextDocument& document) {
    for (QTextFrame* frame : document.rootFrame()->childFrames()) {
        auto* table = qobject_cast<QTextTable*>(frame);
        if (!table) continue;
        QStringList rows;
        for (int r = 0; r < table->rows(); ++r) {
            QStringList cells;
            for (int c = 0; c < table->columns(); ++c) {
                QTextCursor cursor = table->cellAt(r, c).firstCursorPosition();
                cursor.setPosition(table->cellAt(r, c).lastCursorPosition().position(), QTextCursor::KeepAnchor);
                cells << cursor.selectedText();
            }
            rows << cells.join(QLatin1Char('|'));
        }
        return rows.join(QLatin1Char('\n'));
    }
    return {};
}

// A table's rows and cells as read, and the whole document's text around it.
struct TableCase { const char* name; QByteArray rtf; const char* table, *text; };

const TableCase kTables[] = {
    {"TwoRowsBetweenParagraphs",
     "{\\rtf1 before\\par\\trowd\\cellx1000\\cellx2000\\pard\\intbl a\\cell b\\cell\\row"
     "\\trowd\\cellx1000\\cellx2000\\pard\\intbl c\\cell\\cell\\row\\pard after\\par}",
     "a|b\nc|", "before\na\nb\nc\n\nafter"},
    {"ParagraphsInACell", "{\\rtf1\\trowd\\cellx900{\\pard\\intbl x\\par}{\\pard\\intbl y\\par}\\cell\\row}", "x\u2029y", "\nx\ny\n"},
    {"MoreCellsThanDefined", "{\\rtf1\\trowd\\cellx900\\intbl a\\cell b\\cell\\row}", "a|b", "\na\nb\n"},
};

class RtfTableCells : public ::testing::TestWithParam<TableCase> {};

TEST_P(RtfTableCells, LandInTheirPlace) {
    QTextDocument document;
    readRtf(GetParam().rtf, document);
    EXPECT_EQ(firstTable(document), QString::fromUtf8(GetParam().table));
    EXPECT_EQ(document.toPlainText(), QString::fromUtf8(GetParam().text));
}

INSTANTIATE_TEST_SUITE_P(Tables, RtfTableCells, ::testing::ValuesIn(kTables), CaseName());

// The first cell of the first table: its paragraph's alignment and left indent, its padding, and each edge
// as style:width (T, L, B, R; "-" where there is no line).
QString firstCell(const QTextDocument& document) {
    for (QTextFrame* frame : document.rootFrame()->childFrames())
        if (auto* table = qobject_cast<QTextTable*>(frame)) {
            const QTextTableCell cell = table->cellAt(0, 0);
            const QTextBlockFormat block = document.findBlock(cell.firstPosition()).blockFormat();
            const QTextTableCellFormat f = cell.format().toTableCellFormat();
            const auto edge = [](QTextFrameFormat::BorderStyle style, qreal width) {
                return style == QTextFrameFormat::BorderStyle_None || width == 0 ? QStringLiteral("-")
                       : QStringLiteral("%1:%2").arg(style == QTextFrameFormat::BorderStyle_Double ? "double" : "solid").arg(width);
            };
            return QStringLiteral("%1 li%2 pad%3/%4 %5 %6 %7 %8")
                .arg(block.alignment() & Qt::AlignHCenter ? "centre" : block.alignment() & Qt::AlignRight ? "right" : "left")
                .arg(block.leftMargin()).arg(f.hasProperty(QTextFormat::TableCellTopPadding) ? f.topPadding() : 4)
                .arg(f.hasProperty(QTextFormat::TableCellBottomPadding) ? f.bottomPadding() : 4)
                .arg(edge(f.topBorderStyle(), f.topBorder()), edge(f.leftBorderStyle(), f.leftBorder()),
                     edge(f.bottomBorderStyle(), f.bottomBorder()), edge(f.rightBorderStyle(), f.rightBorder()));
        }
    return {};
}

// What a paragraph ended by \cell sets survives it; the row definition draws each edge as written.
struct CellCase { const char* name; QByteArray row; const char* expected; };

const CellCase kCells[] = {
    {"CentredAndIndented", "\\cellx2000\\pard\\intbl\\qc\\li300 centred\\cell", "centre li20 pad4/4 - - - -"},
    {"SpaceBeforeAndAfterAsPadding", "\\cellx2000\\pard\\intbl\\qr\\sb120\\sa240 right\\cell", "right li0 pad12/20 - - - -"},
    {"ParagraphEndedInAGroup", "\\cellx2000{\\pard\\intbl\\qc x\\par}\\pard\\intbl\\cell", "centre li0 pad4/4 - - - -"},
    {"EachEdgeAsWritten",
     "\\clbrdrb\\brdrdb\\brdrw10\\clbrdrt\\brdrs\\brdrw30\\clbrdrl\\brdrth\\brdrw15\\clbrdrr\\brdrnone\\cellx2000"
     "\\pard\\intbl x\\cell",
     "left li0 pad4/4 solid:2 solid:2 double:3 -"},
    {"ParagraphBordersNotTheCells", "\\brdrb\\brdrs\\clbrdrt\\brdrdb\\brdrw45\\cellx2000\\pard\\intbl\\brdrt\\brdrs x\\cell",
     "left li0 pad4/4 double:9 - - -"},
};

class RtfTableCell : public ::testing::TestWithParam<CellCase> {};

TEST_P(RtfTableCell, KeepsItsParagraphAndBorders) {
    QTextDocument document;
    readRtf("{\\rtf1\\trowd" + GetParam().row + "\\row}", document);
    EXPECT_EQ(firstCell(document), QLatin1String(GetParam().expected));
}

INSTANTIATE_TEST_SUITE_P(Cells, RtfTableCell, ::testing::ValuesIn(kCells), CaseName());

// RTF written by another program (pandoc), kept as a file.
TEST(RtfFixtures, ReadBackAsWritten) {
    QTextDocument document;
    readRtf(fixture("input_tax_credit.rtf"), document);
    const QString text = document.toPlainText(), marked = describe(document);
    EXPECT_TRUE(text.startsWith(QLatin1String("Input tax credit\nA registered dealer may claim input tax credit")));
    EXPECT_TRUE(text.contains(QString::fromUtf8("bill of € 1,250.00 at 12.5% is ₹ 156.25; the café’s receipt")));
    EXPECT_FALSE(text.contains(QLatin1String("Helvetica")));
    EXPECT_TRUE(marked.contains(QLatin1String("claim <b>input tax credit</b> on purchases from <i>registered</i>")));
    EXPECT_TRUE(marked.contains(QLatin1String("<a http://keralataxes.gov.in><u>Commercial Taxes Department</u></a>")));

    readRtf(fixture("schedule_of_rates.rtf"), document);
    EXPECT_EQ(firstTable(document), QLatin1String("Sl No|Goods|Rate %\n1|Rice and wheat|0\n2|Gold ornaments|1\n"
                                                  "3|Drugs and medicines|4\n4|Cement|12.5"));
    EXPECT_TRUE(document.toPlainText().endsWith(
        QLatin1String("Goods not named in any schedule bear tax at 12.5 percent.\nNote: rates change by notification;"
                      " always check the latest one.")));
}

// Every prefix of a real file and hostile shapes: no crash, each within a bound.
TEST(RtfRobustness, HostileInputEndsQuickly) {
    const QByteArray source = fixture("input_tax_credit.rtf");
    QElapsedTimer timer;
    timer.start();
    for (qsizetype cut = 0; cut <= source.size(); ++cut) read(source.left(cut));
    EXPECT_LT(timer.elapsed(), 5000) << "all prefixes";

    const QByteArray hostile[] = {
        "{\\rtf1 " + QByteArray(10000, '{') + "deep" + QByteArray(10000, '}') + " shallow}",
        "{\\rtf1 " + QByteArray(10000, '{') + "never closed",
        "{\\rtf1 \\u-99999999999 \\uc99999999999 x}",
        "{\\rtf1 }" + QByteArray(10000, '}') + "after",
        "{\\rtf1 \\" + QByteArray(100000, 'a') + "1234567890123456789012345 x}",
        "{\\rtf1 " + QByteArray(5000, '\\') + "}",
        QByteArray("{\\rtf1 a\0b\\'00c}", 16),
        "{\\rtf1\\trowd" + QByteArray("\\cellx9").repeated(5000) + "\\intbl" + QByteArray("x\\cell").repeated(5000) + "}",
        "{\\rtf1\\trowd\\cellx99\\intbl " + QByteArray("x\\cell\\row").repeated(20000) + "}",
        // Picture data whose group was damaged, and a picture cut off by the end: data, never text.
        "{\\rtf1 before {\\pic\\pngblip " + QByteArray("89504e470d0a1a0a\r\n").repeated(20000) + "} after}",
        "{\\rtf1 before{\\*\\shppict{\\pict\\pngblip\\picwgoal99 " + QByteArray(1 << 20, 'a'),
    };
    for (const QByteArray& bytes : hostile) {
        timer.restart();
        read(bytes);
        EXPECT_LT(timer.elapsed(), 1000) << bytes.left(40).constData();
    }
    EXPECT_EQ(read(hostile[0]), QLatin1String(" shallow"));
    EXPECT_EQ(read(hostile[3]), QLatin1String("after"));
    EXPECT_EQ(read(hostile[6]), QLatin1String("abc"));
    EXPECT_EQ(read(hostile[9]), QLatin1String("before  after"));
    EXPECT_EQ(read(hostile[10]), QLatin1String("before"));
}

// A picture of one colour, as the hex run a word processor writes.
QByteArray pictureHex(const char* format, int w, int h, Qt::GlobalColor color) {
    QImage image(w, h, QImage::Format_RGB32);
    image.fill(color);
    QBuffer bytes;
    bytes.open(QIODevice::WriteOnly);
    image.save(&bytes, format);
    return bytes.data().toHex();
}

// A picture shown at its goal size, scaled, or as its alternative; one that cannot be read as a box of
// its size. The pictures are made when the test runs.
QByteArray png() { return pictureHex("PNG", 30, 20, Qt::red); }
QByteArray jpeg() { return pictureHex("JPEG", 16, 16, Qt::blue); }

struct PictureCase { const char* name; QByteArray (*picture)(); const char* expected; };

const PictureCase kPictures[] = {
    {"ScaledGoalOverItsAlternative",
     [] {
         return "{\\*\\shppict{\\pict\\pngblip\\picw30\\pich20\\picwgoal1500\\pichgoal600\\picscalex50\\picscaley200\r\n" + png() +
                "}}{\\nonshppict{\\pict\\wmetafile8\\picw1000\\pich500 0100}}";
     },
     "a[50x80 red]b"},
    {"JpegAtItsGoal", [] { return "{\\pict\\jpegblip\\picwgoal300\\pichgoal450 " + jpeg() + "}"; }, "a[20x30 blue]b"},
    {"NoGoalItsOwnSize", [] { return "{\\pict\\pngblip " + png() + "}"; }, "a[30x20 red]b"},
    {"UnreadableFirstReadableAlternative",
     [] {
         return "{\\*\\shppict{\\pict\\emfblip\\picwgoal900\\pichgoal600 0100aa}}{\\nonshppict{\\pict\\pngblip"
                "\\picwgoal900\\pichgoal600 " + png() + "}}";
     },
     "a[60x40 red]b"},
    {"MetafileInHundredthsOfAMillimetre", [] { return QByteArray("{\\pict\\wmetafile8\\picw2540\\pich1270 0100}"); },
     "a[96x48 box]b"},
    {"NeitherReadableABox",
     [] { return QByteArray("{\\pict\\emfblip\\picwgoal1500\\pichgoal750 0100}{\\nonshppict{\\pict\\wmetafile8 0100}}"); },
     "a[100x50 box]b"},
    {"DamagedABoxOfItsGoal", [] { return "{\\pict\\pngblip\\picwgoal600\\pichgoal300 " + png().left(60) + "}"; },
     "a[40x20 box]b"},
    {"BinaryData",
     [] { return "{\\pict\\pngblip\\bin" + QByteArray::number(png().size() / 2) + " " + QByteArray::fromHex(png()) + "}"; },
     "a[30x20 red]b"},
    {"AlternativeWithNothingToStandFor", [] { return "{\\nonshppict{\\pict\\pngblip " + png() + "}}"; }, "ab"},
};

class RtfPictures : public ::testing::TestWithParam<PictureCase> {};

TEST_P(RtfPictures, ShownAtTheirSizeOrAsTheirAlternative) {
    QTextDocument document;
    readRtf("{\\rtf1 a" + GetParam().picture() + "b}", document);
    EXPECT_EQ(describe(document), QString::fromUtf8(GetParam().expected));
}

INSTANTIATE_TEST_SUITE_P(Pictures, RtfPictures, ::testing::ValuesIn(kPictures), CaseName());

// A run takes its font's family (with the face that stands in for it) and reads its 8-bit characters in
// the font's code page.
struct FontCase { const char* name; QByteArray text; const char* expected; };

const FontCase kFonts[] = {
    {"DefaultFont", "a", "a{Times New Roman|Liberation Serif}"},
    {"CyrillicCodePage", "\\f1 \\'cf\\'f0\\'e8\\'e2\\'e5\\'f2", "Привет{Arial|Liberation Sans}"},
    {"SymbolAndWingdings", "\\f2 \\'b7\\'61\\f6 \\'a7", "•α▪{}"},
    {"GreekCodePage", "\\f4 \\'e1\\'e2", "αβ{Greek Face}"},
    {"FamiliesAndPlain", "\\f3 x\\f5 y\\plain z",
     "x{Courier New|Liberation Mono}y{Verdana|Liberation Sans}z{Times New Roman|Liberation Serif}"},
    {"UnicodeSkipsItsAlternative", "{\\f1 \\u1044?\\'e0}\\'e0", "Да{Arial|Liberation Sans}à{Times New Roman|Liberation Serif}"},
    {"NoBreakSpaces", "a\\~b\\'a0c", "a\u00A0b\u00A0c{Times New Roman|Liberation Serif}"},
};

class RtfFontRuns : public ::testing::TestWithParam<FontCase> {};

TEST_P(RtfFontRuns, TakeTheirFamilyAndCodePage) {
    const QByteArray table = "{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0\\froman\\fcharset0 Times New Roman;}"
                             "{\\f1\\fswiss\\fcharset204 Arial{\\*\\panose 020b0604020202020204};}{\\f2\\ftech\\fcharset2 Symbol;}"
                             "{\\f3\\fmodern Courier New;}{\\f4\\fnil\\fcharset161 Greek Face;}{\\f5\\fswiss Verdana;}"
                             "{\\f6\\fswiss\\fcharset2 Wingdings;}}";
    QTextDocument document;
    readRtf(table + GetParam().text + "}", document);
    EXPECT_EQ(describe(document, true), QString::fromUtf8(GetParam().expected));
}

INSTANTIATE_TEST_SUITE_P(Runs, RtfFontRuns, ::testing::ValuesIn(kFonts), CaseName());

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
