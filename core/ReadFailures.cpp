#include "core/ReadFailures.h"

#include <algorithm>
#include <array>

#include "core/ObjectIdentity.h"

namespace {

// An object's answer that it has no such value now; for some classes a normal state and no failure.
constexpr SCODE c_propertyHasNoValue = static_cast<SCODE>(0x80200003);
constexpr DISPID c_valuelessProperty = 10;
constexpr std::array c_valuelessClasses{
    CLSID{0x82A6B685, 0x6316, 0x4A73, {0xB2, 0x87, 0xCC, 0x2C, 0x59, 0xBF, 0xB6, 0x42}},
    CLSID{0xCBECB295, 0x246A, 0x4A97, {0x8F, 0xF8, 0x4E, 0x6C, 0x7F, 0xE3, 0xE1, 0x49}},
};

// The answer of an object whose parts disagree about the property.
constexpr SCODE c_partsDisagree = static_cast<SCODE>(0x80200002);
constexpr DISPID c_firstSharedProperty = 1;
constexpr DISPID c_lastSharedProperty = 2;
constexpr std::array c_compoundClasses{
    CLSID{0x6D6809F5, 0xE09B, 0x45F7, {0xA9, 0x02, 0x79, 0x0F, 0x39, 0x81, 0x00, 0xBA}},
    CLSID{0xD8A3FC19, 0x3298, 0x4004, {0x80, 0x08, 0xB5, 0xA6, 0x09, 0x23, 0x3A, 0xAF}},
};

template <class ClassIds>
bool IsOneOf(IDispatch* object, const ClassIds& classIds) {
    CLSID classId{};
    return GetHostClassId(object, classId) &&
           std::any_of(classIds.begin(), classIds.end(),
                       [&](const CLSID& candidate) { return ::IsEqualCLSID(candidate, classId); });
}

bool IsMissingValue(SCODE code, IDispatch* object, long dispid) {
    return code == c_propertyHasNoValue && dispid == c_valuelessProperty &&
           IsOneOf(object, c_valuelessClasses);
}

bool IsDisagreementOfParts(SCODE code, IDispatch* object) {
    return code == c_partsDisagree && IsOneOf(object, c_compoundClasses);
}

}  // namespace

bool IsMissingValueFailure(HRESULT result, SCODE exceptionCode, IDispatch* object, long dispid) {
    return result == DISP_E_EXCEPTION && object != nullptr && IsMissingValue(exceptionCode, object, dispid);
}

bool IsToleratedReadFailure(HRESULT result, SCODE exceptionCode, IDispatch* object, long dispid,
                            ValueType& type) {
    if (result != DISP_E_EXCEPTION || object == nullptr) {
        return false;
    }
    if (IsMissingValue(exceptionCode, object, dispid)) {
        return true;
    }
    if (!IsDisagreementOfParts(exceptionCode, object)) {
        return false;
    }
    if (dispid == c_firstSharedProperty || dispid == c_lastSharedProperty) {
        type = ValueType_Varies;
    }
    return true;
}
