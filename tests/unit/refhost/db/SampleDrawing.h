#pragma once

#include <memory>
#include <random>

#include "refhost/db/Database.h"
#include "refhost/db/ScopedOpen.h"

namespace kvtest {

/// A drawing with at least one object of each class, all fields away from their initial values.
[[nodiscard]] std::unique_ptr<kvhost::Database> MakeSampleDrawing();

/// Appends an entity to the model space and gives its id; the test fails when that fails.
template <class Entity>
KvDbObjectId AppendTo(kvhost::Database& database, std::unique_ptr<Entity> entity) {
    KvDbObjectId id;
    return database.AppendEntity(std::move(entity), id) == Tolm::eOk ? id : KvDbObjectId();
}
template <class Entity>
KvDbObjectId AppendNew(kvhost::Database& database) {
    return AppendTo(database, std::make_unique<Entity>());
}

/// Makes one random change: a field, an attribute, a state of a property, a new object, an erase.
void EditAtRandom(kvhost::Database& database, std::mt19937_64& random);

/// A finite number of any size and either sign, zeros included.
[[nodiscard]] double AnyNumber(std::mt19937_64& random);

}  // namespace kvtest
