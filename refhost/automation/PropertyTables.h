#pragma once

#include <span>

#include "refhost/automation/PropertyTable.h"

namespace kvhost {

// The tables of the object classes. Each is made at its first use and lives as long as the host.

[[nodiscard]] const PropertyTable& LineProperties();
[[nodiscard]] const PropertyTable& CircleProperties();
[[nodiscard]] const PropertyTable& ArcProperties();
[[nodiscard]] const PropertyTable& PolylineProperties();
[[nodiscard]] const PropertyTable& PointProperties();
[[nodiscard]] const PropertyTable& TextProperties();
[[nodiscard]] const PropertyTable& AttributeProperties();
[[nodiscard]] const PropertyTable& BlockReferenceProperties();
[[nodiscard]] const PropertyTable& LayerProperties();
/// A corner of a polyline. Its rows have no accessors: PolylineVertexObject reads and writes them by its
/// index.
[[nodiscard]] const PropertyTable& PolylineVertexProperties();

/// What every entity has.
[[nodiscard]] std::span<const PropertyDescription> EntityProperties();

inline constexpr DISPID DispidVertexX = 291;
inline constexpr DISPID DispidVertexY = 292;
inline constexpr DISPID DispidVertexBulge = 293;
inline constexpr DISPID DispidVertexSegment = 294;
/// The value of a block reference's attribute, which the palette shows in the reference's own rows.
inline constexpr DISPID DispidAttributeValue = 253;

}  // namespace kvhost
