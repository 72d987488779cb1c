// Inside the framework: one message that a window is handling, on the stack of its dispatch.
#pragma once

#include "framework/window/CWnd.h"

struct CWnd::Call {
    HWND window;
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
    WNDPROC formerProc;  // of the window, which may be let go meanwhile
    Call* outer;
};
