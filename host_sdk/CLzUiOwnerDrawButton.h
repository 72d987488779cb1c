#pragma once

#include "framework/window/CButton.h"
#include "host_sdk/Export.h"

class CDC;

/// A push button in the host's look. It draws itself by its one paint operation, which a derived class
/// replaces for a face of its own.
class KVHOST_API CLzUiOwnerDrawButton : public CButton {
public:
    /// What the paint operation is told.
    enum PaintFlags : UINT {
        PaintFlags_None = 0,
        PaintFlags_Pressed = 1,
        PaintFlags_Focused = 2,
        PaintFlags_Disabled = 4,
        PaintFlags_Default = 8,
        PaintFlags_Flat = 16,  ///< The button shows neither frame nor focus.
    };

    /// `style` names the owner-drawn kind. False when the system refuses the window.
    BOOL Create(const wchar_t* text, DWORD style, const RECT& bounds, HWND parent, UINT id, DWORD exStyle = 0,
                HINSTANCE module = fw::ThisModule());

    /// Flat or framed; framed at start. The style BS_FLAT says nothing here: it is of the system's drawing.
    void SetFlat(bool flat);
    [[nodiscard]] bool IsFlat() const { return m_flat; }

    // CWnd
    /// The host's flow of an owner-drawn button: works out the flags and paints.
    void DrawItem(DRAWITEMSTRUCT* item) override;

protected:
    /// Paints the whole button into `bounds`. `flags` are PaintFlags.
    virtual void OnPaintButton(CDC& dc, const RECT& bounds, UINT flags);

private:
    bool m_flat = false;
};
