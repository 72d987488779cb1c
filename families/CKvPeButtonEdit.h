#pragma once

#include "families/CKvPeButtonEditBase.h"

/// A text row whose first button opens the property's dialog.
class KVPEX_API CKvPeButtonEdit : public CKvPeButtonEditBase {
public:
    CKvPeButtonEdit(CIPropEditUIEvents* events, CKvPeBasePrivate* shell);

    // CKvPeCtrlBase
    HRESULT PropertySysKeyDown(UINT key, UINT repeat, UINT flags, bool& handled) override;
    HRESULT Handle_Refresh() override;

    // CKvPeButtonEditBase
    HRESULT OnCustomButton(WORD id) override;
};
