#pragma once

#include "refhost/db/EntityFace.h"

namespace kvhost {

/// An occurrence of a block in the drawing, with attributes of its own.
class KVHOST_API BlockReference final : public EntityFace<BlockReference> {
public:
    BlockReference();
    ~BlockReference() override;
    [[nodiscard]] static KvRxClass* desc();

    [[nodiscard]] KvDbObjectId BlockId() const { return m_block; }
    /// eInvalidInput for what is no block of the same database, or would make a block contain itself.
    Tolm::ErrorStatus SetBlockId(KvDbObjectId block);
    [[nodiscard]] std::wstring BlockName() const;
    [[nodiscard]] const Point3& Position() const { return m_position; }
    Tolm::ErrorStatus SetPosition(const Point3& point) { return ChangePoint(m_position, point); }
    /// Factors along the axes, none of them zero.
    [[nodiscard]] const Point3& Scale() const { return m_scale; }
    Tolm::ErrorStatus SetScale(const Point3& factors);
    /// In radians.
    [[nodiscard]] double Rotation() const { return m_rotation; }
    Tolm::ErrorStatus SetRotation(double angle) { return ChangeNumber(m_rotation, angle); }

    /// Ids of the attributes that are not erased, in their order.
    [[nodiscard]] std::vector<KvDbObjectId> AttributeIds() const;
    /// How the contents of the block come to their place.
    [[nodiscard]] Transform Placement() const;

    // Entity
    [[nodiscard]] const wchar_t* ClassName() const override { return L"BlockReference"; }
    [[nodiscard]] std::wstring Complaint() const override;
    void Draw(GeometrySink& sink, const Transform& transform) const override;

protected:
    // Object
    void VisitFields(FieldVisitor& visitor) override;

private:
    KvDbObjectId m_block;
    Point3 m_position;
    Point3 m_scale{1, 1, 1};
    double m_rotation = 0;
};

}  // namespace kvhost
