#include "palette/window/CountText.h"

#include <gtest/gtest.h>

namespace {

TEST(CountText, OneIsASingular) {
    EXPECT_EQ(CountText(0), L"0 objects");
    EXPECT_EQ(CountText(1), L"1 object");
    EXPECT_EQ(CountText(2), L"2 objects");
}

}  // namespace
