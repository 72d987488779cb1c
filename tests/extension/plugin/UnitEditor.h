#pragma once

#include "families/CKvPeEditBase.h"

/// A text row to which texts that differ in case alone are the same.
class UnitEditor final : public CKvPeEditBase {
public:
    using CKvPeEditBase::CKvPeEditBase;

    // CKvPeCtrlBase
    HRESULT ComparePropertyValue(VARIANT* first, VARIANT* second, int& result) override;
};
