#include "framework/com/SafeArray.h"
#include "framework/window/CWnd.h"
#include "framework/window/MainWindow.h"
#include "refhost/testing/Answers.h"
#include "tests/support/HeapBlocks.h"
#include "tests/unit/core/ControlBench.h"
#include "tests/unit/core/FakeDialog.h"

namespace {

using kvhost::ScriptedDynamicProperty;
using kvhost::ScriptedObject;
using kvtest::c_property;
using kvtest::FakeApplication;
using kvtest::FakeDialog;
using kvtest::SelectionArrays;

class CKvPeCtrlBase_Dialog : public kvtest::ControlTest {
protected:
    CKvPeCtrlBase_Dialog() {
        mainWindow.Create(s_windowClass, L"", WS_POPUP | WS_VISIBLE, {0, 0, 50, 50}, nullptr);
        other.Create(s_windowClass, L"", WS_POPUP | WS_VISIBLE, {60, 0, 90, 50}, nullptr);
        fw::SetMainWindow(mainWindow);
        other.SetFocus();
        identifier = kvtest::FakeIdentifier::Make();
        EXPECT_EQ(control.Handle_PutPropertyIdentifier(identifier.Get()), S_OK);
    }
    ~CKvPeCtrlBase_Dialog() override {
        fw::SetMainWindow(nullptr);
        EXPECT_EQ(host->Editor().OpenMarks(), 0);
    }

    // An object whose property has the fake dialog's class as its page.
    ScriptedObject& MakeBrowsable(const wchar_t* name, const CLSID& page = FakeDialog::c_classId) {
        ScriptedObject& object = MakeObject(name, L"same", kvhost::OffersBrowsing);
        object.At(c_property).page = page;
        return object;
    }

    void Launch() { EXPECT_EQ(control.LaunchZRBPropertyDialog(text), S_OK); }

    // The scope's lines around those of the dialog.
    void ExpectScoped(kvtest::CallLines lines, const wchar_t* finalText) {
        kvtest::CallLines expected{"kvedSendModelessOperationStart ZRB_CHGPROP", "PutCurrentValue \"row\"",
                                   "OnBeginModal 8"};
        expected.insert(expected.end(), lines.begin(), lines.end());
        expected.push_back("PutCurrentValue \"" + kvtest::ToUtf8(finalText) + "\"");
        expected.push_back("OnEndModal 8");
        expected.push_back("kvedSendModelessOperationEnded ZRB_CHGPROP");
        EXPECT_TRUE(kvtest::SameCalls(
            expected, kvtest::CallsIgnoring(journal, {"kvedIs", "kvedGetApp", "kvdb", "GetObjectId"})));
    }

    [[nodiscard]] bool MainWindowHasFocus() const { return ::GetFocus() == mainWindow.m_hWnd; }

