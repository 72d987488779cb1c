#include "refhost/automation/PropertyDocumentation.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

namespace {

// The page is kept in the tree so that readers need no build. Remake it with kvhost_describe.
TEST(PropertyDocumentation, Page_AgreesWithTheTables) {
    std::ifstream file(KV_SOURCE_FOLDER "/docs/object-properties.md", std::ios::binary);
    ASSERT_TRUE(file.is_open());
    std::ostringstream kept;
    kept << file.rdbuf();
    EXPECT_EQ(kept.str(), kvhost::ObjectPropertiesPage());
}

}  // namespace
