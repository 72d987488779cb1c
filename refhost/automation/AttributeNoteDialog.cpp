#include "refhost/automation/AttributeNoteDialog.h"

#include "framework/base/MessageBox.h"
#include "framework/window/CWnd.h"
#include "framework/window/MainWindow.h"
#include "refhost/testing/ServiceCall.h"

namespace kvhost {

void ShowAttributeNoteDialog() {
    ServiceCall call(L"AttributeNoteDialog");
    if (call.Fails()) {
        return;
    }
    const CWnd* const owner = AfxGetMainWnd();
    fw::ShowMessageBox(owner != nullptr ? owner->GetSafeHwnd() : nullptr,
                       L"An inspection note names the inspector and the date.", L"Inspection",
                       MB_OK | MB_ICONINFORMATION);
}

}  // namespace kvhost
