#pragma once

#include "host_sdk/KvDbEntity.h"
#include "refhost/db/Entity.h"
#include "refhost/db/ObjectFace.h"

namespace kvhost {

/// ObjectFace of an entity.
template <class Concrete, class Sdk = KvDbEntity>
class EntityFace : public ObjectFace<Concrete, Sdk, Entity> {
public:
    // KvDbEntity
    [[nodiscard]] KvDbObjectId layerId() const override { return Entity::LayerId(); }
    Tolm::ErrorStatus pushHighlight(const KvDbFullSubentPath& path, int style) override {
        return Entity::PushHighlightService(path, style);
    }
    Tolm::ErrorStatus popHighlight(const KvDbFullSubentPath& path) override {
        return Entity::PopHighlightService(path);
    }
};

}  // namespace kvhost
