#include "families/CPropertyEditorPwdText.h"

#include "core/ChildIds.h"
#include "tests/support/DrawnText.h"
#include "tests/unit/families/RowBench.h"

namespace {

class PasswordRow : public kvtest::RowBench<CPropertyEditorPwdText> {
protected:
    PasswordRow() { row->m_text = L"secret"; }

    HRESULT Draw(HDC dc) {
        const RECTL bounds{0, 0, 120, 20};
        ATL_DRAWINFO info;
        info.hdcDraw = dc;
        info.prcBounds = &bounds;
        return row->Handle_OnDraw(info);
    }
    std::vector<kvtest::DrawnText> Paint() {
        return kvtest::RecordText([&](HDC dc) { EXPECT_EQ(Draw(dc), S_OK); });
    }
    void Click() { ::SendMessageW(Edit().m_hWnd, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(3, 3)); }
    HCURSOR CursorAt(int place) {
        ::SendMessageW(Edit().m_hWnd, WM_SETCURSOR, reinterpret_cast<WPARAM>(Edit().m_hWnd),
                       MAKELPARAM(place, WM_MOUSEMOVE));
        return ::GetCursor();
    }
    void Init() {
        EndRow();
        row = std::make_unique<kvtest::TestRow<CPropertyEditorPwdText>>(
            static_cast<CIPropEditUIEvents*>(&shell), static_cast<CKvPeBasePrivate*>(&shell));
        row->m_text = L"secret";
        window.row = row.get();
    }
};

TEST_F(PasswordRow, Draw_Writable_ShowsTheMaskedBoxAndPaintsNothing) {
    Init();
    EXPECT_TRUE(Paint().empty());
    ASSERT_TRUE(row->m_edit);
    EXPECT_EQ(Edit().GetDlgCtrlID(), 1049);
    EXPECT_EQ(Edit().GetStyle() & ~static_cast<DWORD>(WS_VISIBLE | WS_CLIPSIBLINGS), 0x400100A0u);
    EXPECT_EQ(row->m_childWindow, row->m_edit.get());
    EXPECT_EQ(Edit().GetWindowText(), L"secret");
    EXPECT_EQ(Edit().GetClientRect(), CRect(c_clientRect));
    EXPECT_TRUE(Edit().IsWindowVisible());
    EXPECT_EQ(row->m_state, EditState_NeverShown);
}

TEST_F(PasswordRow, Draw_BoxCannotBeMade_Fails) {
    Init();
    shell.window = nullptr;
    const fw::WindowDc screen(nullptr);
    const fw::MemoryDc dc(screen);
    EXPECT_EQ(Draw(dc), E_FAIL);
    EXPECT_FALSE(row->m_edit);
}

TEST_F(PasswordRow, Draw_ReadOnly_HidesTheBoxAndPaintsInPlain) {
    EXPECT_TRUE(Paint().empty());
    row->m_readOnly = TRUE;
    const auto drawn = Paint();
    ASSERT_EQ(drawn.size(), 2u);
    EXPECT_EQ(drawn[1].text, L"secret");
    EXPECT_FALSE(Edit().IsWindowVisible());
}

TEST_F(PasswordRow, Draw_ValueOrSizeChanged_BoxFollows) {
    EXPECT_TRUE(Paint().empty());
    row->m_text = L"other";
    window.MoveWindow(10, 10, 90, 24);
    EXPECT_TRUE(Paint().empty());
    EXPECT_EQ(Edit().GetWindowText(), L"other");
    EXPECT_EQ(Edit().GetClientRect(), CRect(0, 0, 90, 24));
}

TEST_F(PasswordRow, Draw_InEdit_KeepsTheTypedText) {
    Open();
    Type(L"typed");
    EXPECT_TRUE(Paint().empty());
    EXPECT_EQ(Edit().GetWindowText(), L"typed");
}

TEST_F(PasswordRow, BeginEdit_UsesTheMaskedBox) {
    Open();
    EXPECT_EQ(Edit().GetDlgCtrlID(), 1049);
    EXPECT_TRUE(Edit().HasFocus());
    EXPECT_EQ(row->m_state, EditState_InEdit);
}

TEST_F(PasswordRow, BeginEdit_BeforeTheFirstPaint_NeverOpensAPlainBox) {
    Init();
    EXPECT_EQ(row->BeginEdit(c_clientRect), S_OK);
    EXPECT_EQ(Edit().GetDlgCtrlID(), 1049);
    Init();
    frame.ShowWindow(SW_HIDE);  // nothing is painted
    EXPECT_EQ(row->BeginEdit(c_clientRect), E_FAIL);
    EXPECT_FALSE(row->m_edit);
}

TEST_F(PasswordRow, BeginEdit_AfterAPreset_NeverOpensThePlainBox) {
    Init();
    row->PresetText(L"preset");
    EXPECT_EQ(row->BeginEdit(c_clientRect), S_OK);
    EXPECT_EQ(Edit().GetDlgCtrlID(), 1049);
    EXPECT_TRUE(Edit().GetStyle() & ES_PASSWORD);
}

TEST_F(PasswordRow, Commit_WritesTheTypedText) {
    Open();
    Type(L"typed");
    Key(VK_RETURN);
    EXPECT_CALLS(journal, "write 0 typed", "read", "KeyDown 13 1");
}

TEST_F(PasswordRow, Tip_IsNeverShown) {
    row->m_text = L"a secret that is by far too long for a row of this width";
    Open();
    BOOL handled = TRUE;
    EXPECT_EQ(row->Handle_ShowTextTip(WM_MOUSEMOVE, 0, 0, handled), 0);
    Edit().SetReadOnly(TRUE);
    ::SendMessageW(Edit().m_hWnd, WM_MOUSEMOVE, 0, MAKELPARAM(3, 3));
    row->m_state = EditState_Shown;
    ::SendMessageW(Edit().m_hWnd, WM_MOUSEMOVE, 0, MAKELPARAM(3, 3));
    EXPECT_EQ(row->Handle_OnMouseMove(WM_MOUSEMOVE, 0, 0, handled), 0);
    EXPECT_EQ(::FindWindowW(L"KvPeTextTip", nullptr), nullptr);
}

TEST_F(PasswordRow, Click_FirstSinceTheFocusCame_ReachesThePalette) {
    Open();
    Edit().SetSel(0, -1);
    Click();
    EXPECT_CALLS(journal, "Click");
    Click();
    EXPECT_CALLS(journal, "Click");
    int start = -1;
    int end = -1;
    Edit().GetSel(start, end);
    EXPECT_EQ(end, 6);  // the box itself saw no click
    Focus(frame);
    Edit().SetFocus();
    Click();
    EXPECT_CALLS(journal, "Click", "Click");
}

TEST_F(PasswordRow, KillFocus_CommitsAsEveryEditRow) {
    Open();
    Type(L"typed");
    Focus(frame);
    EXPECT_CALLS(journal, "write 0 typed", "read");
}

TEST_F(PasswordRow, SetCursor_BeamOnlyAfterAClickInAWritableBox) {
    const HCURSOR arrow = ::LoadCursorW(nullptr, IDC_ARROW);
    const HCURSOR beam = ::LoadCursorW(nullptr, IDC_IBEAM);
    Open();
    EXPECT_EQ(CursorAt(HTCLIENT), arrow);
    Click();
    EXPECT_EQ(CursorAt(HTCLIENT), beam);
    EXPECT_EQ(CursorAt(HTLEFT), arrow);
    Edit().SetReadOnly(TRUE);
    EXPECT_EQ(CursorAt(HTCLIENT), arrow);
    Edit().SetReadOnly(FALSE);
    Focus(frame);
    EXPECT_EQ(CursorAt(HTCLIENT), arrow);
}

TEST_F(PasswordRow, PresetBoxes_AreNeverTakenForTheMaskedOne) {
    for (int round = 0; round < 40; ++round) {
        Open();
        for (int i = 0; i < 2; ++i) {
            fw::Ignore(row->Handle_UIDeactivate());
            window.DestroyWindow();
            window.Create(s_windowClass, L"", WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, c_rowRect, frame);
            shell.window = window.m_hWnd;
            row->PresetText(L"preset");
        }
        EXPECT_EQ(row->BeginEdit(c_clientRect), S_OK);
        ASSERT_EQ(Edit().GetDlgCtrlID(), 1049) << round;
    }
}

}  // namespace
