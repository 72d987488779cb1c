#pragma once

#include "framework/window/CWnd.h"

// The system's button: push button, check box, radio button, group, owner-drawn button.
class FW_API CButton : public CWnd {
public:
    BOOL Create(const wchar_t* text, DWORD style, const RECT& bounds, HWND parent, UINT id, DWORD exStyle = 0,
                HINSTANCE module = fw::ThisModule());

    int GetCheck() const;
    void SetCheck(int check);
    UINT GetState() const;
    void SetState(BOOL pressed);
    UINT GetButtonStyle() const;
    void SetButtonStyle(UINT style, BOOL redraw = TRUE);
    HICON SetIcon(HICON icon);
    HBITMAP SetBitmap(HBITMAP bitmap);
    // Presses and releases the button.
    void Click();
};
