#include <string>

#include "framework/window/CWnd.h"

// Without a window the system would take many of these calls for the screen, for all windows or for the
// thread: they do nothing then.

void CWnd::SetWindowText(const wchar_t* text) {
    ::SetWindowTextW(m_hWnd, text);
}

void CWnd::GetWindowText(CString& text) const {
    text = GetWindowText();
}

CString CWnd::GetWindowText() const {
    const int length = GetWindowTextLength();
    if (length <= 0) {
        return {};
    }
    std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
    const int copied = ::GetWindowTextW(m_hWnd, text.data(), length + 1);
    text.resize(static_cast<std::size_t>(copied));
    return text;
}

int CWnd::GetWindowTextLength() const {
    return m_hWnd ? ::GetWindowTextLengthW(m_hWnd) : 0;
}

DWORD CWnd::GetStyle() const {
    return static_cast<DWORD>(::GetWindowLongPtrW(m_hWnd, GWL_STYLE));
}

DWORD CWnd::GetExStyle() const {
    return static_cast<DWORD>(::GetWindowLongPtrW(m_hWnd, GWL_EXSTYLE));
}

bool CWnd::ModifyStyle(DWORD remove, DWORD add, UINT flags) {
    const DWORD old = GetStyle();
    const DWORD wanted = (old & ~remove) | add;
    if (old == wanted) {
        return false;
    }
    ::SetWindowLongPtrW(m_hWnd, GWL_STYLE, static_cast<LONG_PTR>(wanted));
    if (flags != 0) {
        SetWindowPos(nullptr, 0, 0, 0, 0,
                     flags | SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
    }
    return true;
}

int CWnd::GetDlgCtrlID() const {
    return ::GetDlgCtrlID(m_hWnd);
}

BOOL CWnd::ShowWindow(int command) {
    return ::ShowWindow(m_hWnd, command);
}

BOOL CWnd::IsWindowVisible() const {
    return ::IsWindowVisible(m_hWnd);
}

BOOL CWnd::EnableWindow(BOOL enable) {
    return ::EnableWindow(m_hWnd, enable);
}

BOOL CWnd::IsWindowEnabled() const {
    return ::IsWindowEnabled(m_hWnd);
}

void CWnd::GetWindowRect(RECT* bounds) const {
    if (!::GetWindowRect(m_hWnd, bounds)) {
        *bounds = {};
    }
}

CRect CWnd::GetWindowRect() const {
    CRect bounds;
    GetWindowRect(&bounds);
    return bounds;
}

void CWnd::GetClientRect(RECT* bounds) const {
    if (!::GetClientRect(m_hWnd, bounds)) {
        *bounds = {};
    }
}

CRect CWnd::GetClientRect() const {
    CRect bounds;
    GetClientRect(&bounds);
    return bounds;
}

BOOL CWnd::SetWindowPos(HWND after, int x, int y, int width, int height, UINT flags) {
    return ::SetWindowPos(m_hWnd, after, x, y, width, height, flags);
}

void CWnd::MoveWindow(int x, int y, int width, int height, BOOL repaint) {
    ::MoveWindow(m_hWnd, x, y, width, height, repaint);
}

void CWnd::MoveWindow(const RECT& bounds, BOOL repaint) {
    MoveWindow(bounds.left, bounds.top, bounds.right - bounds.left, bounds.bottom - bounds.top, repaint);
}

BOOL CWnd::BringWindowToTop() {
    return ::BringWindowToTop(m_hWnd);
}

void CWnd::Invalidate(BOOL erase) {
    InvalidateRect(nullptr, erase);
}

void CWnd::InvalidateRect(const RECT* bounds, BOOL erase) {
    if (m_hWnd) {
        ::InvalidateRect(m_hWnd, bounds, erase);
    }
}

void CWnd::UpdateWindow() {
    ::UpdateWindow(m_hWnd);
}

BOOL CWnd::RedrawWindow(const RECT* bounds, HRGN region, UINT flags) {
    return m_hWnd ? ::RedrawWindow(m_hWnd, bounds, region, flags) : FALSE;
}

void CWnd::SetRedraw(BOOL redraw) {
    SendMessage(WM_SETREDRAW, static_cast<WPARAM>(redraw));
}

void CWnd::SetFont(HFONT font, BOOL redraw) {
    SendMessage(WM_SETFONT, reinterpret_cast<WPARAM>(font), MAKELPARAM(redraw, 0));
}

HFONT CWnd::GetFont() const {
    return reinterpret_cast<HFONT>(SendMessage(WM_GETFONT));
}

HWND CWnd::SetFocus() {
    return m_hWnd ? ::SetFocus(m_hWnd) : nullptr;
}

bool CWnd::HasFocus() const {
    return m_hWnd && ::GetFocus() == m_hWnd;
}

HWND CWnd::SetCapture() {
    return m_hWnd ? ::SetCapture(m_hWnd) : nullptr;
}

void CWnd::HideCaret() {
    if (m_hWnd) {
        ::HideCaret(m_hWnd);
    }
}

void CWnd::ShowCaret() {
    if (m_hWnd) {
        ::ShowCaret(m_hWnd);
    }
}

HWND CWnd::GetParent() const {
    return ::GetParent(m_hWnd);
}

HWND CWnd::GetDlgItem(int id) const {
    return ::GetDlgItem(m_hWnd, id);
}

BOOL CWnd::IsChild(HWND window) const {
    return ::IsChild(m_hWnd, window);
}

void CWnd::ClientToScreen(POINT* point) const {
    ::ClientToScreen(m_hWnd, point);
}

void CWnd::ClientToScreen(RECT* bounds) const {
    MapWindowPoints(nullptr, bounds);
}

void CWnd::ScreenToClient(POINT* point) const {
    ::ScreenToClient(m_hWnd, point);
}

void CWnd::ScreenToClient(RECT* bounds) const {
    if (m_hWnd) {
        ::MapWindowPoints(nullptr, m_hWnd, reinterpret_cast<POINT*>(bounds), 2);
    }
}

void CWnd::MapWindowPoints(HWND target, POINT* points, UINT count) const {
    if (m_hWnd) {
        ::MapWindowPoints(m_hWnd, target, points, count);
    }
}

void CWnd::MapWindowPoints(HWND target, RECT* bounds) const {
    MapWindowPoints(target, reinterpret_cast<POINT*>(bounds), 2);
}

LRESULT CWnd::SendMessage(UINT message, WPARAM wParam, LPARAM lParam) const {
    return m_hWnd ? ::SendMessageW(m_hWnd, message, wParam, lParam) : 0;
}

BOOL CWnd::PostMessage(UINT message, WPARAM wParam, LPARAM lParam) const {
    return m_hWnd ? ::PostMessageW(m_hWnd, message, wParam, lParam) : FALSE;
}

UINT_PTR CWnd::SetTimer(UINT_PTR id, UINT milliseconds) {
    return m_hWnd ? ::SetTimer(m_hWnd, id, milliseconds, nullptr) : 0;
}

BOOL CWnd::KillTimer(UINT_PTR id) {
    return m_hWnd ? ::KillTimer(m_hWnd, id) : FALSE;
}
