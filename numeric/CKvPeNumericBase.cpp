#include "numeric/CKvPeNumericBase.h"

#include "core/ExceptionRecord.h"
#include "core/HostDocument.h"
#include "core/ReadFailures.h"
#include "core/SelectionEntry.h"
#include "framework/com/Variant.h"
#include "host_sdk/KvEdServices.h"

HRESULT CKvPeNumericBase::GetPropertyValue(VARIANT* value, ValueType& type) {
    RETURN_IF_NULL_POINTER(value);
    // The units of another document's database would be the wrong ones.
    RETURN_HR_IF(E_FAIL, !IsCurrentDocumentActive());
    fw::Variant read;
    RETURN_IF_FAILED_EXPECTED(
        CKvPeCtrlBase::GetPropertyValue(read.Address(), type));  // NOLINT(bugprone-parent-virtual-call)
    if (m_expressionState != 0) {
        SetPickMode(m_expressionState);
    }
    if (type == ValueType_Specific) {
        CString text;
        FormatNumber(read.Get(), text);
        read = fw::Variant::FromString(text.View());
    }
    ::VariantClear(value);
    read.DetachTo(*value);
    return S_OK;
}

HRESULT CKvPeNumericBase::SetPropertyValue(VARIANT* value, ValueType type) {
    RETURN_IF_NULL_POINTER(value);
    if (type == ValueType_Unspecified || value->vt == VT_BSTR) {
        return SetPropertyText(*value, type);
    }
    RETURN_HR_IF(E_FAIL,
                 value->vt != m_propertyVarType && !kvedIsInCommandStack(KVED_COMMAND_WRITES_PROPERTIES));
    return SetCopy(*value, type);
}

HRESULT CKvPeNumericBase::SetPropertyText(const VARIANT& value, ValueType type) {
    const CString text(fw::Variant::ViewString(value));
    if (m_allowUnspecified && text == m_unspecifiedText) {
        return SetCopy(value, ValueType_Unspecified);
    }
    fw::Variant number;
    if (IsCurrentDocumentActive() && ParseNumber(text, *number.Address())) {
        return CKvPeCtrlBase::SetPropertyValue(number.Address(), type);
    }
    // What is no number may be an expression, where the property takes one.
    RETURN_HR_IF(E_FAIL, m_expressionState == 0);
    return SetCopy(value, ValueType_Expression);
}

HRESULT CKvPeNumericBase::SetCopy(const VARIANT& value, ValueType type) {
    fw::Variant copy;
    RETURN_IF_FAILED(copy.CopyFrom(value));
    return CKvPeCtrlBase::SetPropertyValue(copy.Address(), type);
}

HRESULT CKvPeNumericBase::ComparePropertyValue(VARIANT* first, VARIANT* second, int& result) {
    RETURN_HR_IF(E_POINTER, first == nullptr || second == nullptr);
    CString firstText;
    CString secondText;
    FormatNumber(*first, firstText);
    FormatNumber(*second, secondText);
    // Deliberate: without tolerance. Numbers that differ behind the shown places are one value.
    result = firstText.CompareNoCase(secondText) == 0 ? 0 : -1;
    return S_OK;
}

bool CKvPeNumericBase::ProbePropertyValueType() {
    m_propertyVarType = VT_R8;
    if (EntryCount() == 0 || m_objects[0] == nullptr) {
        return true;
    }
    const fw::ComPtr<IDispatch> object(m_objects[0]);
    const fw::ComPtr<IUnknown> dynamicProperty(m_dynamicProperties[0]);
    const SelectionEntry entry{object.Get(), dynamicProperty.Get(), m_dispids[0]};
    return entry.IsDynamic() ? ProbeDynamicProperty(entry) : ProbeObject(entry);
}

void CKvPeNumericBase::TakeTypeOf(const VARIANT& value) {
    m_propertyVarType = value.vt != VT_EMPTY ? value.vt : static_cast<VARTYPE>(VT_R8);
}

bool CKvPeNumericBase::ProbeObject(const SelectionEntry& entry) {
    DISPPARAMS noParameters{};
    fw::Variant value;
    ExceptionRecord exception;
    const HRESULT result =
        entry.object->Invoke(entry.dispid, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &noParameters,
                             value.Put(), exception.Put(), nullptr);
    if (SUCCEEDED(result)) {
        TakeTypeOf(value.Get());
        return true;
    }
    if (result == DISP_E_EXCEPTION) {
        exception.Complete();
    }
    return IsMissingValueFailure(result, exception.Code(), entry.object, entry.dispid);
}

bool CKvPeNumericBase::ProbeDynamicProperty(const SelectionEntry& entry) {
    const DynamicForms forms(entry.dynamicProperty);
    if (forms.IsMissing()) {
        return false;
    }
    VARTYPE type = VT_R8;
    if (SUCCEEDED(forms.byObject ? forms.byObject->GetCurrentValueType(&type)
                                 : forms.byId->GetCurrentValueType(&type))) {
        m_propertyVarType = type;
        return true;
    }
    fw::Variant value;
    const HRESULT result = forms.byObject
                               ? forms.byObject->GetCurrentValueData(entry.object, value.Put())
                               : GetDynamicPropertyValue(entry.object, forms.byId.Get(), value.Put());
    if (FAILED(result)) {
        return false;
    }
    TakeTypeOf(value.Get());
    return true;
}
