#pragma once

#include "numeric/CKvPeNumericBase.h"

/// A number under the property's own type: a real is a length, an integer is plain.
class CPropertyEditorNumeric : public CKvPeNumericBase {
public:
    using CKvPeNumericBase::CKvPeNumericBase;

    // CKvPeCtrlBase
    HRESULT Handle_InitEditControl(VARIANT* objects, VARIANT* dynamicProperties, VARIANT* dispids,
                                   short readOnly) override;

protected:
    // CKvPeNumericBase
    bool FormatNumber(const VARIANT& value, CString& text) const override;
    bool ParseNumber(const CString& text, VARIANT& value) const override;
};
