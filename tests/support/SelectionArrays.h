#pragma once

#include <vector>

#include "framework/com/ComPtr.h"
#include "framework/com/Variant.h"
#include "refhost/testing/ScriptedDynamicProperty.h"

namespace kvtest {

/// The property that the tests read and write.
inline constexpr DISPID c_property = 5;

/// The three parallel arrays that a palette hands over.
class SelectionArrays {
public:
    SelectionArrays() = default;
    /// Objects that share a property.
    explicit SelectionArrays(const std::vector<IDispatch*>& objects, long dispid = c_property);

    SelectionArrays& Add(IDispatch* object, long dispid = c_property, IUnknown* dynamicProperty = nullptr);
    SelectionArrays& AddDynamic(IDispatch* object, kvhost::ScriptedDynamicProperty* property);

    /// Hands them to a row's logic, or to a control.
    template <class Row>
    [[nodiscard]] HRESULT Init(Row& row, VARIANT_BOOL readOnly = VARIANT_FALSE) const {
        fw::Variant objects = Objects();
        fw::Variant dynamicProperties = DynamicProperties();
        fw::Variant dispids = Dispids();
        if constexpr (requires { &Row::Handle_InitEditControl; }) {
            return row.Handle_InitEditControl(objects.Address(), dynamicProperties.Address(),
                                              dispids.Address(), readOnly);
        } else {
            return row.InitEditControl(objects.Address(), dynamicProperties.Address(), dispids.Address(),
                                       readOnly);
        }
    }

    /// Empty when the system makes no array.
    [[nodiscard]] fw::Variant Objects(LONG lowerBound = 0) const;
    [[nodiscard]] fw::Variant DynamicProperties(LONG lowerBound = 0) const;
    [[nodiscard]] fw::Variant Dispids(LONG lowerBound = 0) const;

private:
    std::vector<fw::ComPtr<IDispatch>> m_objects;
    std::vector<fw::ComPtr<IUnknown>> m_dynamicProperties;
    std::vector<long> m_dispids;
};

}  // namespace kvtest
