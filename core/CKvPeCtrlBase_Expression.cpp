#include <utility>

#include "core/CKvPeCtrlBase.h"
#include "core/ExpressionState.h"
#include "core/ObjectIdentity.h"
#include "core/PropertyKey.h"
#include "framework/com/Variant.h"
#include "host_sdk/IPropertyExpressionSupport.h"

namespace {

HRESULT ReadExpression(IUnknown* asked, const VARIANT& key, VARIANT& expression, bool& supported) {
    supported = false;
    const auto support = fw::QueryFrom<IPropertyExpressionSupport>(asked);
    if (!support) {
        return S_OK;
    }
    VARIANT_BOOL answer = VARIANT_FALSE;
    // An object that cannot tell leaves the answer at no.
    fw::Ignore(support->IsExpressionSupported(key, &answer));
    if (!answer) {
        return S_OK;
    }
    supported = true;
    fw::Bstr text;
    RETURN_HR_IF(E_FAIL, FAILED(support->GetExpression(key, text.Put())));
    if (expression.vt != VT_EMPTY) {
        ::VariantClear(&expression);
    }
    expression.vt = VT_BSTR;
    expression.bstrVal = text.Get() != nullptr ? text.Detach() : ::SysAllocString(L"");
    return S_OK;
}

HRESULT WriteExpression(IUnknown* asked, const VARIANT& key, wchar_t* expression) {
    const auto support = fw::QueryFrom<IPropertyExpressionSupport>(asked);
    RETURN_HR_IF(E_FAIL, !support);
    VARIANT_BOOL supported = VARIANT_FALSE;
    RETURN_HR_IF(E_FAIL, FAILED(support->IsExpressionSupported(key, &supported)) || !supported);
    return SUCCEEDED(support->SetExpression(key, expression)) ? S_OK : E_FAIL;
}

}  // namespace

HRESULT CKvPeCtrlBase::CheckPropertyForExpression(IUnknown* dynamicProperty, IUnknown* object,
                                                  VARIANT* expression, bool* supported) {
    RETURN_HR_IF(E_POINTER, dynamicProperty == nullptr || object == nullptr || expression == nullptr ||
                                supported == nullptr);
    return ReadExpression(dynamicProperty, PropertyKey(object), *expression, *supported);
}

HRESULT CKvPeCtrlBase::CheckPropertyForExpression(long dispid, IDispatch* object, VARIANT* expression,
                                                  bool* supported) {
    RETURN_HR_IF(E_POINTER, object == nullptr || expression == nullptr || supported == nullptr);
    return ReadExpression(object, PropertyKey(dispid), *expression, *supported);
}

HRESULT CKvPeCtrlBase::SetPropertyExpressionAsString(long dispid, IDispatch* object, wchar_t* expression) {
    RETURN_HR_IF(E_POINTER, object == nullptr || expression == nullptr);
    return WriteExpression(object, PropertyKey(dispid), expression);
}

HRESULT CKvPeCtrlBase::SetPropertyExpressionAsString(IUnknown* dynamicProperty, IUnknown* object,
                                                     wchar_t* expression) {
    RETURN_HR_IF(E_POINTER, dynamicProperty == nullptr || object == nullptr || expression == nullptr);
    return WriteExpression(dynamicProperty, PropertyKey(object), expression);
}

HRESULT CKvPeCtrlBase::GetPropertyExpressionHelper(long dispid, IDispatch* object, CString& expression,
                                                   bool& supported) {
    expression.Empty();
    fw::Variant text;
    const HRESULT checked = CheckPropertyForExpression(dispid, object, text.Address(), &supported);
    if (SUCCEEDED(checked) && supported && text.Is(VT_BSTR)) {
        expression = text.StringView();
    }
    return checked;
}

HRESULT CKvPeCtrlBase::GetPropertyExpressionHelper(IUnknown* dynamicProperty, IUnknown* object,
                                                   CString& expression, bool& supported) {
    expression.Empty();
    fw::Variant text;
    const HRESULT checked = CheckPropertyForExpression(dynamicProperty, object, text.Address(), &supported);
    if (SUCCEEDED(checked) && supported && text.Is(VT_BSTR)) {
        expression = text.StringView();
    }
    return checked;
}

void CKvPeCtrlBase::UpdateExpressionSupportState(bool firstHadNoExpression, bool supported,
                                                 const CString& otherExpression) {
    if (!supported) {
        m_expressionState = ExpressionState_Unsupported;
        return;
    }
    if (otherExpression != m_expression) {
        // Deliberate: the text goes, so that a third object without an expression compares equal with it.
        m_expression.Empty();
        m_expressionState = ExpressionState_Mixed;
        return;
    }
    if (!m_expression.IsEmpty()) {
        m_expressionState = ExpressionState_Shared;
        return;
    }
    m_expressionState = firstHadNoExpression ? ExpressionState_NoExpression : ExpressionState_Mixed;
}

HRESULT CKvPeCtrlBase::GetDynamicPropertyValue(IDispatch* object, IDynamicProperty* property,
                                               VARIANT* value) {
    RETURN_HR_IF(E_POINTER, property == nullptr || value == nullptr);
    KvDbObjectId id;
    // An object without an id is asked for by the null id.
    if (FAILED(GetDatabaseObjectId(object, id))) {
        id = {};
    }
    return property->GetCurrentValueData(id, value);
}

HRESULT CKvPeCtrlBase::SetDynamicPropertyValue(IDispatch* object, IDynamicProperty* property,
                                               VARIANT* value) {
    RETURN_HR_IF(E_POINTER, property == nullptr || value == nullptr);
    KvDbObjectId id;
    if (FAILED(GetDatabaseObjectId(object, id))) {
        id = {};
    }
    return property->SetCurrentValueData(id, *value);
}
