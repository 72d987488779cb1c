#include "families/CPropertyEditorButton.h"

#include "core/ChildIds.h"
#include "families/CPropertyEditorText.h"
#include "families/SmallButtonPainter.h"
#include "framework/base/Handles.h"
#include "framework/window/CDC.h"
#include "tests/support/PixelCanvas.h"
#include "tests/unit/families/RowBench.h"
#include "tests/unit/families/TestPicture.h"

namespace {

using kvtest::MakePicture;

constexpr COLORREF c_face = RGB(10, 20, 30);
constexpr COLORREF c_frame = RGB(40, 50, 60);
constexpr COLORREF c_enabledColor = RGB(0, 200, 0);
constexpr COLORREF c_disabledColor = RGB(200, 0, 0);
constexpr int c_side = 20;
constexpr RECT c_buttonRect = {0, 0, c_side, c_side};

// Takes keys with Alt or leaves them, as the test says.
class SysKeyRow : public CPropertyEditorText {
public:
    using CPropertyEditorText::CPropertyEditorText;

    struct {
        bool isTaken = false;
        std::function<void()> onKey;
    } sysKeys;

    HRESULT PropertySysKeyDown(UINT key, UINT repeat, UINT flags, bool& handled) override {
        kvtest::Note(L"SysKeyDown", key, repeat, flags);
        handled = sysKeys.isTaken;
        if (sysKeys.onKey) {
            sysKeys.onKey();
        }
        return S_OK;
    }
};

class SmallButton : public kvtest::RowBench<SysKeyRow> {
protected:
    ~SmallButton() override { SetKeys(false, false); }

    CPropertyEditorButton& Make(IPicture* enabled = nullptr, IPicture* disabled = nullptr) {
        button = std::make_unique<CPropertyEditorButton>(enabled, disabled);
        button->SetOwner(row.get());
        button->SetFaceColor(c_face);
        button->SetFrameColor(c_frame);
        button->SetButtonSize(c_side, c_side);
        EXPECT_TRUE(button->Create(L"", CPropertyEditorButton::Style | WS_VISIBLE, c_buttonRect, window,
                                   KVPE_ID_FIRST_SMALL_BUTTON));
        kvtest::PumpWaiting();
        journal.Clear();
        return *button;
    }

    void Draw(UINT itemState = 0) {
        DRAWITEMSTRUCT item{.CtlType = ODT_BUTTON,
                            .CtlID = KVPE_ID_FIRST_SMALL_BUTTON,
                            .itemID = 0,
                            .itemAction = ODA_DRAWENTIRE,
                            .itemState = itemState,
                            .hwndItem = button->m_hWnd,
                            .hDC = canvas.Dc(),
                            .rcItem = c_buttonRect,
                            .itemData = 0};
        button->DrawItem(&item);
    }

    BOOL Translate(UINT message, WPARAM wParam, LPARAM lParam = 1) {
        MSG posted{.hwnd = button->m_hWnd,
                   .message = message,
                   .wParam = wParam,
                   .lParam = lParam,
                   .time = 0,
                   .pt = {}};
        return button->PreTranslateMessage(&posted);
    }

    static void SetKeys(bool shift, bool control) {
        BYTE keys[256]{};
        ::GetKeyboardState(keys);
        keys[VK_SHIFT] = shift ? 0x80 : 0;
        keys[VK_CONTROL] = control ? 0x80 : 0;
        ::SetKeyboardState(keys);
    }

    int CountInside(COLORREF color) const { return canvas.Count(c_buttonRect, color); }

