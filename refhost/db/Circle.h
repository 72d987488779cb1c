#pragma once

#include "refhost/db/EntityFace.h"

namespace kvhost {

/// A full circle.
class KVHOST_API Circle final : public EntityFace<Circle> {
public:
    Circle();
    ~Circle() override;
    [[nodiscard]] static KvRxClass* desc();

    [[nodiscard]] const Point3& Center() const { return m_center; }
    Tolm::ErrorStatus SetCenter(const Point3& point) { return ChangePoint(m_center, point); }
    /// Above zero.
    [[nodiscard]] double Radius() const { return m_radius; }
    Tolm::ErrorStatus SetRadius(double radius) { return ChangePositive(m_radius, radius); }

    // Entity
    [[nodiscard]] const wchar_t* ClassName() const override { return L"Circle"; }
    [[nodiscard]] std::wstring Complaint() const override;
    void Draw(GeometrySink& sink, const Transform& transform) const override;

protected:
    // Object
    void VisitFields(FieldVisitor& visitor) override;

private:
    Point3 m_center;
    double m_radius = 1;
};

}  // namespace kvhost
