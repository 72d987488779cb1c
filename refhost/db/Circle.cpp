#include "refhost/db/Circle.h"

#include <numbers>

#include "host_sdk/KvRxClass.h"
#include "refhost/db/ArcPath.h"
#include "refhost/db/GeometrySink.h"

namespace kvhost {

Circle::Circle() = default;
Circle::~Circle() = default;

KvRxClass* Circle::desc() {
    static KvRxClass s_class(L"KvDbCircle", KvDbEntity::desc());
    return &s_class;
}

void Circle::VisitFields(FieldVisitor& visitor) {
    Entity::VisitFields(visitor);
    visitor.Point("center", m_center);
    visitor.Number("radius", m_radius);
}

std::wstring Circle::Complaint() const {
    return m_radius > 0 ? Entity::Complaint() : L"radius: must be above zero";
}

void Circle::Draw(GeometrySink& sink, const Transform& transform) const {
    std::vector<Point3> points;
    AppendArcPath(points, m_center, m_radius, 0, 2 * std::numbers::pi, transform);
    points.pop_back();  // The path is closed, so its end is not needed twice.
    sink.Path(points, true);
}

}  // namespace kvhost
