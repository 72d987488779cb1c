#include "palette/commands/MessageLoop.h"

namespace kvpalette {

namespace {

constexpr DWORD c_longestWaitForFront = 500;

void Dispatch(const MSG& message) {
    ::TranslateMessage(&message);
    ::DispatchMessageW(&message);
}

}  // namespace

int RunMessageLoop() {
    MSG message{};
    while (::GetMessageW(&message, nullptr, 0, 0) > 0) {
        Dispatch(message);
    }
    return static_cast<int>(message.wParam);
}

void PumpMessages() {
    MSG message{};
    while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) {
            ::PostQuitMessage(static_cast<int>(message.wParam));
            return;
        }
        Dispatch(message);
    }
}

void BringToFront(HWND window) {
    if (::GetForegroundWindow() != window) {
        ::SetForegroundWindow(window);
        PumpUntil([window] { return ::GetForegroundWindow() == window; }, c_longestWaitForFront);
    }
}

bool PumpUntil(const std::function<bool()>& condition, DWORD milliseconds) {
    const ULONGLONG end = ::GetTickCount64() + milliseconds;
    for (;;) {
        PumpMessages();
        if (condition()) {
            return true;
        }
        const ULONGLONG now = ::GetTickCount64();
        if (now >= end) {
            return false;
        }
        ::MsgWaitForMultipleObjects(0, nullptr, FALSE, static_cast<DWORD>(end - now), QS_ALLINPUT);
    }
}

}  // namespace kvpalette
