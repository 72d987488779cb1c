#pragma once

#include <span>
#include <string>

#include "framework/com/CComObject.h"
#include "framework/com/ComObjectRoot.h"
#include "framework/com/Variant.h"
#include "host_sdk/IKvPiPropertyIdentifier.h"

namespace kvpalette {

/// What a control tells of its row's present value.
class RowIdentifier : public fw::ComObjectRoot, public IKvPiPropertyIdentifier {
public:
    static std::span<const fw::InterfaceEntry> Interfaces();

    void SetName(const std::wstring& name) { m_name = name; }
    const std::wstring& Name() const { return m_name; }
    /// The last value that a write or a dialog told; empty before the first.
    const fw::Variant& CurrentValue() const { return m_value; }
    const std::wstring& CurrentText() const { return m_text; }

    // IKvPiPropertyIdentifier
    STDMETHODIMP PutCurrentValue(VARIANT value) override;
    STDMETHODIMP PutCurrentValueText(BSTR text) override;

protected:
    ~RowIdentifier() = default;

private:
    std::wstring m_name;
    fw::Variant m_value;
    std::wstring m_text;
};

}  // namespace kvpalette
