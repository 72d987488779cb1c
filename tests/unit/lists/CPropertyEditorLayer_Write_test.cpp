#include "host_sdk/KvEdServices.h"
#include "refhost/db/DrawingFile.h"
#include "refhost/db/UndoController.h"
#include "refhost/editor/LivePreview.h"
#include "refhost/testing/Answers.h"
#include "tests/unit/lists/LayerBench.h"

// What a choice in a layer row does to the objects, and in which order host and palette hear of it.

namespace {

using kvhost::Layer;
using kvtest::CallLines;

class LayerWrite : public kvtest::LayerBench {
protected:
    LayerWrite() : first(AddEntity(L"Doors")), second(AddEntity(L"Doors")) {
        EXPECT_EQ(Select({first, second}), S_OK);
        Edit();
        before = kvhost::QdfContent(Drawing());
        steps = Drawing().Undo().UndoCount();
    }
    ~LayerWrite() override { kvhost::Answers::Reset(); }

    /// Marks, undo groups, preview, events: what brackets a write, without looking and opening.
    CallLines Brackets() {
        return kvtest::CallsOnly(
            journal, {"kvedSendModeless", "undoGroup", "KvEdLivePreview", "abortAll", "queueAction",
                      "endPreview", "runPreviewAction", "OnBegin", "OnEnd"});
    }
    void ExpectTrueDrawing() { EXPECT_EQ(kvhost::QdfContent(Drawing()), before); }

