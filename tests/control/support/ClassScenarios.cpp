#include "tests/control/support/ClassScenarios.h"

#include <gtest/gtest.h>

#include "refhost/db/Text.h"

namespace kvtest {
namespace {

template <class Entity>
KvDbObjectId Append(kvhost::Database& database) {
    KvDbObjectId id;
    EXPECT_EQ(database.AppendEntity(std::make_unique<Entity>(), id), Tolm::eOk);
    return id;
}

}  // namespace

KvDbObjectId AppendText(kvhost::Database& database) {
    return Append<kvhost::Text>(database);
}

}  // namespace kvtest
