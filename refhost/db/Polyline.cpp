#include "refhost/db/Polyline.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "host_sdk/KvRxClass.h"
#include "refhost/db/ArcPath.h"
#include "refhost/db/GeometrySink.h"

namespace kvhost {

namespace {

bool IsFiniteVertex(const PolylineVertex& vertex) {
    return IsFinite(vertex.x) && IsFinite(vertex.y) && IsFinite(vertex.bulge);
}

double Chord(const PolylineVertex& from, const PolylineVertex& to) {
    return std::hypot(to.x - from.x, to.y - from.y);
}

/// The angle that a segment with this bulge covers, negative when clockwise.
double SweepOf(double bulge) {
    return 4 * std::atan(bulge);
}

double SegmentLength(const PolylineVertex& from, const PolylineVertex& to) {
    const double chord = Chord(from, to);
    if (from.bulge == 0) {
        return chord;
    }
    const double sweep = std::abs(SweepOf(from.bulge));
    return chord / (2 * std::sin(sweep / 2)) * sweep;
}

/// Area between the chord and the arc of a segment, positive on the right of the chord.
double SegmentArea(const PolylineVertex& from, const PolylineVertex& to) {
    const double sweep = SweepOf(from.bulge);
    const double radius = Chord(from, to) / (2 * std::sin(sweep / 2));
    return radius * radius * (sweep - std::sin(sweep)) / 2;
}

void AppendBulge(std::vector<Point3>& points, const PolylineVertex& from, const PolylineVertex& to,
                 double elevation, const Transform& transform) {
    const double sweep = SweepOf(from.bulge);
    // The centre lies on the perpendicular of the chord, at this share of the chord's length from its middle.
    const double offset = (1 - from.bulge * from.bulge) / (4 * from.bulge);
    const Point3 center{(from.x + to.x) / 2 - (to.y - from.y) * offset,
                        (from.y + to.y) / 2 + (to.x - from.x) * offset, elevation};
    const double radius = std::hypot(from.x - center.x, from.y - center.y);
    AppendArcPath(points, center, radius, std::atan2(from.y - center.y, from.x - center.x), sweep, transform);
}

}  // namespace

Polyline::Polyline() = default;
Polyline::~Polyline() = default;

KvRxClass* Polyline::desc() {
    static KvRxClass s_class(L"KvDbPolyline", KvDbEntity::desc());
    return &s_class;
}

Tolm::ErrorStatus Polyline::SetVertices(std::vector<PolylineVertex> vertices) {
    if (vertices.size() < 2 || !std::all_of(vertices.begin(), vertices.end(), IsFiniteVertex)) {
        return Tolm::eInvalidInput;
    }
    return Change(m_vertices, vertices);
}

Tolm::ErrorStatus Polyline::SetVertex(std::size_t index, const PolylineVertex& vertex) {
    if (index >= m_vertices.size() || !IsFiniteVertex(vertex)) {
        return Tolm::eInvalidInput;
    }
    return Change(m_vertices[index], vertex);
}

double Polyline::Length() const {
    double length = 0;
    const std::size_t count = m_vertices.size();
    for (std::size_t i = 0; i + (m_closed ? 0 : 1) < count; ++i) {
        length += SegmentLength(m_vertices[i], m_vertices[(i + 1) % count]);
    }
    return length;
}

double Polyline::Area() const {
    if (m_vertices.empty()) {
        return 0;
    }
    // Taken from the first vertex, so that a small path far from the origin keeps its digits.
    const PolylineVertex& origin = m_vertices.front();
    double area = 0;
    const std::size_t count = m_vertices.size();
    for (std::size_t i = 0; i < count; ++i) {
        const PolylineVertex& from = m_vertices[i];
        const PolylineVertex& to = m_vertices[(i + 1) % count];
        area += ((from.x - origin.x) * (to.y - origin.y) - (to.x - origin.x) * (from.y - origin.y)) / 2;
        if (from.bulge != 0 && (m_closed || i + 1 < count)) {
            area += SegmentArea(from, to);
        }
    }
    return std::abs(area);
}

void Polyline::VisitFields(FieldVisitor& visitor) {
    Entity::VisitFields(visitor);
    visitor.Flag("closed", m_closed, false);
    visitor.OptionalNumber("elevation", m_elevation, 0);
    visitor.Vertices("vertices", m_vertices);
}

std::wstring Polyline::Complaint() const {
    return m_vertices.size() >= 2 ? Entity::Complaint() : L"vertices: at least two are needed";
}

void Polyline::Draw(GeometrySink& sink, const Transform& transform) const {
    std::vector<Point3> points;
    points.reserve(m_vertices.size());
    const std::size_t count = m_vertices.size();
    for (std::size_t i = 0; i < count; ++i) {
        const PolylineVertex& from = m_vertices[i];
        const PolylineVertex& to = m_vertices[(i + 1) % count];
        const bool hasSegment = m_closed || i + 1 < count;
        if (hasSegment && from.bulge != 0 && Chord(from, to) > 0) {
            AppendBulge(points, from, to, m_elevation, transform);
        } else {
            points.push_back(transform.Apply({from.x, from.y, m_elevation}));
        }
    }
    sink.Path(points, m_closed);
}

}  // namespace kvhost
