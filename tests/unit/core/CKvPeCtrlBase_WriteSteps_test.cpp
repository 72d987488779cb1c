// The write of single entries: what is asked of an object in which order, and how failures are gathered.

#include "framework/com/ErrorInfo.h"
#include "tests/unit/core/ControlBench.h"

namespace {

using kvhost::ScriptedDynamicProperty;
using kvhost::ScriptedObject;
using kvtest::c_property;
using kvtest::SelectionArrays;

constexpr SCODE c_raised = static_cast<SCODE>(0x80041001);

class CKvPeCtrlBase_WriteSteps : public kvtest::ControlTest {
protected:
    // An object that raises an exception at a put.
    ScriptedObject& MakeRaising(const wchar_t* name, SCODE code = c_raised,
                                const wchar_t* description = L"refused") {
        ScriptedObject& object = MakeObject(name);
        object.At(c_property).putResult = DISP_E_EXCEPTION;
        object.At(c_property).exception.scode = code;
        object.At(c_property).exception.source = L"source";
        object.At(c_property).exception.helpFile = L"help";
        if (description != nullptr) {
            object.At(c_property).exception.description = description;
        }
        return object;
    }

    ScriptedDynamicProperty& MakeRefusing(const wchar_t* name, const wchar_t* description = L"refused",
                                          HRESULT result = E_ACCESSDENIED) {
        ScriptedDynamicProperty& property = MakeProperty(name, kvhost::OffersByObject);
        property.shared.putResult = result;
        if (description != nullptr) {
            property.errorText = description;
        }
        return property;
    }

    ScriptedObject& MakeWithState(const wchar_t* name, unsigned interfaces) {
        ScriptedObject& object = MakeObject(name, L"same", interfaces);
        object.At(c_property).unspecifiedAllowed = true;
        object.At(c_property).unspecified = true;
        object.At(c_property).expressionSupported = true;
        return object;
    }

    void SelectAll() {
        SelectionArrays arrays;
        for (const auto& object : objects) {
            arrays.Add(object.Get());
        }
        Select(arrays);
    }

    [[nodiscard]] kvtest::CallLines Messages() const { return kvtest::CallsOnly(journal, {"MessageBox"}); }

