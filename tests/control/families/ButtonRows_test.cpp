#include "framework/base/Handles.h"
#include "framework/com/SafeArray.h"
#include "host_sdk/IKvHyperlinkHost.h"
#include "host_sdk/KvEdVariables.h"
#include "refhost/automation/PropertyDialogIds.h"
#include "refhost/automation/PropertyRows.h"
#include "refhost/db/Arc.h"
#include "refhost/testing/Answers.h"
#include "tests/control/support/RowContainer.h"
#include "tests/control/support/UserEdit.h"

namespace {

constexpr int c_button = 1043;
constexpr int c_pickButton = 1047;

// Rows with small buttons in their real shells, over scripted objects.
class ButtonRows : public kvtest::RowContainer {
protected:
    ~ButtonRows() override { kvhost::Answers::Reset(); }

    kvhost::ScriptedObject& MakeObjectWithDialog(const wchar_t* name, const wchar_t* text) {
        kvhost::ScriptedObject& object = MakeObject(name, text, kvhost::OffersBrowsing);
        object.At(c_property).page = kvhost::CLSID_TextDialogByObjects;
        return object;
    }
    void CreateRow(const CLSID& classId, const std::vector<IDispatch*>& selection, bool readOnly = false) {
        Create(classId);
        ASSERT_EQ(InitEdit(selection, readOnly), S_OK);
        ASSERT_EQ(DoVerb(OLEIVERB_INPLACEACTIVATE), S_OK);
        Clear();
    }
    void Activate() {
        ASSERT_EQ(DoVerb(OLEIVERB_UIACTIVATE), S_OK);
        Clear();
    }
    HWND Button(int id = c_button) const { return ::GetDlgItem(Row(), id); }
    bool IsShown(int id) const { return Button(id) && ::IsWindowVisible(Button(id)); }
    void Press(int id = c_button) {
        ::SendMessageW(Button(id), BM_CLICK, 0, 0);
        kvtest::PumpWaiting();
    }
    kvtest::CallLines Calls() const {
        return kvtest::CallsIgnoring(
            journal, {"kvDocManagerPtr", "curDocument", "database", "GetWindowContext", "LzToolTip", "kvdb",
                      "isLocked", "kvedIs", "OnKeyDown", "IsUnspecified", "IsExpression", "Editable",
                      "RequestUIActivate"});
    }
    // Presses the button of a row over "before" and confirms another text: the dialog alone writes it.
    void ExpectDialogWrites() {
        kvhost::Answers::QueueText(L"after");
        Press();
        EXPECT_CALLS(Calls(), "OnBeginPropertyUpdate", "MapPropertyToPage A 5",
                     "IPropertyDialogByObjects.ShowDialog before 1", "Invoke A put 5 \"after\"",
                     "OnEndPropertyUpdate");
        EXPECT_EQ(BoxText(), L"after");
        Clear();
        EXPECT_EQ(As<IOleInPlaceObject>()->UIDeactivate(), S_OK);
        EXPECT_TRUE(kvtest::CallsOnly(journal, {"Invoke A put"}).empty());
    }
};

TEST_F(ButtonRows, EditButton_MayBeTypedIntoAndHasAnEllipsisButton) {
    kvhost::ScriptedObject& object = MakeObject(L"A", L"before");
    CreateRow(CLSID_KvPePropertyEditorEditButton, {&object});
    Activate();
    EXPECT_TRUE(IsShown(c_button));
    EXPECT_EQ(BoxText(), L"before");
    EXPECT_EQ(::GetFocus(), Box());
    ::SetWindowTextW(Box(), L"after");
    kvtest::PressInRow(Row(), VK_RETURN);
    EXPECT_EQ(fw::Variant::ViewString(object.At(c_property).Get()), L"after");
}

TEST_F(ButtonRows, EditButton_ReadOnlyRow_HasNoButton) {
    kvhost::ScriptedObject& object = MakeObject(L"A", L"before");
    CreateRow(CLSID_KvPePropertyEditorEditButton, {&object}, true);
    Activate();
    EXPECT_EQ(Button(), nullptr);
}

TEST_F(ButtonRows, EditButton_ContainerWindowEndedAmidAnEdit_TabLeadsToItsNewButton) {
    CreateRow(CLSID_KvPePropertyEditorEditButton, {&MakeObject(L"A", L"before")});
    Activate();
    frame.DestroyWindow();
    static const fw::WindowClass s_nextFrame{.name = L"KvTestNextButtonFrame"};
    frame.Create(s_nextFrame, L"", WS_POPUP | WS_VISIBLE, {100, 100, 500, 400}, nullptr);
    site->MoveTo(frame);
    Activate();
    EXPECT_TRUE(IsShown(c_button));
    EXPECT_EQ(BoxText(), L"before");
    EXPECT_EQ(::GetFocus(), Box());
    kvtest::PressInRow(Row(), VK_TAB);
    EXPECT_EQ(::GetFocus(), Button());
}

TEST_F(ButtonRows, EditButton_DialogConfirmed_CallsAndEventsInOrder) {
    kvhost::ScriptedObject& object = MakeObjectWithDialog(L"A", L"before");
    CreateRow(CLSID_KvPePropertyEditorEditButton, {&object});
    Activate();
    ExpectDialogWrites();
}

TEST_F(ButtonRows, EditButton_DialogCancelled_CallsAndEventsInOrder) {
    kvhost::ScriptedObject& object = MakeObjectWithDialog(L"A", L"before");
    CreateRow(CLSID_KvPePropertyEditorEditButton, {&object});
    Activate();
    kvhost::Answers::QueueButton(IDCANCEL);
    Press();
    EXPECT_CALLS(Calls(), "OnBeginPropertyUpdate", "MapPropertyToPage A 5",
                 "IPropertyDialogByObjects.ShowDialog before 1", "OnEndPropertyUpdate");
    EXPECT_EQ(BoxText(), L"before");
    EXPECT_TRUE(object.At(c_property).puts.empty());
}

TEST_F(ButtonRows, EditButton_AltDown_OpensTheDialog) {
    kvhost::ScriptedObject& object = MakeObjectWithDialog(L"A", L"before");
    CreateRow(CLSID_KvPePropertyEditorEditButton, {&object});
    Activate();
    kvhost::Answers::QueueText(L"after");
    ::PostMessageW(Box(), WM_SYSKEYDOWN, VK_DOWN, 0x20000001);
    kvtest::PumpWaiting();
    EXPECT_CALLS(Calls(), "MapPropertyToPage A 5", "IPropertyDialogByObjects.ShowDialog before 1",
                 "Invoke A put 5 \"after\"");
    EXPECT_EQ(fw::Variant::ViewString(object.At(c_property).Get()), L"after");
    EXPECT_EQ(BoxText(), L"after");
}

TEST_F(ButtonRows, EditButton_LaunchDialogOfTheButton_OpensTheDialog) {
    kvhost::ScriptedObject& object = MakeObjectWithDialog(L"A", L"before");
    CreateRow(CLSID_KvPePropertyEditorEditButton, {&object});
    kvhost::Answers::QueueText(L"after");
    EXPECT_EQ(control->LaunchDialog(fw::Bstr(L"").Get(), 24), S_OK);
    EXPECT_EQ(fw::Variant::ViewString(object.At(c_property).Get()), L"after");
}

TEST_F(ButtonRows, EditButton_DialogTakesTheRowOutOfEdit_RowOpensInItsFullWidth) {
    kvhost::ScriptedObject& object = MakeObjectWithDialog(L"A", L"before");
    CreateRow(CLSID_KvPePropertyEditorEditButton, {&object});
    Activate();
    RECT before{};
    ::GetWindowRect(Button(), &before);
    sink->onEvent = [this](const std::wstring& event) {
        if (event == L"OnBeginPropertyUpdate") {
            EXPECT_EQ(As<IOleInPlaceObject>()->UIDeactivate(), S_OK);
        }
        return S_OK;
    };
    Press();
    sink->onEvent = nullptr;
    RECT after{};
    ::GetWindowRect(Button(), &after);
    EXPECT_EQ(CRect(after), CRect(before));
}

TEST_F(ButtonRows, EditButton_Typing_FiresNoEndOfAnUpdate) {
    kvhost::ScriptedObject& object = MakeObject(L"A", L"before");
    CreateRow(CLSID_KvPePropertyEditorEditButton, {&object});
    Activate();
    ::SendMessageW(Box(), WM_CHAR, 'x', 1);
    EXPECT_TRUE(kvtest::CallsOnly(journal, {"OnEndPropertyUpdate", "OnBeginPropertyUpdate"}).empty());
}

TEST_F(ButtonRows, EditButton_CommandOfAnotherId_FiresAnEndWithoutABegin) {
    kvhost::ScriptedObject& object = MakeObject(L"A", L"before");
    CreateRow(CLSID_KvPePropertyEditorEditButton, {&object});
    Activate();
    ::SendMessageW(Row(), WM_COMMAND, MAKEWPARAM(1002, 0), 0);
    EXPECT_CALLS(kvtest::CallsOnly(journal, {"OnEnd", "OnBegin"}), "OnEndPropertyUpdate");
}

TEST_F(ButtonRows, NumbersWithoutTextOfTheirObject_ShowItsDisplayString) {
    kvhost::ScriptedObject& object = MakeObject(L"A", L"", kvhost::OffersBrowsing);
    object.At(c_property).Set(7L);
    object.At(c_property).displayString = L"seven";
    CreateRow(CLSID_KvPePropertyEditorEditButton, {&object});
    Activate();
    EXPECT_EQ(BoxText(), L"seven");
}

TEST_F(ButtonRows, NumberWithoutDisplayString_IsShownInTheDrawingsUnits) {
    kvhost::ScriptedObject& object = MakeObject(L"A", L"");
    object.At(c_property).Set(2.5);
    CreateRow(CLSID_KvPePropertyEditorEditButton, {&object});
    Activate();
    EXPECT_EQ(BoxText(), L"2.5000");
    EXPECT_EQ(As<IKvPeNumericEditor>()->SetNumericDataType(PE_TOLM_NOUNITS), S_OK);
    Discard();
    kvhost::ScriptedObject& whole = MakeObject(L"B", L"");
    whole.At(c_property).Set(12L);
    CreateRow(CLSID_KvPePropertyEditorEditButton, {&whole});
    Activate();
    EXPECT_EQ(BoxText(), L"12");
}

TEST_F(ButtonRows, NumberWithoutUnits_IsShownAsADecimalNumber) {
    resbuf units{};
    units.restype = KVED_RTSHORT;
    units.resval.rint = 4;
    ASSERT_EQ(kvedSetVar(L"LUNITS", &units), KVED_RTNORM);
    for (const bool withoutUnits : {false, true}) {
        kvhost::ScriptedObject& object = MakeObject(L"A", L"");
        object.At(c_property).Set(2.5);
        Create(CLSID_KvPePropertyEditorEditButton);
        if (withoutUnits) {
            EXPECT_EQ(As<IKvPeNumericEditor>()->SetNumericDataType(PE_TOLM_NOUNITS), S_OK);
        }
        ASSERT_EQ(InitEdit({&object}), S_OK);
        ASSERT_EQ(DoVerb(OLEIVERB_INPLACEACTIVATE), S_OK);
        Activate();
        EXPECT_EQ(BoxText(), withoutUnits ? L"2.5000" : L"2 1/2\"");
        Discard();
    }
}

TEST_F(ButtonRows, ValueWithoutAnyText_ShowsAnEmptyRow) {
    kvhost::ScriptedObject& object = MakeObject(L"A", L"");
    VARIANT yes{};
    yes.vt = VT_BOOL;
    yes.boolVal = VARIANT_TRUE;
    object.At(c_property).Set(yes);
    CreateRow(CLSID_KvPePropertyEditorEditButton, {&object});
    Activate();
    EXPECT_EQ(BoxText(), L"");
}

TEST_F(ButtonRows, Ellipses_ChangesThroughTheDialogOnly) {
    kvhost::ScriptedObject& object = MakeObjectWithDialog(L"A", L"before");
    CreateRow(CLSID_KvPePropertyEditorEllipses, {&object});
    Activate();
    EXPECT_EQ(::GetFocus(), Button());
    EXPECT_NE(::GetWindowLongPtrW(Box(), GWL_STYLE) & ES_READONLY, 0);
    ::SetWindowTextW(Box(), L"typed");
    EXPECT_EQ(As<IOleInPlaceObject>()->UIDeactivate(), S_OK);
    EXPECT_TRUE(object.At(c_property).puts.empty());
    Activate();
    kvhost::Answers::QueueText(L"after");
    kvtest::PressInRow(Row(), VK_RETURN);
    EXPECT_EQ(fw::Variant::ViewString(object.At(c_property).Get()), L"after");
}

// Their boxes never have the focus: the key has to work where it is.
TEST_F(ButtonRows, RowsWithoutTyping_AltDownOnTheButton_OpensTheDialog) {
    for (const CLSID* const classId :
         {&CLSID_KvPePropertyEditorEllipses, &CLSID_KvPePropertyEditorEllipsesHyperlinks}) {
        kvhost::ScriptedObject& object = MakeObjectWithDialog(L"A", L"before");
        CreateRow(*classId, {&object});
        Activate();
        ASSERT_EQ(::GetFocus(), Button());
        kvhost::Answers::QueueText(L"after");
        ::PostMessageW(Button(), WM_SYSKEYDOWN, VK_DOWN, 0x20000001);
        kvtest::PumpWaiting();
        EXPECT_CALLS(Calls(), "MapPropertyToPage A 5", "IPropertyDialogByObjects.ShowDialog before 1",
                     "Invoke A put 5 \"after\"");
        EXPECT_EQ(BoxText(), L"after");
        Discard();
    }
}

TEST_F(ButtonRows, Ellipses_ReadOnlyRowWithoutLinks_HasNoButton) {
    kvhost::ScriptedObject& object = MakeObject(L"A", L"before");
    CreateRow(CLSID_KvPePropertyEditorEllipses, {&object}, true);
    Activate();
    EXPECT_EQ(Button(), nullptr);
}

// Ellipses over a dynamic property that shows the links of objects.
class LinkEllipses : public ButtonRows {
protected:
    /// An object of the drawing, which carries links as all of them do.
    IDispatch* MakeArc() {
        KvDbObjectId id;
        EXPECT_EQ(document->GetDatabase().AppendEntity(std::make_unique<kvhost::Arc>(), id), Tolm::eOk);
        arcs.emplace_back();
        EXPECT_EQ(kvhost::GetAutomationObject(id, arcs.back().Put()), S_OK);
        return arcs.back().Get();
    }
    void CreateRow(const std::vector<IDispatch*>& selection, bool readOnly) {
        Create(CLSID_KvPePropertyEditorEllipses);
        property->shared.Set(L"links");
        property->shared.readOnly = readOnly;
        Hand(selection);
        ASSERT_EQ(DoVerb(OLEIVERB_INPLACEACTIVATE), S_OK);
        Activate();
    }
    void Hand(const std::vector<IDispatch*>& selection) {
        kvtest::SelectionArrays arrays;
        for (IDispatch* const object : selection) {
            arrays.AddDynamic(object, property.Get());
        }
        ASSERT_EQ(arrays.Init(*control.Get()), S_OK);
    }
    ~LinkEllipses() override { Discard(); }

