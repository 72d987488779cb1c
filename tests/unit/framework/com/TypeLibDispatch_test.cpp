#include "framework/com/TypeLibDispatch.h"

#include <gtest/gtest.h>

#include "framework/com/ErrorInfo.h"
#include "tests/unit/framework/com/TestRow.h"

namespace {

class TypeLibDispatchTest : public testing::Test {
protected:
    DISPID IdOf(const wchar_t* name) {
        DISPID id = 0;
        LPOLESTR names[] = {const_cast<LPOLESTR>(name)};
        EXPECT_EQ(m_dispatch->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id), S_OK);
        return id;
    }
    HRESULT Call(DISPID id, WORD flags, DISPPARAMS& parameters, VARIANT* result = nullptr,
                 EXCEPINFO* exception = nullptr) {
        return m_dispatch->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters, result, exception,
                                  nullptr);
    }

    fw::ComPtr<CComObject<kvtest::TestRow>> m_row = kvtest::MakeRow();
    fw::ComPtr<IDispatch> m_dispatch = fw::QueryFrom<IDispatch>(m_row->GetUnknown());
    DISPPARAMS m_none{};
};

TEST_F(TypeLibDispatchTest, Names_AreFoundWithoutRegardToCase) {
    EXPECT_EQ(IdOf(L"Text"), 1);
    EXPECT_EQ(IdOf(L"aDD"), 2);
    DISPID id = 0;
    LPOLESTR names[] = {const_cast<LPOLESTR>(L"Nowhere")};
    EXPECT_EQ(m_dispatch->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id), DISP_E_UNKNOWNNAME);
    EXPECT_EQ(id, DISPID_UNKNOWN);
    EXPECT_EQ(m_dispatch->GetIDsOfNames(IID_IDispatch, names, 1, LOCALE_USER_DEFAULT, &id),
              DISP_E_UNKNOWNINTERFACE);
    EXPECT_EQ(m_dispatch->GetIDsOfNames(IID_NULL, nullptr, 1, LOCALE_USER_DEFAULT, &id), E_POINTER);
    EXPECT_EQ(m_dispatch->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, nullptr), E_POINTER);
}

TEST_F(TypeLibDispatchTest, Property_GoesBothWaysByDispatchAndByTable) {
    auto text = fw::Variant::FromString(L"Walls");
    DISPID put = DISPID_PROPERTYPUT;
    DISPPARAMS parameters{text.Address(), &put, 1, 1};
    EXPECT_EQ(Call(1, DISPATCH_PROPERTYPUT, parameters), S_OK);
    fw::Bstr read;
    EXPECT_EQ(m_row->get_Text(read.Put()), S_OK);
    EXPECT_EQ(read.View(), L"Walls");
    fw::Variant result;
    EXPECT_EQ(Call(1, DISPATCH_PROPERTYGET, m_none, result.Put()), S_OK);
    EXPECT_EQ(result.StringView(), L"Walls");
}

TEST_F(TypeLibDispatchTest, Method_ConvertsItsArguments) {
    fw::Variant arguments[] = {fw::Variant::FromString(L"40"), fw::Variant::FromDouble(2.0)};
    DISPPARAMS parameters{arguments[0].Address(), nullptr, 2, 0};
    fw::Variant result;
    EXPECT_EQ(Call(2, DISPATCH_METHOD, parameters, result.Put()), S_OK);
    EXPECT_EQ(result.LongOr(0), 42);
}

