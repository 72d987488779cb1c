#pragma once

#include "refhost/db/EntityFace.h"

namespace kvhost {

/// A straight line between two points.
class KVHOST_API Line final : public EntityFace<Line> {
public:
    Line();
    ~Line() override;
    [[nodiscard]] static KvRxClass* desc();

    [[nodiscard]] const Point3& StartPoint() const { return m_start; }
    Tolm::ErrorStatus SetStartPoint(const Point3& point) { return ChangePoint(m_start, point); }
    [[nodiscard]] const Point3& EndPoint() const { return m_end; }
    Tolm::ErrorStatus SetEndPoint(const Point3& point) { return ChangePoint(m_end, point); }
    [[nodiscard]] double Length() const;
    /// Direction in the plane of the drawing, 0 up to a full turn.
    [[nodiscard]] double Angle() const;

    // Entity
    [[nodiscard]] const wchar_t* ClassName() const override { return L"Line"; }
    [[nodiscard]] std::wstring Complaint() const override;
    void Draw(GeometrySink& sink, const Transform& transform) const override;

protected:
    // Object
    void VisitFields(FieldVisitor& visitor) override;

private:
    Point3 m_start;
    Point3 m_end;
};

}  // namespace kvhost
