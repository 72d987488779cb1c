#include "framework/window/CComboBox.h"

#include <string>

namespace {

constexpr int c_field = -1;  // stands for the closed box among the entries

WPARAM Index(int index) {
    return static_cast<WPARAM>(index);
}
LPARAM Text(const wchar_t* text) {
    return reinterpret_cast<LPARAM>(text);
}
int Int(LRESULT result) {
    return static_cast<int>(result);
}

COMBOBOXINFO Parts(HWND combo) {
    COMBOBOXINFO parts{};
    parts.cbSize = sizeof parts;
    if (!combo || !::GetComboBoxInfo(combo, &parts)) {
        return {};
    }
    return parts;
}

}  // namespace

BOOL CComboBox::Create(DWORD style, const RECT& bounds, HWND parent, UINT id, DWORD exStyle,
                       HINSTANCE module) {
    return CreateControl(exStyle, WC_COMBOBOXW, L"", style, bounds, parent, id, module);
}

// The system works the whole control and its drop-down out anew for each of these, in some forty messages,
// although nothing changes. A row that opens its list again says them all.
LRESULT CComboBox::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_DRAWITEM:
        case WM_MEASUREITEM:
        case WM_DELETEITEM:
        case WM_COMPAREITEM:
            // These come from the combo's own list, which is not the one who draws: the combo hands them up
            // in its own name.
            return DefWindowProc(message, wParam, lParam);
        case CB_SETITEMHEIGHT:
            return TakeItemHeight(static_cast<int>(wParam), lParam);
        case WM_SETFONT:
            if (DefWindowProc(WM_GETFONT, 0, 0) == static_cast<LRESULT>(wParam)) {
                if (LOWORD(lParam) != 0) {
                    Invalidate();
                }
                return 0;
            }
            m_fieldHeight = c_neverSet;  // follows the font until it is set anew
            break;
        case WM_SIZE:
            return LayOut(wParam, lParam);
        case WM_WINDOWPOSCHANGING:
            LeaveOutUnchanged(*reinterpret_cast<WINDOWPOS*>(lParam));
            break;
        default:
            break;
    }
    return CWnd::WindowProc(message, wParam, lParam);
}

LRESULT CComboBox::TakeItemHeight(int index, LPARAM height) {
    const bool isField = index == c_field;
    const LRESULT former = isField ? m_fieldHeight : DefWindowProc(CB_GETITEMHEIGHT, Index(index), 0);
    if (former == height) {
        return 0;
    }
    const fw::LifeWatch alive(*this);
    const LRESULT result = DefWindowProc(CB_SETITEMHEIGHT, Index(index), height);
    if (isField && alive && result != CB_ERR) {
        m_fieldHeight = height;
    }
    return result;
}

LRESULT CComboBox::LayOut(WPARAM wParam, LPARAM lParam) {
    const fw::LifeWatch alive(*this);
    m_layingOut = true;
    const LRESULT result = CWnd::WindowProc(WM_SIZE, wParam, lParam);
    if (alive) {
        m_layingOut = false;
    }
    return result;
}

void CComboBox::LeaveOutUnchanged(WINDOWPOS& wanted) {
    if (m_layingOut || (wanted.flags & SWP_NOSIZE) != 0) {
        return;
    }
    CRect place = GetWindowRect();
    ::MapWindowPoints(nullptr, ::GetParent(m_hWnd), reinterpret_cast<POINT*>(&place), 2);
    if ((wanted.flags & SWP_NOMOVE) == 0 && place.TopLeft() == CPoint(wanted.x, wanted.y) &&
        place.Width() == wanted.cx && wanted.cy == m_openHeight) {
        wanted.flags |= SWP_NOSIZE | SWP_NOMOVE;
    }
    m_openHeight = wanted.cy;
}

HWND CComboBox::GetListWindow() const {
    return Parts(m_hWnd).hwndList;
}

HWND CComboBox::GetEditWindow() const {
    const HWND item = Parts(m_hWnd).hwndItem;
    return item == m_hWnd ? nullptr : item;
}

