#include "palette/theme/Theme.h"

#include <cwchar>

#include "framework/base/DeviceContexts.h"
#include "palette/theme/Scale.h"

namespace kvpalette {

Fonts::Fonts()
    : plain(MakeFont(Scaled(theme::c_fontHeight), false)),
      bold(MakeFont(Scaled(theme::c_fontHeight), true)),
      title(MakeFont(Scaled(theme::c_fontHeight + 2), true)) {
}

fw::UniqueFont MakeFont(int height, bool bold, int angle) {
    LOGFONTW description{};
    description.lfHeight = -height;
    description.lfEscapement = angle;
    description.lfOrientation = angle;
    description.lfWeight = bold ? FW_BOLD : FW_NORMAL;
    description.lfCharSet = DEFAULT_CHARSET;
    description.lfQuality = DEFAULT_QUALITY;
    std::wcsncpy(description.lfFaceName, theme::c_fontFace, LF_FACESIZE - 1);
    return fw::UniqueFont(::CreateFontIndirectW(&description));
}

void FillColor(HDC dc, const RECT& bounds, COLORREF color) {
    const COLORREF old = ::SetBkColor(dc, color);
    ::ExtTextOutW(dc, 0, 0, ETO_OPAQUE, &bounds, L"", 0, nullptr);
    ::SetBkColor(dc, old);
}

void DrawLineOfText(HDC dc, const RECT& bounds, const wchar_t* text, HFONT font, COLORREF color,
                    UINT format) {
    const fw::ScopedSaveDc saved(dc);
    ::SelectObject(dc, font);
    ::SetTextColor(dc, color);
    ::SetBkMode(dc, TRANSPARENT);
    RECT place = bounds;
    ::DrawTextW(dc, text, -1, &place, format | DT_SINGLELINE | DT_NOPREFIX | DT_END_ELLIPSIS);
}

}  // namespace kvpalette
