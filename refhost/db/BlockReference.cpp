#include "refhost/db/BlockReference.h"

#include <cmath>

#include "host_sdk/KvRxClass.h"
#include "refhost/db/Block.h"
#include "refhost/db/Database.h"
#include "refhost/db/GeometrySink.h"

namespace kvhost {

BlockReference::BlockReference() = default;
BlockReference::~BlockReference() = default;

KvRxClass* BlockReference::desc() {
    static KvRxClass s_class(L"KvDbBlockReference", KvDbEntity::desc());
    return &s_class;
}

Tolm::ErrorStatus BlockReference::SetBlockId(KvDbObjectId block) {
    const Block* const record = Database::PeekAs<Block>(block);
    if (record == nullptr || record->IsErased() || block == record->GetDatabase()->ModelSpaceId() ||
        (GetDatabase() != nullptr && record->GetDatabase() != GetDatabase()) ||
        Database::ContainsBlock(block, OwnerId())) {
        return Tolm::eInvalidInput;
    }
    return Change(m_block, block);
}

std::wstring BlockReference::BlockName() const {
    const Block* const record = Database::PeekAs<Block>(m_block);
    return record != nullptr ? record->Name() : std::wstring();
}

Tolm::ErrorStatus BlockReference::SetScale(const Point3& factors) {
    if (factors.x == 0 || factors.y == 0 || factors.z == 0) {
        return Tolm::eInvalidInput;
    }
    return ChangePoint(m_scale, factors);
}

std::vector<KvDbObjectId> BlockReference::AttributeIds() const {
    return GetDatabase() != nullptr ? GetDatabase()->OwnedBy(Id()) : std::vector<KvDbObjectId>();
}

Transform BlockReference::Placement() const {
    const double along = std::cos(m_rotation);
    const double up = std::sin(m_rotation);
    Transform transform{along * m_scale.x, -up * m_scale.y, up * m_scale.x,
                        along * m_scale.y, m_scale.z,       m_position};
    if (const Block* const block = Database::PeekAs<Block>(m_block)) {
        const Point3& origin = block->Origin();
        transform.offset = transform.Apply({-origin.x, -origin.y, -origin.z});
    }
    return transform;
}

void BlockReference::VisitFields(FieldVisitor& visitor) {
    Entity::VisitFields(visitor);
    visitor.Symbol("block", SymbolKind::Block, m_block);
    visitor.Point("position", m_position);
    visitor.OptionalPoint("scale", m_scale, {1, 1, 1});
    visitor.OptionalNumber("rotation", m_rotation, 0);
}

std::wstring BlockReference::Complaint() const {
    if (m_block.isNull()) {
        return L"block: a name is needed";
    }
    if (m_scale.x == 0 || m_scale.y == 0 || m_scale.z == 0) {
        return L"scale: no factor may be zero";
    }
    return Entity::Complaint();
}

void BlockReference::Draw(GeometrySink& sink, const Transform& transform) const {
    if (GetDatabase() == nullptr) {
        return;
    }
    const Transform inner = transform.After(Placement());
    for (const KvDbObjectId id : GetDatabase()->OwnedBy(m_block)) {
        const Entity* const entity = Database::PeekAs<Entity>(id);
        if (entity != nullptr && entity->IsVisible()) {
            entity->Draw(sink, inner);
        }
    }
    // Attributes lie in the drawing, not in the block: they have their own places.
    for (const KvDbObjectId id : AttributeIds()) {
        const Entity* const attribute = Database::PeekAs<Entity>(id);
        if (attribute != nullptr && attribute->IsVisible()) {
            attribute->Draw(sink, transform);
        }
    }
}

}  // namespace kvhost
