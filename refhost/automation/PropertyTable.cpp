#include "refhost/automation/PropertyTable.h"

#include <algorithm>
#include <array>

#include "refhost/automation/PropertyTables.h"

namespace kvhost {

namespace {

bool IsSameName(std::wstring_view left, std::wstring_view right) {
    return ::CompareStringOrdinal(left.data(), static_cast<int>(left.size()), right.data(),
                                  static_cast<int>(right.size()), TRUE) == CSTR_EQUAL;
}

}  // namespace

PropertyTable::PropertyTable(const wchar_t* className, const CLSID& classId,
                             std::span<const PropertyDescription> common,
                             std::span<const PropertyDescription> own)
    : m_className(className), m_classId(classId), m_rows(common.begin(), common.end()) {
    m_rows.insert(m_rows.end(), own.begin(), own.end());
}

const PropertyDescription* PropertyTable::Find(DISPID dispid) const {
    const auto found = std::find_if(m_rows.begin(), m_rows.end(),
                                    [&](const PropertyDescription& row) { return row.dispid == dispid; });
    return found == m_rows.end() ? nullptr : &*found;
}

const PropertyDescription* PropertyTable::FindByName(std::wstring_view name) const {
    const auto found = std::find_if(m_rows.begin(), m_rows.end(), [&](const PropertyDescription& row) {
        return IsSameName(row.name, name);
    });
    return found == m_rows.end() ? nullptr : &*found;
}

std::span<const PropertyTable* const> PropertyTable::All() {
    static const std::array tables{
        &LineProperties(),           &CircleProperties(),         &ArcProperties(),  &PointProperties(),
        &PolylineProperties(),       &PolylineVertexProperties(), &TextProperties(), &AttributeProperties(),
        &BlockReferenceProperties(), &LayerProperties(),
    };
    return tables;
}

const PropertyTable* PropertyTable::Of(std::wstring_view className) {
    const auto tables = All();
    const auto found = std::find_if(tables.begin(), tables.end(), [&](const PropertyTable* table) {
        return className == table->ClassName();
    });
    return found == tables.end() ? nullptr : *found;
}

}  // namespace kvhost
