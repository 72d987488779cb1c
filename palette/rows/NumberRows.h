#pragma once

#include <optional>

#include "KvPEXCtl_h.h"
#include "refhost/automation/PropertyRows.h"

namespace kvpalette {

/// What the numbers of a row mean, as its control is told; nothing for rows without real numbers.
[[nodiscard]] std::optional<KvPeNumericType> NumericTypeOf(const kvhost::PropertyRow& row);

/// True for a row of a number control whose objects have numbers that are written alike in the drawing's
/// units and places: to the control they are one value.
[[nodiscard]] bool PrintsOneNumber(const kvhost::PropertyRow& row);

}  // namespace kvpalette
