#pragma once

#include "families/CKvPeButtonEdit.h"

/// A text row that may be typed into, with a button for the property's dialog.
class CPropertyEditorEditButton : public CKvPeButtonEdit {
public:
    using CKvPeButtonEdit::CKvPeButtonEdit;

    // CKvPeCtrlBase
    HRESULT BeginEdit(const RECT& bounds) override;
};
