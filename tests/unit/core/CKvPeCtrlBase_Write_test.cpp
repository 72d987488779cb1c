#include <cwchar>

#include "framework/window/CWnd.h"
#include "framework/window/MainWindow.h"
#include "refhost/db/UndoController.h"
#include "refhost/db/WorkingSet.h"
#include "refhost/testing/Answers.h"
#include "refhost/testing/Faults.h"
#include "tests/unit/core/ControlBench.h"

namespace {

using kvhost::ScriptedDynamicProperty;
using kvhost::ScriptedObject;
using kvtest::c_property;
using kvtest::EditCalls;
using kvtest::SelectionArrays;

class CKvPeCtrlBase_Write : public kvtest::ControlTest {
protected:
    // What an entry of the list or the box is asked beside the write.
    class Role final : public CKvPeFamilyRole {
    public:
        bool hasChoice = false;
        void PresetText(const CString& text) override { kvtest::Note(L"PresetText", text.Std()); }
        void PresetNumber(int number) override { kvtest::Note(L"PresetNumber", number); }
        bool GetChosenEntryText(CString& text) override {
            text = L"entry";
            return hasChoice;
        }
    };

    void GiveIdentifier() {
        identifier = kvtest::FakeIdentifier::Make();
        EXPECT_EQ(control.Handle_PutPropertyIdentifier(identifier.Get()), S_OK);
    }

