#pragma once

#include <algorithm>
#include <functional>
#include <vector>

#include "framework/window/CWnd.h"
#include "framework/window/Reflection.h"

namespace kvtest {

// A window whose messages a test sees first. A filter that answers true has handled the message.
template <class Base = CWnd>
class Probe : public Base {
public:
    using Filter = std::function<bool(UINT, WPARAM, LPARAM, LRESULT&)>;

    ~Probe() override { this->DestroyWindow(); }

    BOOL Show(DWORD style = WS_POPUP | WS_VISIBLE, HWND parent = nullptr) {
        static const fw::WindowClass s_class{L"KvFrameTestProbe", CS_DBLCLKS};
        return this->Create(s_class, L"probe", style, {10, 10, 310, 210}, parent);
    }

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        messages.push_back(message);
        LRESULT result = 0;
        return filter && filter(message, wParam, lParam, result) ? result
                                                                 : Base::WindowProc(message, wParam, lParam);
    }
    BOOL PreTranslateMessage(MSG* message) override {
        return preTranslate ? preTranslate(*message) : Base::PreTranslateMessage(message);
    }
    void OnFinalMessage(HWND formerWindow) override { finals.push_back(formerWindow); }

    auto CountOf(UINT message) const { return std::count(messages.begin(), messages.end(), message); }

    Filter filter;
    std::function<BOOL(MSG&)> preTranslate;
    std::vector<UINT> messages;
    std::vector<HWND> finals;
};

using ProbeWindow = Probe<>;

}  // namespace kvtest