    std::unique_ptr<CPropertyEditorButton> button;
    kvtest::PixelCanvas canvas{c_side, c_side};
};

TEST_F(SmallButton, Style_IsThatOfAnOwnerDrawnButtonInTheTabOrder) {
    EXPECT_EQ(CPropertyEditorButton::Style,
              static_cast<DWORD>(WS_CHILD | WS_GROUP | WS_TABSTOP | BS_FLAT | BS_OWNERDRAW));
}

TEST_F(SmallButton, NoPicture_PaintsFaceFrameAndThreeDots) {
    Make();
    Draw();
    EXPECT_EQ(CountInside(RGB(0, 0, 0)), 3 * 2 * 2);
    for (const int x : {5, 8, 11}) {
        EXPECT_EQ(canvas.Count({x, 8, x + 2, 10}, RGB(0, 0, 0)), 4) << x;
    }
    EXPECT_EQ(CountInside(c_frame), 4 * (c_side - 1));
    EXPECT_EQ(canvas.At(0, 0), c_frame);
    EXPECT_EQ(canvas.At(c_side - 1, c_side - 1), c_frame);
    EXPECT_EQ(CountInside(c_face), (c_side - 2) * (c_side - 2) - 12);
}

TEST_F(SmallButton, NoPictureOnAFinerScreen_DotsGrowWithIt) {
    constexpr RECT c_place = {1, 2, 41, 42};
    for (int dot = 0; dot < 3; ++dot) {
        EXPECT_EQ(SmallButtonPainter::DotRect(c_place, dot, 96), CRect(CPoint(6 + dot * 3, 10), CSize(2, 2)));
        EXPECT_EQ(SmallButtonPainter::DotRect(c_place, dot, 192),
                  CRect(CPoint(11 + dot * 6, 18), CSize(4, 4)));
    }
}

TEST_F(SmallButton, NoPicture_ColoursAreTheSystemsUntilOthersAreSet) {
    button = std::make_unique<CPropertyEditorButton>();
    ASSERT_TRUE(button->Create(L"", CPropertyEditorButton::Style, c_buttonRect, window, 1));
    Draw();
    EXPECT_EQ(canvas.At(1, 1), ::GetSysColor(COLOR_BTNFACE));
    EXPECT_EQ(canvas.At(0, 0), ::GetSysColor(COLOR_BTNSHADOW));
}

TEST_F(SmallButton, NoPictureFocused_ShowsTheFocusTwoPixelsInside) {
    Make();
    Draw(ODS_FOCUS);
    kvtest::PixelCanvas expected(c_side, c_side);
    SmallButtonPainter::DrawFace(expected.Dc(), c_buttonRect, c_face);
    CDC(expected.Dc()).DrawFocusRect(CRect(2, 2, c_side - 2, c_side - 2));
    for (int x = 2; x < c_side - 2; ++x) {
        EXPECT_EQ(canvas.At(x, 2), expected.At(x, 2)) << x;
    }
    EXPECT_EQ(canvas.At(1, 1), c_face);
}

TEST_F(SmallButton, Picture_StandsInTheMiddle) {
    Make(MakePicture(8, 6, c_enabledColor).Get());
    Draw();
    EXPECT_EQ(CountInside(c_enabledColor), 8 * 6);
    EXPECT_EQ(canvas.Count({6, 7, 14, 13}, c_enabledColor), 8 * 6);
    EXPECT_EQ(canvas.At(0, 0), c_frame);
    EXPECT_EQ(canvas.At(1, 1), c_face);
    EXPECT_EQ(CountInside(RGB(0, 0, 0)), 0);
}

TEST_F(SmallButton, PicturePressed_MovesDownAndRight) {
    Make(MakePicture(8, 6, c_enabledColor).Get());
    Draw(ODS_SELECTED);
    EXPECT_EQ(canvas.Count({7, 8, 15, 14}, c_enabledColor), 8 * 6);
    EXPECT_EQ(CountInside(c_enabledColor), 8 * 6);
}

TEST_F(SmallButton, PictureFlat_HasNeitherFrameNorFocus) {
    Make(MakePicture(8, 6, c_enabledColor).Get()).SetFlat(true);
    Draw(ODS_FOCUS);
    EXPECT_EQ(CountInside(c_enabledColor), 8 * 6);
    EXPECT_EQ(CountInside(c_face), c_side * c_side - 8 * 6);
}

TEST_F(SmallButton, PictureFocused_ShowsTheFocusTwoPixelsInside) {
    Make(MakePicture(8, 6, c_enabledColor).Get());
    Draw(ODS_FOCUS);
    EXPECT_NE(canvas.Count({2, 2, c_side - 2, 3}, c_face), c_side - 4);
    EXPECT_EQ(canvas.Count({1, 1, c_side - 1, 2}, c_face), c_side - 2);
}

TEST_F(SmallButton, Disabled_ShowsTheDisabledPictureInItsOwnPlace) {
    Make(MakePicture(8, 6, c_enabledColor).Get(), MakePicture(4, 4, c_disabledColor).Get()).Enable(false);
    EXPECT_FALSE(button->IsWindowEnabled());
    Draw(ODS_DISABLED);
    EXPECT_EQ(CountInside(c_enabledColor), 0);
    EXPECT_EQ(canvas.Count({8, 8, 12, 12}, c_disabledColor), 16);
    button->Enable(true);
    EXPECT_TRUE(button->IsWindowEnabled());
    Draw();
    EXPECT_EQ(CountInside(c_enabledColor), 8 * 6);
    EXPECT_EQ(CountInside(c_disabledColor), 0);
}

TEST_F(SmallButton, DisabledWithoutPictureForIt_ShowsAnEmptyFace) {
    Make(MakePicture(8, 6, c_enabledColor).Get()).Enable(false);
    Draw(ODS_DISABLED);
    EXPECT_EQ(CountInside(c_enabledColor), 0);
    EXPECT_EQ(CountInside(RGB(0, 0, 0)), 0);
}

TEST_F(SmallButton, SetButtonSize_OnlyPositiveValuesCount) {
    Make(MakePicture(8, 6, c_enabledColor).Get());
    button->SetButtonSize(0, -1);
    Draw();
    EXPECT_EQ(canvas.Count({6, 7, 14, 13}, c_enabledColor), 8 * 6);
    button->SetButtonSize(10, 0);
    Draw();
    EXPECT_EQ(canvas.Count({1, 7, 9, 13}, c_enabledColor), 8 * 6);
}

TEST_F(SmallButton, PictureLargerThanTheButton_StartsAtTheCorner) {
    Make(MakePicture(8, 6, c_enabledColor).Get());
    button->SetButtonSize(4, 4);
    Draw();
    EXPECT_EQ(canvas.Count({0, 0, 8, 6}, c_enabledColor), 8 * 6);
}

TEST_F(SmallButton, SizeAtStart_IsFifteen) {
    button = std::make_unique<CPropertyEditorButton>(MakePicture(5, 5, c_enabledColor).Get());
    ASSERT_TRUE(button->Create(L"", CPropertyEditorButton::Style, c_buttonRect, window, 1));
    Draw();
    EXPECT_EQ(canvas.Count({5, 5, 10, 10}, c_enabledColor), 25);
}

TEST_F(SmallButton, SetPictures_ReplacesAndHoldsThem) {
    const auto picture = MakePicture(8, 6, c_disabledColor);
    Make(MakePicture(8, 6, c_enabledColor).Get());
    const ULONG before = kvtest::ReferencesOf(picture.Get());
    button->SetPictures(picture.Get(), nullptr);
    EXPECT_EQ(kvtest::ReferencesOf(picture.Get()), before + 1);
    Draw();
    EXPECT_EQ(CountInside(c_disabledColor), 8 * 6);
    button.reset();
    EXPECT_EQ(kvtest::ReferencesOf(picture.Get()), before);
}

TEST_F(SmallButton, TabKey_GoesToThePaletteAndNoFurther) {
    Make();
    EXPECT_TRUE(Translate(WM_KEYDOWN, VK_TAB, 0xF0001));
    EXPECT_CALLS(journal, "KeyDown 9 983041");
}

TEST_F(SmallButton, EnterKey_ClicksByAPostedCommand) {
    Make();
    EXPECT_TRUE(Translate(WM_KEYDOWN, VK_RETURN));
    EXPECT_NO_CALLS(journal);
    MSG posted{};
    ASSERT_TRUE(::PeekMessageW(&posted, window, WM_COMMAND, WM_COMMAND, PM_REMOVE));
    EXPECT_EQ(posted.wParam, static_cast<WPARAM>(MAKEWPARAM(KVPE_ID_FIRST_SMALL_BUTTON, 0)));
    EXPECT_EQ(reinterpret_cast<HWND>(posted.lParam), button->m_hWnd);
}

TEST_F(SmallButton, ShiftControlLetter_GoesToThePaletteAndOn) {
    Make();
    SetKeys(true, true);
    EXPECT_FALSE(Translate(WM_KEYDOWN, 'Q', 5));
    EXPECT_CALLS(journal, "KeyDown 81 5");
    journal.Clear();
    EXPECT_FALSE(Translate(WM_KEYDOWN, VK_F1));  // its code is that of a small letter
    SetKeys(true, false);
    EXPECT_FALSE(Translate(WM_KEYDOWN, 'Q'));
    SetKeys(false, true);
    EXPECT_FALSE(Translate(WM_KEYDOWN, 'Q'));
    EXPECT_NO_CALLS(journal);
}

TEST_F(SmallButton, OtherKeysAndKeysWithoutOwner_AreLeftAlone) {
    Make();
    EXPECT_FALSE(Translate(WM_KEYDOWN, VK_SPACE));
    button->SetOwner(nullptr);
    EXPECT_FALSE(Translate(WM_KEYDOWN, VK_TAB));
    EXPECT_FALSE(Translate(WM_KEYDOWN, VK_RETURN));
    EXPECT_NO_CALLS(journal);
    MSG posted{};
    EXPECT_FALSE(::PeekMessageW(&posted, window, WM_COMMAND, WM_COMMAND, PM_REMOVE));
}

TEST_F(SmallButton, KeyWithAlt_IsOfferedToTheRowAndElseTheSystems) {
    Make();
    row->sysKeys.isTaken = true;
    EXPECT_EQ(button->SendMessage(WM_SYSKEYDOWN, VK_DOWN, 0x20500003), 0);
    EXPECT_CALLS(journal, "SysKeyDown 40 3 8272");
    journal.Clear();
    row->sysKeys.isTaken = false;
    button->SendMessage(WM_SYSKEYDOWN, VK_DOWN, 0x20000001);
    EXPECT_CALLS(journal, "SysKeyDown 40 1 8192");
    journal.Clear();
    button->SetOwner(nullptr);
    button->SendMessage(WM_SYSKEYDOWN, VK_DOWN, 0x20000001);
    EXPECT_NO_CALLS(journal);
}

TEST_F(SmallButton, KeyWithAltThatEndsTheButton_IsDone) {
    Make();
    row->sysKeys.onKey = [this] { button.reset(); };
    ::SendMessageW(button->m_hWnd, WM_SYSKEYDOWN, VK_DOWN, 0x20000001);
    EXPECT_FALSE(button);
}

TEST_F(SmallButton, MouseDown_TakesTheFocus) {
    Make();
    EXPECT_FALSE(Translate(WM_LBUTTONDOWN, MK_LBUTTON));
    EXPECT_TRUE(button->HasFocus());
}

TEST_F(SmallButton, RightButton_ReachesThePaletteInTheRowsCoordinates) {
    Make();
    button->MoveWindow(100, 0, c_side, c_side);
    journal.Clear();
    button->SendMessage(WM_RBUTTONDOWN, MK_RBUTTON, MAKELPARAM(3, 4));
    EXPECT_CALLS(journal, kvtest::ToUtf8(L"RButtonDown 2 " + std::to_wstring(MAKELPARAM(103, 4))));
}

TEST_F(SmallButton, RightButtonWithoutOwner_IsTheSystems) {
    Make();
    button->SetOwner(nullptr);
    button->SendMessage(WM_RBUTTONDOWN, MK_RBUTTON, MAKELPARAM(3, 4));
    EXPECT_NO_CALLS(journal);
}

TEST_F(SmallButton, TipText_IsMadeOnceAndThenChanged) {
    Make();
    button->SetTipText(L"first");
    button->SetTipText(L"second");
    EXPECT_CALLS(journal, "LzToolTip::Create", "LzToolTip::SetTipText first", "LzToolTip::SetTipText second");
    EXPECT_EQ(button->GetTipText(), L"second");
}

TEST_F(SmallButton, TipText_MouseRests_ShowsTheTip) {
    Make().SetTipText(L"text");
    const HWND tip = ::FindWindowW(TOOLTIPS_CLASSW, nullptr);
    ASSERT_NE(tip, nullptr);
    ::SendMessageW(tip, TTM_SETDELAYTIME, TTDT_INITIAL, 10);
    CPoint point(3, 3);
    button->ClientToScreen(&point);
    ::SetCursorPos(point.x, point.y);
    EXPECT_FALSE(Translate(WM_MOUSEMOVE, 0, MAKELPARAM(3, 3)));
    EXPECT_TRUE(kvtest::PumpUntil([&] { return ::IsWindowVisible(tip) != FALSE; }));
}

TEST_F(SmallButton, TipTextWithoutWindow_IsNoFailure) {
    CPropertyEditorButton unborn;
    unborn.SetTipText(L"text");
    EXPECT_TRUE(unborn.GetTipText().IsEmpty());
    EXPECT_NO_CALLS(journal);
}

}  // namespace