    fw::ComPtr<kvtest::FakeIdentifier> identifier;
    Role role;
};

// Arguments

TEST_F(CKvPeCtrlBase_Write, NullValue_ReturnsPointerErrorAndDoesNothing) {
    Select(SelectionArrays().Add(&MakeObject(L"A")));
    EXPECT_EQ(control.SetPropertyValue(nullptr, ValueType_Specific), E_POINTER);
    EXPECT_NO_CALLS(journal);
}

TEST_F(CKvPeCtrlBase_Write, TypesThatCannotBeWritten_ReturnArgumentErrorAndDoNothing) {
    Select(SelectionArrays().Add(&MakeObject(L"A")));
    EXPECT_EQ(WriteText(L"new", ValueType_Varies), E_INVALIDARG);
    EXPECT_EQ(WriteText(L"new", static_cast<ValueType>(4)), E_INVALIDARG);
    EXPECT_EQ(WriteText(L"new", static_cast<ValueType>(-1)), E_INVALIDARG);
    EXPECT_NO_CALLS(journal);
}

TEST_F(CKvPeCtrlBase_Write, BeforeInit_WritesNothingAndSucceeds) {
    EXPECT_EQ(WriteText(L"new"), S_OK);
    EXPECT_CALLS(EditCalls(journal), "kvedSendModelessOperationStart ZRB_CHGPROP",
                 "undoGroup 8 Property change", "OnBeginPropertyUpdate", "undoGroup 16 null",
                 "kvedSendModelessOperationEnded ZRB_CHGPROP", "enableProgressMeter 0",
                 "kvedPostCommandPrompt", "OnEndPropertyUpdate");
}

// A whole edit

TEST_F(CKvPeCtrlBase_Write, WholeEdit_CallsHostAndPaletteInOrder) {
    control.notesHooks = true;
    control.SetFamilyRole(&role);
    role.hasChoice = true;
    GiveIdentifier();
    Select(SelectionArrays()
               .Add(&MakeObject(L"A", L"old", kvhost::OffersUpdate))
               .AddDynamic(&MakeObject(L"B"), &MakeProperty(L"P", kvhost::OffersByObject)));
    EXPECT_EQ(WriteText(L"new"), S_OK);
    EXPECT_CALLS(
        journal, "kvedIsDragging",                                                                    //
        "kvedIsLivePreviewStarted", "kvedIsInCommandStack 134217728",                                 //
        "kvDocManagerPtr", "curDocument", "database",                                                 //
        "kvedIsLivePreviewStarted", "kvedSendModelessOperationStart ZRB_CHGPROP", "kvDocManagerPtr",  //
        "curDocument", "database", "undoController", "undoGroup 8 Property change",                   //
        "OnBeginPropertyUpdate",                                                                      //
        "PreSet A 5", "kvedDisableUsrbrk", "Invoke A put 5 \"new\"", "Update A", "kvedEnableUsrbrk",  //
        "PreSet B -23", "SetCurrentValueData P B \"new\"",                                            //
        "kvedIsLivePreviewStarted", "kvDocManagerPtr", "curDocument", "database", "undoController",   //
        "undoGroup 16 null", "kvedSendModelessOperationEnded ZRB_CHGPROP", "enableProgressMeter 0",   //
        "isQuiescent", "kvedPostCommandPrompt",                                                       //
        "kvedIsLivePreviewStarted", "PutCurrentValue \"new\"", "PutCurrentValueText entry",           //
        "OnEndPropertyUpdate");
    EXPECT_FALSE(kvhost::IsProgressMeterEnabled());
    EXPECT_EQ(host->Editor().OpenMarks(), 0);
    EXPECT_EQ(host->Editor().UserBreakDisabled(), 0);
}

TEST_F(CKvPeCtrlBase_Write, SameValueAndReadOnlyRow_AreWrittenLikeAnyOther) {
    Select(SelectionArrays().Add(&MakeObject(L"A")), VARIANT_TRUE);
    EXPECT_EQ(Read(), S_OK);
    ASSERT_TRUE(control.m_readOnly);
    EXPECT_EQ(WriteText(L"same"), S_OK);
    EXPECT_EQ(objects[0]->At(c_property).puts.size(), 1U);
}

TEST_F(CKvPeCtrlBase_Write, ResultsOfHookAndSinks_DoNotMatter) {
    control.preSetResult = E_ACCESSDENIED;
    shell.sinkResult = E_ACCESSDENIED;
    Select(SelectionArrays().Add(&MakeObject(L"A")));
    EXPECT_EQ(WriteText(L"new"), S_OK);
    EXPECT_EQ(objects[0]->At(c_property).puts.size(), 1U);
}

TEST_F(CKvPeCtrlBase_Write, WithoutShell_IsWrittenWithoutEvents) {
    kvtest::OpenControl alone(nullptr, nullptr);
    EXPECT_EQ(SelectionArrays().Add(&MakeObject(L"A")).Init(alone), S_OK);
    fw::Variant written = fw::Variant::FromString(L"new");
    EXPECT_EQ(alone.SetPropertyValue(written.Address(), ValueType_Specific), S_OK);
    EXPECT_EQ(objects[0]->At(c_property).puts.size(), 1U);
}

TEST_F(CKvPeCtrlBase_Write, NullObjectOfDispidEntry_IsPassedOver) {
    Select(SelectionArrays().Add(nullptr).Add(&MakeObject(L"B")));
    EXPECT_EQ(WriteText(L"new"), S_OK);
    EXPECT_EQ(objects[0]->At(c_property).puts.size(), 1U);
}

TEST_F(CKvPeCtrlBase_Write, SelectionEndsDuringWrite_StopsWithoutHarm) {
    Select(SelectionArrays().Add(&MakeObject(L"A")).Add(&MakeObject(L"B")));
    objects[0]->script.onCall = [&](const std::wstring&) { EXPECT_EQ(control.Cleanup(), S_OK); };
    EXPECT_EQ(WriteText(L"new"), S_OK);
    EXPECT_TRUE(objects[1]->At(c_property).puts.empty());
}

TEST_F(CKvPeCtrlBase_Write, SelectionEndsDuringWrite_ObjectsAreLetGoBehindIt) {
    ScriptedObject& object = MakeObject(L"A");
    const ULONG before = object.References();
    Select(SelectionArrays().Add(&object));
    const ULONG selected = object.References();
    object.script.onCall = [&](const std::wstring&) {
        EXPECT_EQ(control.Cleanup(), S_OK);
        EXPECT_GE(object.References(), selected);
    };
    EXPECT_EQ(WriteText(L"new"), S_OK);
    EXPECT_EQ(object.References(), before);
}

TEST_F(CKvPeCtrlBase_Write, LeavesReferencesBalanced) {
    ScriptedObject& object = MakeObject(L"A", L"old", kvhost::OffersUpdate | kvhost::OffersIdentity);
    ScriptedDynamicProperty& property = MakeProperty(L"P", kvhost::OffersByObject | kvhost::OffersById);
    Select(SelectionArrays().Add(&object).AddDynamic(&object, &property));
    const ULONG objectBefore = object.References();
    const ULONG propertyBefore = property.References();
    EXPECT_EQ(WriteText(L"new"), S_OK);
    EXPECT_EQ(object.References(), objectBefore);
    EXPECT_EQ(property.References(), propertyBefore);
}

// Refused as a whole

TEST_F(CKvPeCtrlBase_Write, Dragging_ShowsDialogAndWritesNothing) {
    ScriptedObject& object = MakeObject(L"A");
    MakeEntity(&object);
    Select(SelectionArrays().Add(&object));
    host->Editor().SetDragging(true);
    fw::Ignore(kvhost::Answers::TakeShown());  // of earlier tests
    EXPECT_EQ(WriteText(L"new"), E_FAIL);
    EXPECT_EQ(kvhost::Answers::TakeShown().size(), 1U);
    EXPECT_TRUE(object.At(c_property).puts.empty());
    EXPECT_CALLS(kvtest::CallsOnly(journal, {"On", "undoGroup", "kvedSend", "kvedIs", "Invoke"}),
                 "kvedIsDragging");
}

TEST_F(CKvPeCtrlBase_Write, DraggingObjectsOutsideTheDatabase_AreWritten) {
    Select(SelectionArrays().Add(&MakeObject(L"A")));
    host->Editor().SetDragging(true);
    EXPECT_EQ(WriteText(L"new"), S_OK);
    EXPECT_EQ(objects[0]->At(c_property).puts.size(), 1U);
}

// Locked objects

TEST_F(CKvPeCtrlBase_Write, LockedObject_IsSkippedSilentlyAndSelectionMarkEnds) {
    for (const wchar_t* const name : {L"A", L"B", L"C"}) {
        MakeEntity(&MakeObject(name));
    }
    for (std::size_t locked = 0; locked < 3; ++locked) {
        LockLayerOf(objects[locked]->objectId);
        SelectionArrays arrays;
        for (const auto& object : objects) {
            object->At(c_property).puts.clear();
            arrays.Add(object.Get());
        }
        Select(arrays);
        EXPECT_EQ(WriteText(L"new"), S_OK);
        std::size_t written = 0;
        for (std::size_t index = 0; index < 3; ++index) {
            written += objects[index]->At(c_property).puts.size();
            EXPECT_TRUE(index > locked || objects[index]->At(c_property).puts.empty());
        }
        EXPECT_EQ(written, 2 - locked);
        EXPECT_CALLS(kvtest::CallsOnly(journal, {"kvedSend", "MessageBox"}),
                     "kvedSendModelessOperationStart ZRB_CHGPROP",
                     "kvedSendModelessOperationEnded ZRB_CHGPROP",
                     "kvedSendModelessOperationEnded ZRB_CHGSELECTION");
        EXPECT_EQ(control.m_failedObjectCount, 0);
        EXPECT_EQ(control.Cleanup(), S_OK);
    }
}

TEST_F(CKvPeCtrlBase_Write, LockedLastObject_KeepsTheResultOfTheOneBefore) {
    MakeObject(L"A").At(c_property).putResult = E_ACCESSDENIED;
    ScriptedObject& locked = MakeObject(L"B");
    LockLayerOf(MakeEntity(&locked));
    Select(SelectionArrays().Add(objects[0].Get()).Add(&locked));
    EXPECT_EQ(WriteText(L"new"), E_ACCESSDENIED);
}

TEST_F(CKvPeCtrlBase_Write, LockedObjectWithoutDocument_SendsNoSelectionMark) {
    ScriptedObject& locked = MakeObject(L"A");
    LockLayerOf(MakeEntity(&locked));
    Select(SelectionArrays().Add(&locked));
    host->Documents().SetCurrent(nullptr);
    EXPECT_EQ(WriteText(L"new"), S_OK);
    EXPECT_TRUE(locked.At(c_property).puts.empty());
    EXPECT_CALLS(kvtest::CallsOnly(journal, {"kvedSend", "undoGroup", "kvedPost"}),
                 "kvedSendModelessOperationStart ZRB_CHGPROP", "kvedSendModelessOperationEnded ZRB_CHGPROP");
}

// The document

TEST_F(CKvPeCtrlBase_Write, WithoutDocument_BracketsNeitherUndoNorUserBreak) {
    host->Documents().SetCurrent(nullptr);
    Select(SelectionArrays().Add(&MakeObject(L"A")));
    EXPECT_EQ(WriteText(L"new"), S_OK);
    EXPECT_CALLS(EditCalls(journal), "kvedSendModelessOperationStart ZRB_CHGPROP", "OnBeginPropertyUpdate",
                 "Invoke A put 5 \"new\"", "kvedSendModelessOperationEnded ZRB_CHGPROP",
                 "enableProgressMeter 0", "OnEndPropertyUpdate");
}

TEST_F(CKvPeCtrlBase_Write, DrawingWithoutUndoRecord_OpensNoGroup) {
    Drawing().ShowUndoController(false);
    Select(SelectionArrays().Add(&MakeObject(L"A")));
    EXPECT_EQ(WriteText(L"new"), S_OK);
    EXPECT_TRUE(kvtest::CallsOnly(journal, {"undoGroup"}).empty());
    EXPECT_EQ(kvtest::CallsOnly(journal, {"kvedDisableUsrbrk", "kvedEnableUsrbrk"}).size(), 2U);
}

TEST_F(CKvPeCtrlBase_Write, BusyDocument_ShowsNoPrompt) {
    document->SetQuiescent(false);
    Select(SelectionArrays().Add(&MakeObject(L"A")));
    EXPECT_EQ(WriteText(L"new"), S_OK);
    EXPECT_TRUE(kvtest::CallsOnly(journal, {"kvedPostCommandPrompt"}).empty());
}

// The end of the group does not hang on finding the drawing a second time.
TEST_F(CKvPeCtrlBase_Write, DrawingNotFoundAtTheEnd_GroupIsEndedAllTheSame) {
    MakeObject(L"A");
    for (const wchar_t* const service :
         {L"kvDocManagerPtr", L"curDocument", L"database", L"undoController"}) {
        Select(SelectionArrays().Add(objects[0].Get()));
        shell.onEvent = [&](const std::wstring& event) {
            if (event == L"OnBeginPropertyUpdate") {
                kvhost::Faults::FailService(service, 0);
            }
        };
        EXPECT_EQ(WriteText(L"new"), S_OK);
        kvhost::Faults::Reset();
        EXPECT_CALLS(kvtest::CallsOnly(journal, {"undoGroup", "kvedSend"}),
                     "kvedSendModelessOperationStart ZRB_CHGPROP", "undoGroup 8 Property change",
                     "undoGroup 16 null", "kvedSendModelessOperationEnded ZRB_CHGPROP");
        EXPECT_EQ(Drawing().Undo().OpenGroups(), 0);
        EXPECT_EQ(control.Cleanup(), S_OK);
    }
}

TEST_F(CKvPeCtrlBase_Write, AnotherDrawingBecomesCurrent_GroupIsEndedWhereItWasBegun) {
    kvhost::Document& other = host->Documents().New();
    EXPECT_EQ(other.GetDatabase().Undo().BeginGroup(L"of somebody else"), Tolm::eOk);
    Select(SelectionArrays().Add(&MakeObject(L"A")));
    shell.onEvent = [&](const std::wstring&) { host->Documents().SetCurrent(&other); };
    EXPECT_EQ(WriteText(L"new"), S_OK);
    EXPECT_EQ(Drawing().Undo().OpenGroups(), 0);
    EXPECT_EQ(other.GetDatabase().Undo().OpenGroups(), 1);
    EXPECT_EQ(other.GetDatabase().Undo().EndGroup(), Tolm::eOk);
}

TEST_F(CKvPeCtrlBase_Write, GroupThatDidNotBegin_EndsInTheCurrentDrawing) {
    kvhost::Faults::FailService(L"undoGroup", 1);
    Select(SelectionArrays().Add(&MakeObject(L"A")));
    EXPECT_EQ(WriteText(L"new"), S_OK);
    kvhost::Faults::Reset();
    EXPECT_CALLS(kvtest::CallsOnly(journal, {"undoGroup"}), "undoGroup 8 Property change",
                 "undoGroup 16 null");
}

// Objects and hooks that throw

TEST_F(CKvPeCtrlBase_Write, ObjectThrows_OthersAreWrittenAndAllIsClosed) {
    for (const wchar_t* const operation : {L"Invoke", L"GetObjectId", L"Update", L"SetUnspecified"}) {
        for (std::size_t throwing = 0; throwing < 3; ++throwing) {
            objects.clear();
            SelectionArrays arrays;
            for (const wchar_t* const name : {L"A", L"B", L"C"}) {
                ScriptedObject& object = MakeObject(
                    name, L"old", kvhost::OffersIdentity | kvhost::OffersUpdate | kvhost::OffersUnspecified);
                object.At(c_property).unspecifiedAllowed = true;
                arrays.Add(&object);
            }
            control.m_allowUnspecified = true;
            Select(arrays);
            objects[throwing]->script.onCall = [&](const std::wstring& called) {
                if (called == operation) {
                    throw Tolm::eWasErased;
                }
            };
            // The last object's outcome counts, and one that cannot tell its id is written.
            const bool isRefused = throwing == 2 && std::wcscmp(operation, L"GetObjectId") != 0;
            EXPECT_EQ(WriteText(L"new"), isRefused ? E_FAIL : S_OK);
            for (std::size_t index = 0; index < 3; ++index) {
                EXPECT_TRUE(index == throwing || objects[index]->At(c_property).puts.size() == 1);
            }
            EXPECT_EQ(Drawing().Undo().OpenGroups(), 0);
            EXPECT_EQ(host->Editor().OpenMarks(), 0);
            EXPECT_EQ(host->Editor().UserBreakDisabled(), 0);
            EXPECT_CALLS(kvtest::CallsOnly(journal, {"On"}), "OnBeginPropertyUpdate", "OnEndPropertyUpdate");
            EXPECT_EQ(control.Cleanup(), S_OK);
        }
    }
}

TEST_F(CKvPeCtrlBase_Write, DynamicPropertyThrows_CountsAsFailureOfThatObject) {
    for (const unsigned form : {kvhost::OffersByObject, kvhost::OffersById}) {
        ScriptedDynamicProperty& throwing = MakeProperty(L"P", form);
        throwing.script.onCall = [](const std::wstring&) { throw 1; };
        ScriptedDynamicProperty& willing = MakeProperty(L"Q", form);
        ScriptedObject& object = MakeObject(L"A");
        Select(SelectionArrays().AddDynamic(&object, &throwing).AddDynamic(&object, &willing));
        EXPECT_EQ(WriteText(L"new"), S_OK);
        EXPECT_EQ(control.m_failedObjectCount, 1);
        EXPECT_EQ(willing.shared.puts.size(), 1U);
        EXPECT_EQ(control.Cleanup(), S_OK);

        Select(SelectionArrays().AddDynamic(&object, &throwing));
        EXPECT_EQ(WriteText(L"new"), E_FAIL);
        EXPECT_EQ(Drawing().Undo().OpenGroups(), 0);
        EXPECT_EQ(host->Editor().OpenMarks(), 0);
        EXPECT_EQ(control.Cleanup(), S_OK);
    }
}

TEST_F(CKvPeCtrlBase_Write, HookOrRecordThrows_ObjectIsWrittenAndAllIsClosed) {
    GiveIdentifier();
    identifier->throws = true;
    control.preSetThrows = true;
    Select(SelectionArrays().Add(&MakeObject(L"A")));
    EXPECT_EQ(WriteText(L"new"), S_OK);
    EXPECT_EQ(objects[0]->At(c_property).puts.size(), 1U);
    EXPECT_EQ(Drawing().Undo().OpenGroups(), 0);
    EXPECT_EQ(host->Editor().OpenMarks(), 0);
    EXPECT_CALLS(kvtest::CallsOnly(journal, {"On"}), "OnBeginPropertyUpdate", "OnEndPropertyUpdate");
}

class ActivationWindow final : public CWnd {
public:
    ~ActivationWindow() override { DestroyWindow(); }
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == WM_ACTIVATE) {
            kvtest::Note(L"WM_ACTIVATE", wParam, lParam);
            return 0;
        }
        return CWnd::WindowProc(message, wParam, lParam);
    }
};

