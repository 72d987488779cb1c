#include "palette/window/ToolStrip.h"

#include <utility>

#include "framework/base/DeviceContexts.h"
#include "palette/theme/Scale.h"
#include "palette/window/ToolPictures.h"

namespace kvpalette {

namespace {

constexpr fw::WindowClass c_stripClass{L"KvPaletteToolStrip", 0, fw::ArrowCursor};
constexpr int c_margin = 6;
constexpr int c_groupGap = 13;
constexpr int c_pictureSize = 16;
constexpr int c_padding = 8;
constexpr int c_textGap = 6;

int TextWidth(HFONT font, const wchar_t* text) {
    const fw::WindowDc screen(nullptr);
    const fw::ScopedSelect selected(screen, font);
    SIZE size{};
    ::GetTextExtentPoint32W(screen, text, ::lstrlenW(text), &size);
    return static_cast<int>(size.cx);
}

}  // namespace

ToolStrip::ToolStrip(const Fonts& fonts, std::vector<Button> buttons)
    : m_fonts(fonts), m_buttons(std::move(buttons)) {
}

ToolStrip::~ToolStrip() {
    DestroyWindow();
}

bool ToolStrip::Create(HWND parent) {
    return CWnd::Create(c_stripClass, L"", WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS, {}, parent) != FALSE;
}

void ToolStrip::EnableButton(int command, bool enabled) {
    for (Button& button : m_buttons) {
        if (button.command == command && button.enabled != enabled) {
            button.enabled = enabled;
            Invalidate(FALSE);
        }
    }
}

LRESULT ToolStrip::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    LRESULT result = 0;
    return fw::DispatchMessage(s_messages, *this, message, wParam, lParam, result)
               ? result
               : CWnd::WindowProc(message, wParam, lParam);
}

RECT ToolStrip::ButtonRect(std::size_t index) const {
    int left = Scaled(c_margin);
    for (std::size_t i = 0;; ++i) {
        const Button& button = m_buttons[i];
        const int text = button.text[0] ? TextWidth(m_fonts.plain.Get(), button.text) + Scaled(c_textGap) : 0;
        const int width = Scaled(c_pictureSize) + 2 * Scaled(c_padding) + text;
        left += button.beginsGroup ? Scaled(c_groupGap) : 0;
        if (i == index) {
            return {left, Scaled(c_margin - 1), left + width, Height() - Scaled(c_margin)};
        }
        left += width + 2;
    }
}

std::size_t ToolStrip::ButtonAt(POINT point) const {
    for (std::size_t i = 0; i < m_buttons.size(); ++i) {
        const RECT bounds = ButtonRect(i);
        if (::PtInRect(&bounds, point)) {
            return i;
        }
    }
    return c_noButton;
}

LRESULT ToolStrip::OnPaint(UINT, WPARAM, LPARAM, BOOL&) {
    const fw::PaintDc target(m_hWnd);
    const CRect client = GetClientRect();
    FillColor(target, client, theme::c_frame);
    FillColor(target, {0, client.bottom - 1, client.right, client.bottom}, theme::c_line);
    for (std::size_t i = 0; i < m_buttons.size(); ++i) {
        PaintButton(target, i);
    }
    return 0;
}

void ToolStrip::PaintButton(HDC dc, std::size_t index) const {
    const Button& button = m_buttons[index];
    const RECT bounds = ButtonRect(index);
    if (button.beginsGroup) {
        const LONG middle = bounds.left - Scaled(c_groupGap) / 2 - 1;
        FillColor(dc, {middle, bounds.top + Scaled(4), middle + 1, bounds.bottom - Scaled(4)}, theme::c_line);
    }
    const bool hot = index == m_hot && button.enabled;
    FillColor(dc, bounds, hot ? theme::c_accentLight : theme::c_frame);
    if (hot) {
        const fw::UniqueBrush frame(::CreateSolidBrush(index == m_pressed ? theme::c_accent : theme::c_line));
        ::FrameRect(dc, &bounds, frame.Get());
    }
    const COLORREF color = button.enabled ? theme::c_text : RGB(0xB4, 0xBB, 0xC4);
    const int top = static_cast<int>(bounds.top + bounds.bottom - Scaled(c_pictureSize)) / 2;
    PaintToolPicture(dc, {bounds.left + Scaled(c_padding), top}, button.picture, color,
                     button.enabled ? theme::c_accent : color);
    DrawLineOfText(dc,
                   {bounds.left + Scaled(c_padding) + Scaled(c_pictureSize) + Scaled(c_textGap), bounds.top,
                    bounds.right, bounds.bottom},
                   button.text, m_fonts.plain.Get(), color);
}

LRESULT ToolStrip::OnEraseBackground(UINT, WPARAM, LPARAM, BOOL&) {
    return 1;
}

LRESULT ToolStrip::OnLeftDown(UINT, WPARAM, LPARAM lParam, BOOL&) {
    m_pressed = ButtonAt(CPoint(lParam));
    SetCapture();
    Invalidate(FALSE);
    return 0;
}

LRESULT ToolStrip::OnLeftUp(UINT, WPARAM, LPARAM lParam, BOOL&) {
    const std::size_t pressed = std::exchange(m_pressed, c_noButton);
    ::ReleaseCapture();
    Invalidate(FALSE);
    if (pressed != c_noButton && pressed == ButtonAt(CPoint(lParam)) && m_buttons[pressed].enabled) {
        ::SendMessageW(GetParent(), WM_COMMAND, static_cast<WPARAM>(m_buttons[pressed].command), 0);
    }
    return 0;
}

LRESULT ToolStrip::OnMouseMove(UINT, WPARAM, LPARAM lParam, BOOL&) {
    SetHot(ButtonAt(CPoint(lParam)));
    TRACKMOUSEEVENT track{sizeof(track), TME_LEAVE, m_hWnd, 0};
    ::TrackMouseEvent(&track);
    return 0;
}

LRESULT ToolStrip::OnMouseLeave(UINT, WPARAM, LPARAM, BOOL&) {
    SetHot(c_noButton);
    return 0;
}

LRESULT ToolStrip::OnCaptureChanged(UINT, WPARAM, LPARAM, BOOL&) {
    m_pressed = c_noButton;
    Invalidate(FALSE);
    return 0;
}

void ToolStrip::SetHot(std::size_t index) {
    if (index != m_hot) {
        m_hot = index;
        Invalidate(FALSE);
    }
}

}  // namespace kvpalette
