// Message tables: a class lists its handlers in the order in which they are tested, behind their
// declarations.
//
//   static constexpr std::array s_messages{
//       fw::OnMessage(WM_CREATE, &Row::OnCreate),
//       fw::OnCommand(IDOK, BN_CLICKED, &Row::OnAccept),
//   };
//   LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
//       LRESULT result = 0;
//       return fw::DispatchMessage(s_messages, *this, message, wParam, lParam, result)
//                  ? result : Base::WindowProc(message, wParam, lParam);
//   }
#pragma once

#include <array>
#include <type_traits>

#include "framework/base/WindowsApi.h"
#include "framework/window/LifeWatch.h"

namespace fw {

// "handled" comes in TRUE. A handler that clears it lets the search go on behind its entry.
template <class Class>
using MessageHandler = LRESULT (Class::*)(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);

inline constexpr int AnyCommand = -1;

template <class Class>
struct MessageEntry {
    UINT message;
    int commandId;    // for WM_COMMAND only; AnyCommand leaves it out of the test
    int commandCode;  // likewise
    MessageHandler<Class> handler;

    constexpr bool Matches(UINT received, WPARAM wParam) const {
        return received == message && (commandId == AnyCommand || commandId == LOWORD(wParam)) &&
               (commandCode == AnyCommand || commandCode == HIWORD(wParam));
    }
};

// Takes handlers of the class itself: those of a base stand in the table of the base.
template <class Class>
constexpr MessageEntry<Class> OnMessage(UINT message, MessageHandler<Class> handler) {
    return {message, AnyCommand, AnyCommand, handler};
}

template <class Class>
constexpr MessageEntry<Class> OnCommand(int id, int code, MessageHandler<Class> handler) {
    return {WM_COMMAND, id, code, handler};
}

// Stands for the watch of objects that stay alive by other means, as counted ones do.
struct NoWatch {
    template <class Object>
    explicit NoWatch(Object&) {}
    explicit operator bool() const { return true; }
};

template <class Class>
using WatchFor = std::conditional_t<std::is_convertible_v<Class*, Watchable*>, LifeWatch, NoWatch>;

// True if an entry handled the message, with its answer in result. True also if a handler deleted the object:
// nobody may touch it then. The table of a base is asked by a call of its own.
template <class Class, std::size_t Count>
bool DispatchMessage(const std::array<MessageEntry<Class>, Count>& table, std::type_identity_t<Class>& object,
                     UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    const WatchFor<Class> alive(object);
    for (const MessageEntry<Class>& entry : table) {
        if (!entry.Matches(message, wParam)) {
            continue;
        }
        BOOL handled = TRUE;
        const LRESULT answer = (object.*entry.handler)(message, wParam, lParam, handled);
        if (handled || !alive) {
            result = answer;
            return true;
        }
    }
    return false;
}

}  // namespace fw
