#include "framework/window/CStatic.h"

BOOL CStatic::Create(const wchar_t* text, DWORD style, const RECT& bounds, HWND parent, UINT id,
                     DWORD exStyle, HINSTANCE module) {
    return CreateControl(exStyle, WC_STATICW, text, style, bounds, parent, id, module);
}

HICON CStatic::SetIcon(HICON icon) {
    return reinterpret_cast<HICON>(SendMessage(STM_SETIMAGE, IMAGE_ICON, reinterpret_cast<LPARAM>(icon)));
}

HBITMAP CStatic::SetBitmap(HBITMAP bitmap) {
    return reinterpret_cast<HBITMAP>(
        SendMessage(STM_SETIMAGE, IMAGE_BITMAP, reinterpret_cast<LPARAM>(bitmap)));
}
