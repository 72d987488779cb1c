#pragma once

namespace kvhost {

/// Values of LUNITS.
enum class LinearFormat { Scientific = 1, Decimal = 2, Engineering = 3, Architectural = 4, Fractional = 5 };

/// Values of AUNITS.
enum class AngularFormat { Degrees = 0, DegreesMinutesSeconds = 1, Grads = 2, Radians = 3, Surveyor = 4 };

inline constexpr int c_highestPrecision = 8;
inline constexpr double c_fullTurn = 6.283185307179586;

/// Feet and inches have a meaning.
[[nodiscard]] constexpr bool HasFeet(LinearFormat format) {
    return format == LinearFormat::Engineering || format == LinearFormat::Architectural;
}

/// The unit in which a format counts, as that of a number without a mark: units of one full turn.
[[nodiscard]] constexpr double UnitsOfFullTurn(AngularFormat format) {
    switch (format) {
        case AngularFormat::Grads:
            return 400;
        case AngularFormat::Radians:
            return c_fullTurn;
        default:
            return 360;
    }
}

}  // namespace kvhost
