#pragma once
// The desktop's colour scheme. Qt's palette is the program's; but on most Linux desktops Qt 6.4 reads no
// colours of the desktop and stays light when the desktop is dark. So the desktop is asked as well: its
// settings portal (org.freedesktop.appearance color-scheme), answered without waiting and followed as it
// changes, and a GTK_THEME that names a dark theme. Asked for dark, every window takes a dark palette but
// one whose design fixes a light colour somewhere: that window keeps its look as a whole.
#include <QPalette>
#include <QString>

namespace forms {

enum class DesktopScheme { Unknown, Light, Dark };

// The rule: a palette that Qt made dark is kept; else the portal's answer decides, else GTK_THEME.
bool wantsDarkPalette(bool paletteIsDark, DesktopScheme portal, const QString& gtkTheme);

bool isDark(const QPalette& palette);
QPalette darkPalette();

// Applies the rule now and whenever the desktop's scheme changes. Needs the application object.
void FollowDesktopScheme();
// Whether the program's windows are dark now: Qt's palette is, or the desktop asked for it.
bool DesktopIsDark();

}  // namespace forms
