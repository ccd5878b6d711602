#pragma once
// One instance per window for the whole run, made on first touch from the factory that app/ registers
// under the window's name. Windows reach each other only through here, so lower layers never include
// the windows above them. A window that is closed only hides (Qt's default), and keeps its state.
#include <QString>
#include <QWidget>
#include <functional>

#include "platform/basic/runtime_error.h"

namespace forms {

using WindowFactory = std::function<QWidget*()>;

// Registers (or replaces) the factory of a window; an instance already made stays.
void define(const QString& name, WindowFactory factory);

// The window's one instance, made now if it does not exist yet. An unknown name, or a window that asks
// for itself while it is being made, raises run-time error 5.
QWidget* get(const QString& name);

// The same, as the window's own class; a window of another class raises 13 "Type mismatch".
template <class T>
T* get(const QString& name) {
    auto* window = dynamic_cast<T*>(get(name));
    if (!window) throw basic::typeMismatch();
    return window;
}

// Shows the window of that name, raised and active, over whatever window holds the input: over a modal
// window it is made modal too, or no key could reach it.
void showOverInput(const QString& name);

// True when the window's instance has been made (and not destroyed since).
bool exists(const QString& name);

// Destroys every instance, the latest made first; the factories stay. For tests.
void reset();

}  // namespace forms
