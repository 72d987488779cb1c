#include "framework/window/CListBox.h"

#include <string>

namespace {

WPARAM Index(int index) {
    return static_cast<WPARAM>(index);
}
LPARAM Text(const wchar_t* text) {
    return reinterpret_cast<LPARAM>(text);
}
int Int(LRESULT result) {
    return static_cast<int>(result);
}

}  // namespace

BOOL CListBox::Create(DWORD style, const RECT& bounds, HWND parent, UINT id, DWORD exStyle,
                      HINSTANCE module) {
    return CreateControl(exStyle, WC_LISTBOXW, L"", style, bounds, parent, id, module);
}

int CListBox::GetCount() const {
    return Int(SendMessage(LB_GETCOUNT));
}
int CListBox::AddString(const wchar_t* text) {
    return Int(SendMessage(LB_ADDSTRING, 0, Text(text)));
}
int CListBox::InsertString(int index, const wchar_t* text) {
    return Int(SendMessage(LB_INSERTSTRING, Index(index), Text(text)));
}
int CListBox::DeleteString(int index) {
    return Int(SendMessage(LB_DELETESTRING, Index(index)));
}
void CListBox::ResetContent() {
    SendMessage(LB_RESETCONTENT);
}
int CListBox::FindStringExact(int after, const wchar_t* text) const {
    return Int(SendMessage(LB_FINDSTRINGEXACT, Index(after), Text(text)));
}

CString CListBox::GetText(int index) const {
    const int length = Int(SendMessage(LB_GETTEXTLEN, Index(index)));
    if (length <= 0) {
        return {};
    }
    std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
    const int copied = Int(SendMessage(LB_GETTEXT, Index(index), Text(text.data())));
    return copied <= 0 ? CString() : CString(text.c_str(), copied);
}

int CListBox::GetCurSel() const {
    return Int(SendMessage(LB_GETCURSEL));
}
int CListBox::SetCurSel(int index) {
    return Int(SendMessage(LB_SETCURSEL, Index(index)));
}
int CListBox::GetTopIndex() const {
    return Int(SendMessage(LB_GETTOPINDEX));
}
int CListBox::SetTopIndex(int index) {
    return Int(SendMessage(LB_SETTOPINDEX, Index(index)));
}

DWORD_PTR CListBox::GetItemData(int index) const {
    return static_cast<DWORD_PTR>(SendMessage(LB_GETITEMDATA, Index(index)));
}
int CListBox::SetItemData(int index, DWORD_PTR data) {
    return Int(SendMessage(LB_SETITEMDATA, Index(index), static_cast<LPARAM>(data)));
}
int CListBox::GetItemHeight(int index) const {
    return Int(SendMessage(LB_GETITEMHEIGHT, Index(index)));
}
int CListBox::SetItemHeight(int index, UINT height) {
    return Int(SendMessage(LB_SETITEMHEIGHT, Index(index), MAKELPARAM(height, 0)));
}
bool CListBox::GetItemRect(int index, RECT* bounds) const {
    return SendMessage(LB_GETITEMRECT, Index(index), reinterpret_cast<LPARAM>(bounds)) != LB_ERR;
}

int CListBox::ItemFromPoint(const POINT& point) const {
    if (!GetClientRect().Contains(point)) {
        return -1;
    }
    const LRESULT found = SendMessage(LB_ITEMFROMPOINT, 0, MAKELPARAM(point.x, point.y));
    const int index = LOWORD(found);
    return HIWORD(found) != 0 || index >= GetCount() ? -1 : index;
}
