#include <gtest/gtest.h>

#include "framework/com/Bstr.h"
#include "framework/com/ComPtr.h"
#include "tests/control/core/ClassRows.h"
#include "tests/control/core/LoadedModule.h"
#include "tests/support/ExpectCalls.h"

namespace {

IID IdOf(const wchar_t* text) {
    IID id{};
    EXPECT_EQ(::IIDFromString(text, &id), S_OK);
    return id;
}

class TypeLibrary : public ::testing::Test {
protected:
    TypeLibrary() {
        EXPECT_EQ(
            ::LoadTypeLibEx(kvtest::BesideProgram(L"KvPEXCtl.qmx").c_str(), REGKIND_NONE, library.Put()),
            S_OK);
    }

    [[nodiscard]] fw::ComPtr<ITypeInfo> InfoOf(REFGUID id) const {
        fw::ComPtr<ITypeInfo> info;
        EXPECT_EQ(library->GetTypeInfoOfGuid(id, info.Put()), S_OK);
        return info;
    }

    // The names and dispids of an interface's own functions in slot order, as "name dispid"; put with "=".
    [[nodiscard]] std::vector<std::string> FunctionsOf(REFGUID id) const {
        std::vector<std::string> functions;
        const fw::ComPtr<ITypeInfo> info = InfoOf(id);
        TYPEATTR* attributes = nullptr;
        EXPECT_EQ(info->GetTypeAttr(&attributes), S_OK);
        for (UINT index = 0; index < attributes->cFuncs; ++index) {
            FUNCDESC* function = nullptr;
            EXPECT_EQ(info->GetFuncDesc(index, &function), S_OK);
            fw::Bstr name;
            EXPECT_EQ(info->GetDocumentation(function->memid, name.Put(), nullptr, nullptr, nullptr), S_OK);
            if (function->memid < 0x60000000 || function->memid >= 0x60030000) {
                functions.push_back(kvtest::ToUtf8(name.View()) +
                                    (function->invkind == INVOKE_PROPERTYPUT ? "=" : "") + " " +
                                    std::to_string(function->memid));
            }
            info->ReleaseFuncDesc(function);
        }
        info->ReleaseTypeAttr(attributes);
        return functions;
    }

