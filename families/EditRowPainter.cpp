#include "families/EditRowPainter.h"

#include <algorithm>

#include "framework/base/DeviceContexts.h"

namespace {

LONG OneIfOdd(LONG number) {
    return number % 2 != 0 ? 1 : 0;
}

}  // namespace

int EditRowPainter::LineHeight(HDC dc) {
    TEXTMETRICW font{};
    ::GetTextMetricsW(dc, &font);
    return font.tmHeight;
}

CRect EditRowPainter::TextRect(const RECT& bounds, int lineHeight) {
    CRect text = bounds;
    const LONG height = text.Height();
    text.left += LeftMargin;
    text.top += std::max(0L, OneIfOdd(height) + (height - lineHeight) / 2);
    return text;
}

CRect EditRowPainter::EditTextRect(CSize window, int lineHeight) {
    const LONG evenHeight = 1 - OneIfOdd(window.cy);
    const LONG top = std::max(0L, (window.cy - lineHeight) / 2 + evenHeight);
    return {std::min<LONG>(LeftMargin, window.cx), std::min(top, window.cy), window.cx, window.cy};
}

void EditRowPainter::Draw(HDC dc, const RECT& bounds, const CString& text, HFONT font, Ground ground) {
    const fw::ScopedFont selectedFont(dc, font);
    CRect textRect = TextRect(bounds, LineHeight(dc));
    if (ground == Ground::Fill) {
        ::ExtTextOutW(dc, bounds.left, bounds.top, ETO_OPAQUE, &bounds, nullptr, 0, nullptr);
    }
    ::DrawTextW(dc, text, text.GetLength(), &textRect, TextFormat);
}
