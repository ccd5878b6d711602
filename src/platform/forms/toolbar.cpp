#include "platform/forms/toolbar.h"

#include <QActionEvent>
#include <QKeyEvent>
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
    // The bar is one stop of the Tab chain: its first button, then whichever the arrows last reached.
    // A mouse press leaves the focus where it was.
    if (QWidget* widget = toolbar_.widgetForAction(button)) {
        widget->setFocusPolicy(buttons_.isEmpty() ? Qt::TabFocus : Qt::NoFocus);
        widget->installEventFilter(&toolbar_);
    }
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

void Toolbar::focusButtons() {
    for (QAction* action : actions())
        if (QWidget* b = widgetForAction(action); b && b->focusPolicy() == Qt::TabFocus) return b->setFocus(Qt::TabFocusReason);
}

// The bar itself shows no focus and takes no keys; a window that lets it take the focus means its buttons.
void Toolbar::focusInEvent(QFocusEvent* event) {
    QToolBar::focusInEvent(event);
    focusButtons();
}

bool Toolbar::eventFilter(QObject* watched, QEvent* event) {
    auto* current = qobject_cast<QToolButton*>(watched);
    if (!current || event->type() != QEvent::KeyPress) return QToolBar::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Return || key == Qt::Key_Enter) {
        current->click();
        return true;
    }
    if (key != Qt::Key_Left && key != Qt::Key_Right) return QToolBar::eventFilter(watched, event);
    // The bar's own buttons keep their ring: Left from the first comes round to the last of them. What a
    // window adds after them follows that last one by Right, and Right from the end goes back to the first.
    QList<QToolButton*> stops;
    QToolButton *firstOwn = nullptr, *lastOwn = nullptr;
    for (QAction* action : actions())
        if (auto* b = qobject_cast<QToolButton*>(widgetForAction(action)); b && b->isVisible() && b->isEnabled()) {
            stops << b;
            if (!action->property(kKeyProperty).isValid()) continue;
            if (!firstOwn) firstOwn = b;
            lastOwn = b;
        }
    const qsizetype at = stops.indexOf(current);
    if (at < 0) return false;
    QToolButton* next = key == Qt::Key_Left && current == firstOwn
                            ? lastOwn
                            : stops[(at + (key == Qt::Key_Right ? 1 : stops.size() - 1)) % stops.size()];
    current->setFocusPolicy(Qt::NoFocus);
    next->setFocusPolicy(Qt::TabFocus);
    next->setFocus(Qt::TabFocusReason);
    return true;
}

// A button a window adds of its own answers the arrows and Enter as the bar's own do.
void Toolbar::actionEvent(QActionEvent* event) {
    QToolBar::actionEvent(event);
    if (event->type() != QEvent::ActionAdded || event->action()->property(kKeyProperty).isValid()) return;
    if (auto* b = qobject_cast<QToolButton*>(widgetForAction(event->action()))) {
        b->setFocusPolicy(Qt::NoFocus);
        b->installEventFilter(this);
    }
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
