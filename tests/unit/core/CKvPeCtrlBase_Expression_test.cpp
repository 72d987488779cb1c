#include "core/ExpressionState.h"
#include "tests/unit/core/ControlBench.h"

namespace {

using kvhost::ScriptedDynamicProperty;
using kvhost::ScriptedObject;
using kvtest::c_property;
using kvtest::SelectionArrays;

class CKvPeCtrlBase_Expression : public kvtest::ControlTest {
protected:
    ScriptedObject& MakeBound(const wchar_t* name, const wchar_t* expression) {
        ScriptedObject& object = MakeObject(name, L"same", kvhost::OffersExpression);
        object.At(c_property).expressionSupported = true;
        object.At(c_property).expression = expression;
        return object;
    }

    ScriptedDynamicProperty& MakeBoundProperty(const wchar_t* name, const wchar_t* expression) {
        ScriptedDynamicProperty& property =
            MakeProperty(name, kvhost::OffersByObject | kvhost::OffersExpression);
        property.shared.expressionSupported = true;
        property.shared.expression = expression;
        return property;
    }

    // Reads objects bound to these expressions; null stands for an object without support.
    void ReadExpressions(std::initializer_list<const wchar_t*> expressions) {
        SelectionArrays arrays;
        for (const wchar_t* const expression : expressions) {
            arrays.Add(expression != nullptr ? &MakeBound(L"A", expression) : &MakeObject(L"A"));
        }
        Select(arrays);
        EXPECT_EQ(Read(), S_OK);
        EXPECT_EQ(type, ValueType_Specific);
    }
};

TEST_F(CKvPeCtrlBase_Expression, State_OneObjectWithExpression_IsShared) {
    ReadExpressions({L"a+b"});
    EXPECT_EQ(control.m_expressionState, ExpressionState_Shared);
    EXPECT_EQ(control.m_expression, L"a+b");
}

TEST_F(CKvPeCtrlBase_Expression, State_OneObjectWithoutExpression_IsEmpty) {
    ReadExpressions({L""});
    EXPECT_EQ(control.m_expressionState, ExpressionState_NoExpression);
}

TEST_F(CKvPeCtrlBase_Expression, State_NoSupport_IsNone) {
    ReadExpressions({nullptr, nullptr});
    EXPECT_EQ(control.m_expressionState, ExpressionState_Unsupported);
}

TEST_F(CKvPeCtrlBase_Expression, State_SameExpression_IsShared) {
    ReadExpressions({L"a+b", L"a+b"});
    EXPECT_EQ(control.m_expressionState, ExpressionState_Shared);
    EXPECT_EQ(control.m_expression, L"a+b");
}

TEST_F(CKvPeCtrlBase_Expression, State_ExpressionsThatDifferInCase_AreMixed) {
    ReadExpressions({L"a+b", L"A+b"});
    EXPECT_EQ(control.m_expressionState, ExpressionState_Mixed);
    EXPECT_TRUE(control.m_expression.IsEmpty());
}

TEST_F(CKvPeCtrlBase_Expression, State_ExpressionOnFirstOnly_IsMixedAndStaysSo) {
    ReadExpressions({L"a+b", L""});
    EXPECT_EQ(control.m_expressionState, ExpressionState_Mixed);
    EXPECT_TRUE(control.m_expression.IsEmpty());
    EXPECT_EQ(control.Cleanup(), S_OK);
    ReadExpressions({L"a+b", L"", L""});
    EXPECT_EQ(control.m_expressionState, ExpressionState_Mixed);
}

TEST_F(CKvPeCtrlBase_Expression, State_ExpressionOnSecondOnly_IsMixed) {
    ReadExpressions({L"", L"a+b"});
    EXPECT_EQ(control.m_expressionState, ExpressionState_Mixed);
    EXPECT_TRUE(control.m_expression.IsEmpty());
}

TEST_F(CKvPeCtrlBase_Expression, State_ThirdWithoutExpression_BringsMixedBackToEmpty) {
    ReadExpressions({L"", L"a+b", L""});
    EXPECT_EQ(control.m_expressionState, ExpressionState_NoExpression);
}

TEST_F(CKvPeCtrlBase_Expression, State_SupportOnSecondOnly_CountsForTheSelection) {
    ReadExpressions({nullptr, L""});
    EXPECT_EQ(control.m_expressionState, ExpressionState_NoExpression);
}

TEST_F(CKvPeCtrlBase_Expression, State_NoSupportBehindSupport_DoesNotTakeItBack) {
    ReadExpressions({L"", nullptr});
    EXPECT_EQ(control.m_expressionState, ExpressionState_NoExpression);
}

TEST_F(CKvPeCtrlBase_Expression, State_NextRead_StartsAnew) {
    ReadExpressions({L"a+b"});
    objects[0]->At(c_property).expressionSupported = false;
    EXPECT_EQ(Read(), S_OK);
    EXPECT_EQ(control.m_expressionState, ExpressionState_Unsupported);
    EXPECT_TRUE(control.m_expression.IsEmpty());
}

TEST_F(CKvPeCtrlBase_Expression, State_DynamicEntries_ShareTheirs) {
    ScriptedDynamicProperty& property = MakeBoundProperty(L"P", L"a+b");
    Select(
        SelectionArrays().AddDynamic(&MakeObject(L"A"), &property).AddDynamic(&MakeObject(L"B"), &property));
    EXPECT_EQ(Read(), S_OK);
    EXPECT_EQ(control.m_expressionState, ExpressionState_Shared);
    EXPECT_EQ(control.m_expression, L"a+b");
}

TEST_F(CKvPeCtrlBase_Expression, State_ExpressionCannotBeRead_CountsAsSupportedAndEmpty) {
    MakeBound(L"A", L"a+b").At(c_property).getExpressionResult = E_ACCESSDENIED;
    Select(SelectionArrays().Add(objects[0].Get()));
    EXPECT_EQ(Read(), S_OK);
    EXPECT_EQ(control.m_expressionState, ExpressionState_NoExpression);
}

// UpdateExpressionSupportState, step by step

TEST_F(CKvPeCtrlBase_Expression, Update_ByArguments) {
    control.m_expression = L"a";
    control.UpdateExpressionSupportState(false, false, L"b");
    EXPECT_EQ(control.m_expressionState, ExpressionState_Unsupported);
    EXPECT_EQ(control.m_expression, L"a");
    control.UpdateExpressionSupportState(false, true, L"a");
    EXPECT_EQ(control.m_expressionState, ExpressionState_Shared);
    control.UpdateExpressionSupportState(false, true, L"A");
    EXPECT_EQ(control.m_expressionState, ExpressionState_Mixed);
    EXPECT_TRUE(control.m_expression.IsEmpty());
    control.UpdateExpressionSupportState(false, true, L"");
    EXPECT_EQ(control.m_expressionState, ExpressionState_Mixed);
    control.UpdateExpressionSupportState(true, true, L"");
    EXPECT_EQ(control.m_expressionState, ExpressionState_NoExpression);
}

// CheckPropertyForExpression

TEST_F(CKvPeCtrlBase_Expression, Check_NullPointers_ReturnsPointerError) {
    IDispatch* const object = &MakeBound(L"A", L"a");
    IDispatch* const none = nullptr;
    IUnknown* const unknown = object;
    IUnknown* const noUnknown = nullptr;
    VARIANT* const given = value.Address();
    bool supported = true;
    EXPECT_EQ(control.CheckPropertyForExpression(c_property, none, given, &supported), E_POINTER);
    EXPECT_EQ(control.CheckPropertyForExpression(c_property, object, nullptr, &supported), E_POINTER);
    EXPECT_EQ(control.CheckPropertyForExpression(c_property, object, given, nullptr), E_POINTER);
    EXPECT_EQ(control.CheckPropertyForExpression(noUnknown, unknown, given, &supported), E_POINTER);
    EXPECT_EQ(control.CheckPropertyForExpression(unknown, noUnknown, given, &supported), E_POINTER);
    EXPECT_EQ(control.CheckPropertyForExpression(unknown, unknown, nullptr, &supported), E_POINTER);
    EXPECT_EQ(control.CheckPropertyForExpression(unknown, unknown, given, nullptr), E_POINTER);
    EXPECT_TRUE(supported);
}

TEST_F(CKvPeCtrlBase_Expression, Check_NoSupport_ClearsTheFlagAndSucceeds) {
    bool supported = true;
    EXPECT_EQ(control.CheckPropertyForExpression(c_property, &MakeObject(L"A"), value.Address(), &supported),
              S_OK);
    EXPECT_FALSE(supported);
}

TEST_F(CKvPeCtrlBase_Expression, Check_QuestionFails_CountsAsNo) {
    MakeBound(L"A", L"a").At(c_property).isExpressionSupportedResult = E_ACCESSDENIED;
    bool supported = true;
    EXPECT_EQ(control.CheckPropertyForExpression(c_property, objects[0].Get(), value.Address(), &supported),
              S_OK);
    EXPECT_FALSE(supported);
    EXPECT_CALLS(journal, "IsExpressionSupported A 5");
}

// Only the answer counts: objects in use tell yes with a result that is none.
TEST_F(CKvPeCtrlBase_Expression, Check_QuestionFailsButIsAnsweredYes_CountsAsYes) {
    MakeBound(L"A", L"a").At(c_property).isExpressionSupportedResult = E_ACCESSDENIED;
    objects[0]->At(c_property).answersThoughFailing = true;
    bool supported = false;
    EXPECT_EQ(control.CheckPropertyForExpression(c_property, objects[0].Get(), value.Address(), &supported),
              S_OK);
    EXPECT_TRUE(supported);
    EXPECT_EQ(ValueText(), L"a");
    EXPECT_CALLS(journal, "IsExpressionSupported A 5", "GetExpression A 5");
}

TEST_F(CKvPeCtrlBase_Expression, Check_Supported_ReplacesTheCallersValue) {
    value = fw::Variant::FromString(L"older");
    bool supported = false;
    EXPECT_EQ(
        control.CheckPropertyForExpression(c_property, &MakeBound(L"A", L"a+b"), value.Address(), &supported),
        S_OK);
    EXPECT_TRUE(supported);
    EXPECT_EQ(ValueText(), L"a+b");
}

TEST_F(CKvPeCtrlBase_Expression, Check_TextCannotBeRead_FailsAndKeepsTheValue) {
    MakeBound(L"A", L"a").At(c_property).getExpressionResult = E_ACCESSDENIED;
    value = fw::Variant::FromString(L"older");
    bool supported = false;
    EXPECT_EQ(control.CheckPropertyForExpression(c_property, objects[0].Get(), value.Address(), &supported),
              E_FAIL);
    EXPECT_TRUE(supported);
    EXPECT_EQ(ValueText(), L"older");
}

TEST_F(CKvPeCtrlBase_Expression, Check_Dynamic_AsksWithTheObjectAsKey) {
    ScriptedDynamicProperty& property = MakeBoundProperty(L"P", L"a+b");
    ScriptedObject& object = MakeObject(L"A");
    const ULONG before = object.References();
    bool supported = false;
    EXPECT_EQ(control.CheckPropertyForExpression(property.Identity(), static_cast<IDispatch*>(&object),
                                                 value.Address(), &supported),
              S_OK);
    EXPECT_EQ(object.References(), before);
    EXPECT_CALLS(journal, "IsExpressionSupported P A", "GetExpression P A");
}

// SetPropertyExpressionAsString

class SetExpression : public CKvPeCtrlBase_Expression {
protected:
    HRESULT SetByDispid(IDispatch* object) {
        return control.SetPropertyExpressionAsString(c_property, object, text);
    }
    HRESULT SetDynamic(IUnknown* property, IUnknown* object) {
        return control.SetPropertyExpressionAsString(property, object, text);
    }
    wchar_t text[4] = L"x+1";
};

TEST_F(SetExpression, NullPointers_ReturnsPointerError) {
    IDispatch* const object = &MakeBound(L"A", L"");
    wchar_t* const noText = nullptr;
    EXPECT_EQ(SetByDispid(nullptr), E_POINTER);
    EXPECT_EQ(control.SetPropertyExpressionAsString(c_property, object, noText), E_POINTER);
    EXPECT_EQ(SetDynamic(nullptr, object), E_POINTER);
    EXPECT_EQ(SetDynamic(object, nullptr), E_POINTER);
    EXPECT_EQ(control.SetPropertyExpressionAsString(static_cast<IUnknown*>(object), object, noText),
              E_POINTER);
}

TEST_F(SetExpression, NoSupport_Fails) {
    EXPECT_EQ(SetByDispid(&MakeObject(L"A")), E_FAIL);
    EXPECT_EQ(SetDynamic(MakeProperty(L"P", kvhost::OffersByObject).Identity(),
                         static_cast<IDispatch*>(objects[0].Get())),
              E_FAIL);
}

TEST_F(SetExpression, NotSupportedOrNotAnswered_Fails) {
    ScriptedObject& object = MakeBound(L"A", L"");
    object.At(c_property).expressionSupported = false;
    EXPECT_EQ(SetByDispid(&object), E_FAIL);
    object.At(c_property).expressionSupported = true;
    object.At(c_property).isExpressionSupportedResult = E_ACCESSDENIED;
    EXPECT_EQ(SetByDispid(&object), E_FAIL);
    object.At(c_property).answersThoughFailing = true;
    EXPECT_EQ(SetByDispid(&object), E_FAIL) << "unlike the read, the write needs a result";
}

TEST_F(SetExpression, Supported_HandsTheTextOver) {
    EXPECT_EQ(SetByDispid(&MakeBound(L"A", L"")), S_OK);
    EXPECT_EQ(SetDynamic(MakeBoundProperty(L"P", L"").Identity(), static_cast<IDispatch*>(objects[0].Get())),
              S_OK);
    EXPECT_CALLS(journal, "IsExpressionSupported A 5", "SetExpression A 5 x+1", "IsExpressionSupported P A",
                 "SetExpression P A x+1");
}

TEST_F(SetExpression, Refused_Fails) {
    MakeBound(L"A", L"").At(c_property).setExpressionResult = E_ACCESSDENIED;
    EXPECT_EQ(SetByDispid(objects[0].Get()), E_FAIL);
}

}  // namespace
