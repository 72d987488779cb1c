#pragma once

#include "framework/window/CWnd.h"

// The system's edit box.
class FW_API CEdit : public CWnd {
public:
    BOOL Create(DWORD style, const RECT& bounds, HWND parent, UINT id, DWORD exStyle = 0,
                HINSTANCE module = fw::ThisModule());

    void SetSel(int start, int end);
    void GetSel(int& start, int& end) const;
    void ScrollCaret();
    void ReplaceSel(const wchar_t* text, BOOL canUndo = FALSE);
    BOOL SetReadOnly(BOOL readOnly = TRUE);
    bool IsReadOnly() const;
    void SetLimitText(UINT length);
    bool GetModify() const;
    void SetModify(BOOL modified = TRUE);
    void SetRect(const RECT& bounds);
    CRect GetRect() const;
    void SetMargins(int left, int right);
    void SetPasswordChar(wchar_t character);
    BOOL Undo();
};
