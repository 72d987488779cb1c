#include "tests/support/WarmUp.h"

#include "framework/base/WindowsApi.h"
#include "tests/support/MessagePump.h"

#include <utility>
#include <vector>

namespace kvtest {
namespace {

std::vector<std::function<void()>>& Steps() {
    static std::vector<std::function<void()>> steps;
    return steps;
}

void ShowEachControlOnce() {
    HWND parent = CreateWindowExW(0, WC_STATICW, L"warm up", WS_POPUP | WS_VISIBLE, 0, 0, 200, 200, nullptr,
                                  nullptr, nullptr, nullptr);
    const auto show = [parent](LPCWSTR className, DWORD style) {
        HWND child = CreateWindowExW(0, className, L"x", WS_CHILD | WS_VISIBLE | style, 0, 0, 100, 100,
                                     parent, nullptr, nullptr, nullptr);
        SetFocus(child);
        UpdateWindow(child);
        PumpWaiting();
        DestroyWindow(child);
    };
    show(WC_EDITW, WS_BORDER);
    show(WC_BUTTONW, BS_PUSHBUTTON);
    show(WC_LISTBOXW, WS_VSCROLL);
    show(WC_COMBOBOXW, CBS_DROPDOWNLIST);
    show(WC_COMBOBOXW, CBS_DROPDOWN);
    show(WC_SCROLLBARW, SBS_VERT);
    show(UPDOWN_CLASSW, 0);
    HWND tip = CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP, 0, 0, 10, 10, parent,
                               nullptr, nullptr, nullptr);
    DestroyWindow(tip);
    DestroyWindow(parent);
    PumpWaiting();
}

// The system keeps the contexts of windows for reuse, up to a fixed number: make it reach that number now.
void FillContextCache() {
    constexpr int cachedContexts = 80;
    HWND parent = CreateWindowExW(0, WC_STATICW, L"", WS_POPUP | WS_VISIBLE, 0, 0, 200, 200, nullptr, nullptr,
                                  nullptr, nullptr);
    std::vector<std::pair<HWND, HDC>> contexts;
    for (int index = 0; index < cachedContexts; ++index) {
        HWND child = CreateWindowExW(0, WC_STATICW, L"", WS_CHILD | WS_VISIBLE, 0, 0, 10, 10, parent, nullptr,
                                     nullptr, nullptr);
        contexts.emplace_back(child, GetDCEx(child, nullptr, DCX_CACHE));
    }
    for (const auto& [window, dc] : contexts) {
        ReleaseDC(window, dc);
    }
    DestroyWindow(parent);
    PumpWaiting();
}

void DrawOnce() {
    HDC screen = GetDC(nullptr);
    HDC memory = CreateCompatibleDC(screen);
    HBITMAP bitmap = CreateCompatibleBitmap(screen, 32, 32);
    HGDIOBJ previous = SelectObject(memory, bitmap);
    RECT bounds{0, 0, 32, 32};
    DrawTextW(memory, L"x", 1, &bounds, DT_SINGLELINE);
    DrawFrameControl(memory, &bounds, DFC_BUTTON, DFCS_BUTTONPUSH);
    DrawEdge(memory, &bounds, EDGE_SUNKEN, BF_RECT);
    DrawFocusRect(memory, &bounds);
    SelectObject(memory, previous);
    DeleteObject(bitmap);
    DeleteDC(memory);
    ReleaseDC(nullptr, screen);
}

}  // namespace

void WarmUp() {
    InitCommonControls();
    DrawOnce();
    ShowEachControlOnce();
    FillContextCache();
    for (const auto& step : Steps()) {
        step();
    }
}

WarmUpStep::WarmUpStep(std::function<void()> step) {
    Steps().push_back(std::move(step));
}

}  // namespace kvtest
