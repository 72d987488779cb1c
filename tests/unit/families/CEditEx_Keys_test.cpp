#include "families/CPropertyEditorText.h"
#include "tests/unit/families/RowBench.h"

namespace {

class EditBoxKeys : public kvtest::RowBench<CPropertyEditorText> {
protected:
    ~EditBoxKeys() override { SetShift(false); }

    static void SetShift(bool down) {
        BYTE keys[256]{};
        ::GetKeyboardState(keys);
        keys[VK_SHIFT] = down ? 0x80 : 0;
        ::SetKeyboardState(keys);
    }
};

TEST_F(EditBoxKeys, AnyKey_ShowsTheCaretAndRepaints) {
    Open();
    ::ValidateRect(Edit().m_hWnd, nullptr);
    MSG key{.hwnd = Edit().m_hWnd, .message = WM_KEYDOWN, .wParam = 'A', .lParam = 1, .time = 0, .pt = {}};
    EXPECT_FALSE(Edit().PreTranslateMessage(&key));
    EXPECT_TRUE(Edit().IsCaretShown());
    EXPECT_TRUE(::GetUpdateRect(Edit().m_hWnd, nullptr, FALSE));
}

TEST_F(EditBoxKeys, Letter_ReachesTheBox) {
    Open();
    ::PostMessageW(Edit().m_hWnd, WM_KEYDOWN, 'B', 1);
    kvtest::PumpWaiting();
    EXPECT_EQ(Edit().GetWindowText(), L"b");
    EXPECT_NO_CALLS(journal);
}

TEST_F(EditBoxKeys, Tab_CommitsAndGoesToThePalette) {
    Open();
    Type(L"beta");
    Key(VK_TAB, 0xF0001);
    EXPECT_CALLS(journal, "write 0 beta", "read", "KeyDown 9 983041");
    EXPECT_EQ(Edit().GetWindowText(), L"beta");
}

TEST_F(EditBoxKeys, Tab_NextWindowKnown_CommitsAndMovesTheFocus) {
    Open();
    CWnd next;
    next.Create(s_windowClass, L"", WS_CHILD | WS_VISIBLE, {0, 0, 5, 5}, window);
    Edit().SetNextFocusWindow(&next);
    Type(L"beta");
    Key(VK_TAB);
    EXPECT_CALLS(journal, "write 0 beta", "read");
    EXPECT_EQ(::GetFocus(), next.m_hWnd);
}

TEST_F(EditBoxKeys, ShiftTab_NextWindowKnown_GoesToThePalette) {
    Open();
    CWnd next;
    next.Create(s_windowClass, L"", WS_CHILD | WS_VISIBLE, {0, 0, 5, 5}, window);
    Edit().SetNextFocusWindow(&next);
    SetShift(true);
    Key(VK_TAB);
    EXPECT_CALLS(journal, "KeyDown 9 1");
    EXPECT_NE(::GetFocus(), next.m_hWnd);
}

TEST_F(EditBoxKeys, Tab_PaletteEndsTheRowMeanwhile_EndsInPeace) {
    Open();
    Type(L"beta");
    CWnd next;
    next.Create(s_windowClass, L"", WS_CHILD | WS_VISIBLE, {0, 0, 5, 5}, window);
    Edit().SetNextFocusWindow(&next);
    row->script.onWrite = [&] { EXPECT_EQ(row->Cleanup(), S_OK); };
    Key(VK_TAB);
    EXPECT_CALLS(journal, "write 0 beta", "read");
    EXPECT_NE(::GetFocus(), next.m_hWnd);
}

TEST_F(EditBoxKeys, Return_ChangedText_CommitsThenGoesToThePalette) {
    Open();
    Type(L"beta");
    Key(VK_RETURN, 0x1C0001);
    EXPECT_CALLS(journal, "write 0 beta", "read", "KeyDown 13 1835009");
    EXPECT_EQ(Edit().GetWindowText(), L"beta");
}

TEST_F(EditBoxKeys, Return_UnchangedText_GoesToThePaletteOnly) {
    Open();
    Key(VK_RETURN);
    EXPECT_CALLS(journal, "KeyDown 13 1");
    EXPECT_EQ(Edit().GetWindowText(), L"alpha");
}

TEST_F(EditBoxKeys, Return_RefusedText_GoesToThePaletteWithTheOldText) {
    Open();
    row->script.writeResult = E_FAIL;
    Type(L"beta");
    Key(VK_RETURN);
    EXPECT_CALLS(journal, "write 0 beta", "KeyDown 13 1");
    EXPECT_EQ(Edit().GetWindowText(), L"alpha");
}

TEST_F(EditBoxKeys, Return_IsKnownOnlyWhileTheEditEnds) {
    Open();
    Type(L"beta");
    bool during = false;
    row->script.onWrite = [&] { during = Edit().IsInReturnKey(); };
    bool atEvent = true;
    shell.onEvent = [&](const std::wstring&) { atEvent = Edit().IsInReturnKey(); };
    Key(VK_RETURN);
    EXPECT_TRUE(during);
    EXPECT_FALSE(atEvent);
}

TEST_F(EditBoxKeys, Return_PaletteEndsTheRowInTheEvent_EndsInPeace) {
    Open();
    shell.onEvent = [&](const std::wstring&) { EXPECT_EQ(row->Cleanup(), S_OK); };
    Key(VK_RETURN);
    EXPECT_FALSE(row->m_edit);
}

TEST_F(EditBoxKeys, Escape_BringsTheStoredValueBackSelected) {
    Open();
    Type(L"typed");
    Edit().SetSel(1, 2);
    Key(VK_ESCAPE);
    EXPECT_CALLS(journal, "read");
    EXPECT_EQ(Edit().GetWindowText(), L"alpha");
    int start = -1;
    int end = -1;
    Edit().GetSel(start, end);
    EXPECT_EQ(start, 0);
    EXPECT_EQ(end, 5);
    EXPECT_FALSE(Edit().IsCaretShown());
    EXPECT_EQ(row->m_state, EditState_InEdit);
}

TEST_F(EditBoxKeys, Escape_ReadFails_SelectsWhatIsThere) {
    Open();
    Type(L"typed");
    row->script.readResult = E_FAIL;
    Key(VK_ESCAPE);
    EXPECT_EQ(Edit().GetWindowText(), L"typed");
    int start = -1;
    int end = -1;
    Edit().GetSel(start, end);
    EXPECT_EQ(start, 0);
    EXPECT_EQ(end, 5);
}

TEST_F(EditBoxKeys, AltArrow_IsOfferedToTheRow) {
    struct Offered {
        UINT key = 0;
        UINT flags = 0;
    };
    static Offered s_offered;
    class AltRow : public kvtest::TestRow<CPropertyEditorText> {
    public:
        using kvtest::TestRow<CPropertyEditorText>::TestRow;
        HRESULT PropertySysKeyDown(UINT key, UINT, UINT flags, bool& handled) override {
            s_offered = {key, flags};
            handled = true;
            return S_OK;
        }
    };
    EndRow();
    row = std::make_unique<AltRow>(static_cast<CIPropEditUIEvents*>(&shell),
                                   static_cast<CKvPeBasePrivate*>(&shell));
    Open();
    ::SendMessageW(Edit().m_hWnd, WM_SYSKEYDOWN, VK_DOWN, 0x21500001);
    EXPECT_EQ(s_offered.key, static_cast<UINT>(VK_DOWN));
    EXPECT_TRUE(s_offered.flags & KF_ALTDOWN);
}

}  // namespace
