#pragma once

#include "benchmarks/Drawing.h"
#include "framework/com/ComPtr.h"

namespace kvbench {

/// The font of the palette's rows.
[[nodiscard]] inline fw::ComPtr<IFont> MakeFont() {
    FONTDESC description{.cbSizeofstruct = sizeof(FONTDESC),
                         .lpstrName = const_cast<wchar_t*>(L"Tahoma"),
                         .cySize = {.int64 = 82500},
                         .sWeight = FW_NORMAL,
                         .sCharset = DEFAULT_CHARSET,
                         .fItalic = FALSE,
                         .fUnderline = FALSE,
                         .fStrikethrough = FALSE};
    fw::ComPtr<IFont> font;
    Require(::OleCreateFontIndirect(&description, IID_IFont, font.PutVoid()) == S_OK,
            "the system makes a font");
    return font;
}

}  // namespace kvbench
