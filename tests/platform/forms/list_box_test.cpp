#include "platform/forms/list_box.h"

#include <gtest/gtest.h>

#include <QTest>

#include "platform/forms/runtime_errors.h"
#include "support/printers.h"

namespace {

class ListBoxChoice : public testing::Test {
protected:
    void SetUp() override {
        forms::wire(&list, &forms::ListBox::Click, &list,
                    [this] { clicks << QString::number(list.ListIndex()) + ":" + list.Text(); });
        for (const auto& [text, at] : std::initializer_list<std::pair<const char*, int>>{{"Section 1", -1}, {"Section 2", -1}, {"Section 0", 0}}) {
            list.AddItem(text, at);
            list.setItemData(list.NewIndex(), 100 + QString(text).back().digitValue());
        }
    }
    forms::ListBox list;
    QStringList clicks;
};

TEST_F(ListBoxChoice, ItemsKeepTheirDataWhereverInsertedAndIndicesOutsideRaise) {
    EXPECT_EQ(list.ListCount(), 3);
    EXPECT_EQ(list.NewIndex(), 0);
    EXPECT_EQ(list.List(0), QStringLiteral("Section 0"));
    EXPECT_EQ(list.ItemData(1), 101);
    EXPECT_EQ(list.ItemData(2), 102);
    EXPECT_EQ(list.ListIndex(), -1);
    EXPECT_EQ(list.Text(), QString());
    EXPECT_TRUE(clicks.isEmpty());
    const std::vector<std::pair<std::function<void()>, int>> outside{
        {[&] { list.List(3); }, 381}, {[&] { list.ItemData(-1); }, 381}, {[&] { list.setListIndex(3); }, 380},
        {[&] { list.AddItem("x", 5); }, 381}};
    for (const auto& [touch, number] : outside) EXPECT_EQ(basic::resume(touch).number(), number);
    EXPECT_EQ(list.ListCount(), 3);
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

}  // namespace
