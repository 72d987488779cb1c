#pragma once

#include "framework/base/CString.h"
#include "framework/base/WindowsApi.h"
#include "framework/window/Geometry.h"

/// Places and draws the text of a row, without a window or a host. The edit box over the row uses the same
/// numbers, so that the text does not jump when an edit begins.
class EditRowPainter {
public:
    static constexpr UINT TextFormat = DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_NOCLIP | DT_END_ELLIPSIS;
    static constexpr int LeftMargin = 2;

    enum class Ground { Fill, Keep };

    /// Height of a line in the font that is selected: every text measures the same, so that an empty row has
    /// a line as well.
    static int LineHeight(HDC dc);
    /// Where the text stands in a row.
    static CRect TextRect(const RECT& bounds, int lineHeight);
    /// The formatting rectangle of an edit box that covers a row of this size.
    static CRect EditTextRect(CSize window, int lineHeight);

    /// Draws in the colours and the mode of the context; a null font keeps the one that is selected.
    static void Draw(HDC dc, const RECT& bounds, const CString& text, HFONT font, Ground ground);
};
