#include "families/COwnerDrawItemBmp.h"

#include <algorithm>

#include "families/FillInfoBackground.h"
#include "framework/base/DeviceContexts.h"
#include "framework/base/Hresult.h"
#include "framework/window/CDC.h"
#include "host_sdk/CLzUiComboBox.h"

namespace {

constexpr UINT c_textFormat = DT_VCENTER | DT_SINGLELINE | DT_NOCLIP | DT_NOPREFIX | DT_END_ELLIPSIS;
constexpr UINT c_anyAction = ODA_DRAWENTIRE | ODA_SELECT | ODA_FOCUS;
constexpr UINT c_fullAction = ODA_DRAWENTIRE | ODA_SELECT;
constexpr LONG c_textBehindPicture = 16;
constexpr LONG c_textWithoutPicture = 1;
constexpr LONG c_selectionMargin = 2;
constexpr LONG c_clipMargin = 3;

CRect BeforeText(const RECT& bounds, bool hasPicture, LONG margin) {
    CRect place = COwnerDrawItemBmp::TextRect(bounds, hasPicture);
    place.left = std::max(bounds.left, place.left - margin);
    return place;
}

void DrawPicture(HDC dc, const RECT& bounds, HBITMAP picture) {
    const fw::MemoryDc source(dc);
    const fw::ScopedSelect selected(source, picture);
    const CRect target(CPoint(bounds.left, bounds.top),
                       CSize(COwnerDrawItemBmp::PictureSize, COwnerDrawItemBmp::PictureSize));
    CDC(dc).BitBlt(target, source, 0, 0);
}

}  // namespace

COwnerDrawItemBmp::COwnerDrawItemBmp() = default;

COwnerDrawItemBmp::~COwnerDrawItemBmp() {
    fw::Ignore(picture.Release());  // other rows show the same one
}

CRect COwnerDrawItemBmp::TextRect(const RECT& bounds, bool hasPicture) {
    CRect text = bounds;
    text.left += hasPicture ? c_textBehindPicture : c_textWithoutPicture;
    return text;
}

CRect COwnerDrawItemBmp::SelectionRect(const RECT& bounds, bool hasPicture) {
    return BeforeText(bounds, hasPicture, c_selectionMargin);
}

CRect COwnerDrawItemBmp::ClipRect(const RECT& bounds, bool hasPicture) {
    return BeforeText(bounds, hasPicture, c_clipMargin);
}

void COwnerDrawItemBmp::DrawPlain(HDC, const RECT&) {
}

void COwnerDrawItemBmp::Draw(HDC dc, const RECT& bounds, UINT action, UINT state, UINT) {
    if ((action & c_anyAction) == 0) {
        return;
    }
    const bool hasPicture = !bNoBitmap;
    const bool selected = (state & ODS_SELECTED) != 0;
    const bool themed = CLzUiComboBox::IsVistaTheme() && CLzUiComboBox::IsInEdit(state);
    const CRect selection = SelectionRect(bounds, hasPicture);
    const COLORREF ground = ::GetBkColor(dc);
    if (!themed && !selected && (action & c_fullAction) != 0) {
        FillInfoBackground(dc, bounds, ground);
    }
    {
        const fw::ScopedSaveDc saved(dc);
        CDC target(dc);
        target.IntersectClipRect(ClipRect(bounds, hasPicture));
        if (selected && (action & c_fullAction) != 0) {
            target.SetTextColor(::GetSysColor(COLOR_HIGHLIGHTTEXT));
            target.SetBkColor(::GetSysColor(COLOR_HIGHLIGHT));
            target.FillSolidRect(selection, ::GetSysColor(COLOR_HIGHLIGHT));
        }
        if (!selected && (action & ODA_SELECT) != 0) {
            FillInfoBackground(dc, selection, ground);
        }
        if ((action & ODA_FOCUS) != 0) {
            target.DrawFocusRect(selection);
        } else {
            CRect text = TextRect(bounds, hasPicture);
            target.DrawText(name, &text, c_textFormat);
        }
    }
    if (hasPicture && picture) {
        DrawPicture(dc, bounds, picture.Get());
    }
}
