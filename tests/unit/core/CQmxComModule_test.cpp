#include "core/CQmxComModule.h"

#include "core/HostEntryPoint.h"
#include "refhost/testing/Faults.h"
#include "tests/support/ExpectCalls.h"

namespace {

class CQmxComModuleTest : public ::testing::Test {
protected:
    ~CQmxComModuleTest() override { kvhost::Faults::Reset(); }
    kvhost::Journal journal;
};

// What a program is as a plug-in module does not matter here: the host is asked to load it.
TEST_F(CQmxComModuleTest, FirstLock_AsksTheHostWithTheModulesPath) {
    CQmxComModule module;
    ASSERT_EQ(module.Init({}, ::GetModuleHandleW(nullptr)), S_OK);
    EXPECT_EQ(module.Lock(), 1);
    const kvtest::CallLines calls = kvtest::CallsOnly(journal, {"kvrxLoadModule"});
    ASSERT_EQ(calls.size(), 1U);
    EXPECT_NE(calls[0].find("unit_core.exe 0 1"), std::string::npos) << calls[0];
    EXPECT_EQ(module.Unlock(), 0);
    module.Term();
}

TEST_F(CQmxComModuleTest, SecondLock_DoesNotAskAgain) {
    CQmxComModule module;
    ASSERT_EQ(module.Init({}, ::GetModuleHandleW(nullptr)), S_OK);
    EXPECT_EQ(module.Lock(), 1);
    EXPECT_EQ(module.Lock(), 2);
    EXPECT_EQ(kvtest::CallsOnly(journal, {"kvrxLoadModule"}).size(), 1U);
    EXPECT_EQ(module.Unlock(), 1);
    EXPECT_EQ(module.Unlock(), 0);
    module.Term();
}

TEST_F(CQmxComModuleTest, FailedLoad_IsTriedAgainAtTheNextFirstLock) {
    CQmxComModule module;
    ASSERT_EQ(module.Init({}, ::GetModuleHandleW(nullptr)), S_OK);
    kvhost::Faults::FailService(L"kvrxLoadModule", 0);
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(module.Lock(), 1);
        EXPECT_EQ(module.Lock(), 2);
        EXPECT_EQ(module.Unlock(), 1);
        EXPECT_EQ(module.Unlock(), 0);
    }
    EXPECT_EQ(kvtest::CallsOnly(journal, {"kvrxLoadModule"}).size(), 2U);
    module.Term();
}

// The host's messages

TEST_F(CQmxComModuleTest, OtherMessages_ReturnZeroAndDoNothing) {
    for (const unsigned message : {0U, 2U, 3U, 17U}) {
        EXPECT_EQ(AnswerHostMessage(message, this), 0U);
    }
    EXPECT_NO_CALLS(journal);
}

TEST_F(CQmxComModuleTest, InitMessage_LooksTheLinkerUpForEachOfItsCalls) {
    int packet = 0;
    EXPECT_EQ(AnswerHostMessage(1, &packet), 0U);
    EXPECT_CALLS(kvtest::CallsIgnoring(journal, {"isDerivedFrom"}), "kvrxSysRegistry", "at DynamicLinker",
                 "unlockApplication", "kvrxSysRegistry", "at DynamicLinker", "registerAppMDIAware");
}

}  // namespace
