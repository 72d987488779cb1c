#include <cmath>
#include <cstdint>
#include <string>

#include "refhost/units/DecimalText.h"
#include "refhost/units/LinearText.h"
#include "refhost/units/TextScanner.h"

namespace kvhost {

namespace {

constexpr double c_inchesOfFoot = 12;
// Whole numbers up to here, and twelve times as many, are exact.
constexpr double c_exactFeet = 1e14;
constexpr double c_exactSum = c_exactFeet * c_inchesOfFoot;

/// A number as it was typed: with decimals or with a fraction behind it.
struct Amount {
    std::wstring digits;
    double number = 0;
    double fraction = 0;

    [[nodiscard]] double Value() const { return number + fraction; }
    [[nodiscard]] bool IsWhole() const {
        return fraction == 0 && number == std::floor(number) && number < c_exactFeet;
    }
    [[nodiscard]] bool HasExponent() const { return digits.find_first_of(L"eE") != std::wstring::npos; }
};

std::optional<double> TakeFraction(TextScanner& scanner) {
    const std::wstring_view start = scanner.Rest();
    const std::optional<double> above = ReadDecimal(scanner.TakeDigits());
    if (above && scanner.Take(L'/')) {
        const std::optional<double> below = ReadDecimal(scanner.TakeDigits());
        if (below && *below > 0) {
            return *above / *below;
        }
    }
    scanner.GoBackTo(start);
    return std::nullopt;
}

// A fraction stands alone or behind a whole number, after blanks or a hyphen: 1/2, 3 1/2, 3-1/2.
std::optional<Amount> TakeAmount(TextScanner& scanner) {
    Amount amount;
    if (const std::optional<double> fraction = TakeFraction(scanner)) {
        amount.fraction = *fraction;
        return amount;
    }
    amount.digits = scanner.TakeNumber();
    const std::optional<double> number = ReadDecimal(amount.digits);
    if (!number) {
        return std::nullopt;
    }
    amount.number = *number;
    const std::wstring_view behind = scanner.Rest();
    if (scanner.Take(L'-') || scanner.SkipBlanks()) {
        const std::optional<double> fraction = TakeFraction(scanner);
        if (fraction && amount.digits.find_first_of(L".eE") == std::wstring::npos) {
            amount.fraction = *fraction;
        } else {
            scanner.GoBackTo(behind);
        }
    }
    return amount;
}

// The sum is formed in digits where it can be: decimals that are added to feet would be rounded twice.
std::optional<double> Inches(const Amount& feet, const Amount& inches) {
    const double whole = feet.number * c_inchesOfFoot + std::floor(inches.number);
    if (!feet.IsWhole() || inches.fraction != 0 || inches.HasExponent() || whole >= c_exactSum) {
        return feet.Value() * c_inchesOfFoot + inches.Value();
    }
    const std::size_t point = std::min(inches.digits.find(L'.'), inches.digits.size());
    return ReadDecimal(std::to_wstring(static_cast<std::uint64_t>(whole)) + inches.digits.substr(point));
}

std::optional<double> TakeFeetAndInches(TextScanner& scanner) {
    std::optional<Amount> inches = TakeAmount(scanner);
    if (!inches) {
        return std::nullopt;
    }
    Amount feet;
    if (scanner.Take(L'\'')) {
        feet = *inches;
        scanner.SkipBlanks();
        const bool goesOn = scanner.Take(L'-');
        scanner.SkipBlanks();
        if (scanner.IsAtEnd()) {
            return goesOn ? std::nullopt : std::optional(feet.Value() * c_inchesOfFoot);
        }
        inches = TakeAmount(scanner);
        if (!inches) {
            return std::nullopt;
        }
    }
    scanner.Take(L'"');
    return Inches(feet, *inches);
}

std::optional<double> TakePlain(TextScanner& scanner) {
    const std::optional<Amount> amount = TakeAmount(scanner);
    return amount ? std::optional(amount->Value()) : std::nullopt;
}

}  // namespace

std::optional<double> ReadLinear(std::wstring_view text, LinearFormat format) {
    TextScanner scanner(text);
    scanner.SkipBlanks();
    const bool isNegative = scanner.TakeMinus();
    const std::optional<double> magnitude = HasFeet(format) ? TakeFeetAndInches(scanner) : TakePlain(scanner);
    scanner.SkipBlanks();
    if (!magnitude || !scanner.IsAtEnd() || !std::isfinite(*magnitude)) {
        return std::nullopt;
    }
    return isNegative && *magnitude != 0 ? -*magnitude : *magnitude;
}

}  // namespace kvhost
