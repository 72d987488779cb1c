#include "refhost/testing/ScriptedValue.h"

namespace kvhost {

namespace {

// VariantCopy refuses types that it does not know and arrays without array, which a broken object may well
// hand out.
HRESULT CopyBits(const VARIANT& from, VARIANT* to) {
    const bool holdsNothing = (from.vt & VT_ARRAY) != 0 && from.parray == nullptr;
    ::VariantInit(to);
    if (!holdsNothing && SUCCEEDED(::VariantCopy(to, const_cast<VARIANT*>(&from)))) {
        // Copies of a null BSTR come back as empty ones from some platforms.
        if (from.vt == VT_BSTR && from.bstrVal == nullptr) {
            ::SysFreeString(to->bstrVal);
            to->bstrVal = nullptr;
        }
        return S_OK;
    }
    *to = from;
    return S_OK;
}

void ClearBits(VARIANT& value) {
    if (FAILED(::VariantClear(&value))) {
        ::VariantInit(&value);
    }
}

}  // namespace

ScriptedValue::ScriptedValue() {
    ::VariantInit(&m_value);
}

ScriptedValue::~ScriptedValue() {
    ClearBits(m_value);
}

void ScriptedValue::Set(const VARIANT& value) {
    VARIANT copy;
    static_cast<void>(CopyBits(value, &copy));
    ClearBits(m_value);
    m_value = copy;
}

void ScriptedValue::Set(const wchar_t* text) {
    Set(fw::Variant::FromString(text).Get());
}

void ScriptedValue::Set(double number) {
    Set(fw::Variant::FromDouble(number).Get());
}

void ScriptedValue::Set(long number) {
    Set(fw::Variant::FromLong(number).Get());
}

HRESULT ScriptedValue::CopyTo(VARIANT* result) const {
    return CopyBits(m_value, result);
}

}  // namespace kvhost
