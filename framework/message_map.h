// Message maps: constexpr tables that say which handler takes which message, with its arguments decoded.
#pragma once

#include "platform/messages.h"

#include <limits>
#include <span>
#include <type_traits>

namespace tavo {

class CWindow;

constexpr int kAnyId = std::numeric_limits<int>::min();
constexpr int kAnyCode = std::numeric_limits<int>::min();

struct MessageEntry {
    MessageNumber Number = WM_NULL;
    int FirstId = kAnyId;
    int LastId = kAnyId;
    int Code = kAnyCode;
    bool (*Invoke)(CWindow& window, const Message& message) = nullptr; // false: not handled after all

    constexpr bool Matches(const Message& message) const {
        return message.Number == Number && (FirstId == kAnyId || (message.Id >= FirstId && message.Id <= LastId)) &&
               (Code == kAnyCode || message.Code == Code);
    }
};

// A class's own entries and the map of its base class, which is asked afterwards.
struct MessageMap {
    std::span<const MessageEntry> Entries;
    const MessageMap* Base = nullptr;
};

namespace detail {

template <class Class, class Result, class Argument>
bool CallHandler(CWindow& window, Result (Class::*handler)(Argument), const Message& message) {
    auto& target = static_cast<Class&>(window);
    using Plain = std::remove_cvref_t<Argument>;
    const auto call = [&](auto&& argument) {
        if constexpr (std::is_void_v<Result>) {
            (target.*handler)(argument);
            return true;
        } else {
            return static_cast<bool>((target.*handler)(argument));
        }
    };
    if constexpr (std::is_same_v<Plain, Point>) {
        return call(message.Position);
    } else if constexpr (std::is_same_v<Plain, Message>) {
        return call(message);
    } else {
        static_assert(std::is_same_v<Plain, int>, "a handler takes nothing, a Point, an int (the id) or a Message");
        return call(message.Id);
    }
}

template <class Class, class Result> bool CallHandler(CWindow& window, Result (Class::*handler)(), const Message&) {
    auto& target = static_cast<Class&>(window);
    if constexpr (std::is_void_v<Result>) {
        (target.*handler)();
        return true;
    } else {
        return static_cast<bool>((target.*handler)());
    }
}

template <auto Handler> bool InvokeHandler(CWindow& window, const Message& message) {
    return CallHandler(window, Handler, message);
}

} // namespace detail

// A handler takes nothing, the stylus position (Point), the id (int) or the whole Message; it returns nothing, or
// false to let the base class have the message.
template <auto Handler> constexpr MessageEntry On(MessageNumber number) {
    return {number, kAnyId, kAnyId, kAnyCode, &detail::InvokeHandler<Handler>};
}

template <auto Handler> constexpr MessageEntry OnTimer(int id) {
    return {WM_TIMER, id, id, kAnyCode, &detail::InvokeHandler<Handler>};
}

// A menu choice, a toolbar button or a click on a button control.
template <auto Handler> constexpr MessageEntry OnCommand(int id) {
    return {WM_COMMAND, id, id, BN_CLICKED, &detail::InvokeHandler<Handler>};
}

template <auto Handler> constexpr MessageEntry OnCommandRange(int firstId, int lastId) {
    return {WM_COMMAND, firstId, lastId, BN_CLICKED, &detail::InvokeHandler<Handler>};
}

// A notification of a control by WM_COMMAND, such as CBN_DROPDOWN.
template <auto Handler> constexpr MessageEntry OnControl(int id, int code) {
    return {WM_COMMAND, id, id, code, &detail::InvokeHandler<Handler>};
}

// A notification of a control by WM_NOTIFY, such as DTN_DATETIMECHANGE.
template <auto Handler> constexpr MessageEntry OnNotify(int id, int code) {
    return {WM_NOTIFY, id, id, code, &detail::InvokeHandler<Handler>};
}

template <auto Handler> constexpr MessageEntry OnScroll(int id) {
    return {WM_VSCROLL, id, id, kAnyCode, &detail::InvokeHandler<Handler>};
}

} // namespace tavo
