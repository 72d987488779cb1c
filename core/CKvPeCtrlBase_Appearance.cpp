#include <utility>

#include "core/CKvPeBasePrivate.h"
#include "core/CKvPeCtrlBase.h"
#include "core/OleColors.h"
#include "framework/window/CDC.h"

namespace {

// A put of the same colour keeps the brush, which the window may be painting with.
void PutBackColor(OLE_COLOR color, OLE_COLOR& member, fw::UniqueBrush& brush) {
    if (color != member) {
        member = color;
        brush = SolidBrush(color);
    }
}

HRESULT GiveColor(OLE_COLOR color, OLE_COLOR* result) {
    RETURN_IF_NULL_POINTER(result);
    *result = color;
    return S_OK;
}

}  // namespace

HRESULT CKvPeCtrlBase::Handle_put_ForeColor(OLE_COLOR color) {
    m_foreColor = color;
    return S_OK;
}

HRESULT CKvPeCtrlBase::Handle_get_ForeColor(OLE_COLOR* color) {
    return GiveColor(m_foreColor, color);
}

HRESULT CKvPeCtrlBase::Handle_put_BackColor(OLE_COLOR color) {
    PutBackColor(color, m_backColor, m_backBrush);
    return S_OK;
}

HRESULT CKvPeCtrlBase::Handle_get_BackColor(OLE_COLOR* color) {
    return GiveColor(m_backColor, color);
}

HRESULT CKvPeCtrlBase::Handle_put_ReadOnlyForeColor(OLE_COLOR color) {
    m_readOnlyForeColor = color;
    return S_OK;
}

HRESULT CKvPeCtrlBase::Handle_get_ReadOnlyForeColor(OLE_COLOR* color) {
    return GiveColor(m_readOnlyForeColor, color);
}

HRESULT CKvPeCtrlBase::Handle_put_ReadOnlyBackColor(OLE_COLOR color) {
    PutBackColor(color, m_readOnlyBackColor, m_readOnlyBackBrush);
    return S_OK;
}

HRESULT CKvPeCtrlBase::Handle_get_ReadOnlyBackColor(OLE_COLOR* color) {
    return GiveColor(m_readOnlyBackColor, color);
}

HRESULT CKvPeCtrlBase::Handle_put_Font(IUnknown* font) {
    RETURN_IF_NULL_POINTER(font);
    if (font == m_font.Get()) {
        return S_OK;
    }
    fw::ComPtr<IFont> newFont;
    RETURN_IF_FAILED_EXPECTED(font->QueryInterface(IID_IFont, newFont.PutVoid()));
    m_font = std::move(newFont);
    return S_OK;
}

HRESULT CKvPeCtrlBase::Handle_get_Font(IUnknown** font) {
    RETURN_IF_NULL_POINTER(font);
    return m_font.CopyTo(font);
}

HFONT CKvPeCtrlBase::FontHandle() const {
    HFONT handle = nullptr;
    return m_font && SUCCEEDED(m_font->get_hFont(&handle)) ? handle : nullptr;
}

HRESULT CKvPeCtrlBase::Handle_OnDraw(ATL_DRAWINFO&) {
    return S_OK;
}

LRESULT CKvPeCtrlBase::Handle_OnCtlColor(UINT, WPARAM wParam, LPARAM, BOOL&) {
    int readOnly = FALSE;
    // A control that cannot tell is drawn as writable.
    fw::Ignore(PropReadOnly(readOnly));
    CDC dc(reinterpret_cast<HDC>(wParam));
    COLORREF background = ToColorRef(readOnly ? m_readOnlyBackColor : m_backColor);
    if (CPropTextTooltip::IsTextTip(dc.GetSafeHdc())) {
        background = ::GetSysColor(COLOR_INFOBK);
    }
    dc.SetTextColor(ToColorRef(readOnly ? m_readOnlyForeColor : m_foreColor));
    dc.SetBkColor(background);
    dc.SetBkMode(TRANSPARENT);
    return reinterpret_cast<LRESULT>(readOnly ? m_readOnlyBackBrush.Get() : m_backBrush.Get());
}

LRESULT CKvPeCtrlBase::Handle_OnEraseBackground(UINT, WPARAM, LPARAM, BOOL& handled) {
    handled = TRUE;
    return 1;
}

HRESULT CKvPeCtrlBase::GetStringWidth(const CString& text, int* width) {
    RETURN_HR_IF(E_INVALIDARG, width == nullptr);
    const HWND window = ControlWindow();
    const HFONT font = FontHandle();
    RECT client{};
    RETURN_HR_IF(E_FAIL, font == nullptr || !::IsWindow(window) || !::GetClientRect(window, &client));
    const fw::WindowDc windowDc(window);
    RETURN_HR_IF(E_FAIL, windowDc.Get() == nullptr);
    if (text.IsEmpty()) {
        return S_OK;
    }
    const fw::ScopedSelect selectFont(windowDc, font);
    CDC dc(windowDc);
    CRect bounds(client);
    dc.DrawText(text, &bounds, DT_CALCRECT | DT_NOPREFIX | DT_NOCLIP | DT_EXTERNALLEADING);
    *width = static_cast<int>(bounds.Width());
    return S_OK;
}

HRESULT CKvPeCtrlBase::GetFrameHandle(HWND& frame) {
    frame = nullptr;
    IOleInPlaceSite* const site = m_private != nullptr ? m_private->GetInPlaceSite() : nullptr;
    RETURN_HR_IF(E_FAIL, site == nullptr);
    fw::ComPtr<IOleInPlaceFrame> frameWindow;
    fw::ComPtr<IOleInPlaceUIWindow> documentWindow;
    RECT position{};
    RECT clip{};
    OLEINPLACEFRAMEINFO info{};
    info.cb = sizeof info;
    RETURN_IF_FAILED_EXPECTED(
        site->GetWindowContext(frameWindow.Put(), documentWindow.Put(), &position, &clip, &info));
    frame = info.hwndFrame;
    return S_OK;
}