CRect CComboBox::GetButtonRect() const {
    return Parts(m_hWnd).rcButton;
}

int CComboBox::GetCount() const {
    return Int(SendMessage(CB_GETCOUNT));
}
int CComboBox::AddString(const wchar_t* text) {
    return Int(SendMessage(CB_ADDSTRING, 0, Text(text)));
}
int CComboBox::InsertString(int index, const wchar_t* text) {
    return Int(SendMessage(CB_INSERTSTRING, Index(index), Text(text)));
}
int CComboBox::DeleteString(int index) {
    return Int(SendMessage(CB_DELETESTRING, Index(index)));
}
void CComboBox::ResetContent() {
    SendMessage(CB_RESETCONTENT);
}
int CComboBox::FindString(int after, const wchar_t* start) const {
    return Int(SendMessage(CB_FINDSTRING, Index(after), Text(start)));
}
int CComboBox::FindStringExact(int after, const wchar_t* text) const {
    return Int(SendMessage(CB_FINDSTRINGEXACT, Index(after), Text(text)));
}
int CComboBox::SelectString(int after, const wchar_t* start) {
    return Int(SendMessage(CB_SELECTSTRING, Index(after), Text(start)));
}

CString CComboBox::GetLBText(int index) const {
    const int length = GetLBTextLen(index);
    if (length <= 0) {
        return {};
    }
    std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
    const int copied = Int(SendMessage(CB_GETLBTEXT, Index(index), Text(text.data())));
    return copied <= 0 ? CString() : CString(text.c_str(), copied);
}
int CComboBox::GetLBTextLen(int index) const {
    return Int(SendMessage(CB_GETLBTEXTLEN, Index(index)));
}

int CComboBox::GetCurSel() const {
    return Int(SendMessage(CB_GETCURSEL));
}
int CComboBox::SetCurSel(int index) {
    return Int(SendMessage(CB_SETCURSEL, Index(index)));
}
int CComboBox::GetTopIndex() const {
    return Int(SendMessage(CB_GETTOPINDEX));
}
int CComboBox::SetTopIndex(int index) {
    return Int(SendMessage(CB_SETTOPINDEX, Index(index)));
}
void CComboBox::SetEditSel(int start, int end) {
    SendMessage(CB_SETEDITSEL, 0, MAKELPARAM(start, end));
}
void CComboBox::LimitText(int length) {
    SendMessage(CB_LIMITTEXT, Index(length));
}

DWORD_PTR CComboBox::GetItemData(int index) const {
    return static_cast<DWORD_PTR>(SendMessage(CB_GETITEMDATA, Index(index)));
}
int CComboBox::SetItemData(int index, DWORD_PTR data) {
    return Int(SendMessage(CB_SETITEMDATA, Index(index), static_cast<LPARAM>(data)));
}
int CComboBox::GetItemHeight(int index) const {
    return Int(SendMessage(CB_GETITEMHEIGHT, Index(index)));
}
int CComboBox::SetItemHeight(int index, UINT height) {
    return Int(SendMessage(CB_SETITEMHEIGHT, Index(index), static_cast<LPARAM>(height)));
}

void CComboBox::ShowDropDown(BOOL show) {
    SendMessage(CB_SHOWDROPDOWN, static_cast<WPARAM>(show));
}
bool CComboBox::GetDroppedState() const {
    return SendMessage(CB_GETDROPPEDSTATE) != 0;
}
CRect CComboBox::GetDroppedControlRect() const {
    CRect bounds;
    SendMessage(CB_GETDROPPEDCONTROLRECT, 0, reinterpret_cast<LPARAM>(&bounds));
    return bounds;
}
int CComboBox::GetDroppedWidth() const {
    return Int(SendMessage(CB_GETDROPPEDWIDTH));
}
int CComboBox::SetDroppedWidth(UINT width) {
    return Int(SendMessage(CB_SETDROPPEDWIDTH, width));
}
void CComboBox::SetExtendedUI(BOOL extended) {
    SendMessage(CB_SETEXTENDEDUI, static_cast<WPARAM>(extended));
}
