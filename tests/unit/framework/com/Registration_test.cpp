#include "framework/com/Registration.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/unit/framework/com/TestRow.h"

namespace {

constexpr const wchar_t* s_root = L"Software\\KvFrameTest\\Classes";
constexpr const wchar_t* s_class = L"CLSID\\{7B1F0C5E-3D0B-4E5A-9B0B-0A54D1A3C604}";
constexpr const wchar_t* s_interface = L"Interface\\{7B1F0C5E-3D0B-4E5A-9B0B-0A54D1A3C602}";
constexpr const wchar_t* s_library = L"TypeLib\\{7B1F0C5E-3D0B-4E5A-9B0B-0A54D1A3C601}";

std::wstring Read(const std::wstring& path, const wchar_t* name = nullptr) {
    wchar_t text[512] = L"";
    DWORD bytes = sizeof text;
    const std::wstring full = std::wstring(s_root) + L'\\' + path;
    return ::RegGetValueW(HKEY_CURRENT_USER, full.c_str(), name, RRF_RT_REG_SZ, nullptr, text, &bytes) ==
                   ERROR_SUCCESS
               ? text
               : L"(missing)";
}

void Write(const std::wstring& path, const std::wstring& text) {
    const std::wstring full = std::wstring(s_root) + L'\\' + path;
    ASSERT_EQ(::RegSetKeyValueW(HKEY_CURRENT_USER, full.c_str(), nullptr, REG_SZ, text.c_str(),
                                static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t))),
              ERROR_SUCCESS);
}

