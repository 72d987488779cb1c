#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "host_sdk/Export.h"

namespace kvhost {

/// Colour of an entity or layer: that of its layer, that of its block, an index (1 to 255), or red, green,
/// blue.
struct KVHOST_API ColorValue {
    enum class Method : std::uint8_t { ByLayer, ByBlock, Index, Rgb };

    Method method = Method::ByLayer;
    std::uint8_t index = 0;
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;

    [[nodiscard]] static ColorValue ByLayer() { return {}; }
    [[nodiscard]] static ColorValue ByBlock() { return {Method::ByBlock, 0, 0, 0, 0}; }
    [[nodiscard]] static ColorValue OfIndex(std::uint8_t index) { return {Method::Index, index, 0, 0, 0}; }
    [[nodiscard]] static ColorValue OfRgb(std::uint8_t red, std::uint8_t green, std::uint8_t blue) {
        return {Method::Rgb, 0, red, green, blue};
    }

    /// "ByLayer", "ByBlock", "7" or "255,128,0": the form in drawings and on the command line.
    [[nodiscard]] std::wstring Text() const;
    /// Reads what Text gives, letter case apart.
    [[nodiscard]] static std::optional<ColorValue> FromText(std::wstring_view text);

    friend bool operator==(const ColorValue&, const ColorValue&) = default;
};

}  // namespace kvhost
