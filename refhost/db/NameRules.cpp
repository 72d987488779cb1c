#include "refhost/db/NameRules.h"

#include "framework/base/WindowsApi.h"

namespace kvhost {

namespace {

constexpr std::size_t c_longestName = 255;
constexpr std::wstring_view c_forbidden = L"<>/\\\":;?*,=`";

bool IsNameUnit(wchar_t unit, bool external) {
    return unit >= L' ' && c_forbidden.find(unit) == std::wstring_view::npos && (external || unit != L'|');
}

bool IsHighSurrogate(wchar_t unit) {
    return unit >= 0xD800 && unit <= 0xDBFF;
}

bool IsLowSurrogate(wchar_t unit) {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

}  // namespace

std::wstring FoldName(std::wstring_view name) {
    std::wstring folded(name);
    if (!folded.empty()) {
        ::LCMapStringW(LOCALE_INVARIANT, LCMAP_UPPERCASE, name.data(), static_cast<int>(name.size()),
                       folded.data(), static_cast<int>(folded.size()));
    }
    return folded;
}

bool SameName(std::wstring_view left, std::wstring_view right) {
    return left.size() == right.size() && FoldName(left) == FoldName(right);
}

bool IsSymbolName(std::wstring_view name, bool external) {
    if (name.empty() || name.size() > c_longestName || !IsWellFormed(name)) {
        return false;
    }
    for (const wchar_t unit : name) {
        if (!IsNameUnit(unit, external)) {
            return false;
        }
    }
    return true;
}

std::wstring MakeSymbolName(std::wstring_view text) {
    std::wstring name(text.substr(0, c_longestName));
    if (!IsWellFormed(name)) {
        name.pop_back();  // The cut went through a pair.
    }
    for (wchar_t& unit : name) {
        if (!IsNameUnit(unit, false)) {
            unit = L'_';
        }
    }
    return name;
}

bool IsWellFormed(std::wstring_view text) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (IsHighSurrogate(text[i])) {
            if (i + 1 == text.size() || !IsLowSurrogate(text[i + 1])) {
                return false;
            }
            ++i;
        } else if (IsLowSurrogate(text[i])) {
            return false;
        }
    }
    return true;
}

std::string ToUtf8(std::wstring_view text) {
    if (text.empty()) {
        return {};
    }
    const int units = static_cast<int>(text.size());
    const int bytes = ::WideCharToMultiByte(CP_UTF8, 0, text.data(), units, nullptr, 0, nullptr, nullptr);
    std::string utf8(static_cast<std::size_t>(bytes), '\0');
    ::WideCharToMultiByte(CP_UTF8, 0, text.data(), units, utf8.data(), bytes, nullptr, nullptr);
    return utf8;
}

std::wstring FromUtf8(std::string_view utf8) {
    if (utf8.empty()) {
        return {};
    }
    const int bytes = static_cast<int>(utf8.size());
    const int units = ::MultiByteToWideChar(CP_UTF8, 0, utf8.data(), bytes, nullptr, 0);
    std::wstring text(static_cast<std::size_t>(units), L'\0');
    ::MultiByteToWideChar(CP_UTF8, 0, utf8.data(), bytes, text.data(), units);
    return text;
}

}  // namespace kvhost
