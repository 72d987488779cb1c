#include "framework/com/SafeArray.h"

#include "framework/base/Hresult.h"

namespace fw {

namespace {

/// Owns a SAFEARRAY until it is handed on.
class UniqueSafeArray {
public:
    UniqueSafeArray(VARTYPE elementType, ULONG count) noexcept
        : m_array(::SafeArrayCreateVector(elementType, 0, count)) {}
    ~UniqueSafeArray() {
        if (m_array) {
            ::SafeArrayDestroy(m_array);
        }
    }
    UniqueSafeArray(const UniqueSafeArray&) = delete;
    UniqueSafeArray& operator=(const UniqueSafeArray&) = delete;

    SAFEARRAY* Get() const noexcept { return m_array; }
    SAFEARRAY* Detach() noexcept { return std::exchange(m_array, nullptr); }

private:
    SAFEARRAY* m_array;
};

template <class Element, class AddressOf>
HRESULT MakeArray(VARTYPE type, const Element* elements, ULONG count, AddressOf addressOf,
                  Variant& result) noexcept {
    RETURN_HR_IF(E_POINTER, !elements && count != 0);
    UniqueSafeArray array(type, count);
    RETURN_HR_IF(E_OUTOFMEMORY, !array.Get());
    for (ULONG i = 0; i < count; ++i) {
        LONG index = static_cast<LONG>(i);
        RETURN_IF_FAILED_EXPECTED(::SafeArrayPutElement(array.Get(), &index, addressOf(elements[i])));
    }
    result = Variant::FromArray(type, array.Detach());
    return S_OK;
}

}  // namespace

HRESULT SafeArrayView::FromVariant(const VARIANT* value, SafeArrayView& view) noexcept {
    view = SafeArrayView();
    value = Variant::Dereference(value);
    RETURN_IF_NULL_POINTER(value);
    RETURN_HR_IF(DISP_E_TYPEMISMATCH, (value->vt & VT_ARRAY) == 0);
    SAFEARRAY* array = value->parray;
    if (value->vt & VT_BYREF) {
        RETURN_IF_NULL_POINTER(value->pparray);
        array = *value->pparray;
    }
    RETURN_HR_IF(DISP_E_TYPEMISMATCH, !array);
    RETURN_HR_IF(DISP_E_BADINDEX, ::SafeArrayGetDim(array) != 1);
    LONG lower = 0;
    LONG upper = 0;
    RETURN_IF_FAILED_EXPECTED(::SafeArrayGetLBound(array, 1, &lower));
    RETURN_IF_FAILED_EXPECTED(::SafeArrayGetUBound(array, 1, &upper));
    view.m_array = array;
    view.m_elementType = static_cast<VARTYPE>(value->vt & VT_TYPEMASK);
    view.m_lowerBound = lower;
    view.m_count = static_cast<LONG>(static_cast<LONGLONG>(upper) - lower + 1);
    return S_OK;
}

HRESULT SafeArrayView::GetVariant(LONG index, Variant& element) const noexcept {
    element.Clear();
    RETURN_HR_IF(DISP_E_BADINDEX, index < 0 || index >= m_count);
    LONG position = m_lowerBound + index;
    if (m_elementType == VT_VARIANT) {
        return ::SafeArrayGetElement(m_array, &position, element.Put());
    }
    // Every other element type lies in the value part of a VARIANT of that type.
    VARIANT raw;
    ::VariantInit(&raw);
    RETURN_HR_IF(DISP_E_TYPEMISMATCH,
                 ::SafeArrayGetElemsize(m_array) > sizeof raw.decVal.Lo64 || m_elementType == VT_RECORD);
    RETURN_IF_FAILED_EXPECTED(::SafeArrayGetElement(m_array, &position, &raw.llVal));
    raw.vt = m_elementType;
    element.Attach(raw);
    return S_OK;
}

HRESULT SafeArrayView::GetLong(LONG index, LONG& element) const noexcept {
    element = 0;
    Variant value;
    RETURN_IF_FAILED_EXPECTED(GetVariant(index, value));
    RETURN_IF_FAILED_EXPECTED(value.ChangeType(VT_I4));
    element = value.Get().lVal;
    return S_OK;
}

HRESULT SafeArrayView::GetUnknown(LONG index, ComPtr<IUnknown>& element) const noexcept {
    element.Reset();
    Variant value;
    RETURN_IF_FAILED_EXPECTED(GetVariant(index, value));
    RETURN_HR_IF(S_OK, value.IsEmpty() || value.Is(VT_NULL));
    RETURN_HR_IF(DISP_E_TYPEMISMATCH, !value.Is(VT_UNKNOWN) && !value.Is(VT_DISPATCH));
    element = value.Unknown();
    return S_OK;
}

HRESULT MakeVariantArray(const Variant* elements, ULONG count, Variant& result) noexcept {
    return MakeArray(
        VT_VARIANT, elements, count,
        [](const Variant& element) { return const_cast<VARIANT*>(element.Address()); }, result);
}

HRESULT MakeLongArray(const LONG* elements, ULONG count, Variant& result) noexcept {
    return MakeArray(
        VT_I4, elements, count, [](const LONG& element) { return const_cast<LONG*>(&element); }, result);
}

HRESULT MakeDispatchArray(IDispatch* const* elements, ULONG count, Variant& result) noexcept {
    return MakeArray(
        VT_DISPATCH, elements, count, [](IDispatch* element) { return element; }, result);
}

HRESULT MakeUnknownArray(IUnknown* const* elements, ULONG count, Variant& result) noexcept {
    return MakeArray(
        VT_UNKNOWN, elements, count, [](IUnknown* element) { return element; }, result);
}

}  // namespace fw