    fw::ComPtr<ITypeLib> library;
};

TEST_F(TypeLibrary, Identity) {
    TLIBATTR* attributes = nullptr;
    ASSERT_EQ(library->GetLibAttr(&attributes), S_OK);
    constexpr GUID id = {0x5C232F67, 0xF20E, 0x4855, {0xBB, 0xD8, 0xC0, 0x92, 0x65, 0x9B, 0xF7, 0x7A}};
    EXPECT_TRUE(::IsEqualGUID(attributes->guid, id));
    EXPECT_EQ(attributes->wMajorVerNum, 1);
    EXPECT_EQ(attributes->wMinorVerNum, 0);
    EXPECT_EQ(attributes->lcid, 1033U);
    library->ReleaseTLibAttr(attributes);
    fw::Bstr name;
    fw::Bstr description;
    ASSERT_EQ(library->GetDocumentation(-1, name.Put(), description.Put(), nullptr, nullptr), S_OK);
    EXPECT_EQ(name.View(), L"KVPEXCTLLib");
    EXPECT_EQ(description.View(), L"KvPEXCtl 1.0 Type Library");
}

TEST_F(TypeLibrary, Coclasses_AreThoseOfTheTable) {
    std::size_t coclasses = 0;
    for (UINT index = 0; index < library->GetTypeInfoCount(); ++index) {
        TYPEKIND kind{};
        EXPECT_EQ(library->GetTypeInfoType(index, &kind), S_OK);
        coclasses += kind == TKIND_COCLASS ? 1U : 0U;
    }
    EXPECT_EQ(coclasses, 49U);
    for (const kvtest::ClassRow& row : kvtest::s_classRows) {
        const fw::ComPtr<ITypeInfo> info = InfoOf(*row.id);
        ASSERT_NE(info, nullptr);
        fw::Bstr name;
        fw::Bstr description;
        EXPECT_EQ(info->GetDocumentation(MEMBERID_NIL, name.Put(), description.Put(), nullptr, nullptr),
                  S_OK);
        EXPECT_EQ(name.View(), row.name);
        EXPECT_EQ(description.View(), row.description);
        TYPEATTR* attributes = nullptr;
        EXPECT_EQ(info->GetTypeAttr(&attributes), S_OK);
        const std::wstring progId =
            L"KvPEXCtl." + std::wstring(row.name) + L"." + std::to_wstring(attributes->wMajorVerNum);
        EXPECT_EQ(progId, row.progId);
        EXPECT_EQ(attributes->cImplTypes, 2);
        info->ReleaseTypeAttr(attributes);
    }
}

TEST_F(TypeLibrary, EditControl_HasItsOperations) {
    EXPECT_EQ(FunctionsOf(__uuidof(IKvPiPropertyEditControl)),
              (std::vector<std::string>{
                  "InitEditControl 1", "Refresh 2", "KeepFocus 3", "BackColor= -501", "BackColor -501",
                  "ForeColor= -513", "ForeColor -513", "ReadOnlyBackColor= -2000", "ReadOnlyBackColor -2000",
                  "ReadOnlyForeColor= -2001", "ReadOnlyForeColor -2001", "Font= -512", "Font -512"}));
}

TEST_F(TypeLibrary, EventsSink_HasItsOperations) {
    EXPECT_EQ(FunctionsOf(__uuidof(IKvPiPropertyEditEventsSink)),
              (std::vector<std::string>{"OnClick -600", "OnDblClick -601", "OnKeyDown -602", "OnKeyUp -604",
                                        "OnRButtonDown -2030", "OnMButtonDown -2031",
                                        "OnBeginPropertyUpdate -2002", "OnEndPropertyUpdate -2003"}));
}

TEST_F(TypeLibrary, NumericType_HasItsSevenValues) {
    constexpr GUID id = {0x70AFDEB0, 0x099C, 0x494E, {0xA4, 0x93, 0x5E, 0x0E, 0xCD, 0x61, 0x40, 0x04}};
    const fw::ComPtr<ITypeInfo> info = InfoOf(id);
    ASSERT_NE(info, nullptr);
    const wchar_t* const names[] = {L"PE_TOLM_DISTANCE", L"PE_TOLM_ANGLE",        L"PE_TOLM_NOUNITS",
                                    L"PE_TOLM_OTHER",    L"PE_TOLM_ANGLEPLUS360", L"PE_TOLM_RELATIVE_ANGLE",
                                    L"PE_TOLM_RAW_ANGLE"};
    for (UINT index = 0; index < 7; ++index) {
        VARDESC* variable = nullptr;
        ASSERT_EQ(info->GetVarDesc(index, &variable), S_OK);
        fw::Bstr name;
        EXPECT_EQ(info->GetDocumentation(variable->memid, name.Put(), nullptr, nullptr, nullptr), S_OK);
        EXPECT_EQ(name.View(), names[index]);
        EXPECT_EQ(variable->lpvarValue->lVal, static_cast<LONG>(index));
        info->ReleaseVarDesc(variable);
    }
}

// Ids and operations as clients have compiled them in; a put has "=" at its end.
struct PublishedInterface {
    const wchar_t* name;
    const wchar_t* id;
    std::vector<std::string> operations;
};

const PublishedInterface s_publishedInterfaces[] = {
    {L"IKvPeNumericEditor", L"{AD52023A-9B0D-44C8-AD8A-B28250858222}", {"SetNumericDataType"}},
    {L"IKvPeVariantCtrl",
     L"{2A5B57E5-7B4F-4FEE-B36B-FF636468ED91}",
     {"SetDwCookies", "SetGroupOffset", "SetElementCount"}},
    {L"IKvPeColorCtrl",
     L"{3C308511-9949-46F3-93A5-76D23A633E11}",
     {"SetNoMetaColor", "SetAllowNoneColor", "SetFixedForeground"}},
    {L"IKvPeSpinCtrl", L"{4132B288-9018-4690-BDFD-58A0EB2F3D27}", {"SetControls"}},
    {L"IKvPeNoPickVariantRW", L"{FFDC513D-B298-4D51-ACA7-8384F1196650}", {"SetAlwaysRW"}},
    {L"IKvPeButtonEditCtrl",
     L"{5295B0C4-94A0-4167-BA90-1C61A868E269}",
     {"DefaultPicture=", "DefaultPicture", "DisabledPicture=", "DisabledPicture"}},
    {L"IKvPeButtonPicture",
     L"{6395B0C4-94A0-4167-BA90-1C61A868E269}",
     {"DefaultPicture=", "DefaultPicture", "DisabledPicture=", "DisabledPicture"}},
    {L"IKvPePick2PointsCtrl", L"{01500220-9289-41BE-9A2E-F300A84598B0}", {"SetPrompts"}},
    {L"IKvPeCalculatorCtrl", L"{0AED2050-3838-4C85-A816-BA5CC5604999}", {"SetCalculatorMode"}},
};

TEST_F(TypeLibrary, SmallInterfaces_AreThoseThatClientsKnow) {
    for (const PublishedInterface& published : s_publishedInterfaces) {
        const fw::ComPtr<ITypeInfo> info = InfoOf(IdOf(published.id));
        ASSERT_NE(info, nullptr) << kvtest::ToUtf8(published.name);
        fw::Bstr name;
        EXPECT_EQ(info->GetDocumentation(MEMBERID_NIL, name.Put(), nullptr, nullptr, nullptr), S_OK);
        EXPECT_EQ(name.View(), published.name);
        std::vector<std::string> operations;
        TYPEATTR* attributes = nullptr;
        ASSERT_EQ(info->GetTypeAttr(&attributes), S_OK);
        EXPECT_EQ(attributes->typekind, TKIND_INTERFACE);
        for (UINT index = 0; index < attributes->cFuncs; ++index) {
            FUNCDESC* function = nullptr;
            ASSERT_EQ(info->GetFuncDesc(index, &function), S_OK);
            fw::Bstr operation;
            EXPECT_EQ(info->GetDocumentation(function->memid, operation.Put(), nullptr, nullptr, nullptr),
                      S_OK);
            operations.push_back(kvtest::ToUtf8(operation.View()) +
                                 (function->invkind == INVOKE_PROPERTYPUT ? "=" : ""));
            info->ReleaseFuncDesc(function);
        }
        info->ReleaseTypeAttr(attributes);
        EXPECT_EQ(operations, published.operations) << kvtest::ToUtf8(published.name);
    }
}

TEST_F(TypeLibrary, ControlAndSink_HaveTheIdsThatClientsKnow) {
    EXPECT_TRUE(
        ::IsEqualIID(__uuidof(IKvPiPropertyEditControl), IdOf(L"{6371C569-72C0-43A0-A457-1E9D2EB9201E}")));
    EXPECT_TRUE(
        ::IsEqualIID(__uuidof(IKvPiPropertyEditControl2), IdOf(L"{FB6BE6DF-75C6-4F7C-9434-9B49AF5D9868}")));
    EXPECT_TRUE(
        ::IsEqualIID(__uuidof(IKvPiPropertyEditEventsSink), IdOf(L"{5D6FA1C4-61B7-43C6-9050-DC24B92F4745}")));
    EXPECT_TRUE(::IsEqualIID(__uuidof(IKvPiPropertyEditEventsSink2),
                             IdOf(L"{355AD1D1-59EC-49AF-BB77-064C54F0AB00}")));
    for (const IID& id : {__uuidof(IKvPiPropertyEditControl), __uuidof(IKvPiPropertyEditControl2),
                          __uuidof(IKvPiPropertyEditEventsSink), __uuidof(IKvPiPropertyEditEventsSink2)}) {
        EXPECT_NE(InfoOf(id), nullptr);
    }
}

}  // namespace
