#include "platform/forms/toolbar.h"

#include <gtest/gtest.h>

#include <QTest>

#include "platform/forms/runtime_errors.h"
#include "support/printers.h"

namespace {

class ToolbarClicks : public testing::Test {
protected:
    void SetUp() override {
        toolbar.Buttons.Add("Act", "Act").setToolTipText("Act");
        auto rules = toolbar.Buttons.Add("rul", "Rules");
        rules.ButtonMenus().Add("CP", "Cash Payment");
        rules.ButtonMenus().Add("BP", "Bank Payment");
        toolbar.Buttons.Add("bac", "Back").setToolTipText("Back to Main Menu");
        forms::wire(&toolbar, &forms::Toolbar::ButtonClick, &toolbar, [this](const QString& key) { events << key; });
        forms::wire(&toolbar, &forms::Toolbar::ButtonMenuClick, &toolbar,
                    [this](const QString& button, const QString& entry) { events << button + "/" + entry; });
        toolbar.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&toolbar));
    }
    void click(const QString& key) {
        QWidget* button = toolbar.widgetForAction(toolbar.Buttons(key).action());
        QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(5, button->height() / 2));
    }

    forms::Toolbar toolbar;
    QStringList events;
};

TEST_F(ToolbarClicks, PressGivesTheButtonsKeyUnlessDisabledOrHidden) {
    click("bac");
    click("Act");
    click("rul");   // the button part of a drop-down button
    toolbar.Buttons("Act").setEnabled(false);
    click("Act");
    toolbar.Buttons("bac").setVisible(false);
    QApplication::processEvents();
    EXPECT_FALSE(toolbar.widgetForAction(toolbar.Buttons("bac").action())->isVisible());
    EXPECT_EQ(events, (QStringList{"bac", "Act", "rul"}));
}

// A drop-down entry gives the button's key and the entry's; a button keeps its tool tip.
TEST_F(ToolbarClicks, EntriesGiveTheButtonsKeyAndTheirOwn) {
    toolbar.Buttons("rul").ButtonMenus()("BP")->trigger();
    EXPECT_EQ(events, QStringList{"rul/BP"});
    EXPECT_EQ(toolbar.Buttons("bac").ToolTipText(), QStringLiteral("Back to Main Menu"));
}

// One Tab stop for the bar; the arrows walk the visible, enabled buttons round; Enter and Space press.
TEST_F(ToolbarClicks, KeyboardWalksTheBarAndPresses) {
    toolbar.Buttons("rul").setEnabled(false);
    const auto focusedKey = [&] {
        for (QAction* a : toolbar.actions())
            if (toolbar.widgetForAction(a) == QApplication::focusWidget()) return a->property("vorlanKey").toString();
        return QString();
    };
    toolbar.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&toolbar));
    toolbar.focusButtons();
    const struct { Qt::Key key; const char* focused; QStringList events; } steps[] = {
        {Qt::Key_Right, "bac", {}}, {Qt::Key_Right, "Act", {}}, {Qt::Key_Left, "bac", {}},
        {Qt::Key_Return, "bac", {"bac"}}, {Qt::Key_Space, "bac", {"bac", "bac"}},
    };
    for (const auto& step : steps) {
        QTest::keyClick(QApplication::focusWidget(), step.key);
        EXPECT_EQ(focusedKey(), step.focused) << step.key;
        EXPECT_EQ(events, step.events) << step.key;
    }
    // The bar is one stop: Tab finds no other button in it.
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(focusedKey(), "bac");
    // A bar that may take the focus itself hands it on to that button, so Tab never rests on the bare bar.
    toolbar.setFocusPolicy(Qt::StrongFocus);
    toolbar.setFocus(Qt::TabFocusReason);
    EXPECT_EQ(focusedKey(), "bac");
}

// What a window adds after its own buttons stands outside their ring: Left from the first of them still
// comes round to the last of them, and the additions follow that last one by Right.
TEST_F(ToolbarClicks, AddedButtonsLeaveTheRingOfTheOwnAsItWas) {
    toolbar.addSeparator();
    toolbar.addAction("Search");
    toolbar.addAction("Recent");
    toolbar.resize(800, toolbar.height());   // room for all, none in the overflow menu
    QApplication::processEvents();
    const auto focused = [&] {
        for (QAction* a : toolbar.actions())
            if (toolbar.widgetForAction(a) == QApplication::focusWidget())
                return a->property("vorlanKey").isValid() ? a->property("vorlanKey").toString() : a->text();
        return QString();
    };
    toolbar.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&toolbar));
    toolbar.focusButtons();
    const struct { Qt::Key key; const char* focused; } steps[] = {
        {Qt::Key_Left, "bac"}, {Qt::Key_Left, "rul"}, {Qt::Key_Right, "bac"}, {Qt::Key_Right, "Search"},
        {Qt::Key_Right, "Recent"}, {Qt::Key_Right, "Act"}, {Qt::Key_Right, "rul"}, {Qt::Key_Left, "Act"},
        {Qt::Key_Left, "bac"}, {Qt::Key_Right, "Search"}, {Qt::Key_Left, "bac"},
    };
    for (const auto& step : steps) {
        QTest::keyClick(QApplication::focusWidget(), step.key);
        EXPECT_EQ(focused().toStdString(), step.focused) << step.key;
    }
}

}  // namespace
