#pragma once

#include "core/CPropTextTooltip.h"
#include "framework/window/Geometry.h"

class CKvPeCtrlBase;
class CLzUiListBox;

/// The tip over an entry of an open list that is too narrow for its text. The list that shows it owns it.
class EntryTip {
public:
    /// The mouse is over the entry, -1 for none: shows the tip when the row finds the entry too narrow for
    /// it, and hides it otherwise.
    void Follow(CLzUiListBox& list, CKvPeCtrlBase& owner, int entry);
    /// Empties the rectangle and hides the tip.
    void Forget();

    [[nodiscard]] bool HasWindow() const { return m_tip.IsWindow(); }
    [[nodiscard]] HWND Window() const { return m_tip.GetSafeHwnd(); }
    [[nodiscard]] bool IsShown() const { return m_tip.IsShown(); }
    /// What the tip paints into, in its client coordinates.
    [[nodiscard]] const CRect& Rectangle() const { return m_rectangle; }
    /// The entry that the mouse was over last.
    [[nodiscard]] int Entry() const { return m_entry; }

private:
    CPropTextTooltip m_tip;
    CRect m_rectangle;
    int m_entry = 0;
};
