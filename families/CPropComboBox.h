#pragma once

#include "families/CCustomLBox.h"
#include "families/CPeBaseComboBox.h"
#include "host_sdk/CLzUiComboBox.h"

/// The drop-down window that lies over a list row while it is edited. It belongs to the row's logic; what it
/// is told of keys and buttons goes to the row.
class KVPEX_API CPropComboBox : public CLzUiComboBox, public CPeBaseComboBox {
public:
    CPropComboBox();
    ~CPropComboBox() override;

    /// Hidden. False when the system refuses the window.
    BOOL Create(DWORD style, const RECT& bounds, HWND parent, UINT id);

    // CWnd
    BOOL PreTranslateMessage(MSG* message) override;
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

protected:
    /// Installs the list part that shows the tips of plain entries.
    void InstallPlainList();

private:
    LRESULT OnCreate(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    LRESULT OnPaint(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    LRESULT OnRButtonDown(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    LRESULT OnMButtonDown(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    LRESULT OnDrawTip(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);

    BOOL OnKeyDown(const MSG& message);
    void FlattenFrame();
    [[nodiscard]] LPARAM ToParent(LPARAM clientPoint) const;

    CCustomLBox m_plainList;
};
