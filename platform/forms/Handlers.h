#pragma once

#include "platform/runtime/Actions.h"

#include <QObject>
#include <type_traits>
#include <utility>

/// Connects an event handler: every signal of a control reaches the program's code through this,
/// so that no error leaves the handler and each event is one durable action. The handler takes
/// the signal's arguments or none.
template <class Sender, class Signal, class Handler>
QMetaObject::Connection On(Sender* sender, Signal signal, const QObject* context, Handler handler) {
    return QObject::connect(sender, signal, context, [handler](auto&&... arguments) mutable {
        RunAction([&] {
            if constexpr (std::is_invocable_v<Handler&, decltype(arguments)...>)
                handler(std::forward<decltype(arguments)>(arguments)...);
            else
                handler();
        });
    });
}
