#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "host_sdk/Export.h"

namespace kvhost {

// Digits of numbers, the same on every machine: rounded to the nearest text and read to the nearest number,
// so that a text survives being read and written again.

/// The number in full, with `places` digits after the point: "12.3400".
[[nodiscard]] KVHOST_API std::wstring FixedText(double magnitude, int places);
/// "1.2340E+01". The text can always be read again: the greatest numbers are not rounded up beyond all.
[[nodiscard]] KVHOST_API std::wstring ScientificText(double magnitude, int places);
/// FixedText, or ScientificText where the whole part would have more than `digits` digits.
[[nodiscard]] KVHOST_API std::wstring FixedOrScientificText(double magnitude, int places, std::size_t digits);
/// Puts the sign before the text, unless all of the text's digits are zeros.
[[nodiscard]] KVHOST_API std::wstring WithSign(bool isNegative, const std::wstring& text);

/// Reads digits with a point and an exponent, each of which may be missing. Too small a number is zero; empty
/// for what is too great and for anything else.
[[nodiscard]] KVHOST_API std::optional<double> ReadDecimal(std::wstring_view digits);

}  // namespace kvhost
