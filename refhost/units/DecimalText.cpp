#include "refhost/units/DecimalText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace kvhost {

namespace {

// Every number in full: 309 digits before the point, and what is asked for behind it.
constexpr std::size_t c_longestText = 340;

std::wstring Digits(double magnitude, std::chars_format form, int places) {
    std::array<char, c_longestText> buffer{};
    const auto [end, error] =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), magnitude, form, places);
    return error == std::errc() ? std::wstring(buffer.data(), end) : std::wstring();
}

std::wstring UpperExponent(std::wstring text) {
    std::replace(text.begin(), text.end(), L'e', L'E');
    return text;
}

bool IsBelowOne(std::string_view digits) {
    const std::size_t exponent = digits.find_first_of("eE");
    return exponent != std::string_view::npos && digits.find('-', exponent) != std::string_view::npos;
}

}  // namespace

std::wstring FixedText(double magnitude, int places) {
    return Digits(magnitude, std::chars_format::fixed, places);
}

std::wstring ScientificText(double magnitude, int places) {
    std::wstring text = UpperExponent(Digits(magnitude, std::chars_format::scientific, places));
    if (ReadDecimal(text)) {
        return text;
    }
    // One digit less, of a number that is too great to be rounded up.
    const std::wstring exact = UpperExponent(
        Digits(magnitude, std::chars_format::scientific, std::numeric_limits<double>::max_digits10));
    const std::size_t kept = places > 0 ? static_cast<std::size_t>(places) + 2 : 1;
    return exact.substr(0, kept) + exact.substr(exact.find(L'E'));
}

std::wstring FixedOrScientificText(double magnitude, int places, std::size_t digits) {
    std::wstring text = FixedText(magnitude, places);
    return std::min(text.find(L'.'), text.size()) <= digits ? text : ScientificText(magnitude, places);
}

std::wstring WithSign(bool isNegative, const std::wstring& text) {
    const bool isZero = text.find_first_of(L"123456789") == std::wstring::npos;
    return isNegative && !isZero ? L'-' + text : text;
}

std::optional<double> ReadDecimal(std::wstring_view digits) {
    std::string narrow;
    narrow.reserve(digits.size());
    for (const wchar_t character : digits) {
        narrow += character < 0x80 ? static_cast<char>(character) : '?';
    }
    double value = 0;
    const auto [end, error] = std::from_chars(narrow.data(), narrow.data() + narrow.size(), value);
    if (end != narrow.data() + narrow.size()) {
        return std::nullopt;
    }
    if (error == std::errc::result_out_of_range && IsBelowOne(narrow)) {
        return 0.0;
    }
    return error == std::errc() && std::isfinite(value) ? std::optional(value) : std::nullopt;
}

}  // namespace kvhost
