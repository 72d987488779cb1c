#pragma once

#include "host_sdk/KvArray.h"
#include "host_sdk/KvDbObjectId.h"

/// Path to a part of an entity: the ids from the outermost container to the entity, and the part's kind and
/// index.
class KvDbFullSubentPath {
public:
    KvDbFullSubentPath() = default;
    KvDbFullSubentPath(KvDbObjectId entity, int kind, std::intptr_t index) : m_kind(kind), m_index(index) {
        m_objectIds.append(entity);
    }

    [[nodiscard]] const KvArray<KvDbObjectId>& objectIds() const { return m_objectIds; }
    [[nodiscard]] KvArray<KvDbObjectId>& objectIds() { return m_objectIds; }
    [[nodiscard]] int kind() const { return m_kind; }
    [[nodiscard]] std::intptr_t index() const { return m_index; }

    friend bool operator==(const KvDbFullSubentPath& left, const KvDbFullSubentPath& right) {
        return left.m_kind == right.m_kind && left.m_index == right.m_index &&
               std::equal(left.m_objectIds.begin(), left.m_objectIds.end(), right.m_objectIds.begin(),
                          right.m_objectIds.end());
    }

private:
    KvArray<KvDbObjectId> m_objectIds;
    int m_kind = 0;
    std::intptr_t m_index = 0;
};
