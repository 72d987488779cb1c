#pragma once

#include <span>
#include <vector>

#include "refhost/automation/PropertyDescription.h"
#include "refhost/db/Point3.h"

namespace kvhost {

// Accessors of property tables, made from the getters and setters of the database classes: the class is `T`,
// the members are template arguments, so that a table row names them and nothing else.

/// Coordinates as VT_ARRAY|VT_R8, the automation form of points and vertex lists.
[[nodiscard]] KVHOST_API fw::Variant NumbersToVariant(std::span<const double> numbers);
/// Accepts arrays of VT_R8 and arrays of VARIANTs that convert to it; eInvalidInput for all else.
[[nodiscard]] KVHOST_API Tolm::ErrorStatus NumbersFromVariant(const fw::Variant& value,
                                                              std::vector<double>& numbers);
[[nodiscard]] KVHOST_API fw::Variant PointToVariant(const Point3& point);
/// Two numbers (z becomes 0) or three.
[[nodiscard]] KVHOST_API Tolm::ErrorStatus PointFromVariant(const fw::Variant& value, Point3& point);

/// Colours as numbers: an index, 0 for ByBlock, 256 for ByLayer, 0xC2rrggbb for red, green and blue.
[[nodiscard]] KVHOST_API long ColorToNumber(const ColorValue& color);
[[nodiscard]] KVHOST_API Tolm::ErrorStatus ColorFromNumber(long number, ColorValue& color);

template <class T, auto Get>
Tolm::ErrorStatus ReadText(const Object& object, fw::Variant& value) {
    value = fw::Variant::FromString((static_cast<const T&>(object).*Get)());
    return Tolm::eOk;
}
template <class T, auto Set>
Tolm::ErrorStatus WriteText(Object& object, const fw::Variant& value) {
    return (static_cast<T&>(object).*Set)(value.StringView());
}

template <class T, auto Get>
Tolm::ErrorStatus ReadNumber(const Object& object, fw::Variant& value) {
    value = fw::Variant::FromDouble((static_cast<const T&>(object).*Get)());
    return Tolm::eOk;
}
template <class T, auto Set>
Tolm::ErrorStatus WriteNumber(Object& object, const fw::Variant& value) {
    return (static_cast<T&>(object).*Set)(value.DoubleOr(0));
}

template <class T, auto Get>
Tolm::ErrorStatus ReadTruth(const Object& object, fw::Variant& value) {
    value = fw::Variant::FromBool((static_cast<const T&>(object).*Get)());
    return Tolm::eOk;
}
template <class T, auto Set>
Tolm::ErrorStatus WriteTruth(Object& object, const fw::Variant& value) {
    return (static_cast<T&>(object).*Set)(value.Get().boolVal != VARIANT_FALSE);
}

template <class T, auto Get>
Tolm::ErrorStatus ReadChoice(const Object& object, fw::Variant& value) {
    value = fw::Variant::FromLong(static_cast<long>((static_cast<const T&>(object).*Get)()));
    return Tolm::eOk;
}
template <class T, class Choice, auto Set>
Tolm::ErrorStatus WriteChoice(Object& object, const fw::Variant& value) {
    return (static_cast<T&>(object).*Set)(static_cast<Choice>(value.LongOr(0)));
}

template <class T, auto Get>
Tolm::ErrorStatus ReadPoint(const Object& object, fw::Variant& value) {
    value = PointToVariant((static_cast<const T&>(object).*Get)());
    return Tolm::eOk;
}
template <class T, auto Set>
Tolm::ErrorStatus WritePoint(Object& object, const fw::Variant& value) {
    Point3 point;
    const Tolm::ErrorStatus status = PointFromVariant(value, point);
    return status == Tolm::eOk ? (static_cast<T&>(object).*Set)(point) : status;
}

template <class T>
Tolm::ErrorStatus ReadColor(const Object& object, fw::Variant& value) {
    value = fw::Variant::FromLong(ColorToNumber(static_cast<const T&>(object).Color()));
    return Tolm::eOk;
}
template <class T>
Tolm::ErrorStatus WriteColor(Object& object, const fw::Variant& value) {
    ColorValue color;
    const Tolm::ErrorStatus status = ColorFromNumber(value.LongOr(-1), color);
    return status == Tolm::eOk ? static_cast<T&>(object).SetColor(color) : status;
}

/// The handle in hexadecimal, as drawings and the command line write it.
Tolm::ErrorStatus ReadHandle(const Object& object, fw::Variant& value);

}  // namespace kvhost
