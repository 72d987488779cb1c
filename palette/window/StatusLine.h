#pragma once

#include <array>
#include <string>

#include "framework/window/CWnd.h"
#include "framework/window/MessageTable.h"
#include "palette/theme/Scale.h"
#include "palette/theme/Theme.h"

namespace kvpalette {

/// The line at the foot of the main window: a message on the left, the place of the pointer on the right.
class StatusLine final : public CWnd {
public:
    static int Height() { return Scaled(24); }

    explicit StatusLine(const Fonts& fonts) : m_fonts(fonts) {}
    ~StatusLine() override { DestroyWindow(); }

    [[nodiscard]] bool Create(HWND parent);
    void SetMessage(const std::wstring& message);
    void SetPlace(const std::wstring& place);

    // CWnd
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    LRESULT OnPaint(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    LRESULT OnEraseBackground(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);

    static constexpr std::array s_messages{
        fw::OnMessage(WM_PAINT, &StatusLine::OnPaint),
        fw::OnMessage(WM_ERASEBKGND, &StatusLine::OnEraseBackground),
    };

    const Fonts& m_fonts;
    std::wstring m_message;
    std::wstring m_place;
};

}  // namespace kvpalette
