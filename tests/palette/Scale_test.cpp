#include "palette/theme/Scale.h"

#include <gtest/gtest.h>

#include "palette/rows/RowLayout.h"

using kvpalette::RowLayout;
using kvpalette::Scale;

TEST(Scale, PlainScreen_MeasuresArePixels) {
    for (const int measure : {0, 1, 5, 19, 330}) {
        EXPECT_EQ(Scale(96).Pixels(measure), measure);
    }
}

TEST(Scale, FinerScreens_MeasuresKeepTheirSizeToTheEye) {
    EXPECT_EQ(Scale(192).Pixels(19), 38);
    EXPECT_EQ(Scale(144).Pixels(10), 15);
    EXPECT_EQ(Scale(120).Pixels(50), 63);
    EXPECT_EQ(Scale(192).Pixels(-3), -6);
}

// A value is as high as its row without the line below.
TEST(Scale, Rows_ValuesHaveAnEvenHeightOnEveryScreen) {
    EXPECT_EQ(RowLayout::RowHeightAt(Scale(96)), 19);
    EXPECT_EQ(RowLayout::RowHeightAt(Scale(192)), 37);
    for (int dots = 96; dots <= 288; dots += 12) {
        EXPECT_EQ((RowLayout::RowHeightAt(Scale(dots)) - 1) % 2, 0) << dots;
    }
}
