#include "refhost/calculator/Quantity.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace kvhost {

namespace {

constexpr int c_highestPower = 99;

std::optional<Quantity> Finite(const Quantity& quantity) {
    return std::isfinite(quantity.number) && std::abs(quantity.lengthPower) <= c_highestPower &&
                   std::abs(quantity.anglePower) <= c_highestPower
               ? std::optional(quantity)
               : std::nullopt;
}

std::optional<Quantity> Added(const Quantity& left, const Quantity& right, double number) {
    const bool agree = left.lengthPower == right.lengthPower && left.anglePower == right.anglePower;
    if (!agree && left.HasUnit() && right.HasUnit()) {
        return std::nullopt;
    }
    const Quantity& counted = left.HasUnit() ? left : right;
    return Finite({number, counted.lengthPower, counted.anglePower});
}

double ToRadians(double angle, AngularFormat format) {
    return angle * (c_fullTurn / UnitsOfFullTurn(format));
}

double FromRadians(double radians, AngularFormat format) {
    return radians * (UnitsOfFullTurn(format) / c_fullTurn);
}

bool IsAngleOrPlain(const Quantity& quantity) {
    return quantity.lengthPower == 0 && (quantity.anglePower == 0 || quantity.anglePower == 1);
}

/// A function of an angle that gives a plain number, or of a plain number that gives an angle.
struct AngleFunction {
    std::wstring_view name;
    double (*function)(double);
};

constexpr std::array c_ofAngles{
    AngleFunction{L"sin", [](double angle) { return std::sin(angle); }},
    AngleFunction{L"cos", [](double angle) { return std::cos(angle); }},
    AngleFunction{L"tan", [](double angle) { return std::tan(angle); }},
};
constexpr std::array c_toAngles{
    AngleFunction{L"asin", [](double ratio) { return std::asin(ratio); }},
    AngleFunction{L"acos", [](double ratio) { return std::acos(ratio); }},
    AngleFunction{L"atan", [](double ratio) { return std::atan(ratio); }},
};
constexpr std::array c_ofNumbers{
    AngleFunction{L"exp", [](double number) { return std::exp(number); }},
    AngleFunction{L"ln", [](double number) { return std::log(number); }},
    AngleFunction{L"log", [](double number) { return std::log10(number); }},
};
constexpr std::array c_ofQuantities{
    AngleFunction{L"abs", [](double number) { return std::fabs(number); }},
    AngleFunction{L"round", [](double number) { return std::round(number); }},
    AngleFunction{L"trunc", [](double number) { return std::trunc(number); }},
};

template <class Table>
const AngleFunction* Find(const Table& table, std::wstring_view name) {
    const auto found = std::find_if(table.begin(), table.end(),
                                    [&](const AngleFunction& entry) { return entry.name == name; });
    return found != table.end() ? &*found : nullptr;
}

std::optional<Quantity> SquareRoot(const Quantity& argument) {
    if (argument.lengthPower % 2 != 0 || argument.anglePower % 2 != 0) {
        return std::nullopt;
    }
    return Finite({std::sqrt(argument.number), argument.lengthPower / 2, argument.anglePower / 2});
}

}  // namespace

std::optional<Quantity> Sum(const Quantity& left, const Quantity& right) {
    return Added(left, right, left.number + right.number);
}

std::optional<Quantity> Difference(const Quantity& left, const Quantity& right) {
    return Added(left, right, left.number - right.number);
}

std::optional<Quantity> Product(const Quantity& left, const Quantity& right) {
    return Finite({left.number * right.number, left.lengthPower + right.lengthPower,
                   left.anglePower + right.anglePower});
}

std::optional<Quantity> Quotient(const Quantity& left, const Quantity& right) {
    return Finite({left.number / right.number, left.lengthPower - right.lengthPower,
                   left.anglePower - right.anglePower});
}

std::optional<Quantity> Power(const Quantity& base, const Quantity& exponent) {
    const bool isWhole =
        exponent.number == std::trunc(exponent.number) && std::fabs(exponent.number) <= c_highestPower;
    if (exponent.HasUnit() || (base.HasUnit() && !isWhole)) {
        return std::nullopt;
    }
    const int times = base.HasUnit() ? static_cast<int>(exponent.number) : 0;
    return Finite(
        {std::pow(base.number, exponent.number), base.lengthPower * times, base.anglePower * times});
}

std::optional<Quantity> FunctionOf(std::wstring_view name, const Quantity& argument, AngularFormat format) {
    if (const AngleFunction* const found = Find(c_ofQuantities, name)) {
        return Finite({found->function(argument.number), argument.lengthPower, argument.anglePower});
    }
    if (name == L"sqrt") {
        return SquareRoot(argument);
    }
    if (name == L"sqr") {
        return Product(argument, argument);
    }
    if (const AngleFunction* const found = Find(c_ofAngles, name)) {
        return IsAngleOrPlain(argument) ? Finite({found->function(ToRadians(argument.number, format))})
                                        : std::nullopt;
    }
    if (argument.HasUnit()) {
        return std::nullopt;
    }
    if (const AngleFunction* const found = Find(c_toAngles, name)) {
        return Finite({FromRadians(found->function(argument.number), format), 0, 1});
    }
    const AngleFunction* const found = Find(c_ofNumbers, name);
    return found != nullptr ? Finite({found->function(argument.number)}) : std::nullopt;
}

}  // namespace kvhost
