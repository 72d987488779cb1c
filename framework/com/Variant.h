#pragma once

#include <string_view>

#include "framework/base/Export.h"
#include "framework/base/WindowsApi.h"
#include "framework/com/Bstr.h"
#include "framework/com/ComPtr.h"

namespace fw {

/// Owns a VARIANT with all that it holds.
class FW_API Variant {
public:
    Variant() noexcept = default;
    /// Throws bad_alloc when there is no memory for the copy.
    Variant(const Variant& other);
    Variant(Variant&& other) noexcept;
    ~Variant() { Clear(); }
    Variant& operator=(const Variant& other);
    Variant& operator=(Variant&& other) noexcept;

    static Variant FromLong(LONG value) noexcept {
        Variant result;
        result.m_value.vt = VT_I4;
        result.m_value.lVal = value;
        return result;
    }
    static Variant FromShort(SHORT value) noexcept;
    static Variant FromDouble(double value) noexcept;
    static Variant FromBool(bool value) noexcept;
    /// Throws bad_alloc when there is no memory for the text.
    static Variant FromString(std::wstring_view text);
    /// Takes the text over; a null text becomes an empty one.
    static Variant FromBstr(Bstr text);
    /// Adds a reference; null gives VT_UNKNOWN with a null pointer.
    static Variant FromUnknown(IUnknown* object) noexcept;
    static Variant FromDispatch(IDispatch* object) noexcept;
    static Variant FromError(SCODE code) noexcept;
    static Variant Null() noexcept;
    /// Takes over an array whose elements have the given type; the caller no longer owns it.
    static Variant FromArray(VARTYPE elementType, SAFEARRAY* array) noexcept;
    /// The value that a script passes for an argument that it leaves out.
    static Variant Missing() noexcept { return FromError(DISP_E_PARAMNOTFOUND); }

    VARTYPE Type() const noexcept { return m_value.vt; }
    bool IsEmpty() const noexcept { return m_value.vt == VT_EMPTY; }
    bool Is(VARTYPE type) const noexcept { return m_value.vt == type; }

    const VARIANT& Get() const noexcept { return m_value; }
    /// For calls that take a VARIANT* and read it or change it in place.
    VARIANT* Address() noexcept { return &m_value; }
    const VARIANT* Address() const noexcept { return &m_value; }
    /// Clears the value and gives the place for an out argument.
    VARIANT* Put() noexcept;
    void Clear() noexcept {
        // Rows make and drop so many numbers and texts that asking the system to clear each one shows.
        if (HoldsNothing(m_value.vt)) {
            m_value.vt = VT_EMPTY;
        } else if (m_value.vt == VT_BSTR) {
            ::SysFreeString(m_value.bstrVal);
            m_value.vt = VT_EMPTY;
        } else {
            ReleaseHeld();
        }
    }

    /// Replaces the value by a copy; keeps it when the copy fails.
    [[nodiscard]] HRESULT CopyFrom(const VARIANT& value) noexcept;
    /// The same, following VT_BYREF to the value itself.
    [[nodiscard]] HRESULT CopyIndirectFrom(const VARIANT& value) noexcept;
    /// Puts a copy into an out argument that holds nothing yet.
    [[nodiscard]] HRESULT CopyTo(VARIANT* result) const noexcept;
    /// Takes over the content of a VARIANT that the caller owns, which is empty afterwards.
    void Attach(VARIANT& value) noexcept;
    /// Hands the content to the caller's VARIANT, which must hold nothing.
    void DetachTo(VARIANT& result) noexcept;
    /// Converts in place by the user's locale; keeps the value when that fails.
    [[nodiscard]] HRESULT ChangeType(VARTYPE type) noexcept;

    /// Reads without conversion: the fallback is given when the type is another one.
    LONG LongOr(LONG fallback) const noexcept { return Is(VT_I4) ? m_value.lVal : fallback; }
    double DoubleOr(double fallback) const noexcept { return Is(VT_R8) ? m_value.dblVal : fallback; }
    std::wstring_view StringView() const noexcept { return ViewString(m_value); }
    /// The object held as VT_UNKNOWN or VT_DISPATCH, not owned by the caller; else null.
    IUnknown* Unknown() const noexcept { return ViewUnknown(m_value); }

    /// The text of a VT_BSTR value that somebody else owns; empty for every other type.
    static std::wstring_view ViewString(const VARIANT& value) noexcept;
    static IUnknown* ViewUnknown(const VARIANT& value) noexcept;
    /// Follows VT_BYREF|VT_VARIANT to the value that it stands for; owned by whom it was.
    static const VARIANT* Dereference(const VARIANT* value) noexcept;

private:
    static bool HoldsNothing(VARTYPE type) noexcept {
        return type <= VT_DATE || type == VT_ERROR || type == VT_BOOL ||
               (type >= VT_DECIMAL && type <= VT_UINT);
    }
    void ReleaseHeld() noexcept;

    VARIANT m_value{};
};

}  // namespace fw
