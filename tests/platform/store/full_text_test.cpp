// The words of a full-text table: what the user types, the word tokenizer and the ranking, read back
// through TextIndex from a file the store wrote.
#include "platform/store/text_index.h"
#include "support/case_name.h"

#include "fixture.h"

namespace {

// What the user types and the match and exclusion it becomes. Plain words, a phrase, OR and NOT alone are
// pinned by what the library's search finds.
struct QueryCase { const char* name; QString typed, match; };

const QueryCase kQueries[] = {
    {"NotAndMinus", "tax NOT cess -rubber", R"("tax" | "cess" OR "rubber")"},
    {"Prefixes", R"(cred* "input tax cr*" "tax"*)", R"("cred*" "input tax cr*" "tax*")"},
    {"HyphenJoinsAPhrase", "input-tax", R"("input tax")"},
    {"DanglingOr", "OR tax OR", R"("tax")"},
    {"ExcludedPhrase", "tax OR -\"cess rate\"", R"("tax" | "cess rate")"},
    {"UnclosedPhrase", R"("unclosed phrase)", R"("unclosed phrase")"},
    // A chillu typed as one letter, or as consonant, virama and joiner, is the same word.
    {"ChilluAsOneLetter", u"\u0D38\u0D7C\u0D15\u0D4D\u0D15\u0D41\u0D32\u0D7C"_qs,
     u"\"\u0D38\u0D30\u0D4D\u0D15\u0D4D\u0D15\u0D41\u0D32\u0D30\u0D4D\""_qs},
    {"ChilluWithJoiner", u"\u0D38\u0D30\u0D4D\u200D\u0D15\u0D4D\u0D15\u0D41\u0D32\u0D30\u0D4D\u200D"_qs,
     u"\"\u0D38\u0D30\u0D4D\u0D15\u0D4D\u0D15\u0D41\u0D32\u0D30\u0D4D\""_qs},
};

class TextQuery : public ::testing::TestWithParam<QueryCase> {};

TEST_P(TextQuery, ReadsWhatTheUserTypes) {
    const store::TextQuery q = store::parseTextQuery(GetParam().typed);
    const QString exclusion = q.exclusionExpression();
    EXPECT_EQ(q.matchExpression() + (exclusion.isEmpty() ? QString() : " | " + exclusion), GetParam().match);
}

INSTANTIATE_TEST_SUITE_P(Typed, TextQuery, ::testing::ValuesIn(kQueries), CaseName());

// Whole words found and the titles ranked first, in a table the store wrote, with the snippet of the best
// hit: in English and Malayalam, across a dash, a diaeresis and a soft hyphen.
struct WordsCase { const char* name; QString typed, keys, snippet; };

const WordsCase kWords[] = {
    {"TitleBeforeBody", "input credit", "title body", "\x02" "Credit\x03 of the tax paid on goods bought for resale."},
    {"MalayalamWord", "നികുതി", "malayalam", "കൈത്തറി തുണിത്തരങ്ങൾക്ക് \x02നികുതി\x03 ഇളവ് അനുവദിക്കുന്നു."},
    {"MalayalamWordWithVirama", "ഇളവ്", "malayalam", "കൈത്തറി തുണിത്തരങ്ങൾക്ക് നികുതി \x02ഇളവ്\x03 അനുവദിക്കുന്നു."},
    {"DashAndDiaeresis", "exempt NAÏVE", "dash", "Goods—\x02" "exempt\x03 from tax; a \x02naïve\x03 café."},
    {"SoftHyphen", "tellurian", "soft", "A \x02tel\u00ADlurian\x03 metal, broken where a line may end."},
};

class FullTextWords : public StoreFixture, public ::testing::WithParamInterface<WordsCase> {};

TEST_P(FullTextWords, FindsWholeWordsAndRanksTitlesFirst) {
    cn.Execute("CREATE VIRTUAL TABLE Words USING fts4(key, title, body, tokenize=words)");
    const char* rows[][3] = {
        {"body", "Rubber", "Dealers in rubber asked about the input tax credit of last year, once."},
        {"title", "Input tax credit", "Credit of the tax paid on goods bought for resale."},
        {"malayalam", "കൈത്തറി", "കൈത്തറി തുണിത്തരങ്ങൾക്ക് നികുതി ഇളവ് അനുവദിക്കുന്നു."},
        {"consonants", "Split", "നിക ത, the consonants of that word with no vowel signs."},
        {"dash", "Dashes", "Goods—exempt from tax; a naïve café."},
        {"soft", "Soft", "A tel\u00ADlurian metal, broken where a line may end."},
    };
    for (const auto& r : rows)
        cn.Execute(QStringLiteral("INSERT INTO Words VALUES ('%1', '%2', '%3')").arg(r[0], r[1], r[2]));
    store::TextIndex index(connectionString());
    store::TextSearch search{"Words", {"key"}, {0, 10, 1}, 2, 24, {}, {}, 50};
    QStringList keys;
    const std::vector<store::TextHit> hits = index.search(search, store::parseTextQuery(GetParam().typed));
    for (const store::TextHit& h : hits) keys << h.values[0];
    EXPECT_EQ(keys.join(u' '), GetParam().keys);
    ASSERT_FALSE(hits.empty());
    EXPECT_EQ(hits[0].snippet, GetParam().snippet);
}

INSTANTIATE_TEST_SUITE_P(Searches, FullTextWords, ::testing::ValuesIn(kWords), CaseName());

}  // namespace
