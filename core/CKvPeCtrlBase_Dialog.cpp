#include <vector>

#include "core/CKvPeCtrlBase.h"
#include "core/CTemporaryResourceOverride.h"
#include "core/CannotModifyDialog.h"
#include "core/HostDocument.h"
#include "core/KvPeDialogScope.h"
#include "core/ModelessMarks.h"
#include "core/ObjectWritability.h"
#include "core/SelectionEntry.h"
#include "core/SelectionUse.h"
#include "framework/base/MessageBox.h"
#include "framework/com/SafeArray.h"
#include "host_sdk/IDynamicPropertyDialog.h"
#include "host_sdk/IHostApplication.h"
#include "host_sdk/IPropertyDialogByIds.h"
#include "host_sdk/IPropertyDialogByObjects.h"
#include "host_sdk/KvEdServices.h"
#include "resources/Ids.h"

namespace {

// What the palette is told of the kind of modal dialog.
constexpr int c_propertyDialogCode = 8;

void RunHostMacro(BSTR macro) {
    fw::ComPtr<IUnknown> hostObject;
    hostObject.Attach(kvedGetApplicationObject());
    if (const auto application = fw::QueryFrom<IHostApplication>(hostObject.Get())) {
        // The macro tells its user itself.
        fw::Ignore(application->RunMacro(macro));
        FocusMainWindow();
    }
}

// True when the dynamic property has a dialog of its own, which has then been shown.
bool RunDialogOfDynamicProperty(IUnknown* dynamicProperty) {
    const auto dialog = fw::QueryFrom<IDynamicPropertyDialog>(dynamicProperty);
    if (!dialog) {
        return false;
    }
    KvPropertyDialogProcedure procedure = nullptr;
    if (SUCCEEDED(dialog->GetDialogProcedure(&procedure)) && procedure != nullptr) {
        procedure();
        FocusMainWindow();
        return true;
    }
    fw::Bstr macro;
    if (SUCCEEDED(dialog->GetDialogMacro(macro.Put())) && macro.Get() != nullptr) {
        RunHostMacro(macro.Get());
        return true;
    }
    return false;
}

void ShowClassNotRegistered(CKvPeCtrlBase& control, REFCLSID classId) {
    constexpr int idLength = 39;  // with braces and the terminating null
    wchar_t classText[idLength]{};
    ::StringFromGUID2(classId, classText, idLength);
    CString format;
    {
        const CTemporaryResourceOverride resources;
        format.LoadString(IDS_DIALOG_CLASS_NOT_REGISTERED);
    }
    CString message;
    message.Format(format, classText);
    HWND frame = nullptr;
    // Outside a container the message has no owner.
    fw::Ignore(control.GetFrameHandle(frame));
    fw::ShowMessageBox(frame, message, nullptr, MB_ICONEXCLAMATION);
}

}  // namespace

// One call of LaunchZRBPropertyDialog, from the property's page class to the dialog's answer.
class CKvPeCtrlBase::DialogRun {
public:
    DialogRun(CKvPeCtrlBase& control, CString& text) : m_control(control), m_text(text) {}

    void Run(const SelectionEntry& entry);

private:
    [[nodiscard]] HRESULT ShowByObjects(IPropertyDialogByObjects& dialog, BSTR* text);
    [[nodiscard]] HRESULT ShowByIds(IPropertyDialogByIds& dialog, BSTR* text);
    void Show(IUnknown* dialogObject, KvPeDialogScope& scope);

    CKvPeCtrlBase& m_control;
    CString& m_text;
};

HRESULT CKvPeCtrlBase::LaunchZRBPropertyDialog(CString& text) {
    if (IsSelectionBlockedByDrag(m_objects.get(), EntryCount())) {
        ShowEditRefusedDialog(*this);
        return S_OK;
    }
    if (EntryCount() == 0) {
        return S_OK;
    }
    const SelectionUse use(*this);
    const SelectionEntry first = EntryAt(0);
    if (first.object && IsObjectWritable(first.object) == 0) {
        kvedSendModelessOperationEnded(KVPE_MARK_CHANGE_SELECTION);
        return S_OK;
    }
    DialogRun(*this, text).Run(first);
    return S_OK;
}

void CKvPeCtrlBase::DialogRun::Run(const SelectionEntry& entry) {
    KvPeDialogScope scope(m_control.m_events, m_control.m_propertyIdentifier.Get(), m_text,
                          c_propertyDialogCode);
    if (RunDialogOfDynamicProperty(entry.dynamicProperty)) {
        return;
    }
    IUnknown* const asked = entry.dynamicProperty ? entry.dynamicProperty : entry.object;
    if (asked == nullptr) {
        return;
    }
    CLSID classId = CLSID_NULL;
    if (const auto browsing = fw::QueryFrom<IPerPropertyBrowsing>(asked)) {
        if (FAILED(browsing->MapPropertyToPage(entry.dispid, &classId))) {
            return;
        }
    }
    fw::ComPtr<IUnknown> dialogObject;
    const HRESULT created =
        ::CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown, dialogObject.PutVoid());
    if (SUCCEEDED(created)) {
        Show(dialogObject.Get(), scope);
        return;
    }
    if (created == REGDB_E_CLASSNOTREG) {
        ShowClassNotRegistered(m_control, classId);
    }
    scope.SetText(m_text);
}

void CKvPeCtrlBase::DialogRun::Show(IUnknown* dialogObject, KvPeDialogScope& scope) {
    const auto byObjects = fw::QueryFrom<IPropertyDialogByObjects>(dialogObject);
    const auto byIds = byObjects ? nullptr : fw::QueryFrom<IPropertyDialogByIds>(dialogObject);
    if (!byObjects && !byIds) {
        return;
    }
    fw::Bstr dialogText(m_text.View());
    BSTR* const exchanged = dialogText.Exchange();
    const HRESULT shown = byObjects ? ShowByObjects(*byObjects, exchanged) : ShowByIds(*byIds, exchanged);
    if (shown == S_OK) {
        m_text = dialogText.View();
        m_control.m_changeNotified = TRUE;
    }
    FocusMainWindow();
    scope.SetText(m_text);
}

HRESULT CKvPeCtrlBase::DialogRun::ShowByObjects(IPropertyDialogByObjects& dialog, BSTR* text) {
    const int count = m_control.EntryCount();
    const std::vector<IUnknown*> objects(m_control.m_objects.get(), m_control.m_objects.get() + count);
    fw::Variant array;
    RETURN_IF_FAILED(fw::MakeUnknownArray(objects.data(), static_cast<ULONG>(count), array));
    return dialog.ShowDialog(text, array.Get());
}

HRESULT CKvPeCtrlBase::DialogRun::ShowByIds(IPropertyDialogByIds& dialog, BSTR* text) {
    KvArray<KvDbObjectId> ids;
    RETURN_IF_FAILED(m_control.GetCurrentSelectionObjectIdArray(ids));
    return dialog.ShowDialog(text, &ids);
}
