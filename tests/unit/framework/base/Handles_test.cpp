#include "framework/base/Handles.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "framework/base/DeviceContexts.h"

namespace {

std::vector<int> g_closed;

struct CountingPolicy {
    using Handle = int;
    static Handle Null() { return -1; }
    static void Close(Handle handle) { g_closed.push_back(handle); }
};
using Owner = fw::UniqueHandle<CountingPolicy>;

class UniqueHandleTest : public testing::Test {
protected:
    void SetUp() override { g_closed.clear(); }
};

TEST_F(UniqueHandleTest, Scope_HoldsAHandle_ClosesItOnce) {
    { const Owner owner(7); }
    EXPECT_EQ(g_closed, std::vector<int>{7});
}

TEST_F(UniqueHandleTest, Scope_HoldsNothing_ClosesNothing) {
    {
        const Owner owner;
        EXPECT_FALSE(owner);
        const Owner zero(0);
        EXPECT_TRUE(zero);
    }
    EXPECT_EQ(g_closed, std::vector<int>{0});
}

TEST_F(UniqueHandleTest, Move_GivesTheHandleAway) {
    {
        Owner first(1);
        Owner second(2);
        second = std::move(first);
        EXPECT_EQ(second.Get(), 1);
        EXPECT_EQ(g_closed, std::vector<int>{2});
        const Owner third(std::move(second));
        EXPECT_EQ(third.Get(), 1);
    }
    EXPECT_EQ(g_closed, (std::vector<int>{2, 1}));
}

TEST_F(UniqueHandleTest, Reset_SameHandle_KeepsItOpen) {
    Owner owner(5);
    owner.Reset(5);
    EXPECT_TRUE(g_closed.empty());
    owner.Reset(6);
    EXPECT_EQ(g_closed, std::vector<int>{5});
    EXPECT_EQ(owner.Release(), 6);
    EXPECT_FALSE(owner);
}

TEST(Handles, Brush_ScopeEnds_ObjectIsGone) {
    HBRUSH raw = nullptr;
    {
        const fw::UniqueBrush brush(::CreateSolidBrush(RGB(1, 2, 3)));
        raw = brush.Get();
        EXPECT_EQ(::GetObjectType(raw), static_cast<DWORD>(OBJ_BRUSH));
    }
    EXPECT_EQ(::GetObjectType(raw), 0U);
}

TEST(Handles, File_Failure_CountsAsEmpty) {
    const fw::UniqueFile file(::CreateFileW(L"no such file", GENERIC_READ, 0, nullptr, OPEN_EXISTING,
                                            FILE_ATTRIBUTE_NORMAL, nullptr));
    EXPECT_FALSE(file);
}

TEST(Handles, Menu_ScopeEnds_MenuIsGone) {
    HMENU raw = nullptr;
    {
        const fw::UniqueMenu menu(::CreatePopupMenu());
        raw = menu.Get();
        EXPECT_TRUE(::IsMenu(raw));
    }
    EXPECT_FALSE(::IsMenu(raw));
}

TEST(DeviceContexts, ScopedSelect_ScopeEnds_FormerObjectIsBack) {
    const fw::MemoryDc dc(nullptr);
    const HGDIOBJ former = ::GetCurrentObject(dc, OBJ_PEN);
    const fw::UniquePen pen(::CreatePen(PS_SOLID, 1, RGB(9, 9, 9)));
    {
        const fw::ScopedSelect selected(dc, pen.Get());
        EXPECT_EQ(::GetCurrentObject(dc, OBJ_PEN), static_cast<HGDIOBJ>(pen.Get()));
    }
    EXPECT_EQ(::GetCurrentObject(dc, OBJ_PEN), former);
    const fw::ScopedSelect nothing(dc, nullptr);
    EXPECT_EQ(::GetCurrentObject(dc, OBJ_PEN), former);
}

TEST(DeviceContexts, ScopedSaveDc_ScopeEnds_ColoursAreBack) {
    const fw::MemoryDc dc(nullptr);
    const COLORREF former = ::GetTextColor(dc);
    {
        const fw::ScopedSaveDc saved(dc);
        ::SetTextColor(dc, RGB(1, 2, 3));
    }
    EXPECT_EQ(::GetTextColor(dc), former);
}

TEST(DeviceContexts, ScopedTextColors_ScopeEnds_ColoursAndModeAreBack) {
    const fw::MemoryDc dc(nullptr);
    ::SetTextColor(dc, RGB(9, 8, 7));
    ::SetBkColor(dc, RGB(6, 5, 4));
    ::SetBkMode(dc, OPAQUE);
    {
        const fw::ScopedTextColors saved(dc);
        ::SetTextColor(dc, RGB(1, 2, 3));
        ::SetBkColor(dc, RGB(3, 2, 1));
        ::SetBkMode(dc, TRANSPARENT);
    }
    EXPECT_EQ(::GetTextColor(dc), RGB(9, 8, 7));
    EXPECT_EQ(::GetBkColor(dc), RGB(6, 5, 4));
    EXPECT_EQ(::GetBkMode(dc), OPAQUE);
}

TEST(DeviceContexts, ScopedFont_ScopeEnds_FormerFontIsBack) {
    const fw::MemoryDc dc(nullptr);
    const HGDIOBJ former = ::GetCurrentObject(dc, OBJ_FONT);
    const auto font = static_cast<HFONT>(::GetStockObject(ANSI_FIXED_FONT));
    {
        const fw::ScopedFont selected(dc, font);
        EXPECT_EQ(::GetCurrentObject(dc, OBJ_FONT), static_cast<HGDIOBJ>(font));
        const fw::ScopedFont again(dc, font);
        const fw::ScopedFont nothing(dc, nullptr);
        EXPECT_EQ(::GetCurrentObject(dc, OBJ_FONT), static_cast<HGDIOBJ>(font));
    }
    EXPECT_EQ(::GetCurrentObject(dc, OBJ_FONT), former);
}

TEST(DeviceContexts, WindowDc_NoSuchWindow_IsNull) {
    const fw::WindowDc dc(reinterpret_cast<HWND>(ULONG_PTR{0x7FFE}));
    EXPECT_EQ(dc.Get(), nullptr);
}

}  // namespace
