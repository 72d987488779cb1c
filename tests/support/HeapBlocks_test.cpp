#include "tests/support/HeapBlocks.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include "framework/base/WindowsApi.h"

namespace {

constexpr int c_blocks = 1'000;

TEST(HeapBlocks, MemoryOfOurOwn_IsCountedUntilItGoes) {
    std::vector<std::unique_ptr<int>> owned(c_blocks);
    const long before = kvtest::CountHeapBlocks();
    for (std::unique_ptr<int>& block : owned) {
        block = std::make_unique<int>(1);
    }
    EXPECT_NEAR(kvtest::CountHeapBlocks() - before, c_blocks, 20);
    owned.clear();
    EXPECT_NEAR(kvtest::CountHeapBlocks() - before, 0, 20);
}

TEST(HeapBlocks, TextsOfTheSystem_AreCounted) {
    std::vector<BSTR> texts(c_blocks);
    const long before = kvtest::CountHeapBlocks();
    for (BSTR& text : texts) {
        text = ::SysAllocString(L"a text");
    }
    EXPECT_NEAR(kvtest::CountHeapBlocks() - before, c_blocks, 20);
    for (BSTR text : texts) {
        ::SysFreeString(text);
    }
    EXPECT_NEAR(kvtest::CountHeapBlocks() - before, 0, 20);
}

}  // namespace
