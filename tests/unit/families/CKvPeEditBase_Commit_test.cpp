#include "families/CPropertyEditorText.h"
#include "tests/unit/families/RowBench.h"

namespace {

class EditRowCommit : public kvtest::RowBench<CPropertyEditorText> {};

TEST_F(EditRowCommit, EndEdit_NotInEdit_Fails) {
    EXPECT_EQ(row->EndEdit(), E_FAIL);
    Open();
    row->m_state = EditState_Shown;
    EXPECT_EQ(row->EndEdit(), E_FAIL);
}

TEST_F(EditRowCommit, EndEdit_NoBox_Fails) {
    row->m_state = EditState_InEdit;
    EXPECT_EQ(row->EndEdit(), E_FAIL);
}

TEST_F(EditRowCommit, EndEdit_WhileACommitRuns_Fails) {
    Open();
    Type(L"beta");
    HRESULT inside = S_OK;
    row->script.onWrite = [&] {
        EXPECT_EQ(row->m_state, EditState_Committing);
        inside = row->EndEdit();
    };
    EXPECT_EQ(row->EndEdit(), S_OK);
    EXPECT_EQ(inside, E_FAIL);
    EXPECT_CALLS(journal, "write 0 beta", "read");
}

TEST_F(EditRowCommit, EndEdit_UnchangedText_WritesNothing) {
    Open();
    EXPECT_EQ(row->EndEdit(), S_OK);
    EXPECT_NO_CALLS(journal);
    EXPECT_EQ(row->m_state, EditState_InEdit);
}

TEST_F(EditRowCommit, EndEdit_TextThatDiffersInCase_IsWritten) {
    Open();
    Type(L"Alpha");
    EXPECT_EQ(row->EndEdit(), S_OK);
    EXPECT_CALLS(journal, "write 0 Alpha", "read");
    EXPECT_EQ(row->m_text, L"Alpha");
}

TEST_F(EditRowCommit, EndEdit_ChangedText_WritesReadsAndStaysInEdit) {
    Open();
    row->m_state = EditState_InEditAfterClick;
    Type(L"beta");
    EXPECT_EQ(row->EndEdit(), S_OK);
    EXPECT_CALLS(journal, "write 0 beta", "read");
    EXPECT_EQ(row->m_state, EditState_InEdit);
    EXPECT_EQ(row->m_changeNotified, TRUE);
}

TEST_F(EditRowCommit, EndEdit_ReadOnlyRow_KeepsTheStoredText) {
    Open();
    Type(L"beta");
    row->m_readOnly = TRUE;
    EXPECT_EQ(row->EndEdit(), S_OK);
    EXPECT_NO_CALLS(journal);
    EXPECT_EQ(row->m_text, L"alpha");
    EXPECT_EQ(row->m_changeNotified, FALSE);
}

TEST_F(EditRowCommit, EndEdit_ReadOnlyBox_KeepsTheStoredText) {
    Open();
    Type(L"beta");
    Edit().SetReadOnly(TRUE);
    EXPECT_EQ(row->EndEdit(), S_OK);
    EXPECT_NO_CALLS(journal);
    EXPECT_EQ(row->m_text, L"alpha");
}

TEST_F(EditRowCommit, EndEdit_UnspecifiedTextInAnyCase_WritesUnspecified) {
    row->m_allowUnspecified = true;
    row->m_unspecifiedText = L"None Given";
    Open();
    Type(L"nONE gIVEN");
    EXPECT_EQ(row->EndEdit(), S_OK);
    EXPECT_CALLS(journal, "write 2 nONE gIVEN", "read");
}

TEST_F(EditRowCommit, EndEdit_UnspecifiedTextWhereItIsNotAllowed_WritesAValue) {
    row->m_unspecifiedText = L"None Given";
    Open();
    Type(L"None Given");
    EXPECT_EQ(row->EndEdit(), S_OK);
    EXPECT_CALLS(journal, "write 0 None Given", "read");
}

TEST_F(EditRowCommit, EndEdit_WriteRefused_BringsTheOldTextBack) {
    Open();
    row->script.writeResult = E_ACCESSDENIED;
    Type(L"beta");
    EXPECT_EQ(row->EndEdit(), S_OK);
    EXPECT_CALLS(journal, "write 0 beta");
    EXPECT_EQ(row->m_text, L"alpha");
    EXPECT_EQ(Edit().GetWindowText(), L"alpha");
    EXPECT_EQ(row->m_changeNotified, FALSE);
    EXPECT_EQ(row->m_state, EditState_InEdit);
}

TEST_F(EditRowCommit, EndEdit_ReadAfterTheWriteFails_KeepsTheEnteredText) {
    Open();
    Type(L"beta");
    row->script.onWrite = [&] { row->script.readResult = E_ACCESSDENIED; };
    EXPECT_EQ(row->EndEdit(), S_OK);
    EXPECT_EQ(row->m_text, L"beta");
    EXPECT_EQ(row->m_changeNotified, TRUE);
}

TEST_F(EditRowCommit, EndEdit_AnyOutcome_PointsTheTipToTheRow) {
    const auto expectPointed = [&](const char* outcome) {
        row->m_textTip.SetOwner(Edit().m_hWnd, window);
        EXPECT_EQ(row->EndEdit(), S_OK);
        EXPECT_EQ(row->m_textTip.GetOwner(), window.m_hWnd) << outcome;
        EXPECT_EQ(row->m_textTip.GetOwnerParent(), frame.m_hWnd) << outcome;
    };
    Open();
    EXPECT_EQ(row->m_textTip.GetOwner(), Edit().m_hWnd);
    expectPointed("unchanged");
    Type(L"beta");
    Edit().SetReadOnly(TRUE);
    expectPointed("read-only");
    Edit().SetReadOnly(FALSE);
    expectPointed("written");
    row->script.writeResult = E_FAIL;
    Type(L"gamma");
    expectPointed("refused");
    EXPECT_CALLS(journal, "write 0 beta", "read", "write 0 gamma");
}

TEST_F(EditRowCommit, EndEdit_PaletteDeactivatesTheRowMeanwhile_RowStaysOutOfEdit) {
    Open();
    Type(L"beta");
    row->script.onWrite = [&] { EXPECT_EQ(row->Handle_UIDeactivate(), S_OK); };
    EXPECT_EQ(row->EndEdit(), S_OK);
    EXPECT_EQ(row->m_state, EditState_Shown);
    EXPECT_FALSE(Edit().IsWindowVisible());
}

TEST_F(EditRowCommit, EndEdit_PaletteClearsTheRowMeanwhile_EndsInPeace) {
    Open();
    Type(L"beta");
    row->script.writeResult = E_FAIL;
    row->script.onWrite = [&] { EXPECT_EQ(row->Cleanup(), S_OK); };
    EXPECT_EQ(row->EndEdit(), S_OK);
    EXPECT_FALSE(row->m_edit);
    EXPECT_EQ(row->m_text, L"alpha");
}

TEST_F(EditRowCommit, ChooseText_OpensWritesAndStaysInEdit) {
    row->ChooseText(c_clientRect, L"beta");
    EXPECT_CALLS(journal, "write 0 beta", "read");
    EXPECT_EQ(row->m_state, EditState_InEdit);
}

TEST_F(EditRowCommit, WriteThrows_FormerTextComesBackAndTheNextIsWritten) {
    Open();
    Type(L"beta");
    row->script.onWrite = [] { throw 1; };
    Focus(frame);
    EXPECT_EQ(row->m_state, EditState_InEdit);
    EXPECT_EQ(Edit().GetWindowText(), L"alpha");
    row->script.onWrite = nullptr;
    journal.Clear();
    Type(L"gamma");
    EXPECT_EQ(row->EndEdit(), S_OK);
    EXPECT_CALLS(journal, "write 0 gamma", "read");
}

}  // namespace
