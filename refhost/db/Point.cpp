#include "refhost/db/Point.h"

#include <cmath>
#include <numbers>

#include "host_sdk/KvRxClass.h"
#include "refhost/db/GeometrySink.h"

namespace kvhost {

namespace {

constexpr double c_half = 0.5;
constexpr std::size_t c_circleCorners = 24;

const std::array<std::array<double, 2>, c_circleCorners>& CircleCorners() {
    static const auto corners = [] {
        std::array<std::array<double, 2>, c_circleCorners> made{};
        for (std::size_t i = 0; i < c_circleCorners; ++i) {
            const double angle = 2 * std::numbers::pi * static_cast<double>(i) / c_circleCorners;
            made[i] = {std::cos(angle), std::sin(angle)};
        }
        return made;
    }();
    return corners;
}

}  // namespace

Point::Point() = default;
Point::~Point() = default;

KvRxClass* Point::desc() {
    static KvRxClass s_class(L"KvDbPoint", KvDbEntity::desc());
    return &s_class;
}

Tolm::ErrorStatus Point::SetStyle(PointStyle style) {
    const auto place = static_cast<std::int32_t>(style);
    const bool isKnown = place >= 0 && static_cast<std::size_t>(place) < c_pointStyleNames.size();
    return isKnown ? Change(m_style, place) : Tolm::eInvalidInput;
}

void Point::VisitFields(FieldVisitor& visitor) {
    Entity::VisitFields(visitor);
    visitor.Point("position", m_position);
    visitor.Choice("style", m_style, c_pointStyleNames, 0);
}

std::wstring Point::Complaint() const {
    return Entity::Complaint();
}

void Point::Draw(GeometrySink& sink, const Transform& transform) const {
    const auto path = [&](std::span<const std::array<double, 2>> corners, bool closed) {
        std::vector<Point3> points;
        for (const auto& [x, y] : corners) {
            points.push_back(
                transform.Apply({m_position.x + c_half * x, m_position.y + c_half * y, m_position.z}));
        }
        sink.Path(points, closed);
    };
    switch (Style()) {
        case PointStyle::Plus:
            path(std::array<std::array<double, 2>, 2>{{{-1, 0}, {1, 0}}}, false);
            path(std::array<std::array<double, 2>, 2>{{{0, -1}, {0, 1}}}, false);
            return;
        case PointStyle::Cross:
            path(std::array<std::array<double, 2>, 2>{{{-1, -1}, {1, 1}}}, false);
            path(std::array<std::array<double, 2>, 2>{{{-1, 1}, {1, -1}}}, false);
            return;
        case PointStyle::Circle:
            path(CircleCorners(), true);
            return;
        case PointStyle::Square:
            path(std::array<std::array<double, 2>, 4>{{{-1, -1}, {1, -1}, {1, 1}, {-1, 1}}}, true);
            return;
        default:
            sink.Dot(transform.Apply(m_position));
    }
}

}  // namespace kvhost
