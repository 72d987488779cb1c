#pragma once

#include <optional>
#include <string_view>

#include "refhost/calculator/Quantity.h"
#include "refhost/units/TextScanner.h"

namespace kvhost {

/// What a formula comes to: one quantity, or a point of two or three coordinates.
struct FormulaResult {
    bool isPoint = false;
    Quantity value;
    double point[3] = {0, 0, 0};
};

/// Works a calculator's formula out: + - * / ^, parentheses, functions, pi, lengths such as 1'-6 1/2", 3ft,
/// 2m, angles such as 45d30', 50g, 0.5r, and points [1,2,3]. Inches need feet before them.
class Formula {
public:
    /// Empty when the text is no formula or its result is no finite number.
    [[nodiscard]] static std::optional<FormulaResult> Evaluate(std::wstring_view text, AngularFormat format);

private:
    Formula(std::wstring_view text, AngularFormat format) : m_scanner(text), m_format(format) {}

    using Operand = std::optional<Quantity>;
    bool Take(wchar_t character);
    std::optional<FormulaResult> TakePoint();
    Operand TakeSum();
    Operand TakeProduct();
    Operand TakeSigned();
    Operand TakePower();
    Operand TakePrimary();
    Operand TakeGroup();
    Operand TakeNamed();
    Operand TakeNumber();
    Operand TakeFeet(double feet);
    Operand TakeInches();
    Operand TakeDegrees(double degrees);
    std::wstring_view TakeLetters();

    TextScanner m_scanner;
    AngularFormat m_format;
    int m_depth = 0;
};

}  // namespace kvhost
