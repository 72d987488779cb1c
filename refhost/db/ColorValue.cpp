#include "refhost/db/ColorValue.h"

#include <array>

#include "refhost/db/NameRules.h"

namespace kvhost {

namespace {

constexpr int c_largestPart = 255;

/// Decimal number from 0 to 255 without sign or blanks.
std::optional<std::uint8_t> PartOf(std::wstring_view digits) {
    if (digits.empty() || digits.size() > 3) {
        return std::nullopt;
    }
    int number = 0;
    for (const wchar_t digit : digits) {
        if (digit < L'0' || digit > L'9') {
            return std::nullopt;
        }
        number = number * 10 + (digit - L'0');
    }
    if (number > c_largestPart) {
        return std::nullopt;
    }
    return static_cast<std::uint8_t>(number);
}

std::optional<ColorValue> RgbOf(std::wstring_view text) {
    std::array<std::uint8_t, 3> parts{};
    for (std::size_t i = 0; i < parts.size(); ++i) {
        const std::size_t comma = i + 1 < parts.size() ? text.find(L',') : text.size();
        if (comma == std::wstring_view::npos) {
            return std::nullopt;
        }
        const std::optional<std::uint8_t> part = PartOf(text.substr(0, comma));
        if (!part) {
            return std::nullopt;
        }
        parts[i] = *part;
        text.remove_prefix(comma < text.size() ? comma + 1 : comma);
    }
    return ColorValue::OfRgb(parts[0], parts[1], parts[2]);
}

}  // namespace

std::wstring ColorValue::Text() const {
    switch (method) {
        case Method::ByLayer:
            return L"ByLayer";
        case Method::ByBlock:
            return L"ByBlock";
        case Method::Index:
            return std::to_wstring(index);
        case Method::Rgb:
            return std::to_wstring(red) + L',' + std::to_wstring(green) + L',' + std::to_wstring(blue);
    }
    return {};
}

std::optional<ColorValue> ColorValue::FromText(std::wstring_view text) {
    if (SameName(text, L"ByLayer")) {
        return ByLayer();
    }
    if (SameName(text, L"ByBlock")) {
        return ByBlock();
    }
    if (text.find(L',') != std::wstring_view::npos) {
        return RgbOf(text);
    }
    const std::optional<std::uint8_t> index = PartOf(text);
    if (!index || *index == 0) {
        return std::nullopt;
    }
    return OfIndex(*index);
}

}  // namespace kvhost
