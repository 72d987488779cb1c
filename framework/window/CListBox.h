#pragma once

#include "framework/window/CWnd.h"

// The system's list box; also the list part of a combo box.
class FW_API CListBox : public CWnd {
public:
    BOOL Create(DWORD style, const RECT& bounds, HWND parent, UINT id, DWORD exStyle = 0,
                HINSTANCE module = fw::ThisModule());

    int GetCount() const;
    int AddString(const wchar_t* text);
    int InsertString(int index, const wchar_t* text);
    int DeleteString(int index);
    void ResetContent();
    int FindStringExact(int after, const wchar_t* text) const;
    CString GetText(int index) const;

    int GetCurSel() const;
    int SetCurSel(int index);
    int GetTopIndex() const;
    int SetTopIndex(int index);

    DWORD_PTR GetItemData(int index) const;
    int SetItemData(int index, DWORD_PTR data);
    int GetItemHeight(int index = 0) const;
    int SetItemHeight(int index, UINT height);
    bool GetItemRect(int index, RECT* bounds) const;

    // The entry under a client point, -1 if there is none.
    int ItemFromPoint(const POINT& point) const;
};
