// The button that opens the dialog of the property.
#include "core/CIPropEditUIEvents.h"
#include "core/ChildIds.h"
#include "core/DispatchIds.h"
#include "core/OleColors.h"
#include "core/SelectionEntry.h"
#include "families/CKvPeComboBase.h"
#include "framework/com/Bstr.h"
#include "framework/com/Guarded.h"
#include "host_sdk/IDynamicPropertyDialog.h"

namespace {

bool HasDialogOfItsOwn(IDynamicPropertyDialog& dialog) {
    KvPropertyDialogProcedure procedure = nullptr;
    if (SUCCEEDED(dialog.GetDialogProcedure(&procedure)) && procedure != nullptr) {
        return true;
    }
    fw::Bstr macro;
    return SUCCEEDED(dialog.GetDialogMacro(macro.Put())) && ::SysStringLen(macro.Get()) != 0;
}

bool HasPropertyPage(IPerPropertyBrowsing& browsing) {
    CLSID page = CLSID_NULL;
    // Deliberate: always the id of dynamic properties, not the row's own. Objects name there what a list
    // row's launcher opens.
    return SUCCEEDED(browsing.MapPropertyToPage(DISPID_DYNAMIC, &page)) && page != CLSID_NULL;
}

HRESULT PutPicture(fw::ComPtr<IPicture>& member, IPicture* picture) {
    if (member.Get() != picture) {
        member = fw::ComPtr<IPicture>(picture);
    }
    return S_OK;
}

std::unique_ptr<CPropertyEditorButton> MakeButton(IPicture* defaultPicture, IPicture* disabledPicture) {
    if (!defaultPicture) {
        return std::make_unique<CPropertyEditorButton>();
    }
    return disabledPicture ? std::make_unique<CPropertyEditorButton>(defaultPicture, disabledPicture)
                           : std::make_unique<CPropertyEditorButton>(defaultPicture);
}

}  // namespace

HRESULT CKvPeComboBase::GetDefaultPicture(IPicture** picture) {
    RETURN_IF_NULL_POINTER(picture);
    return m_pDefaultPicture.CopyTo(picture);
}

HRESULT CKvPeComboBase::SetDefaultPicture(IPicture* picture) {
    return PutPicture(m_pDefaultPicture, picture);
}

HRESULT CKvPeComboBase::GetDisabledPicture(IPicture** picture) {
    RETURN_IF_NULL_POINTER(picture);
    return m_pDisabledPicture.CopyTo(picture);
}

HRESULT CKvPeComboBase::SetDisabledPicture(IPicture* picture) {
    return PutPicture(m_pDisabledPicture, picture);
}

bool CKvPeComboBase::HasPropertyDialog() const {
    if (EntryCount() == 0) {
        return false;
    }
    IUnknown* const property = m_dynamicProperties ? m_dynamicProperties[0] : nullptr;
    IUnknown* const asked = property ? property : m_objects[0];
    if (const auto dialog = fw::QueryFrom<IDynamicPropertyDialog>(asked)) {
        return HasDialogOfItsOwn(*dialog);
    }
    const auto browsing = fw::QueryFrom<IPerPropertyBrowsing>(asked);
    return browsing && HasPropertyPage(*browsing);
}

HRESULT CKvPeComboBase::PrepareLauncher(int rowHeight) {
    if (HasPropertyDialog()) {
        m_bHasDialog = TRUE;  // for good: the launcher stays when the selection changes
    }
    RETURN_HR_IF(S_OK, !m_bHasDialog || m_pButton);
    auto button = MakeButton(m_pDefaultPicture.Get(), m_pDisabledPicture.Get());
    button->SetOwner(this);
    button->SetButtonSize(rowHeight, rowHeight);
    button->SetFrameColor(::GetSysColor(COLOR_BTNSHADOW));
    button->SetFaceColor(ToColorRef(m_readOnlyBackColor));
    const CRect square(0, 0, rowHeight, rowHeight);
    RETURN_HR_IF(E_FAIL, !button->Create(L"", CPropertyEditorButton::Style, square, ControlWindow(),
                                         KVPE_ID_LAUNCHER_BUTTON));
    m_pButton = std::move(button);
    return S_OK;
}

HRESULT CKvPeComboBase::OnLaunchButton() {
    fw::Ignore(LaunchZRBPropertyDialog(m_strText));  // what failed was told to the user
    RETURN_HR_IF(E_FAIL, !HasList());
    return BeginEdit(m_pList->GetClientRect());
}

HRESULT CKvPeComboBase::OnButtonCommand(WORD code, WORD id, HWND, BOOL& handled) {
    if (id != KVPE_ID_LAUNCHER_BUTTON || code != BN_CLICKED) {
        handled = FALSE;
        return S_OK;
    }
    fw::Ignore(m_events->FireBeginPropertyUpdateEvent());  // no sink can change what follows; the same below
    const HRESULT launched = fw::Guarded([this] { return OnLaunchButton(); });
    if (m_bHasDialog && HasButton() && m_pButton->IsWindowVisible()) {
        m_pButton->Invalidate();
    }
    fw::Ignore(m_events->FireEndPropertyUpdateEvent());
    return launched;
}
