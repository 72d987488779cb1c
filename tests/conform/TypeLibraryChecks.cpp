// The type library in the module against the interfaces and classes that clients have compiled in.

#include "framework/com/Bstr.h"
#include "tests/conform/Checks.h"
#include "tests/conform/PublishedInterfaces.h"
#include "tests/conform/TypeInfoReading.h"

namespace kvconform {
namespace {

constexpr GUID c_libraryId = {0x5C232F67, 0xF20E, 0x4855, {0xBB, 0xD8, 0xC0, 0x92, 0x65, 0x9B, 0xF7, 0x7A}};
constexpr GUID c_numericTypeId = {
    0x70AFDEB0, 0x099C, 0x494E, {0xA4, 0x93, 0x5E, 0x0E, 0xCD, 0x61, 0x40, 0x04}};

std::string KindOf(const DescribedFunction& function) {
    return function.kind == INVOKE_PROPERTYPUT ? "put " : function.kind == INVOKE_PROPERTYGET ? "get " : "";
}

std::string LineOf(const DescribedFunction& function, bool withId) {
    return KindOf(function) + ToText(function.name) + (withId ? " " + std::to_string(function.id) : "") +
           " " + ToText(function.signature);
}

fw::ComPtr<ITypeInfo> InfoOf(ITypeLib& library, REFGUID id) {
    fw::ComPtr<ITypeInfo> info;
    return SUCCEEDED(library.GetTypeInfoOfGuid(id, info.Put())) ? info : fw::ComPtr<ITypeInfo>();
}

void CheckIdentity(Report& report, ITypeLib& library) {
    TLIBATTR* attributes = nullptr;
    if (!report.Expect("type library: it tells of itself", S_OK, library.GetLibAttr(&attributes))) {
        return;
    }
    report.Expect("type library: the id", c_libraryId, attributes->guid);
    report.Expect("type library: the version", "1.0",
                  std::to_string(attributes->wMajorVerNum) + "." + std::to_string(attributes->wMinorVerNum));
    report.Expect("type library: the language", DWORD{1033}, DWORD{attributes->lcid});
    library.ReleaseTLibAttr(attributes);
    fw::Bstr name;
    fw::Bstr description;
    static_cast<void>(library.GetDocumentation(-1, name.Put(), description.Put(), nullptr, nullptr));
    report.Expect("type library: the name", "KVPEXCTLLib", std::wstring(name.View()));
    report.Expect("type library: the description", "KvPEXCtl 1.0 Type Library",
                  std::wstring(description.View()));
}

void CheckInterface(Report& report, ITypeLib& library, const PublishedInterface& published) {
    const std::string rule = "type library: " + ToText(published.name);
    IID id{};
    static_cast<void>(::IIDFromString(published.id, &id));
    const fw::ComPtr<ITypeInfo> info = InfoOf(library, id);
    if (!report.Expect(rule + " is there by its id", true, static_cast<bool>(info))) {
        return;
    }
    report.Expect(rule + " has its name", published.name, NameOf(*info.Get()));
    report.Expect(rule + (published.hasDispatchIds ? " is called by id too" : " is not called by id"),
                  published.hasDispatchIds, IsDual(*info.Get()));
    const fw::ComPtr<ITypeInfo> table = TableFaceOf(*info.Get());
    if (!report.Expect(rule + " can be compiled against", true, static_cast<bool>(table))) {
        return;
    }
    const fw::ComPtr<ITypeInfo> base = BaseOf(*table.Get());
    report.Expect(rule + " has its base", published.base, base ? NameOf(*base.Get()) : std::wstring());
    Lines operations;
    Lines slots;
    Lines expectedSlots;
    for (const DescribedFunction& function : FunctionsOf(*table.Get())) {
        expectedSlots.push_back(std::to_string(published.firstSlot + static_cast<int>(slots.size())));
        slots.push_back(std::to_string(function.slot));
        operations.push_back(LineOf(function, published.hasDispatchIds));
    }
    report.Expect(rule + " has its operations in order", published.operations, operations);
    report.Expect(rule + " has its operations behind those of its base", expectedSlots, slots);
}

Lines ImplementedBy(ITypeInfo& coclass) {
    Lines lines;
    for (UINT index = 0; index < 8; ++index) {
        HREFTYPE reference = 0;
        INT flags = 0;
        fw::ComPtr<ITypeInfo> info;
        if (SUCCEEDED(coclass.GetRefTypeOfImplType(index, &reference)) &&
            SUCCEEDED(coclass.GetImplTypeFlags(index, &flags)) &&
            SUCCEEDED(coclass.GetRefTypeInfo(reference, info.Put()))) {
            lines.push_back(ToText(NameOf(*info.Get())) +
                            ((flags & IMPLTYPEFLAG_FDEFAULT) != 0 ? " default" : "") +
                            ((flags & IMPLTYPEFLAG_FSOURCE) != 0 ? " source" : ""));
        }
    }
    return lines;
}

void CheckClass(Report& report, ITypeLib& library, const kvtest::ClassRow& row) {
    const std::string rule = "type library: " + ToText(row.name);
    const fw::ComPtr<ITypeInfo> info = InfoOf(library, *row.id);
    if (!report.Expect(rule + " is there by its id", true, static_cast<bool>(info))) {
        return;
    }
    report.Expect(rule + " has its name", row.name, NameOf(*info.Get()));
    report.Expect(rule + " has its description", row.description, DescriptionOf(*info.Get()));
    report.Expect(
        rule + " carries the version of its registered name", row.progId,
        L"KvPEXCtl." + std::wstring(row.name) + L"." + std::to_wstring(MajorVersionOf(*info.Get())));
    report.Expect(rule + " names its interface and its events",
                  Lines{"IKvPiPropertyEditControl default", "IKvPiPropertyEditEventsSink default source"},
                  ImplementedBy(*info.Get()));
}

void CheckNumericType(Report& report, ITypeLib& library) {
    const fw::ComPtr<ITypeInfo> info = InfoOf(library, c_numericTypeId);
    if (!report.Expect("type library: KvPeNumericType is there by its id", true, static_cast<bool>(info))) {
        return;
    }
    Lines values;
    VARDESC* variable = nullptr;
    for (UINT index = 0; SUCCEEDED(info->GetVarDesc(index, &variable)); ++index) {
        values.push_back(ToText(NameOf(*info.Get(), variable->memid)) + " " +
                         std::to_string(variable->lpvarValue->lVal));
        info->ReleaseVarDesc(variable);
    }
    report.Expect("type library: KvPeNumericType has its values",
                  Lines{"PE_TOLM_DISTANCE 0", "PE_TOLM_ANGLE 1", "PE_TOLM_NOUNITS 2", "PE_TOLM_OTHER 3",
                        "PE_TOLM_ANGLEPLUS360 4", "PE_TOLM_RELATIVE_ANGLE 5", "PE_TOLM_RAW_ANGLE 6"},
                  values);
}

DWORD CountClasses(ITypeLib& library) {
    DWORD count = 0;
    for (UINT index = 0; index < library.GetTypeInfoCount(); ++index) {
        TYPEKIND kind{};
        count += SUCCEEDED(library.GetTypeInfoType(index, &kind)) && kind == TKIND_COCLASS ? 1U : 0U;
    }
    return count;
}

}  // namespace

void CheckTypeLibrary(Report& report, const TestedModule& module) {
    fw::ComPtr<ITypeLib> library;
    if (!report.Expect("type library: the module carries one", S_OK,
                       ::LoadTypeLibEx(module.Path().c_str(), REGKIND_NONE, library.Put()))) {
        return;
    }
    CheckIdentity(report, *library.Get());
    for (const PublishedInterface& published : PublishedInterfaces()) {
        CheckInterface(report, *library.Get(), published);
    }
    CheckNumericType(report, *library.Get());
    report.Expect("type library: it has as many classes as the class table",
                  static_cast<DWORD>(kvtest::s_classRows.size()), CountClasses(*library.Get()));
    for (const kvtest::ClassRow& row : kvtest::s_classRows) {
        CheckClass(report, *library.Get(), row);
    }
}

}  // namespace kvconform
