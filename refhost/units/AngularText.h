#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "host_sdk/Export.h"
#include "refhost/units/UnitFormats.h"

namespace kvhost {

/// Where an angle is counted from, and which way.
struct AngularBase {
    double direction = 0;
    bool isClockwise = false;
};

/// Text of an angle as it stands. Angles of more than six digits have the scientific form, but bearings,
/// which are directions only. Empty for what is no finite number in the unit.
[[nodiscard]] KVHOST_API std::wstring RawAngleText(double radians, AngularFormat format, int precision);
/// Text of an angle as a direction, from zero up to a full turn.
[[nodiscard]] KVHOST_API std::wstring AngleText(double radians, AngularFormat format, int precision,
                                                const AngularBase& base);

/// Reads 45, 45d30'15.5", 50g, 0.5r and bearings such as N 45d E. A number without a mark is one of the
/// format's unit.
[[nodiscard]] KVHOST_API std::optional<double> ReadRawAngle(std::wstring_view text, AngularFormat format);
/// The direction, from zero up to a full turn.
[[nodiscard]] KVHOST_API std::optional<double> ReadAngle(std::wstring_view text, AngularFormat format,
                                                         const AngularBase& base);

/// The same direction between zero and a full turn, which itself counts as zero.
[[nodiscard]] KVHOST_API double NormalizedAngle(double radians);

}  // namespace kvhost
