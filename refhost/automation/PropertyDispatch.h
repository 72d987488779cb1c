#pragma once

#include <string>

#include "framework/com/Variant.h"
#include "host_sdk/ErrorStatus.h"

namespace kvhost {

class PropertyTable;
struct PropertyDescription;

/// IDispatch over a property table, without IUnknown. Values are converted to the property's type before they
/// are written; what the database refuses is an exception with its reason.
class PropertyDispatch : public IDispatch {
public:
    // IDispatch
    STDMETHODIMP GetTypeInfoCount(UINT* count) override;
    STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override;
    STDMETHODIMP GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale,
                               DISPID* ids) override;
    STDMETHODIMP Invoke(DISPID dispid, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* parameters,
                        VARIANT* result, EXCEPINFO* exception, UINT* badArgument) override;

protected:
    ~PropertyDispatch() = default;

    [[nodiscard]] virtual const PropertyTable& Table() const = 0;
    /// How the object is called in the journal.
    [[nodiscard]] virtual std::wstring JournalName() const = 0;
    [[nodiscard]] virtual Tolm::ErrorStatus Read(const PropertyDescription& property, fw::Variant& value) = 0;
    /// `value` has the property's type.
    [[nodiscard]] virtual Tolm::ErrorStatus Write(const PropertyDescription& property,
                                                  const fw::Variant& value) = 0;

private:
    HRESULT Get(const PropertyDescription& property, VARIANT* result, EXCEPINFO* exception);
    HRESULT Put(const PropertyDescription& property, LCID locale, const DISPPARAMS& parameters,
                EXCEPINFO* exception);
};

}  // namespace kvhost
