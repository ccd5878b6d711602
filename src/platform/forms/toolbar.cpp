#include "platform/forms/toolbar.h"

#include <QToolButton>

#include "platform/forms/errors.h"

namespace forms {

namespace {
constexpr const char* kKeyProperty = "vorlanKey";
constexpr const char* kImageProperty = "vorlanImage";
}  // namespace

// ---- ButtonMenus

QAction* ButtonMenus::Add(const QString& key, const QString& text) {
    QMenu* menu = toolbar_->menuOf(button_, true);
    if (!menu) throw elementNotFound();
    for (QAction* entry : menu->actions())
        if (entry->property(kKeyProperty).toString() == key) throw keyNotUnique();
    QAction* entry = menu->addAction(text);
    entry->setProperty(kKeyProperty, key);
    const QString buttonKey = button_->property(kKeyProperty).toString();
    QObject::connect(entry, &QAction::triggered, toolbar_,
                     [toolbar = toolbar_, buttonKey, key] { emit toolbar->ButtonMenuClick(buttonKey, key); });
    return entry;
}

int ButtonMenus::Count() const {
    QMenu* menu = toolbar_->menuOf(button_, false);
    return menu ? static_cast<int>(menu->actions().size()) : 0;
}

QAction* ButtonMenus::operator()(const QString& key) const {
    if (QMenu* menu = toolbar_->menuOf(button_, false))
        for (QAction* entry : menu->actions())
            if (entry->property(kKeyProperty).toString() == key) return entry;
    throw elementNotFound();
}

// ---- ToolbarButton

QString ToolbarButton::Key() const { return action_->property(kKeyProperty).toString(); }

int ToolbarButton::Image() const { return action_->property(kImageProperty).toInt(); }

void ToolbarButton::setImage(int image) {
    action_->setProperty(kImageProperty, image);
    toolbar_->showImage(action_);
}

// ---- ButtonCollection

ToolbarButton ButtonCollection::Add(const QString& key, const QString& caption, int image) {
    for (QAction* button : buttons_)
        if (button->property(kKeyProperty).toString() == key) throw keyNotUnique();
    QAction* button = toolbar_.addAction(caption);
    button->setProperty(kKeyProperty, key);
    button->setProperty(kImageProperty, image);
    toolbar_.showImage(button);
    QObject::connect(button, &QAction::triggered, &toolbar_,
                     [toolbar = &toolbar_, key] { emit toolbar->ButtonClick(key); });
    buttons_.append(button);
    return ToolbarButton(&toolbar_, button);
}

ToolbarButton ButtonCollection::operator()(const QString& key) const {
    for (QAction* button : buttons_)
        if (button->property(kKeyProperty).toString() == key) return ToolbarButton(&toolbar_, button);
    throw elementNotFound();
}

ToolbarButton ButtonCollection::operator()(int index) const {
    if (index < 1 || index > Count()) throw indexOutOfBounds();
    return ToolbarButton(&toolbar_, buttons_[index - 1]);
}

// ---- Toolbar

Toolbar::Toolbar(QWidget* parent) : QToolBar(parent), Buttons(*this) {
    setMovable(false);
    setFloatable(false);
    setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
}

void Toolbar::setImageList(const ImageList* images) {
    images_ = images;
    for (QAction* button : actions()) showImage(button);
}

void Toolbar::showImage(QAction* button) const {
    if (images_) button->setIcon(images_->image(button->property(kImageProperty).toInt()));
}

QMenu* Toolbar::menuOf(QAction* button, bool create) {
    auto* toolButton = qobject_cast<QToolButton*>(widgetForAction(button));
    if (!toolButton) return nullptr;
    if (!toolButton->menu() && create) {
        // The button itself still answers a press; the arrow beside it opens the entries.
        toolButton->setMenu(new QMenu(this));
        toolButton->setPopupMode(QToolButton::MenuButtonPopup);
    }
    return toolButton->menu();
}

}  // namespace forms
