#pragma once

#include "host_sdk/IPropertyElementAccess.h"
#include "host_sdk/IPropertyElementAccess2.h"
#include "refhost/automation/AutomationObject.h"

namespace kvhost {

/// Automation object of an entity with grouped properties, whose elements are read and written one by one.
/// Both forms of element access stand for the object itself.
class GroupedAutomationObject : public GraphicalAutomationObject,
                                public IPropertyElementAccess2,
                                public IPropertyElementAccess {
public:
    static std::span<const fw::InterfaceEntry> Interfaces();
    /// Whether one of the table's properties is grouped.
    [[nodiscard]] static bool IsNeededFor(const PropertyTable& table);

    // IPropertyElementAccess2
    STDMETHODIMP GetElementValue(long dispid, IDispatch* object, unsigned key, VARIANT* value) override;
    STDMETHODIMP SetElementValue(long dispid, IDispatch* object, unsigned key, VARIANT value) override;
    STDMETHODIMP GetGroupSize(long dispid, IDispatch* object, unsigned* size) override;
    STDMETHODIMP GetGroupCount(long dispid, IDispatch* object, long* count) override;

    // IPropertyElementAccess
    STDMETHODIMP GetElementValue(long dispid, unsigned key, VARIANT* value) override;
    STDMETHODIMP SetElementValue(long dispid, unsigned key, VARIANT value) override;
    STDMETHODIMP GetGroupSize(long dispid, unsigned* size) override;
    STDMETHODIMP GetGroupCount(long dispid, long* count) override;

protected:
    ~GroupedAutomationObject() = default;
};

}  // namespace kvhost
