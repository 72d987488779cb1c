#include <gtest/gtest.h>

#include "host_sdk/KvEdServices.h"
#include "preview/CKvPeComboPreviewAction.h"
#include "preview/KvRestorableSet.h"
#include "refhost/editor/EditorState.h"
#include "refhost/editor/LivePreview.h"
#include "refhost/editor/SystemVariables.h"
#include "refhost/testing/Faults.h"
#include "refhost/testing/ScriptedObject.h"
#include "tests/support/SelectionArrays.h"
#include "tests/unit/families/ListBench.h"

// What a list row shows on the drawing while the mouse goes over its entries, and what it tells the host.

namespace {

using kvtest::CallLines;

/// The questions before a preview, and the calls that queue one or stop it.
const CallLines c_enabled{"kvDocManagerPtr", "curDocument", "allowsLivePreview", "getBool PROPERTYPREVIEW",
                          "kvedGetPaletteWnd 0"};
const CallLines c_queue{"kvDocManagerPtr", "curDocument", "KvEdLivePreview 0", "abortAll", "queueAction"};
const CallLines c_stop{"kvDocManagerPtr", "curDocument", "KvEdLivePreview 1", "abortAll",
                       "kvedIsLivePreviewStarted"};
const CallLines c_ran{"runPreviewAction"};

CallLines Joined(std::initializer_list<CallLines> parts) {
    CallLines lines;
    for (const CallLines& part : parts) {
        lines.insert(lines.end(), part.begin(), part.end());
    }
    return lines;
}

class ListPreview : public kvtest::ListBench {
protected:
    ListPreview() {
        host->Editor().SetPaletteWindow(KVED_FIRST_PALETTE, frame);
        object = kvhost::ScriptedObject::Make(L"A");
        SelectObjects({object.Get()});
        Edit();
    }
    ~ListPreview() override {
        kvhost::Faults::Reset();
        Discard();
        EXPECT_FALSE(kvedIsLivePreviewRecording());
    }

    void SelectObjects(const std::vector<IDispatch*>& selection) {
        fw::Ignore(Row().Cleanup());
        ASSERT_EQ(kvtest::SelectionArrays(selection).Init(*shell), S_OK);
    }

    long Hover(int entry, WPARAM controlId = 1002) {
        handled = 7;
        return Row().Handle_OnListHover(1824, controlId, entry, handled);
    }
    /// Hovers and lets the host run what was queued, forgetting what that led to.
    void HoverAndShow(int entry) {
        EXPECT_EQ(Hover(entry), 0);
        Clear();
    }

