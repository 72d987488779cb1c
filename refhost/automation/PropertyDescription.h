#pragma once

#include <cstddef>
#include <span>

#include "framework/com/Variant.h"
#include "host_sdk/ErrorStatus.h"
#include "refhost/db/Object.h"

namespace kvhost {

/// What a property can do beyond being read and written. Combined bit by bit in PropertyDescription::flags.
enum PropertyFlag : unsigned {
    PropertyReadOnly = 1,     ///< never written
    PropertyUnspecified = 2,  ///< knows the unspecified state
    PropertyExpression = 4,   ///< can be bound to an expression
    PropertyDialog = 8,       ///< has a dialog, found by IPerPropertyBrowsing::MapPropertyToPage
    PropertyMasked = 16,      ///< its text is not to be shown
    /// Its values are told by the type library alone: GetPredefinedValue answers E_NOTIMPL.
    PropertyValuesOfType = 32,
    PropertyAngle = 64,      ///< its number is a direction, counted from the drawing's base direction
    PropertyRawAngle = 128,  ///< its number is an angle as it stands
    PropertyPlain = 256,     ///< its number has no unit
};

/// One value of an enumerated property: its name in the type library, the text that users see, its number.
struct EnumerationEntry {
    const wchar_t* name;
    const wchar_t* displayText;
    long value;
};

/// An enumeration of the type library.
struct Enumeration {
    const wchar_t* name;
    std::span<const EnumerationEntry> entries;
};

/// Read from and write to an object that is open for it. The setter's value has the property's type.
using PropertyGetter = Tolm::ErrorStatus (*)(const Object& object, fw::Variant& value);
using PropertySetter = Tolm::ErrorStatus (*)(Object& object, const fw::Variant& value);

/// Access to a grouped property, an array whose elements are read and written one by one. Keys count through
/// the groups: those of group n begin at n times the group's size.
struct PropertyElements {
    unsigned groupSize;
    VARTYPE type;  ///< of an element
    std::size_t (*groupCount)(const Object& object);
    /// The key is below the number of elements.
    Tolm::ErrorStatus (*get)(const Object& object, std::size_t key, fw::Variant& value);
    Tolm::ErrorStatus (*set)(Object& object, std::size_t key, const fw::Variant& value);
};

/// One row of a property table, from which dispatch interface, type information, palette rows and
/// documentation are made. All texts live as long as the host.
struct PropertyDescription {
    DISPID dispid;
    const wchar_t* name;         ///< in the automation interface
    const wchar_t* displayName;  ///< in the palette
    const wchar_t* category;
    VARTYPE type;
    const wchar_t* control;  ///< coclass name of the row's control, as "KvPePropertyEditorText"
    unsigned flags;
    PropertyGetter get;
    PropertySetter set;                        ///< null for a read-only property
    const Enumeration* enumeration = nullptr;  ///< null when the values are free
    /// Text of the unspecified state; null leaves it to the row.
    const wchar_t* unspecifiedText = nullptr;
    /// Class of the property's dialog, null without PropertyDialog.
    const CLSID* dialog = nullptr;
    const PropertyElements* elements = nullptr;  ///< null unless the property is grouped

    [[nodiscard]] bool Has(PropertyFlag flag) const { return (flags & flag) != 0; }
};

}  // namespace kvhost
