#pragma once

#include "families/CKvPeButtonEditBase.h"

/// A row of hyperlinks, which change through the host's dialog only.
class CPropertyEditorEllipsesHyperlinks : public CKvPeButtonEditBase {
public:
    CPropertyEditorEllipsesHyperlinks(CIPropEditUIEvents* events, CKvPeBasePrivate* shell);

    // CKvPeCtrlBase
    HRESULT BeginEdit(const RECT& bounds) override;
    /// Two hyperlink values are equal when their first links are.
    HRESULT ComparePropertyValue(VARIANT* first, VARIANT* second, int& result) override;
    HRESULT PropertySysKeyDown(UINT key, UINT repeat, UINT flags, bool& handled) override;
    HRESULT Handle_InitEditControl(VARIANT* objects, VARIANT* dynamicProperties, VARIANT* dispids,
                                   short readOnly) override;
    HRESULT Handle_Refresh() override;

    // CKvPeButtonEditBase
    HRESULT OnCustomButton(WORD id) override;

private:
    void AskPropertyFlags();
};
