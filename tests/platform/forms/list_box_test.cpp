#include "platform/forms/list_box.h"

#include <gtest/gtest.h>

#include <QTest>

#include "platform/forms/runtime_errors.h"
#include "support/printers.h"

namespace {

struct FindCase {
    const char* name;
    QString prefix;
    int index;
};

class ListBoxFindString : public testing::TestWithParam<FindCase> {};

TEST_P(ListBoxFindString, FirstEntryStartingWithThePrefixWithoutRegardToCase) {
    forms::ListBox list;
    for (const char* text : {"Section 2 Definitions", "Section 6", "section 6 levy of tax", "Sale", "12-3"})
        list.AddItem(text);
    list.setListIndex(3);
    EXPECT_EQ(list.FindString(GetParam().prefix), GetParam().index);
    EXPECT_EQ(list.ListIndex(), 3);   // finding moves nothing
}

INSTANTIATE_TEST_SUITE_P(
    Prefixes, ListBoxFindString,
    testing::Values(FindCase{"ExactStart", "Section 6", 1}, FindCase{"OtherCase", "SECTION 6 L", 2},
                    FindCase{"FromTheTopNotFromTheSelection", "s", 0}, FindCase{"ShortPrefix", "sal", 3},
                    FindCase{"WholeText", "12-3", 4}, FindCase{"NotAtStart", "Definitions", -1},
                    FindCase{"LongerThanAnyEntry", "Sale of goods", -1}, FindCase{"Empty", "", 0}),
    [](const testing::TestParamInfo<FindCase>& info) { return std::string(info.param.name); });

TEST(ListBoxFindStringOnEmptyList, FindsNothing) {
    forms::ListBox list;
    EXPECT_EQ(list.FindString("a"), -1);
    EXPECT_EQ(list.FindString(""), -1);
}

class ListBoxChoice : public testing::Test {
protected:
    void SetUp() override {
        forms::wire(&list, &forms::ListBox::Click, &list,
                    [this] { clicks << QString::number(list.ListIndex()) + ":" + list.Text(); });
        list.AddItem("Section 1");
        list.setItemData(list.NewIndex(), 101);
        list.AddItem("Section 2");
        list.setItemData(list.NewIndex(), 102);
        list.AddItem("Section 0", 0);
        list.setItemData(list.NewIndex(), 100);
    }
    forms::ListBox list;
    QStringList clicks;
};

TEST_F(ListBoxChoice, ItemsKeepTheirDataWhereverTheyAreInserted) {
    EXPECT_EQ(list.ListCount(), 3);
    EXPECT_EQ(list.NewIndex(), 0);
    EXPECT_EQ(list.List(0), QStringLiteral("Section 0"));
    EXPECT_EQ(list.ItemData(1), 101);
    EXPECT_EQ(list.ItemData(2), 102);
    EXPECT_EQ(list.ListIndex(), -1);
    EXPECT_EQ(list.Text(), QString());
    EXPECT_TRUE(clicks.isEmpty());
    list.Clear();
    EXPECT_EQ(list.ListCount(), 0);
    EXPECT_EQ(list.NewIndex(), -1);
}

TEST_F(ListBoxChoice, ClickFollowsEveryChangeOfTheChosenEntryButNotTheEntries) {
    list.setListIndex(1);                                        // set by code
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualItemRect(list.item(2)).center());
    QTest::keyClick(&list, Qt::Key_Up);                          // by keys
    list.setListIndex(-1);
    list.AddItem("Section 3");
    list.setListIndex(0);
    list.Clear();
    EXPECT_EQ(clicks, (QStringList{"1:Section 1", "2:Section 2", "1:Section 1", "-1:", "0:Section 0"}));
    EXPECT_EQ(list.ListIndex(), -1);
}

TEST_F(ListBoxChoice, FocusAloneChoosesNothing) {
    list.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&list));
    list.activateWindow();
    list.setFocus();
    QApplication::processEvents();
    EXPECT_EQ(list.ListIndex(), -1);
    EXPECT_TRUE(clicks.isEmpty());
}

TEST_F(ListBoxChoice, IndicesOutsideTheListRaiseErrors) {
    const std::vector<std::pair<std::function<void()>, int>> cases{
        {[&] { list.List(3); }, 381}, {[&] { list.ItemData(-1); }, 381}, {[&] { list.setListIndex(3); }, 380},
        {[&] { list.AddItem("x", 5); }, 381}};
    for (const auto& [touch, number] : cases) {
        try {
            touch();
            ADD_FAILURE() << "no error raised, expected " << number;
        } catch (const basic::RuntimeError& e) {
            EXPECT_EQ(e.number(), number);
        }
    }
    EXPECT_EQ(list.ListCount(), 3);
}

}  // namespace
