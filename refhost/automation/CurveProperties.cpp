#include <cmath>
#include <numbers>

#include "refhost/automation/ControlNames.h"
#include "refhost/automation/PropertyAccess.h"
#include "refhost/automation/PropertyTables.h"
#include "refhost/db/Arc.h"
#include "refhost/db/Circle.h"
#include "refhost/db/Line.h"
#include "refhost/db/Point.h"

namespace kvhost {

namespace {

constexpr wchar_t c_geometry[] = L"Geometry";
constexpr VARTYPE c_numbers = VT_ARRAY | VT_R8;
constexpr double c_fullTurn = 2 * std::numbers::pi;

double Diameter(const Circle& circle) {
    return 2 * circle.Radius();
}
Tolm::ErrorStatus SetDiameter(Circle& circle, double diameter) {
    return circle.SetRadius(diameter / 2);
}

double Circumference(const Circle& circle) {
    return c_fullTurn * circle.Radius();
}
Tolm::ErrorStatus SetCircumference(Circle& circle, double length) {
    return circle.SetRadius(length / c_fullTurn);
}

double Area(const Circle& circle) {
    return std::numbers::pi * circle.Radius() * circle.Radius();
}
Tolm::ErrorStatus SetArea(Circle& circle, double area) {
    return area > 0 ? circle.SetRadius(std::sqrt(area / std::numbers::pi)) : Tolm::eInvalidInput;
}

// Measures of the circle that follow from its radius.
template <double (*Get)(const Circle&)>
Tolm::ErrorStatus ReadMeasure(const Object& object, fw::Variant& value) {
    value = fw::Variant::FromDouble(Get(static_cast<const Circle&>(object)));
    return Tolm::eOk;
}
template <Tolm::ErrorStatus (*Set)(Circle&, double)>
Tolm::ErrorStatus WriteMeasure(Object& object, const fw::Variant& value) {
    return Set(static_cast<Circle&>(object), value.DoubleOr(0));
}

constexpr PropertyDescription c_circleRows[] = {
    {201, L"Center", L"Center", c_geometry, c_numbers, controls::Coordinates, 0,
     ReadPoint<Circle, &Circle::Center>, WritePoint<Circle, &Circle::SetCenter>},
    {202, L"Radius", L"Radius", c_geometry, VT_R8, controls::Length, PropertyExpression,
     ReadNumber<Circle, &Circle::Radius>, WriteNumber<Circle, &Circle::SetRadius>},
    {203, L"Diameter", L"Diameter", c_geometry, VT_R8, controls::Length, 0, ReadMeasure<Diameter>,
     WriteMeasure<SetDiameter>},
    {204, L"Circumference", L"Circumference", c_geometry, VT_R8, controls::Length, 0,
     ReadMeasure<Circumference>, WriteMeasure<SetCircumference>},
    {205, L"Area", L"Area", c_geometry, VT_R8, controls::Area, 0, ReadMeasure<Area>, WriteMeasure<SetArea>},
};

constexpr PropertyDescription c_lineRows[] = {
    {211, L"StartPoint", L"Start", c_geometry, c_numbers, controls::Coordinates, 0,
     ReadPoint<Line, &Line::StartPoint>, WritePoint<Line, &Line::SetStartPoint>},
    {212, L"EndPoint", L"End", c_geometry, c_numbers, controls::Coordinates, 0,
     ReadPoint<Line, &Line::EndPoint>, WritePoint<Line, &Line::SetEndPoint>},
    {213, L"Length", L"Length", c_geometry, VT_R8, controls::Length, PropertyReadOnly,
     ReadNumber<Line, &Line::Length>, nullptr},
    {214, L"Angle", L"Angle", c_geometry, VT_R8, controls::Length, PropertyReadOnly | PropertyAngle,
     ReadNumber<Line, &Line::Angle>, nullptr},
};

constexpr PropertyDescription c_arcRows[] = {
    {221, L"Center", L"Center", c_geometry, c_numbers, controls::Coordinates, 0, ReadPoint<Arc, &Arc::Center>,
     WritePoint<Arc, &Arc::SetCenter>},
    {222, L"Radius", L"Radius", c_geometry, VT_R8, controls::Length, PropertyExpression,
     ReadNumber<Arc, &Arc::Radius>, WriteNumber<Arc, &Arc::SetRadius>},
    {223, L"StartAngle", L"Start angle", c_geometry, VT_R8, controls::Length, PropertyAngle,
     ReadNumber<Arc, &Arc::StartAngle>, WriteNumber<Arc, &Arc::SetStartAngle>},
    {224, L"EndAngle", L"End angle", c_geometry, VT_R8, controls::Length, PropertyAngle,
     ReadNumber<Arc, &Arc::EndAngle>, WriteNumber<Arc, &Arc::SetEndAngle>},
    {225, L"TotalAngle", L"Total angle", c_geometry, VT_R8, controls::Length,
     PropertyReadOnly | PropertyRawAngle, ReadNumber<Arc, &Arc::TotalAngle>, nullptr},
    {226, L"ArcLength", L"Arc length", c_geometry, VT_R8, controls::Length, PropertyReadOnly,
     ReadNumber<Arc, &Arc::Length>, nullptr},
};

constexpr EnumerationEntry c_pointStyleEntries[] = {
    {L"Dot", L"Dot", 0},     {L"Plus", L"Plus", 1},  {L"Cross", L"Cross", 2},
    {L"Ring", L"Circle", 3}, {L"Box", L"Square", 4},
};
static_assert(std::size(c_pointStyleEntries) == c_pointStyleNames.size());
constexpr Enumeration c_pointStyle = {L"KvPointStyle", c_pointStyleEntries};

constexpr PropertyDescription c_pointRows[] = {
    {271, L"Coordinates", L"Position", c_geometry, c_numbers, controls::Coordinates, 0,
     ReadPoint<Point, &Point::Position>, WritePoint<Point, &Point::SetPosition>},
    {272, L"Style", L"Style", c_geometry, VT_I4, controls::Choice, PropertyValuesOfType,
     ReadChoice<Point, &Point::Style>, WriteChoice<Point, PointStyle, &Point::SetStyle>, &c_pointStyle},
};

}  // namespace

const PropertyTable& CircleProperties() {
    static const PropertyTable table(
        L"Circle", {0x1C5A2F01, 0x7D3B, 0x4E86, {0x9A, 0x41, 0x5E, 0x0C, 0x88, 0x21, 0xB7, 0x10}},
        EntityProperties(), c_circleRows);
    return table;
}

const PropertyTable& LineProperties() {
    static const PropertyTable table(
        L"Line", {0x1C5A2F02, 0x7D3B, 0x4E86, {0x9A, 0x41, 0x5E, 0x0C, 0x88, 0x21, 0xB7, 0x10}},
        EntityProperties(), c_lineRows);
    return table;
}

const PropertyTable& ArcProperties() {
    static const PropertyTable table(
        L"Arc", {0x1C5A2F03, 0x7D3B, 0x4E86, {0x9A, 0x41, 0x5E, 0x0C, 0x88, 0x21, 0xB7, 0x10}},
        EntityProperties(), c_arcRows);
    return table;
}

const PropertyTable& PointProperties() {
    static const PropertyTable table(
        L"Point", {0x1C5A2F04, 0x7D3B, 0x4E86, {0x9A, 0x41, 0x5E, 0x0C, 0x88, 0x21, 0xB7, 0x10}},
        EntityProperties(), c_pointRows);
    return table;
}

}  // namespace kvhost
