// From the container and the user to the logic: verbs, places, painting and the messages of the window.
#include "core/CKvPeShell.h"
#include "core/DispatchIds.h"
#include "core/PrivateMessages.h"
#include "framework/base/Hresult.h"

LRESULT CKvPeShell::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    using Shell = CKvPeShell;
    static constexpr std::array s_messages{
        fw::OnMessage(WM_CREATE, &Shell::OnCreate),
        fw::OnMessage(WM_LBUTTONDOWN, &Shell::OnLButtonDown),
        fw::OnMessage(WM_LBUTTONDBLCLK, &Shell::OnLButtonDblClk),
        fw::OnMessage(WM_RBUTTONDOWN, &Shell::OnRButtonDown),
        fw::OnMessage(WM_MBUTTONDOWN, &Shell::OnMButtonDown),
        fw::OnMessage(WM_KEYDOWN, &Shell::OnKeyDown),
        fw::OnMessage(WM_MOUSEACTIVATE, &Shell::OnMouseActivate),
        fw::OnMessage(WM_KVPE_CTLCOLOR, &Shell::OnCtlColor),
        fw::OnMessage(WM_MOUSEMOVE, &Shell::OnMouseMove),
        fw::OnMessage(WM_MOUSELEAVE, &Shell::OnMouseLeave),
        fw::OnMessage(WM_KVPE_DRAW_TIP, &Shell::OnDrawTip),
        fw::OnMessage(WM_GETDLGCODE, &Shell::OnGetDlgCode),
        fw::OnMessage(WM_ERASEBKGND, &Shell::OnEraseBackground),
        fw::OnMessage(WM_KVPE_LIST_HOVER, &Shell::OnListHoverMessage),
    };
    const fw::ComPtr<IUnknown> self(GetUnknown());
    LRESULT result = 0;
    return fw::DispatchMessage(s_messages, *this, message, wParam, lParam, result)
               ? result
               : CComControl::WindowProc(message, wParam, lParam);
}

LRESULT CKvPeShell::ToLogic(LogicHandler handler, UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled) {
    if (!m_logic) {
        handled = FALSE;
        return 0;
    }
    return (m_logic.get()->*handler)(message, wParam, lParam, handled);
}

LRESULT CKvPeShell::OnCreate(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled) {
    OLE_COLOR color = 0;
    TakeAmbientBackColor();
    if (GetAmbientColor(DISPID_READONLY_BACKCOLOR, color)) {
        fw::Ignore(put_ReadOnlyBackColor(color));  // the setters accept every colour
    }
    TakeAmbientForeColor();
    if (GetAmbientColor(DISPID_READONLY_FORECOLOR, color)) {
        fw::Ignore(put_ReadOnlyForeColor(color));
    }
    TakeAmbientFont();
    return ToLogic(&CKvPeCtrlBase::Handle_OnCreate, message, wParam, lParam, handled);
}

LRESULT CKvPeShell::OnLButtonDown(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled) {
    const LRESULT result = ToLogic(&CKvPeCtrlBase::Handle_OnLButtonDown, message, wParam, lParam, handled);
    if (!handled) {
        fw::Ignore(FireClickEvent());  // no sink can change what follows; the same below
    }
    return result;
}

LRESULT CKvPeShell::OnLButtonDblClk(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled) {
    const LRESULT result = ToLogic(&CKvPeCtrlBase::Handle_OnLButtonDblClk, message, wParam, lParam, handled);
    if (!handled) {
        fw::Ignore(FireDblClickEvent());
    }
    return result;
}

LRESULT CKvPeShell::OnRButtonDown(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled) {
    const LRESULT result = ToLogic(&CKvPeCtrlBase::Handle_OnRButtonDown, message, wParam, lParam, handled);
    if (!handled) {
        fw::Ignore(FireRButtonDownEvent(wParam, ToParentPoint(lParam)));
    }
    return result;
}

LRESULT CKvPeShell::OnMButtonDown(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled) {
    const LRESULT result = ToLogic(&CKvPeCtrlBase::Handle_OnMButtonDown, message, wParam, lParam, handled);
    if (!handled) {
        fw::Ignore(FireMButtonDownEvent(wParam, ToParentPoint(lParam)));
    }
    return result;
}

LPARAM CKvPeShell::ToParentPoint(LPARAM clientPoint) const {
    CPoint point(clientPoint);
    MapWindowPoints(GetParent(), &point, 1);
    return point.Packed();
}

