#pragma once
// The status bar of the windows: a fixed number of text panels, Panels(1) to Panels(n); the first
// takes the spare width.
#include <QLabel>
#include <QStatusBar>
#include <vector>

namespace forms {

class StatusBarPanel : public QLabel {
    Q_OBJECT
public:
    using QLabel::QLabel;
    QString Text() const { return text(); }
};

class StatusBar : public QStatusBar {
    Q_OBJECT
public:
    explicit StatusBar(int panelCount = 1, QWidget* parent = nullptr);
    StatusBarPanel& Panels(int index);              // from 1; out of range raises 35600
    int PanelCount() const { return static_cast<int>(panels_.size()); }

private:
    std::vector<StatusBarPanel*> panels_;
};

}  // namespace forms
