#include "core/CPropTextTooltip.h"

#include <algorithm>

#include "core/PrivateMessages.h"
#include "framework/base/DeviceContexts.h"
#include "framework/base/Handles.h"
#include "framework/window/CDC.h"
#include "framework/window/MessageTable.h"

namespace {

const fw::WindowClass c_windowClass{.name = L"KvPeTextTip",
                                    .style = CS_HREDRAW | CS_VREDRAW | CS_SAVEBITS | CS_BYTEALIGNCLIENT};
constexpr COLORREF c_frameColor = 0x868686;
constexpr int c_corner = 1;

}  // namespace

CPropTextTooltip::~CPropTextTooltip() {
    DestroyWindow();
}

bool CPropTextTooltip::Create(HWND over) {
    if (!CreateEx(WS_EX_TOOLWINDOW, c_windowClass, L"", WS_POPUP, CRect(), over)) {
        return false;
    }
    ::SetWindowLongPtrW(m_hWnd, GWLP_USERDATA, KVPE_TEXT_TIP_MARK);
    // The window before may have gone with the palette's while it was shown.
    m_rectangle = CRect();
    m_timer = 0;
    m_shown = false;
    m_needsPaint = false;
    return true;
}

void CPropTextTooltip::SetOwner(HWND owner, HWND parent) {
    m_owner = owner;
    m_ownerParent = parent;
}

void CPropTextTooltip::ShowTextTooltip(const RECT& ownerRectangle) {
    if (!IsWindow() || m_shown) {
        return;
    }
    CRect wanted = ownerRectangle;
    ::MapWindowPoints(m_owner, nullptr, reinterpret_cast<POINT*>(&wanted), 2);
    CRect desktop;
    ::GetWindowRect(::GetDesktopWindow(), &desktop);
    const CRect placed = FitIntoDesktop(wanted, desktop);

    m_shown = true;
    SetWindowPos(HWND_TOPMOST, placed.left, placed.top, placed.Width(), placed.Height(), SWP_NOACTIVATE);
    m_rectangle = wanted;
    ScreenToClient(&m_rectangle);
    if (m_timer == 0) {
        m_timer = SetTimer(TimerId, TimerPeriod);
        m_needsPaint = true;
    }
}

void CPropTextTooltip::HideTextTooltip() {
    if (IsWindow()) {
        ShowWindow(SW_HIDE);
    }
    StopTimer();
    m_rectangle = CRect();
    m_shown = false;
    m_needsPaint = false;
}

bool CPropTextTooltip::IsTextTip(HWND window) {
    return window && ::GetWindowLongPtrW(window, GWLP_USERDATA) == KVPE_TEXT_TIP_MARK;
}

bool CPropTextTooltip::IsTextTip(HDC dc) {
    return IsTextTip(::WindowFromDC(dc));
}

CRect CPropTextTooltip::FitIntoDesktop(const RECT& wanted, const RECT& desktop) {
    const CRect area = desktop;
    CRect fitted = wanted;
    fitted.right = fitted.left + std::min(fitted.Width(), area.Width());
    fitted.bottom = fitted.top + std::min(fitted.Height(), area.Height());
    if (fitted.bottom > area.bottom) {
        fitted.Offset(0, area.bottom - fitted.bottom);
    }
    if (fitted.top < area.top) {
        fitted.Offset(0, area.top - fitted.top);
    }
    return fitted;
}

void CPropTextTooltip::DrawGround(HDC dc, const RECT& bounds) {
    ::FillRect(dc, &bounds, ::GetSysColorBrush(COLOR_INFOBK));
}

void CPropTextTooltip::DrawFrame(HDC dc, const RECT& bounds) {
    const fw::UniqueRegion region(
        ::CreateRoundRectRgn(bounds.left, bounds.top, bounds.right, bounds.bottom, c_corner, c_corner));
    const fw::UniqueBrush brush(::CreateSolidBrush(c_frameColor));
    ::FrameRgn(dc, region.Get(), brush.Get(), 1, 1);
}

