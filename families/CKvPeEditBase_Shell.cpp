// The row as the shell sees it: painting, places, verbs and the mouse.
#include "core/CIPropEditUIEvents.h"
#include "core/EditState.h"
#include "families/CKvPeEditBase.h"
#include "families/EditRowPainter.h"
#include "framework/base/DeviceContexts.h"

HRESULT CKvPeEditBase::Handle_OnDraw(ATL_DRAWINFO& info) {
    const HDC dc = info.hdcDraw;
    const RECT bounds = {info.prcBounds->left, info.prcBounds->top, info.prcBounds->right,
                         info.prcBounds->bottom};
    const fw::ScopedTextColors saved(dc);
    BOOL handled = TRUE;
    Handle_OnCtlColor(WM_CTLCOLOREDIT, reinterpret_cast<WPARAM>(dc), 0, handled);
    // The tip has painted its own ground.
    const auto ground =
        CPropTextTooltip::IsTextTip(dc) ? EditRowPainter::Ground::Keep : EditRowPainter::Ground::Fill;
    EditRowPainter::Draw(dc, bounds, m_text, FontHandle(), ground);
    return S_OK;
}

HRESULT CKvPeEditBase::Handle_SetObjectRects(const RECT* bounds, const RECT*) {
    RETURN_IF_NULL_POINTER(bounds);
    RETURN_HR_IF(S_OK, !IsInEdit() || !HasEditWindow());
    const CSize size = CRect(*bounds).Size();
    m_edit->SetWindowPos(HWND_TOP, 0, 0, size.cx, size.cy, SWP_NOACTIVATE);
    PlaceEditText();
    return S_OK;
}

void CKvPeEditBase::PlaceEditText() {
    int lineHeight = 0;
    {
        const fw::WindowDc dc(m_edit->m_hWnd);
        const fw::ScopedSelect font(dc, m_edit->GetFont());
        lineHeight = EditRowPainter::LineHeight(dc);
    }
    m_edit->SetRect(EditRowPainter::EditTextRect(m_edit->GetWindowRect().Size(), lineHeight));
    m_edit->CheckUnspecifiedHintPosition();
}

void CKvPeEditBase::HideEdit() {
    if (HasEditWindow()) {
        m_edit->ShowWindow(SW_HIDE);
        if (m_allowUnspecified) {
            m_edit->ShowUnspecifiedHint(false);
        }
    }
}

HRESULT CKvPeEditBase::Handle_DoVerbHide() {
    if (!m_keepEditOnHide) {
        fw::Ignore(EndEdit());  // there may be nothing to end
        m_state = EditState_Shown;
    }
    HideEdit();
    return S_OK;
}

HRESULT CKvPeEditBase::Handle_DoVerbShow() {
    if (IsInEdit() && HasEditWindow()) {
        m_edit->ShowWindow(SW_SHOW);
        m_edit->BringWindowToTop();
        m_edit->Invalidate();
    }
    return S_OK;
}

HRESULT CKvPeEditBase::Handle_UIDeactivate() {
    if (IsInEdit()) {
        fw::Ignore(EndEdit());  // a refused text was told to the user and taken back
    }
    m_state = EditState_Shown;
    HideEdit();
    if (HasEditWindow()) {
        m_edit->Invalidate();
    }
    return S_OK;
}

HRESULT CKvPeEditBase::Handle_get_KeepFocus(short* keepFocus) {
    RETURN_IF_NULL_POINTER(keepFocus);
    const bool keeps = HasEditWindow() && IsInEdit() && m_edit->IsCaretShown();
    *keepFocus = keeps ? VARIANT_TRUE : VARIANT_FALSE;
    return S_OK;
}

HRESULT CKvPeEditBase::Handle_put_Font(IUnknown* font) {
    RETURN_IF_FAILED_EXPECTED(CKvPeCtrlBase::Handle_put_Font(font));
    if (HasEditWindow()) {
        m_edit->SetFont(FontHandle());
        m_edit->Invalidate();
    }
    return S_OK;
}

LRESULT CKvPeEditBase::Handle_OnLButtonDown(UINT, WPARAM, LPARAM lParam, BOOL& handled) {
    fw::Ignore(MouseClick(MK_LBUTTON, CPoint(lParam)));  // without a box the row stays painted
    handled = FALSE;
    return 0;
}

LRESULT CKvPeEditBase::Handle_OnLButtonDblClk(UINT, WPARAM, LPARAM, BOOL& handled) {
    handled = HasEditWindow();
    if (handled) {
        fw::Ignore(DoubleClick(m_edit->GetClientRect()));  // without a box the row stays painted
    }
    return 0;
}

LRESULT CKvPeEditBase::Handle_OnRButtonDown(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled) {
    const HWND window = ControlWindow();
    handled = IsInEdit() && HasEditWindow() && window;
    if (handled) {
        CPoint point(lParam);
        ::MapWindowPoints(window, m_edit->m_hWnd, &point, 1);
        m_edit->PostMessage(message, wParam, point.Packed());
        fw::Ignore(m_events->FireClickEvent());  // no sink can change what follows
    }
    return 0;
}
