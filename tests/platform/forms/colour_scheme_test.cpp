// A dark desktop (here a dark GTK theme) and which windows of the program turn dark.
#include "platform/forms/colour_scheme.h"
#include "platform/forms/layout.h"

#include <QApplication>
#include <QLabel>

#include <gtest/gtest.h>

namespace {

// A window of default colours turns dark; one whose design fixes a light ground keeps its look whole, the
// fixed colour and the text on it; both come back when the desktop is light again.
TEST(DarkPalette, ADarkDesktopDarkensEveryWindowButADesignedOne) {
    ASSERT_FALSE(forms::isDark(QApplication::palette()));
    QWidget plain, designed;
    auto* text = new QLabel(QStringLiteral("Input tax"), &plain);
    auto* frame = new QLabel(QStringLiteral("Purchases"), &designed);
    forms::setBackColour(frame, 0xC0FFFF);  // a light yellow of the window's design
    qputenv("GTK_THEME", "Adwaita:dark");
    forms::FollowDesktopScheme();
    plain.show();
    designed.show();
    EXPECT_TRUE(forms::DesktopIsDark());
    EXPECT_TRUE(forms::isDark(text->palette()));
    EXPECT_FALSE(forms::isDark(designed.palette()));
    EXPECT_EQ(frame->palette().color(QPalette::Window), forms::oleColor(0xC0FFFF));
    EXPECT_LT(frame->palette().color(QPalette::WindowText).lightness(), 100);
    qunsetenv("GTK_THEME");
    forms::FollowDesktopScheme();
    EXPECT_FALSE(forms::isDark(text->palette()));
}

}  // namespace
