#pragma once
// The one place an unhandled run-time error ends: its box. Handlers of Qt signals run inside guard(),
// so that no exception ever crosses Qt's event loop; the window stays open as it was.
#include <QObject>
#include <functional>
#include <type_traits>
#include <utility>

#include "platform/basic/runtime_error.h"

namespace forms {

// The box "Run-time error 'N':", two line breaks and the description; stop icon, title "Vorlan".
void reportRuntimeError(const basic::RuntimeError& error);

// Runs a handler; a basic::RuntimeError that escapes it is reported, any other std::exception as
// error 5 with its text, anything else as error 51 "Internal error".
void guard(const std::function<void()>& handler);

// QObject::connect with the handler run under guard(). The handler takes the signal's arguments or none.
template <class Sender, class Signal, class Handler>
QMetaObject::Connection wire(const Sender* sender, Signal signal, const QObject* context, Handler handler) {
    return QObject::connect(sender, signal, context, [handler = std::move(handler)](const auto&... args) -> void {
        guard([&] {
            if constexpr (std::is_invocable_v<const Handler&, decltype(args)...>)
                handler(args...);
            else
                handler();
        });
    });
}

}  // namespace forms
