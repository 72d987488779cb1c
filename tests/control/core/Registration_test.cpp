// The register program and the manifest: the two ways in which clients find the classes.

#include <gtest/gtest.h>

#include "framework/com/ComPtr.h"
#include "refhost/editor/HostSession.h"
#include "refhost/rx/Modules.h"
#include "tests/control/core/ClassRows.h"
#include "tests/control/core/LoadedModule.h"
#include "tests/control/support/RegisterProgram.h"
#include "tests/support/ExpectCalls.h"

namespace {

using kvtest::RunRegister;

bool UserKeyExists(const std::wstring& path) {
    HKEY key = nullptr;
    if (::RegOpenKeyExW(HKEY_CURRENT_USER, (L"Software\\Classes\\" + path).c_str(), 0, KEY_READ, &key) !=
        ERROR_SUCCESS) {
        return false;
    }
    ::RegCloseKey(key);
    return true;
}

std::wstring TextOf(const GUID& id) {
    wchar_t text[64]{};
    ::StringFromGUID2(id, text, 64);
    return text;
}

class Registration : public ::testing::Test {
protected:
    ~Registration() override { EXPECT_EQ(RunRegister(L" /u"), 0U); }
};

TEST_F(Registration, Register_MakesEveryClassKnownByName_UnregisterTakesAllOut) {
    ASSERT_EQ(RunRegister(L""), 0U);
    for (const kvtest::ClassRow& row : kvtest::s_classRows) {
        CLSID id{};
        EXPECT_EQ(::CLSIDFromProgID(row.progId, &id), S_OK) << kvtest::ToUtf8(row.progId);
        EXPECT_TRUE(::IsEqualCLSID(id, *row.id)) << kvtest::ToUtf8(row.progId);
    }
    EXPECT_TRUE(UserKeyExists(L"TypeLib\\{5C232F67-F20E-4855-BBD8-C092659BF77A}"));

    ASSERT_EQ(RunRegister(L" /u"), 0U);
    for (const kvtest::ClassRow& row : kvtest::s_classRows) {
        EXPECT_FALSE(UserKeyExists(row.progId)) << kvtest::ToUtf8(row.progId);
        EXPECT_FALSE(UserKeyExists(L"CLSID\\" + TextOf(*row.id))) << kvtest::ToUtf8(row.progId);
    }
    EXPECT_FALSE(UserKeyExists(L"TypeLib\\{5C232F67-F20E-4855-BBD8-C092659BF77A}"));
    EXPECT_FALSE(UserKeyExists(L"Interface\\" + TextOf(__uuidof(IKvPiPropertyEditControl))));
}

TEST_F(Registration, Register_Twice_IsTheSameAsOnce) {
    EXPECT_EQ(RunRegister(L""), 0U);
    EXPECT_EQ(RunRegister(L""), 0U);
    EXPECT_EQ(RunRegister(L" /u"), 0U);
    EXPECT_FALSE(UserKeyExists(L"KvPEXCtl.KvPePropertyEditorText.16"));
    EXPECT_EQ(RunRegister(L" /u"), 0U);
}

TEST_F(Registration, Register_UnknownArgument_IsRefused) {
    EXPECT_EQ(RunRegister(L" /x"), 2U);
}

TEST_F(Registration, Manifest_LetsClientsCreateByNameWithoutRegistration) {
    const std::wstring manifest = kvtest::BesideProgram(L"KvPEXCtl.manifest");
    const std::wstring folder = kvtest::BesideProgram(L"");
    ACTCTXW description{};
    description.cbSize = sizeof description;
    description.dwFlags = ACTCTX_FLAG_ASSEMBLY_DIRECTORY_VALID;
    description.lpSource = manifest.c_str();
    description.lpAssemblyDirectory = folder.c_str();
    const HANDLE context = ::CreateActCtxW(&description);
    ASSERT_NE(context, INVALID_HANDLE_VALUE);
    ULONG_PTR cookie = 0;
    ASSERT_TRUE(::ActivateActCtx(context, &cookie));
    {
        const kvhost::HostSession host;
        for (const kvtest::ClassRow& row : kvtest::s_classRows) {
            CLSID id{};
            EXPECT_EQ(::CLSIDFromProgID(row.progId, &id), S_OK) << kvtest::ToUtf8(row.progId);
            fw::ComPtr<IUnknown> control;
            const HRESULT created =
                ::CoCreateInstance(*row.id, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown, control.PutVoid());
            EXPECT_EQ(created, row.state == "READY" ? S_OK : CLASS_E_CLASSNOTAVAILABLE)
                << kvtest::ToUtf8(row.progId);
        }
        kvhost::Modules::UnloadAll();
    }
    // No control lives any more: the component runtime may let go of the module.
    ::CoFreeUnusedLibrariesEx(0, 0);
    EXPECT_EQ(::GetModuleHandleW(L"KvPEXCtl.qmx"), nullptr);
    ::DeactivateActCtx(0, cookie);
    ::ReleaseActCtx(context);
}

}  // namespace
