#include <array>
#include <cmath>

#include "refhost/units/AngularText.h"
#include "refhost/units/DecimalText.h"
#include "refhost/units/TextScanner.h"

namespace kvhost {

namespace {

constexpr wchar_t c_degreeSign = L'\u00B0';
constexpr double c_quarterTurn = c_fullTurn / 4;
constexpr double c_halfTurn = c_fullTurn / 2;

double InRadians(double units, AngularFormat format) {
    return format == AngularFormat::Radians ? units : units * (c_fullTurn / UnitsOfFullTurn(format));
}

/// Which part of degrees a mark ends; the order in which they stand.
enum class DegreePart { Degrees, Minutes, Seconds, None };

DegreePart TakeMark(TextScanner& scanner) {
    if (scanner.Take(L'd') || scanner.Take(c_degreeSign)) {
        return DegreePart::Degrees;
    }
    if (scanner.Take(L'\'')) {
        return DegreePart::Minutes;
    }
    return scanner.Take(L'"') ? DegreePart::Seconds : DegreePart::None;
}

bool IsNumberAhead(TextScanner scanner) {
    return !scanner.TakeNumber().empty();
}

/// Goes on behind a number that has the mark of a part: each further part is smaller, and fewer than 60.
std::optional<double> TakeDegrees(TextScanner& scanner, double number, DegreePart part) {
    static constexpr std::array c_perDegree{1.0, 60.0, 3600.0};
    double degrees = number / c_perDegree.at(static_cast<std::size_t>(part));
    while (true) {
        const std::wstring_view behind = scanner.Rest();
        scanner.SkipBlanks();
        if (!IsNumberAhead(scanner)) {
            scanner.GoBackTo(behind);
            return degrees;
        }
        const std::optional<double> smaller = ReadDecimal(scanner.TakeNumber());
        DegreePart next = TakeMark(scanner);
        if (next == DegreePart::None) {
            next = static_cast<DegreePart>(static_cast<int>(part) + 1);  // a mark may be left out
        }
        if (!smaller || *smaller >= 60 || next == DegreePart::None || next <= part) {
            return std::nullopt;
        }
        part = next;
        degrees += *smaller / c_perDegree.at(static_cast<std::size_t>(part));
    }
}

// The exponent's letter is also that of the east: digits must follow it.
std::optional<double> TakeMagnitude(TextScanner& scanner, AngularFormat format) {
    const std::optional<double> number = ReadDecimal(scanner.TakeNumber());
    if (!number) {
        return std::nullopt;
    }
    if (const DegreePart part = TakeMark(scanner); part != DegreePart::None) {
        const std::optional<double> degrees = TakeDegrees(scanner, *number, part);
        return degrees ? std::optional(InRadians(*degrees, AngularFormat::Degrees)) : std::nullopt;
    }
    if (scanner.Take(L'g')) {
        return InRadians(*number, AngularFormat::Grads);
    }
    return scanner.Take(L'r') ? *number : InRadians(*number, format);
}

/// The directions of the compass that a bearing begins and ends with.
std::optional<double> TakeDirection(TextScanner& scanner, wchar_t atQuarter, wchar_t atOther,
                                    double quarterDirection, double otherDirection) {
    if (scanner.Take(atQuarter)) {
        return quarterDirection;
    }
    return scanner.Take(atOther) ? std::optional(otherDirection) : std::nullopt;
}

/// Behind the N or S of `pole`: nothing, or an angle and the side that it turns to.
std::optional<double> TakeBearing(TextScanner& scanner, double pole) {
    scanner.SkipBlanks();
    if (scanner.IsAtEnd()) {
        return pole;
    }
    const std::optional<double> angle = TakeMagnitude(scanner, AngularFormat::Surveyor);
    scanner.SkipBlanks();
    const std::optional<double> side = TakeDirection(scanner, L'E', L'W', 0, c_halfTurn);
    if (!angle || *angle > c_quarterTurn || !side) {
        return std::nullopt;
    }
    const bool isCounterclockwise = (pole < c_halfTurn) == (*side == c_halfTurn);
    return NormalizedAngle(isCounterclockwise ? pole + *angle : pole - *angle);
}

std::optional<double> TakeAngle(TextScanner& scanner, AngularFormat format) {
    if (const auto pole = TakeDirection(scanner, L'N', L'S', c_quarterTurn, 3 * c_quarterTurn)) {
        return TakeBearing(scanner, *pole);
    }
    if (const auto side = TakeDirection(scanner, L'E', L'W', 0, c_halfTurn)) {
        return side;
    }
    const bool isNegative = scanner.TakeMinus();
    const std::optional<double> magnitude = TakeMagnitude(scanner, format);
    return magnitude && isNegative && *magnitude != 0 ? -*magnitude : magnitude;
}

}  // namespace

std::optional<double> ReadRawAngle(std::wstring_view text, AngularFormat format) {
    TextScanner scanner(text);
    scanner.SkipBlanks();
    const std::optional<double> angle = TakeAngle(scanner, format);
    scanner.SkipBlanks();
    return angle && scanner.IsAtEnd() && std::isfinite(*angle) ? angle : std::nullopt;
}

std::optional<double> ReadAngle(std::wstring_view text, AngularFormat format, const AngularBase& base) {
    const std::optional<double> angle = ReadRawAngle(text, format);
    if (!angle) {
        return std::nullopt;
    }
    const double direction = base.direction + (base.isClockwise ? -*angle : *angle);
    return std::isfinite(direction) ? std::optional(NormalizedAngle(direction)) : std::nullopt;
}

}  // namespace kvhost
