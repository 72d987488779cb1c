#include "families/KvPeEnumEntry.h"

#include <cmath>

#include "framework/base/Hresult.h"

namespace {

constexpr double c_tolerance = 1e-6;

// False for what is no number, texts included.
bool NumberOf(const VARIANT& value, double& number) {
    if (value.vt == VT_BSTR) {
        return false;
    }
    fw::Variant converted;
    if (FAILED(converted.CopyFrom(value)) || FAILED(converted.ChangeType(VT_R8))) {
        return false;
    }
    number = converted.DoubleOr(0);
    return true;
}

bool AreNear(const VARIANT& entry, const VARIANT& value) {
    double first = 0;
    double second = 0;
    return NumberOf(entry, first) && NumberOf(value, second) && std::abs(first - second) < c_tolerance;
}

// For values of one type.
bool AreSame(const VARIANT& entry, const VARIANT& value) {
    switch (entry.vt) {
        case VT_I1:
            return entry.cVal == value.cVal;
        case VT_UI2:
            return entry.uiVal == value.uiVal;
        case VT_UI4:
            return entry.ulVal == value.ulVal;
        case VT_UI8:
            return entry.ullVal == value.ullVal;
        default:
            break;
    }
    // The system's function only reads its arguments, but does not say so in their type.
    return ::VarCmp(const_cast<VARIANT*>(&entry), const_cast<VARIANT*>(&value), LOCALE_USER_DEFAULT, 0) ==
           static_cast<HRESULT>(VARCMP_EQ);
}

}  // namespace

bool IsValueOfEntry(const VARIANT& entry, const VARIANT& value) {
    switch (entry.vt) {
        case VT_R4:
        case VT_R8:
            return AreNear(entry, value);
        case VT_I8:
            // Deliberate: type libraries may hold wide constants for properties that are not.
            return value.vt == VT_I4 && entry.lVal == value.lVal;
        case VT_INT:
            return value.vt == VT_INT && entry.intVal == value.intVal;
        case VT_NULL:
            return value.vt == VT_NULL;
        default:
            return entry.vt == value.vt && AreSame(entry, value);
    }
}
