#include "families/CEditEx.h"

#include "core/EditState.h"
#include "core/PrivateMessages.h"
#include "core/ShellHold.h"
#include "families/CKvPeEditBase.h"
#include "families/CPropNoDefaultWnd.h"
#include "framework/base/Hresult.h"

namespace {

bool IsShiftDown() {
    return ::GetKeyState(VK_SHIFT) < 0;
}

}  // namespace

CEditEx::CEditEx(CKvPeEditBase* owner) : m_owner(owner) {
}

CEditEx::~CEditEx() {
    DestroyWindow();
}

void CEditEx::ResetSelection() {
    HideTheCaret();
    if (IsReadOnly()) {
        SetSel(-1, 0);
    } else {
        SetSel(0, -1);
    }
    ScrollCaret();
    m_caretShown = FALSE;
}

void CEditEx::SetNextFocusWindow(CWnd* window) {
    m_nextFocusWindow = window;
    m_tabToNextWindow = window != nullptr;
}

void CEditEx::ForgetNextFocusWindow(const CWnd* window) {
    if (m_nextFocusWindow == window) {
        SetNextFocusWindow(nullptr);
    }
}

BOOL CEditEx::PreTranslateMessage(MSG* message) {
    if (message->hwnd != m_hWnd) {
        return CEdit::PreTranslateMessage(message);
    }
    const fw::ComPtr<IUnknown> shell = HoldShell(m_owner->Events());
    const fw::LifeWatch alive(*this);
    BOOL swallowed = FALSE;
    if (message->message == WM_KEYDOWN) {
        swallowed = OnKeyDown(*message);
    } else if (message->message == WM_LBUTTONDOWN || message->message == WM_LBUTTONUP) {
        swallowed = OnLeftButton(message->message);
    }
    return swallowed || !alive ? swallowed : CEdit::PreTranslateMessage(message);
}

BOOL CEditEx::OnKeyDown(const MSG& message) {
    Invalidate();
    m_caretShown = TRUE;
    ShowTheCaret();
    switch (message.wParam) {
        case VK_TAB:
            return OnTabKey(message.lParam);
        case VK_RETURN:
            return OnReturnKey(message.lParam);
        case VK_ESCAPE:
            return OnEscapeKey();
        default:
            return FALSE;
    }
}

BOOL CEditEx::OnTabKey(LPARAM keyData) {
    CKvPeEditBase* const owner = m_owner;
    const bool toNextWindow = m_tabToNextWindow && !IsShiftDown();
    const fw::LifeWatch alive(*this);
    // A refused text was told to the user and taken back; the focus moves on all the same.
    fw::Ignore(owner->EndEdit());
    if (!toNextWindow) {
        fw::Ignore(owner->Fire_OnKeyDown(VK_TAB, keyData));
    } else if (alive && m_nextFocusWindow) {
        m_nextFocusWindow->SetFocus();
    }
    return TRUE;
}

BOOL CEditEx::OnReturnKey(LPARAM keyData) {
    CKvPeEditBase* const owner = m_owner;
    const fw::LifeWatch alive(*this);
    m_inReturnKey = TRUE;
    fw::Ignore(owner->EndEdit());  // as for Tab
    if (alive) {
        m_inReturnKey = FALSE;
    }
    fw::Ignore(owner->Fire_OnKeyDown(VK_RETURN, keyData));
    return TRUE;
}

BOOL CEditEx::OnEscapeKey() {
    const fw::LifeWatch alive(*this);
    // A read that fails leaves the text that was shown last.
    fw::Ignore(m_owner->Handle_Refresh());
    if (alive) {
        ResetSelection();
    }
    return TRUE;
}

BOOL CEditEx::OnLeftButton(UINT message) {
    if (IsReadOnly()) {
        HideTheCaret();
        return TRUE;
    }
    if (message == WM_LBUTTONDOWN) {
        m_caretShown = TRUE;
    }
    if (m_caretShown) {
        ShowTheCaret();
    }
    return FALSE;
}

void CEditEx::HideTheCaret() {
    if (!m_caretHidden && ::HideCaret(m_hWnd)) {
        m_caretHidden = true;
    }
}

void CEditEx::ShowTheCaret() {
    if (m_caretHidden && ::ShowCaret(m_hWnd)) {
        m_caretHidden = false;
    }
}

void CEditEx::SetCaretByState() {
    if (m_caretShown) {
        ShowTheCaret();
    } else {
        HideTheCaret();
    }
}

