// The word search: the list the typed words fill. The typing search is
// driven through the list page (tests/library/list_page_test.cpp).
#include "platform/forms/list_box.h"
#include "shell/library_fixture.h"
#include "shell/word_search.h"

namespace {

class WordSearch : public LibraryFixture {
protected:
    std::vector<std::pair<QString, int>> search(const QString& table, const QString& text) {
        shell::WordSearchToList(&list, table, QStringLiteral("ActSection"), text, QStringLiteral("ActSection"));
        std::vector<std::pair<QString, int>> all;
        for (int i = 0; i < list.ListCount(); ++i) all.emplace_back(list.List(i), list.ItemData(i));
        return all;
    }
    forms::ListBox list;
    forms::MsgBoxRecorder boxes;
};

TEST_F(WordSearch, FindsSectionsByWordsInOrder) {
    // The program opens its library read-only: the rows go in before it is opened again.
    shell::cnLibrary1 = shell::cnLibrary2 = shell::cnLibrary3 = store::Connection();
    store::Connection writer;
    writer.Open(shell::strLibraryCn1);
    for (const char* row : {"(201, '31-Syntax of returns')", "(202, '32-Input tax credit')",
                            "(203, '33-Tax on input goods')", "(204, '12-3-Act')", "(205, '34-Dealer''s turnover')"})
        writer.Execute(QStringLiteral("INSERT INTO Keralafields (ID, ActSection) VALUES ") + row);
    writer.Close();
    shell::InitLibraryStore();
    using Entries = std::vector<std::pair<QString, int>>;
    const std::pair<const char*, Entries> cases[] = {
        {" tax", {{"-Levy of tax", 7}, {"32", 202}, {"6", 3}}},
        {"TAX", {{"-Levy of tax", 7}, {"31", 201}, {"32", 202}, {"33", 203}, {"6", 3}}},
        {"input   tax", {{"32", 202}}},
        {"tax ", {{"31", 201}, {"32", 202}, {"33", 203}}},  // a blank at the end too
        {"[Input] {tax}", {{"32", 202}}},                 // brackets match anything
        {"tax input", {{"33", 203}}},
        {"dealer's", {{"34", 205}}},
        {"12-3-act", {{"12-3", 204}}},  // listed up to its last hyphen
        {"", {{"-Levy of tax", 7}, {"1-2", 5}, {"1", 1}, {"10", 6}, {"12-3", 204}, {"2", 2}, {"31", 201},
              {"32", 202}, {"33", 203}, {"34", 205}, {"6", 3}, {"6A", 4}, {"7", 9}, {"99", 8}}},  // not "" nor Null
    };
    for (const auto& [text, expected] : cases) EXPECT_EQ(search("Keralafields", text), expected) << text;
    EXPECT_TRUE(boxes.boxes().empty());

    // No table or column: nothing happens. A table no file holds: the box, and the list as it was.
    const Entries before = search("Keralafields", "levy");
    shell::WordSearchToList(&list, QStringLiteral(" "), QStringLiteral("ActSection"), QString(), QString());
    shell::WordSearchToList(&list, QStringLiteral("Keralafields"), QString(), QString(), QString());
    EXPECT_TRUE(boxes.boxes().empty());
    EXPECT_EQ(search("NoSuchTable", "levy"), before);
    ASSERT_EQ(boxes.boxes().size(), 1u);
    EXPECT_TRUE(boxes.boxes()[0].text.startsWith(QStringLiteral("WS Err "))) << boxes.boxes()[0].text.toStdString();
    EXPECT_EQ(boxes.boxes()[0].style, forms::vbExclamation);
    EXPECT_EQ(boxes.boxes()[0].title, QStringLiteral("IN_DEBUG"));
}

}  // namespace
