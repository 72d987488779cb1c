#include <algorithm>

#include "framework/com/ErrorInfo.h"
#include "host_sdk/IDynamicProperty.h"
#include "host_sdk/IDynamicPropertyByObject.h"
#include "host_sdk/IDynamicPropertyDialog.h"
#include "host_sdk/IDynamicPropertyEnum.h"
#include "host_sdk/IPropertyExpressionSupport.h"
#include "host_sdk/IPropertyUnspecifiedSupport.h"
#include "refhost/db/Circle.h"
#include "refhost/db/Layer.h"
#include "refhost/testing/Answers.h"
#include "refhost/testing/Faults.h"
#include "tests/support/ExpectCalls.h"
#include "tests/unit/refhost/automation/AutomationFixture.h"

namespace {

using kvhost::Circle;

class DynamicAttributeTest : public kvtest::AutomationFixture {
protected:
    ~DynamicAttributeTest() override { kvhost::Faults::Reset(); }

    KvDbObjectId AddWith(const wchar_t* name, const wchar_t* text) {
        return Add<Circle>(
            [&](Circle& circle) { EXPECT_EQ(circle.SetCustomAttribute(name, text), Tolm::eOk); });
    }

    static fw::ComPtr<IUnknown> PropertyOf(KvDbObjectId id) {
        const auto rows = kvhost::RowsOf(std::vector{id});
        return rows.back().entries.front().dynamicProperty;
    }

    static VARIANT Bstr(fw::Bstr& text) {
        VARIANT value{};
        value.vt = VT_BSTR;
        value.bstrVal = text.Get();
        return value;
    }

