#pragma once

#include <string>

#include "framework/base/WindowsApi.h"

namespace kvpalette {

class HostedControl;

/// The text that a control paints in its row, uncut: what the user reads there. Empty when it paints none.
[[nodiscard]] std::wstring PaintedText(const HostedControl& control);

/// The texts of a metafile, joined in the order of drawing.
[[nodiscard]] std::wstring TextOfMetafile(HENHMETAFILE metafile);

}  // namespace kvpalette
