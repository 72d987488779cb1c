#include "refhost/testing/ScriptedDynamicProperty.h"

#include <gtest/gtest.h>

#include "framework/com/ErrorInfo.h"
#include "tests/support/ExpectCalls.h"
#include "tests/support/LeakCheck.h"

namespace {

using kvhost::ScriptedDynamicProperty;
using kvhost::ScriptedObject;

const kvtest::LeakCounter g_counter("scripted dynamic properties", ScriptedDynamicProperty::LiveCount);

VARIANT KeyOf(IUnknown* object) {
    VARIANT key{};
    key.vt = VT_UNKNOWN;
    key.punkVal = object;
    return key;
}

TEST(ScriptedDynamicProperty, Forms_OnlyThoseOffered) {
    const auto both = ScriptedDynamicProperty::Make(L"P", kvhost::OffersByObject | kvhost::OffersById);
    EXPECT_TRUE(both->Identity() != nullptr);
    EXPECT_TRUE(fw::QueryFrom<IDynamicPropertyByObject>(both->Identity()));
    EXPECT_TRUE(fw::QueryFrom<IDynamicProperty>(both->Identity()));
    const auto neither = ScriptedDynamicProperty::Make(L"P", 0);
    EXPECT_TRUE(fw::QueryFrom<IUnknown>(neither->Identity()));
    EXPECT_FALSE(fw::QueryFrom<IDynamicPropertyByObject>(neither->Identity()));
    EXPECT_FALSE(fw::QueryFrom<IDynamicProperty>(neither->Identity()));
    EXPECT_FALSE(fw::QueryFrom<IDynamicPropertyDialog>(neither->Identity()));
}

TEST(ScriptedDynamicProperty, Values_PerSubjectAndShared) {
    const auto property = ScriptedDynamicProperty::Make(L"P", kvhost::OffersByObject | kvhost::OffersById);
    const auto first = ScriptedObject::Make(L"A");
    const auto second = ScriptedObject::Make(L"B");
    property->shared.Set(L"shared");
    property->For(L"B").Set(L"own");
    property->For(L"null").Set(L"none");
    fw::Variant value;
    kvhost::Journal journal;
    EXPECT_EQ(property->GetCurrentValueData(static_cast<IDispatch*>(first.Get()), value.Put()), S_OK);
    EXPECT_EQ(value.StringView(), L"shared");
    EXPECT_EQ(property->GetCurrentValueData(static_cast<IDispatch*>(second.Get()), value.Put()), S_OK);
    EXPECT_EQ(value.StringView(), L"own");
    EXPECT_EQ(property->GetCurrentValueData(KvDbObjectId(), value.Put()), S_OK);
    EXPECT_EQ(value.StringView(), L"none");
    EXPECT_CALLS(journal, "GetCurrentValueData P A", "GetCurrentValueData P B", "GetCurrentValueData P null");
}

TEST(ScriptedDynamicProperty, FailingPut_SetsErrorText) {
    const auto property = ScriptedDynamicProperty::Make(L"P", kvhost::OffersById);
    property->shared.putResult = E_ACCESSDENIED;
    property->errorText = L"refused";
    EXPECT_EQ(property->SetCurrentValueData(KvDbObjectId(), fw::Variant::FromLong(1).Get()), E_ACCESSDENIED);
    fw::ErrorInfo info;
    ASSERT_TRUE(fw::TakeErrorInfo(info));
    EXPECT_EQ(info.description, L"refused");

    property->errorText.reset();
    EXPECT_EQ(property->SetCurrentValueData(KvDbObjectId(), fw::Variant::FromLong(1).Get()), E_ACCESSDENIED);
    EXPECT_FALSE(fw::TakeErrorInfo(info));
    EXPECT_TRUE(property->shared.puts.empty());
}

TEST(ScriptedDynamicProperty, States_AreKeyedByObject) {
    const auto property = ScriptedDynamicProperty::Make(
        L"P", kvhost::OffersByObject | kvhost::OffersUnspecified | kvhost::OffersExpression);
    const auto object = ScriptedObject::Make(L"A");
    auto* const identity = static_cast<IDispatch*>(object.Get());
    property->For(L"A").unspecifiedAllowed = true;
    kvhost::Journal journal;
    VARIANT_BOOL truth = VARIANT_FALSE;
    EXPECT_EQ(property->IsUnspecifiedAllowed(KeyOf(identity), &truth), S_OK);
    EXPECT_EQ(truth, VARIANT_TRUE);
    EXPECT_EQ(property->IsUnspecifiedAllowed(KeyOf(nullptr), &truth), S_OK);
    EXPECT_EQ(truth, VARIANT_FALSE);
    EXPECT_EQ(property->SetUnspecified(KeyOf(identity), VARIANT_TRUE), S_OK);
    EXPECT_TRUE(property->For(L"A").unspecified);
    EXPECT_CALLS(journal, "IsUnspecifiedAllowed P A", "IsUnspecifiedAllowed P null", "SetUnspecified P A -1");
}

TEST(ScriptedDynamicProperty, Dialog_ProcedureAndMacro) {
    const auto property = ScriptedDynamicProperty::Make(L"P", kvhost::OffersDialog);
    KvPropertyDialogProcedure procedure = nullptr;
    property->dialogProcedure = [] {};
    EXPECT_EQ(property->GetDialogProcedure(&procedure), S_OK);
    EXPECT_EQ(procedure, property->dialogProcedure);
    fw::Bstr macro;
    EXPECT_EQ(property->GetDialogMacro(macro.Put()), S_OK);
    EXPECT_EQ(macro.Get(), nullptr);
    property->dialogMacro = L"Run";
    EXPECT_EQ(property->GetDialogMacro(macro.Put()), S_OK);
    EXPECT_EQ(macro.View(), L"Run");
}

TEST(ScriptedDynamicProperty, Names) {
    const auto property = ScriptedDynamicProperty::Make(L"P", kvhost::OffersById);
    property->names = {L"Yes", L"No"};
    long count = 0;
    EXPECT_EQ(property->GetPropertyNameCount(&count), S_OK);
    EXPECT_EQ(count, 2);
    fw::Bstr name;
    EXPECT_EQ(property->GetPropertyName(1, name.Put()), S_OK);
    EXPECT_EQ(name.View(), L"No");
    EXPECT_EQ(property->GetPropertyName(2, name.Put()), E_INVALIDARG);
}

}  // namespace
