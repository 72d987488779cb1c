#pragma once

#include "framework/base/Handles.h"
#include "framework/com/ComPtr.h"

/// A bitmap of the satellite for a small button, in the size for screens of this many dots per inch. Null
/// when there is none.
[[nodiscard]] fw::UniqueBitmap LoadButtonBitmap(unsigned id, int dotsPerInch);
/// The same for the screen.
[[nodiscard]] fw::UniqueBitmap LoadButtonBitmap(unsigned id);

/// A picture of a copy of the bitmap, so that either may end first. Null when the system refuses.
[[nodiscard]] fw::ComPtr<IPicture> MakeButtonPicture(HBITMAP bitmap);
