#pragma once

#include <string>

#include "framework/com/Variant.h"
#include "refhost/automation/PropertyRows.h"

namespace kvpalette {

enum class RowState { Specific, Varies, Unspecified, Failed };

/// What the objects of a row answer, read by the palette itself: for rows that have no control, and for
/// reports.
struct RowReading {
    RowState state = RowState::Failed;
    /// The shared value, or the first object's when they vary.
    fw::Variant value;
    /// The text of the unspecified state, empty when the property does not know it.
    std::wstring unspecifiedText;
    bool readOnly = false;
};

/// Reads every object until two differ.
[[nodiscard]] RowReading ReadRow(const kvhost::PropertyRow& row);
/// Reads one object's share of a row.
[[nodiscard]] RowReading ReadEntry(const kvhost::PropertyRowEntry& entry);

/// The text of a reading: by the names that the object has for its values, else as ValueText. The masked
/// value of a row comes as asterisks.
[[nodiscard]] std::wstring ReadingText(const kvhost::PropertyRow& row, const RowReading& reading);

/// The state in reports: "specific", "varies", "unspecified" or "failed".
[[nodiscard]] const wchar_t* StateName(RowState state);

/// A value as the palette prints it where no control does.
[[nodiscard]] std::wstring ValueText(const VARIANT& value);

}  // namespace kvpalette
