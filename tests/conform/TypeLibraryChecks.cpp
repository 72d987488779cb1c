// The type library in the module against the interfaces and classes that clients have compiled in.

#include "framework/com/Bstr.h"
#include "tests/conform/Checks.h"
#include "tests/conform/ClassInterfaces.h"
#include "tests/conform/TypeInfoReading.h"

namespace kvconform {
namespace {

// Operations in the order of their slots; a put has "=" at its end, a dispatch id stands behind a blank.
struct PublishedInterface {
    const wchar_t* name;
    const wchar_t* id;
    bool hasDispatchIds;
    Lines operations;
};

const PublishedInterface s_publishedInterfaces[] = {
    {L"IKvPeNumericEditor", L"{AD52023A-9B0D-44C8-AD8A-B28250858222}", false, {"SetNumericDataType"}},
    {L"IKvPeVariantCtrl",
     L"{2A5B57E5-7B4F-4FEE-B36B-FF636468ED91}",
     false,
     {"SetDwCookies", "SetGroupOffset", "SetElementCount"}},
    {L"IKvPeColorCtrl",
     L"{3C308511-9949-46F3-93A5-76D23A633E11}",
     false,
     {"SetNoMetaColor", "SetAllowNoneColor", "SetFixedForeground"}},
    {L"IKvPeSpinCtrl", L"{4132B288-9018-4690-BDFD-58A0EB2F3D27}", false, {"SetControls"}},
    {L"IKvPeNoPickVariantRW", L"{FFDC513D-B298-4D51-ACA7-8384F1196650}", false, {"SetAlwaysRW"}},
    {L"IKvPeButtonEditCtrl",
     L"{5295B0C4-94A0-4167-BA90-1C61A868E269}",
     false,
     {"DefaultPicture=", "DefaultPicture", "DisabledPicture=", "DisabledPicture"}},
    {L"IKvPeButtonPicture",
     L"{6395B0C4-94A0-4167-BA90-1C61A868E269}",
     false,
     {"DefaultPicture=", "DefaultPicture", "DisabledPicture=", "DisabledPicture"}},
    {L"IKvPePick2PointsCtrl", L"{01500220-9289-41BE-9A2E-F300A84598B0}", false, {"SetPrompts"}},
    {L"IKvPeCalculatorCtrl", L"{0AED2050-3838-4C85-A816-BA5CC5604999}", false, {"SetCalculatorMode"}},
    {L"IKvPiPropertyEditControl",
     L"{6371C569-72C0-43A0-A457-1E9D2EB9201E}",
     true,
     {"InitEditControl 1", "Refresh 2", "KeepFocus 3", "BackColor= -501", "BackColor -501", "ForeColor= -513",
      "ForeColor -513", "ReadOnlyBackColor= -2000", "ReadOnlyBackColor -2000", "ReadOnlyForeColor= -2001",
      "ReadOnlyForeColor -2001", "Font= -512", "Font -512"}},
    {L"IKvPiPropertyEditControl2",
     L"{FB6BE6DF-75C6-4F7C-9434-9B49AF5D9868}",
     true,
     {"PropertyIdentifier 4", "PropertyIdentifier= 4", "SetValue 5", "LaunchDialog 6"}},
    {L"IKvPiPropertyEditEventsSink",
     L"{5D6FA1C4-61B7-43C6-9050-DC24B92F4745}",
     true,
     {"OnClick -600", "OnDblClick -601", "OnKeyDown -602", "OnKeyUp -604", "OnRButtonDown -2030",
      "OnMButtonDown -2031", "OnBeginPropertyUpdate -2002", "OnEndPropertyUpdate -2003"}},
    {L"IKvPiPropertyEditEventsSink2",
     L"{355AD1D1-59EC-49AF-BB77-064C54F0AB00}",
     true,
     {"OnBeginModal -2004", "OnEndModal -2005"}},
};

constexpr GUID c_libraryId = {0x5C232F67, 0xF20E, 0x4855, {0xBB, 0xD8, 0xC0, 0x92, 0x65, 0x9B, 0xF7, 0x7A}};
constexpr GUID c_numericTypeId = {
    0x70AFDEB0, 0x099C, 0x494E, {0xA4, 0x93, 0x5E, 0x0E, 0xCD, 0x61, 0x40, 0x04}};

std::string LineOf(const DescribedFunction& function, bool withId) {
    return ToText(function.name) + (function.kind == INVOKE_PROPERTYPUT ? "=" : "") +
           (withId ? " " + std::to_string(function.id) : "");
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
    Lines operations;
    for (const DescribedFunction& function : FunctionsOf(*info.Get())) {
        if (!published.hasDispatchIds || !IsOfTheBases(function.id)) {
            operations.push_back(LineOf(function, published.hasDispatchIds));
        }
    }
    // A dual interface may be described with the operations that it inherits, in front of its own.
    if (published.hasDispatchIds && operations.size() > published.operations.size()) {
        operations.erase(operations.begin(),
                         operations.end() - static_cast<std::ptrdiff_t>(published.operations.size()));
    }
    report.Expect(rule + " has its operations in order", published.operations, operations);
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
    for (const PublishedInterface& published : s_publishedInterfaces) {
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
