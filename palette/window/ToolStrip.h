#pragma once

#include <array>
#include <functional>
#include <string>
#include <vector>

#include "framework/window/CWnd.h"
#include "framework/window/MessageTable.h"
#include "palette/theme/Scale.h"
#include "palette/theme/Theme.h"

namespace kvpalette {

/// The row of flat buttons below the menu. Buttons send WM_COMMAND to the parent.
class ToolStrip final : public CWnd {
public:
    static int Height() { return Scaled(38); }

    enum class Picture { None, Open, Save, Undo, Redo, SelectAll, ZoomExtents, ZoomIn, ZoomOut };
    struct Button {
        int command;
        Picture picture;
        const wchar_t* text;
        /// A gap comes before the button.
        bool beginsGroup;
        bool enabled = true;
    };

    ToolStrip(const Fonts& fonts, std::vector<Button> buttons);
    ~ToolStrip() override;

    [[nodiscard]] bool Create(HWND parent);
    void EnableButton(int command, bool enabled);

    // CWnd
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    static constexpr std::size_t c_noButton = static_cast<std::size_t>(-1);

    LRESULT OnPaint(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    LRESULT OnEraseBackground(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    LRESULT OnLeftDown(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    LRESULT OnLeftUp(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    LRESULT OnMouseMove(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    LRESULT OnMouseLeave(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    LRESULT OnCaptureChanged(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);

    void PaintButton(HDC dc, std::size_t index) const;
    RECT ButtonRect(std::size_t index) const;
    std::size_t ButtonAt(POINT point) const;
    void SetHot(std::size_t index);

    static constexpr std::array s_messages{
        fw::OnMessage(WM_PAINT, &ToolStrip::OnPaint),
        fw::OnMessage(WM_ERASEBKGND, &ToolStrip::OnEraseBackground),
        fw::OnMessage(WM_LBUTTONDOWN, &ToolStrip::OnLeftDown),
        fw::OnMessage(WM_LBUTTONUP, &ToolStrip::OnLeftUp),
        fw::OnMessage(WM_MOUSEMOVE, &ToolStrip::OnMouseMove),
        fw::OnMessage(WM_MOUSELEAVE, &ToolStrip::OnMouseLeave),
        fw::OnMessage(WM_CAPTURECHANGED, &ToolStrip::OnCaptureChanged),
    };

    const Fonts& m_fonts;
    std::vector<Button> m_buttons;
    std::size_t m_hot = c_noButton;
    std::size_t m_pressed = c_noButton;
};

}  // namespace kvpalette
