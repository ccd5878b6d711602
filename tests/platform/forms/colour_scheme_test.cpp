// The desktop's colour scheme: when the program turns dark, and which windows do.
#include "platform/forms/colour_scheme.h"
#include "platform/forms/layout.h"

#include <QApplication>
#include <QLabel>

#include <gtest/gtest.h>

namespace {

using forms::DesktopScheme;

struct Desktop {
    const char* name;
    bool qtPaletteDark;
    DesktopScheme portal;
    const char* gtkTheme;
    bool dark;
};
void PrintTo(const Desktop& d, std::ostream* os) { *os << d.name; }

class DarkPalette : public ::testing::TestWithParam<Desktop> {};

TEST_P(DarkPalette, FollowsTheDesktop) {
    const Desktop& d = GetParam();
    EXPECT_EQ(forms::wantsDarkPalette(d.qtPaletteDark, d.portal, QString::fromLatin1(d.gtkTheme)), d.dark);
}

INSTANTIATE_TEST_SUITE_P(
    Desktops, DarkPalette,
    ::testing::Values(Desktop{"QtGaveDark", true, DesktopScheme::Light, "", true},
                      Desktop{"PortalDark", false, DesktopScheme::Dark, "", true},
                      Desktop{"PortalLightOverGtkTheme", false, DesktopScheme::Light, "Adwaita:dark", false},
                      Desktop{"GtkVariant", false, DesktopScheme::Unknown, "Adwaita:dark", true},
                      Desktop{"GtkThemeName", false, DesktopScheme::Unknown, "Yaru-dark", true},
                      Desktop{"GtkLightTheme", false, DesktopScheme::Unknown, "Adwaita", false},
                      Desktop{"NothingSaid", false, DesktopScheme::Unknown, "", false}),
    [](const auto& info) { return std::string(info.param.name); });

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
