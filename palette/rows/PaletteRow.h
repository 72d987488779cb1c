#pragma once

#include <memory>
#include <string>

#include "palette/container/HostedControl.h"
#include "palette/rows/RowReading.h"
#include "refhost/automation/PropertyRows.h"

namespace kvpalette {

/// How a row shows its value.
enum class RowKind {
    Control,  ///< by the control that the property names
    Text,     ///< by the plain text control, since the named one is not available
    Painted,  ///< by the palette itself, read-only
};

/// One row of the palette.
struct PaletteRow {
    kvhost::PropertyRow property;
    RowKind kind = RowKind::Painted;
    CLSID classId{};
    /// Null while the row is out of sight, and for painted rows.
    std::unique_ptr<HostedControl> control;
    /// Of a painted row; read when the row is first shown and after changes.
    RowReading reading;
    bool readingIsFresh = false;
};

}  // namespace kvpalette
