#include "refhost/testing/Journal.h"

#include <gtest/gtest.h>

#include "refhost/testing/ServiceCall.h"
#include "tests/support/ExpectCalls.h"

namespace {

using kvhost::Journal;
using kvhost::ServiceCall;

int CallService(const wchar_t* name, int argument) {
    ServiceCall call(name, argument);
    return call.Returns(argument * 2);
}

TEST(Journal, NothingAttached_CallsRecordNothing) {
    EXPECT_EQ(Journal::Attached(), nullptr);
    CallService(L"first", 1);

    Journal journal;
    EXPECT_NO_CALLS(journal);
}

TEST(Journal, Attached_RecordsCallsInOrderWithResults) {
    Journal journal;
    CallService(L"first", 1);
    CallService(L"second", -2);

    EXPECT_CALLS(journal, "first 1", "second -2");
    EXPECT_EQ(journal.Entries()[0].result, L"2");
    EXPECT_EQ(journal.Entries()[1].result, L"-4");
}

TEST(Journal, Nested_InnerRecordsAloneAndOuterComesBack) {
    Journal outer;
    {
        Journal inner;
        CallService(L"inside", 1);
        EXPECT_CALLS(inner, "inside 1");
    }
    EXPECT_EQ(Journal::Attached(), &outer);
    CallService(L"outside", 1);
    EXPECT_CALLS(outer, "outside 1");
}

TEST(Journal, ClearedDuringCall_ResultIsDropped) {
    Journal journal;
    ServiceCall call(L"service");
    journal.Clear();
    EXPECT_EQ(call.Returns(3), 3);
    EXPECT_NO_CALLS(journal);
}

TEST(Journal, DetachedDuringCall_ResultIsDropped) {
    auto journal = std::make_unique<Journal>();
    ServiceCall call(L"service");
    journal.reset();
    EXPECT_EQ(call.Returns(3), 3);
}

TEST(Journal, Filters_KeepOrderOfWhatIsLeft) {
    Journal journal;
    for (const wchar_t* name : {L"open", L"read", L"openMore", L"close"}) {
        CallService(name, 0);
    }
    EXPECT_CALLS(kvtest::CallsIgnoring(journal, {"open"}), "read 0", "close 0");
    EXPECT_CALLS(kvtest::CallsOnly(journal, {"open"}), "open 0", "openMore 0");
}

TEST(Journal, SameCalls_TellsDifferences) {
    EXPECT_TRUE(kvtest::SameCalls({"a"}, {"a"}));
    EXPECT_FALSE(kvtest::SameCalls({"a"}, {"a", "b"}));
    EXPECT_FALSE(kvtest::SameCalls({"a", "b"}, {"a"}));
    EXPECT_FALSE(kvtest::SameCalls({"a", "b"}, {"b", "a"}));
}

}  // namespace
