#include "framework/base/DeviceContexts.h"
#include "tests/control/support/RowContainer.h"
#include "tests/control/support/UserInput.h"

namespace {

constexpr const wchar_t* c_longText = L"a text that is by far too long for a row of this width";

class RowTip : public kvtest::RowContainer {
protected:
    static HWND Tip() { return ::FindWindowW(L"KvPeTextTip", nullptr); }
    static bool IsShown() { return Tip() && ::IsWindowVisible(Tip()); }
    static CRect TipPlace() {
        CRect place;
        ::GetWindowRect(Tip(), &place);
        return place;
    }

    void ShowTip() {
        kvtest::MovePointerTo(Row(), {5, 5});
        ::SendMessageW(Row(), WM_MOUSEMOVE, 0, MAKELPARAM(5, 5));
        ASSERT_TRUE(kvtest::PumpUntil(&IsShown));
    }
};

TEST_F(RowTip, ValueTooWide_TipShowsItInFull) {
    CreateTextRow({c_longText});
    GiveFont();
    ShowTip();
    CRect row;
    ::GetWindowRect(Row(), &row);
    EXPECT_EQ(TipPlace().TopLeft(), row.TopLeft());
    EXPECT_GT(TipPlace().Width(), row.Width());
    EXPECT_EQ(TipPlace().Height(), row.Height() + 2);
    EXPECT_EQ(::GetWindowLongPtrW(Tip(), GWLP_USERDATA), 1042);
    EXPECT_EQ(::GetClassLongPtrW(Tip(), GCL_STYLE), 6147u);
    EXPECT_TRUE(::GetWindowLongW(Tip(), GWL_EXSTYLE) & WS_EX_TOOLWINDOW);
    EXPECT_NE(::GetFocus(), Tip());
}

TEST_F(RowTip, ValueFits_NoTip) {
    CreateTextRow({L"alpha"});
    GiveFont();
    ::SendMessageW(Row(), WM_MOUSEMOVE, 0, MAKELPARAM(5, 5));
    EXPECT_EQ(Tip(), nullptr);
}

TEST_F(RowTip, NoFont_NoTip) {
    CreateTextRow({c_longText});
    EXPECT_EQ(static_cast<HRESULT>(::SendMessageW(Row(), WM_MOUSEMOVE, 0, MAKELPARAM(5, 5))), E_FAIL);
    EXPECT_EQ(Tip(), nullptr);
}

TEST_F(RowTip, Shown_HasTheTipsGroundTheTextAndTheFrame) {
    CreateTextRow({c_longText});
    GiveFont();
    ShowTip();
    kvtest::PumpWaiting();
    const fw::WindowDc dc(Tip());
    const CRect client(CPoint(), TipPlace().Size());
    EXPECT_EQ(::GetPixel(dc, client.right / 2, 0), RGB(0x86, 0x86, 0x86));
    EXPECT_EQ(::GetPixel(dc, client.right - 3, 3), ::GetSysColor(COLOR_INFOBK));
    int inkInTheLastQuarter = 0;
    for (int x = client.right * 3 / 4; x < client.right - 3; ++x) {
        for (int y = 2; y < client.bottom - 2; ++y) {
            inkInTheLastQuarter += ::GetPixel(dc, x, y) != ::GetSysColor(COLOR_INFOBK) ? 1 : 0;
        }
    }
    EXPECT_GT(inkInTheLastQuarter, 20);
}

TEST_F(RowTip, PointerLeaves_TipGoes) {
    CreateTextRow({c_longText});
    GiveFont();
    ShowTip();
    kvtest::MovePointerTo(elsewhere, {5, 5});
    EXPECT_TRUE(kvtest::PumpUntil([] { return !IsShown(); }));
}

TEST_F(RowTip, ClickIntoTheTip_ReachesTheRowAtTheSameSpot) {
    CreateTextRow({c_longText}, true);
    GiveFont();
    ShowTip();
    Clear();
    ::SendMessageW(Tip(), WM_RBUTTONDOWN, MK_RBUTTON, MAKELPARAM(6, 7));
    EXPECT_FALSE(IsShown());
    kvtest::PumpWaiting();
    EXPECT_CALLS(Events(), "OnRButtonDown 2 " + std::to_string(kvtest::PackedPoint(16, 17)));
    EXPECT_EQ(::GetFocus(), Row());
}

TEST_F(RowTip, RowIsDiscarded_TipGoesWithIt) {
    CreateTextRow({c_longText});
    GiveFont();
    ShowTip();
    Discard();
    EXPECT_EQ(Tip(), nullptr);
}

TEST_F(RowTip, RowActivatedAnew_TipLiesOverIt) {
    CreateTextRow({c_longText});
    GiveFont();
    ShowTip();
    kvtest::MovePointerTo(elsewhere, {5, 5});
    EXPECT_TRUE(kvtest::PumpUntil([] { return !IsShown(); }));
    EXPECT_EQ(As<IOleInPlaceObject>()->InPlaceDeactivate(), S_OK);
    EXPECT_EQ(DoVerb(OLEIVERB_INPLACEACTIVATE), S_OK);
    ShowTip();
    CRect row;
    ::GetWindowRect(Row(), &row);
    EXPECT_EQ(TipPlace().TopLeft(), row.TopLeft());
}

}  // namespace
