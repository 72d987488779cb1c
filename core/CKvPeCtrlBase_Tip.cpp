#include "core/CKvPeCtrlBase.h"
#include "core/ChildIds.h"
#include "framework/base/DeviceContexts.h"

namespace {

// Room for the tip's frame around the text.
constexpr int c_tipExtraWidth = 5;
constexpr int c_tipExtraHeight = 2;

}  // namespace

HRESULT CKvPeCtrlBase::GetTextTipWidth(int& width) {
    constexpr int usualWidth = 100;
    width = usualWidth;
    return S_OK;
}

HRESULT CKvPeCtrlBase::GetComboTextTipWidth(int, int& width) {
    width = 0;
    return S_OK;
}

LRESULT CKvPeCtrlBase::Handle_OnMouseMove(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled) {
    return Handle_ShowTextTip(message, wParam, lParam, handled);
}

LRESULT CKvPeCtrlBase::Handle_ShowTextTip(UINT, WPARAM, LPARAM, BOOL&) {
    const HWND window = ControlWindow();
    CRect bounds;
    if (!::IsWindow(window) || !::GetClientRect(window, &bounds)) {
        return E_FAIL;
    }
    int width = 0;
    if (FAILED(GetTextTipWidth(width))) {
        return E_FAIL;
    }
    if (bounds.Width() >= width) {
        return S_OK;
    }
    const bool hasTip = m_textTip.IsWindow();
    if (!hasTip && !m_textTip.Create(window)) {
        return E_FAIL;
    }
    // The tip belongs to the palette's window and outlives that of a row which is activated anew.
    if (!hasTip || !::IsWindow(m_textTip.GetOwner())) {
        SetTextTipOwner();
    }
    bounds.right = bounds.left + width + c_tipExtraWidth;
    bounds.bottom += c_tipExtraHeight;
    m_textTip.ShowTextTooltip(bounds);
    return S_OK;
}

LRESULT CKvPeCtrlBase::Handle_OnDrawTooltip(UINT, WPARAM wParam, LPARAM, BOOL&) {
    RECT client{};
    if (wParam != KVPE_TEXT_TIP_MARK || !m_textTip.IsWindow() ||
        !::GetClientRect(m_textTip.GetSafeHwnd(), &client)) {
        return 0;
    }
    const fw::WindowDc dc(m_textTip.GetSafeHwnd());
    const RECTL bounds{client.left, client.top, client.right, client.bottom};
    ATL_DRAWINFO info;
    info.hdcDraw = dc;
    info.prcBounds = &bounds;
    return Handle_OnDraw(info);
}

void CKvPeCtrlBase::SetTextTipOwner() {
    const HWND window = ControlWindow();
    m_textTip.SetOwner(window, window != nullptr ? ::GetParent(window) : nullptr);
}
