#include "refhost/units/LinearText.h"

#include <cmath>
#include <cstdint>
#include <numeric>

#include "refhost/units/DecimalText.h"

namespace kvhost {

namespace {

// Beyond, a double has no digits left for the places of any format.
constexpr std::size_t c_mostDigits = 15;
constexpr double c_tooManyDigits = 1e15;
constexpr std::uint64_t c_inchesOfFoot = 12;

// Feet that are none are left out, and so are inches that are none behind feet.
std::wstring FeetAndInches(std::uint64_t feet, const std::wstring& inches) {
    const bool hasInches = inches.find_first_of(L"123456789") != std::wstring::npos;
    if (feet == 0) {
        return inches + L'"';
    }
    const std::wstring feetText = std::to_wstring(feet) + L'\'';
    return hasInches ? feetText + L'-' + inches + L'"' : feetText;
}

std::wstring EngineeringText(double magnitude, int precision) {
    const std::wstring inches = FixedText(magnitude, precision);
    const std::size_t point = std::min(inches.find(L'.'), inches.size());
    const std::uint64_t whole = std::stoull(inches.substr(0, point));
    return FeetAndInches(whole / c_inchesOfFoot,
                         std::to_wstring(whole % c_inchesOfFoot) + inches.substr(point));
}

/// A number counted in its smallest fractions.
struct Fractions {
    std::uint64_t count;
    std::uint64_t perUnit;
};

Fractions CountFractions(double magnitude, int precision) {
    const std::uint64_t perUnit = std::uint64_t{1} << precision;
    return {static_cast<std::uint64_t>(std::round(magnitude * static_cast<double>(perUnit))), perUnit};
}

std::wstring MixedText(Fractions number) {
    const std::uint64_t whole = number.count / number.perUnit;
    const std::uint64_t part = number.count % number.perUnit;
    if (part == 0) {
        return std::to_wstring(whole);
    }
    const std::uint64_t divisor = std::gcd(part, number.perUnit);
    const std::wstring fraction =
        std::to_wstring(part / divisor) + L'/' + std::to_wstring(number.perUnit / divisor);
    return whole == 0 ? fraction : std::to_wstring(whole) + L' ' + fraction;
}

std::wstring ArchitecturalText(double magnitude, int precision) {
    const Fractions inches = CountFractions(magnitude, precision);
    const std::uint64_t perFoot = inches.perUnit * c_inchesOfFoot;
    return FeetAndInches(inches.count / perFoot, MixedText({inches.count % perFoot, inches.perUnit}));
}

std::wstring MagnitudeText(double magnitude, LinearFormat format, int precision) {
    if (format == LinearFormat::Scientific) {
        return ScientificText(magnitude, precision);
    }
    if (format == LinearFormat::Decimal) {
        return FixedOrScientificText(magnitude, precision, c_mostDigits);
    }
    if (std::round(magnitude) >= c_tooManyDigits) {
        return ScientificText(magnitude, precision);
    }
    switch (format) {
        case LinearFormat::Engineering:
            return EngineeringText(magnitude, precision);
        case LinearFormat::Architectural:
            return ArchitecturalText(magnitude, precision);
        default:
            return MixedText(CountFractions(magnitude, precision));
    }
}

}  // namespace

std::wstring LinearText(double value, LinearFormat format, int precision) {
    if (!std::isfinite(value)) {
        return {};
    }
    return WithSign(std::signbit(value), MagnitudeText(std::fabs(value), format, precision));
}

}  // namespace kvhost
