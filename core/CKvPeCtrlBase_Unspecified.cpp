#include "core/CKvPeCtrlBase.h"
#include "core/ModuleTexts.h"
#include "core/PropertyKey.h"
#include "framework/com/Variant.h"
#include "host_sdk/IPropertyUnspecifiedSupport.h"

namespace {

// Into the place of the former text, which needs no new memory: this is asked of each object of a selection.
void ReadUnspecifiedText(IPropertyUnspecifiedSupport& support, const VARIANT& key, CString& result) {
    fw::Bstr text;
    if (SUCCEEDED(support.GetUnspecifiedText(key, text.Put()))) {
        result = text.View();
    } else {
        result = DefaultUnspecifiedText();
    }
}

void ReplaceByText(VARIANT& value, const CString& text) {
    fw::Variant replacement = fw::Variant::FromString(text.View());
    ::VariantClear(&value);
    replacement.DetachTo(value);
}

HRESULT WriteUnspecified(IUnknown* asked, const VARIANT& key, int unspecified) {
    RETURN_IF_NULL_POINTER(asked);
    const auto support = fw::QueryFrom<IPropertyUnspecifiedSupport>(asked);
    RETURN_HR_IF(E_FAIL, !support);
    VARIANT_BOOL allowed = VARIANT_FALSE;
    RETURN_HR_IF(E_FAIL, FAILED(support->IsUnspecifiedAllowed(key, &allowed)) || !allowed);
    const VARIANT_BOOL state = unspecified > 0 ? VARIANT_TRUE : VARIANT_FALSE;
    return SUCCEEDED(support->SetUnspecified(key, state)) ? S_OK : E_FAIL;
}

}  // namespace

HRESULT CKvPeCtrlBase::CheckPropertyForUnspecifiedValue(IUnknown* dynamicProperty, IUnknown* object,
                                                        VARIANT* value, bool* isUnspecified) {
    RETURN_HR_IF(E_POINTER, dynamicProperty == nullptr || value == nullptr || isUnspecified == nullptr);
    const auto support = fw::QueryFrom<IPropertyUnspecifiedSupport>(dynamicProperty);
    if (!support) {
        return S_OK;
    }
    const VARIANT key = PropertyKey(object);
    VARIANT_BOOL allowed = VARIANT_FALSE;
    const HRESULT asked = support->IsUnspecifiedAllowed(key, &allowed);
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
    const VARIANT key = PropertyKey(dispid);
    VARIANT_BOOL allowed = VARIANT_FALSE;
    const HRESULT asked = support->IsUnspecifiedAllowed(key, &allowed);
    if (FAILED(asked) || !allowed) {
        // Deliberate: the flag stays, unlike that of a dynamic property. Once an object has allowed the
        // state, the row offers it as long as the control lives.
        m_unspecifiedText.Empty();
        return asked;
    }
    return ReadUnspecifiedState(*support, key, value, isUnspecified);
}

HRESULT CKvPeCtrlBase::ReadUnspecifiedState(IPropertyUnspecifiedSupport& support, const VARIANT& key,
                                            VARIANT* value, bool* isUnspecified) {
    m_allowUnspecified = true;
    ReadUnspecifiedText(support, key, m_unspecifiedText);
    VARIANT_BOOL unspecified = VARIANT_FALSE;
    const HRESULT asked = support.IsUnspecified(key, &unspecified);
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
