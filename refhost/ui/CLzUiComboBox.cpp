#include "host_sdk/CLzUiComboBox.h"

#include "framework/base/DeviceContexts.h"
#include "framework/window/CDC.h"
#include "host_sdk/CLzUiListBox.h"
#include "refhost/testing/ServiceCall.h"
#include "refhost/ui/ControlTheme.h"

namespace {

constexpr UINT c_choiceFormat = DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS;
constexpr int c_edge = 2;

CRect ButtonRect(const RECT& client) {
    CRect button = client;
    button.Inflate(-c_edge, -c_edge);
    button.left = button.right - ::GetSystemMetrics(SM_CXVSCROLL);
    return button;
}

CRect ChoiceRect(const RECT& client) {
    CRect choice = client;
    choice.Inflate(-c_edge, -c_edge);
    choice.right = ButtonRect(client).left;
    return choice;
}

}  // namespace

CLzUiComboBox::CLzUiComboBox() = default;

CLzUiComboBox::~CLzUiComboBox() = default;

BOOL CLzUiComboBox::Create(DWORD style, const RECT& bounds, HWND parent, UINT id, DWORD exStyle,
                           HINSTANCE module) {
    kvhost::ServiceCall call(L"CLzUiComboBox", id);
    if (call.Fails() || !CComboBox::Create(style, bounds, parent, id, exStyle, module)) {
        return call.Returns(false);
    }
    AttachListBox();
    return call.Returns(true);
}

void CLzUiComboBox::SetListBox(CLzUiListBox* listBox) {
    if (m_listBox) {
        m_listBox->UnsubclassWindow();
    }
    m_listBox = listBox;
    AttachListBox();
}

void CLzUiComboBox::AttachListBox() {
    const HWND listWindow = IsWindow() ? GetListWindow() : nullptr;
    if (listWindow && m_listBox) {
        m_listBox->SubclassWindow(listWindow);
    }
}

HWND CLzUiComboBox::GetLzUiParent() const {
    return m_dialogParent ? m_dialogParent : GetParent();
}

bool CLzUiComboBox::IsVistaTheme() {
    return kvhost::IsVistaControlTheme();
}

bool CLzUiComboBox::IsInEdit(UINT itemState) {
    return (itemState & ODS_COMBOBOXEDIT) != 0;
}

LRESULT CLzUiComboBox::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    static constexpr std::array s_messages{
        fw::OnMessage(WM_PAINT, &CLzUiComboBox::OnPaint),
        fw::OnMessage(WM_MOUSEWHEEL, &CLzUiComboBox::OnMouseWheel),
    };
    LRESULT result = 0;
    return fw::DispatchMessage(s_messages, *this, message, wParam, lParam, result)
               ? result
               : CComboBox::WindowProc(message, wParam, lParam);
}

// Left to the system the wheel would mark other entries of the open list, which then count as chosen when the
// row is left.
LRESULT CLzUiComboBox::OnMouseWheel(UINT message, WPARAM wParam, LPARAM lParam, BOOL&) {
    return ::SendMessageW(GetDroppedState() ? GetListWindow() : GetParent(), message, wParam, lParam);
}

LRESULT CLzUiComboBox::OnPaint(UINT, WPARAM, LPARAM, BOOL& handled) {
    const bool chooses = (GetStyle() & CBS_DROPDOWNLIST) == CBS_DROPDOWNLIST;
    handled = IsVistaTheme() && chooses;
    if (handled) {
        const fw::PaintDc dc(m_hWnd);
        PaintClosedPart(dc);
    }
    return 0;
}

void CLzUiComboBox::PaintClosedPart(HDC dc) {
    const CRect client = GetClientRect();
    CDC target(dc);
    target.FillSolidRect(client, ::GetSysColor(COLOR_BTNFACE));
    target.FrameRect(client, ::GetSysColorBrush(COLOR_BTNSHADOW));
    CRect button = ButtonRect(client);
    const UINT pressed = GetDroppedState() ? DFCS_PUSHED : 0U;
    ::DrawFrameControl(dc, &button, DFC_SCROLL, DFCS_SCROLLCOMBOBOX | DFCS_FLAT | pressed);
    const fw::ScopedSaveDc saved(dc);
    const CRect choice = ChoiceRect(client);
    target.IntersectClipRect(choice);
    const fw::ScopedSelect font(dc, GetFont());
    DrawChoice(dc, choice);
}

void CLzUiComboBox::DrawChoice(HDC dc, const RECT& bounds) {
    const int choice = GetCurSel();
    if (choice < 0) {
        return;
    }
    const bool ownerDrawn = (GetStyle() & (CBS_OWNERDRAWFIXED | CBS_OWNERDRAWVARIABLE)) != 0;
    const bool focused = HasFocus() && !GetDroppedState();
    CDC target(dc);
    target.SetBkMode(TRANSPARENT);
    target.SetTextColor(::GetSysColor(IsWindowEnabled() ? COLOR_WINDOWTEXT : COLOR_GRAYTEXT));
    if (!ownerDrawn) {
        CRect text = bounds;
        target.DrawText(GetLBText(choice), &text, c_choiceFormat);
        if (focused) {
            target.DrawFocusRect(bounds);
        }
        return;
    }
    DRAWITEMSTRUCT item{};
    item.CtlType = ODT_COMBOBOX;
    item.CtlID = static_cast<UINT>(GetDlgCtrlID());
    item.itemID = static_cast<UINT>(choice);
    item.itemAction = ODA_DRAWENTIRE;
    item.itemState = ODS_COMBOBOXEDIT | (focused ? ODS_FOCUS : 0U);
    item.hwndItem = m_hWnd;
    item.hDC = dc;
    item.rcItem = bounds;
    item.itemData = GetItemData(choice);
    DrawItem(&item);
}
