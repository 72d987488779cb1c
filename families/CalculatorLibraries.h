#pragma once

#include "core/Export.h"
#include "host_sdk/KvCalculator.h"

// The host's libraries behind the calculator, loaded at first use.

/// The entry to the calculator's dialog in that library; null when there is none. A library that has it stays
/// loaded, one that was loaded in vain does not.
[[nodiscard]] KvInvokeDialog FindCalculatorDialog(const wchar_t* library);

/// Constructs a unit without powers in `place`. False when the calculator's library can't be had.
[[nodiscard]] bool ConstructCalculatorUnit(KvCalCompoundUnit* place);
