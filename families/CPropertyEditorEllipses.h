#pragma once

#include "families/CKvPeButtonEdit.h"

/// A text row that changes through the property's dialog only.
class CPropertyEditorEllipses : public CKvPeButtonEdit {
public:
    CPropertyEditorEllipses(CIPropEditUIEvents* events, CKvPeBasePrivate* shell);

    // CKvPeCtrlBase
    HRESULT BeginEdit(const RECT& bounds) override;

private:
    [[nodiscard]] bool ShowsButtonWhenReadOnly();
};
