#include "refhost/calculator/Formula.h"

#include <algorithm>
#include <array>
#include <string>

#include "refhost/units/DecimalText.h"

namespace kvhost {

namespace {

// A formula that nests deeper is nobody's.
constexpr int c_deepestNesting = 100;
constexpr double c_inchesOfFoot = 12;
constexpr double c_inchesOfMetre = 1 / 0.0254;

struct LengthUnit {
    std::wstring_view name;
    double inches;
};

constexpr std::array c_lengthUnits{
    LengthUnit{L"in", 1},
    LengthUnit{L"ft", c_inchesOfFoot},
    LengthUnit{L"yd", 3 * c_inchesOfFoot},
    LengthUnit{L"mm", c_inchesOfMetre / 1000},
    LengthUnit{L"cm", c_inchesOfMetre / 100},
    LengthUnit{L"m", c_inchesOfMetre},
};

struct AngleUnit {
    std::wstring_view name;
    AngularFormat format;
};

constexpr std::array c_angleUnits{
    AngleUnit{L"g", AngularFormat::Grads},
    AngleUnit{L"r", AngularFormat::Radians},
};

template <class Table>
auto FindNamed(const Table& table, std::wstring_view name) {
    const auto found =
        std::find_if(table.begin(), table.end(), [&](const auto& entry) { return entry.name == name; });
    return found != table.end() ? &*found : nullptr;
}

bool IsLetter(wchar_t character) {
    return character >= L'a' && character <= L'z';
}

std::wstring InLowerCase(std::wstring_view text) {
    std::wstring lower(text);
    std::transform(lower.begin(), lower.end(), lower.begin(), [](wchar_t character) {
        return character >= L'A' && character <= L'Z' ? static_cast<wchar_t>(character - L'A' + L'a')
                                                      : character;
    });
    return lower;
}

}  // namespace

std::optional<FormulaResult> Formula::Evaluate(std::wstring_view text, AngularFormat format) {
    const std::wstring lower = InLowerCase(text);
    Formula formula(lower, format);
    std::optional<FormulaResult> result;
    if (formula.Take(L'[')) {
        result = formula.TakePoint();
    } else if (const Operand value = formula.TakeSum()) {
        result.emplace().value = *value;
    }
    formula.m_scanner.SkipBlanks();
    return formula.m_scanner.IsAtEnd() ? result : std::nullopt;
}

bool Formula::Take(wchar_t character) {
    m_scanner.SkipBlanks();
    return m_scanner.Take(character);
}

std::optional<FormulaResult> Formula::TakePoint() {
    FormulaResult result;
    result.isPoint = true;
    std::size_t count = 0;
    do {
        const Operand coordinate = count < std::size(result.point) ? TakeSum() : std::nullopt;
        if (!coordinate || coordinate->anglePower != 0 || coordinate->lengthPower > 1) {
            return std::nullopt;
        }
        result.point[count++] = coordinate->number;
    } while (Take(L','));
    return count >= 2 && Take(L']') ? std::optional(result) : std::nullopt;
}

Formula::Operand Formula::TakeSum() {
    Operand left = TakeProduct();
    while (left) {
        const bool adds = Take(L'+');
        if (!adds && !Take(L'-')) {
            return left;
        }
        const Operand right = TakeProduct();
        left = right ? adds ? Sum(*left, *right) : Difference(*left, *right) : std::nullopt;
    }
    return left;
}

Formula::Operand Formula::TakeProduct() {
    Operand left = TakeSigned();
    while (left) {
        const bool multiplies = Take(L'*');
        if (!multiplies && !Take(L'/')) {
            return left;
        }
        const Operand right = TakeSigned();
        left = right ? multiplies ? Product(*left, *right) : Quotient(*left, *right) : std::nullopt;
    }
    return left;
}

Formula::Operand Formula::TakeSigned() {
    if (Take(L'-')) {
        if (++m_depth > c_deepestNesting) {
            return std::nullopt;
        }
        const Operand value = TakeSigned();
        return value ? Difference(Quantity{0, value->lengthPower, value->anglePower}, *value) : std::nullopt;
    }
    Take(L'+');
    return TakePower();
}

// The exponent comes first: 2^3^2 is 2^9.
Formula::Operand Formula::TakePower() {
    const Operand base = TakePrimary();
    if (!base || !Take(L'^')) {
        return base;
    }
    if (++m_depth > c_deepestNesting) {
        return std::nullopt;
    }
    const Operand exponent = TakeSigned();
    return exponent ? Power(*base, *exponent) : std::nullopt;
}

Formula::Operand Formula::TakePrimary() {
    if (Take(L'(')) {
        return TakeGroup();
    }
    const Operand number = TakeNumber();
    return number ? number : TakeNamed();
}

Formula::Operand Formula::TakeGroup() {
    if (++m_depth > c_deepestNesting) {
        return std::nullopt;
    }
    const Operand value = TakeSum();
    return value && Take(L')') ? value : std::nullopt;
}

std::wstring_view Formula::TakeLetters() {
    const std::wstring_view rest = m_scanner.Rest();
    std::size_t count = 0;
    while (count < rest.size() && IsLetter(rest[count])) {
        ++count;
    }
    m_scanner.GoBackTo(rest.substr(count));
    return rest.substr(0, count);
}

Formula::Operand Formula::TakeNamed() {
    const std::wstring_view name = TakeLetters();
    if (name == L"pi") {
        return Quantity{c_fullTurn / 2};
    }
    const Operand argument = !name.empty() && Take(L'(') ? TakeGroup() : std::nullopt;
    return argument ? FunctionOf(name, *argument, m_format) : std::nullopt;
}

Formula::Operand Formula::TakeNumber() {
    const std::optional<double> number = ReadDecimal(m_scanner.TakeNumber());
    if (!number) {
        return std::nullopt;
    }
    if (m_scanner.Take(L'\'')) {
        return TakeFeet(*number);
    }
    const std::wstring_view behind = m_scanner.Rest();
    const std::wstring_view unit = TakeLetters();
    if (unit == L"d") {
        return TakeDegrees(*number);
    }
    if (const LengthUnit* const length = FindNamed(c_lengthUnits, unit)) {
        return Quantity{*number * length->inches, 1, 0};
    }
    if (const AngleUnit* const angle = FindNamed(c_angleUnits, unit)) {
        return Quantity{*number * (UnitsOfFullTurn(m_format) / UnitsOfFullTurn(angle->format)), 0, 1};
    }
    m_scanner.GoBackTo(behind);
    return Quantity{*number};
}

// 1'-6" is one length: the hyphen before a number with an inch mark takes nothing away.
Formula::Operand Formula::TakeFeet(double feet) {
    const std::wstring_view behind = m_scanner.Rest();
    m_scanner.SkipBlanks();
    m_scanner.Take(L'-');
    m_scanner.SkipBlanks();
    if (const Operand inches = TakeInches()) {
        return Quantity{feet * c_inchesOfFoot + inches->number, 1, 0};
    }
    m_scanner.GoBackTo(behind);
    return Quantity{feet * c_inchesOfFoot, 1, 0};
}

// 6", 6.5", 1/2", 6 1/2" and 6-1/2".
Formula::Operand Formula::TakeInches() {
    const auto takeRatio = [this](double above) -> std::optional<double> {
        const std::optional<double> below = ReadDecimal(m_scanner.TakeDigits());
        return below && *below > 0 ? std::optional(above / *below) : std::nullopt;
    };
    std::optional<double> inches = ReadDecimal(m_scanner.TakeNumber());
    if (inches && m_scanner.Take(L'/')) {
        inches = takeRatio(*inches);
    } else if (inches && (m_scanner.Take(L'-') || m_scanner.SkipBlanks())) {
        const std::optional<double> above = ReadDecimal(m_scanner.TakeDigits());
        const std::optional<double> part = above && m_scanner.Take(L'/') ? takeRatio(*above) : std::nullopt;
        inches = part ? std::optional(*inches + *part) : std::nullopt;
    }
    return inches && m_scanner.Take(L'"') ? Operand(Quantity{*inches, 1, 0}) : std::nullopt;
}

Formula::Operand Formula::TakeDegrees(double degrees) {
    static constexpr std::array c_marks{L'\'', L'"'};
    double perDegree = 1;
    for (const wchar_t mark : c_marks) {
        perDegree *= 60;
        const std::wstring_view behind = m_scanner.Rest();
        const std::optional<double> part = ReadDecimal(m_scanner.TakeNumber());
        if (!part || !m_scanner.Take(mark)) {
            m_scanner.GoBackTo(behind);
            break;
        }
        degrees += *part / perDegree;
    }
    return Quantity{degrees * (UnitsOfFullTurn(m_format) / UnitsOfFullTurn(AngularFormat::Degrees)), 0, 1};
}

}  // namespace kvhost
