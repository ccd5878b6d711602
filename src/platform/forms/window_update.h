#pragma once
// Holds the repaints of one window while it is being rearranged, so that it is drawn once at the end.
// LockWindowUpdate(window) holds; LockWindowUpdate(nullptr) releases and repaints. One window at a
// time: locking while another is held fails and returns false.
class QWidget;

namespace forms {

bool LockWindowUpdate(QWidget* window);

}  // namespace forms
