#include "refhost/db/QdfFormat.h"

#include <array>

namespace kvhost {

namespace {

constexpr std::uint32_t c_polynomial = 0xEDB88320;

constexpr std::array<std::uint32_t, 256> MakeTable() {
    std::array<std::uint32_t, 256> table{};
    for (std::uint32_t i = 0; i < 256; ++i) {
        std::uint32_t remainder = i;
        for (int bit = 0; bit < 8; ++bit) {
            remainder = (remainder >> 1) ^ ((remainder & 1) != 0 ? c_polynomial : 0);
        }
        table[i] = remainder;
    }
    return table;
}

constexpr std::array<std::uint32_t, 256> s_table = MakeTable();

std::uint32_t Step(std::uint32_t sum, std::uint8_t byte) {
    return (sum >> 8) ^ s_table[(sum ^ byte) & 0xFF];
}

}  // namespace

std::uint32_t QdfFormat::CheckSum(std::uint32_t length, std::string_view content) {
    std::uint32_t sum = 0xFFFFFFFF;
    for (int shift = 0; shift < 32; shift += 8) {
        sum = Step(sum, static_cast<std::uint8_t>(length >> shift));
    }
    for (const char byte : content) {
        sum = Step(sum, static_cast<std::uint8_t>(byte));
    }
    return ~sum;
}

}  // namespace kvhost
