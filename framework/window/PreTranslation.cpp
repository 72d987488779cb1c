#include "framework/window/PreTranslation.h"

#include <vector>

#include "framework/base/WindowsApi.h"
#include "framework/window/CWnd.h"
#include "framework/window/CWndEntry.h"

namespace {

thread_local HHOOK t_hook = nullptr;

// Taken before the first handler runs, since a handler may destroy windows. It ends with the top-level
// window: the owner of a dialog has no say in the dialog's keys.
std::vector<HWND> WindowAndParents(HWND window) {
    std::vector<HWND> chain;
    const HWND desktop = ::GetDesktopWindow();
    for (HWND step = window; step && step != desktop; step = ::GetAncestor(step, GA_PARENT)) {
        chain.push_back(step);
    }
    return chain;
}

bool IsSwallowed(MSG& message) {
    for (const HWND step : WindowAndParents(message.hwnd)) {
        CWnd* const window = CWnd::FromHandlePermanent(step);
        if (window && CWndEntry::PreTranslate(*window, message)) {
            return true;
        }
    }
    return false;
}

LRESULT CALLBACK OnMessageTaken(int code, WPARAM wParam, LPARAM lParam) {
    if (code == HC_ACTION && wParam == PM_REMOVE) {
        MSG& message = *reinterpret_cast<MSG*>(lParam);
        if (message.hwnd && message.message != WM_NULL && IsSwallowed(message)) {
            message.message = WM_NULL;
        }
    }
    return ::CallNextHookEx(nullptr, code, wParam, lParam);
}

}  // namespace

namespace fw {

void StartPreTranslation() {
    if (!t_hook) {
        t_hook = ::SetWindowsHookExW(WH_GETMESSAGE, OnMessageTaken, nullptr, ::GetCurrentThreadId());
    }
}

void EndPreTranslation() {
    if (t_hook) {
        ::UnhookWindowsHookEx(t_hook);
        t_hook = nullptr;
    }
}

bool IsPreTranslationActiveForTesting() {
    return t_hook != nullptr;
}

}  // namespace fw
