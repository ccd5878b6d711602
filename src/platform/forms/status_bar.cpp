#include "platform/forms/status_bar.h"

#include "platform/forms/errors.h"

namespace forms {

StatusBar::StatusBar(int panelCount, QWidget* parent) : QStatusBar(parent) {
    setSizeGripEnabled(false);
    for (int i = 0; i < panelCount; ++i) {
        auto* panel = new StatusBarPanel(this);
        panel->setFrameShape(QFrame::Panel);
        panel->setFrameShadow(QFrame::Sunken);
        addPermanentWidget(panel, i == 0 ? 1 : 0);
        panels_.push_back(panel);
    }
}

StatusBarPanel& StatusBar::Panels(int index) {
    if (index < 1 || index > PanelCount()) throw indexOutOfBounds();
    return *panels_[index - 1];
}

}  // namespace forms
