#pragma once

#include "core/ChildIds.h"
#include "core/Export.h"
#include "framework/window/CWnd.h"

// The popup that shows a value in full where its row is too narrow. It belongs to whoever shows it; the
// window that it talks to, its owner, paints the text and gets the clicks.
class KVPEX_API CPropTextTooltip : public CWnd {
public:
    static constexpr UINT_PTR TimerId = 2;
    static constexpr UINT TimerPeriod =
        300;  // milliseconds until the tip shows, and between looks at the cursor

    CPropTextTooltip() = default;
    ~CPropTextTooltip() override;

    // Makes the hidden window over the given one. False if the system refuses.
    bool Create(HWND over);
    // The window that is told to paint and to which clicks go, and its parent. Null for none.
    void SetOwner(HWND owner, HWND parent);
    HWND GetOwner() const { return m_owner; }
    HWND GetOwnerParent() const { return m_ownerParent; }

    // Starts to show the tip over a rectangle in the owner's client coordinates; nothing if one is shown
    // already.
    void ShowTextTooltip(const RECT& ownerRectangle);
    // Puts the window away and forgets the rectangle.
    void HideTextTooltip();
    bool IsShown() const { return m_shown; }

    // True for the window of any text tip, and for a device context of one.
    static bool IsTextTip(HWND window);
    static bool IsTextTip(HDC dc);

    // The size cut to the desktop's, the place moved up or down into it. All in screen coordinates.
    static CRect FitIntoDesktop(const RECT& wanted, const RECT& desktop);
    // What the owner's text is painted on: the system's tip colour and a frame with round corners. Pure.
    static void DrawGround(HDC dc, const RECT& bounds);
    static void DrawFrame(HDC dc, const RECT& bounds);

    // CWnd
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    LRESULT OnPaint(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    LRESULT OnEraseBackground(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    LRESULT OnTimer(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    LRESULT OnMouseButton(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    LRESULT OnFrameMouseButton(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);

    void HandOn(UINT message, WPARAM wParam, POINT screenPoint);
    void StopTimer();

    HWND m_owner = nullptr;        // not owned
    HWND m_ownerParent = nullptr;  // not owned
    CRect m_rectangle;             // where the cursor keeps the tip, in the tip's client coordinates
    UINT_PTR m_timer = 0;
    bool m_shown = false;
    bool m_needsPaint = false;
};
