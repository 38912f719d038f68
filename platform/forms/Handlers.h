#pragma once

#include "platform/runtime/Actions.h"

#include <QObject>
#include <type_traits>
#include <utility>

namespace Detail {

/// Calls a handler with the signal's arguments if it takes them, and with none otherwise.
template <class Handler, class... Arguments>
void CallHandler(Handler& handler, Arguments&&... arguments) {
    if constexpr (std::is_invocable_v<Handler&, Arguments...>)
        handler(std::forward<Arguments>(arguments)...);
    else
        handler();
}

} // namespace Detail

/// Connects an event handler: every signal of a control reaches the program's code through this,
/// so that no error leaves the handler and each event is one durable action. The handler takes
/// the signal's arguments or none.
template <class Sender, class Signal, class Handler>
QMetaObject::Connection On(Sender* sender, Signal signal, const QObject* context, Handler handler) {
    return QObject::connect(sender, signal, context, [handler](auto&&... arguments) mutable {
        RunAction(
            [&] { Detail::CallHandler(handler, std::forward<decltype(arguments)>(arguments)...); });
    });
}
