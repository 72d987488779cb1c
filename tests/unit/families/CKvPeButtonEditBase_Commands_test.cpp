#include "host_sdk/KvEdVariables.h"
#include "tests/support/PixelCanvas.h"
#include "tests/unit/families/ButtonBench.h"

namespace {

class ButtonRowCommands : public kvtest::ButtonBench {
protected:
    BOOL Handled(WORD code, WORD id) {
        BOOL handled = TRUE;
        row->OnButtonCommand(code, id, nullptr, handled);
        return handled;
    }
};

TEST_F(ButtonRowCommands, Click_BracketsTheButtonsOwnWork) {
    row->AddButton(0, 0, c_first, false);
    Open();
    Click(c_first);
    EXPECT_CALLS(journal, "BeginUpdate", "custom 1043", "EndUpdate");
}

TEST_F(ButtonRowCommands, Click_EachIdHasItsWork) {
    Click(1043);
    Click(1044);
    Click(1045);
    Click(1046);
    Click(1047);
    Click(1048);
    EXPECT_CALLS(journal, "BeginUpdate", "custom 1043", "EndUpdate", "BeginUpdate", "custom 1044",
                 "EndUpdate", "BeginUpdate", "custom 1045", "EndUpdate", "BeginUpdate", "calculator",
                 "EndUpdate", "BeginUpdate", "pick", "EndUpdate", "BeginUpdate", "custom 1048", "EndUpdate");
}

TEST_F(ButtonRowCommands, OtherCommand_EndsAnUpdateThatDidNotBegin) {
    EXPECT_FALSE(Handled(BN_CLICKED, 1042));
    EXPECT_CALLS(journal, "EndUpdate");
    journal.Clear();
    EXPECT_FALSE(Handled(BN_CLICKED, 1049));
    EXPECT_CALLS(journal, "EndUpdate");
    journal.Clear();
    EXPECT_FALSE(Handled(BN_DOUBLECLICKED, 1043));
    EXPECT_CALLS(journal, "EndUpdate");
    journal.Clear();
    EXPECT_TRUE(Handled(BN_CLICKED, 1043));
}

TEST_F(ButtonRowCommands, Click_InvalidatesTheVisibleButton) {
    row->AddButton(0, 0, c_first, false);
    Open();
    Button(0)->UpdateWindow();
    EXPECT_FALSE(::GetUpdateRect(Button(0)->m_hWnd, nullptr, FALSE));
    Click(c_first);
    EXPECT_TRUE(::GetUpdateRect(Button(0)->m_hWnd, nullptr, FALSE));
    Button(0)->UpdateWindow();
    row->m_bShowButtons = false;
    Click(c_first);
    EXPECT_FALSE(::GetUpdateRect(Button(0)->m_hWnd, nullptr, FALSE));
}

TEST_F(ButtonRowCommands, RealClick_ReachesTheRow) {
    row->AddButton(0, 0, c_first, false);
    Open();
    Button(0)->Click();
    EXPECT_CALLS(journal, "BeginUpdate", "custom 1043", "EndUpdate");
}

TEST_F(ButtonRowCommands, EnterOnTheButton_ClicksByAPostedCommand) {
    row->AddButton(0, 0, c_first, false);
    Open();
    Focus(Button(0)->m_hWnd);
    journal.Clear();
    ::PostMessageW(Button(0)->m_hWnd, WM_KEYDOWN, VK_RETURN, 1);
    kvtest::PumpWaiting();
    EXPECT_CALLS(journal, "BeginUpdate", "custom 1043", "EndUpdate");
}

TEST_F(ButtonRowCommands, KillFocus_EndsTheEdit) {
    Open();
    Type(L"beta");
    BOOL handled = TRUE;
    row->OnEditKillFocus(EN_KILLFOCUS, KVPE_ID_EDIT, Edit().m_hWnd, handled);
    EXPECT_TRUE(handled);
    EXPECT_CALLS(journal, "write 0 beta", "read");
}

TEST_F(ButtonRowCommands, KillFocus_WhileReturnEndsTheEdit_IsLeftToIt) {
    Open();
    Type(L"beta");
    row->script.onWrite = [this] {
        row->script.onWrite = nullptr;
        row->m_state = EditState_InEdit;  // else the running commit alone would stop it
        BOOL handled = TRUE;
        row->OnEditKillFocus(EN_KILLFOCUS, KVPE_ID_EDIT, Edit().m_hWnd, handled);
        row->m_state = EditState_Committing;
    };
    Key(VK_RETURN);
    EXPECT_CALLS(journal, "write 0 beta", "read", "KeyDown 13 1");
}

TEST_F(ButtonRowCommands, KillFocus_NotInEdit_EndsNothing) {
    Open();
    Type(L"beta");
    row->m_state = EditState_Shown;
    BOOL handled = TRUE;
    row->OnEditKillFocus(EN_KILLFOCUS, KVPE_ID_EDIT, Edit().m_hWnd, handled);
    EXPECT_NO_CALLS(journal);
}

TEST_F(ButtonRowCommands, OtherNoticesOfTheBox_AreLeftAlone) {
    Open();
    Type(L"beta");
    BOOL handled = TRUE;
    row->OnEditKillFocus(EN_CHANGE, KVPE_ID_EDIT, Edit().m_hWnd, handled);
    EXPECT_FALSE(handled);
    handled = TRUE;
    row->OnEditKillFocus(EN_KILLFOCUS, 1049, Edit().m_hWnd, handled);
    EXPECT_FALSE(handled);
    EXPECT_NO_CALLS(journal);
}

TEST_F(ButtonRowCommands, DrawButton_GoesToTheButtonOfTheId) {
    row->AddButton(0, 0, c_first, false);
    Open();
    kvtest::PixelCanvas canvas(20, 20);
    DRAWITEMSTRUCT item{};
    item.CtlType = ODT_BUTTON;
    item.hDC = canvas.Dc();
    item.rcItem = {0, 0, 20, 20};
    BOOL handled = FALSE;
    row->OnDrawButton(WM_DRAWITEM, c_first, &item, handled);
    EXPECT_TRUE(handled);
    EXPECT_EQ(canvas.Count({0, 0, 20, 20}, RGB(0, 0, 0)), 12);
    handled = TRUE;
    row->OnDrawButton(WM_DRAWITEM, c_second, &item, handled);
    EXPECT_FALSE(handled);
    handled = TRUE;
    row->OnDrawButton(WM_DRAWITEM, 1039, &item, handled);
    EXPECT_FALSE(handled);
}

TEST_F(ButtonRowCommands, AltArrow_PressesTheFirstButton) {
    row->AddButton(0, 0, c_second, false);
    row->AddButton(0, 0, c_first, false);
    for (const UINT key : {VK_UP, VK_DOWN}) {
        journal.Clear();
        bool handled = false;
        EXPECT_EQ(row->PropertySysKeyDown(key, 1, 0x2000, handled), S_OK);
        EXPECT_TRUE(handled);
        EXPECT_CALLS(journal, "custom 1044");
    }
}

TEST_F(ButtonRowCommands, AltArrowInTheBox_PressesTheFirstButton) {
    row->AddButton(0, 0, c_first, false);
    Open();
    ::PostMessageW(Edit().m_hWnd, WM_SYSKEYDOWN, VK_DOWN, 0x20000001);
    kvtest::PumpWaiting();
    EXPECT_CALLS(journal, "custom 1043");
}

TEST_F(ButtonRowCommands, AltArrow_NoButtons_LeavesTheFlagAsItWas) {
    for (const bool before : {false, true}) {
        bool handled = before;
        EXPECT_EQ(row->PropertySysKeyDown(VK_DOWN, 1, 0x2000, handled), S_OK);
        EXPECT_EQ(handled, before);
    }
    row->AddButton(0, 0, 0, false);
    bool handled = false;
    EXPECT_EQ(row->PropertySysKeyDown(VK_DOWN, 1, 0x2000, handled), S_OK);
    EXPECT_FALSE(handled);
    EXPECT_NO_CALLS(journal);
}

TEST_F(ButtonRowCommands, OtherKeysAndArrowsWithoutAlt_DoNothing) {
    row->AddButton(0, 0, c_first, false);
    bool handled = false;
    EXPECT_EQ(row->PropertySysKeyDown(VK_DOWN, 1, 0, handled), S_OK);
    EXPECT_EQ(row->PropertySysKeyDown(VK_LEFT, 1, 0x2000, handled), S_OK);
    EXPECT_FALSE(handled);
    EXPECT_NO_CALLS(journal);
}

TEST_F(ButtonRowCommands, Refresh_ShowsTheValueInRowAndBox) {
    Open();
    row->script.value = fw::Variant::FromString(L"beta");
    EXPECT_EQ(row->Handle_Refresh(), S_OK);
    EXPECT_EQ(row->m_text, L"beta");
    EXPECT_EQ(Edit().GetWindowText(), L"beta");
    row->script.type = ValueType_Varies;
    EXPECT_EQ(row->Handle_Refresh(), S_OK);
    EXPECT_EQ(Edit().GetWindowText(), L"*VARIES*");
    row->script.type = ValueType_Unspecified;
    row->m_unspecifiedText = L"none";
    EXPECT_EQ(row->Handle_Refresh(), S_OK);
    EXPECT_EQ(Edit().GetWindowText(), L"none");
}

TEST_F(ButtonRowCommands, Refresh_FailedRead_KeepsTheText) {
    Open();
    row->script.readResult = E_ACCESSDENIED;
    EXPECT_EQ(row->Handle_Refresh(), E_ACCESSDENIED);
    EXPECT_EQ(Edit().GetWindowText(), L"alpha");
}

TEST_F(ButtonRowCommands, CalculatorInput_IsTheRowsText) {
    CString text;
    EXPECT_EQ(row->GetCalculatorInput(text), 1);
    EXPECT_EQ(text, L"alpha");
}

TEST_F(ButtonRowCommands, CalculatorInput_FractionalUnits_IsDecimal) {
    const kvhost::HostSession host;
    host->Documents().New();
    resbuf units{};
    units.restype = KVED_RTSHORT;
    units.resval.rint = 5;
    ASSERT_EQ(kvedSetVar(L"LUNITS", &units), KVED_RTNORM);
    row->m_text = L"2 1/2";
    CString text;
    EXPECT_EQ(row->GetCalculatorInput(text), 1);
    EXPECT_EQ(text, L"2.5");
    row->m_text = L"no number";
    EXPECT_EQ(row->GetCalculatorInput(text), 1);
    EXPECT_EQ(text, L"no number");
}

}  // namespace
