#include "palette/view/ViewTransform.h"

#include <gtest/gtest.h>

namespace {

kvpalette::ViewTransform FittedTo(double left, double bottom, double right, double top) {
    kvpalette::ViewTransform transform;
    transform.SetWindow(400, 200);
    transform.Fit({left, bottom, right, top});
    return transform;
}

TEST(ViewTransform, Fit_ShowsTheWholeBox) {
    const auto transform = FittedTo(-10, 5, 30, 105);
    EXPECT_DOUBLE_EQ(transform.ToX(10), 200);
    EXPECT_DOUBLE_EQ(transform.ToY(55), 100);
    EXPECT_GT(transform.ToY(105), 0);
    EXPECT_LT(transform.ToY(5), 200);
    EXPECT_LT(transform.ToY(105), transform.ToY(5));
}

TEST(ViewTransform, FitOfASinglePoint_HasAScale) {
    const auto transform = FittedTo(3, 3, 3, 3);
    EXPECT_DOUBLE_EQ(transform.ToX(3), 200);
    EXPECT_GT(transform.Scale(), 0);
}

TEST(ViewTransform, Zoom_KeepsThePointUnderThePointer) {
    auto transform = FittedTo(0, 0, 100, 100);
    const POINT pointer{310, 40};
    const double x = transform.FromX(pointer.x);
    const double y = transform.FromY(pointer.y);
    transform.ZoomAt(pointer, 4);
    EXPECT_NEAR(transform.FromX(pointer.x), x, 1e-9);
    EXPECT_NEAR(transform.FromY(pointer.y), y, 1e-9);
}

TEST(ViewTransform, Pan_MovesTheDrawingWithThePointer) {
    auto transform = FittedTo(0, 0, 100, 100);
    const double x = transform.ToX(50);
    const double y = transform.ToY(50);
    transform.Pan(30, -20);
    EXPECT_NEAR(transform.ToX(50), x + 30, 1e-9);
    EXPECT_NEAR(transform.ToY(50), y - 20, 1e-9);
}

TEST(ViewTransform, EndlessZoom_StaysFinite) {
    auto transform = FittedTo(0, 0, 1, 1);
    for (int i = 0; i < 1000; ++i) {
        transform.ZoomAt({10, 10}, 10);
    }
    EXPECT_GT(transform.Scale(), 0);
    EXPECT_LE(transform.Scale(), 1e9);
}

}  // namespace
