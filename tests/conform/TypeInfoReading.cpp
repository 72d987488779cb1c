#include "tests/conform/TypeInfoReading.h"

#include <algorithm>
#include <iterator>
#include <memory>

#include "framework/com/Bstr.h"
#include "tests/conform/TypeText.h"

namespace kvconform {
namespace {

// The ids of IUnknown's and IDispatch's own operations.
constexpr DISPID c_firstOfTheBases = 0x60000000;
constexpr DISPID c_endOfTheBases = 0x60030000;

auto AttributesOf(ITypeInfo& info) {
    TYPEATTR* attributes = nullptr;
    static_cast<void>(info.GetTypeAttr(&attributes));
    const auto release = [&info](TYPEATTR* held) { info.ReleaseTypeAttr(held); };
    return std::unique_ptr<TYPEATTR, decltype(release)>(attributes, release);
}

}  // namespace

GUID IdOf(ITypeInfo& info) {
    const auto attributes = AttributesOf(info);
    return attributes ? attributes->guid : GUID{};
}

WORD MajorVersionOf(ITypeInfo& info) {
    const auto attributes = AttributesOf(info);
    return attributes ? attributes->wMajorVerNum : WORD{0};
}

std::wstring NameOf(ITypeInfo& info, MEMBERID member) {
    fw::Bstr name;
    static_cast<void>(info.GetDocumentation(member, name.Put(), nullptr, nullptr, nullptr));
    return std::wstring(name.View());
}

std::wstring DescriptionOf(ITypeInfo& info) {
    fw::Bstr description;
    static_cast<void>(info.GetDocumentation(MEMBERID_NIL, nullptr, description.Put(), nullptr, nullptr));
    return std::wstring(description.View());
}

bool IsDual(ITypeInfo& info) {
    const auto attributes = AttributesOf(info);
    return attributes && (attributes->wTypeFlags & TYPEFLAG_FDUAL) != 0;
}

fw::ComPtr<ITypeInfo> TableFaceOf(ITypeInfo& info) {
    constexpr UINT otherFace = ~0U;
    const auto attributes = AttributesOf(info);
    HREFTYPE reference = 0;
    fw::ComPtr<ITypeInfo> face;
    if (attributes && attributes->typekind == TKIND_DISPATCH &&
        (FAILED(info.GetRefTypeOfImplType(otherFace, &reference)) ||
         FAILED(info.GetRefTypeInfo(reference, face.Put())))) {
        return nullptr;
    }
    return face ? face : fw::ComPtr<ITypeInfo>(&info);
}

fw::ComPtr<ITypeInfo> BaseOf(ITypeInfo& info) {
    HREFTYPE reference = 0;
    fw::ComPtr<ITypeInfo> base;
    const auto attributes = AttributesOf(info);
    const bool isDerived = attributes && attributes->cImplTypes > 0 &&
                           SUCCEEDED(info.GetRefTypeOfImplType(0, &reference)) &&
                           SUCCEEDED(info.GetRefTypeInfo(reference, base.Put()));
    return isDerived ? base : nullptr;
}

std::vector<DescribedFunction> FunctionsOf(ITypeInfo& info) {
    std::vector<DescribedFunction> functions;
    const auto attributes = AttributesOf(info);
    for (UINT index = 0; attributes && index < attributes->cFuncs; ++index) {
        FUNCDESC* function = nullptr;
        if (FAILED(info.GetFuncDesc(index, &function))) {
            continue;
        }
        functions.push_back({NameOf(info, function->memid), function->memid, function->invkind,
                             function->oVft / static_cast<int>(sizeof(void*)), SignatureOf(info, *function)});
        info.ReleaseFuncDesc(function);
    }
    return functions;
}

std::vector<DescribedFunction> DispatchFunctionsOf(ITypeInfo& info) {
    std::vector<DescribedFunction> functions;
    // The interface's other face, or its base: their functions come first.
    if (const fw::ComPtr<ITypeInfo> base = BaseOf(info)) {
        functions = DispatchFunctionsOf(*base.Get());
    }
    std::ranges::copy_if(
        FunctionsOf(info), std::back_inserter(functions), [&](const DescribedFunction& each) {
            const bool isOfTheBases = each.id >= c_firstOfTheBases && each.id < c_endOfTheBases;
            return !isOfTheBases && std::ranges::none_of(functions, [&](const DescribedFunction& known) {
                return known.id == each.id && known.kind == each.kind;
            });
        });
    return functions;
}

}  // namespace kvconform
