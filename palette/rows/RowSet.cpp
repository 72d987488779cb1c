#include "palette/rows/RowSet.h"

#include <numeric>

#include "framework/base/Hresult.h"
#include "framework/com/SafeArray.h"
#include "palette/rows/NumberRows.h"

namespace kvpalette {

namespace {

constexpr wchar_t c_textControl[] = L"KvPePropertyEditorText";

}  // namespace

std::vector<PaletteRow> RowSet::RowsFor(std::span<const KvDbObjectId> selection) {
    std::vector<PaletteRow> rows;
    for (kvhost::PropertyRow& property : kvhost::RowsOf(selection)) {
        PaletteRow row;
        row.property = std::move(property);
        Choose(row);
        rows.push_back(std::move(row));
    }
    return rows;
}

void RowSet::Choose(PaletteRow& row) {
    ControlClass registered;
    const ControlClass* wanted = m_catalogue.Find(row.property.control);
    if (!wanted && ControlCatalogue::FindRegistered(row.property.control, registered)) {
        wanted = &registered;
    }
    if (wanted && IsAvailable(*wanted)) {
        row.kind = RowKind::Control;
        row.classId = wanted->classId;
        return;
    }
    const ControlClass* const text = m_catalogue.Find(c_textControl);
    // A masked value must not come up in clear because its own control is missing.
    const bool masked = (row.property.flags & kvhost::PropertyMasked) != 0;
    if (row.property.type == VT_BSTR && !masked && text && IsAvailable(*text)) {
        row.kind = RowKind::Text;
        row.classId = text->classId;
    }
}

// A class is asked once: which classes there are does not change while the program runs.
bool RowSet::IsAvailable(const ControlClass& controlClass) {
    const auto known = m_available.find(controlClass.name);
    if (known != m_available.end()) {
        return known->second;
    }
    return m_available[controlClass.name] = ControlCatalogue::IsCreatable(controlClass);
}

HRESULT RowSet::SelectionOf(const kvhost::PropertyRow& row, RowSelection& selection) {
    std::vector<IDispatch*> objects;
    std::vector<IUnknown*> dynamicProperties;
    std::vector<LONG> dispids;
    for (const kvhost::PropertyRowEntry& entry : row.entries) {
        objects.push_back(entry.object.Get());
        dynamicProperties.push_back(entry.dynamicProperty.Get());
        dispids.push_back(entry.dispid);
    }
    const auto count = static_cast<ULONG>(row.entries.size());
    RETURN_IF_FAILED(fw::MakeDispatchArray(objects.data(), count, selection.objects));
    RETURN_IF_FAILED(fw::MakeUnknownArray(dynamicProperties.data(), count, selection.dynamicProperties));
    RETURN_IF_FAILED(fw::MakeLongArray(dispids.data(), count, selection.dispids));
    if (row.groupSize > 0) {
        std::vector<LONG> cookies(row.groupSize);
        std::iota(cookies.begin(), cookies.end(), 0L);
        RETURN_IF_FAILED(
            fw::MakeLongArray(cookies.data(), static_cast<ULONG>(cookies.size()), selection.cookies));
    }
    selection.numericType = NumericTypeOf(row);
    selection.isNumber = row.type == VT_R8 || row.type == VT_I4;
    selection.readOnly = (row.flags & kvhost::PropertyReadOnly) != 0;
    return S_OK;
}

}  // namespace kvpalette
