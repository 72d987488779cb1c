#include "palette/window/StatusLine.h"

#include "framework/base/DeviceContexts.h"
#include "palette/theme/Scale.h"

namespace kvpalette {

namespace {

constexpr fw::WindowClass c_statusClass{L"KvPaletteStatusLine", CS_HREDRAW, fw::ArrowCursor};
constexpr int c_margin = 10;
constexpr int c_placeWidth = 220;

}  // namespace

bool StatusLine::Create(HWND parent) {
    return CWnd::Create(c_statusClass, L"", WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS, {}, parent) != FALSE;
}

void StatusLine::SetMessage(const std::wstring& message) {
    m_message = message;
    Invalidate(FALSE);
}

void StatusLine::SetPlace(const std::wstring& place) {
    m_place = place;
    Invalidate(FALSE);
}

LRESULT StatusLine::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    LRESULT result = 0;
    return fw::DispatchMessage(s_messages, *this, message, wParam, lParam, result)
               ? result
               : CWnd::WindowProc(message, wParam, lParam);
}

LRESULT StatusLine::OnPaint(UINT, WPARAM, LPARAM, BOOL&) {
    const fw::PaintDc dc(m_hWnd);
    const CRect client = GetClientRect();
    FillColor(dc, client, theme::c_frame);
    FillColor(dc, {0, 0, client.right, 1}, theme::c_line);
    DrawLineOfText(dc, {Scaled(c_margin), 1, client.right - Scaled(c_placeWidth), client.bottom},
                   m_message.c_str(), m_fonts.plain.Get(), theme::c_softText);
    DrawLineOfText(dc,
                   {client.right - Scaled(c_placeWidth), 1, client.right - Scaled(c_margin), client.bottom},
                   m_place.c_str(), m_fonts.plain.Get(), theme::c_softText, DT_RIGHT | DT_VCENTER);
    return 0;
}

LRESULT StatusLine::OnEraseBackground(UINT, WPARAM, LPARAM, BOOL&) {
    return 1;
}

}  // namespace kvpalette
