#include "platform/documents/document_kind.h"

#include "support/printers.h"

#include <gtest/gtest.h>

namespace documents {
namespace {

struct KindCase {
    const char* name;
    QByteArray bytes;
    Kind kind;
};

class KindOf : public ::testing::TestWithParam<KindCase> {};

TEST_P(KindOf, TellsTheKindByTheFirstBytes) { EXPECT_EQ(kindOf(GetParam().bytes), GetParam().kind); }

INSTANTIATE_TEST_SUITE_P(
    Documents, KindOf,
    ::testing::Values(
        KindCase{"empty", QByteArray(), Kind::None},
        KindCase{"rtf", "{\\rtf1\\ansi hello}", Kind::Rtf},
        KindCase{"rtfNotAtStart", " {\\rtf1 x}", Kind::Text},
        KindCase{"pdf", "%PDF-1.4\n%\xE2\xE3", Kind::Pdf},
        KindCase{"pdfWithoutDash", "%PDF1.4", Kind::Text},
        KindCase{"doctype", "<!DOCTYPE html><html></html>", Kind::Html},
        KindCase{"doctypeLower", "<!doctype HTML>", Kind::Html},
        KindCase{"htmlAfterBomAndBlanks", "\xEF\xBB\xBF \r\n\t<HTML lang=en>", Kind::Html},
        KindCase{"head", "<head><title>x</title></head>", Kind::Html},
        KindCase{"body", "<Body>", Kind::Html},
        KindCase{"headerIsNotHead", "<header>x</header>", Kind::Text},
        KindCase{"htmlTagOnly", "<html", Kind::Html},
        KindCase{"otherTag", "<p>hello</p>", Kind::Text},
        KindCase{"plain", "Section 11. Input tax", Kind::Text},
        KindCase{"latin1", "caf\xE9", Kind::Text}),
    [](const auto& info) { return std::string(info.param.name); });

struct DecodeCase {
    const char* name;
    QByteArray bytes;
    QString text;
};

class DecodeText : public ::testing::TestWithParam<DecodeCase> {};

TEST_P(DecodeText, ReadsUtf8ElseLatin1) { EXPECT_EQ(decodeText(GetParam().bytes), GetParam().text); }

INSTANTIATE_TEST_SUITE_P(
    Documents, DecodeText,
    ::testing::Values(DecodeCase{"ascii", "Rule 58", QString::fromUtf8("Rule 58")},
                      DecodeCase{"utf8", "caf\xC3\xA9 \xE2\x82\xB9", QString::fromUtf8("café ₹")},
                      DecodeCase{"utf8Bom", "\xEF\xBB\xBFx", QString::fromUtf8("x")},
                      DecodeCase{"latin1", "caf\xE9 \xA3", QString::fromUtf8("café £")},
                      DecodeCase{"cutUtf8IsLatin1", "a\xC3", QString::fromUtf8("a\u00C3")},
                      DecodeCase{"utf16le", QByteArray("\xFF\xFE" "a\0\xAC\x20", 6), QString::fromUtf8("a€")}),
    [](const auto& info) { return std::string(info.param.name); });

TEST(DecodeHtml, FollowsTheDeclaredCharset) {
    EXPECT_EQ(decodeHtml("<html><meta charset=\"iso-8859-1\"><body>caf\xE9</body></html>"),
              QString::fromUtf8("<html><meta charset=\"iso-8859-1\"><body>café</body></html>"));
    EXPECT_EQ(decodeHtml("<html><body>\xE2\x82\xB9</body></html>"), QString::fromUtf8("<html><body>₹</body></html>"));
}

}  // namespace
}  // namespace documents
