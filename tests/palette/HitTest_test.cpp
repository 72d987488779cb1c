#include "palette/view/HitTest.h"

#include <gtest/gtest.h>

#include <numbers>

namespace {

using kvpalette::IsInBox;
using kvpalette::IsNear;
using kvpalette::Shape;

Shape ShapeOfPath(std::vector<kvhost::Point3> points, bool closed) {
    Shape shape;
    for (const auto& point : points) {
        shape.bounds.Add(point);
    }
    shape.paths.push_back({std::move(points), closed});
    return shape;
}

kvhost::Bounds Box(double left, double bottom, double right, double top) {
    return {left, bottom, right, top};
}

TEST(HitTest, Line_IsHitAlongItsLength) {
    const Shape line = ShapeOfPath({{0, 0, 0}, {10, 10, 0}}, false);
    EXPECT_TRUE(IsNear(line, {5, 5.2, 0}, 0.5));
    EXPECT_FALSE(IsNear(line, {5, 7, 0}, 0.5));
    EXPECT_FALSE(IsNear(line, {11, 11, 0}, 0.5));
}

TEST(HitTest, ClosingSegment_CountsOnlyWhenClosed) {
    const std::vector<kvhost::Point3> corners{{0, 0, 0}, {10, 0, 0}, {10, 10, 0}, {0, 10, 0}};
    EXPECT_TRUE(IsNear(ShapeOfPath(corners, true), {0, 5, 0}, 0.1));
    EXPECT_FALSE(IsNear(ShapeOfPath(corners, false), {0, 5, 0}, 0.1));
    EXPECT_FALSE(IsNear(ShapeOfPath(corners, true), {5, 5, 0}, 0.1));
}

TEST(HitTest, TurnedText_IsHitWhereItStands) {
    Shape shape;
    shape.texts.push_back({{0, 0, 0}, 2, std::numbers::pi / 2, 0, L"abcdefghij"});
    shape.bounds.Add({-2, 0, 0});
    shape.bounds.Add({0.5, 12, 0});
    EXPECT_TRUE(IsNear(shape, {-1, 8, 0}, 0.1));
    EXPECT_FALSE(IsNear(shape, {-1, 14, 0}, 0.1));
    EXPECT_FALSE(IsNear(shape, {5, 0.5, 0}, 0.1));
}

TEST(HitTest, CentredText_IsHitOnBothSidesOfItsPosition) {
    Shape shape;
    shape.texts.push_back({{0, 0, 0}, 2, 0, 0.5, L"abcdefghij"});
    shape.bounds.Add({-6, -0.5, 0});
    shape.bounds.Add({6, 2, 0});
    EXPECT_TRUE(IsNear(shape, {-5, 1, 0}, 0.1));
    EXPECT_TRUE(IsNear(shape, {5, 1, 0}, 0.1));
    shape.texts.front().anchor = 1;
    EXPECT_FALSE(IsNear(shape, {5, 1, 0}, 0.1));
}

TEST(HitTest, Box_TakesWhatLiesWithin) {
    const Shape line = ShapeOfPath({{0, 0, 0}, {10, 10, 0}}, false);
    EXPECT_TRUE(IsInBox(line, Box(-1, -1, 11, 11), false));
    EXPECT_FALSE(IsInBox(line, Box(2, 2, 11, 11), false));
}

TEST(HitTest, CrossingBox_TakesWhatItTouches) {
    const Shape line = ShapeOfPath({{0, 0, 0}, {10, 10, 0}}, false);
    EXPECT_TRUE(IsInBox(line, Box(4, 4, 6, 6), true));
    EXPECT_FALSE(IsInBox(line, Box(0, 6, 3, 9), true));
}

TEST(HitTest, ShapeWithoutExtent_IsNeverHit) {
    EXPECT_FALSE(IsNear(Shape(), {0, 0, 0}, 100));
    EXPECT_FALSE(IsInBox(Shape(), Box(-1, -1, 1, 1), true));
}

}  // namespace
