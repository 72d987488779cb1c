#include "framework/window/Geometry.h"

#include <gtest/gtest.h>

namespace {

TEST(Geometry, PointFromMouseMessage_LeftOfTheWindow_IsNegative) {
    const CPoint point(MAKELPARAM(static_cast<WORD>(-3), static_cast<WORD>(-40)));
    EXPECT_EQ(point, CPoint(-3, -40));
    EXPECT_EQ(CPoint(point.Packed()), point);
}

TEST(Geometry, Rectangle_Sizes_AreDifferences) {
    CRect bounds(1, 2, 11, 22);
    EXPECT_EQ(bounds.Width(), 10);
    EXPECT_EQ(bounds.Height(), 20);
    EXPECT_EQ(bounds.Size(), CSize(10, 20));
    bounds.MoveTo(0, 0);
    EXPECT_EQ(bounds, CRect(0, 0, 10, 20));
    EXPECT_TRUE(bounds.Contains({9, 19}));
    EXPECT_FALSE(bounds.Contains({10, 19}));
    EXPECT_EQ(bounds.Intersection({5, 5, 50, 50}), CRect(5, 5, 10, 20));
    EXPECT_TRUE(bounds.Intersection({50, 50, 60, 60}).IsEmpty());
    EXPECT_EQ(CRect(CPoint(3, 4), CSize(5, 6)), CRect(3, 4, 8, 10));
}

}  // namespace
