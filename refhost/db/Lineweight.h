#pragma once

#include <algorithm>
#include <array>
#include <cstdint>

namespace kvhost {

// Lineweights in hundredths of a millimetre, and three numbers that stand for something else.

inline constexpr std::int32_t c_lineweightByLayer = -1;
inline constexpr std::int32_t c_lineweightByBlock = -2;
inline constexpr std::int32_t c_lineweightDefault = -3;
/// What the default and the two that refer to others are drawn as.
inline constexpr std::int32_t c_plainLineweight = 25;

inline constexpr std::array<std::int32_t, 24> c_lineweights{
    0, 5, 9, 13, 15, 18, 20, 25, 30, 35, 40, 50, 53, 60, 70, 80, 90, 100, 106, 120, 140, 158, 200, 211};

[[nodiscard]] constexpr bool IsLineweight(std::int32_t weight) {
    return (weight >= c_lineweightDefault && weight < 0) ||
           std::find(c_lineweights.begin(), c_lineweights.end(), weight) != c_lineweights.end();
}

}  // namespace kvhost
