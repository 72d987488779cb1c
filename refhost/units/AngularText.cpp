#include "refhost/units/AngularText.h"

#include <array>
#include <cmath>
#include <cstdint>

#include "refhost/units/DecimalText.h"

namespace kvhost {

namespace {

// Beyond, the places of a text would be finer than the angle itself.
constexpr std::size_t c_mostDigits = 6;
constexpr double c_tooManyDigits = 1e6;
// What two sums of directions may differ by.
constexpr double c_sameDirection = 1e-12;

/// Degrees counted in the smallest part that a precision shows: degrees, minutes, seconds and their places.
struct SmallDegrees {
    std::int64_t perDegree;
    int places;
    bool hasMinutes;
    bool hasSeconds;
};

constexpr int c_minutesFrom = 1;
constexpr int c_secondsFrom = 3;
constexpr int c_placesFrom = 4;

SmallDegrees SmallestPart(int precision) {
    SmallDegrees part{1, std::max(precision - c_placesFrom, 0), precision >= c_minutesFrom,
                      precision >= c_secondsFrom};
    part.perDegree = part.hasSeconds ? 3600 : part.hasMinutes ? 60 : 1;
    for (int place = 0; place < part.places; ++place) {
        part.perDegree *= 10;
    }
    return part;
}

std::wstring PaddedDigits(std::int64_t number, int digits) {
    const std::wstring text = std::to_wstring(number);
    const auto wanted = static_cast<std::size_t>(digits);
    return std::wstring(text.size() < wanted ? wanted - text.size() : 0, L'0') + text;
}

std::wstring SecondsText(std::int64_t count, const SmallDegrees& part) {
    const std::int64_t perSecond = part.perDegree / 3600;
    const std::wstring whole = std::to_wstring(count / perSecond);
    return part.places == 0 ? whole : whole + L'.' + PaddedDigits(count % perSecond, part.places);
}

std::wstring DegreesText(std::int64_t count, const SmallDegrees& part) {
    std::wstring text = std::to_wstring(count / part.perDegree) + L'd';
    if (part.hasMinutes) {
        const std::int64_t perMinute = part.perDegree / 60;
        text += std::to_wstring(count % part.perDegree / perMinute) + L'\'';
        if (part.hasSeconds) {
            text += SecondsText(count % perMinute, part) + L'"';
        }
    }
    return text;
}

std::wstring BearingText(double degrees, int precision) {
    static constexpr std::array c_directions{L"E", L"N", L"W", L"S"};
    const SmallDegrees part = SmallestPart(precision);
    const std::int64_t quarter = 90 * part.perDegree;
    const auto count =
        static_cast<std::int64_t>(std::round(degrees * static_cast<double>(part.perDegree))) % (4 * quarter);
    const auto quadrant = static_cast<std::size_t>(count / quarter);
    if (count % quarter == 0) {
        return c_directions[quadrant];
    }
    // Bearings count from north or south, whichever is nearer.
    const bool isNorth = quadrant < 2;
    const bool isEast = quadrant == 0 || quadrant == 3;
    const std::int64_t fromPole = std::abs(count - (isNorth ? quarter : 3 * quarter));
    return (isNorth ? L"N " : L"S ") + DegreesText(fromPole, part) + (isEast ? L" E" : L" W");
}

const wchar_t* Mark(AngularFormat format) {
    switch (format) {
        case AngularFormat::DegreesMinutesSeconds:
            return L"d";
        case AngularFormat::Grads:
            return L"g";
        case AngularFormat::Radians:
            return L"r";
        default:
            return L"";
    }
}

std::wstring MagnitudeText(double magnitude, AngularFormat format, int precision) {
    const bool isInParts = format == AngularFormat::DegreesMinutesSeconds;
    const SmallDegrees part = SmallestPart(precision);
    const double count = std::round(magnitude * static_cast<double>(part.perDegree));
    if (isInParts && count < c_tooManyDigits * static_cast<double>(part.perDegree)) {
        return DegreesText(static_cast<std::int64_t>(count), part);
    }
    return (isInParts ? ScientificText(magnitude, precision)
                      : FixedOrScientificText(magnitude, precision, c_mostDigits)) +
           Mark(format);
}

double InUnits(double radians, AngularFormat format) {
    return format == AngularFormat::Radians ? radians : radians * (UnitsOfFullTurn(format) / c_fullTurn);
}

}  // namespace

double NormalizedAngle(double radians) {
    double direction = std::fmod(radians, c_fullTurn);
    if (direction < 0) {
        direction += c_fullTurn;
    }
    return direction < c_fullTurn - c_sameDirection && direction > c_sameDirection ? direction : 0;
}

std::wstring RawAngleText(double radians, AngularFormat format, int precision) {
    if (format == AngularFormat::Surveyor) {
        return std::isfinite(radians) ? BearingText(InUnits(NormalizedAngle(radians), format), precision)
                                      : std::wstring();
    }
    const double units = InUnits(radians, format);
    return std::isfinite(units)
               ? WithSign(std::signbit(units), MagnitudeText(std::fabs(units), format, precision))
               : std::wstring();
}

std::wstring AngleText(double radians, AngularFormat format, int precision, const AngularBase& base) {
    const double turned = radians - base.direction;
    if (!std::isfinite(turned)) {
        return {};
    }
    const double direction = NormalizedAngle(base.isClockwise ? -turned : turned);
    std::wstring text = RawAngleText(direction, format, precision);
    // What is rounded up to a full turn is the base direction.
    const std::optional<double> shown = ReadRawAngle(text, format);
    return shown && *shown < c_fullTurn - c_sameDirection ? text : RawAngleText(0, format, precision);
}

}  // namespace kvhost
