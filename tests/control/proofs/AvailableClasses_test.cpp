#include "tests/control/proofs/AvailableClasses.h"

#include <set>

#include "tests/control/core/ClassRows.h"
#include "tests/support/ExpectCalls.h"

namespace {

TEST(AvailableClasses, Table_HasExactlyTheClassesWithLogic) {
    std::set<std::string> expected;
    for (const kvtest::ClassRow& row : kvtest::s_classRows) {
        if (row.state == "READY") {
            expected.insert(kvtest::ToUtf8(row.name));
        }
    }
    std::set<std::string> actual;
    for (const kvtest::AvailableClass& row : kvtest::c_availableClasses) {
        actual.insert(row.name);
    }
    EXPECT_EQ(actual, expected);
}

}  // namespace
