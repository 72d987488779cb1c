#include "tests/support/KernelHandles.h"

#include <gtest/gtest.h>

#include "framework/base/WindowsApi.h"

namespace {

TEST(KernelHandles, EachHandleThatIsOpenCounts) {
    const long before = kvtest::CountKernelHandles();
    ASSERT_GT(before, 0);
    const HANDLE first = ::CreateEventW(nullptr, FALSE, FALSE, nullptr);
    const HANDLE second = ::CreateMutexW(nullptr, FALSE, nullptr);
    EXPECT_EQ(kvtest::CountKernelHandles(), before + 2);
    ::CloseHandle(first);
    ::CloseHandle(second);
    EXPECT_EQ(kvtest::CountKernelHandles(), before);
}

}  // namespace