LRESULT CPropTextTooltip::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    using Tip = CPropTextTooltip;
    static constexpr std::array s_messages{
        fw::OnMessage(WM_PAINT, &Tip::OnPaint),
        fw::OnMessage(WM_ERASEBKGND, &Tip::OnEraseBackground),
        fw::OnMessage(WM_TIMER, &Tip::OnTimer),
        fw::OnMessage(WM_LBUTTONDOWN, &Tip::OnMouseButton),
        fw::OnMessage(WM_LBUTTONUP, &Tip::OnMouseButton),
        fw::OnMessage(WM_RBUTTONDOWN, &Tip::OnMouseButton),
        fw::OnMessage(WM_RBUTTONUP, &Tip::OnMouseButton),
        fw::OnMessage(WM_MBUTTONDOWN, &Tip::OnMouseButton),
        fw::OnMessage(WM_NCLBUTTONDOWN, &Tip::OnFrameMouseButton),
        fw::OnMessage(WM_NCLBUTTONUP, &Tip::OnFrameMouseButton),
        fw::OnMessage(WM_NCRBUTTONDOWN, &Tip::OnFrameMouseButton),
        fw::OnMessage(WM_NCRBUTTONUP, &Tip::OnFrameMouseButton),
    };
    LRESULT result = 0;
    return fw::DispatchMessage(s_messages, *this, message, wParam, lParam, result)
               ? result
               : CWnd::WindowProc(message, wParam, lParam);
}

LRESULT CPropTextTooltip::OnPaint(UINT, WPARAM, LPARAM, BOOL&) {
    const fw::PaintDc dc(m_hWnd);
    const CRect client = GetClientRect();
    const bool drawsText = m_needsPaint;
    if (drawsText) {
        DrawGround(dc, client);
    }
    DrawFrame(dc, client);
    if (drawsText) {
        m_needsPaint = false;
        // The owner draws into this window; its handle goes along, since an owner may have two tips.
        ::SendMessageW(m_owner, WM_KVPE_DRAW_TIP, KVPE_TEXT_TIP_MARK, reinterpret_cast<LPARAM>(m_hWnd));
    }
    return 0;
}

// The text stays when only the frame is painted again.
LRESULT CPropTextTooltip::OnEraseBackground(UINT, WPARAM, LPARAM, BOOL&) {
    return 1;
}

LRESULT CPropTextTooltip::OnTimer(UINT, WPARAM wParam, LPARAM, BOOL& handled) {
    if (wParam != TimerId) {
        handled = FALSE;
        return 0;
    }
    CPoint cursor;
    ::GetCursorPos(&cursor);
    ScreenToClient(&cursor);
    const bool ownerIsGone = m_owner && !::IsWindow(m_owner);
    if (ownerIsGone || !m_rectangle.Contains(cursor)) {
        HideTextTooltip();
        Invalidate();
        return 0;
    }
    if (!IsWindowVisible()) {
        ShowWindow(SW_SHOWNOACTIVATE);
    }
    const fw::LifeWatch alive(*this);
    UpdateWindow();
    if (alive && IsWindow()) {
        m_timer = SetTimer(TimerId, TimerPeriod);
        Invalidate();
    }
    return 0;
}

LRESULT CPropTextTooltip::OnMouseButton(UINT message, WPARAM wParam, LPARAM lParam, BOOL&) {
    CPoint point(lParam);
    ClientToScreen(&point);
    HandOn(message, wParam, point);
    return 0;
}

LRESULT CPropTextTooltip::OnFrameMouseButton(UINT message, WPARAM wParam, LPARAM lParam, BOOL&) {
    HandOn(message, wParam, CPoint(lParam));
    return 0;
}

void CPropTextTooltip::HandOn(UINT message, WPARAM wParam, POINT screenPoint) {
    HideTextTooltip();
    if (!m_owner) {
        return;  // a post to no window would go to the thread's loop
    }
    CPoint point = screenPoint;
    ::ScreenToClient(m_owner, &point);
    ::PostMessageW(m_owner, message, wParam, point.Packed());
    ::SetFocus(m_owner);
}

void CPropTextTooltip::StopTimer() {
    if (m_timer != 0 && IsWindow()) {
        KillTimer(TimerId);
    }
    m_timer = 0;
}
