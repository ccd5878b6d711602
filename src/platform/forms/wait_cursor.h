#pragma once
// The hourglass for the length of a block: it goes before anything that follows the block, a box
// included, whichever way the block ends.
#include <QGuiApplication>

namespace forms {

class WaitCursor {
public:
    WaitCursor() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    ~WaitCursor() { QGuiApplication::restoreOverrideCursor(); }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;
};

}  // namespace forms
