#pragma once

class CKvPeCtrlBase;
class CWnd;

/// Id of the host's dialog for an edit that it refuses as a whole.
inline constexpr const wchar_t* KVPE_CANNOT_MODIFY_PROPERTY = L"ZRB.KvPEXCtl.CannotModifyProperty";

/// Shows the host's task dialog over `owner`, or over the thread's main window when that is null. Returns the
/// button that ended it; IDCANCEL when there is no such dialog.
int ShowCannotModifyDialog(const wchar_t* dialogId, CWnd* owner);

/// Shows the dialog for a refused edit over the frame of the control.
void ShowEditRefusedDialog(CKvPeCtrlBase& control);
