#include "tests/conform/TypeText.h"

#include <algorithm>
#include <iterator>

#include "framework/com/ComPtr.h"
#include "tests/conform/TypeInfoReading.h"

namespace kvconform {
namespace {

struct NamedType {
    VARTYPE type;
    const wchar_t* name;
};

constexpr NamedType c_types[] = {
    {VT_VARIANT, L"VARIANT"},   {VT_BOOL, L"VARIANT_BOOL"},   {VT_BSTR, L"BSTR"},
    {VT_UNKNOWN, L"IUnknown*"}, {VT_DISPATCH, L"IDispatch*"}, {VT_I2, L"short"},
    {VT_I4, L"long"},           {VT_UI4, L"unsigned long"},   {VT_INT, L"int"},
    {VT_UINT, L"unsigned int"}, {VT_I8, L"__int64"},          {VT_UI8, L"unsigned __int64"},
    {VT_HRESULT, L"HRESULT"},   {VT_VOID, L"void"},
};

std::wstring TextOf(ITypeInfo& info, const TYPEDESC& type);

// Compilers of type libraries may keep another name of a type, such as OLE_COLOR, or put the type in its
// place.
std::wstring TextOf(ITypeInfo& named) {
    TYPEATTR* attributes = nullptr;
    if (FAILED(named.GetTypeAttr(&attributes))) {
        return L"unknown";
    }
    std::wstring text =
        attributes->typekind == TKIND_ALIAS ? TextOf(named, attributes->tdescAlias) : NameOf(named);
    named.ReleaseTypeAttr(attributes);
    return text;
}

std::wstring TextOf(ITypeInfo& info, const TYPEDESC& type) {
    if (type.vt == VT_PTR) {
        return TextOf(info, *type.lptdesc) + L'*';
    }
    if (type.vt == VT_USERDEFINED) {
        fw::ComPtr<ITypeInfo> named;
        return SUCCEEDED(info.GetRefTypeInfo(type.hreftype, named.Put())) ? TextOf(*named.Get()) : L"unknown";
    }
    const auto* const known = std::ranges::find(c_types, type.vt, &NamedType::type);
    return known == std::end(c_types) ? L"type " + std::to_wstring(type.vt) : known->name;
}

std::wstring TextOf(ITypeInfo& info, const ELEMDESC& parameter) {
    const USHORT flags = parameter.paramdesc.wParamFlags;
    return std::wstring((flags & PARAMFLAG_FIN) != 0 ? L"in " : L"") +
           ((flags & PARAMFLAG_FOUT) != 0 ? L"out " : L"") +
           ((flags & PARAMFLAG_FRETVAL) != 0 ? L"retval " : L"") + TextOf(info, parameter.tdesc);
}

}  // namespace

std::wstring SignatureOf(ITypeInfo& info, const FUNCDESC& function) {
    std::wstring text;
    for (SHORT index = 0; index < function.cParams; ++index) {
        text += (index > 0 ? L", " : L"") + TextOf(info, function.lprgelemdescParam[index]);
    }
    const std::wstring result = TextOf(info, function.elemdescFunc.tdesc);
    return L'(' + text + L')' + (result == L"HRESULT" ? L"" : L" -> " + result);
}

}  // namespace kvconform
