#pragma once
// The one place an unhandled run-time error ends: its box. Handlers of Qt signals run inside guard(),
// so that no exception ever crosses Qt's event loop; the window stays open as it was.
#include <QObject>
#include <functional>
#include <tuple>
#include <type_traits>
#include <utility>

#include "platform/basic/runtime_error.h"

namespace forms {

// The box "Run-time error 'N':", two line breaks and the description; stop icon, title "Vorlan".
void reportRuntimeError(const basic::RuntimeError& error);

// Runs a handler; a basic::RuntimeError that escapes it is reported, any other std::exception as
// error 5 with its text, anything else as error 51 "Internal error".
void guard(const std::function<void()>& handler);

namespace detail {

template <std::size_t N, class Handler, class Args>
constexpr bool takesFirst() {
    return []<std::size_t... I>(std::index_sequence<I...>) {
        return std::is_invocable_v<const Handler&, std::tuple_element_t<I, Args>...>;
    }(std::make_index_sequence<N>{});
}

// Calls the handler with as many of the signal's leading arguments as it takes, as Qt itself does.
template <std::size_t N, class Handler, class Args>
void callWithLeading(const Handler& handler, const Args& args) {
    if constexpr (takesFirst<N, Handler, Args>()) {
        [&]<std::size_t... I>(std::index_sequence<I...>) { handler(std::get<I>(args)...); }(
            std::make_index_sequence<N>{});
    } else {
        static_assert(N > 0, "the handler takes none of the signal's leading arguments");
        if constexpr (N > 0) callWithLeading<N - 1>(handler, args);
    }
}

}  // namespace detail

// QObject::connect with the handler run under guard(). The handler takes the signal's leading arguments.
template <class Sender, class Signal, class Handler>
QMetaObject::Connection wire(const Sender* sender, Signal signal, const QObject* context, Handler handler) {
    return QObject::connect(sender, signal, context, [handler = std::move(handler)](const auto&... args) -> void {
        guard([&] {
            const auto all = std::forward_as_tuple(args...);
            detail::callWithLeading<sizeof...(args)>(handler, all);
        });
    });
}

}  // namespace forms
