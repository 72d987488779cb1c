#include "families/EntryTipPainter.h"

#include "core/ChildIds.h"
#include "families/COwnerDrawItem.h"
#include "families/FillInfoBackground.h"
#include "framework/base/DeviceContexts.h"
#include "framework/window/CDC.h"

void EntryTipPainter::Draw(HDC dc, const RECT& bounds, HFONT font, COwnerDrawItem* item, const CString& text,
                           UINT textFormat, TextColor textColor) {
    const fw::ScopedSaveDc saved(dc);
    const fw::ScopedSelect selectedFont(dc, font);
    CDC target(dc);
    target.SetBkMode(TRANSPARENT);
    target.SetBkColor(::GetSysColor(COLOR_INFOBK));
    if (textColor == TextColor::OfTips) {
        target.SetTextColor(::GetSysColor(COLOR_INFOTEXT));
    }
    if (item) {
        item->Draw(dc, bounds, ODA_DRAWENTIRE, 0, KVPE_TEXT_TIP_MARK);
        return;
    }
    FillInfoBackground(dc, bounds, target.GetBkColor());
    CRect place = bounds;
    target.DrawText(text, &place, textFormat);
}
