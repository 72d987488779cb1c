#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "refhost/db/Point3.h"

namespace kvhost {

/// Which point of a text stands at its position. The first three stand on the base line.
enum class TextAlignment : std::int32_t {
    Left,
    Center,
    Right,
    MiddleLeft,
    MiddleCenter,
    MiddleRight,
    TopLeft,
    TopCenter,
    TopRight,
    BottomLeft,
    BottomCenter,
    BottomRight,
};

/// How drawings write the alignments, in their order.
inline constexpr std::array<const wchar_t*, 12> c_textAlignmentNames{
    L"left",     L"center",     L"right",     L"middle left", L"middle center", L"middle right",
    L"top left", L"top center", L"top right", L"bottom left", L"bottom center", L"bottom right",
};

/// A text ready to be drawn.
struct TextLine {
    Point3 position;  ///< on the base line
    double height = 0;
    double rotation = 0;  ///< in radians
    double anchor = 0;    ///< share of the text's run that lies before the position: 0, 0.5 or 1
    std::wstring_view content;
};

/// Share of a text's height that one of its characters is wide, near enough for bounds and picking.
inline constexpr double c_characterWidth = 0.6;
/// Share of a text's height that its letters reach below the base line.
inline constexpr double c_descent = 0.25;

}  // namespace kvhost
