#include "palette/view/DrawingView.h"

#include "refhost/db/ScopedOpen.h"
#include "refhost/db/Text.h"
#include "refhost/db/UndoController.h"
#include "tests/palette/PaletteFixture.h"

namespace {

class DrawingViewTest : public kvtest::PaletteFixture {
protected:
    POINT ScreenPoint(double x, double y) {
        const kvpalette::ViewTransform& transform = Window().View().Transform();
        POINT point{static_cast<LONG>(transform.ToX(x)), static_cast<LONG>(transform.ToY(y))};
        Window().View().ClientToScreen(&point);
        return point;
    }
    std::vector<KvDbObjectId> Picked() { return Window().Document().GetSelection().PickFirst(); }
};

using Ids = std::vector<KvDbObjectId>;

TEST_F(DrawingViewTest, Click_PicksTheObjectAndShowsItsRows) {
    const KvDbObjectId first = AddText(L"one", 0, 0);
    const KvDbObjectId second = AddText(L"two", 40, 40);
    Click(ScreenPoint(2, 2));
    EXPECT_EQ(Picked(), Ids{first});
    EXPECT_NE(Row(L"Contents"), kvpalette::RowLayout::c_none);
    Click(ScreenPoint(42, 42));
    EXPECT_EQ(Picked(), Ids{second});
    Click(ScreenPoint(20, 20));
    EXPECT_EQ(Picked(), Ids{});
}

TEST_F(DrawingViewTest, BoxToTheRight_PicksWhatLiesWithin) {
    const KvDbObjectId first = AddText(L"one", 0, 0);
    const KvDbObjectId second = AddText(L"two", 40, 40);
    DragTo(ScreenPoint(-1.4, -1.8), ScreenPoint(20, 20));
    EXPECT_EQ(Picked(), Ids{first});
    DragTo(ScreenPoint(1, -2), ScreenPoint(20, 20));
    EXPECT_EQ(Picked(), Ids{});
    DragTo(ScreenPoint(-1.4, -1.8), ScreenPoint(60, 50));
    EXPECT_EQ(Picked(), (Ids{first, second}));
}

TEST_F(DrawingViewTest, BoxToTheLeft_PicksWhatItTouches) {
    const KvDbObjectId first = AddText(L"one", 0, 0);
    AddText(L"two", 40, 40);
    DragTo(ScreenPoint(20, 20), ScreenPoint(4, -2));
    EXPECT_EQ(Picked(), Ids{first});
}

TEST_F(DrawingViewTest, Wheel_ZoomsAtThePointer) {
    AddText(L"one", 0, 0);
    AddText(L"two", 40, 40);
    const double scale = Window().View().Transform().Scale();
    const POINT place = ScreenPoint(30, 10);
    TurnWheel(place, 2);
    EXPECT_GT(Window().View().Transform().Scale(), scale);
    const POINT after = ScreenPoint(30, 10);
    EXPECT_NEAR(after.x, place.x, 1);
    EXPECT_NEAR(after.y, place.y, 1);
}

TEST_F(DrawingViewTest, EditedText_IsShownWhereItStands) {
    const KvDbObjectId text = AddText(L"one", 0, 0);
    AddText(L"two", 40, 40);
    Select({text});
    EXPECT_TRUE(Window().View().ObjectAt({0, 0}).isNull());
    ASSERT_EQ(Pane().ActivateRow(Row(L"Contents")), S_OK);
    TypeText(L"a much longer text");
    Press(VK_RETURN);
    POINT end = ScreenPoint(20, 2);
    Window().View().ScreenToClient(&end);
    EXPECT_EQ(Window().View().ObjectAt(end), text);
}

TEST_F(DrawingViewTest, PreviewedValue_IsPaintedAndTakenBack) {
    const KvDbObjectId text = AddText(L"one", 0, 0);
    kvhost::Database& drawing = Window().Document().GetDatabase();
    const HWND view = Window().View().m_hWnd;
    const auto isToBePainted = [view] { return ::GetUpdateRect(view, nullptr, FALSE) != FALSE; };
    ::UpdateWindow(view);
    ASSERT_FALSE(isToBePainted());
    kvhost::PreviewRecord& preview = drawing.Undo().Preview();
    preview.BeginRecording();
    kvhost::ScopedOpen<kvhost::Text>(text, KvDb::kForWrite)->SetHeight(20);
    preview.EndRecording();
    EXPECT_TRUE(isToBePainted());
    ::UpdateWindow(view);
    EXPECT_FALSE(isToBePainted());
    preview.TakeBack();
    EXPECT_TRUE(isToBePainted());
}

TEST_F(DrawingViewTest, Escape_PicksNothing) {
    Select({AddText(L"one", 0, 0)});
    Window().View().SetFocus();
    Press(VK_ESCAPE);
    EXPECT_TRUE(Picked().empty());
}

}  // namespace
