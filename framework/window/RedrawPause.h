#pragma once

#include "framework/window/CWnd.h"

namespace fw {

// Keeps a window from painting while it is filled. The window may go meanwhile.
class RedrawPause {
public:
    explicit RedrawPause(CWnd& window) : m_window(window.m_hWnd) {
        ::SendMessageW(m_window, WM_SETREDRAW, FALSE, 0);
    }
    ~RedrawPause() {
        if (::IsWindow(m_window)) {
            ::SendMessageW(m_window, WM_SETREDRAW, TRUE, 0);
        }
    }
    RedrawPause(const RedrawPause&) = delete;
    RedrawPause& operator=(const RedrawPause&) = delete;

private:
    HWND m_window;
};

}  // namespace fw
