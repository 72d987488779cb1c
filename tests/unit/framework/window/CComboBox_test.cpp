#include "framework/window/CComboBox.h"

#include <gtest/gtest.h>

#include "framework/base/Handles.h"
#include "framework/window/CListBox.h"
#include "tests/unit/framework/window/ProbeWindow.h"

namespace {

using kvtest::Probe;
using kvtest::ProbeWindow;

fw::UniqueFont MakeFont(int height) {
    LOGFONTW font{};
    font.lfHeight = height;
    wcscpy(font.lfFaceName, L"Tahoma");
    return fw::UniqueFont(::CreateFontIndirectW(&font));
}

// A combo box as a row lays it out, and its drop-down, which the system places anew with every layout.
class ComboLayout : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(m_parent.Show());
        constexpr DWORD c_style = WS_CHILD | WS_VISIBLE | CBS_DROPDOWNLIST | CBS_OWNERDRAWFIXED;
        ASSERT_TRUE(combo.Create(c_style, {0, 0, 100, 120}, m_parent, 1));
        ASSERT_TRUE(list.SubclassWindow(combo.GetListWindow()));
        LayOut(font.Get(), 18, 16, {2, 3, 102, 183});
    }
    void LayOut(HFONT textFont, UINT field, UINT entry, const CRect& place) {
        combo.SetFont(textFont);
        combo.SetItemHeight(-1, field);
        combo.SetItemHeight(0, entry);
        combo.SetWindowPos(nullptr, static_cast<int>(place.left), static_cast<int>(place.top),
                           static_cast<int>(place.Width()), static_cast<int>(place.Height()),
                           SWP_NOACTIVATE | SWP_NOZORDER);
        combo.SetItemHeight(-1, field);
    }
    template <class Change>
    auto LayoutsOf(Change change) {
        const auto before = list.CountOf(WM_WINDOWPOSCHANGED);
        change();
        return list.CountOf(WM_WINDOWPOSCHANGED) - before;
    }
    CRect PlaceInParent() const {
        CRect place = combo.GetWindowRect();
        ::MapWindowPoints(nullptr, m_parent, reinterpret_cast<POINT*>(&place), 2);
        return place;
    }

    fw::UniqueFont font = MakeFont(-11);
    fw::UniqueFont largeFont = MakeFont(-30);
    ProbeWindow m_parent;
    Probe<CListBox> list;
    Probe<CComboBox> combo;
};

TEST_F(ComboLayout, SameLayoutAgain_IsNotWorkedOut) {
    const CRect place = PlaceInParent();
    EXPECT_EQ(LayoutsOf([&] { LayOut(font.Get(), 18, 16, {2, 3, 102, 183}); }), 0);
    EXPECT_EQ(PlaceInParent(), place);
    EXPECT_EQ(combo.GetItemHeight(0), 16);
}

TEST_F(ComboLayout, OtherHeightOfTheField_IsTaken) {
    const LONG before = PlaceInParent().Height();
    combo.SetItemHeight(-1, 28);
    EXPECT_EQ(PlaceInParent().Height(), before + 10);
    combo.SetItemHeight(-1, 18);
    EXPECT_EQ(PlaceInParent().Height(), before);
}

TEST_F(ComboLayout, HeightThatTheSystemRefuses_IsAskedForAgain) {
    EXPECT_EQ(combo.SetItemHeight(-1, 0xFFFFF), CB_ERR);
    EXPECT_EQ(combo.SetItemHeight(-1, 0xFFFFF), CB_ERR);
}

TEST_F(ComboLayout, OtherHeightOfEntries_IsTaken) {
    combo.SetItemHeight(0, 21);
    EXPECT_EQ(combo.GetItemHeight(0), 21);
}

TEST_F(ComboLayout, OtherFont_IsTakenAndTheFieldHeightSetAnew) {
    combo.SetFont(largeFont.Get());
    EXPECT_EQ(combo.GetFont(), largeFont.Get());
    EXPECT_GT(LayoutsOf([&] { combo.SetItemHeight(-1, 18); }), 0) << "the font may have changed it";
}

TEST_F(ComboLayout, SameFontWithRedraw_IsPaintedAgain) {
    combo.UpdateWindow();
    ASSERT_FALSE(::GetUpdateRect(combo, nullptr, FALSE));
    combo.SetFont(font.Get(), FALSE);
    EXPECT_FALSE(::GetUpdateRect(combo, nullptr, FALSE));
    combo.SetFont(font.Get(), TRUE);
    EXPECT_TRUE(::GetUpdateRect(combo, nullptr, FALSE));
}

TEST_F(ComboLayout, SizedWithoutPlace_NextPlaceIsTaken) {
    const LONG before = combo.GetDroppedControlRect().Height();
    combo.SetWindowPos(nullptr, 0, 0, 100, 280, SWP_NOMOVE | SWP_NOACTIVATE | SWP_NOZORDER);
    EXPECT_EQ(combo.GetDroppedControlRect().Height(), before + 100);
    combo.SetWindowPos(nullptr, 2, 3, 100, 180, SWP_NOACTIVATE | SWP_NOZORDER);
    EXPECT_EQ(combo.GetDroppedControlRect().Height(), before);
}

TEST_F(ComboLayout, OtherPlaceOrSize_IsTaken) {
    const auto moveTo = [&](const CRect& place) {
        combo.SetWindowPos(nullptr, static_cast<int>(place.left), static_cast<int>(place.top),
                           static_cast<int>(place.Width()), static_cast<int>(place.Height()),
                           SWP_NOACTIVATE | SWP_NOZORDER);
    };
    moveTo({5, 3, 105, 183});
    EXPECT_EQ(PlaceInParent().TopLeft(), CPoint(5, 3));
    moveTo({5, 7, 105, 187});
    EXPECT_EQ(PlaceInParent().TopLeft(), CPoint(5, 7));
    moveTo({5, 7, 155, 187});
    EXPECT_EQ(PlaceInParent().Width(), 150);
    const LONG before = combo.GetDroppedControlRect().Height();
    moveTo({5, 7, 155, 287});
    EXPECT_EQ(combo.GetDroppedControlRect().Height(), before + 100);
}

}  // namespace
