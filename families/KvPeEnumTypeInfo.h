#pragma once

#include <vector>

#include "framework/com/Bstr.h"
#include "framework/com/Variant.h"

/// What an object's type library says of the enumeration that a property's values come from: its constants,
/// in their order, with the identifiers as names.
class KvPeEnumTypeInfo {
public:
    /// Empty when the object tells no type or the property has no such type.
    KvPeEnumTypeInfo(IDispatch* object, DISPID dispid);

    /// The arrays have `count` elements. A member that is no constant has a name and no value.
    std::vector<fw::Variant> values;
    std::vector<fw::Bstr> names;
    int count = 0;

private:
    void TakeMembers(ITypeInfo& enumeration);
};
