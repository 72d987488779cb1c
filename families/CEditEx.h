#pragma once

#include <memory>

#include "core/CPropTextTooltip.h"
#include "framework/window/CEdit.h"

class CKvPeEditBase;
class CPropNoDefaultWnd;

/// The edit box that lies over a row while its text is edited. It belongs to the row's logic and ends the
/// edit there: on Tab and Return, and when the focus goes.
class CEditEx : public CEdit {
public:
    explicit CEditEx(CKvPeEditBase* owner);
    ~CEditEx() override;

    /// Selects all, or nothing in a read-only box, and takes the caret away until the user types or clicks.
    void ResetSelection();

    /// Only where the unspecified state is allowed.
    void SetAllowUnspecified(bool allow) { m_allowUnspecified = allow; }
    void ShowUnspecifiedHint(bool show);
    /// Takes the hint away when the row has left it.
    void CheckUnspecifiedHintPosition();

    /// Tab goes to this window instead of leaving the row; null for none. Not owned.
    void SetNextFocusWindow(CWnd* window);
    /// To be told before the window ends.
    void ForgetNextFocusWindow(const CWnd* window);

    CKvPeEditBase* GetOwner() const { return m_owner; }
    bool IsInReturnKey() const { return m_inReturnKey != FALSE; }
    /// The user has begun to type or has clicked.
    bool IsCaretShown() const { return m_caretShown != FALSE; }
    void HideTheCaret();

    // CWnd
    BOOL PreTranslateMessage(MSG* message) override;
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

protected:
    LRESULT OnKillFocus(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    /// Shows the value in full while the box does not show an edit and is too narrow.
    virtual void ApplyTipRule();
    /// The kind of cursor over the client area is set. False outside of it.
    static bool IsOverClient(LPARAM setCursorParameter) { return LOWORD(setCursorParameter) == HTCLIENT; }

private:
    LRESULT OnSetFocus(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    LRESULT OnSetCursor(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    LRESULT OnGetDlgCode(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    LRESULT OnMouseWheel(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    LRESULT OnMouseMove(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    LRESULT OnContextMenu(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    LRESULT OnRButtonDown(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    LRESULT OnMButtonDown(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    LRESULT OnLButtonDblClk(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    LRESULT OnSysKeyDown(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    LRESULT OnDrawTip(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);

    BOOL OnKeyDown(const MSG& message);
    BOOL OnTabKey(LPARAM keyData);
    BOOL OnReturnKey(LPARAM keyData);
    BOOL OnEscapeKey();
    BOOL OnLeftButton(UINT message);
    void ShowTheCaret();
    void SetCaretByState();
    CPoint ToParent(LPARAM clientPoint) const;
    CRect HintPlace() const;

    CKvPeEditBase* m_owner;             // the row, which owns this object
    CWnd* m_nextFocusWindow = nullptr;  // not owned
    BOOL m_inReturnKey = FALSE;
    std::unique_ptr<CPropNoDefaultWnd> m_noDefaultWindow;
    CRect m_hintRect;  // screen coordinates
    bool m_allowUnspecified = false;
    CPropTextTooltip m_textTip;  // while this box lies on top of the row
    CRect m_tipRect;             // screen coordinates
    BOOL m_tabToNextWindow = FALSE;
    BOOL m_caretShown = FALSE;
    bool m_caretHidden = false;  // the system counts; we hide and show once
};
