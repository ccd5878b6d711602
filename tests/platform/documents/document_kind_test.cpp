#include "platform/documents/document_kind.h"

#include "support/printers.h"

#include <gtest/gtest.h>

namespace documents {
namespace {

TEST(KindOf, TellsTheKindByTheFirstBytes) {
    const std::pair<QByteArray, Kind> cases[] = {
        {QByteArray(), Kind::None},           {"{\\rtf1\\ansi hello}", Kind::Rtf},
        {" {\\rtf1 x}", Kind::Text},          {"%PDF-1.4\n%\xE2\xE3", Kind::Pdf},
        {"%PDF1.4", Kind::Text},              {"<!DOCTYPE html><html></html>", Kind::Html},
        {"<!doctype HTML>", Kind::Html},      {"\xEF\xBB\xBF \r\n\t<HTML lang=en>", Kind::Html},
        {"<head><title>x</title></head>", Kind::Html}, {"<Body>", Kind::Html},
        {"<header>x</header>", Kind::Text},   {"<html", Kind::Html},
        {"<p>hello</p>", Kind::Text},         {"Section 11. Input tax", Kind::Text},
        {"caf\xE9", Kind::Text}};
    for (const auto& [bytes, kind] : cases) EXPECT_EQ(kindOf(bytes), kind) << bytes.constData();
}

TEST(DecodeText, ReadsUtf8ElseLatin1) {
    const std::pair<QByteArray, const char*> cases[] = {
        {"Rule 58", "Rule 58"},           {"caf\xC3\xA9 \xE2\x82\xB9", "café ₹"}, {"\xEF\xBB\xBFx", "x"},
        {"caf\xE9 \xA3", "café £"},       {"a\xC3", "a\u00C3"},  // a cut UTF-8 sequence is Latin-1
        {QByteArray("\xFF\xFE" "a\0\xAC\x20", 6), "a€"}};
    for (const auto& [bytes, text] : cases) EXPECT_EQ(decodeText(bytes), QString::fromUtf8(text)) << bytes.constData();
}

TEST(DecodeHtml, FollowsTheDeclaredCharset) {
    EXPECT_EQ(decodeHtml("<html><meta charset=\"iso-8859-1\"><body>caf\xE9</body></html>"),
              QString::fromUtf8("<html><meta charset=\"iso-8859-1\"><body>café</body></html>"));
    EXPECT_EQ(decodeHtml("<html><body>\xE2\x82\xB9</body></html>"), QString::fromUtf8("<html><body>₹</body></html>"));
}

}  // namespace
}  // namespace documents
