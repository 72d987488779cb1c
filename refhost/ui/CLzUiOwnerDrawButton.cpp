#include "host_sdk/CLzUiOwnerDrawButton.h"

#include "framework/base/DeviceContexts.h"
#include "framework/window/CDC.h"
#include "refhost/testing/ServiceCall.h"

namespace {

constexpr int c_focusInset = 2;

UINT PaintFlagsOf(UINT itemState, bool flat) {
    UINT flags = flat ? CLzUiOwnerDrawButton::PaintFlags_Flat : CLzUiOwnerDrawButton::PaintFlags_None;
    if ((itemState & ODS_SELECTED) != 0) {
        flags |= CLzUiOwnerDrawButton::PaintFlags_Pressed;
    }
    if ((itemState & ODS_FOCUS) != 0) {
        flags |= CLzUiOwnerDrawButton::PaintFlags_Focused;
    }
    if ((itemState & ODS_DISABLED) != 0) {
        flags |= CLzUiOwnerDrawButton::PaintFlags_Disabled;
    }
    if ((itemState & ODS_DEFAULT) != 0) {
        flags |= CLzUiOwnerDrawButton::PaintFlags_Default;
    }
    return flags;
}

}  // namespace

BOOL CLzUiOwnerDrawButton::Create(const wchar_t* text, DWORD style, const RECT& bounds, HWND parent, UINT id,
                                  DWORD exStyle, HINSTANCE module) {
    kvhost::ServiceCall call(L"CLzUiOwnerDrawButton", id);
    if (call.Fails()) {
        return call.Returns(false);
    }
    return call.Returns(CButton::Create(text, style, bounds, parent, id, exStyle, module) != FALSE);
}

void CLzUiOwnerDrawButton::SetFlat(bool flat) {
    m_flat = flat;
    if (IsWindow()) {
        Invalidate();
    }
}

void CLzUiOwnerDrawButton::DrawItem(DRAWITEMSTRUCT* item) {
    // From the state and never from the action: newer system controls ask for the whole button each time.
    CDC dc(item->hDC);
    const fw::ScopedSaveDc saved(item->hDC);
    OnPaintButton(dc, item->rcItem, PaintFlagsOf(item->itemState, m_flat));
}

void CLzUiOwnerDrawButton::OnPaintButton(CDC& dc, const RECT& bounds, UINT flags) {
    const bool flat = (flags & PaintFlags_Flat) != 0;
    const bool pressed = (flags & PaintFlags_Pressed) != 0;
    CRect face = bounds;
    if (flat) {
        dc.FillSolidRect(face, ::GetSysColor(COLOR_BTNFACE));
    } else {
        ::DrawFrameControl(dc, &face, DFC_BUTTON, DFCS_BUTTONPUSH | (pressed ? DFCS_PUSHED : 0U));
    }
    const fw::ScopedSelect font(dc, GetFont());
    dc.SetBkMode(TRANSPARENT);
    const bool disabled = (flags & PaintFlags_Disabled) != 0;
    dc.SetTextColor(::GetSysColor(disabled ? COLOR_GRAYTEXT : COLOR_BTNTEXT));
    CRect caption = face;
    caption.Offset(pressed ? 1 : 0, pressed ? 1 : 0);
    dc.DrawText(GetWindowText(), &caption, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
    if ((flags & PaintFlags_Focused) != 0 && !flat) {
        face.Inflate(-c_focusInset, -c_focusInset);
        dc.DrawFocusRect(face);
    }
}
