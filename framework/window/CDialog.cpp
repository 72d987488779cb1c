#include "framework/window/CDialog.h"

#include "framework/window/CWndEntry.h"
#include "framework/window/MainWindow.h"

namespace {

// The object in front of the dialog handles the messages; here the system's own behaviour is left to happen.
INT_PTR CALLBACK LeaveToSystem(HWND, UINT, WPARAM, LPARAM) {
    return FALSE;
}

const wchar_t* const g_dialogClass = L"#32770";

HWND OwnerOrMainWindow(HWND owner) {
    const CWnd* const mainWindow = owner ? nullptr : AfxGetMainWnd();
    return mainWindow ? mainWindow->m_hWnd : owner;
}

}  // namespace

CDialog::CDialog(UINT templateId, HWND parent) : m_template(MAKEINTRESOURCEW(templateId)), m_parent(parent) {
}

CDialog::CDialog(const wchar_t* templateName, HWND parent) : m_template(templateName), m_parent(parent) {
}

INT_PTR CDialog::DoModal(HINSTANCE module) {
    if (m_hWnd || !m_template) {
        return -1;
    }
    m_modal = true;
    const fw::LifeWatch alive(*this);
    const WindowCapture capture(*this, g_dialogClass, module);
    const INT_PTR result =
        ::DialogBoxParamW(AfxGetResourceHandle(), m_template, OwnerOrMainWindow(m_parent), LeaveToSystem, 0);
    if (alive) {
        m_modal = false;
    }
    return result;
}

BOOL CDialog::CreateModeless(UINT templateId, HWND parent, HINSTANCE module) {
    if (m_hWnd) {
        return FALSE;
    }
    const WindowCapture capture(*this, g_dialogClass, module);
    return ::CreateDialogParamW(AfxGetResourceHandle(), MAKEINTRESOURCEW(templateId), parent, LeaveToSystem,
                                0) != nullptr;
}

void CDialog::EndDialog(INT_PTR result) {
    if (m_modal) {
        ::EndDialog(m_hWnd, result);
    } else {
        DestroyWindow();
    }
}

LRESULT CDialog::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        return OnInitDialog();
    }
    if (message == WM_COMMAND && HIWORD(wParam) == BN_CLICKED) {
        if (LOWORD(wParam) == IDOK) {
            OnOK();
            return 0;
        }
        if (LOWORD(wParam) == IDCANCEL) {
            OnCancel();
            return 0;
        }
    }
    return CWnd::WindowProc(message, wParam, lParam);
}

void CDialog::SetDlgItemText(int id, const wchar_t* text) {
    ::SetDlgItemTextW(m_hWnd, id, text);
}

CString CDialog::GetDlgItemText(int id) const {
    CWnd item;
    item.Attach(GetDlgItem(id));
    return item.GetWindowText();
}

void CDialog::SetDlgItemInt(int id, int value) {
    ::SetDlgItemInt(m_hWnd, id, static_cast<UINT>(value), TRUE);
}

bool CDialog::GetDlgItemInt(int id, int& value) const {
    BOOL translated = FALSE;
    const UINT number = ::GetDlgItemInt(m_hWnd, id, &translated, TRUE);
    if (translated) {
        value = static_cast<int>(number);
    }
    return translated != FALSE;
}

void CDialog::CheckDlgButton(int id, UINT check) {
    ::CheckDlgButton(m_hWnd, id, check);
}

UINT CDialog::IsDlgButtonChecked(int id) const {
    return ::IsDlgButtonChecked(m_hWnd, id);
}

void CDialog::EnableDlgItem(int id, BOOL enable) {
    ::EnableWindow(GetDlgItem(id), enable);
}

BOOL CDialog::OnInitDialog() {
    ExchangeData(false);
    return TRUE;
}

void CDialog::OnOK() {
    if (ExchangeData(true)) {
        EndDialog(IDOK);
    }
}

void CDialog::OnCancel() {
    EndDialog(IDCANCEL);
}

bool CDialog::ExchangeData(bool) {
    return true;
}
