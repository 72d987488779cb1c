#include "families/CPropComboBox.h"

#include <cwctype>

#include "core/CKvPeCtrlBase.h"
#include "core/PrivateMessages.h"
#include "core/ShellHold.h"
#include "families/COwnerDrawItem.h"
#include "families/EntryTipPainter.h"
#include "framework/base/DeviceContexts.h"
#include "framework/base/Hresult.h"
#include "framework/window/CDC.h"

namespace {

constexpr DWORD c_framedStyles = WS_EX_DLGMODALFRAME | WS_EX_CLIENTEDGE | WS_EX_STATICEDGE;

bool IsDown(int key) {
    return ::GetKeyState(key) < 0;
}

}  // namespace

CPropComboBox::CPropComboBox() = default;

CPropComboBox::~CPropComboBox() {
    DestroyWindow();
}

BOOL CPropComboBox::Create(DWORD style, const RECT& bounds, HWND parent, UINT id) {
    if (!CLzUiComboBox::Create(style, bounds, parent, id)) {
        return FALSE;
    }
    InstallPlainList();
    return TRUE;
}

void CPropComboBox::InstallPlainList() {
    m_plainList.SetComboBox(this);
    SetListBox(&m_plainList);
}

BOOL CPropComboBox::PreTranslateMessage(MSG* message) {
    CKvPeCtrlBase* const owner = GetOwner();
    if (message->message != WM_KEYDOWN || !owner) {
        return CLzUiComboBox::PreTranslateMessage(message);
    }
    const fw::ComPtr<IUnknown> shell = HoldShell(owner->Events());
    const fw::LifeWatch alive(*this);
    const BOOL swallowed = OnKeyDown(*message);
    return swallowed || !alive ? swallowed : CLzUiComboBox::PreTranslateMessage(message);
}

BOOL CPropComboBox::OnKeyDown(const MSG& message) {
    CKvPeCtrlBase* const owner = GetOwner();
    if (message.wParam == VK_TAB) {
        fw::Ignore(owner->EndEdit());  // what failed was told to the user; the focus moves on all the same
        fw::Ignore(owner->Fire_OnKeyDown(message.wParam, message.lParam));
        return TRUE;
    }
    // Deliberate: the code of the key is asked, not its character, so that some keys without a letter pass
    // too.
    const bool isLetter = std::iswalpha(static_cast<wint_t>(message.wParam)) != 0;
    if (IsDown(VK_SHIFT) && IsDown(VK_CONTROL) && isLetter && !GetDroppedState()) {
        fw::Ignore(owner->Fire_OnKeyDown(message.wParam, message.lParam));  // no sink can change what follows
    }
    return FALSE;
}

LRESULT CPropComboBox::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    static constexpr std::array s_messages{
        fw::OnMessage(WM_CREATE, &CPropComboBox::OnCreate),
        fw::OnMessage(WM_PAINT, &CPropComboBox::OnPaint),
        fw::OnMessage(WM_RBUTTONDOWN, &CPropComboBox::OnRButtonDown),
        fw::OnMessage(WM_MBUTTONDOWN, &CPropComboBox::OnMButtonDown),
        fw::OnMessage(WM_KVPE_DRAW_TIP, &CPropComboBox::OnDrawTip),
    };
    LRESULT result = 0;
    return fw::DispatchMessage(s_messages, *this, message, wParam, lParam, result)
               ? result
               : CLzUiComboBox::WindowProc(message, wParam, lParam);
}

LRESULT CPropComboBox::OnCreate(UINT message, WPARAM wParam, LPARAM lParam, BOOL&) {
    const LRESULT result = CLzUiComboBox::WindowProc(message, wParam, lParam);
    reinterpret_cast<CREATESTRUCTW*>(lParam)->dwExStyle &= ~c_framedStyles;
    return result;
}

LRESULT CPropComboBox::OnPaint(UINT message, WPARAM wParam, LPARAM lParam, BOOL&) {
    const LRESULT result = CLzUiComboBox::WindowProc(message, wParam, lParam);
    if (!IsVistaTheme()) {
        FlattenFrame();
    }
    return result;
}

void CPropComboBox::FlattenFrame() {
    const fw::WindowDc windowDc(m_hWnd);
    CDC dc(windowDc);
    CRect frame = GetClientRect();
    const auto drawInset = [&](int color) {
        dc.FrameRect(frame, ::GetSysColorBrush(color));
        frame.Inflate(-1, -1);
    };
    drawInset(COLOR_WINDOW);
    drawInset(COLOR_WINDOW);
    frame.left = frame.right - ::GetSystemMetrics(SM_CXHTHUMB);
    drawInset(COLOR_BTNFACE);
    drawInset(COLOR_BTNFACE);
}

LPARAM CPropComboBox::ToParent(LPARAM clientPoint) const {
    CPoint point(clientPoint);
    MapWindowPoints(GetParent(), &point, 1);
    return point.Packed();
}

LRESULT CPropComboBox::OnRButtonDown(UINT, WPARAM wParam, LPARAM lParam, BOOL& handled) {
    handled = GetOwner() != nullptr;
    if (handled) {
        const fw::ComPtr<IUnknown> shell = HoldShell(GetOwner()->Events());
        fw::Ignore(GetOwner()->Fire_OnRButtonDown(wParam, ToParent(lParam)));  // as in OnKeyDown
    }
    return 0;
}

LRESULT CPropComboBox::OnMButtonDown(UINT, WPARAM wParam, LPARAM lParam, BOOL& handled) {
    handled = GetOwner() != nullptr;
    if (handled) {
        const fw::ComPtr<IUnknown> shell = HoldShell(GetOwner()->Events());
        fw::Ignore(GetOwner()->Fire_OnMButtonDown(wParam, ToParent(lParam)));  // as in OnKeyDown
    }
    return 0;
}

LRESULT CPropComboBox::OnDrawTip(UINT, WPARAM, LPARAM lParam, BOOL&) {
    const HWND tip = reinterpret_cast<HWND>(lParam);
    const CKvPeCtrlBase* const owner = GetOwner();
    const int choice = GetCurSel();
    RECT bounds{};
    if (choice == -1 || !owner || !::GetClientRect(tip, &bounds)) {
        return E_FAIL;
    }
    COwnerDrawItem* const item = COwnerDrawItem::FromRowData(static_cast<LONG_PTR>(GetItemData(choice)));
    const fw::WindowDc dc(tip);
    EntryTipPainter::Draw(dc, bounds, owner->FontHandle(), item, GetLBText(choice));
    return S_OK;
}
