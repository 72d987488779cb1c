#include "tests/support/RowWarmUp.h"

#include "framework/base/WindowsApi.h"
#include "tests/support/MessagePump.h"

namespace kvtest {
namespace {

HWND MakeWindow(const wchar_t* className, DWORD exStyle, DWORD style, HWND parent) {
    return ::CreateWindowExW(exStyle, className, L"x", style | WS_VISIBLE, 10, 10, 200, 60, parent, nullptr,
                             nullptr, nullptr);
}

// The menu runs a loop of its own, which the posted key ends.
void OpenMenuOf(HWND edit) {
    ::PostMessageW(edit, WM_KEYDOWN, VK_ESCAPE, 1);
    ::SendMessageW(edit, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(edit), MAKELPARAM(20, 20));
}

void DrawFrameInto(HWND window) {
    const HDC outer = ::GetDC(window);
    const HDC inner = ::GetDC(window);
    const int saved = ::SaveDC(inner);
    const HRGN region = ::CreateRoundRectRgn(0, 0, 50, 20, 1, 1);
    ::FrameRgn(outer, region, static_cast<HBRUSH>(::GetStockObject(GRAY_BRUSH)), 1, 1);
    ::DeleteObject(region);
    RECT bounds{0, 0, 50, 20};
    ::DrawTextW(inner, L"a text that is cut", -1, &bounds, DT_SINGLELINE | DT_END_ELLIPSIS);
    ::RestoreDC(inner, saved);
    ::ReleaseDC(window, inner);
    ::ReleaseDC(window, outer);
}

}  // namespace

void WarmUpRows() {
    for (const wchar_t* cursor : {IDC_ARROW, IDC_IBEAM, IDC_SIZEALL, IDC_SIZEWE}) {
        ::SetCursor(::LoadCursorW(nullptr, cursor));
    }
    for (int color = 0; color <= COLOR_MENUBAR; ++color) {
        ::GetSysColorBrush(color);
    }
    const HWND frame = MakeWindow(L"STATIC", 0, WS_POPUP, nullptr);
    const HWND row = MakeWindow(L"STATIC", 0, WS_CHILD | WS_CLIPCHILDREN | WS_CLIPSIBLINGS, frame);
    const HWND edit = MakeWindow(L"EDIT", 0, WS_CHILD | ES_MULTILINE, row);
    const HWND password = MakeWindow(L"EDIT", 0, WS_CHILD | ES_PASSWORD, row);
    const HWND tip = ::CreateWindowExW(WS_EX_TOOLWINDOW, L"STATIC", L"x", WS_POPUP, 0, 0, 0, 0, row, nullptr,
                                       nullptr, nullptr);
    ::SetFocus(password);
    ::SetFocus(edit);
    ::SetCursorPos(20, 15);
    PumpWaiting();
    // In both orders of the windows, and with two contexts of the tip at a time.
    for (const HWND after : {HWND_TOPMOST, HWND_NOTOPMOST}) {
        ::ShowWindow(tip, SW_HIDE);
        ::SetWindowPos(tip, after, 5, 5, 300, 20, SWP_NOACTIVATE);
        ::ShowWindow(tip, SW_SHOWNOACTIVATE);
        ::RedrawWindow(frame, nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN | RDW_UPDATENOW);
        DrawFrameInto(tip);
        PumpWaiting();
    }
    OpenMenuOf(edit);
    PumpWaiting();
    ::DestroyWindow(frame);
    PumpWaiting();
}

}  // namespace kvtest