    KvDbObjectId first;
    KvDbObjectId second;
    std::string before;
    int steps = 0;
};

TEST_F(LayerWrite, Choice_IsWrittenToAllObjectsAsOneStep) {
    Choose(L"Walls");
    EXPECT_EQ(LayerOf(first), L"Walls");
    EXPECT_EQ(LayerOf(second), L"Walls");
    EXPECT_EQ(Brackets(),
              (CallLines{"kvedSendModelessOperationStart ZRB_CHGPROP", "undoGroup 8 Property change",
                         "OnBeginPropertyUpdate", "undoGroup 16 null",
                         "kvedSendModelessOperationEnded ZRB_CHGPROP", "OnEndPropertyUpdate"}));
    EXPECT_EQ(Drawing().Undo().UndoCount(), steps + 1);
    EXPECT_EQ(Drawing().Undo().UndoByUser(1), Tolm::eOk);
    ExpectTrueDrawing();
}

TEST_F(LayerWrite, FrozenOrOffLayer_IsBracketedByItsOwnMark) {
    Freeze(L"Walls");
    ChangeLayer(L"Trees", [](Layer& layer) { layer.SetOn(false); });
    for (const wchar_t* const name : {L"Walls", L"Trees"}) {
        journal.Clear();
        Choose(name);
        EXPECT_EQ(LayerOf(first), name);
        const CallLines calls = Brackets();
        ASSERT_GE(calls.size(), 2U);
        EXPECT_EQ(calls.front(), "kvedSendModelessOperationStart ZRB_CHGLAYER");
        EXPECT_EQ(calls[1], "kvedSendModelessOperationStart ZRB_CHGPROP");
        EXPECT_EQ(calls.back(), "kvedSendModelessOperationEnded ZRB_CHGLAYER");
        EXPECT_EQ(host->Editor().OpenMarks(), 0);
    }
}

TEST_F(LayerWrite, FrozenLayerWhileAPreviewRecords_SendsNeitherMark) {
    Freeze(L"Walls");
    Clear();
    Hover(IndexOf(L"Walls"));
    EXPECT_EQ(LayerOf(first), L"Walls");
    EXPECT_TRUE(kvtest::CallsOnly(journal, {"kvedSendModelessOperationStart ZRB_CHGLAYER",
                                            "kvedSendModelessOperationEnded ZRB_CHGLAYER"})
                    .empty());
    Hover(-1);
    EXPECT_EQ(LayerOf(first), L"Doors");
}

TEST_F(LayerWrite, Preview_ShowsOnTheDrawingWithItsOwnMarkAndNothingElse) {
    Clear();
    Hover(IndexOf(L"Walls"));
    EXPECT_EQ(LayerOf(first), L"Walls");
    EXPECT_EQ(LayerOf(second), L"Walls");
    EXPECT_EQ(Brackets(), (CallLines{"KvEdLivePreview 0", "abortAll", "queueAction", "runPreviewAction",
                                     "kvedSendModelessOperationStart ZRB_CHGPROP_PREVIEW",
                                     "kvedSendModelessOperationEnded ZRB_CHGPROP_PREVIEW"}));
    EXPECT_EQ(Drawing().Undo().UndoCount(), steps);
    EXPECT_EQ(Row().m_nCurItem, IndexOf(L"Doors"));
    Hover(-1);
    ExpectTrueDrawing();
}

TEST_F(LayerWrite, OpenedHoveredOverThreeLeftAndCommitted_CallsInOrder) {
    Clear();
    List().ShowDropDown();
    for (const wchar_t* const name : {L"Trees", L"Walls", L"0"}) {
        Hover(IndexOf(name));
        EXPECT_EQ(LayerOf(first), name);
    }
    Hover(-1);
    ExpectTrueDrawing();
    Choose(L"Walls");
    CallLines expected;
    for (int entry = 0; entry < 3; ++entry) {
        expected.insert(expected.end(), {"KvEdLivePreview 0", "abortAll", "queueAction", "runPreviewAction",
                                         "kvedSendModelessOperationStart ZRB_CHGPROP_PREVIEW",
                                         "kvedSendModelessOperationEnded ZRB_CHGPROP_PREVIEW"});
    }
    expected.insert(
        expected.end(),
        {"KvEdLivePreview 1", "abortAll", "endPreview", "kvedSendModelessOperationStart ZRB_CHGPROP",
         "undoGroup 8 Property change", "OnBeginPropertyUpdate", "undoGroup 16 null",
         "kvedSendModelessOperationEnded ZRB_CHGPROP", "OnEndPropertyUpdate"});
    EXPECT_TRUE(kvtest::SameCalls(expected, Brackets()));
    EXPECT_EQ(LayerOf(first), L"Walls");
    EXPECT_EQ(Drawing().Undo().UndoCount(), steps + 1);
}

TEST_F(LayerWrite, OpenedHoveredOverThreeAndCancelled_CallsInOrder) {
    Clear();
    List().ShowDropDown();
    for (const wchar_t* const name : {L"Trees", L"Walls", L"0"}) {
        Hover(IndexOf(name));
    }
    Cancel();
    CallLines expected;
    for (int entry = 0; entry < 3; ++entry) {
        expected.insert(expected.end(), {"KvEdLivePreview 0", "abortAll", "queueAction", "runPreviewAction",
                                         "kvedSendModelessOperationStart ZRB_CHGPROP_PREVIEW",
                                         "kvedSendModelessOperationEnded ZRB_CHGPROP_PREVIEW"});
    }
    expected.insert(expected.end(), {"KvEdLivePreview 1", "abortAll", "endPreview 0 1"});
    EXPECT_TRUE(kvtest::SameCalls(expected, Brackets()));
    ExpectTrueDrawing();
    EXPECT_EQ(Drawing().Undo().UndoCount(), steps);
}

TEST_F(LayerWrite, ClickOnThePreviewedEntry_EndsThePreviewAndThenWrites) {
    Hover(IndexOf(L"Walls"));
    Clear();
    Choose(L"Walls");
    const CallLines calls = Brackets();
    ASSERT_GE(calls.size(), 4U);
    EXPECT_EQ((CallLines{calls.begin(), calls.begin() + 4}),
              (CallLines{"KvEdLivePreview 1", "abortAll", "endPreview 0 0",
                         "kvedSendModelessOperationStart ZRB_CHGPROP"}));
    EXPECT_EQ(LayerOf(first), L"Walls");
    EXPECT_EQ(Drawing().Undo().UndoByUser(1), Tolm::eOk);
    ExpectTrueDrawing();
}

TEST_F(LayerWrite, LockedObjects_AreRefusedAndTheRowShowsTheirLayer) {
    ChangeLayer(L"Doors", [](Layer& layer) { layer.SetLocked(true); });
    before = kvhost::QdfContent(Drawing());
    Clear();
    Choose(L"Walls");
    EXPECT_EQ(LayerOf(first), L"Doors");
    ExpectTrueDrawing();
    EXPECT_EQ(host->Editor().OpenMarks(), 0);
    EXPECT_EQ(Drawing().Undo().OpenGroups(), 0);
}

TEST_F(LayerWrite, ExternalLayerChosen_WritesNothingAndTheShownLayerIsBack) {
    ChangeLayer(L"Walls", [](Layer& layer) { layer.SetExternal(true); });
    before = kvhost::QdfContent(Drawing());
    Row().m_state = EditState_Shown;
    Edit();
    Choose(L"Walls");
    EXPECT_EQ(Brackets(), CallLines());
    EXPECT_TRUE(kvhost::Answers::TakeShown().empty()) << "nobody is told";
    ExpectTrueDrawing();
    EXPECT_EQ(List().GetCurSel(), IndexOf(L"Doors"));
    EXPECT_EQ(Row().m_strText, L"Doors");
}

TEST_F(LayerWrite, DragRunning_RefusesTheChoice) {
    host->Editor().SetDragging(true);
    Clear();
    Hover(IndexOf(L"Trees"));
    EXPECT_EQ(host->Preview().RunActions(), 0) << "no preview during a drag";
    EXPECT_EQ(Row().SetSelectedItem(IndexOf(L"Walls")), E_FAIL);
    host->Editor().SetDragging(false);
    ExpectTrueDrawing();
    EXPECT_FALSE(kvhost::Answers::TakeShown().empty()) << "the user is told";
    EXPECT_EQ(host->Editor().OpenMarks(), 0);
}

TEST_F(LayerWrite, NoEntryOrNoItem_WritesNothing) {
    EXPECT_EQ(Row().SetSelectedItem(-1), E_FAIL);
    EXPECT_EQ(Row().SetSelectedItem(99), E_FAIL);
    ExpectTrueDrawing();
}

TEST_F(LayerWrite, ValueVariesAndAPreviewIsCancelled_TheVariesEntryIsStillThere) {
    EXPECT_EQ(Select({first, AddEntity(L"Trees")}), S_OK);
    before = kvhost::QdfContent(Drawing());
    const int count = List().GetCount();
    Hover(IndexOf(L"Walls"));
    Cancel();
    ExpectTrueDrawing();
    Row().m_state = EditState_Shown;
    Edit();
    EXPECT_EQ(List().GetCount(), count);
}

}  // namespace
