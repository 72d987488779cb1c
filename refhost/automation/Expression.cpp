#include "refhost/automation/Expression.h"

#include <cmath>
#include <cwctype>

#include "refhost/testing/JournalText.h"

namespace kvhost {

namespace {

using Result = std::optional<ExpressionValue>;

// Deeper nesting is no expression of a person.
constexpr int c_maximumDepth = 64;

class Parser {
public:
    Parser(std::wstring_view text, const ExpressionNames& names) : m_text(text), m_names(names) {}

    Result Whole() {
        Result value = Joined();
        SkipBlanks();
        return m_position == m_text.size() ? value : std::nullopt;
    }

private:
    Result Joined() {
        Result left = Sum();
        while (left && Take(L'&')) {
            const Result right = Sum();
            left = right ? Result(ExpressionText(*left) + ExpressionText(*right)) : std::nullopt;
        }
        return left;
    }

    Result Sum() {
        Result left = Product();
        while (left) {
            if (Take(L'+')) {
                left = Calculate(left, Product(), [](double a, double b) { return a + b; });
            } else if (Take(L'-')) {
                left = Calculate(left, Product(), [](double a, double b) { return a - b; });
            } else {
                break;
            }
        }
        return left;
    }

    Result Product() {
        Result left = Signed();
        while (left) {
            if (Take(L'*')) {
                left = Calculate(left, Signed(), [](double a, double b) { return a * b; });
            } else if (Take(L'/')) {
                left = Calculate(left, Signed(), [](double a, double b) { return a / b; });
            } else {
                break;
            }
        }
        return left;
    }

    Result Signed() {
        if (++m_depth > c_maximumDepth) {
            return std::nullopt;
        }
        const bool isNegative = Take(L'-');
        Result value = isNegative ? Calculate(0.0, Signed(), [](double a, double b) { return a - b; })
                                  : (Take(L'+') ? Signed() : Atom());
        --m_depth;
        return value;
    }

    Result Atom() {
        SkipBlanks();
        if (Take(L'(')) {
            const Result inner = Joined();
            return Take(L')') ? inner : std::nullopt;
        }
        const wchar_t next = Peek();
        if (next == L'"') {
            return QuotedText();
        }
        if (std::iswdigit(next) != 0 || next == L'.') {
            return Number();
        }
        return std::iswalpha(next) != 0 || next == L'_' ? Name() : std::nullopt;
    }

    Result QuotedText() {
        const std::size_t begin = m_position + 1;
        const std::size_t end = m_text.find(L'"', begin);
        if (end == std::wstring_view::npos) {
            return std::nullopt;
        }
        m_position = end + 1;
        return std::wstring(m_text.substr(begin, end - begin));
    }

    Result Number() {
        const std::wstring rest(m_text.substr(m_position));
        wchar_t* end = nullptr;
        const double number = std::wcstod(rest.c_str(), &end);
        if (end == rest.c_str() || !std::isfinite(number)) {
            return std::nullopt;
        }
        m_position += static_cast<std::size_t>(end - rest.c_str());
        return number;
    }

    Result Name() {
        const std::size_t begin = m_position;
        while (std::iswalnum(Peek()) != 0 || Peek() == L'_') {
            ++m_position;
        }
        return m_names ? m_names(m_text.substr(begin, m_position - begin)) : std::nullopt;
    }

    template <class Operation>
    static Result Calculate(const Result& left, const Result& right, Operation operation) {
        const double* const a = left ? std::get_if<double>(&*left) : nullptr;
        const double* const b = right ? std::get_if<double>(&*right) : nullptr;
        if (a == nullptr || b == nullptr) {
            return std::nullopt;
        }
        const double value = operation(*a, *b);
        return std::isfinite(value) ? Result(value) : std::nullopt;
    }

    [[nodiscard]] wchar_t Peek() const { return m_position < m_text.size() ? m_text[m_position] : L'\0'; }

    void SkipBlanks() {
        while (std::iswspace(Peek()) != 0) {
            ++m_position;
        }
    }

    bool Take(wchar_t character) {
        SkipBlanks();
        const bool isThere = Peek() == character;
        m_position += isThere ? 1 : 0;
        return isThere;
    }

    std::wstring_view m_text;
    const ExpressionNames& m_names;
    std::size_t m_position = 0;
    int m_depth = 0;
};

}  // namespace

std::optional<ExpressionValue> EvaluateExpression(std::wstring_view text, const ExpressionNames& names) {
    return Parser(text, names).Whole();
}

std::wstring ExpressionText(const ExpressionValue& value) {
    const double* const number = std::get_if<double>(&value);
    return number != nullptr ? AsText(*number) : std::get<std::wstring>(value);
}

}  // namespace kvhost
