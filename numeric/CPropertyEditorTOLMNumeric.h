#pragma once

#include "numeric/CKvPeNumericBase.h"

/// A real whose meaning the palette tells: a distance, an angle, a raw angle or a number without units.
class CPropertyEditorTOLMNumeric : public CKvPeNumericBase {
public:
    CPropertyEditorTOLMNumeric(CIPropEditUIEvents* events, CKvPeBasePrivate* shell);

protected:
    // CKvPeNumericBase
    bool FormatNumber(const VARIANT& value, CString& text) const override;
    bool ParseNumber(const CString& text, VARIANT& value) const override;
};
