#include "framework/com/Variant.h"

#include <new>
#include <utility>

namespace fw {

namespace {

// The system's copy functions only read their source, but do not say so in its type.
VARIANT* SourceOf(const VARIANT& value) noexcept {
    return const_cast<VARIANT*>(&value);
}

}  // namespace

Variant::Variant(const Variant& other) : Variant() {
    if (FAILED(CopyFrom(other.m_value))) {
        throw std::bad_alloc();
    }
}

Variant::Variant(Variant&& other) noexcept : Variant() {
    Attach(other.m_value);
}

Variant& Variant::operator=(const Variant& other) {
    Variant copy(other);
    return *this = std::move(copy);
}

Variant& Variant::operator=(Variant&& other) noexcept {
    if (this != &other) {
        Attach(other.m_value);
    }
    return *this;
}

Variant Variant::FromShort(SHORT value) noexcept {
    Variant result;
    result.m_value.vt = VT_I2;
    result.m_value.iVal = value;
    return result;
}

Variant Variant::FromDouble(double value) noexcept {
    Variant result;
    result.m_value.vt = VT_R8;
    result.m_value.dblVal = value;
    return result;
}

Variant Variant::FromBool(bool value) noexcept {
    Variant result;
    result.m_value.vt = VT_BOOL;
    result.m_value.boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
    return result;
}

Variant Variant::FromString(std::wstring_view text) {
    Bstr copy(text);
    Variant result;
    result.m_value.vt = VT_BSTR;
    result.m_value.bstrVal = copy.Detach();
    return result;
}

Variant Variant::FromBstr(Bstr text) {
    if (text.Get() == nullptr) {
        return FromString({});
    }
    Variant result;
    result.m_value.vt = VT_BSTR;
    result.m_value.bstrVal = text.Detach();
    return result;
}

Variant Variant::FromUnknown(IUnknown* object) noexcept {
    Variant result;
    result.m_value.vt = VT_UNKNOWN;
    result.m_value.punkVal = ComPtr<IUnknown>(object).Detach();
    return result;
}

Variant Variant::FromDispatch(IDispatch* object) noexcept {
    Variant result;
    result.m_value.vt = VT_DISPATCH;
    result.m_value.pdispVal = ComPtr<IDispatch>(object).Detach();
    return result;
}

Variant Variant::FromError(SCODE code) noexcept {
    Variant result;
    result.m_value.vt = VT_ERROR;
    result.m_value.scode = code;
    return result;
}

Variant Variant::Null() noexcept {
    Variant result;
    result.m_value.vt = VT_NULL;
    return result;
}

Variant Variant::FromArray(VARTYPE elementType, SAFEARRAY* array) noexcept {
    Variant result;
    result.m_value.vt = static_cast<VARTYPE>(VT_ARRAY | elementType);
    result.m_value.parray = array;
    return result;
}

VARIANT* Variant::Put() noexcept {
    Clear();
    return &m_value;
}

void Variant::ReleaseHeld() noexcept {
    // The member is emptied first: releasing an object may lead back here.
    VARIANT former = m_value;
    ::VariantInit(&m_value);
    ::VariantClear(&former);
}

HRESULT Variant::CopyFrom(const VARIANT& value) noexcept {
    Variant copy;
    const HRESULT copied = ::VariantCopy(&copy.m_value, SourceOf(value));
    if (SUCCEEDED(copied)) {
        *this = std::move(copy);
    }
    return copied;
}

HRESULT Variant::CopyIndirectFrom(const VARIANT& value) noexcept {
    Variant copy;
    const HRESULT copied = ::VariantCopyInd(&copy.m_value, SourceOf(value));
    if (SUCCEEDED(copied)) {
        *this = std::move(copy);
    }
    return copied;
}

HRESULT Variant::CopyTo(VARIANT* result) const noexcept {
    if (!result) {
        return E_POINTER;
    }
    ::VariantInit(result);
    return ::VariantCopy(result, SourceOf(m_value));
}

void Variant::Attach(VARIANT& value) noexcept {
    VARIANT former = std::exchange(m_value, value);
    ::VariantInit(&value);
    ::VariantClear(&former);
}

void Variant::DetachTo(VARIANT& result) noexcept {
    result = m_value;
    ::VariantInit(&m_value);
}

HRESULT Variant::ChangeType(VARTYPE type) noexcept {
    Variant converted;
    const HRESULT changed = ::VariantChangeType(&converted.m_value, &m_value, 0, type);
    if (SUCCEEDED(changed)) {
        *this = std::move(converted);
    }
    return changed;
}

std::wstring_view Variant::ViewString(const VARIANT& value) noexcept {
    return value.vt == VT_BSTR ? Bstr::ViewOf(value.bstrVal) : std::wstring_view(L"");
}

IUnknown* Variant::ViewUnknown(const VARIANT& value) noexcept {
    switch (value.vt) {
        case VT_UNKNOWN:
            return value.punkVal;
        case VT_DISPATCH:
            return value.pdispVal;
        default:
            return nullptr;
    }
}

const VARIANT* Variant::Dereference(const VARIANT* value) noexcept {
    // A reference may lead to another one; a ring of them must not hang the process.
    for (int depth = 0; value && value->vt == (VT_BYREF | VT_VARIANT) && depth < 4; ++depth) {
        value = value->pvarVal;
    }
    return value;
}

}  // namespace fw
