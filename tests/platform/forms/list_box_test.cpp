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
        for (const char* text : {"Section 0", "Section 1", "Section 2"}) list.AddItem(text);
    }
    forms::ListBox list;
    QStringList clicks;
};

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
