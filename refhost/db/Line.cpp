#include "refhost/db/Line.h"

#include <array>
#include <cmath>
#include <numbers>

#include "host_sdk/KvRxClass.h"
#include "refhost/db/GeometrySink.h"

namespace kvhost {

Line::Line() = default;
Line::~Line() = default;

KvRxClass* Line::desc() {
    static KvRxClass s_class(L"KvDbLine", KvDbEntity::desc());
    return &s_class;
}

double Line::Length() const {
    return std::hypot(m_end.x - m_start.x, m_end.y - m_start.y, m_end.z - m_start.z);
}

double Line::Angle() const {
    const double angle = std::atan2(m_end.y - m_start.y, m_end.x - m_start.x);
    return angle < 0 ? angle + 2 * std::numbers::pi : angle;
}

void Line::VisitFields(FieldVisitor& visitor) {
    Entity::VisitFields(visitor);
    visitor.Point("start", m_start);
    visitor.Point("end", m_end);
}

std::wstring Line::Complaint() const {
    return Entity::Complaint();
}

void Line::Draw(GeometrySink& sink, const Transform& transform) const {
    const std::array points{transform.Apply(m_start), transform.Apply(m_end)};
    sink.Path(points, false);
}

}  // namespace kvhost
