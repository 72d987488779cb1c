#pragma once

#include "framework/com/Bstr.h"
#include "framework/com/Variant.h"

/// One entry of an enumeration's list.
struct KvPeEnumEntry {
    fw::Variant value;
    fw::Bstr name;
};

/// Values of the two entries that stand for no value of the property, as VT_I4.
inline constexpr long KVPE_ENUM_UNSPECIFIED = -1000;
inline constexpr long KVPE_ENUM_VARIES = -1001;

/// True when an entry stands for a property's value. The entry's type says how they compare.
[[nodiscard]] bool IsValueOfEntry(const VARIANT& entry, const VARIANT& value);