    static const std::wstring& TextOf(KvDbObjectId id, const wchar_t* name) {
        return *kvhost::Database::Peek(id)->CustomAttribute(name);
    }
};

TEST_F(DynamicAttributeTest, ByObject_ReadsAndWritesAndIsUndone) {
    const KvDbObjectId id = AddWith(L"POP", L"100");
    const auto property = PropertyOf(id).As<IDynamicPropertyByObject>();
    const auto object = ObjectOf(id);
    fw::Variant value;
    EXPECT_EQ(property->GetCurrentValueData(object.Get(), value.Put()), S_OK);
    EXPECT_EQ(value.StringView(), L"100");
    fw::Bstr text(L"200");
    EXPECT_EQ(property->SetCurrentValueData(object.Get(), Bstr(text)), S_OK);
    EXPECT_EQ(TextOf(id, L"POP"), L"200");
    EXPECT_EQ(m_database.Undo().Undo(1), Tolm::eOk);
    EXPECT_EQ(TextOf(id, L"POP"), L"100");
}

TEST_F(DynamicAttributeTest, ById_ReadsAndWrites) {
    const KvDbObjectId id = AddWith(L"Remarks", L"old");
    const auto property = PropertyOf(id).As<IDynamicProperty>();
    fw::Variant value;
    EXPECT_EQ(property->GetCurrentValueData(id, value.Put()), S_OK);
    EXPECT_EQ(value.StringView(), L"old");
    fw::Bstr text(L"new");
    EXPECT_EQ(property->SetCurrentValueData(id, Bstr(text)), S_OK);
    EXPECT_EQ(TextOf(id, L"Remarks"), L"new");
}

TEST_F(DynamicAttributeTest, NullIdOrObjectWithoutAttribute_Fails) {
    const KvDbObjectId id = AddWith(L"POP", L"1");
    const KvDbObjectId other = Add<Circle>();
    const auto property = PropertyOf(id).As<IDynamicProperty>();
    fw::Variant value;
    EXPECT_EQ(property->GetCurrentValueData({}, value.Put()),
              static_cast<HRESULT>(0x80200000UL | Tolm::eNullObjectId));
    EXPECT_EQ(property->GetCurrentValueData(other, value.Put()),
              static_cast<HRESULT>(0x80200000UL | Tolm::eKeyNotFound));
    fw::Bstr text(L"2");
    EXPECT_EQ(property->SetCurrentValueData(other, Bstr(text)),
              static_cast<HRESULT>(0x80200000UL | Tolm::eKeyNotFound));
    fw::ClearErrorInfo();
}

TEST_F(DynamicAttributeTest, RefusedWrite_LeavesItsReasonAsErrorText) {
    const KvDbObjectId id = AddWith(L"POP", L"1");
    Write<kvhost::Layer>(m_database.LayerNamed(L"0"),
                         [](kvhost::Layer& layer) { return layer.SetLocked(true); });
    const auto property = PropertyOf(id).As<IDynamicPropertyByObject>();
    fw::Bstr text(L"2");
    EXPECT_TRUE(FAILED(property->SetCurrentValueData(ObjectOf(id).Get(), Bstr(text))));
    fw::ErrorInfo info;
    ASSERT_TRUE(fw::TakeErrorInfo(info));
    EXPECT_EQ(info.description, L"The object is on a locked layer.");
}

TEST_F(DynamicAttributeTest, ReadOnlyKind_SaysSoAndRefuses) {
    const KvDbObjectId id = AddWith(L"Source", L"survey");
    const auto property = PropertyOf(id).As<IDynamicProperty>();
    BOOL readOnly = FALSE;
    EXPECT_EQ(property->IsPropertyReadOnly(&readOnly), S_OK);
    EXPECT_EQ(readOnly, TRUE);
    fw::Bstr text(L"2");
    EXPECT_EQ(property->SetCurrentValueData(id, Bstr(text)),
              static_cast<HRESULT>(0x80200000UL | Tolm::eNotAllowed));
    fw::ClearErrorInfo();
}

TEST_F(DynamicAttributeTest, CurrentValueType_IsText) {
    const KvDbObjectId id = AddWith(L"Note", L"1");
    const auto property = PropertyOf(id).As<IDynamicProperty>();
    VARTYPE type = VT_EMPTY;
    EXPECT_EQ(property->GetCurrentValueType(&type), S_OK);
    EXPECT_EQ(type, VT_BSTR);
    EXPECT_EQ(property->GetCurrentValueType(nullptr), E_POINTER);
}

TEST_F(DynamicAttributeTest, OtherValueTypes_BecomeText) {
    const KvDbObjectId id = AddWith(L"POP", L"1");
    const auto property = PropertyOf(id).As<IDynamicProperty>();
    EXPECT_EQ(property->SetCurrentValueData(id, fw::Variant::FromLong(12).Get()), S_OK);
    EXPECT_EQ(TextOf(id, L"POP"), L"12");
    EXPECT_EQ(property->SetCurrentValueData(id, fw::Variant::FromUnknown(nullptr).Get()),
              DISP_E_TYPEMISMATCH);
}

TEST_F(DynamicAttributeTest, Unspecified_IsKeyedByTheObject) {
    const KvDbObjectId first = AddWith(L"Inspection", L"a");
    const KvDbObjectId second = AddWith(L"Inspection", L"b");
    const auto support = PropertyOf(first).As<IPropertyUnspecifiedSupport>();
    const auto firstObject = ObjectOf(first);
    const auto secondObject = ObjectOf(second);
    EXPECT_EQ(support->SetUnspecified(KeyOf(firstObject.Get()), VARIANT_TRUE), S_OK);
    VARIANT_BOOL answer = VARIANT_FALSE;
    EXPECT_EQ(support->IsUnspecified(KeyOf(firstObject.Get()), &answer), S_OK);
    EXPECT_EQ(answer, VARIANT_TRUE);
    EXPECT_EQ(support->IsUnspecified(KeyOf(secondObject.Get()), &answer), S_OK);
    EXPECT_EQ(answer, VARIANT_FALSE);
    fw::Bstr text;
    EXPECT_EQ(support->GetUnspecifiedText(KeyOf(firstObject.Get()), text.Put()), S_OK);
    EXPECT_EQ(text.View(), L"unknown");
    EXPECT_EQ(m_database.Undo().Undo(1), Tolm::eOk);
    EXPECT_EQ(support->IsUnspecified(KeyOf(firstObject.Get()), &answer), S_OK);
    EXPECT_EQ(answer, VARIANT_FALSE);
}

TEST_F(DynamicAttributeTest, PlainAttribute_KnowsNeitherState) {
    const KvDbObjectId id = AddWith(L"POP", L"1");
    const auto object = ObjectOf(id);
    const auto property = PropertyOf(id);
    VARIANT_BOOL answer = VARIANT_TRUE;
    EXPECT_EQ(property.As<IPropertyUnspecifiedSupport>()->IsUnspecifiedAllowed(KeyOf(object.Get()), &answer),
              S_OK);
    EXPECT_EQ(answer, VARIANT_FALSE);
    EXPECT_EQ(property.As<IPropertyUnspecifiedSupport>()->SetUnspecified(KeyOf(object.Get()), VARIANT_TRUE),
              E_INVALIDARG);
    answer = VARIANT_TRUE;
    EXPECT_EQ(property.As<IPropertyExpressionSupport>()->IsExpressionSupported(KeyOf(object.Get()), &answer),
              S_OK);
    EXPECT_EQ(answer, VARIANT_FALSE);
}

TEST_F(DynamicAttributeTest, Expression_IsEvaluatedForItsObject) {
    const KvDbObjectId id = AddWith(L"Survey", L"a");
    const auto object = ObjectOf(id);
    const auto support = PropertyOf(id).As<IPropertyExpressionSupport>();
    wchar_t expression[] = L"\"r \" & Radius";
    EXPECT_EQ(support->SetExpression(KeyOf(object.Get()), expression), S_OK);
    EXPECT_EQ(TextOf(id, L"Survey"), L"r 1");
    fw::Bstr read;
    EXPECT_EQ(support->GetExpression(KeyOf(object.Get()), read.Put()), S_OK);
    EXPECT_EQ(read.View(), expression);
}

TEST_F(DynamicAttributeTest, Choice_ListsItsValuesInTheirType) {
    const KvDbObjectId id = AddWith(L"Storeys", L"2");
    const auto rows = kvhost::RowsOf(std::vector{id});
    EXPECT_EQ(rows.back().control, L"KvPePropertyEditorEnum");
    EXPECT_EQ(rows.back().type, VT_I4);
    const auto values = PropertyOf(id).As<IDynamicPropertyEnum>();
    long count = 0;
    EXPECT_EQ(values->GetValueCount(&count), S_OK);
    ASSERT_EQ(count, 3);
    fw::Bstr name;
    EXPECT_EQ(values->GetValueName(1, name.Put()), S_OK);
    EXPECT_EQ(name.View(), L"Two storeys");
    fw::Variant data;
    EXPECT_EQ(values->GetValueData(1, data.Put()), S_OK);
    EXPECT_EQ(data.LongOr(0), 2);
    for (const long index : {-1L, 3L}) {
        EXPECT_EQ(values->GetValueName(index, name.Put()), E_INVALIDARG);
        EXPECT_EQ(values->GetValueData(index, data.Put()), E_INVALIDARG);
    }
    EXPECT_FALSE(PropertyOf(AddWith(L"POP", L"1")).As<IDynamicPropertyEnum>());
}

TEST_F(DynamicAttributeTest, Choice_TakesItsValuesAlone) {
    const KvDbObjectId id = AddWith(L"Storeys", L"2");
    const auto property = PropertyOf(id).As<IDynamicProperty>();
    fw::Variant value;
    EXPECT_EQ(property->GetCurrentValueData(id, value.Put()), S_OK);
    EXPECT_EQ(value.LongOr(0), 2);
    EXPECT_EQ(property->SetCurrentValueData(id, fw::Variant::FromLong(3).Get()), S_OK);
    EXPECT_EQ(TextOf(id, L"Storeys"), L"3");
    EXPECT_EQ(property->SetCurrentValueData(id, fw::Variant::FromLong(4).Get()),
              static_cast<HRESULT>(0x80200000UL | Tolm::eInvalidInput));
    EXPECT_EQ(TextOf(id, L"Storeys"), L"3");
    fw::ClearErrorInfo();
}

TEST_F(DynamicAttributeTest, Choice_TextThatIsNoneOfTheValuesIsHandedOut) {
    const KvDbObjectId id = AddWith(L"Storeys", L"many");
    fw::Variant value;
    EXPECT_EQ(PropertyOf(id).As<IDynamicProperty>()->GetCurrentValueData(id, value.Put()), S_OK);
    EXPECT_EQ(value.StringView(), L"many");
    const KvDbObjectId other = AddWith(L"Public", L"perhaps");
    EXPECT_EQ(PropertyOf(other).As<IDynamicProperty>()->GetCurrentValueData(other, value.Put()), S_OK);
    EXPECT_EQ(value.StringView(), L"perhaps");
}

TEST_F(DynamicAttributeTest, Truth_HasTwoNamesAndIsStoredAsText) {
    const KvDbObjectId id = AddWith(L"Public", L"yes");
    const auto property = PropertyOf(id).As<IDynamicPropertyNames>();
    long count = 0;
    EXPECT_EQ(property->GetPropertyNameCount(&count), S_OK);
    EXPECT_EQ(count, 2);
    fw::Bstr name;
    EXPECT_EQ(property->GetPropertyName(0, name.Put()), S_OK);
    EXPECT_EQ(name.View(), L"Open to all");
    EXPECT_EQ(property->GetPropertyName(1, name.Put()), S_OK);
    EXPECT_EQ(name.View(), L"Private");
    EXPECT_EQ(property->GetPropertyName(2, name.Put()), E_INVALIDARG);
    fw::Variant value;
    EXPECT_EQ(property->GetCurrentValueData(id, value.Put()), S_OK);
    ASSERT_TRUE(value.Is(VT_BOOL));
    EXPECT_EQ(value.Get().boolVal, VARIANT_TRUE);
    EXPECT_EQ(property->SetCurrentValueData(id, fw::Variant::FromBool(false).Get()), S_OK);
    EXPECT_EQ(TextOf(id, L"Public"), L"no");

    const auto plain = PropertyOf(AddWith(L"POP", L"1")).As<IDynamicPropertyNames>();
    EXPECT_EQ(plain->GetPropertyNameCount(&count), S_OK);
    EXPECT_EQ(count, 0);
    EXPECT_EQ(plain->GetPropertyName(0, name.Put()), E_INVALIDARG);
}

TEST_F(DynamicAttributeTest, Journal_NamesTheValueThatIsAsked) {
    const KvDbObjectId id = AddWith(L"Condition", L"good");
    const auto values = PropertyOf(id).As<IDynamicPropertyEnum>();
    kvhost::Journal journal;
    long count = 0;
    fw::Bstr name;
    fw::Variant data;
    EXPECT_EQ(values->GetValueCount(&count), S_OK);
    EXPECT_EQ(values->GetValueName(2, name.Put()), S_OK);
    EXPECT_EQ(values->GetValueData(2, data.Put()), S_OK);
    EXPECT_EQ(data.StringView(), L"poor");
    EXPECT_CALLS(journal, "GetValueCount Condition", "GetValueName Condition 2", "GetValueData Condition 2");
}

TEST_F(DynamicAttributeTest, Dialogs_ProcedureOrMacro) {
    const auto withProcedure = PropertyOf(AddWith(L"Inspection", L"a")).As<IDynamicPropertyDialog>();
    KvPropertyDialogProcedure procedure = nullptr;
    EXPECT_EQ(withProcedure->GetDialogProcedure(&procedure), S_OK);
    ASSERT_NE(procedure, nullptr);
    kvhost::Journal journal;
    procedure();
    EXPECT_CALLS(journal, "AttributeNoteDialog",
                 "MessageBox An inspection note names the inspector and the date.");

    const auto withMacro = PropertyOf(AddWith(L"Survey", L"a")).As<IDynamicPropertyDialog>();
    EXPECT_EQ(withMacro->GetDialogProcedure(&procedure), S_OK);
    EXPECT_EQ(procedure, nullptr);
    fw::Bstr macro;
    EXPECT_EQ(withMacro->GetDialogMacro(macro.Put()), S_OK);
    EXPECT_EQ(macro.View(), L"ShowSurvey");

    EXPECT_FALSE(PropertyOf(AddWith(L"POP", L"a")).As<IDynamicPropertyDialog>());
}

TEST_F(DynamicAttributeTest, Journal_NamesPropertyAndObject) {
    const KvDbObjectId id = AddWith(L"POP", L"1");
    const auto property = PropertyOf(id).As<IDynamicProperty>();
    const std::string handle = kvtest::ToUtf8(kvhost::AsText(id));
    kvhost::Journal journal;
    fw::Variant value;
    EXPECT_EQ(property->GetCurrentValueData(id, value.Put()), S_OK);
    fw::Bstr text(L"2");
    EXPECT_EQ(property->SetCurrentValueData(id, Bstr(text)), S_OK);
    EXPECT_CALLS(journal, "GetCurrentValueData POP " + handle,
                 "SetCurrentValueData POP " + handle + " \"2\"");
}

TEST_F(DynamicAttributeTest, ByObject_AsksTheHostsOwnObjectsNothing) {
    const KvDbObjectId id = AddWith(L"POP", L"1");
    const auto object = ObjectOf(id);
    const auto property = PropertyOf(id).As<IDynamicPropertyByObject>();
    kvhost::Journal journal;
    fw::Variant value;
    EXPECT_EQ(property->GetCurrentValueData(object.Get(), value.Put()), S_OK);
    EXPECT_CALLS(journal, "GetCurrentValueData POP " + kvtest::ToUtf8(kvhost::AsText(id)));
}

TEST_F(DynamicAttributeTest, Faults_FailTheNamedOperation) {
    const KvDbObjectId id = AddWith(L"POP", L"1");
    const auto property = PropertyOf(id).As<IDynamicProperty>();
    kvhost::Faults::FailService(L"GetCurrentValueData", 1);
    fw::Variant value;
    EXPECT_EQ(property->GetCurrentValueData(id, value.Put()), E_FAIL);
    EXPECT_EQ(property->GetCurrentValueData(id, value.Put()), S_OK);
}

}  // namespace
