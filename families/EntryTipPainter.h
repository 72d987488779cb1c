#pragma once

#include "framework/base/CString.h"
#include "framework/base/WindowsApi.h"

class COwnerDrawItem;

/// Paints what a tip shows of a list entry: the entry's own drawing, or its text on the ground of tips.
class EntryTipPainter {
public:
    enum class TextColor { OfTips, AsItIs };

    /// An entry of a list whose entries are plain texts.
    static constexpr UINT TextFormat = DT_VCENTER | DT_SINGLELINE | DT_NOCLIP | DT_NOPREFIX | DT_END_ELLIPSIS;

    /// `item` is null for an entry that is a text only. The context comes back as it was.
    static void Draw(HDC dc, const RECT& bounds, HFONT font, COwnerDrawItem* item, const CString& text,
                     UINT textFormat = TextFormat, TextColor textColor = TextColor::OfTips);
};
