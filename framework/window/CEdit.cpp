#include "framework/window/CEdit.h"

BOOL CEdit::Create(DWORD style, const RECT& bounds, HWND parent, UINT id, DWORD exStyle, HINSTANCE module) {
    return CreateControl(exStyle, WC_EDITW, L"", style, bounds, parent, id, module);
}

void CEdit::SetSel(int start, int end) {
    SendMessage(EM_SETSEL, static_cast<WPARAM>(start), end);
}

void CEdit::GetSel(int& start, int& end) const {
    DWORD first = 0;
    DWORD last = 0;
    SendMessage(EM_GETSEL, reinterpret_cast<WPARAM>(&first), reinterpret_cast<LPARAM>(&last));
    start = static_cast<int>(first);
    end = static_cast<int>(last);
}

void CEdit::ScrollCaret() {
    SendMessage(EM_SCROLLCARET);
}

void CEdit::ReplaceSel(const wchar_t* text, BOOL canUndo) {
    SendMessage(EM_REPLACESEL, static_cast<WPARAM>(canUndo), reinterpret_cast<LPARAM>(text));
}

BOOL CEdit::SetReadOnly(BOOL readOnly) {
    return SendMessage(EM_SETREADONLY, static_cast<WPARAM>(readOnly)) != 0;
}

bool CEdit::IsReadOnly() const {
    return (GetStyle() & ES_READONLY) != 0;
}

void CEdit::SetLimitText(UINT length) {
    SendMessage(EM_SETLIMITTEXT, length);
}

bool CEdit::GetModify() const {
    return SendMessage(EM_GETMODIFY) != 0;
}

void CEdit::SetModify(BOOL modified) {
    SendMessage(EM_SETMODIFY, static_cast<WPARAM>(modified));
}

void CEdit::SetRect(const RECT& bounds) {
    SendMessage(EM_SETRECT, 0, reinterpret_cast<LPARAM>(&bounds));
}

CRect CEdit::GetRect() const {
    CRect bounds;
    SendMessage(EM_GETRECT, 0, reinterpret_cast<LPARAM>(&bounds));
    return bounds;
}

void CEdit::SetMargins(int left, int right) {
    SendMessage(EM_SETMARGINS, EC_LEFTMARGIN | EC_RIGHTMARGIN, MAKELPARAM(left, right));
}

void CEdit::SetPasswordChar(wchar_t character) {
    SendMessage(EM_SETPASSWORDCHAR, character);
}

BOOL CEdit::Undo() {
    return SendMessage(EM_UNDO) != 0;
}
