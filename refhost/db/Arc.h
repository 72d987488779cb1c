#pragma once

#include "refhost/db/EntityFace.h"

namespace kvhost {

/// A part of a circle, counter-clockwise from the start angle to the end angle, both in radians.
class KVHOST_API Arc final : public EntityFace<Arc> {
public:
    Arc();
    ~Arc() override;
    [[nodiscard]] static KvRxClass* desc();

    [[nodiscard]] const Point3& Center() const { return m_center; }
    Tolm::ErrorStatus SetCenter(const Point3& point) { return ChangePoint(m_center, point); }
    /// Above zero.
    [[nodiscard]] double Radius() const { return m_radius; }
    Tolm::ErrorStatus SetRadius(double radius) { return ChangePositive(m_radius, radius); }
    [[nodiscard]] double StartAngle() const { return m_startAngle; }
    Tolm::ErrorStatus SetStartAngle(double angle) { return ChangeNumber(m_startAngle, angle); }
    [[nodiscard]] double EndAngle() const { return m_endAngle; }
    Tolm::ErrorStatus SetEndAngle(double angle) { return ChangeNumber(m_endAngle, angle); }
    /// The angle that the arc covers, above zero up to a full turn.
    [[nodiscard]] double TotalAngle() const;
    [[nodiscard]] double Length() const { return TotalAngle() * m_radius; }

    // Entity
    [[nodiscard]] const wchar_t* ClassName() const override { return L"Arc"; }
    [[nodiscard]] std::wstring Complaint() const override;
    void Draw(GeometrySink& sink, const Transform& transform) const override;

protected:
    // Object
    void VisitFields(FieldVisitor& visitor) override;

private:
    Point3 m_center;
    double m_radius = 1;
    double m_startAngle = 0;
    double m_endAngle = 1;
};

}  // namespace kvhost
