#include "core/CKvPeCtrlBase.h"
#include "core/ModuleTexts.h"
#include "core/PropertyKey.h"
#include "host_sdk/IPropertyUnspecifiedSupport.h"

namespace {

CString ReadUnspecifiedText(IPropertyUnspecifiedSupport& support, const fw::Variant& key) {
    fw::Bstr text;
    return SUCCEEDED(support.GetUnspecifiedText(key.Get(), text.Put())) ? CString(text.View())
                                                                        : DefaultUnspecifiedText();
}

void ReplaceByText(VARIANT& value, const CString& text) {
    fw::Variant replacement = fw::Variant::FromString(text.View());
    ::VariantClear(&value);
    replacement.DetachTo(value);
}

HRESULT WriteUnspecified(IUnknown* asked, const fw::Variant& key, int unspecified) {
    RETURN_IF_NULL_POINTER(asked);
    const auto support = fw::QueryFrom<IPropertyUnspecifiedSupport>(asked);
    RETURN_HR_IF(E_FAIL, !support);
    VARIANT_BOOL allowed = VARIANT_FALSE;
    RETURN_HR_IF(E_FAIL, FAILED(support->IsUnspecifiedAllowed(key.Get(), &allowed)) || !allowed);
    const VARIANT_BOOL state = unspecified > 0 ? VARIANT_TRUE : VARIANT_FALSE;
    return SUCCEEDED(support->SetUnspecified(key.Get(), state)) ? S_OK : E_FAIL;
}

}  // namespace

HRESULT CKvPeCtrlBase::CheckPropertyForUnspecifiedValue(IUnknown* dynamicProperty, IUnknown* object,
                                                        VARIANT* value, bool* isUnspecified) {
    RETURN_HR_IF(E_POINTER, dynamicProperty == nullptr || value == nullptr || isUnspecified == nullptr);
    const auto support = fw::QueryFrom<IPropertyUnspecifiedSupport>(dynamicProperty);
    if (!support) {
        return S_OK;
    }
    const fw::Variant key = PropertyKey(object);
    VARIANT_BOOL allowed = VARIANT_FALSE;
    const HRESULT asked = support->IsUnspecifiedAllowed(key.Get(), &allowed);
    if (FAILED(asked) || !allowed) {
        m_unspecifiedText.Empty();
        m_allowUnspecified = false;
        return asked;
    }
    return ReadUnspecifiedState(*support, key, value, isUnspecified);
}

HRESULT CKvPeCtrlBase::CheckPropertyForUnspecifiedValue(long dispid, IDispatch* object, VARIANT* value,
                                                        bool* isUnspecified) {
    RETURN_HR_IF(E_POINTER, object == nullptr || value == nullptr || isUnspecified == nullptr);
    const auto support = fw::QueryFrom<IPropertyUnspecifiedSupport>(object);
    if (!support) {
        return S_OK;
    }
    const fw::Variant key = PropertyKey(dispid);
    VARIANT_BOOL allowed = VARIANT_FALSE;
    const HRESULT asked = support->IsUnspecifiedAllowed(key.Get(), &allowed);
    if (FAILED(asked) || !allowed) {
        // Deliberate: the flag stays, unlike that of a dynamic property. Once an object has allowed the
        // state, the row offers it as long as the control lives.
        m_unspecifiedText.Empty();
        return asked;
    }
    return ReadUnspecifiedState(*support, key, value, isUnspecified);
}

HRESULT CKvPeCtrlBase::ReadUnspecifiedState(IPropertyUnspecifiedSupport& support, const fw::Variant& key,
                                            VARIANT* value, bool* isUnspecified) {
    m_allowUnspecified = true;
    m_unspecifiedText = ReadUnspecifiedText(support, key);
    VARIANT_BOOL unspecified = VARIANT_FALSE;
    const HRESULT asked = support.IsUnspecified(key.Get(), &unspecified);
    if (SUCCEEDED(asked) && unspecified) {
        ReplaceByText(*value, m_unspecifiedText);
        *isUnspecified = true;
    }
    return asked;
}

HRESULT CKvPeCtrlBase::SetPropertyValueAsUnspecified(long dispid, IDispatch* object, int unspecified) {
    return WriteUnspecified(object, PropertyKey(dispid), unspecified);
}

HRESULT CKvPeCtrlBase::SetPropertyValueAsUnspecified(IUnknown* dynamicProperty, IUnknown* object,
                                                     int unspecified) {
    return WriteUnspecified(dynamicProperty, PropertyKey(object), unspecified);
}