TEST_F(CKvPeCtrlBase_Write, MainWindow_GetsTheActivationUnlessAnObjectWasLocked) {
    const fw::WindowClass windowClass{.name = L"KvTestMain"};
    ActivationWindow mainWindow;
    ASSERT_TRUE(mainWindow.Create(windowClass, L"", WS_POPUP, {0, 0, 10, 10}, nullptr));
    fw::SetMainWindow(mainWindow);
    Select(SelectionArrays().Add(&MakeObject(L"A")));
    EXPECT_EQ(WriteText(L"new"), S_OK);
    EXPECT_CALLS(kvtest::CallsOnly(journal, {"WM_ACTIVATE"}), "WM_ACTIVATE 1 0");
    EXPECT_EQ(control.Cleanup(), S_OK);

    ScriptedObject& locked = MakeObject(L"B");
    LockLayerOf(MakeEntity(&locked));
    Select(SelectionArrays().Add(&locked));
    EXPECT_EQ(WriteText(L"new"), S_OK);
    EXPECT_TRUE(kvtest::CallsOnly(journal, {"WM_ACTIVATE"}).empty());
    fw::SetMainWindow(nullptr);
}

// Live preview

TEST_F(CKvPeCtrlBase_Write, LivePreview_WritesWithoutGroupMarksAndPaletteRecord) {
    GiveIdentifier();
    Select(SelectionArrays().Add(&MakeObject(L"A")));
    host->Editor().SetPreviewStarted(true);
    EXPECT_EQ(WriteText(L"new"), S_OK);
    EXPECT_CALLS(EditCalls(journal), "OnBeginPropertyUpdate", "kvedDisableUsrbrk", "Invoke A put 5 \"new\"",
                 "kvedEnableUsrbrk", "OnEndPropertyUpdate");
}

