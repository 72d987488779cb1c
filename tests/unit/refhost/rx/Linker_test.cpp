#include <gtest/gtest.h>

#include "framework/base/Handles.h"
#include "framework/base/Hresult.h"
#include "host_sdk/KvRxClass.h"
#include "host_sdk/KvRxDictionary.h"
#include "host_sdk/KvRxDynamicLinker.h"
#include "refhost/rx/Modules.h"
#include "refhost/testing/Answers.h"
#include "refhost/testing/Faults.h"
#include "refhost/ui/MessageBoxes.h"
#include "tests/support/ExpectCalls.h"

namespace {

using kvhost::Modules;

class LinkerTest : public ::testing::Test {
protected:
    ~LinkerTest() override {
        kvhost::Faults::Reset();
        Modules::UnloadAll();
        kvhost::Answers::Reset();
    }

    template <class Function>
    static Function FunctionOf(const fw::UniqueModule& library, const char* name) {
        return reinterpret_cast<Function>(reinterpret_cast<void*>(::GetProcAddress(library.Get(), name)));
    }
    static unsigned MessagesOf(const fw::UniqueModule& library) {
        return FunctionOf<unsigned (*)()>(library, "TestPluginMessages")();
    }
};

TEST_F(LinkerTest, SysRegistry_HasTheLinkerAndNothingElse) {
    KvRxDictionary* const registry = kvrxSysRegistry();
    ASSERT_NE(registry, nullptr);
    KvRxObject* const found = registry->at(L"DynamicLinker");
    ASSERT_NE(found, nullptr);
    EXPECT_TRUE(found->isKindOf(KvRxDynamicLinker::desc()));
    EXPECT_TRUE(found->isA()->isDerivedFrom(KvRxDynamicLinker::desc()));
    EXPECT_NE(kvrxCast<KvRxDynamicLinker>(found), nullptr);
    EXPECT_EQ(registry->at(L"Nothing"), nullptr);
    EXPECT_EQ(registry->at(nullptr), nullptr);
    EXPECT_EQ(kvrxCast<KvRxDynamicLinker>(nullptr), nullptr);
}

TEST_F(LinkerTest, Load_SendsInitAndAcceptsTheModule) {
    const fw::UniqueModule library(::LoadLibraryW(L"kv_test_plugin.dll"));
    ASSERT_TRUE(static_cast<bool>(library));
    kvhost::Journal journal;
    EXPECT_TRUE(kvrxLoadModule(L"kv_test_plugin.dll", false, true));
    EXPECT_CALLS(journal, "kvrxLoadModule kv_test_plugin.dll 0 1", "kvrxSysRegistry", "at DynamicLinker",
                 "unlockApplication", "registerAppMDIAware");
    EXPECT_EQ(MessagesOf(library), 1U);
    EXPECT_TRUE(FunctionOf<bool (*)()>(library, "TestPluginWasAccepted")());
    const auto modules = Modules::Loaded();
    ASSERT_EQ(modules.size(), 1U);
    EXPECT_TRUE(modules[0].unlocked);
    EXPECT_TRUE(modules[0].mdiAware);
}

TEST_F(LinkerTest, LoadTwice_InitialisesOnce) {
    const fw::UniqueModule library(::LoadLibraryW(L"kv_test_plugin.dll"));
    EXPECT_TRUE(kvrxLoadModule(L"kv_test_plugin.dll", false, true));
    EXPECT_TRUE(kvrxLoadModule(L"kv_test_plugin.dll", false, true));
    EXPECT_EQ(MessagesOf(library), 1U);
    EXPECT_EQ(Modules::Loaded().size(), 1U);
}

TEST_F(LinkerTest, UnloadAll_SendsUnloadAndForgets) {
    const fw::UniqueModule library(::LoadLibraryW(L"kv_test_plugin.dll"));
    ASSERT_TRUE(kvrxLoadModule(L"kv_test_plugin.dll", false, true));
    Modules::UnloadAll();
    EXPECT_EQ(MessagesOf(library), 12U);
    EXPECT_TRUE(Modules::Loaded().empty());
    EXPECT_TRUE(kvrxLoadModule(L"kv_test_plugin.dll", false, true));
    EXPECT_EQ(MessagesOf(library), 121U);
}

TEST_F(LinkerTest, UnloadAll_LetsGoOfTheLibrary) {
    ASSERT_TRUE(kvrxLoadModule(L"kv_test_plugin.dll", false, true));
    EXPECT_NE(::GetModuleHandleW(L"kv_test_plugin.dll"), nullptr);
    Modules::UnloadAll();
    EXPECT_EQ(::GetModuleHandleW(L"kv_test_plugin.dll"), nullptr);
}

TEST_F(LinkerTest, NotLoadable_GiveFalse) {
    EXPECT_FALSE(kvrxLoadModule(L"no such file.dll", false, true));
    EXPECT_FALSE(kvrxLoadModule(nullptr, false, true));
    EXPECT_FALSE(kvrxLoadModule(L"kv_test_plugin_of_other_version.dll", false, true));
    EXPECT_FALSE(kvrxLoadModule(L"ole32.dll", false, true));
    EXPECT_TRUE(Modules::Loaded().empty());
    EXPECT_EQ(::GetModuleHandleW(L"kv_test_plugin_of_other_version.dll"), nullptr);
}

TEST_F(LinkerTest, PrintErrors_ShowsTheReason) {
    const kvhost::MessageBoxes boxes;
    fw::Ignore(kvhost::Answers::TakeShown());
    EXPECT_FALSE(kvrxLoadModule(L"ole32.dll", true, true));
    const auto shown = kvhost::Answers::TakeShown();
    ASSERT_EQ(shown.size(), 1U);
    EXPECT_EQ(shown[0], L"ole32.dll is no plug-in module.");
    EXPECT_FALSE(kvrxLoadModule(L"ole32.dll", false, true));
    EXPECT_TRUE(kvhost::Answers::TakeShown().empty());
}

TEST_F(LinkerTest, UnknownPacket_IsRefused) {
    auto* const linker = kvrxCast<KvRxDynamicLinker>(kvrxSysRegistry()->at(L"DynamicLinker"));
    int stranger = 0;
    EXPECT_FALSE(linker->unlockApplication(&stranger));
    EXPECT_FALSE(linker->registerAppMDIAware(nullptr));
}

TEST_F(LinkerTest, Fault_FailsTheLoadBeforeItBegins) {
    kvhost::Faults::FailService(L"kvrxLoadModule", 1);
    EXPECT_FALSE(kvrxLoadModule(L"kv_test_plugin.dll", false, true));
    EXPECT_TRUE(Modules::Loaded().empty());
    EXPECT_TRUE(kvrxLoadModule(L"kv_test_plugin.dll", false, true));
}

TEST(KvRxClass, Derivation_IsReflexiveAndFollowsParents) {
    EXPECT_TRUE(KvRxDynamicLinker::desc()->isDerivedFrom(KvRxDynamicLinker::desc()));
    EXPECT_TRUE(KvRxDynamicLinker::desc()->isDerivedFrom(KvRxObject::desc()));
    EXPECT_FALSE(KvRxObject::desc()->isDerivedFrom(KvRxDynamicLinker::desc()));
    EXPECT_FALSE(KvRxObject::desc()->isDerivedFrom(nullptr));
    EXPECT_STREQ(KvRxDynamicLinker::desc()->name(), L"KvRxDynamicLinker");
    EXPECT_EQ(KvRxDynamicLinker::desc()->parent(), KvRxObject::desc());
    EXPECT_TRUE(KvRxObject::desc()->isKindOf(KvRxClass::desc()));
}

}  // namespace
