#pragma once

#include <cstdint>
#include <string_view>

namespace kvhost {

/// Shape of a .qdf file: a head, then blocks of length (4 bytes), check sum (4 bytes) and content, little end
/// first. The last block is empty but for the number of those before it.
struct QdfFormat {
    static constexpr std::string_view head{"QDF\x1A\r\n\x00\x02", 8};
    static constexpr std::size_t blockHead = 8;

    /// CRC-32 (polynomial 0xEDB88320) over the length's four bytes and the content.
    [[nodiscard]] static std::uint32_t CheckSum(std::uint32_t length, std::string_view content);
};

}  // namespace kvhost
