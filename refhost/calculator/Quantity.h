#pragma once

#include <optional>
#include <string_view>

#include "refhost/units/UnitFormats.h"

namespace kvhost {

/// A number with the powers of lengths (drawing units) and angles (units of the drawing's angular format)
/// that it counts.
struct Quantity {
    double number = 0;
    int lengthPower = 0;
    int anglePower = 0;

    [[nodiscard]] bool HasUnit() const { return lengthPower != 0 || anglePower != 0; }
};

// Results of the calculator's operations, empty where units do not go together or the number is not finite.
// A number without a unit goes with any: it then counts drawing units.

[[nodiscard]] std::optional<Quantity> Sum(const Quantity& left, const Quantity& right);
[[nodiscard]] std::optional<Quantity> Difference(const Quantity& left, const Quantity& right);
[[nodiscard]] std::optional<Quantity> Product(const Quantity& left, const Quantity& right);
[[nodiscard]] std::optional<Quantity> Quotient(const Quantity& left, const Quantity& right);
/// A quantity with a unit has whole powers only.
[[nodiscard]] std::optional<Quantity> Power(const Quantity& base, const Quantity& exponent);
/// sin, cos, tan, asin, acos, atan, sqrt, sqr, abs, round, trunc, exp, ln, log by name in lower case. Angles
/// are in the unit of `format`.
[[nodiscard]] std::optional<Quantity> FunctionOf(std::wstring_view name, const Quantity& argument,
                                                 AngularFormat format);

}  // namespace kvhost