    static constexpr LONG c_dynamic = -23;
    std::vector<fw::ComPtr<IDispatch>> arcs;
    fw::ComPtr<kvhost::ScriptedDynamicProperty> property =
        kvhost::ScriptedDynamicProperty::Make(L"P", kvhost::OffersByObject);
};

TEST_F(LinkEllipses, ReadOnlyRowOfOneObject_KeepsItsButton) {
    CreateRow({MakeArc()}, true);
    EXPECT_TRUE(IsShown(c_button));
}

TEST_F(LinkEllipses, ReadOnlyRowOfTwoObjects_HasNoButton) {
    CreateRow({MakeArc(), MakeArc()}, true);
    EXPECT_EQ(Button(), nullptr);
}

TEST_F(LinkEllipses, ReadOnlyRowOfAnObjectThatCarriesNoLinks_HasNoButton) {
    CreateRow({&MakeObject(L"A", L"before")}, true);
    EXPECT_EQ(Button(), nullptr);
}

TEST_F(LinkEllipses, ReadOnlyRowOfAnOrdinaryProperty_HasNoButton) {
    Create(CLSID_KvPePropertyEditorEllipses);
    dispid = 104;
    ASSERT_EQ(InitEdit({MakeArc()}, true), S_OK);
    ASSERT_EQ(DoVerb(OLEIVERB_INPLACEACTIVATE), S_OK);
    Activate();
    EXPECT_EQ(Button(), nullptr);
}

// What a button that is there already is shown for has been decided when it was made.
TEST_F(LinkEllipses, WritableRowThatBecomesReadOnly_LosesItsButton) {
    CreateRow({MakeArc()}, false);
    EXPECT_TRUE(IsShown(c_button));
    EXPECT_EQ(As<IOleInPlaceObject>()->UIDeactivate(), S_OK);
    property->shared.readOnly = TRUE;
    EXPECT_EQ(control->Refresh(0), S_OK);
    Activate();
    EXPECT_EQ(Button(), nullptr);
}

TEST_F(ButtonRows, Hyperlinks_DialogConfirmed_CallsAndEventsInOrder) {
    kvhost::ScriptedObject& object = MakeObjectWithDialog(L"A", L"before");
    CreateRow(CLSID_KvPePropertyEditorEllipsesHyperlinks, {&object});
    Activate();
    EXPECT_EQ(::GetFocus(), Button());
    ExpectDialogWrites();
}

TEST_F(ButtonRows, Hyperlinks_DialogCancelled_WritesNothing) {
    kvhost::ScriptedObject& object = MakeObjectWithDialog(L"A", L"before");
    CreateRow(CLSID_KvPePropertyEditorEllipsesHyperlinks, {&object});
    Activate();
    kvhost::Answers::QueueButton(IDCANCEL);
    kvtest::PressInRow(Row(), VK_RETURN);
    EXPECT_CALLS(Calls(), "OnBeginPropertyUpdate", "MapPropertyToPage A 5",
                 "IPropertyDialogByObjects.ShowDialog before 1", "OnEndPropertyUpdate");
    EXPECT_EQ(BoxText(), L"before");
    EXPECT_TRUE(object.At(c_property).puts.empty());
}

// Repair it and the links of objects that refuse the change can no longer be looked at.
TEST_F(ButtonRows, Hyperlinks_RefusedByTheObject_ButtonComesWithARefresh) {
    kvhost::ScriptedObject& object = MakeObject(L"A", L"before", kvhost::OffersEditability);
    object.At(c_property).editableResult = S_FALSE;
    CreateRow(CLSID_KvPePropertyEditorEllipsesHyperlinks, {&object});
    Activate();
    EXPECT_EQ(Button(), nullptr);
    EXPECT_EQ(As<IOleInPlaceObject>()->UIDeactivate(), S_OK);
    EXPECT_EQ(control->Refresh(0), S_OK);
    Activate();
    EXPECT_TRUE(IsShown(c_button));
}

TEST_F(ButtonRows, TextEx_PropertyWithoutExpressions_HasNoButton) {
    kvhost::ScriptedObject& object = MakeObject(L"A", L"before");
    CreateRow(CLSID_KvPePropertyEditorTextEx, {&object});
    Activate();
    EXPECT_EQ(Button(c_pickButton), nullptr);
    EXPECT_EQ(::GetFocus(), Box());
}

TEST_F(ButtonRows, TextEx_PropertyWithExpressions_ShowsItsStateOnAButton) {
    kvhost::ScriptedObject& object = MakeObject(L"A", L"before", kvhost::OffersExpression);
    object.At(c_property).expressionSupported = true;
    CreateRow(CLSID_KvPePropertyEditorTextEx, {&object});
    Activate();
    EXPECT_TRUE(IsShown(c_pickButton));
    EXPECT_EQ(Button(c_button), nullptr);
}

TEST_F(ButtonRows, TextEx_ReadOnlyRow_KeepsItsExpressionButton) {
    kvhost::ScriptedObject& object = MakeObject(L"A", L"before", kvhost::OffersExpression);
    object.At(c_property).expressionSupported = true;
    CreateRow(CLSID_KvPePropertyEditorTextEx, {&object}, true);
    Activate();
    EXPECT_TRUE(IsShown(c_pickButton));
}

TEST_F(ButtonRows, TextEx_RefusedText_IsOfferedAsAnExpression) {
    kvhost::ScriptedObject& object = MakeObject(L"A", L"before", kvhost::OffersExpression);
    object.At(c_property).expressionSupported = true;
    object.At(c_property).putResult = E_INVALIDARG;
    CreateRow(CLSID_KvPePropertyEditorTextEx, {&object});
    Activate();
    ::SetWindowTextW(Box(), L"2*width");
    kvtest::PressInRow(Row(), VK_RETURN);
    EXPECT_EQ(object.At(c_property).expression, L"2*width");
    const kvtest::CallLines writes = kvtest::CallsOnly(journal, {"Invoke A put", "SetExpression"});
    EXPECT_CALLS(writes, "Invoke A put 5 \"2*width\"", "SetExpression A 5 2*width");
}

TEST_F(ButtonRows, TextEx_RefusedTextOfPropertyWithoutExpressions_IsNotOffered) {
    kvhost::ScriptedObject& object = MakeObject(L"A", L"before");
    object.At(c_property).putResult = E_INVALIDARG;
    CreateRow(CLSID_KvPePropertyEditorTextEx, {&object});
    Activate();
    ::SetWindowTextW(Box(), L"2*width");
    kvtest::PressInRow(Row(), VK_RETURN);
    EXPECT_CALLS(kvtest::CallsOnly(journal, {"Invoke A put", "SetExpression"}), "Invoke A put 5 \"2*width\"");
    EXPECT_EQ(BoxText(), L"before");
}

TEST_F(ButtonRows, TextEx_CalculatorMode_AddsTheCalculatorsButton) {
    kvhost::ScriptedObject& object = MakeObject(L"A", L"before");
    Create(CLSID_KvPePropertyEditorTextEx);
    const auto calculator = As<IKvPeCalculatorCtrl>();
    ASSERT_TRUE(calculator);
    EXPECT_EQ(calculator->SetCalculatorMode(VARIANT_TRUE), S_OK);
    ASSERT_EQ(InitEdit({&object}), S_OK);
    ASSERT_EQ(DoVerb(OLEIVERB_INPLACEACTIVATE), S_OK);
    Activate();
    EXPECT_TRUE(IsShown(1046));
}

TEST_F(ButtonRows, Interfaces_AreThoseOfEachClass) {
    Create(CLSID_KvPePropertyEditorTextEx);
    EXPECT_TRUE(As<IKvPeButtonEditCtrl>());
    EXPECT_TRUE(As<IKvPeCalculatorCtrl>());
    EXPECT_FALSE(As<IKvPeNumericEditor>());
    EXPECT_FALSE(As<IKvPeButtonPicture>());
    Discard();
    for (const CLSID* const id : {&CLSID_KvPePropertyEditorEditButton, &CLSID_KvPePropertyEditorEllipses,
                                  &CLSID_KvPePropertyEditorEllipsesHyperlinks}) {
        Create(*id);
        EXPECT_TRUE(As<IKvPeButtonEditCtrl>());
        EXPECT_FALSE(As<IKvPeCalculatorCtrl>());
        EXPECT_FALSE(As<IKvPeButtonPicture>());
        const auto numeric = As<IKvPeNumericEditor>();
        ASSERT_TRUE(numeric);
        EXPECT_TRUE(fw::IsSameObject(numeric.Get(), control.Get()));
        EXPECT_EQ(numeric->SetNumericDataType(PE_TOLM_NOUNITS), S_OK);
        EXPECT_EQ(numeric->SetNumericDataType(PE_TOLM_OTHER), E_FAIL);
        Discard();
    }
}

TEST_F(ButtonRows, Pictures_GoThroughTheInterfaceToTheFirstButton) {
    kvhost::ScriptedObject& object = MakeObject(L"A", L"before");
    CreateRow(CLSID_KvPePropertyEditorEditButton, {&object});
    const auto pictures = As<IKvPeButtonEditCtrl>();
    fw::ComPtr<IUnknown> got;
    EXPECT_EQ(pictures->get_DefaultPicture(nullptr), E_POINTER);
    EXPECT_EQ(pictures->get_DefaultPicture(got.Put()), S_OK);
    EXPECT_FALSE(got);
    Activate();
    fw::ComPtr<IPicture> picture;
    PICTDESC description{};
    description.cbSizeofstruct = sizeof description;
    description.picType = PICTYPE_NONE;
    ASSERT_EQ(::OleCreatePictureIndirect(&description, IID_IPicture, TRUE, picture.PutVoid()), S_OK);
    EXPECT_EQ(pictures->put_DefaultPicture(picture.Get()), S_OK);
    EXPECT_EQ(pictures->put_DisabledPicture(picture.Get()), S_OK);
    EXPECT_EQ(pictures->get_DefaultPicture(got.Put()), S_OK);
    EXPECT_TRUE(fw::IsSameObject(got.Get(), picture.Get()));
    EXPECT_EQ(pictures->get_DisabledPicture(got.Put()), S_OK);
    EXPECT_TRUE(fw::IsSameObject(got.Get(), picture.Get()));
    EXPECT_EQ(pictures->put_DefaultPicture(static_cast<IDispatch*>(&object)), E_NOINTERFACE);
    EXPECT_EQ(pictures->put_DefaultPicture(nullptr), S_OK);
    EXPECT_EQ(pictures->get_DefaultPicture(got.Put()), S_OK);
    EXPECT_FALSE(got);
}

}  // namespace