// The palette's record

TEST_F(CKvPeCtrlBase_Write, Failure_IsNotToldToThePalettesRecord) {
    GiveIdentifier();
    MakeObject(L"A").At(c_property).putResult = E_ACCESSDENIED;
    Select(SelectionArrays().Add(objects[0].Get()));
    EXPECT_EQ(WriteText(L"new"), E_ACCESSDENIED);
    EXPECT_TRUE(kvtest::CallsOnly(journal, {"PutCurrentValue"}).empty());
}

TEST_F(CKvPeCtrlBase_Write, FamilyWithoutChoice_GivesTheRecordNoText) {
    GiveIdentifier();
    control.SetFamilyRole(&role);
    Select(SelectionArrays().Add(&MakeObject(L"A")));
    EXPECT_EQ(WriteText(L"new"), S_OK);
    EXPECT_CALLS(kvtest::CallsOnly(journal, {"PutCurrentValue"}), "PutCurrentValue \"new\"");
}

TEST_F(CKvPeCtrlBase_Write, RecordThatFails_DoesNotFailTheWrite) {
    GiveIdentifier();
    identifier->result = E_ACCESSDENIED;
    Select(SelectionArrays().Add(&MakeObject(L"A")));
    EXPECT_EQ(WriteText(L"new"), S_OK);
}

