#pragma once

#include "families/CKvPeEditBase.h"

/// A text row for quantities: texts that differ in blanks alone, "12 mm" and "12mm", are the same.
class UnitEditor final : public CKvPeEditBase {
public:
    using CKvPeEditBase::CKvPeEditBase;

    // CKvPeCtrlBase
    HRESULT ComparePropertyValue(VARIANT* first, VARIANT* second, int& result) override;
};
