#pragma once

#include "framework/window/CWnd.h"

// The system's combo box. Results below 0 are CB_ERR and CB_ERRSPACE.
class FW_API CComboBox : public CWnd {
public:
    BOOL Create(DWORD style, const RECT& bounds, HWND parent, UINT id, DWORD exStyle = 0,
                HINSTANCE module = fw::ThisModule());

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

    // The parts, null if there is none: the drop-down list (a child of the desktop) and the edit box.
    HWND GetListWindow() const;
    HWND GetEditWindow() const;
    CRect GetButtonRect() const;

    int GetCount() const;
    int AddString(const wchar_t* text);
    int InsertString(int index, const wchar_t* text);
    int DeleteString(int index);
    void ResetContent();
    int FindString(int after, const wchar_t* start) const;
    int FindStringExact(int after, const wchar_t* text) const;
    int SelectString(int after, const wchar_t* start);
    CString GetLBText(int index) const;
    int GetLBTextLen(int index) const;

    int GetCurSel() const;
    int SetCurSel(int index);
    int GetTopIndex() const;
    int SetTopIndex(int index);
    void SetEditSel(int start, int end);
    void LimitText(int length);

    DWORD_PTR GetItemData(int index) const;
    int SetItemData(int index, DWORD_PTR data);
    // Index -1 is the closed part.
    int GetItemHeight(int index) const;
    int SetItemHeight(int index, UINT height);

    void ShowDropDown(BOOL show = TRUE);
    bool GetDroppedState() const;
    CRect GetDroppedControlRect() const;
    int GetDroppedWidth() const;
    int SetDroppedWidth(UINT width);
    void SetExtendedUI(BOOL extended = TRUE);

private:
    static constexpr int c_neverSet = -1;

    LRESULT TakeItemHeight(int index, LPARAM height);
    LRESULT LayOut(WPARAM wParam, LPARAM lParam);
    void LeaveOutUnchanged(WINDOWPOS& wanted);

    // As they were asked for, which the system does not tell again.
    LPARAM m_fieldHeight = c_neverSet;
    int m_openHeight = c_neverSet;
    bool m_layingOut = false;  // the system sizes the closed part and the list
};
