#include "families/CPropertyEditorTextEx.h"

#include "core/ClassCreators.h"
#include "core/ExpressionState.h"
#include "families/CKvPeButtonEditTempl.h"
#include "families/CKvPeCalculatorTempl.h"
#include "framework/com/Variant.h"

CPropertyEditorTextEx::CPropertyEditorTextEx(CIPropEditUIEvents* events, CKvPeBasePrivate* shell)
    : CKvPeButtonEditBase(events, shell) {
    m_nButtonSide = ButtonSide_Right;
}

HRESULT CPropertyEditorTextEx::GetPropertyValue(VARIANT* value, ValueType& type) {
    RETURN_IF_FAILED_EXPECTED(CKvPeButtonEditBase::GetPropertyValue(value, type));
    if (m_expressionState != ExpressionState_Unsupported) {
        UpdateExpressionButton(m_expressionState);
    }
    return S_OK;
}

HRESULT CPropertyEditorTextEx::SetPropertyValue(VARIANT* value, ValueType type) {
    const HRESULT written = CKvPeButtonEditBase::SetPropertyValue(value, type);
    if (SUCCEEDED(written) || !value || m_expressionState == ExpressionState_Unsupported) {
        return written;
    }
    fw::Variant expression;
    RETURN_IF_FAILED(expression.CopyFrom(*value));
    return CKvPeButtonEditBase::SetPropertyValue(expression.Address(), ValueType_Expression);
}

KVPE_DEFINE_CREATOR(CPropertyEditorTextEx, CKvPeCalculatorTempl<CKvPeButtonEditTempl<CPropertyEditorTextEx>>)