bool HasKey(const std::wstring& path) {
    const std::wstring full = std::wstring(s_root) + L'\\' + path;
    HKEY key = nullptr;
    if (::RegOpenKeyExW(HKEY_CURRENT_USER, full.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) {
        return false;
    }
    ::RegCloseKey(key);
    return true;
}

std::vector<std::wstring> RootKeys() {
    std::vector<std::wstring> names;
    HKEY key = nullptr;
    if (::RegOpenKeyExW(HKEY_CURRENT_USER, s_root, 0, KEY_READ, &key) == ERROR_SUCCESS) {
        wchar_t name[256];
        DWORD length = 256;
        for (DWORD i = 0;
             ::RegEnumKeyExW(key, i, name, &length, nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS;
             ++i, length = 256) {
            names.push_back(name);
        }
        ::RegCloseKey(key);
    }
    return names;
}

class RegistrationTest : public testing::Test {
protected:
    RegistrationTest() {
        m_registration.modulePath = fw::ModulePath(fw::ThisModule());
        m_registration.objects = kvtest::TestModule().GetObjects();
        m_registration.rootKey = s_root;
    }
    void SetUp() override { ::RegDeleteTreeW(HKEY_CURRENT_USER, L"Software\\KvFrameTest"); }
    void TearDown() override { ::RegDeleteTreeW(HKEY_CURRENT_USER, L"Software\\KvFrameTest"); }

    fw::ModuleRegistration m_registration;
};

TEST_F(RegistrationTest, Register_WritesTheClass) {
    ASSERT_EQ(fw::RegisterModule(m_registration), S_OK);
    const std::wstring path = s_class;
    EXPECT_EQ(Read(path), kvtest::TestRowDescription);
    EXPECT_EQ(Read(path + L"\\InprocServer32"), m_registration.modulePath);
    EXPECT_EQ(Read(path + L"\\InprocServer32", L"ThreadingModel"), L"Apartment");
    EXPECT_EQ(Read(path + L"\\ProgID"), L"KvFrameTest.Row.1");
    EXPECT_EQ(Read(path + L"\\VersionIndependentProgID"), L"KvFrameTest.Row");
    EXPECT_EQ(Read(path + L"\\MiscStatus\\1"), std::to_wstring(fw::ControlMiscStatus));
    EXPECT_EQ(Read(path + L"\\TypeLib"), L"{7B1F0C5E-3D0B-4E5A-9B0B-0A54D1A3C601}");
    EXPECT_EQ(Read(path + L"\\Version"), L"1.2");
    EXPECT_TRUE(HasKey(path + L"\\Control"));
    EXPECT_FALSE(HasKey(path + L"\\Insertable"));
    EXPECT_EQ(Read(L"KvFrameTest.Row.1\\CLSID"), L"{7B1F0C5E-3D0B-4E5A-9B0B-0A54D1A3C604}");
    EXPECT_EQ(Read(L"KvFrameTest.Row\\CurVer"), L"KvFrameTest.Row.1");
}

TEST_F(RegistrationTest, Register_WritesTheLibraryWithItsDualInterfaces) {
    ASSERT_EQ(fw::RegisterModule(m_registration), S_OK);
    const std::wstring path = std::wstring(s_library) + L"\\1.2";
    EXPECT_EQ(Read(path), L"KvFrame Test Type Library");
    EXPECT_EQ(Read(path + L"\\409\\win64"), m_registration.modulePath);
    EXPECT_EQ(Read(path + L"\\FLAGS"), L"0");
    EXPECT_EQ(Read(std::wstring(s_interface)), L"ITestRow");
    EXPECT_EQ(Read(std::wstring(s_interface) + L"\\ProxyStubClsid32"),
              L"{00020424-0000-0000-C000-000000000046}");
    EXPECT_EQ(Read(std::wstring(s_interface) + L"\\TypeLib", L"Version"), L"1.2");
    EXPECT_FALSE(HasKey(L"Interface\\{7B1F0C5E-3D0B-4E5A-9B0B-0A54D1A3C603}"));
}

TEST_F(RegistrationTest, Unregister_LeavesNothing) {
    ASSERT_EQ(fw::RegisterModule(m_registration), S_OK);
    ASSERT_EQ(fw::RegisterModule(m_registration), S_OK);
    EXPECT_FALSE(RootKeys().empty());
    EXPECT_EQ(fw::UnregisterModule(m_registration), S_OK);
    EXPECT_EQ(RootKeys(), std::vector<std::wstring>());
    EXPECT_EQ(fw::UnregisterModule(m_registration), S_OK);
}

TEST_F(RegistrationTest, Unregister_LeavesWhatBelongsToOthers) {
    ASSERT_EQ(fw::RegisterModule(m_registration), S_OK);
    Write(L"KvFrameTest.Row\\CLSID", L"{00000000-0000-0000-0000-000000000001}");
    Write(std::wstring(s_interface) + L"\\TypeLib", L"{00000000-0000-0000-0000-000000000002}");
    Write(L"CLSID\\{00000000-0000-0000-0000-000000000001}", L"Other");
    Write(std::wstring(s_library) + L"\\1.1", L"Earlier");
    EXPECT_EQ(fw::UnregisterModule(m_registration), S_OK);
    EXPECT_FALSE(HasKey(s_class));
    EXPECT_FALSE(HasKey(L"KvFrameTest.Row.1"));
    EXPECT_FALSE(HasKey(std::wstring(s_library) + L"\\1.2"));
    EXPECT_TRUE(HasKey(L"KvFrameTest.Row\\CLSID"));
    EXPECT_TRUE(HasKey(s_interface));
    EXPECT_TRUE(HasKey(L"CLSID\\{00000000-0000-0000-0000-000000000001}"));
    EXPECT_TRUE(HasKey(std::wstring(s_library) + L"\\1.1"));
}

TEST_F(RegistrationTest, Register_MissingModule_TellsWhyAndLeavesNothing) {
    m_registration.modulePath = L"C:\\nowhere\\none.qmx";
    EXPECT_EQ(fw::RegisterModule(m_registration), TYPE_E_CANTLOADLIBRARY);
    EXPECT_EQ(RootKeys(), std::vector<std::wstring>());
}

TEST_F(RegistrationTest, Register_KeyCannotBeMade_IsTakenBack) {
    // A key name of more than 255 characters is refused after the library and the class id have been written.
    const std::wstring tooLong(300, L'x');
    fw::ObjectMapEntry object = m_registration.objects.front();
    object.progId = tooLong.c_str();
    m_registration.objects = {&object, 1};
    EXPECT_TRUE(FAILED(fw::RegisterModule(m_registration)));
    EXPECT_EQ(RootKeys(), std::vector<std::wstring>());
}

TEST_F(RegistrationTest, LibraryLeftOut_ClassesAloneAreWrittenAndTakenOut) {
    m_registration.typeLibrary = fw::TypeLibraryPart::LeftOut;
    ASSERT_EQ(fw::RegisterModule(m_registration), S_OK);
    EXPECT_EQ(Read(std::wstring(s_class) + L"\\InprocServer32"), m_registration.modulePath);
    EXPECT_FALSE(HasKey(std::wstring(s_class) + L"\\TypeLib"));
    EXPECT_FALSE(HasKey(s_library));
    EXPECT_FALSE(HasKey(s_interface));
    EXPECT_EQ(fw::UnregisterModule(m_registration), S_OK);
    EXPECT_EQ(RootKeys(), std::vector<std::wstring>());
}

TEST_F(RegistrationTest, LibraryLeftOut_ThatOfTheOtherModuleStays) {
    ASSERT_EQ(fw::RegisterModule(m_registration), S_OK);
    m_registration.typeLibrary = fw::TypeLibraryPart::LeftOut;
    EXPECT_EQ(fw::UnregisterModule(m_registration), S_OK);
    EXPECT_FALSE(HasKey(s_class));
    EXPECT_EQ(Read(std::wstring(s_library) + L"\\1.2\\409\\win64"), m_registration.modulePath);
}

TEST_F(RegistrationTest, LibraryLeftOut_ModuleWithoutOneCanBeRegistered) {
    m_registration.modulePath = L"C:\\nowhere\\none.qmx";
    m_registration.typeLibrary = fw::TypeLibraryPart::LeftOut;
    EXPECT_EQ(fw::RegisterModule(m_registration), S_OK);
    EXPECT_EQ(Read(std::wstring(s_class) + L"\\InprocServer32"), m_registration.modulePath);
}

TEST_F(RegistrationTest, ClassWithoutProgId_IsNotRegistered) {
    fw::ObjectMapEntry object = m_registration.objects.front();
    object.progId = nullptr;
    m_registration.objects = {&object, 1};
    EXPECT_EQ(fw::RegisterModule(m_registration), S_OK);
    EXPECT_FALSE(HasKey(s_class));
}

}  // namespace
