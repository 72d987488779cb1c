#include <gtest/gtest.h>

#include "framework/com/ComPtr.h"
#include "framework/window/CWnd.h"
#include "framework/window/WindowClass.h"
#include "refhost/editor/HostSession.h"
#include "refhost/rx/Modules.h"
#include "tests/control/core/ClassRows.h"
#include "tests/control/core/LoadedModule.h"
#include "tests/support/ExpectCalls.h"

namespace {

using kvtest::LoadedModule;

// A module that the host has loaded stays until the host ends, so that one test's load would hide the next
// one's.
class Module : public ::testing::Test {
protected:
    ~Module() override { kvhost::Modules::UnloadAll(); }

    fw::ComPtr<IUnknown> CreateText() {
        fw::ComPtr<IClassFactory> factory;
        fw::ComPtr<IUnknown> control;
        EXPECT_EQ(module.GetClassObject(CLSID_KvPePropertyEditorText, factory.Put()), S_OK);
        EXPECT_EQ(factory->CreateInstance(nullptr, IID_IUnknown, control.PutVoid()), S_OK);
        return control;
    }

    kvhost::HostSession host;
    LoadedModule module;
    kvhost::Journal journal;
};

TEST_F(Module, EntryPoints_AreExportedByName) {
    ASSERT_NE(module.Handle(), nullptr);
    for (const char* const name :
         {"DllCanUnloadNow", "DllGetClassObject", "kvrxEntryPoint", "kvrxGetApiVersion"}) {
        EXPECT_NE(module.Export<void()>(name), nullptr) << name;
    }
    EXPECT_EQ(module.Export<unsigned(unsigned)>("kvrxGetApiVersion")(0), 0x130000U);
}

TEST_F(Module, EntryPoint_MessagesOtherThanInit_ReturnZeroAndDoNothing) {
    const auto entryPoint = module.Export<unsigned(unsigned, void*)>("kvrxEntryPoint");
    for (const unsigned message : {0U, 2U, 3U}) {
        EXPECT_EQ(entryPoint(message, this), 0U);
    }
    EXPECT_NO_CALLS(journal);
}

TEST_F(Module, Classes_WithLogicAreAvailable_OthersAreNot) {
    ASSERT_EQ(kvtest::s_classRows.size(), 49U);
    for (const kvtest::ClassRow& row : kvtest::s_classRows) {
        fw::ComPtr<IClassFactory> factory;
        EXPECT_EQ(module.GetClassObject(*row.id, factory.Put()),
                  row.state == "READY" ? S_OK : CLASS_E_CLASSNOTAVAILABLE)
            << kvtest::ToUtf8(row.name);
    }
    fw::ComPtr<IClassFactory> factory;
    EXPECT_EQ(module.GetClassObject(IID_IUnknown, factory.Put()), CLASS_E_CLASSNOTAVAILABLE);
}

TEST_F(Module, FirstControl_LoadsTheModuleIntoTheHost_SecondDoesNot) {
    const fw::ComPtr<IUnknown> first = CreateText();
    EXPECT_CALLS(kvtest::CallsIgnoring(journal, {"isDerivedFrom"}), "kvrxLoadModule KvPEXCtl.qmx 0 1",
                 "kvrxSysRegistry", "at DynamicLinker", "unlockApplication", "kvrxSysRegistry",
                 "at DynamicLinker", "registerAppMDIAware");
    ASSERT_EQ(kvhost::Modules::Loaded().size(), 1U);
    EXPECT_TRUE(kvhost::Modules::Loaded()[0].unlocked);
    EXPECT_TRUE(kvhost::Modules::Loaded()[0].mdiAware);
    journal.Clear();
    const fw::ComPtr<IUnknown> second = CreateText();
    EXPECT_TRUE(kvtest::CallsOnly(journal, {"kvrx"}).empty());
}

fw::WindowClass WindowClassOf(const LoadedModule& module) {
    return {.name = L"KvTestOfModule", .module = module.Handle()};
}

// The system keeps classes of modules that are gone.
TEST(ModuleDetach, WindowClasses_AreUnregistered) {
    HINSTANCE gone = nullptr;
    WNDCLASSEXW known{};
    known.cbSize = sizeof known;
    {
        const LoadedModule module;
        gone = module.Handle();
        CWnd window;
        ASSERT_TRUE(window.Create(WindowClassOf(module), L"", WS_POPUP, {0, 0, 10, 10}, nullptr));
        window.DestroyWindow();
        EXPECT_TRUE(::GetClassInfoExW(gone, L"KvTestOfModule", &known));
    }
    EXPECT_FALSE(::GetClassInfoExW(gone, L"KvTestOfModule", &known));
}

TEST(ModuleDetach, Satellite_StaysLoaded) {
    {
        const LoadedModule module;
        ASSERT_NE(module.Handle(), nullptr);
    }
    EXPECT_EQ(::GetModuleHandleW(L"KvPEXCtl.qmx"), nullptr);
    EXPECT_NE(::GetModuleHandleW(L"KvPEXCtlRes.dll"), nullptr);
}

TEST_F(Module, CanUnloadNow_OnlyWithoutAControl) {
    EXPECT_EQ(module.CanUnloadNow(), S_OK);
    {
        const fw::ComPtr<IUnknown> control = CreateText();
        EXPECT_EQ(module.CanUnloadNow(), S_FALSE);
    }
    EXPECT_EQ(module.CanUnloadNow(), S_OK);
}

TEST_F(Module, CanUnloadNow_NotWhileOneOfItsWindowsLives) {
    EXPECT_EQ(module.CanUnloadNow(), S_OK);
    CWnd window;
    ASSERT_TRUE(window.Create(WindowClassOf(module), L"", WS_POPUP, {0, 0, 10, 10}, nullptr));
    EXPECT_EQ(module.CanUnloadNow(), S_FALSE);
    window.DestroyWindow();
    EXPECT_EQ(module.CanUnloadNow(), S_OK);
}

TEST_F(Module, CanUnloadNow_NotWhileAClientLocksTheServer) {
    fw::ComPtr<IClassFactory> factory;
    ASSERT_EQ(module.GetClassObject(CLSID_KvPePropertyEditorText, factory.Put()), S_OK);
    EXPECT_EQ(factory->LockServer(TRUE), S_OK);
    EXPECT_EQ(module.CanUnloadNow(), S_FALSE);
    EXPECT_EQ(factory->LockServer(FALSE), S_OK);
    factory.Reset();
    EXPECT_EQ(module.CanUnloadNow(), S_OK);
}

}  // namespace
