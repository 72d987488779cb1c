#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "host_sdk/Export.h"
#include "refhost/units/UnitFormats.h"

namespace kvhost {

/// Text of a length. Lengths of 16 digits and more have the scientific form in every format. Empty for what
/// is no finite number.
[[nodiscard]] KVHOST_API std::wstring LinearText(double value, LinearFormat format, int precision);

/// Reads a number, with an exponent or a fraction, and in the formats with feet a length in feet and inches:
/// 1'-6 1/2". Blanks around are passed over.
[[nodiscard]] KVHOST_API std::optional<double> ReadLinear(std::wstring_view text, LinearFormat format);

}  // namespace kvhost
