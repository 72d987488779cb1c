#include "numeric/CPropertyEditorNumeric.h"

#include "core/ClassCreators.h"
#include "families/CKvPeButtonEditTempl.h"
#include "families/CKvPeCalculatorTempl.h"
#include "families/NumberText.h"

HRESULT CPropertyEditorNumeric::Handle_InitEditControl(VARIANT* objects, VARIANT* dynamicProperties,
                                                       VARIANT* dispids, short readOnly) {
    const HRESULT initialized =
        CKvPeNumericBase::Handle_InitEditControl(objects, dynamicProperties, dispids, readOnly);
    ProbePropertyValueType();  // without an answer the number counts as a real
    return initialized;
}

bool CPropertyEditorNumeric::FormatNumber(const VARIANT& value, CString& text) const {
    return VariantToHostText(value, text);
}

bool CPropertyEditorNumeric::ParseNumber(const CString& text, VARIANT& value) const {
    return TextToVariant(text, m_propertyVarType, value);
}

KVPE_DEFINE_CREATOR(CPropertyEditorNumeric,
                    CKvPeCalculatorTempl<CKvPeButtonEditTempl<CPropertyEditorNumeric>>)
