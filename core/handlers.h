#pragma once

// The one entry through which every handler of a window runs. A failure that a handler leaves is caught
// here, inside the handler's own call, and goes to the unhandled-failure report; a handler's standard
// handler has already asked the user. Nothing is ever thrown back through Qt's signal code.

#include "core/application.h"

#include <QObject>
#include <QString>
#include <functional>
#include <type_traits>

namespace hb {

// "window.control": where a failure of a control's handler is said to have happened.
QString handlerLocation(const QObject* receiver, const QObject* sender);

// Connects a control's signal to a handler of the receiving window (a member function or any callable,
// with or without the signal's arguments) through the guarded entry.
template <class Sender, class Signal, class Receiver, class Handler>
QMetaObject::Connection connectHandler(Sender* sender, Signal signal, Receiver* receiver, Handler handler,
                                       Qt::ConnectionType type = Qt::AutoConnection)
{
    return QObject::connect(sender, signal, receiver, [sender, receiver, handler](const auto&... args) {
        runGuarded(handlerLocation(receiver, sender), [&] {
            if constexpr (std::is_invocable_v<Handler, Receiver*, decltype(args)...>)
                std::invoke(handler, receiver, args...);
            else if constexpr (std::is_invocable_v<Handler, Receiver*>)
                std::invoke(handler, receiver);
            else if constexpr (std::is_invocable_v<Handler, decltype(args)...>)
                std::invoke(handler, args...);
            else
                std::invoke(handler);
        });
    }, type);
}

} // namespace hb
