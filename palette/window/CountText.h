#pragma once

#include <string>

/// "1 object", "4 objects".
[[nodiscard]] inline std::wstring CountText(std::size_t count) {
    return count == 1 ? L"1 object" : std::to_wstring(count) + L" objects";
}
