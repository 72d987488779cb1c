#pragma once

#include <cstddef>
#include <cstdint>

#include "host_sdk/KvCalCompoundUnit.h"

class CString;

/// What a calculator's result is. Callers set Neither before the call.
enum KvCalculatorResultKind : std::int32_t {
    KVCALC_POINT = 0,
    KVCALC_NUMBER = 1,
    KVCALC_NUMBER_WITH_UNIT = 2,
    KVCALC_NEITHER = 3,
};

/// The record that the calculator's dialog fills. Lengths are in drawing units, angles in the unit of the
/// drawing's angular format.
struct KvCalculatorResult {
    std::int32_t kind;
    std::int32_t reserved;
    double x;
    double y;
    double z;
    double value;
    KvCalCompoundUnit unit;
};
static_assert(offsetof(KvCalculatorResult, x) == 8 && offsetof(KvCalculatorResult, value) == 32 &&
              offsetof(KvCalculatorResult, unit) == 40 &&
              sizeof(KvCalculatorResult) == sizeof(KvCalCompoundUnit) + 40);

/// The library with the host's managed dialogs, and the name of its entry to the calculator.
inline constexpr const wchar_t* KVBRIDGE_LIBRARY = L"KvManagedBridge.dll";
inline constexpr const char* KVBRIDGE_INVOKE_DIALOG = "InvokeDialog";

/// Shows the calculator over the application with a caption and the text to begin with. Where `writable` is
/// false a result can be looked at, not taken. True when the user took one, which is then in the record.
using KvInvokeDialog = bool (*)(KvCalculatorResult* result, const CString* caption, const CString* text,
                                bool writable);
