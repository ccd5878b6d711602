#include "platform/forms/window_registry.h"

#include <QApplication>
#include <QPointer>
#include <map>
#include <set>
#include <vector>

namespace forms {

namespace {

struct Registry {
    std::map<QString, WindowFactory> factories;
    std::map<QString, QPointer<QWidget>> instances;
    std::vector<QString> madeInOrder;
    std::set<QString> beingMade;
};

// Never destroyed: the windows must not be deleted after QApplication is gone at exit.
Registry& registry() {
    static auto* r = new Registry;
    return *r;
}

}  // namespace

void define(const QString& name, WindowFactory factory) { registry().factories[name] = std::move(factory); }

QWidget* get(const QString& name) {
    Registry& r = registry();
    if (auto it = r.instances.find(name); it != r.instances.end() && it->second) return it->second;
    auto factory = r.factories.find(name);
    if (factory == r.factories.end())
        throw basic::RuntimeError(5, QStringLiteral("No window named ") + name);
    if (!r.beingMade.insert(name).second)
        throw basic::RuntimeError(5, QStringLiteral("Window asks for itself while being made: ") + name);
    QWidget* window = nullptr;
    try {
        window = factory->second();
    } catch (...) {
        r.beingMade.erase(name);
        throw;
    }
    r.beingMade.erase(name);
    r.instances[name] = window;
    std::erase(r.madeInOrder, name);
    r.madeInOrder.push_back(name);
    return window;
}

void showOverInput(const QString& name) {
    QWidget* window = get(name);
    QWidget* holding = QApplication::activeModalWidget();
    const bool modal = holding && holding != window;
    if (window->isVisible() && (window->windowModality() != Qt::NonModal) != modal) window->hide();
    window->setWindowModality(modal ? Qt::ApplicationModal : Qt::NonModal);
    window->show();
    window->raise();
    window->activateWindow();
}

bool exists(const QString& name) {
    const auto& instances = registry().instances;
    auto it = instances.find(name);
    return it != instances.end() && !it->second.isNull();
}

void reset() {
    Registry& r = registry();
    // Latest first, so that a window made by another goes before its maker; QPointer skips any that
    // an earlier deletion (a parent window) already took with it.
    for (auto it = r.madeInOrder.rbegin(); it != r.madeInOrder.rend(); ++it) {
        QPointer<QWidget> window = r.instances[*it];
        delete window.data();
    }
    r.instances.clear();
    r.madeInOrder.clear();
}

}  // namespace forms
