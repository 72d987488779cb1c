#pragma once

#include "families/CEditEx.h"

class CPropertyEditorPwdText;

/// The masked edit box.
class CPWEdit : public CEditEx {
public:
    explicit CPWEdit(CPropertyEditorPwdText* control);

    // CWnd
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

protected:
    // CEditEx
    void ApplyTipRule() override {}  // a tip would show the value

private:
    LRESULT OnLButtonDown(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    LRESULT OnMaskedKillFocus(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    LRESULT OnMaskedSetCursor(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);

    CPropertyEditorPwdText* m_control;  // the row, which owns this object
    bool m_clicked = false;             // since the focus came
};
