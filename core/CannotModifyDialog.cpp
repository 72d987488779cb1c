#include "core/CannotModifyDialog.h"

#include "core/CKvPeCtrlBase.h"
#include "core/CTemporaryResourceOverride.h"
#include "framework/window/MainWindow.h"
#include "host_sdk/LzTaskDialog.h"

int ShowCannotModifyDialog(const wchar_t* dialogId, CWnd* owner) {
    LzTaskDialog dialog;
    if (dialogId == nullptr || !dialog.LoadFromFile(L"/KvTaskDialogs;component/TaskDialogs.xaml", dialogId)) {
        return IDCANCEL;
    }
    return dialog.ShowDialog(owner != nullptr ? owner : AfxGetMainWnd());
}

void ShowEditRefusedDialog(CKvPeCtrlBase& control) {
    const CTemporaryResourceOverride resources;
    HWND frameHandle = nullptr;
    if (FAILED(control.GetFrameHandle(frameHandle)) || frameHandle == nullptr) {
        ShowCannotModifyDialog(KVPE_CANNOT_MODIFY_PROPERTY, nullptr);
        return;
    }
    CWnd frame;
    frame.Attach(frameHandle);
    ShowCannotModifyDialog(KVPE_CANNOT_MODIFY_PROPERTY, &frame);
    frame.Detach();
}
