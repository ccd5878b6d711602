#pragma once
// The toolbar of the windows: buttons by key with caption, tool tip and image, drop-down entries by key.
// ButtonClick carries the pressed button's key, ButtonMenuClick the button's and the entry's.
// The keyboard reaches every button: Tab stops once on the bar, Left and Right step along it (round
// from the last to the first), and Enter or Space presses the button that has the focus.
#include <QAction>
#include <QMenu>
#include <QToolBar>

#include "platform/forms/image_list.h"

namespace forms {

class Toolbar;

// The drop-down entries of one button.
class ButtonMenus {
public:
    QAction* Add(const QString& key, const QString& text);
    int Count() const;
    QAction* operator()(const QString& key) const;  // an unknown key raises 35601

private:
    friend class ToolbarButton;
    ButtonMenus(Toolbar* toolbar, QAction* button) : toolbar_(toolbar), button_(button) {}
    Toolbar* toolbar_;
    QAction* button_;
};

// A button, by reference; valid while its toolbar lives.
class ToolbarButton {
public:
    QString Key() const;
    QString Caption() const { return action_->text(); }
    void setCaption(const QString& caption) { action_->setText(caption); }
    QString ToolTipText() const { return action_->toolTip(); }
    void setToolTipText(const QString& text) { action_->setToolTip(text); }
    bool Enabled() const { return action_->isEnabled(); }
    void setEnabled(bool enabled) { action_->setEnabled(enabled); }
    bool Visible() const { return action_->isVisible(); }
    void setVisible(bool visible) { action_->setVisible(visible); }
    int Image() const;
    void setImage(int image);
    forms::ButtonMenus ButtonMenus() const { return forms::ButtonMenus(toolbar_, action_); }
    QAction* action() const { return action_; }

private:
    friend class ButtonCollection;
    ToolbarButton(Toolbar* toolbar, QAction* action) : toolbar_(toolbar), action_(action) {}
    Toolbar* toolbar_;
    QAction* action_;
};

class ButtonCollection {
public:
    explicit ButtonCollection(Toolbar& toolbar) : toolbar_(toolbar) {}
    // Appends a button; a key already on the toolbar raises 35602 "Key is not unique in collection".
    ToolbarButton Add(const QString& key, const QString& caption, int image = 0);
    ToolbarButton operator()(const QString& key) const;  // an unknown key raises 35601
    ToolbarButton operator()(int index) const;           // from 1; out of range raises 35600
    int Count() const { return static_cast<int>(buttons_.size()); }

private:
    Toolbar& toolbar_;
    QList<QAction*> buttons_;
};

class Toolbar : public QToolBar {
    Q_OBJECT
public:
    explicit Toolbar(QWidget* parent = nullptr);

    ButtonCollection Buttons;

    void setImageList(const ImageList* images);
    // Gives the focus to the bar's stop in the Tab chain, the button the arrows last reached.
    void focusButtons();
    const ImageList* imageList() const { return images_; }

signals:
    void ButtonClick(const QString& key);
    void ButtonMenuClick(const QString& buttonKey, const QString& menuKey);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void actionEvent(QActionEvent* event) override;

private:
    friend class ButtonCollection;
    friend class ToolbarButton;
    friend class ButtonMenus;
    void showImage(QAction* button) const;
    QMenu* menuOf(QAction* button, bool create);

    const ImageList* images_ = nullptr;
};

}  // namespace forms
