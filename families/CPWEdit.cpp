#include "families/CPWEdit.h"

#include "core/CIPropEditUIEvents.h"
#include "core/ShellHold.h"
#include "families/CPropertyEditorPwdText.h"
#include "framework/base/Hresult.h"

CPWEdit::CPWEdit(CPropertyEditorPwdText* control) : CEditEx(control), m_control(control) {
}

LRESULT CPWEdit::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    static constexpr std::array s_messages{
        fw::OnMessage(WM_LBUTTONDOWN, &CPWEdit::OnLButtonDown),
        fw::OnMessage(WM_KILLFOCUS, &CPWEdit::OnMaskedKillFocus),
        fw::OnMessage(WM_SETCURSOR, &CPWEdit::OnMaskedSetCursor),
    };
    const fw::ComPtr<IUnknown> shell = HoldShell(m_control->Events());
    LRESULT result = 0;
    return fw::DispatchMessage(s_messages, *this, message, wParam, lParam, result)
               ? result
               : CEditEx::WindowProc(message, wParam, lParam);
}

// Deliberate: the box's own handling never runs, so that a click places no caret in a text that nobody can
// read.
LRESULT CPWEdit::OnLButtonDown(UINT, WPARAM, LPARAM, BOOL&) {
    const bool first = !m_clicked;
    m_clicked = true;
    if (first) {
        fw::Ignore(m_control->Events()->FireClickEvent());  // no sink can change what follows
    }
    return 0;
}

LRESULT CPWEdit::OnMaskedKillFocus(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled) {
    m_clicked = false;
    return OnKillFocus(message, wParam, lParam, handled);
}

LRESULT CPWEdit::OnMaskedSetCursor(UINT, WPARAM, LPARAM lParam, BOOL&) {
    const bool inText = m_clicked && IsOverClient(lParam) && !IsReadOnly();
    ::SetCursor(::LoadCursorW(nullptr, inText ? IDC_IBEAM : IDC_ARROW));
    return TRUE;
}
