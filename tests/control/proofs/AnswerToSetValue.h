#pragma once

#include "tests/control/support/ClassScenario.h"

namespace kvtest {

/// What a row over objects that know neither unspecified values nor expressions answers to a value that is no
/// text of a number; `put` is what the last object answers to a put.
[[nodiscard]] inline HRESULT AnswerToSetValue(const ClassScenario& scenario, const VARIANT& value, LONG type,
                                              HRESULT put) {
    constexpr LONG specific = 0;
    constexpr LONG unspecified = 2;
    constexpr LONG expression = 3;
    const bool takesNumbers = scenario.numberType != VT_ILLEGAL;
    if (takesNumbers && (type == unspecified || value.vt != scenario.numberType)) {
        return E_FAIL;
    }
    switch (type) {
        case specific:
            return put;
        case unspecified:
            return S_OK;  // there is nothing to do
        case expression:
            return value.vt != VT_BSTR ? E_INVALIDARG : value.bstrVal ? E_FAIL : E_POINTER;
        default:
            return E_INVALIDARG;
    }
}

}  // namespace kvtest
