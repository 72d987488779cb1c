#pragma once

#include <string>

#include "framework/base/WindowsApi.h"

namespace kvpalette {

/// Writes a PNG of the window with its children, and of the thread's other visible windows (tips, hints, open
/// lists) where they lie. False when the file cannot be written.
[[nodiscard]] bool WriteScreenshot(HWND window, const std::wstring& path);

}  // namespace kvpalette