    fw::ComPtr<kvhost::ScriptedObject> object;
    BOOL handled = FALSE;
};

TEST_F(ListPreview, OtherEntry_IsQueuedAndThenWritten) {
    EXPECT_EQ(Hover(1), 0);
    EXPECT_TRUE(handled);
    EXPECT_EQ(Row().m_nPreviewItem, 1);
    EXPECT_EQ(Row().m_nCurItem, 0);
    EXPECT_TRUE(kvtest::SameCalls(Joined({c_enabled, c_queue}), kvtest::CallsOf(journal)));
    Clear();
    EXPECT_EQ(host->Preview().RunActions(), 1);
    EXPECT_EQ(Row().script.current, 1);
    EXPECT_EQ(Row().m_nCurItem, 0) << "only the end of an edit moves the current entry";
}

TEST_F(ListPreview, ActionRuns_WritesTheEntryInTheHostsRecording) {
    Row().script.onWrite = [&](int) { EXPECT_TRUE(kvedIsLivePreviewRecording()); };
    Hover(2);
    journal.Clear();
    kvtest::PumpWaiting();
    EXPECT_CALLS(journal, "runPreviewAction", "write 2", "kvedIsLivePreviewRecording");
}

TEST_F(ListPreview, OtherControl_IsNotHandled) {
    Hover(1, 1039);
    EXPECT_FALSE(handled);
    EXPECT_NO_CALLS(journal);
}

TEST_F(ListPreview, SameEntryAgain_AsksTheHostNothing) {
    HoverAndShow(1);
    Hover(1);
    Hover(1);
    EXPECT_NO_CALLS(journal);
    EXPECT_EQ(host->Preview().RunActions(), 1);
}

TEST_F(ListPreview, CurrentEntryFromTheStart_IsNoPreview) {
    Row().m_nPreviewItem = 0;
    Hover(0);
    EXPECT_NO_CALLS(journal);
}

TEST_F(ListPreview, BackOnTheCurrentEntry_EndsThePreview) {
    HoverAndShow(1);
    Hover(0);
    EXPECT_TRUE(kvtest::SameCalls(Joined({c_enabled, c_stop, {"endPreview"}}), kvtest::CallsOf(journal)));
    EXPECT_FALSE(kvedIsLivePreviewStarted());
    EXPECT_EQ(Row().m_nPreviewItem, 0);
}

TEST_F(ListPreview, OffTheList_EndsThePreviewAndForgetsTheEntry) {
    HoverAndShow(1);
    Hover(-1);
    EXPECT_TRUE(kvtest::SameCalls(Joined({c_enabled, c_stop, {"endPreview"}}), kvtest::CallsOf(journal)));
    EXPECT_EQ(Row().m_nPreviewItem, 0) << "the current entry";
    journal.Clear();
    Hover(-1);
    EXPECT_TRUE(kvtest::SameCalls(Joined({c_enabled, c_stop}), kvtest::CallsOf(journal)))
        << "there is no preview to end any more";
}

TEST_F(ListPreview, EntryWithDialog_IsNotShownAndEndsTheOneBefore) {
    Row().script.entryWithDialog = 2;
    HoverAndShow(1);
    Hover(2);
    EXPECT_TRUE(kvtest::SameCalls(Joined({c_enabled, c_stop, {"endPreview"}}), kvtest::CallsOf(journal)));
    Clear();
    EXPECT_EQ(host->Preview().RunActions(), 1);
}

TEST_F(ListPreview, FastSweep_RunsTheLastEntryOnly) {
    Hover(1);
    Hover(2);
    kvtest::PumpWaiting();
    EXPECT_EQ(host->Preview().RunActions(), 1);
    EXPECT_EQ(Row().script.current, 2);
}

TEST_F(ListPreview, VariableOff_MakesNoCallOfThePreview) {
    host->Variables().Set(L"PROPERTYPREVIEW", 0);
    Hover(1);
    EXPECT_CALLS(journal, "kvDocManagerPtr", "curDocument", "allowsLivePreview", "getBool PROPERTYPREVIEW");
    EXPECT_EQ(Row().m_nPreviewItem, 0);
}

TEST_F(ListPreview, VariableThatCannotBeRead_CountsAsOff) {
    kvhost::Faults::FailService(L"getBool", 0);
    EXPECT_FALSE(Row().IsPreviewEnabled());
}

TEST_F(ListPreview, OutsideBothPalettes_NeverPreviews) {
    CWnd other;
    const fw::WindowClass windowClass{.name = L"KvTestOtherPalette"};
    other.Create(windowClass, L"", WS_POPUP, {0, 0, 10, 10}, nullptr);
    host->Editor().SetPaletteWindow(KVED_FIRST_PALETTE, other);
    Hover(1);
    EXPECT_CALLS(journal, "kvDocManagerPtr", "curDocument", "allowsLivePreview", "getBool PROPERTYPREVIEW",
                 "kvedGetPaletteWnd 0", "kvedGetPaletteWnd 1");
    host->Editor().SetPaletteWindow(KVED_SECOND_PALETTE, frame);
    EXPECT_TRUE(Row().IsPreviewEnabled()) << "the second palette counts too";
}

TEST_F(ListPreview, WithoutDocumentStateObjectOrWindow_IsOff) {
    EXPECT_TRUE(Row().IsPreviewEnabled());
    document->SetQuiescent(false);
    EXPECT_FALSE(Row().IsPreviewEnabled()) << "the document is busy";
    document->SetQuiescent(true);
    host->Documents().SetCurrent(nullptr);
    EXPECT_FALSE(Row().IsPreviewEnabled()) << "no document is active";
    host->Documents().SetCurrent(document);
    fw::Ignore(Row().Cleanup());
    EXPECT_FALSE(Row().IsPreviewEnabled()) << "neither objects nor window are there";
    SelectObjects({object.Get()});
    EXPECT_FALSE(Row().IsPreviewEnabled()) << "the window is not there";
}

TEST_F(ListPreview, FirstObjectMissing_IsOff) {
    SelectObjects({nullptr, object.Get()});
    Row().m_state = EditState_NeverShown;
    Edit();
    EXPECT_FALSE(Row().IsPreviewEnabled());
}

TEST_F(ListPreview, Refresh_SetsThePreviewedEntryToTheCurrentOne) {
    HoverAndShow(2);
    Row().script.current = 1;
    EXPECT_EQ(Row().Handle_Refresh(), S_OK);
    EXPECT_EQ(Row().m_nPreviewItem, 1);
}

TEST_F(ListPreview, MessageToTheRowsWindow_IsAHover) {
    EXPECT_EQ(::SendMessageW(Window(), 1824, 1002, 1), 0);
    EXPECT_EQ(Row().m_nPreviewItem, 1);
    kvtest::PumpWaiting();
    EXPECT_EQ(host->Preview().RunActions(), 1);
}

TEST_F(ListPreview, MouseOverTheOpenList_ShowsOneEntryAfterTheOther) {
    Drop();
    Mouse(WM_MOUSEMOVE, 1);
    Mouse(WM_MOUSEMOVE, 1);
    EXPECT_EQ(host->Preview().RunActions(), 1);
    Mouse(WM_MOUSEMOVE, 2);
    EXPECT_EQ(host->Preview().RunActions(), 2);
    Mouse(WM_MOUSEMOVE, 0);
    EXPECT_FALSE(kvedIsLivePreviewStarted());
    Row().script.current = 0;
}

TEST_F(ListPreview, EndWithoutPreview_OnlyAsksWhetherThereIsOne) {
    EXPECT_EQ(Row().EndLivePreview(), S_OK);
    EXPECT_CALLS(journal, "kvedIsLivePreviewStarted");
}

TEST_F(ListPreview, End_TellsTheHostWhetherTheUserCancelled) {
    for (const BOOL cancelled : {FALSE, TRUE}) {
        Row().m_nPreviewItem = 0;
        HoverAndShow(1);
        Row().m_bCancelled = cancelled;
        EXPECT_EQ(Row().EndLivePreview(), S_OK);
        EXPECT_CALLS(journal, "kvedIsLivePreviewStarted", "kvDocManagerPtr", "curDocument",
                     "KvEdLivePreview 1", "abortAll", cancelled ? "endPreview 0 1" : "endPreview 0 0");
        EXPECT_FALSE(kvedIsLivePreviewStarted());
    }
}

TEST_F(ListPreview, ClickOnThePreviewedEntry_EndsThePreviewAndThenWrites) {
    HoverAndShow(1);
    List().SetCurSel(1);
    Notify(CBN_SELENDOK);
    EXPECT_EQ(kvtest::CallsOnly(journal, {"endPreview", "write"}), (CallLines{"endPreview 0 0", "write 1"}));
    EXPECT_EQ(Row().m_nCurItem, 1);
}

TEST_F(ListPreview, Escape_EndsThePreviewAsCancelledAndWritesNothing) {
    HoverAndShow(1);
    List().SetCurSel(1);
    Notify(CBN_SELENDCANCEL);
    kvtest::PumpWaiting();
    EXPECT_EQ(kvtest::CallsOnly(journal, {"endPreview", "write"}), (CallLines{"endPreview 0 1"}));
    EXPECT_EQ(Row().m_nCurItem, 0);
    EXPECT_EQ(List().GetCurSel(), 0);
}

TEST_F(ListPreview, LeavingTheRow_EndsThePreviewWithItsActions) {
    HoverAndShow(1);
    Hover(2);
    EXPECT_EQ(host->Preview().QueuedActions(), 1U);
    EXPECT_EQ(DoVerb(OLEIVERB_HIDE), S_OK);
    EXPECT_EQ(host->Preview().QueuedActions(), 0U);
    EXPECT_FALSE(kvedIsLivePreviewStarted());
}

TEST_F(ListPreview, FailedWrite_IsToldToTheHostAndRestoresTheRow) {
    Row().m_allowUnspecified = true;
    Row().script.onWrite = [&](int) { Row().m_allowUnspecified = false; };
    Row().script.writeResult = E_FAIL;
    CKvPeComboPreviewAction action(Row(), 1, nullptr);
    EXPECT_EQ(static_cast<int>(action.Execute()), 20118);
    EXPECT_TRUE(Row().m_allowUnspecified);
    Row().script.writeResult = S_OK;
    EXPECT_EQ(action.Execute(), Tolm::eOk);
    EXPECT_TRUE(Row().m_allowUnspecified);
    EXPECT_EQ(action.Reserved(), 0);
}

TEST_F(ListPreview, ActionWithValue_WritesTheValueInsteadOfAnEntry) {
    object->At(5).Set(L"old");
    CKvPeComboPreviewAction action(Row(), -1, std::make_unique<fw::Variant>(fw::Variant::FromString(L"new")));
    host->Editor().SetPreviewStarted(true);
    EXPECT_EQ(action.Execute(), Tolm::eOk);
    host->Editor().SetPreviewStarted(false);
    EXPECT_EQ(kvtest::CallsOnly(journal, {"write", "Invoke"}), (CallLines{"Invoke A put 5 \"new\""}));
}

TEST_F(ListPreview, RowGoesBeforeItsAction_TheActionDoesNothing) {
    auto action = std::make_unique<CKvPeComboPreviewAction>(Row(), 1, nullptr);
    Discard();
    journal.Clear();
    EXPECT_EQ(static_cast<int>(action->Execute()), 20118);
    EXPECT_NO_CALLS(journal);
}

TEST_F(ListPreview, Restorables_HoldWhetherTheUnspecifiedStateIsAllowed) {
    Row().m_allowUnspecified = true;
    KvRestorableSet restorables;
    EXPECT_EQ(Row().GetPreviewRestorables(restorables), S_OK);
    Row().m_allowUnspecified = false;
    EXPECT_EQ(Row().ReleasePreviewRestorables(restorables), S_OK);
    EXPECT_TRUE(Row().m_allowUnspecified);
    EXPECT_TRUE(static_cast<CKvPeComboBase&>(Row()).CKvPeComboBase::IsItemPreviewable(5));
}

TEST_F(ListPreview, CancelledEntry_IsShownAgain) {
    Drop();
    Mouse(WM_MOUSEMOVE, 2);
    EXPECT_CALLS(kvtest::CallsOnly(journal, {"write"}), "write 2");
    Key(VK_ESCAPE);
    Drop();
    Mouse(WM_MOUSEMOVE, 2);
    EXPECT_CALLS(kvtest::CallsOnly(journal, {"write"}), "write 2");
    Key(VK_ESCAPE);
}

TEST_F(ListPreview, RowIsLetGoWhileItShows_DrawingGetsItsStateBack) {
    HoverAndShow(1);
    EXPECT_TRUE(kvedIsLivePreviewStarted());
    shell->Release();
    shell = nullptr;
    EXPECT_FALSE(kvedIsLivePreviewStarted());
}

TEST_F(ListPreview, PaletteWindowEndsWhileItShows_DrawingGetsItsStateBack) {
    HoverAndShow(1);
    frame.DestroyWindow();
    kvtest::PumpWaiting();
    Discard();
    EXPECT_FALSE(kvedIsLivePreviewStarted());
}

TEST_F(ListPreview, WriteLeadsThePaletteToLetTheRowGo_ActionEndsInPeace) {
    ULONG left = 0;
    Row().script.onWrite = [&](int) {
        CComObject<kvtest::ListShell>* const gone = std::exchange(shell, nullptr);
        EXPECT_EQ(gone->Close(OLECLOSE_NOSAVE), S_OK);
        EXPECT_EQ(gone->SetClientSite(nullptr), S_OK);
        left = gone->Release();
    };
    EXPECT_EQ(Hover(1), S_OK);
    kvtest::PumpWaiting();
    EXPECT_EQ(shell, nullptr);
    EXPECT_GT(left, 0U) << "the action holds the row that it writes by";
}

}  // namespace
