#pragma once

#include "framework/window/CWnd.h"

// The system's label or picture.
class FW_API CStatic : public CWnd {
public:
    BOOL Create(const wchar_t* text, DWORD style, const RECT& bounds, HWND parent, UINT id = 0xFFFF,
                DWORD exStyle = 0, HINSTANCE module = fw::ThisModule());

    HICON SetIcon(HICON icon);
    HBITMAP SetBitmap(HBITMAP bitmap);
};
