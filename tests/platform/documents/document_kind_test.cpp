#include "platform/documents/document_kind.h"

#include "support/case_name.h"
#include "support/printers.h"

#include <gtest/gtest.h>

namespace documents {
namespace {

// The kind of a document told by its first bytes.
struct KindCase { const char* name; QByteArray bytes; Kind kind; };

const KindCase kKinds[] = {
    {"Empty", QByteArray(), Kind::None},
    {"Rtf", "{\\rtf1\\ansi hello}", Kind::Rtf},
    {"RtfAfterABlankIsText", " {\\rtf1 x}", Kind::Text},
    {"Pdf", "%PDF-1.4\n%\xE2\xE3", Kind::Pdf},
    {"PdfWithoutItsDashIsText", "%PDF1.4", Kind::Text},
    {"Doctype", "<!DOCTYPE html><html></html>", Kind::Html},
    {"DoctypeInOtherCase", "<!doctype HTML>", Kind::Html},
    {"HtmlAfterAMarkAndBlanks", "\xEF\xBB\xBF \r\n\t<HTML lang=en>", Kind::Html},
    {"Head", "<head><title>x</title></head>", Kind::Html},
    {"Body", "<Body>", Kind::Html},
    {"HeaderIsNoHead", "<header>x</header>", Kind::Text},
    {"HtmlCutShort", "<html", Kind::Html},
    {"ParagraphAloneIsText", "<p>hello</p>", Kind::Text},
    {"PlainText", "Section 11. Input tax", Kind::Text},
    {"Latin1Text", "caf\xE9", Kind::Text},
};

class KindOf : public ::testing::TestWithParam<KindCase> {};

TEST_P(KindOf, TellsTheKindByTheFirstBytes) { EXPECT_EQ(kindOf(GetParam().bytes), GetParam().kind); }

INSTANTIATE_TEST_SUITE_P(Bytes, KindOf, ::testing::ValuesIn(kKinds), CaseName());

// A text file read as UTF-8 where it is, else as Latin-1; a UTF-16 file by its mark.
struct DecodeCase { const char* name; QByteArray bytes; const char* text; };

const DecodeCase kDecodes[] = {
    {"Ascii", "Rule 58", "Rule 58"},
    {"Utf8", "caf\xC3\xA9 \xE2\x82\xB9", "café ₹"},
    {"Utf8MarkDropped", "\xEF\xBB\xBFx", "x"},
    {"Latin1", "caf\xE9 \xA3", "café £"},
    {"CutUtf8SequenceIsLatin1", "a\xC3", "a\u00C3"},
    {"Utf16ByItsMark", QByteArray("\xFF\xFE" "a\0\xAC\x20", 6), "a€"},
};

class DecodeText : public ::testing::TestWithParam<DecodeCase> {};

TEST_P(DecodeText, ReadsUtf8ElseLatin1) { EXPECT_EQ(decodeText(GetParam().bytes), QString::fromUtf8(GetParam().text)); }

INSTANTIATE_TEST_SUITE_P(Bytes, DecodeText, ::testing::ValuesIn(kDecodes), CaseName());

TEST(DecodeHtml, FollowsTheDeclaredCharset) {
    EXPECT_EQ(decodeHtml("<html><meta charset=\"iso-8859-1\"><body>caf\xE9</body></html>"),
              QString::fromUtf8("<html><meta charset=\"iso-8859-1\"><body>café</body></html>"));
    EXPECT_EQ(decodeHtml("<html><body>\xE2\x82\xB9</body></html>"), QString::fromUtf8("<html><body>₹</body></html>"));
}

}  // namespace
}  // namespace documents
