#pragma once

#include <functional>
#include <string>
#include <vector>

#include "framework/base/WindowsApi.h"

namespace kvtest {

/// One piece of text, or one filled rectangle, that was drawn.
struct DrawnText {
    std::wstring text;  // empty for a filled rectangle
    POINT origin{};     // of the text
    RECT bounds{};      // of the rectangle that goes with it, if any
    UINT options = 0;   // ETO_ values
    COLORREF textColor = 0;
    COLORREF backColor = 0;
    int backMode = 0;
    int stockFont = -1;  // index of the system's font that the text has, if it is one of those
};

/// Records what the work draws into a metafile and gives its text output in order.
std::vector<DrawnText> RecordText(const std::function<void(HDC)>& work);

}  // namespace kvtest
