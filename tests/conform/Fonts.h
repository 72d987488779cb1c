#pragma once

#include "framework/com/ComPtr.h"

namespace kvconform {

/// A font as palettes hand it out.
[[nodiscard]] fw::ComPtr<IFont> MakeFont();

}  // namespace kvconform
