#pragma once

#include "core/Export.h"
#include "framework/com/ComPtr.h"
#include "host_sdk/CLzUiOwnerDrawButton.h"
#include "host_sdk/LzToolTip.h"

class CKvPeCtrlBase;

/// A small button inside a row: in a button edit, and the launcher at the end of a list row. It shows a
/// picture, or an ellipsis without one. Its clicks go to the row's window as WM_COMMAND.
class KVPEX_API CPropertyEditorButton : public CLzUiOwnerDrawButton {
public:
    /// WS_CHILD, WS_GROUP, WS_TABSTOP, BS_FLAT and BS_OWNERDRAW.
    static constexpr DWORD Style = 0x4003800B;

    CPropertyEditorButton();
    explicit CPropertyEditorButton(IPicture* defaultPicture);
    /// Either picture may be null.
    CPropertyEditorButton(IPicture* defaultPicture, IPicture* disabledPicture);
    ~CPropertyEditorButton() override;

    /// In pixels; values that are not positive are left out. Pictures that are smaller move to the middle.
    void SetButtonSize(int width, int height);
    void SetFaceColor(COLORREF color) { m_faceColor = color; }
    void SetFrameColor(COLORREF color) { m_frameColor = color; }
    /// `owner` is the row, which owns the button; it is told of keys and of the right mouse button.
    void SetOwner(CKvPeCtrlBase* owner) { m_owner = owner; }
    void SetPictures(IPicture* defaultPicture, IPicture* disabledPicture);
    /// An empty text takes the tip away.
    void SetTipText(const CString& text);
    [[nodiscard]] const CString& GetTipText() const { return m_toolTip.GetTipText(); }
    /// Enabled or disabled, as the window and as the picture that is shown.
    void Enable(bool enable);

    // CWnd
    void DrawItem(DRAWITEMSTRUCT* item) override;
    BOOL PreTranslateMessage(MSG* message) override;
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

protected:
    // CLzUiOwnerDrawButton
    void OnPaintButton(CDC& dc, const RECT& bounds, UINT flags) override;

private:
    LRESULT OnRButtonDown(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    LRESULT OnSysKeyDown(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    BOOL OnKeyDown(const MSG& message);
    void CentrePictures();

    COLORREF m_faceColor;
    COLORREF m_frameColor;
    fw::ComPtr<IPicture> m_defaultPicture;
    fw::ComPtr<IPicture> m_disabledPicture;
    CKvPeCtrlBase* m_owner = nullptr;
    LzToolTip m_toolTip;
    CSize m_defaultSize;  // of the pictures themselves, in pixels
    CSize m_disabledSize;
    int m_defaultTop = 0;
    int m_defaultLeft = 0;
    int m_disabledTop = 0;
    int m_disabledLeft = 0;
    int m_height = 15;
    int m_width = 15;
    int m_focusInset = 2;
    bool m_enabled = true;
};