LRESULT CKvPeShell::OnKeyDown(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled) {
    ToLogic(&CKvPeCtrlBase::Handle_OnKeyDown, message, wParam, lParam, handled);
    return 0;
}

LRESULT CKvPeShell::OnMouseActivate(UINT, WPARAM, LPARAM lParam, BOOL& handled) {
    handled = HIWORD(lParam) == WM_MBUTTONDOWN;  // the middle button pans the drawing and activates nothing
    return 0;
}

LRESULT CKvPeShell::OnCtlColor(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled) {
    return ToLogic(&CKvPeCtrlBase::Handle_OnCtlColor, message, wParam, lParam, handled);
}

LRESULT CKvPeShell::OnMouseMove(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled) {
    return ToLogic(&CKvPeCtrlBase::Handle_OnMouseMove, message, wParam, lParam, handled);
}

LRESULT CKvPeShell::OnMouseLeave(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled) {
    return ToLogic(&CKvPeCtrlBase::Handle_OnMouseLeave, message, wParam, lParam, handled);
}

LRESULT CKvPeShell::OnDrawTip(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled) {
    return ToLogic(&CKvPeCtrlBase::Handle_OnDrawTooltip, message, wParam, lParam, handled);
}

LRESULT CKvPeShell::OnGetDlgCode(UINT, WPARAM, LPARAM, BOOL&) {
    return DLGC_WANTALLKEYS;
}

LRESULT CKvPeShell::OnEraseBackground(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled) {
    const LRESULT result =
        ToLogic(&CKvPeCtrlBase::Handle_OnEraseBackground, message, wParam, lParam, handled);
    return m_logic ? result : 1;
}

LRESULT CKvPeShell::OnListHoverMessage(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled) {
    return OnListHover(message, wParam, lParam, handled);
}

LRESULT CKvPeShell::OnListHover(UINT, WPARAM, LPARAM, BOOL&) {
    return E_FAIL;
}

// Ambient properties. One that the container does not have leaves the control's own value.

bool CKvPeShell::GetAmbientColor(DISPID id, OLE_COLOR& color) {
    fw::Variant value;
    if (FAILED(GetAmbientProperty(id, *value.Address())) || FAILED(value.ChangeType(VT_I4))) {
        return false;
    }
    color = static_cast<OLE_COLOR>(value.Get().lVal);
    return true;
}

void CKvPeShell::TakeAmbientBackColor() {
    OLE_COLOR color = 0;
    if (SUCCEEDED(GetAmbientBackColor(color))) {
        fw::Ignore(put_BackColor(color));  // the setters accept every colour
    }
}

void CKvPeShell::TakeAmbientForeColor() {
    OLE_COLOR color = 0;
    if (SUCCEEDED(GetAmbientForeColor(color))) {
        fw::Ignore(put_ForeColor(color));
    }
}

void CKvPeShell::TakeAmbientFont() {
    fw::ComPtr<IFont> font;
    if (SUCCEEDED(GetAmbientFont(font))) {
        fw::Ignore(put_Font(font.Get()));  // a font that is refused leaves the earlier one
    }
}

// CComControl

HRESULT CKvPeShell::OnDrawAdvanced(ATL_DRAWINFO& info) {
    return m_logic ? m_logic->Handle_OnDraw(info) : E_UNEXPECTED;
}

HRESULT CKvPeShell::DoVerbShow(const RECT* position, HWND) {
    if (!IsWindow()) {
        RETURN_IF_FAILED_EXPECTED(InPlaceActivate(OLEIVERB_SHOW, position));
    }
    ShowWindow(SW_SHOW);
    return m_logic ? m_logic->Handle_DoVerbShow() : E_UNEXPECTED;
}

HRESULT CKvPeShell::DoVerbHide(const RECT* position, HWND parent) {
    const HRESULT hidden = m_logic ? m_logic->Handle_DoVerbHide() : E_UNEXPECTED;
    fw::Ignore(CComControl::DoVerbHide(position, parent));  // the window goes whatever became of the edit
    return hidden;
}

HRESULT CKvPeShell::OnUserActivated(const RECT& client) {
    return m_logic ? m_logic->Handle_DoVerbUIActivate(&client) : E_UNEXPECTED;
}

HRESULT CKvPeShell::OnUIDeactivating() {
    return m_logic ? m_logic->Handle_UIDeactivate() : E_UNEXPECTED;
}

HRESULT CKvPeShell::OnObjectRectsSet(const RECT& position, const RECT& clip) {
    return m_logic ? m_logic->Handle_SetObjectRects(&position, &clip) : S_OK;
}
