#pragma once
// Runs a handler for each event of one widget, as the old windows' per-control event procedures ran;
// the handler says whether the event is used up. Errors in it go to the usual run-time error box.
#include <QEvent>
#include <QObject>
#include <functional>
#include <utility>

#include "platform/forms/runtime_errors.h"

namespace forms {

class EventTap : public QObject {
public:
    EventTap(QObject* parent, std::function<bool(QEvent*)> handler) : QObject(parent), handler_(std::move(handler)) {}
    bool eventFilter(QObject*, QEvent* event) override {
        bool used = false;
        guard([&] { used = handler_(event); });
        return used;
    }

private:
    std::function<bool(QEvent*)> handler_;
};

}  // namespace forms
