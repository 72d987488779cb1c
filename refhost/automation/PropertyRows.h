#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <vector>

#include "framework/com/ComPtr.h"
#include "host_sdk/Export.h"
#include "host_sdk/KvDbObjectId.h"
#include "refhost/automation/PropertyDescription.h"

namespace kvhost {

/// Dispatch id of an entry that is read and written through its dynamic property.
inline constexpr DISPID DispidDynamic = -23;

/// One selected object's share of a row.
struct PropertyRowEntry {
    fw::ComPtr<IDispatch> object;
    fw::ComPtr<IUnknown> dynamicProperty;  ///< null unless dispid is DispidDynamic
    DISPID dispid = 0;
};

/// One row of the palette: a property that every selected object has.
struct PropertyRow {
    std::wstring name;
    std::wstring category;
    /// Coclass name of the control, or the registered name of a class of another module.
    std::wstring control;
    VARTYPE type = VT_EMPTY;
    unsigned flags = 0;  ///< PropertyFlag bits; read-only when it is so for one of the objects
    std::vector<PropertyRowEntry> entries;
    unsigned groupSize = 0;  ///< elements per group of a grouped property; 0 for all others
};

/// The automation object of a database object, one per object for as long as somebody holds it.
/// E_INVALIDARG for an id that is null or whose class has no property table.
[[nodiscard]] KVHOST_API HRESULT GetAutomationObject(KvDbObjectId id, IDispatch** object);

/// Kind of a sub-entity path that leads to a corner of a polyline.
inline constexpr int SubentVertex = 1;

/// A new automation object of a polyline's corner. E_INVALIDARG for a corner that is not there.
[[nodiscard]] KVHOST_API HRESULT GetPolylineVertexObject(KvDbObjectId polyline, std::size_t index,
                                                         IDispatch** object);

/// The rows that all selected objects have, in the order of the first object's table, dynamic ones last.
/// Properties are the same when category, name, control and type are. Empty for an empty selection.
[[nodiscard]] KVHOST_API std::vector<PropertyRow> RowsOf(std::span<const KvDbObjectId> selection);

/// Name of the objects' class, as the palette's head shows it; empty when the classes differ.
[[nodiscard]] KVHOST_API std::wstring ClassNameOf(std::span<const KvDbObjectId> selection);

}  // namespace kvhost
