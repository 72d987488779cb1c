#include "refhost/testing/Faults.h"

#include <gtest/gtest.h>

#include "refhost/testing/ServiceCall.h"

namespace {

using kvhost::Faults;

class FaultsTest : public ::testing::Test {
protected:
    ~FaultsTest() override { Faults::Reset(); }

    static bool Fails(const wchar_t* name) { return kvhost::ServiceCall(name).Fails(); }
};

TEST_F(FaultsTest, Off_NoCallFails) {
    EXPECT_FALSE(Fails(L"service"));
    EXPECT_EQ(Faults::CountedCalls(), 0U);
}

TEST_F(FaultsTest, FailService_ThirdCallOfThatServiceAloneFails) {
    Faults::FailService(L"service", 3);
    EXPECT_FALSE(Fails(L"service"));
    EXPECT_FALSE(Fails(L"other"));
    EXPECT_FALSE(Fails(L"service"));
    EXPECT_TRUE(Fails(L"service"));
    EXPECT_FALSE(Fails(L"service"));
}

TEST_F(FaultsTest, FailService_ZeroFailsEveryCall) {
    Faults::FailService(L"service", 0);
    EXPECT_TRUE(Fails(L"service"));
    EXPECT_TRUE(Fails(L"service"));
    EXPECT_FALSE(Fails(L"other"));
}

TEST_F(FaultsTest, FailService_SeveralServicesCountApart) {
    Faults::FailService(L"first", 1);
    Faults::FailService(L"second", 2);
    EXPECT_FALSE(Fails(L"second"));
    EXPECT_TRUE(Fails(L"first"));
    EXPECT_TRUE(Fails(L"second"));
}

TEST_F(FaultsTest, FailAnyService_CountsAllCallsAndNamesTheFailedOne) {
    Faults::FailAnyService(2);
    EXPECT_FALSE(Fails(L"first"));
    EXPECT_TRUE(Fails(L"second"));
    EXPECT_FALSE(Fails(L"third"));
    EXPECT_EQ(Faults::CountedCalls(), 3U);
    EXPECT_EQ(Faults::LastFailedService(), L"second");
}

TEST_F(FaultsTest, FailAnyService_ZeroOnlyCounts) {
    Faults::FailAnyService(0);
    EXPECT_FALSE(Fails(L"first"));
    EXPECT_EQ(Faults::CountedCalls(), 1U);
    EXPECT_EQ(Faults::LastFailedService(), L"");
}

TEST_F(FaultsTest, Reset_TurnsAllOff) {
    Faults::FailService(L"service", 0);
    Faults::FailAnyService(1);
    Faults::Reset();
    EXPECT_FALSE(Fails(L"service"));
    EXPECT_EQ(Faults::CountedCalls(), 0U);
}

}  // namespace
