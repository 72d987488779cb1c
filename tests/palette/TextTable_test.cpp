#include "palette/commands/TextTable.h"

#include <gtest/gtest.h>

namespace {

TEST(TextTable, Columns_AreAligned) {
    kvpalette::TextTable table({L"Row", L"Text"});
    table.Add({L"Contents", L"a"});
    table.Add({L"A", L"long text"});
    EXPECT_EQ(table.Text(), L"Row       Text\nContents  a\nA         long text\n");
}

TEST(TextTable, LineBreaks_BecomeBlanks) {
    kvpalette::TextTable table({L"Row", L"Text"});
    table.Add({L"A", L"one\ntwo\tthree"});
    EXPECT_EQ(table.Text(), L"Row  Text\nA    one two three\n");
}

TEST(TextTable, WithoutLines_IsEmpty) {
    EXPECT_EQ(kvpalette::TextTable({L"Row"}).Text(), L"");
}

}  // namespace
