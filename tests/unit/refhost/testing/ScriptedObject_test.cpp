#include "refhost/testing/ScriptedObject.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "framework/base/Hresult.h"
#include "framework/com/ErrorInfo.h"
#include "refhost/testing/Faults.h"
#include "tests/support/ExpectCalls.h"
#include "tests/support/LeakCheck.h"

namespace {

using kvhost::ScriptedObject;

const kvtest::LeakCounter g_counter("scripted objects", ScriptedObject::LiveCount);

HRESULT Get(IDispatch* object, DISPID dispid, VARIANT* value, EXCEPINFO* exception = nullptr) {
    DISPPARAMS none{};
    return object->Invoke(dispid, IID_NULL, 0, DISPATCH_PROPERTYGET, &none, value, exception, nullptr);
}

HRESULT Put(IDispatch* object, DISPID dispid, const wchar_t* text, EXCEPINFO* exception = nullptr) {
    fw::Variant value = fw::Variant::FromString(text);
    DISPID named = DISPID_PROPERTYPUT;
    DISPPARAMS parameters{value.Address(), &named, 1, 1};
    return object->Invoke(dispid, IID_NULL, 0, DISPATCH_PROPERTYPUT, &parameters, nullptr, exception,
                          nullptr);
}

VARIANT KeyOf(DISPID dispid) {
    VARIANT key{};
    key.vt = VT_I4;
    key.lVal = dispid;
    return key;
}

TEST(ScriptedObject, LiveCount_FollowsReferences) {
    const long before = ScriptedObject::LiveCount();
    {
        const auto object = ScriptedObject::Make(L"A");
        EXPECT_EQ(ScriptedObject::LiveCount(), before + 1);
        EXPECT_EQ(object->References(), 1U);
    }
    EXPECT_EQ(ScriptedObject::LiveCount(), before);
}

TEST(ScriptedObject, Interfaces_OnlyThoseOffered) {
    const auto object = ScriptedObject::Make(L"A", kvhost::OffersUnspecified | kvhost::OffersUpdate);
    EXPECT_TRUE(object.As<IPropertyUnspecifiedSupport>());
    EXPECT_TRUE(object.As<IGraphicalObjectUpdate>());
    EXPECT_FALSE(object.As<IPropertyExpressionSupport>());
    EXPECT_FALSE(object.As<IPropertyEditability>());
    EXPECT_FALSE(object.As<IDatabaseObjectIdentity>());
    EXPECT_FALSE(object.As<ITransientObjectIdentity>());
    EXPECT_FALSE(object.As<IPerPropertyBrowsing>());
    object->interfaces |= kvhost::OffersIdentity;
    EXPECT_TRUE(object.As<IDatabaseObjectIdentity>());
    EXPECT_TRUE(fw::IsSameObject(object.As<IGraphicalObjectUpdate>().Get(), object.As<IDispatch>().Get()));
}

TEST(ScriptedObject, Get_HandsOutAnyValueBitForBit) {
    const auto object = ScriptedObject::Make(L"A");
    VARIANT value;
    VARIANT odd{};
    odd.vt = VT_ARRAY;
    object->At(1).Set(odd);
    EXPECT_EQ(Get(object.Get(), 1, &value), S_OK);
    EXPECT_EQ(value.vt, VT_ARRAY);
    EXPECT_EQ(value.parray, nullptr);

    odd.vt = VT_BSTR;
    object->At(1).Set(odd);
    EXPECT_EQ(Get(object.Get(), 1, &value), S_OK);
    EXPECT_EQ(value.vt, VT_BSTR);
    EXPECT_EQ(value.bstrVal, nullptr);

    odd.vt = VT_I8;
    odd.llVal = 0x700000001LL;
    object->At(1).Set(odd);
    EXPECT_EQ(Get(object.Get(), 1, &value), S_OK);
    EXPECT_EQ(value.llVal, 0x700000001LL);

    object->At(1).Set(std::numeric_limits<double>::quiet_NaN());
    EXPECT_EQ(Get(object.Get(), 1, &value), S_OK);
    EXPECT_TRUE(std::isnan(value.dblVal));

    odd.vt = VT_CY;
    odd.cyVal.int64 = 12345;
    object->At(1).Set(odd);
    EXPECT_EQ(Get(object.Get(), 1, &value), S_OK);
    EXPECT_EQ(value.vt, VT_CY);
    EXPECT_EQ(value.cyVal.int64, 12345);
}

TEST(ScriptedObject, Get_UnknownProperty_IsNotFound) {
    const auto object = ScriptedObject::Make(L"A", kvhost::OffersUnspecified);
    fw::Variant value;
    VARIANT_BOOL answer = VARIANT_TRUE;
    EXPECT_EQ(object->IsUnspecifiedAllowed(KeyOf(9), &answer), S_OK);
    EXPECT_EQ(answer, VARIANT_FALSE);
    EXPECT_EQ(Get(object.Get(), 9, value.Put()), DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(Put(object.Get(), 9, L"x"), DISP_E_MEMBERNOTFOUND);
}

TEST(ScriptedObject, GetAndPut_FailWithExceptionRecord) {
    const auto object = ScriptedObject::Make(L"A");
    auto& value = object->At(5);
    value.getResult = DISP_E_EXCEPTION;
    value.putResult = DISP_E_EXCEPTION;
    value.exception = {static_cast<SCODE>(0x80200149), {}, L"reason", {}};
    fw::Variant read;
    EXCEPINFO exception{};
    EXPECT_EQ(Get(object.Get(), 5, read.Put(), &exception), DISP_E_EXCEPTION);
    EXPECT_EQ(exception.scode, static_cast<SCODE>(0x80200149));
    EXPECT_STREQ(exception.bstrDescription, L"reason");
    EXPECT_EQ(exception.bstrSource, nullptr);
    ::SysFreeString(exception.bstrDescription);
    EXPECT_EQ(Put(object.Get(), 5, L"x", nullptr), DISP_E_EXCEPTION);
    EXPECT_TRUE(value.puts.empty());
}

TEST(ScriptedObject, Put_IsNotedAndBecomesTheValue) {
    const auto object = ScriptedObject::Make(L"A");
    object->At(5).Set(L"old");
    EXPECT_EQ(Put(object.Get(), 5, L"new"), S_OK);
    ASSERT_EQ(object->At(5).puts.size(), 1U);
    EXPECT_EQ(object->At(5).puts[0].StringView(), L"new");
    fw::Variant read;
    EXPECT_EQ(Get(object.Get(), 5, read.Put()), S_OK);
    EXPECT_EQ(read.StringView(), L"new");
    object->At(5).keepsPuts = false;
    EXPECT_EQ(Put(object.Get(), 5, L"newer"), S_OK);
    EXPECT_EQ(Get(object.Get(), 5, read.Put()), S_OK);
    EXPECT_EQ(read.StringView(), L"new");
}

TEST(ScriptedObject, Journal_HasOneLinePerOperation) {
    const auto object = ScriptedObject::Make(L"A", kvhost::OffersUnspecified | kvhost::OffersExpression |
                                                       kvhost::OffersEditability | kvhost::OffersIdentity |
                                                       kvhost::OffersUpdate);
    object->At(5).Set(L"old");
    kvhost::Journal journal;
    fw::Variant value;
    VARIANT_BOOL truth = VARIANT_FALSE;
    BOOL editable = FALSE;
    KvDbObjectId id;
    fw::Bstr text;
    wchar_t expression[] = L"1+1";
    EXPECT_EQ(object->IsUnspecifiedAllowed(KeyOf(5), &truth), S_OK);
    EXPECT_EQ(object->SetUnspecified(KeyOf(5), VARIANT_TRUE), S_OK);
    EXPECT_EQ(object->IsUnspecified(KeyOf(5), &truth), S_OK);
    EXPECT_EQ(truth, VARIANT_TRUE);
    EXPECT_EQ(Get(object.Get(), 5, value.Put()), S_OK);
    EXPECT_EQ(Put(object.Get(), 5, L"new"), S_OK);
    EXPECT_EQ(object->IsExpressionSupported(KeyOf(5), &truth), S_OK);
    EXPECT_EQ(object->SetExpression(KeyOf(5), expression), S_OK);
    EXPECT_EQ(object->GetExpression(KeyOf(5), text.Put()), S_OK);
    EXPECT_EQ(text.View(), L"1+1");
    EXPECT_EQ(object->Editable(5, &editable), S_OK);
    EXPECT_EQ(object->GetObjectId(&id), S_OK);
    EXPECT_EQ(object->Update(), S_OK);
    EXPECT_CALLS(journal, "IsUnspecifiedAllowed A 5", "SetUnspecified A 5 -1", "IsUnspecified A 5",
                 "Invoke A get 5", "Invoke A put 5 \"new\"", "IsExpressionSupported A 5",
                 "SetExpression A 5 1+1", "GetExpression A 5", "Editable A 5", "GetObjectId A", "Update A");
}

TEST(ScriptedObject, Elements_AnswerByKeyInBothForms) {
    const auto object = ScriptedObject::Make(L"A", kvhost::OffersElements | kvhost::OffersElementsOfObject);
    object->At(5).elements[2] = fw::Variant::FromLong(7);
    object->At(5).errorText = L"too deep";
    const auto plain = object.As<IPropertyElementAccess>();
    const auto ofObject = object.As<IPropertyElementAccess2>();
    kvhost::Journal journal;
    fw::Variant value;
    EXPECT_EQ(plain->GetElementValue(5, 2, value.Put()), S_OK);
    EXPECT_EQ(value.LongOr(0), 7);
    EXPECT_EQ(ofObject->SetElementValue(5, object.Get(), 2, fw::Variant::FromLong(8).Get()), S_OK);
    EXPECT_EQ(plain->GetElementValue(5, 3, value.Put()), E_INVALIDARG);
    EXPECT_EQ(plain->SetElementValue(5, 3, fw::Variant::FromLong(8).Get()), E_INVALIDARG);
    fw::ErrorInfo info;
    ASSERT_TRUE(fw::TakeErrorInfo(info));
    EXPECT_EQ(info.description, L"too deep");
    unsigned size = 0;
    long count = 0;
    EXPECT_EQ(plain->GetGroupSize(5, &size), S_OK);
    EXPECT_EQ(ofObject->GetGroupCount(5, object.Get(), &count), S_OK);
    EXPECT_EQ(size, 1U);
    EXPECT_EQ(count, 1);
    EXPECT_CALLS(journal, "IPropertyElementAccess.GetElementValue A 5 2",
                 "IPropertyElementAccess2.SetElementValue A 5 A 2 i4:8",
                 "IPropertyElementAccess.GetElementValue A 5 3",
                 "IPropertyElementAccess.SetElementValue A 5 3 i4:8", "GetGroupSize A 5",
                 "GetGroupCount A 5 A");
    EXPECT_EQ(object->At(5).elements[2].LongOr(0), 8);
}

TEST(ScriptedObject, FailCall_FailsTheNthCallAlone) {
    const auto object = ScriptedObject::Make(L"A");
    object->At(5).Set(L"old");
    object->script.FailCall(L"Invoke", 2, E_ACCESSDENIED);
    fw::Variant value;
    EXPECT_EQ(Get(object.Get(), 5, value.Put()), S_OK);
    EXPECT_EQ(Get(object.Get(), 5, value.Put()), E_ACCESSDENIED);
    EXPECT_EQ(Get(object.Get(), 5, value.Put()), S_OK);
    EXPECT_EQ(object->script.Calls(L"Invoke"), 3U);
    EXPECT_EQ(object->script.Calls(L"Update"), 0U);
}

TEST(ScriptedObject, Faults_ReachScriptedObjects) {
    const auto object = ScriptedObject::Make(L"A");
    kvhost::Faults::FailAnyService(1);
    EXPECT_EQ(object->Update(), E_FAIL);
    EXPECT_EQ(kvhost::Faults::LastFailedService(), L"Update");
    kvhost::Faults::Reset();
}

TEST(ScriptedObject, Editable_MayThrow) {
    const auto object = ScriptedObject::Make(L"A", kvhost::OffersEditability);
    object->At(5).editableThrows = Tolm::eWasErased;
    BOOL editable = TRUE;
    EXPECT_THROW(fw::Ignore(object->Editable(5, &editable)), Tolm::ErrorStatus);
}

TEST(ScriptedObject, OnCall_SeesEachOperation) {
    const auto object = ScriptedObject::Make(L"A");
    std::vector<std::wstring> seen;
    object->script.onCall = [&](const std::wstring& operation) { seen.push_back(operation); };
    EXPECT_EQ(object->Update(), S_OK);
    EXPECT_EQ(seen, std::vector<std::wstring>{L"Update"});
}

TEST(ScriptedObject, NameOf_KnownUnknownAndNull) {
    const auto object = ScriptedObject::Make(L"A", kvhost::OffersUpdate);
    EXPECT_EQ(ScriptedObject::NameOf(object.As<IGraphicalObjectUpdate>().Get()), L"A");
    EXPECT_EQ(ScriptedObject::NameOf(nullptr), L"null");
    fw::ComPtr<IUnknown> other;
    ASSERT_EQ(::CreateStreamOnHGlobal(nullptr, TRUE, reinterpret_cast<IStream**>(other.Put())), S_OK);
    EXPECT_EQ(ScriptedObject::NameOf(other.Get()), L"?");
}

}  // namespace
