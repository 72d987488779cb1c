#include "families/CPropNoDefaultWnd.h"

#include "core/ShellHold.h"
#include "families/CEditEx.h"
#include "families/CKvPeEditBase.h"
#include "framework/base/DeviceContexts.h"
#include "framework/base/Hresult.h"

namespace {

const fw::WindowClass c_windowClass{.name = L"KvPeUnspecifiedHint"};
constexpr UINT c_textFormat = DT_SINGLELINE | DT_VCENTER;
// Placing hides, so that a hint of a row that is not on the screen stays away.
constexpr UINT c_placeFlags = SWP_NOACTIVATE | SWP_HIDEWINDOW;

CPoint DesktopOrigin() {
    CRect desktop;
    ::GetWindowRect(::GetDesktopWindow(), &desktop);
    return desktop.TopLeft();
}

}  // namespace

CPropNoDefaultWnd::~CPropNoDefaultWnd() {
    DestroyWindow();
}

bool CPropNoDefaultWnd::Create(const RECT& bounds) {
    m_rectangle = bounds;
    return CreateEx(WS_EX_TOOLWINDOW, c_windowClass, L"", WS_POPUP, bounds, m_owner->m_hWnd) != FALSE;
}

void CPropNoDefaultWnd::Place(const RECT& bounds) {
    m_rectangle = bounds;
    const CPoint origin = DesktopOrigin();
    SetWindowPos(HWND_TOP, m_rectangle.left - origin.x, m_rectangle.top - origin.y, m_rectangle.Width(),
                 m_rectangle.Height(), c_placeFlags);
    m_lastPlace = OwnerPlace();
}

void CPropNoDefaultWnd::ShowAndWatch() {
    ShowWindow(SW_SHOWNA);
    m_timer = SetTimer(TimerId, TimerPeriod);
}

void CPropNoDefaultWnd::HideAndStop() {
    if (!IsWindow()) {
        return;
    }
    if (m_timer != 0) {
        KillTimer(TimerId);
        m_timer = 0;
    }
    ShowWindow(SW_HIDE);
}

CRect CPropNoDefaultWnd::OwnerPlace() const {
    CRect place = m_owner->GetWindowRect();
    const CPoint origin = DesktopOrigin();
    place.Offset(-origin.x, -origin.y);
    return place;
}

void CPropNoDefaultWnd::Draw(HDC dc, const RECT& bounds, const CString& text, HFONT font) {
    const fw::ScopedSaveDc saved(dc);
    ::SelectObject(dc, font ? font : ::GetStockObject(DEFAULT_GUI_FONT));
    ::FillRect(dc, &bounds, ::GetSysColorBrush(COLOR_HIGHLIGHT));
    ::SetBkColor(dc, ::GetSysColor(COLOR_HIGHLIGHT));
    ::SetTextColor(dc, ::GetSysColor(COLOR_HIGHLIGHTTEXT));
    CRect textRect = bounds;
    ::DrawTextW(dc, text, text.GetLength(), &textRect, c_textFormat);
}

LRESULT CPropNoDefaultWnd::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    static constexpr std::array s_messages{
        fw::OnMessage(WM_ERASEBKGND, &CPropNoDefaultWnd::OnEraseBackground),
        fw::OnMessage(WM_PAINT, &CPropNoDefaultWnd::OnPaint),
        fw::OnMessage(WM_PRINTCLIENT, &CPropNoDefaultWnd::OnPrintClient),
        fw::OnMessage(WM_TIMER, &CPropNoDefaultWnd::OnTimer),
        fw::OnMessage(WM_LBUTTONDOWN, &CPropNoDefaultWnd::OnLButtonDown),
    };
    LRESULT result = 0;
    return fw::DispatchMessage(s_messages, *this, message, wParam, lParam, result)
               ? result
               : CWnd::WindowProc(message, wParam, lParam);
}

LRESULT CPropNoDefaultWnd::OnEraseBackground(UINT, WPARAM, LPARAM, BOOL&) {
    return 1;
}

void CPropNoDefaultWnd::DrawInto(HDC dc) {
    const auto font = reinterpret_cast<HFONT>(::SendMessageW(m_owner->m_hWnd, WM_GETFONT, 0, 0));
    Draw(dc, GetClientRect(), GetWindowText(), font);
}

LRESULT CPropNoDefaultWnd::OnPaint(UINT, WPARAM, LPARAM, BOOL&) {
    const fw::PaintDc dc(m_hWnd);
    DrawInto(dc);
    return 0;
}

LRESULT CPropNoDefaultWnd::OnPrintClient(UINT, WPARAM wParam, LPARAM, BOOL&) {
    DrawInto(reinterpret_cast<HDC>(wParam));
    return 0;
}

LRESULT CPropNoDefaultWnd::OnTimer(UINT, WPARAM wParam, LPARAM, BOOL& handled) {
    if (wParam != TimerId) {
        handled = FALSE;
        return 0;
    }
    if (IsWindowVisible() && !(OwnerPlace() == m_lastPlace)) {
        HideAndStop();
    }
    return 0;
}

LRESULT CPropNoDefaultWnd::OnLButtonDown(UINT, WPARAM, LPARAM, BOOL&) {
    const CString text = GetWindowText();
    const HWND row = m_owner->GetParent();
    CKvPeEditBase* const control = m_owner->GetOwner();
    if (text.IsEmpty() || !row || !control) {
        return 0;
    }
    // The write below can lead the palette to let the row go, and this window with it.
    const fw::ComPtr<IUnknown> shell = HoldShell(control->Events());
    CRect bounds;
    ::GetClientRect(row, &bounds);
    control->ChooseText(bounds, text);
    ::SetFocus(row);
    return 0;
}
