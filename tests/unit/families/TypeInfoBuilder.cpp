#include "tests/unit/families/TypeInfoBuilder.h"

#include <gtest/gtest.h>

namespace kvtest {

namespace {

// The type library interfaces take texts without const and change none.
LPOLESTR Unchanged(const wchar_t* text) {
    return const_cast<LPOLESTR>(text);
}

fw::ComPtr<ITypeInfo> Finished(const fw::ComPtr<ICreateTypeInfo>& made) {
    EXPECT_EQ(made->LayOut(), S_OK);
    return made.As<ITypeInfo>();
}

}  // namespace

TypeInfoBuilder::TypeInfoBuilder() {
    constexpr GUID c_automation = {0x00020430, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
    EXPECT_EQ(::CreateTypeLib2(SYS_WIN64, L"scripted.tlb", m_library.Put()), S_OK);
    EXPECT_EQ(m_library->CreateTypeInfo(Unchanged(L"IScripted"), TKIND_DISPATCH, m_interface.Put()), S_OK);
    fw::ComPtr<ITypeLib> automation;
    fw::ComPtr<ITypeInfo> dispatch;
    EXPECT_EQ(::LoadRegTypeLib(c_automation, 2, 0, LOCALE_NEUTRAL, automation.Put()), S_OK);
    EXPECT_EQ(automation->GetTypeInfoOfGuid(IID_IDispatch, dispatch.Put()), S_OK);
    HREFTYPE base = 0;
    EXPECT_EQ(m_interface->AddRefTypeInfo(dispatch.Get(), &base), S_OK);
    EXPECT_EQ(m_interface->AddImplType(0, base), S_OK);
}

fw::ComPtr<ITypeInfo> TypeInfoBuilder::MakeEnumeration(const wchar_t* name,
                                                       const std::vector<Constant>& constants) {
    fw::ComPtr<ICreateTypeInfo> made;
    EXPECT_EQ(m_library->CreateTypeInfo(Unchanged(name), TKIND_ENUM, made.Put()), S_OK);
    UINT index = 0;
    for (const Constant& constant : constants) {
        fw::Variant value = constant.value;
        VARDESC description{};
        description.memid = MEMBERID_NIL;
        description.varkind = VAR_CONST;
        description.lpvarValue = value.Address();
        description.elemdescVar.tdesc.vt = value.Type();
        EXPECT_EQ(made->AddVarDesc(index, &description), S_OK);
        EXPECT_EQ(made->SetVarName(index, Unchanged(constant.name)), S_OK);
        ++index;
    }
    return Finished(made);
}

fw::ComPtr<ITypeInfo> TypeInfoBuilder::MakeRecord(const wchar_t* name,
                                                  const std::vector<const wchar_t*>& members) {
    fw::ComPtr<ICreateTypeInfo> made;
    EXPECT_EQ(m_library->CreateTypeInfo(Unchanged(name), TKIND_RECORD, made.Put()), S_OK);
    UINT index = 0;
    for (const wchar_t* const member : members) {
        VARDESC description{};
        description.memid = MEMBERID_NIL;
        description.varkind = VAR_PERINSTANCE;
        description.elemdescVar.tdesc.vt = VT_I4;
        EXPECT_EQ(made->AddVarDesc(index, &description), S_OK);
        EXPECT_EQ(made->SetVarName(index, Unchanged(member)), S_OK);
        ++index;
    }
    return Finished(made);
}

TYPEDESC TypeInfoBuilder::Describe(ITypeInfo* type) {
    TYPEDESC description{};
    description.vt = VT_I4;
    if (type) {
        description.vt = VT_USERDEFINED;
        EXPECT_EQ(m_interface->AddRefTypeInfo(type, &description.hreftype), S_OK);
    }
    return description;
}

TypeInfoBuilder& TypeInfoBuilder::AddVariable(DISPID dispid, const wchar_t* name, ITypeInfo* type) {
    VARDESC description{};
    description.memid = dispid;
    description.varkind = VAR_DISPATCH;
    description.elemdescVar.tdesc = Describe(type);
    EXPECT_EQ(m_interface->AddVarDesc(m_variables, &description), S_OK);
    EXPECT_EQ(m_interface->SetVarName(m_variables++, Unchanged(name)), S_OK);
    return *this;
}

TypeInfoBuilder& TypeInfoBuilder::AddGetter(DISPID dispid, const wchar_t* name, ITypeInfo* type) {
    FUNCDESC description{};
    description.memid = dispid;
    description.funckind = FUNC_DISPATCH;
    description.callconv = CC_STDCALL;
    description.invkind = INVOKE_PROPERTYGET;
    description.elemdescFunc.tdesc = Describe(type);
    EXPECT_EQ(m_interface->AddFuncDesc(m_functions, &description), S_OK);
    LPOLESTR text = Unchanged(name);
    EXPECT_EQ(m_interface->SetFuncAndParamNames(m_functions++, &text, 1), S_OK);
    return *this;
}

TypeInfoBuilder& TypeInfoBuilder::AddSetter(DISPID dispid, const wchar_t* name, ITypeInfo* type) {
    ELEMDESC parameter{};
    parameter.tdesc = Describe(type);
    parameter.paramdesc.wParamFlags = PARAMFLAG_FIN;
    FUNCDESC description{};
    description.memid = dispid;
    description.funckind = FUNC_DISPATCH;
    description.callconv = CC_STDCALL;
    description.invkind = INVOKE_PROPERTYPUT;
    description.elemdescFunc.tdesc.vt = VT_VOID;
    description.cParams = 1;
    description.lprgelemdescParam = &parameter;
    EXPECT_EQ(m_interface->AddFuncDesc(m_functions, &description), S_OK);
    LPOLESTR text = Unchanged(name);
    EXPECT_EQ(m_interface->SetFuncAndParamNames(m_functions++, &text, 1), S_OK);
    return *this;
}

fw::ComPtr<ITypeInfo> TypeInfoBuilder::Finish() {
    return Finished(m_interface);
}

}  // namespace kvtest
