#include "refhost/db/Point.h"

#include "host_sdk/KvRxClass.h"
#include "refhost/db/GeometrySink.h"

namespace kvhost {

Point::Point() = default;
Point::~Point() = default;

KvRxClass* Point::desc() {
    static KvRxClass s_class(L"KvDbPoint", KvDbEntity::desc());
    return &s_class;
}

void Point::VisitFields(FieldVisitor& visitor) {
    Entity::VisitFields(visitor);
    visitor.Point("position", m_position);
}

std::wstring Point::Complaint() const {
    return Entity::Complaint();
}

void Point::Draw(GeometrySink& sink, const Transform& transform) const {
    sink.Dot(transform.Apply(m_position));
}

}  // namespace kvhost