    inline static const fw::WindowClass s_windowClass{.name = L"KvTestDialogMain"};
    CWnd mainWindow;
    CWnd other;
    fw::ComPtr<kvtest::FakeIdentifier> identifier;
    CString text = L"row";
};

TEST_F(CKvPeCtrlBase_Dialog, BeforeInit_DoesNothing) {
    Launch();
    EXPECT_TRUE(kvtest::CallsIgnoring(journal, {"kvedIsDragging"}).empty());
}

TEST_F(CKvPeCtrlBase_Dialog, Dragging_ShowsTheRefusalAndStops) {
    ScriptedObject& object = MakeBrowsable(L"A");
    MakeEntity(&object);
    Select(SelectionArrays().Add(&object));
    host->Editor().SetDragging(true);
    fw::Ignore(kvhost::Answers::TakeShown());  // of earlier tests
    Launch();
    EXPECT_EQ(kvhost::Answers::TakeShown().size(), 1U);
    EXPECT_TRUE(kvtest::CallsOnly(journal, {"kvedSend", "On", "PutCurrentValue"}).empty());
}

TEST_F(CKvPeCtrlBase_Dialog, FirstObjectLocked_EndsTheSelectionMarkAndStops) {
    ScriptedObject& object = MakeBrowsable(L"A");
    LockLayerOf(MakeEntity(&object));
    Select(SelectionArrays().Add(&object));
    Launch();
    EXPECT_CALLS(kvtest::CallsOnly(journal, {"kvedSend", "On", "PutCurrentValue", "MapProperty"}),
                 "kvedSendModelessOperationEnded ZRB_CHGSELECTION");
}

TEST_F(CKvPeCtrlBase_Dialog, DialogByObjects_IsPreferredAndItsAnswerTaken) {
    FakeDialog dialog;
    Select(SelectionArrays().Add(&MakeBrowsable(L"A")).Add(&MakeObject(L"B")).Add(nullptr));
    dialog.onObjects = [&](const VARIANT& given) {
        fw::SafeArrayView view;
        EXPECT_EQ(fw::SafeArrayView::FromVariant(&given, view), S_OK);
        fw::ComPtr<IUnknown> second;
        fw::ComPtr<IUnknown> third;
        EXPECT_EQ(view.GetUnknown(1, second), S_OK);
        EXPECT_EQ(view.GetUnknown(2, third), S_OK);
        EXPECT_EQ(ScriptedObject::NameOf(second.Get()), L"B");
        EXPECT_EQ(third.Get(), nullptr);
    };
    Launch();
    EXPECT_EQ(text, L"answer");
    EXPECT_TRUE(control.m_changeNotified);
    EXPECT_TRUE(MainWindowHasFocus());
    ExpectScoped({"MapPropertyToPage A 5", "ShowDialog objects row 3"}, L"answer");
}

TEST_F(CKvPeCtrlBase_Dialog, DialogByIds_IsGivenTheIdsOfTheSelection) {
    FakeDialog dialog;
    dialog.offersByObjects = false;
    ScriptedObject& object = MakeBrowsable(L"A");
    MakeEntity(&object);
    Select(SelectionArrays().Add(&object).Add(&MakeObject(L"B")));
    Launch();
    EXPECT_EQ(text, L"answer");
    EXPECT_TRUE(control.m_changeNotified);
    EXPECT_CALLS(kvtest::CallsOnly(journal, {"ShowDialog"}), "ShowDialog ids row 1");
}

TEST_F(CKvPeCtrlBase_Dialog, DialogNotConfirmed_LeavesTheText) {
    for (const HRESULT result : {S_FALSE, E_FAIL}) {
        FakeDialog dialog;
        dialog.result = result;
        Select(SelectionArrays().Add(&MakeBrowsable(L"A")));
        Launch();
        EXPECT_EQ(text, L"row");
        EXPECT_FALSE(control.m_changeNotified);
        ExpectScoped({"MapPropertyToPage A 5", "ShowDialog objects row 1"}, L"row");
        EXPECT_TRUE(MainWindowHasFocus());
        EXPECT_EQ(control.Cleanup(), S_OK);
    }
}

// The shell turns what is thrown into a result: until there, everything is put back and let go.
TEST_F(CKvPeCtrlBase_Dialog, DialogThrows_TheScopeEndsAndNoTextIsLeft) {
    constexpr int launches = 100;
    FakeDialog dialog;
    dialog.throws = true;
    Select(SelectionArrays().Add(&MakeBrowsable(L"A")));
    const auto launch = [&] {
        journal.Clear();
        EXPECT_THROW(fw::Ignore(control.LaunchZRBPropertyDialog(text)), std::bad_alloc);
    };
    launch();
    ExpectScoped({"MapPropertyToPage A 5", "ShowDialog objects row 1"}, L"row");
    EXPECT_EQ(text, L"row");
    EXPECT_FALSE(control.m_changeNotified);
    // Longer than the texts that the system keeps for reuse.
    dialog.answer.assign(100'000, L'x');
    launch();
    const long before = kvtest::CountHeapBlocks();
    for (int round = 0; round < launches; ++round) {
        launch();
    }
    journal.Clear();
    EXPECT_LT(kvtest::CountHeapBlocks() - before, launches / 2);
}

TEST_F(CKvPeCtrlBase_Dialog, DialogOfNeitherKind_IsNotShown) {
    FakeDialog dialog;
    dialog.offersByObjects = false;
    dialog.offersByIds = false;
    Select(SelectionArrays().Add(&MakeBrowsable(L"A")));
    Launch();
    ExpectScoped({"MapPropertyToPage A 5"}, L"row");
    EXPECT_FALSE(MainWindowHasFocus());
}

TEST_F(CKvPeCtrlBase_Dialog, PageCannotBeHad_Stops) {
    MakeBrowsable(L"A").At(c_property).pageResult = E_FAIL;
    Select(SelectionArrays().Add(objects[0].Get()));
    Launch();
    ExpectScoped({"MapPropertyToPage A 5"}, L"row");
}

TEST_F(CKvPeCtrlBase_Dialog, UnknownClass_IsNamedToTheUser) {
    constexpr CLSID unknown = {0x11112222, 0x3333, 0x4444, {0x55, 0x55, 0x66, 0x66, 0x66, 0x66, 0x66, 0x66}};
    Select(SelectionArrays().Add(&MakeBrowsable(L"A", unknown)));
    Launch();
    ExpectScoped({"MapPropertyToPage A 5",
                  "MessageBox ownerless The dialog for this property cannot be shown: its class "
                  "{11112222-3333-4444-5555-666666666666} is not registered. 48"},
                 L"row");
}

TEST_F(CKvPeCtrlBase_Dialog, ObjectWithoutPages_NamesTheUnsetClass) {
    Select(SelectionArrays().Add(&MakeObject(L"A")));
    Launch();
    ExpectScoped({"MessageBox ownerless The dialog for this property cannot be shown: its class "
                  "{00000000-0000-0000-0000-000000000000} is not registered. 48"},
                 L"row");
}

TEST_F(CKvPeCtrlBase_Dialog, FirstEntryWithoutObjectAndProperty_Stops) {
    Select(SelectionArrays().Add(nullptr));
    Launch();
    ExpectScoped({}, L"row");
}

TEST_F(CKvPeCtrlBase_Dialog, DynamicProperty_IsAskedForThePageBeforeItsObject) {
    FakeDialog dialog;
    ScriptedDynamicProperty& property = MakeProperty(L"P", kvhost::OffersByObject | kvhost::OffersBrowsing);
    property.shared.page = FakeDialog::c_classId;
    Select(SelectionArrays().AddDynamic(&MakeBrowsable(L"A"), &property));
    Launch();
    ExpectScoped({"MapPropertyToPage P -23", "ShowDialog objects row 1"}, L"answer");
}

TEST_F(CKvPeCtrlBase_Dialog, DynamicPropertyWithProcedure_RunsIt) {
    ScriptedDynamicProperty& property = MakeProperty(L"P", kvhost::OffersByObject | kvhost::OffersDialog);
    property.dialogProcedure = [] { kvtest::Note(L"procedure"); };
    Select(SelectionArrays().AddDynamic(&MakeObject(L"A"), &property));
    Launch();
    ExpectScoped({"GetDialogProcedure P", "procedure"}, L"row");
    EXPECT_TRUE(MainWindowHasFocus());
}

TEST_F(CKvPeCtrlBase_Dialog, DynamicPropertyWithMacro_RunsItInTheHost) {
    FakeApplication application;
    ScriptedDynamicProperty& property = MakeProperty(L"P", kvhost::OffersByObject | kvhost::OffersDialog);
    property.dialogMacro = L"EDITNOTE";
    Select(SelectionArrays().AddDynamic(&MakeObject(L"A"), &property));
    Launch();
    ExpectScoped({"GetDialogProcedure P", "GetDialogMacro P", "RunMacro EDITNOTE"}, L"row");
    EXPECT_TRUE(MainWindowHasFocus());
    EXPECT_EQ(application.References(), 1U);
}

TEST_F(CKvPeCtrlBase_Dialog, MacroInHostThatRunsNone_StopsWithoutTakingTheFocus) {
    ScriptedDynamicProperty& property = MakeProperty(L"P", kvhost::OffersByObject | kvhost::OffersDialog);
    property.dialogMacro = L"EDITNOTE";
    Select(SelectionArrays().AddDynamic(&MakeObject(L"A"), &property));
    {
        FakeApplication application;
        application.runsMacros = false;
        Launch();
        ExpectScoped({"GetDialogProcedure P", "GetDialogMacro P"}, L"row");
    }
    journal.Clear();
    Launch();
    ExpectScoped({"GetDialogProcedure P", "GetDialogMacro P"}, L"row");
    EXPECT_FALSE(MainWindowHasFocus());
}

TEST_F(CKvPeCtrlBase_Dialog, DynamicPropertyWithNeither_GoesOnToThePage) {
    FakeDialog dialog;
    ScriptedDynamicProperty& property =
        MakeProperty(L"P", kvhost::OffersByObject | kvhost::OffersDialog | kvhost::OffersBrowsing);
    property.shared.page = FakeDialog::c_classId;
    Select(SelectionArrays().AddDynamic(&MakeObject(L"A"), &property));
    Launch();
    ExpectScoped(
        {"GetDialogProcedure P", "GetDialogMacro P", "MapPropertyToPage P -23", "ShowDialog objects row 1"},
        L"answer");
}

TEST_F(CKvPeCtrlBase_Dialog, WithoutIdentifier_RunsWithoutScope) {
    FakeDialog dialog;
    identifier->Release();  // the reference that the next put leaves
    EXPECT_EQ(control.Handle_PutPropertyIdentifier(nullptr), S_OK);
    Select(SelectionArrays().Add(&MakeBrowsable(L"A")));
    Launch();
    EXPECT_EQ(text, L"answer");
    EXPECT_CALLS(kvtest::CallsOnly(journal, {"kvedSend", "On", "PutCurrentValue", "ShowDialog"}),
                 "ShowDialog objects row 1");
}

}  // namespace