TEST_F(CKvPeCtrlBase_Write, Identifier_SecondPut_LeavesTheEarlierReference) {
    GiveIdentifier();
    const fw::ComPtr<kvtest::FakeIdentifier> earlier = identifier;
    const ULONG held = earlier->References();
    GiveIdentifier();
    EXPECT_EQ(earlier->References(), held - 1);  // the test's own copy moved on
    fw::ComPtr<IKvPiPropertyIdentifier> given;
    EXPECT_EQ(control.Handle_GetPropertyIdentifier(given.Put()), S_OK);
    EXPECT_EQ(given.Get(), identifier.Get());
    EXPECT_EQ(control.Handle_GetPropertyIdentifier(nullptr), E_POINTER);
    earlier->Release();
}

// Selections of every size

TEST_F(CKvPeCtrlBase_Write, SelectionsOfEverySizeAndKind_AreWrittenInOneGroup) {
    for (const int count : {1, 2, 3, 1000}) {
        objects.clear();
        properties.clear();
        SelectionArrays arrays;
        for (int index = 0; index < count; ++index) {
            ScriptedObject& object = MakeObject((L"O" + std::to_wstring(index)).c_str());
            const auto position = static_cast<std::size_t>(index);
            if (position % 3 == 0) {
                arrays.Add(&object);
            } else {
                arrays.AddDynamic(&object, &MakeProperty(L"P", position % 3 == 1 ? kvhost::OffersByObject
                                                                                 : kvhost::OffersById));
            }
        }
        Select(arrays);
        EXPECT_EQ(WriteText(L"new"), S_OK);
        EXPECT_EQ(kvtest::CallsOnly(journal, {"Invoke", "SetCurrentValueData"}).size(),
                  static_cast<std::size_t>(count));
        EXPECT_CALLS(kvtest::CallsOnly(journal, {"undoGroup", "On"}), "undoGroup 8 Property change",
                     "OnBeginPropertyUpdate", "undoGroup 16 null", "OnEndPropertyUpdate");
        EXPECT_EQ(control.Cleanup(), S_OK);
    }
}

