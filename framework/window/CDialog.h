#pragma once

#include "framework/window/CWnd.h"

// A dialog made from a template of the current resource handle. Its buttons, Enter and Escape come to OnOK
// and OnCancel, which end it.
class FW_API CDialog : public CWnd {
public:
    CDialog() = default;
    explicit CDialog(UINT templateId, HWND parent = nullptr);
    explicit CDialog(const wchar_t* templateName, HWND parent = nullptr);

    // Shows the dialog and returns what EndDialog was given, -1 if it can't be made. Without a parent the
    // thread's main window is its owner.
    virtual INT_PTR DoModal(HINSTANCE module = fw::ThisModule());

    // Makes it as a modeless dialog. The parent's message loop must ask IsDialogMessage for its keys.
    BOOL CreateModeless(UINT templateId, HWND parent = nullptr, HINSTANCE module = fw::ThisModule());

    // Ends the modal loop, or a modeless dialog's window.
    void EndDialog(INT_PTR result);

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

    // Controls by id
    void SetDlgItemText(int id, const wchar_t* text);
    CString GetDlgItemText(int id) const;
    void SetDlgItemInt(int id, int value);
    // False, with value unchanged, if the text is no whole number.
    bool GetDlgItemInt(int id, int& value) const;
    void CheckDlgButton(int id, UINT check);
    UINT IsDlgButtonChecked(int id) const;
    void EnableDlgItem(int id, BOOL enable);

protected:
    // TRUE lets the system set the focus to the first control.
    virtual BOOL OnInitDialog();
    virtual void OnOK();
    virtual void OnCancel();

    // Moves values between members and controls: from the members when the dialog opens, to them in OnOK.
    // False keeps the dialog open.
    virtual bool ExchangeData(bool toMembers);

private:
    const wchar_t* m_template = nullptr;  // a name, or an id in its low word
    HWND m_parent = nullptr;
    bool m_modal = false;
};
