// The word search: the statement built from the typed words, the list it fills on the sample library, and
// the typing search that only moves the list's selection.
#include "platform/forms/list_box.h"
#include "platform/forms/msgbox.h"
#include "shell/cls_service.h"
#include "shell/library_fixture.h"
#include "shell/word_search.h"

#include <vector>

namespace {

TEST(WordSearchQuery, PatternFromTheTypedWords) {
    struct Case {
        const char* text;
        const char* sort;
        const char* query;
    };
    const Case cases[] = {
        // A leading blank ties the word to a word start: sales tax, not syntax.
        {" tax", "", "Select  * from Keralafields where lcase(`ActSection`) like '% tax%'"},
        {"tax ", "", "Select  * from Keralafields where lcase(`ActSection`) like '%tax %'"},
        // Words in the order typed, runs of blanks as one, lower case; the order clause behind the pattern.
        {"Input  Tax", "ActSection",
         "Select  * from Keralafields where lcase(`ActSection`) like '%input% %tax%' ORDER BY ActSection"},
        {"  input   tax  credit ", "",
         "Select  * from Keralafields where lcase(`ActSection`) like '% input% %tax% %credit %'"},
        {"[a]", "", "Select  * from Keralafields where lcase(`ActSection`) like '%%a%%'"},
        {"{Sale}", "", "Select  * from Keralafields where lcase(`ActSection`) like '%%sale%%'"},
        {"Dealer's", "", "Select  * from Keralafields where lcase(`ActSection`) like '%dealer''s%'"},
        {"", "  ", "Select  * from Keralafields where lcase(`ActSection`) like '%%'"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(shell::WordSearchQuery(QStringLiteral("Keralafields"), QStringLiteral(" ActSection "),
                                         QString::fromUtf8(c.text), QString::fromUtf8(c.sort)),
                  QString::fromUtf8(c.query))
            << c.text;
}

TEST(ListEntryText, CutAtTheLastHyphenUnlessTheFirstLeads) {
    const std::pair<const char*, const char*> cases[] = {
        {"12-Sale", "12"}, {"12-3-Act", "12-3"}, {"1-2-Sale within the State", "1-2"},
        {"-Levy of tax", "-Levy of tax"}, {"-12-3", "-12-3"}, {"99", "99"}, {"14/2008-", "14/2008"}, {"-", "-"},
    };
    for (const auto& [value, shown] : cases)
        EXPECT_EQ(shell::ListEntryText(QString::fromUtf8(value)), QString::fromUtf8(shown)) << value;
}

class WordSearch : public LibraryFixture {
protected:
    void SetUp() override {
        LibraryFixture::SetUp();
        // Rows beside the sample's own that tell word boundaries and word order apart.
        for (const char* row : {"(201, '31-Syntax of returns')", "(202, '32-Input tax credit')",
                                "(203, '33-Tax on input goods')", "(204, '12-3-Act')", "(205, '34-Dealer''s turnover')"})
            shell::cnLibrary1.Execute(QStringLiteral("INSERT INTO Keralafields (ID, ActSection) VALUES ") +
                                      QString::fromUtf8(row));
    }
    void search(const QString& table, const QString& text) {
        shell::WordSearchToList(&list, table, QStringLiteral("ActSection"), text, QStringLiteral("ActSection"));
    }
    std::vector<std::pair<QString, int>> entries() const {
        std::vector<std::pair<QString, int>> all;
        for (int i = 0; i < list.ListCount(); ++i) all.emplace_back(list.List(i), list.ItemData(i));
        return all;
    }
    // Made after SetUp has made the application.
    struct App {
        App() { ensureApp(); }
    } app;
    forms::ListBox list;
    forms::MsgBoxRecorder boxes;
};

TEST_F(WordSearch, FindsSectionsByWordsInOrder) {
    using Entries = std::vector<std::pair<QString, int>>;
    const std::pair<const char*, Entries> cases[] = {
        {" tax", {{"-Levy of tax", 7}, {"32", 202}, {"6", 3}}},
        {"TAX", {{"-Levy of tax", 7}, {"31", 201}, {"32", 202}, {"33", 203}, {"6", 3}}},
        {"input   tax", {{"32", 202}}},
        {"tax input", {{"33", 203}}},
        {"dealer's", {{"34", 205}}},
        {"12-3-act", {{"12-3", 204}}},
        {"no such words", {}},
        // Everything back, but the empty text and Null.
        {"", {{"-Levy of tax", 7}, {"1-2", 5}, {"1", 1}, {"10", 6}, {"12-3", 204}, {"2", 2}, {"31", 201},
              {"32", 202}, {"33", 203}, {"34", 205}, {"6", 3}, {"6A", 4}, {"7", 9}, {"99", 8}}},
    };
    for (const auto& [text, expected] : cases) {
        search(QStringLiteral("Keralafields"), QString::fromUtf8(text));
        EXPECT_EQ(entries(), expected) << text;
    }
    EXPECT_TRUE(boxes.boxes().empty());
    EXPECT_EQ(shell::rsWordSearch.State(), 1);
    EXPECT_TRUE(shell::rsWordSearch.Eof());
}

TEST_F(WordSearch, WhatGoesWrongLeavesTheListAsItWas) {
    search(QStringLiteral("Keralafields"), QStringLiteral("levy"));
    const auto before = entries();
    ASSERT_EQ(before.size(), 2u);

    shell::WordSearchToList(&list, QStringLiteral("  "), QStringLiteral("ActSection"), QString(), QString());
    shell::WordSearchToList(&list, QStringLiteral("Keralafields"), QStringLiteral(" "), QString(), QString());
    EXPECT_EQ(entries(), before);
    EXPECT_TRUE(boxes.boxes().empty());

    // A table that no library file holds fails at the open, before the list is cleared.
    search(QStringLiteral("NoSuchTable"), QStringLiteral("levy"));
    EXPECT_EQ(entries(), before);
    ASSERT_EQ(boxes.boxes().size(), 1u);
    EXPECT_TRUE(boxes.boxes()[0].text.startsWith(QStringLiteral("WS Err "))) << boxes.boxes()[0].text.toStdString();
    EXPECT_EQ(boxes.boxes()[0].style, forms::vbExclamation);
    EXPECT_EQ(boxes.boxes()[0].title, QStringLiteral("IN_DEBUG"));
}

TEST(ListBoxTypingSearch, PrefixWithoutRegardToCase) {
    ensureApp();
    forms::ListBox list;
    for (const char* entry : {"Sale within the State", "sales tax", "Schedule", "1-2"})
        list.AddItem(QString::fromUtf8(entry));
    shell::clsService service;
    const std::pair<const char*, int> cases[] = {
        {"SAL", 0}, {"sales", 1}, {"sch", 2}, {"1-", 3}, {"x", -1}, {"ale", -1}, {"Schedule 1", -1}, {"", 0},
    };
    for (const auto& [text, index] : cases) {
        list.setListIndex(2);
        EXPECT_EQ(service.ListBoxTypingSearch(&list, QString::fromUtf8(text)), index) << text;
        EXPECT_EQ(list.ListIndex(), index) << text;
    }
    EXPECT_EQ(service.ListBoxTypingSearch(nullptr, QStringLiteral("a")), 0);
}

}  // namespace