TEST_F(CKvPeCtrlBase_Write, PaletteTakesItsRecordBackWhileTold_RecordHearsTheText) {
    GiveIdentifier();
    role.hasChoice = true;
    control.SetFamilyRole(&role);
    identifier->onValue = [&] { EXPECT_EQ(control.Handle_PutPropertyIdentifier(nullptr), S_OK); };
    Select(SelectionArrays().Add(&MakeObject(L"A")));
    EXPECT_EQ(WriteText(L"new"), S_OK);
    EXPECT_CALLS(kvtest::CallsOnly(journal, {"PutCurrent"}), "PutCurrentValue \"new\"",
                 "PutCurrentValueText entry");
    identifier->onValue = nullptr;
    identifier->Release();  // another put leaves the reference
}

TEST_F(CKvPeCtrlBase_Write, AnotherSelectionComesMeanwhile_IsNotWritten) {
    const SelectionArrays other = SelectionArrays().Add(&MakeObject(L"X")).Add(&MakeObject(L"Y"));
    const auto selectOther = [&] { EXPECT_EQ(other.Init(control), S_OK); };

    Select(SelectionArrays().Add(&MakeObject(L"A")).Add(&MakeObject(L"B")));
    objects[2]->script.onCall = [&](const std::wstring&) { selectOther(); };
    EXPECT_EQ(WriteText(L"new"), S_OK);
    objects[2]->script.onCall = nullptr;
    EXPECT_EQ(objects[2]->At(c_property).puts.size(), 1U);
    EXPECT_TRUE(objects[0]->At(c_property).puts.empty());
    EXPECT_TRUE(objects[1]->At(c_property).puts.empty());
    EXPECT_EQ(Drawing().Undo().OpenGroups(), 0);
    EXPECT_EQ(control.Cleanup(), S_OK);

    Select(SelectionArrays().Add(&MakeObject(L"C")));
    shell.onEvent = [&](const std::wstring& event) {
        if (event == L"OnBeginPropertyUpdate") {
            selectOther();
        }
    };
    fw::Ignore(WriteText(L"new"));
    EXPECT_TRUE(objects[0]->At(c_property).puts.empty());
    EXPECT_EQ(control.Cleanup(), S_OK);
    // A second selection releases no former one.
    for (std::size_t former = 2; former < objects.size(); ++former) {
        objects[former]->Release();
    }
}

TEST_F(CKvPeCtrlBase_Write, HostClosesAllDuringWrite_GroupIsEndedInItsDrawing) {
    Select(SelectionArrays().Add(&MakeObject(L"A")));
    shell.onEvent = [&](const std::wstring& event) {
        if (event == L"OnBeginPropertyUpdate") {
            host->Documents().CloseAll();
        }
    };
    EXPECT_EQ(WriteText(L"new"), S_OK);
    EXPECT_EQ(Drawing().Undo().OpenGroups(), 0);
    EXPECT_EQ(Drawing().Undo().UndoCount(), 0) << "a scripted object is no part of the drawing";
    host->Documents().CloseAll();
    EXPECT_TRUE(host->Documents().Documents().empty()) << "now that no group is open";
    document = nullptr;
}

}  // namespace