LRESULT CEditEx::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    static constexpr std::array s_messages{
        fw::OnMessage(WM_SETFOCUS, &CEditEx::OnSetFocus),
        fw::OnMessage(WM_KILLFOCUS, &CEditEx::OnKillFocus),
        fw::OnMessage(WM_SETCURSOR, &CEditEx::OnSetCursor),
        fw::OnMessage(WM_GETDLGCODE, &CEditEx::OnGetDlgCode),
        fw::OnMessage(WM_MOUSEWHEEL, &CEditEx::OnMouseWheel),
        fw::OnMessage(WM_MOUSEMOVE, &CEditEx::OnMouseMove),
        fw::OnMessage(WM_CONTEXTMENU, &CEditEx::OnContextMenu),
        fw::OnMessage(WM_RBUTTONDOWN, &CEditEx::OnRButtonDown),
        fw::OnMessage(WM_MBUTTONDOWN, &CEditEx::OnMButtonDown),
        fw::OnMessage(WM_LBUTTONDBLCLK, &CEditEx::OnLButtonDblClk),
        fw::OnMessage(WM_SYSKEYDOWN, &CEditEx::OnSysKeyDown),
        fw::OnMessage(WM_KVPE_DRAW_TIP, &CEditEx::OnDrawTip),
    };
    // Ending an edit can lead the palette to let the row go.
    const fw::ComPtr<IUnknown> shell = HoldShell(m_owner->Events());
    LRESULT result = 0;
    return fw::DispatchMessage(s_messages, *this, message, wParam, lParam, result)
               ? result
               : CEdit::WindowProc(message, wParam, lParam);
}

LRESULT CEditEx::OnSetFocus(UINT, WPARAM, LPARAM, BOOL&) {
    const fw::LifeWatch alive(*this);
    const LRESULT result = DefWindowProc();
    if (alive) {
        m_caretHidden = false;  // the box has made its caret anew
        SetCaretByState();
    }
    return result;
}

LRESULT CEditEx::OnKillFocus(UINT, WPARAM newFocus, LPARAM, BOOL&) {
    const fw::LifeWatch alive(*this);
    const LRESULT result = DefWindowProc();
    if (!alive) {
        return result;
    }
    int state = 0;
    if (SUCCEEDED(m_owner->GetState(state)) && state >= EditState_InEdit) {
        fw::Ignore(m_owner->EndEdit());  // a refused text was told to the user and taken back
    }
    if (alive && !(m_noDefaultWindow && reinterpret_cast<HWND>(newFocus) == m_noDefaultWindow->m_hWnd)) {
        ShowUnspecifiedHint(false);
    }
    return result;
}

LRESULT CEditEx::OnSetCursor(UINT, WPARAM, LPARAM lParam, BOOL& handled) {
    if (!IsOverClient(lParam)) {
        handled = FALSE;
        return 0;
    }
    ::SetCursor(::LoadCursorW(nullptr, IsReadOnly() ? IDC_ARROW : IDC_IBEAM));
    return TRUE;
}

LRESULT CEditEx::OnGetDlgCode(UINT, WPARAM, LPARAM, BOOL&) {
    return DefWindowProc() | DLGC_WANTALLKEYS;
}

LRESULT CEditEx::OnMouseWheel(UINT message, WPARAM wParam, LPARAM lParam, BOOL&) {
    return ::SendMessageW(GetParent(), message, wParam, lParam);
}

LRESULT CEditEx::OnMouseMove(UINT, WPARAM, LPARAM, BOOL&) {
    m_tipRect = GetClientRect();
    ClientToScreen(&m_tipRect);
    ApplyTipRule();
    return DefWindowProc();
}

LRESULT CEditEx::OnContextMenu(UINT, WPARAM wParam, LPARAM lParam, BOOL&) {
    if (!IsReadOnly()) {
        const fw::LifeWatch alive(*this);
        const LRESULT result = DefWindowProc();
        if (alive) {
            Invalidate();
        }
        return result;
    }
    if (reinterpret_cast<HWND>(wParam) == m_hWnd) {
        CPoint point(lParam);
        ::ScreenToClient(GetParent(), &point);
        fw::Ignore(m_owner->Fire_OnRButtonDown(0, point.Packed()));  // no sink can change what follows
    }
    return 0;
}

LRESULT CEditEx::OnRButtonDown(UINT, WPARAM wParam, LPARAM lParam, BOOL& handled) {
    if (IsReadOnly()) {
        fw::Ignore(m_owner->Fire_OnRButtonDown(wParam, ToParent(lParam).Packed()));  // as above
    } else {
        handled = FALSE;
    }
    return 0;
}

LRESULT CEditEx::OnMButtonDown(UINT, WPARAM wParam, LPARAM lParam, BOOL&) {
    fw::Ignore(m_owner->Fire_OnMButtonDown(wParam, ToParent(lParam).Packed()));  // as above
    return 0;
}

LRESULT CEditEx::OnLButtonDblClk(UINT, WPARAM, LPARAM, BOOL& handled) {
    handled = IsReadOnly();
    return 0;
}

LRESULT CEditEx::OnSysKeyDown(UINT, WPARAM wParam, LPARAM lParam, BOOL& handled) {
    bool done = false;
    const HRESULT asked =
        m_owner->PropertySysKeyDown(static_cast<UINT>(wParam), LOWORD(lParam), HIWORD(lParam), done);
    handled = SUCCEEDED(asked) && done;
    return 0;
}

CPoint CEditEx::ToParent(LPARAM clientPoint) const {
    CPoint point(clientPoint);
    MapWindowPoints(GetParent(), &point, 1);
    return point;
}
