#pragma once

#include "families/CKvPeButtonEditBase.h"

/// A text row whose property may take an expression; a button shows whether it has one.
class CPropertyEditorTextEx : public CKvPeButtonEditBase {
public:
    CPropertyEditorTextEx(CIPropEditUIEvents* events, CKvPeBasePrivate* shell);

    // CKvPeCtrlBase
    HRESULT GetPropertyValue(VARIANT* value, ValueType& type) override;
    /// A text that the property refuses as a value is offered to it as an expression.
    HRESULT SetPropertyValue(VARIANT* value, ValueType type) override;
};
