#pragma once

#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

namespace kvhost {

/// Keeps states one after the other in few blocks of memory: a block of the heap for each of 100,000 would
/// cost more than to write it. What it gives stays where it is until the store goes.
class StateStore {
public:
    [[nodiscard]] std::string_view Keep(std::string_view state);

private:
    void AddBlock(std::size_t atLeast);

    std::vector<std::unique_ptr<char[]>> m_blocks;
    std::size_t m_blockSize = 0;
    char* m_free = nullptr;
    std::size_t m_freeSize = 0;
};

}  // namespace kvhost
