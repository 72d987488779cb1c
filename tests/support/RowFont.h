#pragma once

#include "framework/base/WindowsApi.h"
#include "framework/com/ComPtr.h"

namespace kvtest {

/// The size of the palette's font, in ten-thousandths of a point.
inline constexpr LONGLONG c_rowFontSize = 82'500;

/// A font as the palette gives its rows; null when the system makes none.
[[nodiscard]] inline fw::ComPtr<IFont> MakeRowFont(LONGLONG size = c_rowFontSize,
                                                   const wchar_t* name = L"Tahoma") {
    FONTDESC description{.cbSizeofstruct = sizeof(FONTDESC),
                         .lpstrName = const_cast<wchar_t*>(name),
                         .cySize = {.int64 = size},
                         .sWeight = FW_NORMAL,
                         .sCharset = DEFAULT_CHARSET,
                         .fItalic = FALSE,
                         .fUnderline = FALSE,
                         .fStrikethrough = FALSE};
    fw::ComPtr<IFont> font;
    ::OleCreateFontIndirect(&description, IID_IFont, font.PutVoid());
    return font;
}

}  // namespace kvtest