TEST_F(TypeLibDispatchTest, BadCalls_AreRefused) {
    fw::Variant result = fw::Variant::FromLong(9);
    EXPECT_EQ(Call(99, DISPATCH_METHOD, m_none, result.Address()), DISP_E_MEMBERNOTFOUND);
    EXPECT_TRUE(result.IsEmpty());
    EXPECT_EQ(Call(2, DISPATCH_METHOD, m_none), DISP_E_BADPARAMCOUNT);
    fw::Variant arguments[] = {fw::Variant::FromString(L"forty"), fw::Variant::FromLong(2)};
    DISPPARAMS parameters{arguments[0].Address(), nullptr, 2, 0};
    UINT badArgument = 77;
    EXPECT_EQ(m_dispatch->Invoke(2, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, nullptr,
                                 nullptr, &badArgument),
              DISP_E_TYPEMISMATCH);
    EXPECT_LT(badArgument, 2u);
    EXPECT_EQ(m_dispatch->Invoke(2, IID_IDispatch, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &m_none, nullptr,
                                 nullptr, nullptr),
              DISP_E_UNKNOWNINTERFACE);
    EXPECT_EQ(m_dispatch->Invoke(2, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, nullptr, nullptr, nullptr,
                                 nullptr),
              E_POINTER);
    DISPPARAMS lying{nullptr, nullptr, 2, 0};
    EXPECT_EQ(Call(2, DISPATCH_METHOD, lying), E_INVALIDARG);
}

TEST_F(TypeLibDispatchTest, Failure_BringsItsOwnTextOnly) {
    // An older text of the thread must not pass for the reason of this failure.
    EXPECT_EQ(fw::SetErrorText(E_FAIL, IID_NULL, L"elsewhere", L"old reason"), E_FAIL);
    EXCEPINFO exception{};
    EXPECT_EQ(Call(4, DISPATCH_METHOD, m_none, nullptr, &exception), DISP_E_EXCEPTION);
    EXPECT_EQ(exception.scode, E_ABORT);
    fw::Bstr description;
    description.Attach(exception.bstrDescription);
    EXPECT_NE(description.View(), L"old reason");
    ::SysFreeString(exception.bstrSource);
    ::SysFreeString(exception.bstrHelpFile);

    exception = EXCEPINFO();
    EXPECT_EQ(Call(3, DISPATCH_METHOD, m_none, nullptr, &exception), DISP_E_EXCEPTION);
    EXPECT_EQ(exception.scode, DISP_E_OVERFLOW);
    description.Attach(exception.bstrDescription);
    EXPECT_EQ(description.View(), L"too much");
    ::SysFreeString(exception.bstrSource);
    ::SysFreeString(exception.bstrHelpFile);
}

TEST_F(TypeLibDispatchTest, TypeInfo_IsTheInterfacesOwn) {
    UINT count = 0;
    EXPECT_EQ(m_dispatch->GetTypeInfoCount(&count), S_OK);
    EXPECT_EQ(count, 1u);
    EXPECT_EQ(m_dispatch->GetTypeInfoCount(nullptr), E_POINTER);
    fw::ComPtr<ITypeInfo> info;
    ASSERT_EQ(m_dispatch->GetTypeInfo(0, 0, info.Put()), S_OK);
    TYPEATTR* attributes = nullptr;
    ASSERT_EQ(info->GetTypeAttr(&attributes), S_OK);
    EXPECT_TRUE(::IsEqualIID(attributes->guid, __uuidof(ITestRow)));
    info->ReleaseTypeAttr(attributes);
    EXPECT_EQ(m_dispatch->GetTypeInfo(1, 0, info.Put()), DISP_E_BADINDEX);
    EXPECT_FALSE(info);
    EXPECT_EQ(m_dispatch->GetTypeInfo(0, 0, nullptr), E_POINTER);
}

TEST(TypeLibDispatch, ObjectWithoutModule_RefusesInsteadOfBreaking) {
    fw::ComPtr<CComObject<kvtest::TestRow>> row;
    ASSERT_EQ(CComObject<kvtest::TestRow>::CreateInstance(nullptr, row.Put()), S_OK);
    const auto dispatch = fw::QueryFrom<IDispatch>(row->GetUnknown());
    DISPPARAMS none{};
    EXPECT_EQ(dispatch->Invoke(1, IID_NULL, 0, DISPATCH_PROPERTYGET, &none, nullptr, nullptr, nullptr),
              E_UNEXPECTED);
}

}  // namespace
