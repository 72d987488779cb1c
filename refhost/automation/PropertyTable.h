#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "host_sdk/Export.h"
#include "refhost/automation/PropertyDescription.h"

namespace kvhost {

/// All properties of one object class. One static instance per class.
class KVHOST_API PropertyTable {
public:
    /// `rows` lives as long as the host; `className` is the name in the drawing and in the type library.
    PropertyTable(const wchar_t* className, const CLSID& classId, std::span<const PropertyDescription> common,
                  std::span<const PropertyDescription> own);

    [[nodiscard]] const wchar_t* ClassName() const { return m_className; }
    /// Class id of the automation objects, answered by IDatabaseObjectIdentity::GetClassId.
    [[nodiscard]] const CLSID& ClassId() const { return m_classId; }
    /// In the order of the palette's rows.
    [[nodiscard]] std::span<const PropertyDescription> Rows() const { return m_rows; }

    /// Null when the class has no such property. Names compare without regard to case.
    [[nodiscard]] const PropertyDescription* Find(DISPID dispid) const;
    [[nodiscard]] const PropertyDescription* FindByName(std::wstring_view name) const;

    /// The tables of all classes, in a fixed order.
    [[nodiscard]] static std::span<const PropertyTable* const> All();
    /// The table of the class with that name; null when there is none.
    [[nodiscard]] static const PropertyTable* Of(std::wstring_view className);

private:
    const wchar_t* m_className;
    CLSID m_classId;
    std::vector<PropertyDescription> m_rows;
};

}  // namespace kvhost
