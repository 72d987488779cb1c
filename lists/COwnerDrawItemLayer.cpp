#include "lists/COwnerDrawItemLayer.h"

#include "families/FillInfoBackground.h"
#include "framework/window/CDC.h"
#include "framework/window/Geometry.h"
#include "host_sdk/CLzUiComboBox.h"
#include "host_sdk/KvEdServices.h"

namespace {

constexpr UINT c_drawActions = ODA_DRAWENTIRE | ODA_SELECT | ODA_FOCUS;
constexpr LONG c_textMargin = 2;
// Deliberate: an ampersand in a layer's name marks a mnemonic here, while lists with samples show it.
constexpr UINT c_textFormat = DT_END_ELLIPSIS | DT_NOCLIP | DT_SINGLELINE | DT_VCENTER;

CRect TextRect(const RECT& bounds) {
    CRect text = bounds;
    text.left += c_textMargin;
    return text;
}

BYTE Faint(BYTE channel) {
    return static_cast<BYTE>(255.0 - (255 - channel) * 0.6);
}

COLORREF Faint(COLORREF color) {
    return RGB(Faint(GetRValue(color)), Faint(GetGValue(color)), Faint(GetBValue(color)));
}

void FillSolid(HDC dc, const RECT& bounds, COLORREF color) {
    const fw::UniqueBrush brush(::CreateSolidBrush(color));
    ::FillRect(dc, &bounds, brush.Get());
}

/// The ground of the text alone, from the entry's left edge to a little behind the text.
void FillOverrideGround(HDC dc, const RECT& bounds, const CString& name, COLORREF color) {
    SIZE extent{};
    ::GetTextExtentPoint32W(dc, name.GetString(), name.GetLength(), &extent);
    CRect ground = bounds;
    ground.right = TextRect(bounds).left + extent.cx + c_textMargin;
    FillSolid(dc, ground, color);
}

}  // namespace

COwnerDrawItemLayer::COwnerDrawItemLayer() = default;
COwnerDrawItemLayer::~COwnerDrawItemLayer() = default;

void COwnerDrawItemLayer::Draw(HDC dc, const RECT& bounds, UINT action, UINT state, UINT) {
    if ((action & c_drawActions) == 0) {
        return;
    }
    const bool isSelected = (state & ODS_SELECTED) != 0;
    const bool drawsGround = (action & (ODA_DRAWENTIRE | ODA_SELECT)) != 0;
    const bool isFocusOnly = (action & ODA_FOCUS) != 0;
    const bool themedEdit = CLzUiComboBox::IsVistaTheme() && CLzUiComboBox::IsInEdit(state);
    if (!themedEdit && !isSelected && drawsGround) {
        FillInfoBackground(dc, bounds, ::GetBkColor(dc));
    }
    CRect text = TextRect(bounds);
    const COLORREF formerText = ::GetTextColor(dc);
    const COLORREF formerGround = ::GetBkColor(dc);
    if (!isSelected && !isFocusOnly && hasViewportOverride) {
        const COLORREF color = kvedGetVpOvrBackgColorValue();
        FillOverrideGround(dc, bounds, name, color);
        ::SetBkColor(dc, color);
    }
    if (isSelected && drawsGround) {
        if (!disabled) {
            ::SetTextColor(dc, ::GetSysColor(COLOR_HIGHLIGHTTEXT));
        }
        ::SetBkColor(dc, ::GetSysColor(COLOR_HIGHLIGHT));
        FillSolid(dc, bounds, ::GetSysColor(COLOR_HIGHLIGHT));
    }
    if (disabled) {
        ::SetTextColor(dc, Faint(::GetTextColor(dc)));
    }
    if (isFocusOnly) {
        ::DrawFocusRect(dc, &bounds);
    } else {
        CDC(dc).DrawText(name, &text, c_textFormat);
    }
    ::SetTextColor(dc, formerText);
    ::SetBkColor(dc, formerGround);
}
