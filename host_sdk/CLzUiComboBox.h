#pragma once

#include "framework/window/CComboBox.h"
#include "host_sdk/Export.h"

class CLzUiListBox;

/// A drop-down list in the host's look. The wheel scrolls and chooses nothing: while the list is closed it is
/// its parent's, else the list part's.
class KVHOST_API CLzUiComboBox : public CComboBox {
public:
    CLzUiComboBox();
    ~CLzUiComboBox() override;

    /// False when the system refuses the window.
    BOOL Create(DWORD style, const RECT& bounds, HWND parent, UINT id, DWORD exStyle = 0,
                HINSTANCE module = fw::ThisModule());

    /// The object that receives the messages of the list part, in place of the one before; null for none. Not
    /// owned: it stays until the window is gone or another is set. May be set before the window is there.
    void SetListBox(CLzUiListBox* listBox);
    [[nodiscard]] CLzUiListBox* GetListBox() const { return m_listBox; }

    /// The window over which the list shows dialogs; while none is set, the list's own parent.
    void SetLzUiParent(HWND parent) { m_dialogParent = parent; }
    [[nodiscard]] HWND GetLzUiParent() const;

    /// Controls have the look that came with Vista: the closed part is then painted whole by the list,
    /// entries without a ground of their own.
    [[nodiscard]] static bool IsVistaTheme();
    /// The state of a draw request says that it is for the closed part.
    [[nodiscard]] static bool IsInEdit(UINT itemState);

    // CWnd
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    LRESULT OnPaint(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    LRESULT OnMouseWheel(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    void AttachListBox();
    void PaintClosedPart(HDC dc);
    void DrawChoice(HDC dc, const RECT& bounds);

    CLzUiListBox* m_listBox = nullptr;  // the caller's
    HWND m_dialogParent = nullptr;      // not owned
};
