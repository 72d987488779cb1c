#include "host_sdk/KvEdServices.h"
#include "refhost/automation/LiveObject.h"
#include "refhost/automation/PropertyRows.h"
#include "refhost/db/DrawingFile.h"
#include "refhost/db/Layer.h"
#include "refhost/db/ScopedOpen.h"
#include "refhost/db/Text.h"
#include "refhost/db/UndoController.h"
#include "refhost/testing/Answers.h"
#include "tests/control/support/RowContainer.h"
#include "tests/control/support/UserInput.h"

// List rows over two texts of a drawing in a palette of the host, worked by mouse and keyboard: every call
// and event that this leads to, in order.

namespace {

using kvtest::CallLines;

// Handles of what the tests make in a new drawing.
const std::string c_formerLayer = "11";
const std::string c_texts[] = {"14", "15"};

CallLines operator+(CallLines first, const CallLines& second) {
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

/// One object is asked whether it takes a value, and takes it.
CallLines WriteTo(const std::string& object, const std::string& put) {
    return {"GetObjectId " + object,
            "kvdbOpenKvDbEntity " + object + " 0",
            "kvdbOpenKvDbObject " + c_formerLayer + " 0",
            "isLocked " + c_formerLayer,
            "close " + c_formerLayer,
            "kvdbWorkingGlobals",
            "getActiveTransaction",
            "close " + object,
            "kvedDisableUsrbrk",
            "Invoke " + object + " put " + put,
            "Update " + object,
            "kvedEnableUsrbrk"};
}

/// It lies on a locked layer and is left out.
CallLines PassOver(const std::string& object) {
    return {"GetObjectId " + object,
            "kvdbOpenKvDbEntity " + object + " 0",
            "kvdbOpenKvDbObject " + c_formerLayer + " 0",
            "isLocked " + c_formerLayer,
            "close " + c_formerLayer,
            "close " + object};
}

CallLines WriteToAll(const std::string& put) {
    return WriteTo(c_texts[0], put) + WriteTo(c_texts[1], put);
}

const CallLines c_askWhetherPreviewsAreOn = {"kvDocManagerPtr", "curDocument", "allowsLivePreview",
                                             "getBool PROPERTYPREVIEW", "kvedGetPaletteWnd 0"};

/// An entry is rested on; `look` is what the row asks before its write.
CallLines Shown(const std::string& put, const CallLines& look = {}) {
    return c_askWhetherPreviewsAreOn + CallLines{"kvDocManagerPtr", "curDocument", "KvEdLivePreview 0",
                                                 "abortAll",        "queueAction", "runPreviewAction"} +
           look +
           CallLines{"kvedIsDragging",
                     "kvedIsLivePreviewStarted",
                     "kvDocManagerPtr",
                     "curDocument",
                     "database",
                     "kvedIsLivePreviewStarted",
                     "kvedIsLivePreviewRecording",
                     "kvedSendModelessOperationStart ZRB_CHGPROP_PREVIEW"} +
           WriteToAll(put) +
           CallLines{"kvedIsLivePreviewStarted", "kvedIsLivePreviewRecording",
                     "kvedSendModelessOperationEnded ZRB_CHGPROP_PREVIEW", "kvedIsLivePreviewRecording"};
}

const CallLines c_left = c_askWhetherPreviewsAreOn + CallLines{"kvDocManagerPtr",          "curDocument",
                                                               "KvEdLivePreview 1",        "abortAll",
                                                               "kvedIsLivePreviewStarted", "endPreview"};

/// The list ends while an entry is shown.
CallLines PreviewEnded(bool cancelled) {
    return {"kvedIsLivePreviewStarted", "kvDocManagerPtr", "curDocument",
            "KvEdLivePreview 1",        "abortAll",        cancelled ? "endPreview 0 1" : "endPreview 0 0"};
}

CallLines Written(const CallLines& objects) {
    return CallLines{"kvedIsDragging",
                     "kvedIsLivePreviewStarted",
                     "kvedIsInCommandStack 134217728",
                     "kvDocManagerPtr",
                     "curDocument",
                     "database",
                     "kvedIsLivePreviewStarted",
                     "kvedSendModelessOperationStart ZRB_CHGPROP",
                     "kvDocManagerPtr",
                     "curDocument",
                     "database",
                     "undoController",
                     "undoGroup 8 Property change",
                     "kvedIsLivePreviewRecording",
                     "OnBeginPropertyUpdate"} +
           objects +
           CallLines{"kvedIsLivePreviewStarted",
                     "kvDocManagerPtr",
                     "curDocument",
                     "database",
                     "undoController",
                     "undoGroup 16 null",
                     "kvedSendModelessOperationEnded ZRB_CHGPROP",
                     "enableProgressMeter 0",
                     "isQuiescent",
                     "kvedPostCommandPrompt"};
}

const CallLines c_updateEnded = {"kvedIsLivePreviewRecording", "OnEndPropertyUpdate",
                                 "kvedIsLivePreviewRecording"};

class ListPreview : public kvtest::RowContainer {
protected:
    ListPreview() {
        host->Editor().SetPaletteWindow(KVED_FIRST_PALETTE, frame);
        for (const wchar_t* const name : {L"Doors", L"Trees", L"Walls"}) {
            KvDbObjectId id;
            EXPECT_EQ(Drawing().AddLayer(name, id), Tolm::eOk);
        }
        for (KvDbObjectId& id : ids) {
            auto text = std::make_unique<kvhost::Text>();
            EXPECT_EQ(text->SetLayerId(Drawing().LayerNamed(L"Doors")), Tolm::eOk);
            EXPECT_EQ(Drawing().AppendEntity(std::move(text), id), Tolm::eOk);
        }
    }
    ~ListPreview() override {
        Discard();
        kvhost::Answers::Reset();
        EXPECT_EQ(kvhost::LiveObject::Count(), 0);
        EXPECT_EQ(host->Editor().OpenMarks(), 0);
    }

    [[nodiscard]] kvhost::Database& Drawing() { return document->GetDatabase(); }
    template <class Change>
    void ChangeLayer(const wchar_t* name, const Change& change) {
        const kvhost::ScopedOpen<kvhost::Layer> layer(Drawing().LayerNamed(name), KvDb::kForWrite);
        ASSERT_TRUE(static_cast<bool>(layer));
        change(*layer);
    }

    /// A row over both texts, its list open.
    void OpenList(const CLSID& classId, DISPID property) {
        Create(classId);
        ASSERT_EQ(DoVerb(OLEIVERB_INPLACEACTIVATE), S_OK);
        GiveFont();
        fw::ComPtr<IDispatch> drawn[2];
        ASSERT_EQ(kvhost::GetAutomationObject(ids[0], drawn[0].Put()), S_OK);
        ASSERT_EQ(kvhost::GetAutomationObject(ids[1], drawn[1].Put()), S_OK);
        dispid = property;
        ASSERT_EQ(InitEdit({drawn[0].Get(), drawn[1].Get()}), S_OK);
        UIActivate();
        kvtest::PressKey(VK_F4);
        ASSERT_TRUE(::IsWindowVisible(List()));
        Drawing().Undo().Clear();
        trueDrawing = Drawn();
        Clear();
    }
    void OpenAlignments() { OpenList(CLSID_KvPePropertyEditorEnum, 237); }
    void OpenLayers() { OpenList(CLSID_KvPePropertyEditorLayer, 102); }

    [[nodiscard]] HWND List() const {
        COMBOBOXINFO info{};
        info.cbSize = sizeof(info);
        ::GetComboBoxInfo(Box(1002), &info);
        return info.hwndList;
    }
    [[nodiscard]] POINT PlaceOf(int entry) const {
        RECT bounds{};
        ::SendMessageW(List(), LB_GETITEMRECT, static_cast<WPARAM>(entry), reinterpret_cast<LPARAM>(&bounds));
        return {bounds.left + 5, (bounds.top + bounds.bottom) / 2};
    }
    void HoverOver(int entry) { kvtest::MovePointerTo(List(), PlaceOf(entry)); }
    void LeaveList() { kvtest::MovePointerTo(elsewhere, {5, 5}); }
    void Press(int entry) { kvtest::ClickAt(List(), PlaceOf(entry)); }
    [[nodiscard]] std::string Drawn() { return kvhost::QdfContent(Drawing()); }
    [[nodiscard]] std::wstring LayerOf(int text) const {
        return kvhost::Database::PeekAs<kvhost::Entity>(ids[text])->LayerName();
    }
    void ExpectCalls(const CallLines& expected) {
        EXPECT_TRUE(kvtest::SameCalls(expected, kvtest::CallsOf(journal)));
        Clear();
    }
    void ExpectTrueDrawing() {
        EXPECT_TRUE(Drawn() == trueDrawing);
        EXPECT_EQ(Drawing().Undo().UndoCount(), 0);
    }
    void ExpectOneStep() {
        EXPECT_EQ(Drawing().Undo().UndoCount(), 1);
        EXPECT_EQ(Drawing().Undo().UndoByUser(1), Tolm::eOk);
        EXPECT_TRUE(Drawn() == trueDrawing);
    }

    KvDbObjectId ids[2];
    std::string trueDrawing;
};

CallLines EntriesAreGathered() {
    CallLines calls{"GetPredefinedStrings 14 237"};
    for (int entry = 0; entry < 12; ++entry) {
        calls.push_back("GetPredefinedValue 14 237 " + std::to_string(entry));
    }
    return calls;
}

TEST_F(ListPreview, Values_HoveredOverThreeLeftAndChosen_CallsAndEventsInOrder) {
    OpenAlignments();
    for (const int entry : {2, 4, 1}) {
        HoverOver(entry);
        ExpectCalls(Shown("237 i4:" + std::to_string(entry)));
    }
    LeaveList();
    ExpectCalls(c_left);
    ExpectTrueDrawing();
    Press(4);
    ExpectCalls(Shown("237 i4:4") + PreviewEnded(false) + Written(WriteToAll("237 i4:4")) + c_updateEnded +
                EntriesAreGathered() + CallLines{"kvedIsLivePreviewStarted"});
    ExpectOneStep();
}

TEST_F(ListPreview, Values_HoveredOverThreeAndCancelled_CallsAndEventsInOrder) {
    OpenAlignments();
    for (const int entry : {2, 4, 1}) {
        HoverOver(entry);
    }
    Clear();
    kvtest::PressKey(VK_ESCAPE);
    ExpectCalls(PreviewEnded(true));
    ExpectTrueDrawing();
}

/// The row looks whether a layer is frozen or off.
CallLines LayerIsLookedAt(const std::string& handle, const std::string& name) {
    return {"kvdbOpenKvDbObject 1 0", "getAt " + name + " 0", "isFrozen " + handle,
            "isOff " + handle,        "close " + handle,      "close 1"};
}

TEST_F(ListPreview, Layers_HoveredOverThreeLeftAndChosen_CallsAndEventsInOrder) {
    OpenLayers();
    HoverOver(2);
    EXPECT_EQ(LayerOf(0), L"Trees");
    ExpectCalls(Shown("102 \"Trees\"", LayerIsLookedAt("12", "Trees")));
    HoverOver(0);
    ExpectCalls(Shown("102 \"0\"", LayerIsLookedAt("10", "0")));
    HoverOver(3);
    ExpectCalls(Shown("102 \"Walls\"", LayerIsLookedAt("13", "Walls")));
    LeaveList();
    ExpectCalls(c_left);
    ExpectTrueDrawing();
    Press(3);
    ExpectCalls(Shown("102 \"Walls\"", LayerIsLookedAt("13", "Walls")) + PreviewEnded(false) +
                LayerIsLookedAt("13", "Walls") + Written(WriteToAll("102 \"Walls\"")) + c_updateEnded +
                CallLines{"kvedIsLivePreviewStarted"});
    EXPECT_EQ(LayerOf(1), L"Walls");
    ExpectOneStep();
}

TEST_F(ListPreview, Layers_HoveredOverThreeAndCancelled_CallsAndEventsInOrder) {
    OpenLayers();
    for (const int entry : {2, 0, 3}) {
        HoverOver(entry);
    }
    Clear();
    kvtest::PressKey(VK_ESCAPE);
    ExpectCalls(PreviewEnded(true));
    ExpectTrueDrawing();
}

TEST_F(ListPreview, FrozenLayer_IsMarkedWhenItIsChosenAndNotWhenItIsShown) {
    ChangeLayer(L"Trees", [](kvhost::Layer& layer) { layer.SetFrozen(true); });
    OpenLayers();
    const CallLines look{"kvdbOpenKvDbObject 1 0",    "getAt Trees 0", "isFrozen 12", "close 12", "close 1",
                         "kvedIsLivePreviewRecording"};
    HoverOver(2);
    CallLines shown = Shown("102 \"Trees\"", look);
    shown.push_back("kvedIsLivePreviewRecording");
    ExpectCalls(shown);
    Press(2);
    ExpectCalls(PreviewEnded(false) + look + CallLines{"kvedSendModelessOperationStart ZRB_CHGLAYER"} +
                Written(WriteToAll("102 \"Trees\"")) + c_updateEnded +
                CallLines{"kvedIsLivePreviewRecording", "kvedSendModelessOperationEnded ZRB_CHGLAYER",
                          "kvedIsLivePreviewStarted"});
    ExpectOneStep();
}

TEST_F(ListPreview, LayerIsLockedUnderTheOpenList_ChoicePassesTheTextsOver) {
    OpenLayers();
    ChangeLayer(L"Doors", [](kvhost::Layer& layer) { layer.SetLocked(true); });
    trueDrawing = Drawn();
    Drawing().Undo().Clear();
    LeaveList();
    Clear();
    ::SendMessageW(Box(1002), CB_SETCURSEL, 3, 0);
    kvtest::PressKey(VK_RETURN);
    ExpectCalls(CallLines{"kvedIsLivePreviewStarted"} + LayerIsLookedAt("13", "Walls") +
                Written(PassOver(c_texts[0]) + PassOver(c_texts[1])) +
                CallLines{"kvedSendModelessOperationEnded ZRB_CHGSELECTION"} + c_updateEnded);
    EXPECT_TRUE(kvhost::Answers::TakeShown().empty());
    ExpectTrueDrawing();
}

TEST_F(ListPreview, TextsOnALockedLayer_RowShowsNoList) {
    ChangeLayer(L"Doors", [](kvhost::Layer& layer) { layer.SetLocked(true); });
    Create(CLSID_KvPePropertyEditorLayer);
    ASSERT_EQ(DoVerb(OLEIVERB_INPLACEACTIVATE), S_OK);
    fw::ComPtr<IDispatch> drawn;
    ASSERT_EQ(kvhost::GetAutomationObject(ids[0], drawn.Put()), S_OK);
    dispid = 102;
    ASSERT_EQ(InitEdit({drawn.Get()}), S_OK);
    UIActivate();
    EXPECT_FALSE(::IsWindowVisible(Box(1002)));
}

TEST_F(ListPreview, HostDrags_NothingIsShownAndAChoiceIsRefused) {
    OpenLayers();
    host->Editor().SetDragging(true);
    HoverOver(2);
    EXPECT_EQ(LayerOf(0), L"Doors");
    Clear();
    Press(2);
    host->Editor().SetDragging(false);
    EXPECT_CALLS(
        kvtest::CallsOnly(journal, {"kvedSendModeless", "undoGroup", "Invoke 14 put", "Invoke 15 put",
                                    "OnBegin", "OnEnd", "LoadFromFile", "kvedIsDragging"}),
        "kvedIsDragging",
        "LoadFromFile /KvTaskDialogs;component/TaskDialogs.xaml ZRB.KvPEXCtl.CannotModifyProperty");
    EXPECT_EQ(kvhost::Answers::TakeShown().size(), 1U) << "the user is told";
    ExpectTrueDrawing();
    EXPECT_EQ(::SendMessageW(Box(1002), CB_GETCURSEL, 0, 0), 1);
}

}  // namespace
