#include "framework/window/CButton.h"

BOOL CButton::Create(const wchar_t* text, DWORD style, const RECT& bounds, HWND parent, UINT id,
                     DWORD exStyle, HINSTANCE module) {
    return CreateControl(exStyle, WC_BUTTONW, text, style, bounds, parent, id, module);
}

int CButton::GetCheck() const {
    return static_cast<int>(SendMessage(BM_GETCHECK));
}

void CButton::SetCheck(int check) {
    SendMessage(BM_SETCHECK, static_cast<WPARAM>(check));
}

UINT CButton::GetState() const {
    return static_cast<UINT>(SendMessage(BM_GETSTATE));
}

void CButton::SetState(BOOL pressed) {
    SendMessage(BM_SETSTATE, static_cast<WPARAM>(pressed));
}

UINT CButton::GetButtonStyle() const {
    return static_cast<UINT>(GetStyle() & BS_TYPEMASK);
}

void CButton::SetButtonStyle(UINT style, BOOL redraw) {
    SendMessage(BM_SETSTYLE, style, redraw);
}

HICON CButton::SetIcon(HICON icon) {
    return reinterpret_cast<HICON>(SendMessage(BM_SETIMAGE, IMAGE_ICON, reinterpret_cast<LPARAM>(icon)));
}

HBITMAP CButton::SetBitmap(HBITMAP bitmap) {
    return reinterpret_cast<HBITMAP>(
        SendMessage(BM_SETIMAGE, IMAGE_BITMAP, reinterpret_cast<LPARAM>(bitmap)));
}

void CButton::Click() {
    SendMessage(BM_CLICK);
}
