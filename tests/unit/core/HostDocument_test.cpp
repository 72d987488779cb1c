#include "core/HostDocument.h"

#include <gtest/gtest.h>

#include "refhost/editor/DocumentManager.h"
#include "refhost/editor/HostSession.h"
#include "refhost/testing/Faults.h"
#include "tests/support/ExpectCalls.h"

namespace {

using kvhost::HostSession;

TEST(HostDocument, CurrentDocumentActive_WorkingDatabaseIsItsOwn_IsTrue) {
    const HostSession host;
    host->Documents().New();
    const kvhost::Journal journal;
    EXPECT_TRUE(IsCurrentDocumentActive());
    EXPECT_CALLS(journal, "kvdbHostApplicationServices", "workingDatabase", "kvDocManagerPtr", "curDocument",
                 "database");
}

TEST(HostDocument, CurrentDocumentActive_AnotherDatabaseWorks_IsFalse) {
    const HostSession host;
    host->Documents().New();
    host->SetWorkingDatabase(&host->Documents().New().GetDatabase());
    EXPECT_FALSE(IsCurrentDocumentActive());
}

TEST(HostDocument, CurrentDocumentActive_NoHostOrNoDocument_IsFalse) {
    EXPECT_FALSE(IsCurrentDocumentActive());
    const HostSession host;
    EXPECT_FALSE(IsCurrentDocumentActive());
}

TEST(HostDocument, CurrentDocumentActive_HostDoesNotAnswer_IsFalse) {
    const HostSession host;
    host->Documents().New();
    for (const wchar_t* const service : {L"kvdbHostApplicationServices", L"workingDatabase",
                                         L"kvDocManagerPtr", L"curDocument", L"database"}) {
        kvhost::Faults::FailService(service, 1);
        EXPECT_FALSE(IsCurrentDocumentActive()) << kvtest::ToUtf8(service);
        EXPECT_TRUE(IsCurrentDocumentActive()) << kvtest::ToUtf8(service);
    }
    kvhost::Faults::Reset();
}

}  // namespace
