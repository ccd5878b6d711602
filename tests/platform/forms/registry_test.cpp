#include "platform/forms/window_registry.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QPointer>

namespace {

class frmTest : public QWidget {};

class WindowRegistry : public testing::Test {
protected:
    void SetUp() override {
        forms::reset();
        forms::define("frmTest", [this] {
            ++made;
            return new frmTest;
        });
        forms::define("label", [] { return new QLabel; });
    }
    void TearDown() override { forms::reset(); }
    int made = 0;
};

TEST_F(WindowRegistry, OneInstanceFromFirstTouchUntilReset) {
    EXPECT_FALSE(forms::exists("frmTest"));
    EXPECT_EQ(made, 0);
    QPointer<QWidget> first = forms::get<frmTest>("frmTest");
    EXPECT_TRUE(forms::exists("frmTest"));
    first->hide();
    EXPECT_EQ(forms::get("frmTest"), first.data());
    EXPECT_EQ(made, 1);
    QPointer<QWidget> label = forms::get("label");
    forms::reset();
    EXPECT_TRUE(first.isNull());
    EXPECT_TRUE(label.isNull());
    EXPECT_FALSE(forms::exists("frmTest"));
    forms::get("frmTest");
    EXPECT_EQ(made, 2);
}

TEST_F(WindowRegistry, ResetSurvivesAWindowThatAnotherTookOver) {
    QPointer<QWidget> owned = forms::get("frmTest");
    forms::define("frmOwner", [] {
        auto* owner = new QWidget;
        forms::get("frmTest")->setParent(owner);
        return owner;
    });
    forms::get("frmOwner");
    forms::reset();   // the owner goes first and takes frmTest with it; frmTest is not deleted twice
    EXPECT_TRUE(owned.isNull());
    EXPECT_FALSE(forms::exists("frmOwner"));
}

}  // namespace
