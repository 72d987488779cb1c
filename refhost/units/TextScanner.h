#pragma once

#include <optional>
#include <string_view>

#include "host_sdk/Export.h"

namespace kvhost {

/// Goes through a text that a user typed, from left to right. What does not fit is left where it stands.
class KVHOST_API TextScanner {
public:
    /// `text` outlives the scanner.
    explicit TextScanner(std::wstring_view text) : m_rest(text) {}

    [[nodiscard]] bool IsAtEnd() const { return m_rest.empty(); }
    [[nodiscard]] std::wstring_view Rest() const { return m_rest; }
    /// Goes back to a place that Rest told.
    void GoBackTo(std::wstring_view rest) { m_rest = rest; }

    /// True when there were any.
    bool SkipBlanks();
    /// Letters count without regard to case.
    bool Take(wchar_t character);
    /// The digits that follow; empty without any.
    std::wstring_view TakeDigits();
    /// Digits with a point and an exponent, at least one digit before or behind the point.
    std::wstring_view TakeNumber();
    /// '+' or '-' and the blanks behind it; true for '-'.
    bool TakeMinus();

private:
    std::wstring_view m_rest;
};

}  // namespace kvhost
