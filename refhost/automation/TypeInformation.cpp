#include "refhost/automation/TypeInformation.h"

#include <map>
#include <string>

#include "framework/base/Hresult.h"
#include "refhost/automation/PropertyTable.h"

namespace kvhost {

namespace {

// The automation library that dispatch interfaces take IDispatch from.
constexpr GUID c_automationLibrary = {0x00020430, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
constexpr GUID c_library = {0x1C5A2F00, 0x7D3B, 0x4E86, {0x9A, 0x41, 0x5E, 0x0C, 0x88, 0x21, 0xB7, 0x10}};

// The type library interfaces take texts without const and change none.
LPOLESTR Unchanged(const wchar_t* text) {
    return const_cast<LPOLESTR>(text);
}

// Interface ids differ from the class ids in one byte.
GUID InterfaceIdOf(const PropertyTable& table) {
    GUID id = table.ClassId();
    id.Data4[7] = 0x11;
    return id;
}

class LibraryBuilder {
public:
    HRESULT Begin() {
        RETURN_IF_FAILED(::CreateTypeLib2(SYS_WIN64, L"KvHost.tlb", m_library.Put()));
        RETURN_IF_FAILED(m_library->SetName(Unchanged(L"KvHost")));
        RETURN_IF_FAILED(m_library->SetGuid(c_library));
        fw::ComPtr<ITypeLib> automation;
        RETURN_IF_FAILED(::LoadRegTypeLib(c_automationLibrary, 2, 0, LOCALE_NEUTRAL, automation.Put()));
        return automation->GetTypeInfoOfGuid(IID_IDispatch, m_dispatch.Put());
    }

    HRESULT AddClass(const PropertyTable& table, fw::ComPtr<ITypeInfo>& info) {
        const std::wstring name = std::wstring(L"IKv") + table.ClassName();
        fw::ComPtr<ICreateTypeInfo> made;
        RETURN_IF_FAILED(m_library->CreateTypeInfo(Unchanged(name.c_str()), TKIND_DISPATCH, made.Put()));
        RETURN_IF_FAILED(made->SetGuid(InterfaceIdOf(table)));
        RETURN_IF_FAILED(made->SetTypeFlags(TYPEFLAG_FDISPATCHABLE));
        HREFTYPE base = 0;
        RETURN_IF_FAILED(made->AddRefTypeInfo(m_dispatch.Get(), &base));
        RETURN_IF_FAILED(made->AddImplType(0, base));
        UINT index = 0;
        for (const PropertyDescription& row : table.Rows()) {
            RETURN_IF_FAILED(AddProperty(*made, row, index));
        }
        RETURN_IF_FAILED(made->LayOut());
        return made.QueryTo(info.Put());
    }

private:
    HRESULT AddProperty(ICreateTypeInfo& info, const PropertyDescription& row, UINT& index) {
        TYPEDESC type{};
        TYPEDESC element{};
        RETURN_IF_FAILED(DescribeType(info, row, type, element));
        FUNCDESC function{};
        function.memid = row.dispid;
        function.funckind = FUNC_DISPATCH;
        function.callconv = CC_STDCALL;
        function.invkind = INVOKE_PROPERTYGET;
        function.elemdescFunc.tdesc = type;
        RETURN_IF_FAILED(AddFunction(info, row, function, index));
        if (row.Has(PropertyReadOnly)) {
            return S_OK;
        }
        ELEMDESC parameter{};
        parameter.tdesc = type;
        parameter.paramdesc.wParamFlags = PARAMFLAG_FIN;
        function.invkind = INVOKE_PROPERTYPUT;
        function.elemdescFunc.tdesc = TYPEDESC{};
        function.elemdescFunc.tdesc.vt = VT_VOID;
        function.cParams = 1;
        function.lprgelemdescParam = &parameter;
        return AddFunction(info, row, function, index);
    }

    static HRESULT AddFunction(ICreateTypeInfo& info, const PropertyDescription& row, FUNCDESC& function,
                               UINT& index) {
        RETURN_IF_FAILED(info.AddFuncDesc(index, &function));
        LPOLESTR name = Unchanged(row.name);
        RETURN_IF_FAILED(info.SetFuncAndParamNames(index, &name, 1));
        ++index;
        return S_OK;
    }

    // `element` is what an array type points to; it must live as long as `type`.
    HRESULT DescribeType(ICreateTypeInfo& info, const PropertyDescription& row, TYPEDESC& type,
                         TYPEDESC& element) {
        if (row.enumeration != nullptr) {
            type.vt = VT_USERDEFINED;
            fw::ComPtr<ITypeInfo> enumeration;
            RETURN_IF_FAILED(GetEnumeration(*row.enumeration, enumeration));
            return info.AddRefTypeInfo(enumeration.Get(), &type.hreftype);
        }
        type.vt = row.type;
        if ((row.type & VT_ARRAY) != 0) {
            element.vt = static_cast<VARTYPE>(row.type & ~VT_ARRAY);
            type.vt = VT_SAFEARRAY;
            type.lptdesc = &element;
        }
        return S_OK;
    }

    HRESULT GetEnumeration(const Enumeration& enumeration, fw::ComPtr<ITypeInfo>& info) {
        fw::ComPtr<ITypeInfo>& known = m_enumerations[&enumeration];
        if (!known) {
            RETURN_IF_FAILED(AddEnumeration(enumeration, known));
        }
        info = known;
        return S_OK;
    }

    HRESULT AddEnumeration(const Enumeration& enumeration, fw::ComPtr<ITypeInfo>& info) {
        fw::ComPtr<ICreateTypeInfo> made;
        RETURN_IF_FAILED(m_library->CreateTypeInfo(Unchanged(enumeration.name), TKIND_ENUM, made.Put()));
        UINT index = 0;
        for (const EnumerationEntry& entry : enumeration.entries) {
            fw::Variant value = fw::Variant::FromLong(entry.value);
            VARDESC constant{};
            constant.memid = MEMBERID_NIL;
            constant.varkind = VAR_CONST;
            constant.lpvarValue = value.Address();
            constant.elemdescVar.tdesc.vt = VT_I4;
            RETURN_IF_FAILED(made->AddVarDesc(index, &constant));
            RETURN_IF_FAILED(made->SetVarName(index, Unchanged(entry.name)));
            ++index;
        }
        RETURN_IF_FAILED(made->LayOut());
        return made.QueryTo(info.Put());
    }

    fw::ComPtr<ICreateTypeLib2> m_library;
    fw::ComPtr<ITypeInfo> m_dispatch;
    std::map<const Enumeration*, fw::ComPtr<ITypeInfo>> m_enumerations;
};

using Library = std::map<const PropertyTable*, fw::ComPtr<ITypeInfo>>;

HRESULT BuildLibrary(Library& library) {
    LibraryBuilder builder;
    RETURN_IF_FAILED(builder.Begin());
    for (const PropertyTable* const table : PropertyTable::All()) {
        RETURN_IF_FAILED(builder.AddClass(*table, library[table]));
    }
    return S_OK;
}

}  // namespace

HRESULT GetTypeInformation(const PropertyTable& table, ITypeInfo** info) {
    RETURN_IF_NULL_POINTER(info);
    *info = nullptr;
    static Library library;
    if (library.empty()) {
        Library built;
        RETURN_IF_FAILED(BuildLibrary(built));
        library = std::move(built);
    }
    const auto found = library.find(&table);
    RETURN_HR_IF(E_INVALIDARG, found == library.end());
    return found->second.CopyTo(info);
}

}  // namespace kvhost
