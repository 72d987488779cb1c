#include "refhost/db/StateStore.h"

#include <algorithm>

namespace kvhost {

namespace {

// Most steps change one object. Between the two sizes the heap would look through its holes one by one.
constexpr std::size_t c_firstBlock = 448;
constexpr std::size_t c_secondBlock = 0x4000;
constexpr std::size_t c_greatestBlock = 0x40000;

}  // namespace

std::string_view StateStore::Keep(std::string_view state) {
    if (m_blocks.empty() || state.size() > m_freeSize) {
        AddBlock(state.size());
    }
    char* const kept = m_free;
    state.copy(kept, state.size());
    m_free += state.size();
    m_freeSize -= state.size();
    return {kept, state.size()};
}

void StateStore::AddBlock(std::size_t atLeast) {
    m_blockSize =
        m_blocks.empty() ? c_firstBlock : std::clamp(2 * m_blockSize, c_secondBlock, c_greatestBlock);
    m_freeSize = std::max(m_blockSize, atLeast);
    m_blocks.push_back(std::make_unique_for_overwrite<char[]>(m_freeSize));
    m_free = m_blocks.back().get();
}

}  // namespace kvhost
