#include "core/ChildIds.h"
#include "families/CPropertyEditorText.h"
#include "tests/unit/families/RowBench.h"

namespace {

class EditBoxTip : public kvtest::RowBench<CPropertyEditorText> {
protected:
    static HWND Tip() { return ::FindWindowW(L"KvPeTextTip", nullptr); }

    static void PutCursor(const CWnd& over) {
        CPoint point(3, 3);
        over.ClientToScreen(&point);
        ::SetCursorPos(point.x, point.y);
    }

    void MoveMouse() { ::SendMessageW(Edit().m_hWnd, WM_MOUSEMOVE, 0, MAKELPARAM(3, 3)); }

    static bool TipIsPlaced() {
        RECT bounds{};
        return Tip() && ::GetWindowRect(Tip(), &bounds) && !::IsRectEmpty(&bounds);
    }
    void OpenLongText() {
        row->m_text = L"a text that is by far too long for a row of this width";
        Open();
    }
    void PointAtLongText() {
        OpenLongText();
        Edit().SetReadOnly(TRUE);
        PutCursor(Edit());
        MoveMouse();
    }
    bool ShowsTip() {
        PointAtLongText();
        return kvtest::PumpUntil([] { return ::IsWindowVisible(Tip()) != FALSE; });
    }
};

TEST_F(EditBoxTip, MouseMove_InEdit_ShowsNoTip) {
    OpenLongText();
    MoveMouse();
    EXPECT_FALSE(TipIsPlaced());
}

TEST_F(EditBoxTip, MouseMove_ReadOnlyBoxTooNarrow_ShowsTheTipWithRoomForTheText) {
    PointAtLongText();
    ASSERT_TRUE(TipIsPlaced());
    CRect tip;
    ::GetWindowRect(Tip(), &tip);
    int width = 0;
    ASSERT_EQ(row->GetTextTipWidth(width), S_OK);
    EXPECT_EQ(tip.Width(), width + 5);
    EXPECT_EQ(tip.TopLeft(), Edit().GetWindowRect().TopLeft());
    EXPECT_EQ(tip.Height(), Edit().GetWindowRect().Height());
    EXPECT_TRUE(kvtest::PumpUntil([] { return ::IsWindowVisible(Tip()) != FALSE; }));
}

TEST_F(EditBoxTip, MouseMove_WritableBoxOutOfEdit_ShowsTheTip) {
    OpenLongText();
    row->m_state = EditState_Shown;
    MoveMouse();
    EXPECT_TRUE(TipIsPlaced());
}

TEST_F(EditBoxTip, MouseMove_ReadOnlyBoxWideEnough_ShowsNoTip) {
    Open();
    Edit().SetReadOnly(TRUE);
    MoveMouse();
    EXPECT_FALSE(TipIsPlaced());
}

TEST_F(EditBoxTip, MouseMove_WidthEqualToTheText_ShowsNoTip) {
    Open();
    Edit().SetReadOnly(TRUE);
    int width = 0;
    ASSERT_EQ(row->GetTextTipWidth(width), S_OK);
    Edit().MoveWindow(0, 0, width, 20);
    MoveMouse();
    EXPECT_FALSE(TipIsPlaced());
    Edit().MoveWindow(0, 0, width - 1, 20);
    MoveMouse();
    EXPECT_TRUE(TipIsPlaced());
}

TEST_F(EditBoxTip, MouseMove_BoxTurnsWritable_HidesTheTip) {
    ASSERT_TRUE(ShowsTip());
    Edit().SetReadOnly(FALSE);
    MoveMouse();
    EXPECT_FALSE(::IsWindowVisible(Tip()));
}

TEST_F(EditBoxTip, DrawTip_PaintsTheTextInTheTipsColours) {
    ASSERT_TRUE(ShowsTip());
    const fw::WindowDc dc(Tip());
    const CRect client = [] {
        CRect bounds;
        ::GetClientRect(Tip(), &bounds);
        return bounds;
    }();
    int dark = 0;
    for (int x = 3; x < client.right - 3; ++x) {
        dark += ::GetPixel(dc, x, client.Height() / 2) != ::GetSysColor(COLOR_INFOBK) ? 1 : 0;
    }
    EXPECT_GT(dark, 20);
    EXPECT_EQ(::GetPixel(dc, client.right - 3, 3), ::GetSysColor(COLOR_INFOBK));
}

// A colour of the system's for as long as it lives.
class SystemColor {
public:
    SystemColor(int index, COLORREF color) : m_index(index), m_former(::GetSysColor(index)) {
        ::SetSysColors(1, &m_index, &color);
    }
    SystemColor(const SystemColor&) = delete;
    SystemColor& operator=(const SystemColor&) = delete;
    ~SystemColor() { ::SetSysColors(1, &m_index, &m_former); }

private:
    int m_index;
    COLORREF m_former;
};

TEST_F(EditBoxTip, DrawTip_TextHasTheTipsTextColour) {
    constexpr COLORREF reddish = RGB(200, 10, 20);
    const SystemColor textColor(23, reddish);
    ASSERT_TRUE(ShowsTip());
    const fw::WindowDc dc(Tip());
    CRect client;
    ::GetClientRect(Tip(), &client);
    int ofText = 0;
    for (int x = 3; x < client.right - 3; ++x) {
        for (int y = 3; y < client.bottom - 3; ++y) {
            ofText += ::GetPixel(dc, x, y) == reddish ? 1 : 0;
        }
    }
    EXPECT_GT(ofText, 20);
}

TEST_F(EditBoxTip, DrawTip_ForSomethingElse_IsIgnored) {
    Open();
    EXPECT_EQ(::SendMessageW(Edit().m_hWnd, WM_KVPE_DRAW_TIP, 1, 0), 0);
    EXPECT_EQ(::SendMessageW(Edit().m_hWnd, WM_KVPE_DRAW_TIP, KVPE_TEXT_TIP_MARK,
                             reinterpret_cast<LPARAM>(window.m_hWnd)),
              0);
}

}  // namespace