    // The lines of one object's write.
    [[nodiscard]] kvtest::CallLines Steps() const {
        return kvtest::CallsOnly(
            journal, {"Invoke", "IsUnspecified", "SetUnspecified", "IsExpression", "SetExpression",
                      "SetCurrentValueData", "Update", "kvedDisable", "kvedEnable"});
    }
};

// Dispid steps

TEST_F(CKvPeCtrlBase_WriteSteps, Dispid_Value_FirstClearsTheUnspecifiedState) {
    MakeWithState(L"A", kvhost::OffersUnspecified | kvhost::OffersUpdate);
    SelectAll();
    control.m_allowUnspecified = true;
    EXPECT_EQ(WriteText(L"new"), S_OK);
    EXPECT_CALLS(Steps(), "kvedDisableUsrbrk", "IsUnspecifiedAllowed A 5", "SetUnspecified A 5 0",
                 "Invoke A put 5 \"new\"", "Update A", "kvedEnableUsrbrk");
}

TEST_F(CKvPeCtrlBase_WriteSteps, Dispid_Unspecified_SetsTheStateOnly) {
    MakeWithState(L"A", kvhost::OffersUnspecified | kvhost::OffersUpdate);
    SelectAll();
    control.m_allowUnspecified = true;
    EXPECT_EQ(WriteText(L"none", ValueType_Unspecified), S_OK);
    EXPECT_CALLS(Steps(), "kvedDisableUsrbrk", "IsUnspecifiedAllowed A 5", "SetUnspecified A 5 -1",
                 "Update A", "kvedEnableUsrbrk");
}

TEST_F(CKvPeCtrlBase_WriteSteps, Dispid_UnspecifiedNotAllowed_LeavesTheObjectsAlone) {
    MakeWithState(L"A", kvhost::OffersUnspecified);
    SelectAll();
    EXPECT_EQ(WriteText(L"none", ValueType_Unspecified), S_OK);
    EXPECT_CALLS(Steps(), "kvedDisableUsrbrk", "kvedEnableUsrbrk");
}

TEST_F(CKvPeCtrlBase_WriteSteps, Dispid_StateOfObjectWithoutSupport_DoesNotStopTheWrite) {
    MakeObject(L"A");
    SelectAll();
    control.m_allowUnspecified = true;
    EXPECT_EQ(WriteText(L"new"), S_OK);
    EXPECT_CALLS(Steps(), "kvedDisableUsrbrk", "Invoke A put 5 \"new\"", "kvedEnableUsrbrk");
    EXPECT_EQ(WriteText(L"none", ValueType_Unspecified), E_FAIL);
}

TEST_F(CKvPeCtrlBase_WriteSteps, Dispid_Expression_HandsTheTextOver) {
    MakeWithState(L"A", kvhost::OffersExpression | kvhost::OffersUpdate);
    SelectAll();
    EXPECT_EQ(WriteText(L"a+b", ValueType_Expression), S_OK);
    EXPECT_CALLS(Steps(), "kvedDisableUsrbrk", "IsExpressionSupported A 5", "SetExpression A 5 a+b",
                 "Update A", "kvedEnableUsrbrk");
}

TEST_F(CKvPeCtrlBase_WriteSteps, Dispid_ExpressionThatIsNoText_ReturnsArgumentError) {
    MakeWithState(L"A", kvhost::OffersExpression);
    SelectAll();
    fw::Variant number = fw::Variant::FromLong(5);
    EXPECT_EQ(control.SetPropertyValue(number.Address(), ValueType_Expression), E_INVALIDARG);
    EXPECT_CALLS(Steps(), "kvedDisableUsrbrk", "kvedEnableUsrbrk");
}

TEST_F(CKvPeCtrlBase_WriteSteps, Dispid_Expression_AlsoClearsTheUnspecifiedStateFirst) {
    MakeWithState(L"A", kvhost::OffersUnspecified | kvhost::OffersExpression);
    SelectAll();
    control.m_allowUnspecified = true;
    EXPECT_EQ(WriteText(L"a+b", ValueType_Expression), S_OK);
    EXPECT_CALLS(Steps(), "kvedDisableUsrbrk", "IsUnspecifiedAllowed A 5", "SetUnspecified A 5 0",
                 "IsExpressionSupported A 5", "SetExpression A 5 a+b", "kvedEnableUsrbrk");
}

TEST_F(CKvPeCtrlBase_WriteSteps, RefusedObject_IsNotUpdated) {
    MakeObject(L"A", L"same", kvhost::OffersUpdate).At(c_property).putResult = E_ACCESSDENIED;
    MakeObject(L"B", L"same", kvhost::OffersUpdate);
    Select(SelectionArrays().Add(objects[0].Get()).AddDynamic(objects[1].Get(), &MakeRefusing(L"P")));
    EXPECT_EQ(WriteText(L"new"), S_OK);
    EXPECT_TRUE(kvtest::CallsOnly(journal, {"Update"}).empty());
}

TEST_F(CKvPeCtrlBase_WriteSteps, Dispid_UpdateFails_IsTheResult) {
    MakeObject(L"A", L"same", kvhost::OffersUpdate).updateResult = E_ACCESSDENIED;
    SelectAll();
    EXPECT_EQ(WriteText(L"new"), E_ACCESSDENIED);
    EXPECT_EQ(control.m_failedObjectCount, 0);
}

TEST_F(CKvPeCtrlBase_WriteSteps, Dispid_FailureWithoutException_LastsUntilTheNextObject) {
    MakeObject(L"A").At(c_property).putResult = E_ACCESSDENIED;
    MakeObject(L"B");
    SelectAll();
    EXPECT_EQ(WriteText(L"new"), S_OK);
    EXPECT_EQ(control.m_failedObjectCount, 0);
    EXPECT_TRUE(Messages().empty());
    EXPECT_EQ(control.Cleanup(), S_OK);
    Select(SelectionArrays().Add(objects[1].Get()).Add(objects[0].Get()));
    EXPECT_EQ(WriteText(L"new"), E_ACCESSDENIED);
    EXPECT_EQ(control.m_failedObjectCount, 0);
    EXPECT_TRUE(Messages().empty());
}

// The form of the automation calls

// Notes each call's arguments: "Invoke dispid locale flags arguments named name".
class StrictObject final : public IDispatch {
public:
    STDMETHODIMP QueryInterface(REFIID id, void** object) override {
        const bool isKnown = id == IID_IUnknown || id == IID_IDispatch;
        *object = isKnown ? static_cast<IDispatch*>(this) : nullptr;
        return isKnown ? S_OK : E_NOINTERFACE;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return 2; }
    STDMETHODIMP_(ULONG) Release() override { return 1; }
    STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
    STDMETHODIMP Invoke(DISPID dispid, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* parameters,
                        VARIANT* result, EXCEPINFO* exception, UINT* argument) override {
        EXPECT_TRUE(::IsEqualIID(reserved, IID_NULL));
        EXPECT_NE(exception, nullptr);
        EXPECT_EQ(argument, nullptr);
        EXPECT_EQ(result != nullptr, flags == DISPATCH_PROPERTYGET);
        kvtest::Note(L"Invoke", dispid, locale, flags, parameters->cArgs, parameters->cNamedArgs,
                     parameters->cNamedArgs == 1 ? parameters->rgdispidNamedArgs[0] : 0);
        return S_OK;
    }
};

TEST_F(CKvPeCtrlBase_WriteSteps, AutomationCalls_HaveTheFormThatServersExpect) {
    StrictObject object;
    Select(SelectionArrays().Add(&object, 7));
    EXPECT_EQ(Read(), S_OK);
    EXPECT_EQ(WriteText(L"new"), S_OK);
    EXPECT_CALLS(kvtest::CallsOnly(journal, {"Invoke"}), "Invoke 7 1024 2 0 0 0", "Invoke 7 1024 4 1 1 -3");
    EXPECT_EQ(control.Cleanup(), S_OK);
}

// Failures of dispid entries

TEST_F(CKvPeCtrlBase_WriteSteps, Dispid_FailureAtAnyPosition_OthersAreWrittenAndTheWriteSucceeds) {
    for (std::size_t failing = 0; failing < 3; ++failing) {
        objects.clear();
        for (std::size_t index = 0; index < 3; ++index) {
            index == failing ? MakeRaising(L"X") : MakeObject(L"A");
        }
        SelectAll();
        EXPECT_EQ(WriteText(L"new"), S_OK) << failing;
        EXPECT_EQ(control.m_failedObjectCount, 1);
        EXPECT_CALLS(Messages(), "MessageBox ownerless refused 48");
        for (std::size_t index = 0; index < 3; ++index) {
            EXPECT_EQ(objects[index]->At(c_property).puts.size(), index == failing ? 0U : 1U);
        }
        EXPECT_EQ(control.Cleanup(), S_OK);
    }
}

TEST_F(CKvPeCtrlBase_WriteSteps, Dispid_TwoOfThreeFail_Succeeds) {
    MakeRaising(L"A");
    MakeRaising(L"B");
    MakeObject(L"C");
    SelectAll();
    EXPECT_EQ(WriteText(L"new"), S_OK);
    EXPECT_EQ(control.m_failedObjectCount, 2);
}

TEST_F(CKvPeCtrlBase_WriteSteps, Dispid_AllFail_ReturnsTheLastFailure) {
    MakeRaising(L"A");
    MakeRaising(L"B");
    MakeRaising(L"C");
    SelectAll();
    EXPECT_EQ(WriteText(L"new"), DISP_E_EXCEPTION);
    EXPECT_EQ(control.m_failedObjectCount, 3);
}

TEST_F(CKvPeCtrlBase_WriteSteps, Dispid_SameCodeTwice_IsShownOnce) {
    MakeRaising(L"A");
    MakeRaising(L"B", c_raised, L"refused again");
    SelectAll();
    EXPECT_EQ(WriteText(L"new"), DISP_E_EXCEPTION);
    EXPECT_CALLS(Messages(), "MessageBox ownerless refused 48");
}

TEST_F(CKvPeCtrlBase_WriteSteps, Dispid_CodeAfterAnother_IsShownAgain) {
    MakeRaising(L"A", c_raised, L"one");
    MakeRaising(L"B", c_raised + 1, L"two");
    MakeRaising(L"C", c_raised, L"three");
    SelectAll();
    EXPECT_EQ(WriteText(L"new"), DISP_E_EXCEPTION);
    EXPECT_CALLS(Messages(), "MessageBox ownerless one 48", "MessageBox ownerless two 48",
                 "MessageBox ownerless three 48");
}

TEST_F(CKvPeCtrlBase_WriteSteps, Dispid_SixthFailure_IsCountedButNotShown) {
    for (int index = 0; index < 6; ++index) {
        MakeRaising(L"A", c_raised + index, (L"m" + std::to_wstring(index)).c_str());
    }
    SelectAll();
    EXPECT_EQ(WriteText(L"new"), DISP_E_EXCEPTION);
    EXPECT_EQ(control.m_failedObjectCount, 6);
    EXPECT_CALLS(Messages(), "MessageBox ownerless m0 48", "MessageBox ownerless m1 48",
                 "MessageBox ownerless m2 48", "MessageBox ownerless m3 48", "MessageBox ownerless m4 48");
}

TEST_F(CKvPeCtrlBase_WriteSteps, Dispid_NextWrite_ShowsAndCountsAnew) {
    MakeRaising(L"A");
    SelectAll();
    EXPECT_EQ(WriteText(L"new"), DISP_E_EXCEPTION);
    EXPECT_EQ(WriteText(L"new"), DISP_E_EXCEPTION);
    EXPECT_EQ(control.m_failedObjectCount, 1);
    EXPECT_EQ(Messages().size(), 2U);
}

TEST_F(CKvPeCtrlBase_WriteSteps, Dispid_NoDescription_IsNotShown) {
    MakeRaising(L"A", c_raised, nullptr);
    SelectAll();
    EXPECT_EQ(WriteText(L"new"), DISP_E_EXCEPTION);
    EXPECT_EQ(control.m_failedObjectCount, 1);
    EXPECT_TRUE(Messages().empty());
}

TEST_F(CKvPeCtrlBase_WriteSteps, Dispid_RecordingPreview_ShowsNothing) {
    MakeRaising(L"A");
    SelectAll();
    host->Editor().SetPreviewRecording(true);
    EXPECT_EQ(WriteText(L"new"), DISP_E_EXCEPTION);
    EXPECT_EQ(control.m_failedObjectCount, 1);
    EXPECT_TRUE(Messages().empty());
}

TEST_F(CKvPeCtrlBase_WriteSteps, Dispid_CommandThatWritesProperties_KeepsTheFailureUncounted) {
    MakeRaising(L"A");
    MakeRaising(L"B");
    SelectAll();
    host->Editor().PushCommand(L"CHANGE", 0x8000000);
    EXPECT_EQ(WriteText(L"new"), DISP_E_EXCEPTION);
    EXPECT_EQ(control.m_failedObjectCount, 0);
    EXPECT_TRUE(Messages().empty());
}

TEST_F(CKvPeCtrlBase_WriteSteps, Dispid_LockedAndFailing_CountAgainstTheWholeSelection) {
    MakeRaising(L"A");
    LockLayerOf(MakeEntity(&MakeObject(L"B")));
    SelectAll();
    EXPECT_EQ(WriteText(L"new"), S_OK);
    EXPECT_EQ(control.m_failedObjectCount, 1);
}

// Dynamic steps

TEST_F(CKvPeCtrlBase_WriteSteps, Dynamic_Value_PrefersTheFormByObject) {
    ScriptedDynamicProperty& property =
        MakeProperty(L"P", kvhost::OffersByObject | kvhost::OffersById | kvhost::OffersUnspecified);
    property.shared.unspecifiedAllowed = true;
    Select(SelectionArrays().AddDynamic(&MakeObject(L"A", L"same", kvhost::OffersUpdate), &property));
    control.m_allowUnspecified = true;
    EXPECT_EQ(WriteText(L"new"), S_OK);
    EXPECT_CALLS(Steps(), "IsUnspecifiedAllowed P A", "SetUnspecified P A 0",
                 "SetCurrentValueData P A \"new\"", "Update A");
}

TEST_F(CKvPeCtrlBase_WriteSteps, Dynamic_ById_IsGivenTheId) {
    ScriptedObject& object = MakeObject(L"A");
    const KvDbObjectId id = MakeEntity(&object);
    Select(SelectionArrays().AddDynamic(&object, &MakeProperty(L"P", kvhost::OffersById)));
    EXPECT_EQ(WriteText(L"new"), S_OK);
    EXPECT_CALLS(Steps(), "SetCurrentValueData P " + kvtest::ToUtf8(kvhost::AsText(id)) + " \"new\"");
}

TEST_F(CKvPeCtrlBase_WriteSteps, Dynamic_NullObject_IsWrittenWithNullId) {
    Select(SelectionArrays().AddDynamic(nullptr, &MakeProperty(L"P", kvhost::OffersById)));
    EXPECT_EQ(WriteText(L"new"), S_OK);
    EXPECT_CALLS(Steps(), "SetCurrentValueData P null \"new\"");
}

TEST_F(CKvPeCtrlBase_WriteSteps, Dynamic_WithoutEitherForm_IsSkipped) {
    Select(SelectionArrays()
               .AddDynamic(&MakeObject(L"A"), nullptr)
               .AddDynamic(&MakeObject(L"B"), &MakeProperty(L"P", 0))
               .AddDynamic(&MakeObject(L"C"), &MakeProperty(L"Q", kvhost::OffersByObject)));
    EXPECT_EQ(WriteText(L"new"), S_OK);
    EXPECT_CALLS(Steps(), "SetCurrentValueData Q C \"new\"");
}

TEST_F(CKvPeCtrlBase_WriteSteps, Dynamic_UnspecifiedAndExpression_GoToTheProperty) {
    ScriptedDynamicProperty& property =
        MakeProperty(L"P", kvhost::OffersByObject | kvhost::OffersUnspecified | kvhost::OffersExpression);
    property.shared.unspecifiedAllowed = true;
    property.shared.expressionSupported = true;
    Select(SelectionArrays().AddDynamic(&MakeObject(L"A"), &property));
    control.m_allowUnspecified = true;
    EXPECT_EQ(WriteText(L"none", ValueType_Unspecified), S_OK);
    EXPECT_CALLS(Steps(), "IsUnspecifiedAllowed P A", "SetUnspecified P A -1");
    control.m_allowUnspecified = false;
    journal.Clear();
    EXPECT_EQ(WriteText(L"a+b", ValueType_Expression), S_OK);
    EXPECT_CALLS(Steps(), "IsExpressionSupported P A", "SetExpression P A a+b");
    fw::Variant number = fw::Variant::FromLong(5);
    EXPECT_EQ(control.SetPropertyValue(number.Address(), ValueType_Expression), E_INVALIDARG);
}

TEST_F(CKvPeCtrlBase_WriteSteps, Dynamic_EveryFailure_IsCountedAndShown) {
    ScriptedDynamicProperty& property = MakeRefusing(L"P");
    Select(
        SelectionArrays().AddDynamic(&MakeObject(L"A"), &property).AddDynamic(&MakeObject(L"B"), &property));
    EXPECT_EQ(WriteText(L"new"), E_ACCESSDENIED);
    EXPECT_EQ(control.m_failedObjectCount, 2);
    EXPECT_CALLS(Messages(), "MessageBox ownerless refused 48", "MessageBox ownerless refused 48");
}

TEST_F(CKvPeCtrlBase_WriteSteps, Dynamic_RecordingPreview_StillShows) {
    Select(SelectionArrays().AddDynamic(&MakeObject(L"A"), &MakeRefusing(L"P")));
    host->Editor().SetPreviewRecording(true);
    EXPECT_EQ(WriteText(L"new"), E_ACCESSDENIED);
    EXPECT_EQ(Messages().size(), 1U);
}

TEST_F(CKvPeCtrlBase_WriteSteps, Dynamic_OlderErrorText_IsNotShown) {
    Select(SelectionArrays().AddDynamic(&MakeObject(L"A"), &MakeRefusing(L"P", nullptr)));
    EXPECT_EQ(fw::SetErrorText(E_FAIL, IID_NULL, L"source", L"older"), E_FAIL);
    EXPECT_EQ(WriteText(L"new"), E_ACCESSDENIED);
    EXPECT_EQ(control.m_failedObjectCount, 1);
    EXPECT_TRUE(Messages().empty());
}

TEST_F(CKvPeCtrlBase_WriteSteps, Dynamic_SixthFailure_IsCountedButNotShown) {
    ScriptedDynamicProperty& property = MakeRefusing(L"P");
    SelectionArrays arrays;
    for (int index = 0; index < 6; ++index) {
        arrays.AddDynamic(&MakeObject(L"A"), &property);
    }
    Select(arrays);
    EXPECT_EQ(WriteText(L"new"), E_ACCESSDENIED);
    EXPECT_EQ(control.m_failedObjectCount, 6);
    EXPECT_EQ(Messages().size(), 5U);
    fw::ClearErrorInfo();
}

TEST_F(CKvPeCtrlBase_WriteSteps, Dynamic_OneOfTwoFails_Succeeds) {
    Select(SelectionArrays()
               .AddDynamic(&MakeObject(L"A"), &MakeProperty(L"P", kvhost::OffersByObject))
               .AddDynamic(&MakeObject(L"B"), &MakeRefusing(L"Q")));
    EXPECT_EQ(WriteText(L"new"), S_OK);
    EXPECT_EQ(control.m_failedObjectCount, 1);
}

TEST_F(CKvPeCtrlBase_WriteSteps, Dynamic_CommandThatWritesProperties_KeepsTheFailureUncounted) {
    Select(SelectionArrays().AddDynamic(&MakeObject(L"A"), &MakeRefusing(L"P")));
    host->Editor().PushCommand(L"CHANGE", 0x8000000);
    EXPECT_EQ(WriteText(L"new"), E_ACCESSDENIED);
    EXPECT_EQ(control.m_failedObjectCount, 0);
    EXPECT_TRUE(Messages().empty());
    fw::ClearErrorInfo();
}

TEST_F(CKvPeCtrlBase_WriteSteps, Mixed_MessagesOfBothKinds_CountTogether) {
    SelectionArrays arrays;
    ScriptedDynamicProperty& property = MakeRefusing(L"P", L"dynamic");
    for (int index = 0; index < 3; ++index) {
        arrays.Add(&MakeRaising(L"A", c_raised + index, L"dispid"));
        arrays.AddDynamic(&MakeObject(L"B"), &property);
    }
    Select(arrays);
    EXPECT_EQ(WriteText(L"new"), E_ACCESSDENIED);
    EXPECT_EQ(control.m_failedObjectCount, 6);
    EXPECT_EQ(Messages().size(), 5U);
    fw::ClearErrorInfo();
}

}  // namespace
