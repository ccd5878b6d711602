#pragma once
// The language's Show for a window of ours: its Form_Load on the first showing (and again after an unload
// has cleared `loaded`), then shown and made active, then its Form_Activate.

namespace forms {

template <class Window>
void showForm(Window* window, bool& loaded) {
    if (!loaded) {
        loaded = true;
        window->Form_Load();
    }
    window->show();
    window->activateWindow();
    window->Form_Activate();
}

}  // namespace forms
