#pragma once

#include <map>
#include <span>
#include <string>
#include <vector>

#include "host_sdk/KvDbObjectId.h"
#include "palette/rows/ControlCatalogue.h"
#include "palette/rows/PaletteRow.h"

namespace kvpalette {

/// Makes the palette's rows for a selection and decides how each shows its value.
class RowSet {
public:
    /// The catalogue is not owned.
    explicit RowSet(const ControlCatalogue& catalogue) : m_catalogue(catalogue) {}

    [[nodiscard]] std::vector<PaletteRow> RowsFor(std::span<const KvDbObjectId> selection);

    /// The arrays that the row's control is initialised with.
    [[nodiscard]] static HRESULT SelectionOf(const kvhost::PropertyRow& row, RowSelection& selection);

private:
    void Choose(PaletteRow& row);
    bool IsAvailable(const ControlClass& controlClass);

    const ControlCatalogue& m_catalogue;
    std::map<std::wstring, bool> m_available;
};

}  // namespace kvpalette
