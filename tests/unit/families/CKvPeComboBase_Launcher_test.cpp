#include "core/DispatchIds.h"
#include "refhost/testing/Faults.h"
#include "refhost/testing/ScriptedDynamicProperty.h"
#include "refhost/testing/ScriptedObject.h"
#include "tests/support/LeakCheck.h"
#include "tests/support/SelectionArrays.h"
#include "tests/unit/families/ListBench.h"
#include "tests/unit/families/TestPicture.h"

// When a row has a launcher button, where it lies and what it does.

namespace {

using kvhost::ScriptedDynamicProperty;
using kvhost::ScriptedObject;

const kvtest::LeakCounter s_objects("scripted objects of list rows", ScriptedObject::LiveCount);

void ShowNothing() {
}

class ListLauncher : public kvtest::ListBench {
protected:
    ~ListLauncher() override { kvhost::Faults::Reset(); }

    // Selects one object, with a dynamic property when there is one.
    void Select(ScriptedObject* selected, ScriptedDynamicProperty* property = nullptr) {
        const auto arrays = property ? kvtest::SelectionArrays().AddDynamic(selected, property)
                                     : kvtest::SelectionArrays().Add(selected);
        EXPECT_EQ(arrays.Init(*shell), S_OK);
        Clear();
    }

    // A page for dynamic properties or none, as objects tell by their browsing interface.
    ScriptedObject& ObjectWithPage(bool hasPage) {
        object = ScriptedObject::Make(L"A", kvhost::OffersBrowsing);
        object->At(DISPID_DYNAMIC).page = hasPage ? CLSID_StdPicture : CLSID_NULL;
        object->At(5).page = CLSID_NULL;
        return *object;
    }

    HWND Button() const { return ::GetDlgItem(Window(), 1039); }
    bool ShowsButton() const { return Button() && ::IsWindowVisible(Button()); }

    CRect ButtonPlace() const {
        CRect bounds;
        ::GetWindowRect(Button(), &bounds);
        ::MapWindowPoints(nullptr, Window(), reinterpret_cast<POINT*>(&bounds), 2);
        return bounds;
    }

    kvtest::CallLines HostCalls() {
        return kvtest::CallsIgnoring(journal, {"Site.", "Frame.", "CLz", "fill"});
    }

