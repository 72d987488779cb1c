#pragma once

#include "framework/base/Export.h"
#include "framework/base/WindowsApi.h"
#include "framework/com/Variant.h"

namespace fw {

/// Reads a one-dimensional SAFEARRAY that somebody else owns, whatever its lower bound.
class FW_API SafeArrayView {
public:
    /// Accepts VT_ARRAY by value or by reference, and a reference to a VARIANT that holds one.
    /// DISP_E_TYPEMISMATCH when the value is no array, DISP_E_BADINDEX when it has not one dimension.
    [[nodiscard]] static HRESULT FromVariant(const VARIANT* value, SafeArrayView& view) noexcept;

    SafeArrayView() noexcept = default;

    LONG Count() const noexcept { return m_count; }
    VARTYPE ElementType() const noexcept { return m_elementType; }
    SAFEARRAY* Get() const noexcept { return m_array; }

    /// Copies one element, counted from 0; DISP_E_BADINDEX outside the array.
    [[nodiscard]] HRESULT GetVariant(LONG index, Variant& element) const noexcept;
    [[nodiscard]] HRESULT GetLong(LONG index, LONG& element) const noexcept;
    /// The element's object with a reference of its own; a null or empty element gives null and S_OK.
    [[nodiscard]] HRESULT GetUnknown(LONG index, ComPtr<IUnknown>& element) const noexcept;

private:
    SAFEARRAY* m_array = nullptr;
    VARTYPE m_elementType = VT_EMPTY;
    LONG m_lowerBound = 0;
    LONG m_count = 0;
};

/// Makes a VARIANT that holds an array of VARIANTs, copied from the given ones.
[[nodiscard]] FW_API HRESULT MakeVariantArray(const Variant* elements, ULONG count, Variant& result) noexcept;
/// Makes a VARIANT that holds an array of VT_I4.
[[nodiscard]] FW_API HRESULT MakeLongArray(const LONG* elements, ULONG count, Variant& result) noexcept;
/// Makes a VARIANT that holds an array of VT_DISPATCH, each with a reference of its own; null entries stay
/// null.
[[nodiscard]] FW_API HRESULT MakeDispatchArray(IDispatch* const* elements, ULONG count,
                                               Variant& result) noexcept;
/// Makes a VARIANT that holds an array of VT_UNKNOWN, each with a reference of its own; null entries stay
/// null.
[[nodiscard]] FW_API HRESULT MakeUnknownArray(IUnknown* const* elements, ULONG count,
                                              Variant& result) noexcept;

}  // namespace fw
