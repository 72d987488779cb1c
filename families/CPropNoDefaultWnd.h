#pragma once

#include "framework/base/CString.h"
#include "framework/window/CWnd.h"

class CEditEx;

/// The hint below a row in edit that offers the property's unspecified state; its window text is what it
/// offers. It belongs to the edit box.
class CPropNoDefaultWnd : public CWnd {
public:
    static constexpr UINT_PTR TimerId = 2;
    static constexpr UINT TimerPeriod = 100;  // milliseconds between looks at the edit box

    explicit CPropNoDefaultWnd(CEditEx* owner) : m_owner(owner) {}
    ~CPropNoDefaultWnd() override;

    /// Makes the hidden window. False if the system refuses.
    bool Create(const RECT& bounds);
    /// Moves it, hidden, to a place in screen coordinates and remembers where the edit box is.
    void Place(const RECT& bounds);
    const CRect& Placement() const { return m_rectangle; }
    void ShowAndWatch();
    void HideAndStop();

    /// Pure.
    static void Draw(HDC dc, const RECT& bounds, const CString& text, HFONT font);

    // CWnd
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    LRESULT OnEraseBackground(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    LRESULT OnPaint(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    LRESULT OnPrintClient(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    LRESULT OnTimer(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    LRESULT OnLButtonDown(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);

    void DrawInto(HDC dc);
    CRect OwnerPlace() const;

    CEditEx* m_owner;   // the edit box, which owns this object
    CRect m_rectangle;  // screen coordinates
    CRect m_lastPlace;  // of the edit box, relative to the desktop
    UINT_PTR m_timer = 0;
};
