#include <algorithm>
#include <cmath>

#include "refhost/automation/ControlNames.h"
#include "refhost/automation/PropertyAccess.h"
#include "refhost/automation/PropertyTables.h"
#include "refhost/automation/SegmentShape.h"
#include "refhost/db/Polyline.h"

namespace kvhost {

namespace {

constexpr wchar_t c_geometry[] = L"Geometry";

constexpr long c_clockwise = 0;
constexpr long c_counterclockwise = 1;
constexpr EnumerationEntry c_directionEntries[] = {
    {L"kvDirectionClockwise", L"Clockwise", c_clockwise},
    {L"kvDirectionCounterclockwise", L"Counterclockwise", c_counterclockwise},
};
constexpr Enumeration c_direction = {L"KvDirection", c_directionEntries};

const Polyline& AsPolyline(const Object& object) {
    return static_cast<const Polyline&>(object);
}

// Twice the area within the corners, above zero when they run counterclockwise. Bulges do not turn a path
// round.
double TurningArea(const std::vector<PolylineVertex>& vertices) {
    double sum = 0;
    for (std::size_t i = 0; i < vertices.size(); ++i) {
        const PolylineVertex& from = vertices[i];
        const PolylineVertex& to = vertices[(i + 1) % vertices.size()];
        sum += from.x * to.y - to.x * from.y;
    }
    return sum;
}

long DirectionOf(const Polyline& polyline) {
    return TurningArea(polyline.Vertices()) < 0 ? c_clockwise : c_counterclockwise;
}

// A bulge belongs to the segment behind its vertex, so it moves to the segment's other end and changes its
// sign.
std::vector<PolylineVertex> Reversed(const std::vector<PolylineVertex>& vertices) {
    std::vector<PolylineVertex> reversed(vertices.rbegin(), vertices.rend());
    const std::size_t count = vertices.size();
    for (std::size_t i = 0; i < count; ++i) {
        reversed[i].bulge = -vertices[(2 * count - i - 2) % count].bulge;
    }
    return reversed;
}

Tolm::ErrorStatus ReadDirection(const Object& object, fw::Variant& value) {
    value = fw::Variant::FromLong(DirectionOf(AsPolyline(object)));
    return Tolm::eOk;
}

Tolm::ErrorStatus WriteDirection(Object& object, const fw::Variant& value) {
    auto& polyline = static_cast<Polyline&>(object);
    const long direction = value.LongOr(-1);
    if (direction != c_clockwise && direction != c_counterclockwise) {
        return Tolm::eInvalidInput;
    }
    return polyline.SetVertices(direction == DirectionOf(polyline) ? polyline.Vertices()
                                                                   : Reversed(polyline.Vertices()));
}

Tolm::ErrorStatus ReadCoordinates(const Object& object, fw::Variant& value) {
    std::vector<double> numbers;
    for (const PolylineVertex& vertex : AsPolyline(object).Vertices()) {
        numbers.push_back(vertex.x);
        numbers.push_back(vertex.y);
    }
    value = NumbersToVariant(numbers);
    return Tolm::eOk;
}

// Vertices that were there keep their bulges.
Tolm::ErrorStatus WriteCoordinates(Object& object, const fw::Variant& value) {
    std::vector<double> numbers;
    if (NumbersFromVariant(value, numbers) != Tolm::eOk || numbers.size() % 2 != 0) {
        return Tolm::eInvalidInput;
    }
    auto& polyline = static_cast<Polyline&>(object);
    std::vector<PolylineVertex> vertices = polyline.Vertices();
    vertices.resize(numbers.size() / 2);
    for (std::size_t i = 0; i < vertices.size(); ++i) {
        vertices[i].x = numbers[2 * i];
        vertices[i].y = numbers[2 * i + 1];
    }
    return polyline.SetVertices(std::move(vertices));
}

Tolm::ErrorStatus ReadVertexCount(const Object& object, fw::Variant& value) {
    value = fw::Variant::FromLong(static_cast<long>(AsPolyline(object).Vertices().size()));
    return Tolm::eOk;
}

// A grouped property with one element per segment.
constexpr EnumerationEntry c_segmentEntries[] = {
    {L"kvSegmentStraight", L"Straight", static_cast<long>(SegmentShape::Straight)},
    {L"kvSegmentArcLeft", L"Arc, turning left", static_cast<long>(SegmentShape::ArcLeft)},
    {L"kvSegmentArcRight", L"Arc, turning right", static_cast<long>(SegmentShape::ArcRight)},
};
constexpr Enumeration c_segmentShape = {L"KvSegmentShape", c_segmentEntries};

std::size_t SegmentCount(const Object& object) {
    const Polyline& polyline = AsPolyline(object);
    return polyline.Vertices().size() - (polyline.IsClosed() ? 0 : 1);
}

Tolm::ErrorStatus ReadSegment(const Object& object, std::size_t key, fw::Variant& value) {
    value = fw::Variant::FromLong(static_cast<long>(ShapeOfSegment(AsPolyline(object).Vertices()[key])));
    return Tolm::eOk;
}

Tolm::ErrorStatus WriteSegment(Object& object, std::size_t key, const fw::Variant& value) {
    auto& polyline = static_cast<Polyline&>(object);
    PolylineVertex vertex = polyline.Vertices()[key];
    const bool isKnown = BendSegment(vertex, static_cast<SegmentShape>(value.LongOr(-1)));
    return isKnown ? polyline.SetVertex(key, vertex) : Tolm::eInvalidInput;
}

constexpr PropertyElements c_segments = {1, VT_I4, SegmentCount, ReadSegment, WriteSegment};

Tolm::ErrorStatus ReadSegments(const Object& object, fw::Variant& value) {
    std::vector<double> numbers;
    for (std::size_t i = 0; i < SegmentCount(object); ++i) {
        numbers.push_back(static_cast<double>(ShapeOfSegment(AsPolyline(object).Vertices()[i])));
    }
    value = NumbersToVariant(numbers);
    return Tolm::eOk;
}

// A single number comes ahead of the write of one element, which says where it belongs: it is taken and
// changes nothing.
Tolm::ErrorStatus WriteSegments(Object& object, const fw::Variant& value) {
    if (value.Is(VT_I4)) {
        return Tolm::eOk;
    }
    std::vector<double> numbers;
    if (NumbersFromVariant(value, numbers) != Tolm::eOk || numbers.size() != SegmentCount(object)) {
        return Tolm::eInvalidInput;
    }
    auto& polyline = static_cast<Polyline&>(object);
    std::vector<PolylineVertex> vertices = polyline.Vertices();
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        if (!BendSegment(vertices[i], static_cast<SegmentShape>(std::lround(numbers[i])))) {
            return Tolm::eInvalidInput;
        }
    }
    return polyline.SetVertices(std::move(vertices));
}

std::size_t VertexCount(const Object& object) {
    return AsPolyline(object).Vertices().size();
}

double* CoordinateOf(PolylineVertex& vertex, std::size_t key) {
    return key % 2 == 0 ? &vertex.x : &vertex.y;
}

Tolm::ErrorStatus ReadCoordinate(const Object& object, std::size_t key, fw::Variant& value) {
    PolylineVertex vertex = AsPolyline(object).Vertices()[key / 2];
    value = fw::Variant::FromDouble(*CoordinateOf(vertex, key));
    return Tolm::eOk;
}

Tolm::ErrorStatus WriteCoordinate(Object& object, std::size_t key, const fw::Variant& value) {
    auto& polyline = static_cast<Polyline&>(object);
    PolylineVertex vertex = polyline.Vertices()[key / 2];
    *CoordinateOf(vertex, key) = value.DoubleOr(0);
    return polyline.SetVertex(key / 2, vertex);
}

constexpr PropertyElements c_coordinates = {2, VT_R8, VertexCount, ReadCoordinate, WriteCoordinate};

constexpr PropertyDescription c_polylineRows[] = {
    {261, L"Coordinates", L"Vertices", c_geometry, VT_ARRAY | VT_R8, controls::Coordinates, 0,
     ReadCoordinates, WriteCoordinates, nullptr, nullptr, nullptr, &c_coordinates},
    {262, L"VertexCount", L"Number of vertices", c_geometry, VT_I4, controls::Number, PropertyReadOnly,
     ReadVertexCount, nullptr},
    {263, L"Closed", L"Closed", c_geometry, VT_BOOL, controls::Truth, 0,
     ReadTruth<Polyline, &Polyline::IsClosed>, WriteTruth<Polyline, &Polyline::SetClosed>},
    {264, L"Direction", L"Direction", c_geometry, VT_I4, controls::Choice, 0, ReadDirection, WriteDirection,
     &c_direction},
    {268, L"Segments", L"Segment", c_geometry, VT_ARRAY | VT_R8, controls::GroupedChoice, 0, ReadSegments,
     WriteSegments, &c_segmentShape, nullptr, nullptr, &c_segments},
    {265, L"Elevation", L"Elevation", c_geometry, VT_R8, controls::Number, PropertyExpression,
     ReadNumber<Polyline, &Polyline::Elevation>, WriteNumber<Polyline, &Polyline::SetElevation>},
    {266, L"Length", L"Length", c_geometry, VT_R8, controls::Length, PropertyReadOnly,
     ReadNumber<Polyline, &Polyline::Length>, nullptr},
    {267, L"Area", L"Area", c_geometry, VT_R8, controls::Area, PropertyReadOnly,
     ReadNumber<Polyline, &Polyline::Area>, nullptr},
};

constexpr PropertyDescription c_vertexRows[] = {
    {DispidVertexX, L"X", L"Vertex X", c_geometry, VT_R8, controls::Length, 0, nullptr, nullptr},
    {DispidVertexY, L"Y", L"Vertex Y", c_geometry, VT_R8, controls::Length, 0, nullptr, nullptr},
    {DispidVertexBulge, L"Bulge", L"Bulge", c_geometry, VT_R8, controls::Length, PropertyPlain, nullptr,
     nullptr},
    {DispidVertexSegment, L"Segment", L"Segment", c_geometry, VT_I4, controls::Choice, 0, nullptr, nullptr,
     &c_segmentShape},
};

}  // namespace

const PropertyTable& PolylineProperties() {
    static const PropertyTable table(
        L"Polyline", {0x1C5A2F05, 0x7D3B, 0x4E86, {0x9A, 0x41, 0x5E, 0x0C, 0x88, 0x21, 0xB7, 0x10}},
        EntityProperties(), c_polylineRows);
    return table;
}

const PropertyTable& PolylineVertexProperties() {
    static const PropertyTable table(
        L"PolylineVertex", {0x1C5A2F0A, 0x7D3B, 0x4E86, {0x9A, 0x41, 0x5E, 0x0C, 0x88, 0x21, 0xB7, 0x10}}, {},
        c_vertexRows);
    return table;
}

}  // namespace kvhost
