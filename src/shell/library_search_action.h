#pragma once
// The way into the library search from the windows of the shell and the law library: a toolbar button
// with a magnifier of our own drawing, and Ctrl+Shift+F anywhere in the window. Both open frmTextSearch.
// The button stands apart from the window's keyed buttons, so their handlers never see it.
#include <QIcon>

class QAction;
class QToolBar;

namespace shell {

QAction* addLibrarySearch(QToolBar* toolbar);

QIcon magnifierIcon();

}  // namespace shell