    fw::ComPtr<ScriptedObject> object;
};

TEST_F(ListLauncher, NoObject_NoLauncher) {
    EXPECT_EQ(Row().BeginEdit(c_clientRect), S_OK);
    EXPECT_FALSE(Button());
    EXPECT_FALSE(Row().m_bHasDialog);
}

TEST_F(ListLauncher, ObjectNamesAPage_ForDynamicPropertiesWhateverTheRows_HasLauncher) {
    Select(&ObjectWithPage(true));
    EXPECT_EQ(Row().BeginEdit(c_clientRect), S_OK);
    EXPECT_CALLS(HostCalls(), "MapPropertyToPage A -23");
    EXPECT_TRUE(ShowsButton());
}

TEST_F(ListLauncher, ObjectNamesNoPage_NoLauncher) {
    Select(&ObjectWithPage(false));
    EXPECT_EQ(Row().BeginEdit(c_clientRect), S_OK);
    EXPECT_FALSE(Button());
}

TEST_F(ListLauncher, ObjectCannotTellThePage_NoLauncher) {
    Select(&ObjectWithPage(true));
    object->At(DISPID_DYNAMIC).pageResult = E_FAIL;
    EXPECT_EQ(Row().BeginEdit(c_clientRect), S_OK);
    EXPECT_FALSE(Button());
}

TEST_F(ListLauncher, PropertyHasADialogProcedure_HasLauncher) {
    object = ScriptedObject::Make(L"A", 0);
    const auto property = ScriptedDynamicProperty::Make(L"P", kvhost::OffersDialog | kvhost::OffersByObject);
    property->dialogProcedure = &ShowNothing;
    Select(object.Get(), property.Get());
    EXPECT_EQ(Row().BeginEdit(c_clientRect), S_OK);
    EXPECT_CALLS(HostCalls(), "GetDialogProcedure P");
    EXPECT_TRUE(ShowsButton());
}

TEST_F(ListLauncher, PropertyHasADialogMacro_HasLauncher) {
    object = ScriptedObject::Make(L"A", 0);
    const auto property = ScriptedDynamicProperty::Make(L"P", kvhost::OffersDialog | kvhost::OffersByObject);
    property->dialogMacro = L"SHOW";
    Select(object.Get(), property.Get());
    EXPECT_EQ(Row().BeginEdit(c_clientRect), S_OK);
    EXPECT_CALLS(HostCalls(), "GetDialogProcedure P", "GetDialogMacro P");
    EXPECT_TRUE(ShowsButton());
}

TEST_F(ListLauncher, PropertyHasNeither_ItsPageIsNotAsked) {
    object = ScriptedObject::Make(L"A", 0);
    const auto property = ScriptedDynamicProperty::Make(
        L"P", kvhost::OffersDialog | kvhost::OffersByObject | kvhost::OffersBrowsing);
    property->dialogMacro = L"";
    Select(object.Get(), property.Get());
    EXPECT_EQ(Row().BeginEdit(c_clientRect), S_OK);
    EXPECT_CALLS(HostCalls(), "GetDialogProcedure P", "GetDialogMacro P");
    EXPECT_FALSE(Button());
}

TEST_F(ListLauncher, PropertyIsAskedBeforeTheObject) {
    const auto property = ScriptedDynamicProperty::Make(L"P", kvhost::OffersByObject);
    Select(&ObjectWithPage(true), property.Get());
    EXPECT_EQ(Row().BeginEdit(c_clientRect), S_OK);
    EXPECT_CALLS(HostCalls());
    EXPECT_FALSE(Button());
}

TEST_F(ListLauncher, FoundOnce_StaysWhenTheSelectionChanges) {
    Select(&ObjectWithPage(true));
    Edit();
    EXPECT_EQ(shell->UIDeactivate(), S_OK);
    EXPECT_FALSE(ShowsButton());
    EXPECT_EQ(Row().CKvPeCtrlBase::Cleanup(), S_OK);
    Select(&ObjectWithPage(false));
    EXPECT_EQ(Row().BeginEdit(c_clientRect), S_OK);
    EXPECT_TRUE(ShowsButton());
    EXPECT_TRUE(Row().m_bHasDialog);
}

TEST_F(ListLauncher, InEdit_NobodyIsAskedAgain) {
    Select(&ObjectWithPage(true));
    Edit();
    EXPECT_EQ(Row().BeginEdit(c_clientRect), S_OK);
    EXPECT_CALLS(HostCalls());
}

TEST_F(ListLauncher, ReadOnlyRow_ShowsNone) {
    Select(&ObjectWithPage(true));
    Row().m_readOnly = TRUE;
    EXPECT_EQ(Row().BeginEdit(c_clientRect), S_OK);
    EXPECT_CALLS(HostCalls());
    EXPECT_FALSE(Button());
    Row().m_readOnly = FALSE;
    Edit();
    EXPECT_TRUE(ShowsButton());
    Row().m_readOnly = TRUE;
    EXPECT_EQ(Row().BeginEdit(c_clientRect), S_OK);
    EXPECT_FALSE(ShowsButton());
}

TEST_F(ListLauncher, ButtonIsRefused_Fails) {
    Select(&ObjectWithPage(true));
    kvhost::Faults::FailService(L"CLzUiOwnerDrawButton", 1);
    EXPECT_EQ(Row().BeginEdit(c_clientRect), E_FAIL);
    EXPECT_FALSE(Row().m_pButton);
    EXPECT_FALSE(Row().m_pList);
    EXPECT_EQ(Row().BeginEdit(c_clientRect), S_OK);
    EXPECT_TRUE(ShowsButton());
}

TEST_F(ListLauncher, AtTheRight_ListLeavesItASquare) {
    Select(&ObjectWithPage(true));
    Edit();
    EXPECT_EQ(ButtonPlace(), CRect(100, 0, 120, 20));
    EXPECT_EQ(List().GetWindowRect().Width(), 102);
    EXPECT_EQ(::GetTopWindow(Window()), Button());
}

TEST_F(ListLauncher, AtTheLeft_ButtonIsThere) {
    Select(&ObjectWithPage(true));
    Row().m_nButtonSide = 1;
    Edit();
    EXPECT_EQ(ButtonPlace(), CRect(0, 0, 20, 20));
    EXPECT_EQ(List().GetWindowRect().Width(), 101);
}

TEST_F(ListLauncher, Button_HasTheFamilysStyleAndPictures) {
    const fw::ComPtr<IPicture> picture = kvtest::MakePicture(8, 8, RGB(255, 0, 0));
    EXPECT_EQ(Row().SetDefaultPicture(picture.Get()), S_OK);
    const ULONG before = kvtest::ReferencesOf(picture.Get());
    Select(&ObjectWithPage(true));
    Edit();
    EXPECT_GT(kvtest::ReferencesOf(picture.Get()), before);
    const DWORD style = static_cast<DWORD>(::GetWindowLongW(Button(), GWL_STYLE));
    EXPECT_EQ(style & 0x4003800B, 0x4003800BU);
    EXPECT_EQ(::GetWindowTextLengthW(Button()), 0);
}

TEST_F(ListLauncher, Button_TakesThePicturesThatThereAre) {
    struct Given {
        bool defaultPicture;
        bool disabledPicture;
        bool takesDefault;
        bool takesDisabled;
    };
    // A picture for the disabled state makes none for the other.
    for (const Given& given : {Given{false, false, false, false}, Given{true, false, true, false},
                               Given{true, true, true, true}, Given{false, true, false, false}}) {
        const fw::ComPtr<IPicture> first = kvtest::MakePicture(8, 8, RGB(255, 0, 0));
        const fw::ComPtr<IPicture> second = kvtest::MakePicture(8, 8, RGB(0, 255, 0));
        EXPECT_EQ(Row().SetDefaultPicture(given.defaultPicture ? first.Get() : nullptr), S_OK);
        EXPECT_EQ(Row().SetDisabledPicture(given.disabledPicture ? second.Get() : nullptr), S_OK);
        const ULONG beforeOfFirst = kvtest::ReferencesOf(first.Get());
        const ULONG beforeOfSecond = kvtest::ReferencesOf(second.Get());
        Select(&ObjectWithPage(true));
        Edit();
        EXPECT_EQ(kvtest::ReferencesOf(first.Get()), beforeOfFirst + (given.takesDefault ? 1 : 0));
        EXPECT_EQ(kvtest::ReferencesOf(second.Get()), beforeOfSecond + (given.takesDisabled ? 1 : 0));
        EXPECT_EQ(shell->UIDeactivate(), S_OK);
        EXPECT_EQ(Row().Cleanup(), S_OK);
        Row().m_state = EditState_NeverShown;
    }
}

TEST_F(ListLauncher, Pictures_AreCounted) {
    const fw::ComPtr<IPicture> picture = kvtest::MakePicture(8, 8, RGB(255, 0, 0));
    const ULONG before = kvtest::ReferencesOf(picture.Get());
    EXPECT_EQ(Row().SetDefaultPicture(picture.Get()), S_OK);
    EXPECT_EQ(Row().SetDefaultPicture(picture.Get()), S_OK);
    EXPECT_EQ(kvtest::ReferencesOf(picture.Get()), before + 1);
    EXPECT_EQ(Row().SetDisabledPicture(picture.Get()), S_OK);
    fw::ComPtr<IPicture> found;
    EXPECT_EQ(Row().GetDefaultPicture(found.Put()), S_OK);
    EXPECT_EQ(found.Get(), picture.Get());
    EXPECT_EQ(Row().GetDisabledPicture(found.Put()), S_OK);
    EXPECT_EQ(found.Get(), picture.Get());
    EXPECT_EQ(Row().SetDefaultPicture(nullptr), S_OK);
    EXPECT_EQ(Row().SetDisabledPicture(nullptr), S_OK);
    EXPECT_EQ(Row().GetDefaultPicture(found.Put()), S_OK);
    EXPECT_FALSE(found);
    EXPECT_EQ(kvtest::ReferencesOf(picture.Get()), before);
    EXPECT_EQ(Row().GetDefaultPicture(nullptr), E_POINTER);
    EXPECT_EQ(Row().GetDisabledPicture(nullptr), E_POINTER);
}

TEST_F(ListLauncher, Click_DialogRunsBetweenBeginAndEndAndTheListHasTheFocus) {
    Select(&ObjectWithPage(true));
    Edit();
    ::PostMessageW(Button(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
    ::PostMessageW(Button(), WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
    kvtest::PumpWaiting();
    EXPECT_CALLS(Calls(), "kvedIsLivePreviewRecording", "OnBeginPropertyUpdate", "dialog alpha",
                 "kvedIsLivePreviewRecording", "OnEndPropertyUpdate");
    EXPECT_EQ(::GetFocus(), List().m_hWnd);
}

TEST_F(ListLauncher, Click_DialogFails_EndIsToldAllTheSame) {
    Select(&ObjectWithPage(true));
    Edit();
    Row().script.launchResult = E_FAIL;
    BOOL handled = TRUE;
    EXPECT_EQ(Row().OnButtonCommand(BN_CLICKED, 1039, Button(), handled), S_OK);
    EXPECT_TRUE(handled);
    EXPECT_CALLS(Calls(), "kvedIsLivePreviewRecording", "OnBeginPropertyUpdate", "dialog alpha",
                 "kvedIsLivePreviewRecording", "OnEndPropertyUpdate");
}

TEST_F(ListLauncher, OtherCommands_AreLeftAlone) {
    Edit();
    BOOL handled = TRUE;
    EXPECT_EQ(Row().OnButtonCommand(BN_CLICKED, 1002, nullptr, handled), S_OK);
    EXPECT_FALSE(handled);
    handled = TRUE;
    EXPECT_EQ(Row().OnButtonCommand(BN_DOUBLECLICKED, 1039, nullptr, handled), S_OK);
    EXPECT_FALSE(handled);
    EXPECT_CALLS(Calls());
}

TEST_F(ListLauncher, HideAndShow_ButtonGoesWithTheList) {
    Select(&ObjectWithPage(true));
    Edit();
    Row().m_keepEditOnHide = TRUE;
    EXPECT_EQ(Row().Handle_DoVerbHide(), S_OK);
    EXPECT_FALSE(ShowsButton());
    EXPECT_EQ(Row().Handle_DoVerbShow(), S_OK);
    EXPECT_TRUE(ShowsButton());
    Row().m_bHasDialog = FALSE;
    EXPECT_EQ(Row().Handle_DoVerbHide(), S_OK);
    EXPECT_EQ(Row().Handle_DoVerbShow(), S_OK);
    EXPECT_FALSE(ShowsButton());
}

TEST_F(ListLauncher, Button_IsDrawnByItself) {
    Select(&ObjectWithPage(true));
    Edit();
    const fw::WindowDc dc(Button());
    const RECT all = {0, 0, 20, 20};
    ::FillRect(dc, &all, static_cast<HBRUSH>(::GetStockObject(BLACK_BRUSH)));
    ::RedrawWindow(Button(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
    EXPECT_EQ(::GetPixel(dc, 10, 3), ::GetSysColor(COLOR_WINDOW)) << "the face of a read-only row";
    EXPECT_EQ(::GetPixel(dc, 0, 0), ::GetSysColor(COLOR_BTNSHADOW));
}

}  // namespace
