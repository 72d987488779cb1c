#pragma once

#include "refhost/db/EntityFace.h"

namespace kvhost {

/// A single point.
class KVHOST_API Point final : public EntityFace<Point> {
public:
    Point();
    ~Point() override;
    [[nodiscard]] static KvRxClass* desc();

    [[nodiscard]] const Point3& Position() const { return m_position; }
    Tolm::ErrorStatus SetPosition(const Point3& point) { return ChangePoint(m_position, point); }

    // Entity
    [[nodiscard]] const wchar_t* ClassName() const override { return L"Point"; }
    [[nodiscard]] std::wstring Complaint() const override;
    void Draw(GeometrySink& sink, const Transform& transform) const override;

protected:
    // Object
    void VisitFields(FieldVisitor& visitor) override;

private:
    Point3 m_position;
};

}  // namespace kvhost
