#pragma once

#include "families/CKvPeEditBase.h"

/// A text row whose value is masked. Its edit box lies over the row all the time, so that nothing paints the
/// value; only a read-only value is shown in plain.
class CPropertyEditorPwdText : public CKvPeEditBase {
public:
    using CKvPeEditBase::CKvPeEditBase;

    // CKvPeCtrlBase
    HRESULT BeginEdit(const RECT& bounds) override;
    HRESULT Handle_OnDraw(ATL_DRAWINFO& info) override;
    LRESULT Handle_ShowTextTip(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled) override;

private:
    [[nodiscard]] bool HasMaskedWindow() const;
    [[nodiscard]] HRESULT CreateMaskedWindow();
    void KeepMaskedWindowInStep();
};
