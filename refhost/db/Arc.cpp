#include "refhost/db/Arc.h"

#include <cmath>
#include <numbers>

#include "host_sdk/KvRxClass.h"
#include "refhost/db/ArcPath.h"
#include "refhost/db/GeometrySink.h"

namespace kvhost {

Arc::Arc() = default;
Arc::~Arc() = default;

KvRxClass* Arc::desc() {
    static KvRxClass s_class(L"KvDbArc", KvDbEntity::desc());
    return &s_class;
}

double Arc::TotalAngle() const {
    constexpr double fullTurn = 2 * std::numbers::pi;
    const double sweep = std::fmod(m_endAngle - m_startAngle, fullTurn);
    return sweep > 0 ? sweep : sweep + fullTurn;
}

void Arc::VisitFields(FieldVisitor& visitor) {
    Entity::VisitFields(visitor);
    visitor.Point("center", m_center);
    visitor.Number("radius", m_radius);
    visitor.Number("startAngle", m_startAngle);
    visitor.Number("endAngle", m_endAngle);
}

std::wstring Arc::Complaint() const {
    return m_radius > 0 ? Entity::Complaint() : L"radius: must be above zero";
}

void Arc::Draw(GeometrySink& sink, const Transform& transform) const {
    std::vector<Point3> points;
    AppendArcPath(points, m_center, m_radius, m_startAngle, TotalAngle(), transform);
    sink.Path(points, false);
}

}  // namespace kvhost
