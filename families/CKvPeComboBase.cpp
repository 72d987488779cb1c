#include "families/CKvPeComboBase.h"

#include "core/CIPropEditUIEvents.h"
#include "core/ChildIds.h"
#include "core/EditState.h"
#include "families/CPropComboBox.h"

namespace {

// The bit without a name is one that drop-downs of this family have always had.
constexpr DWORD c_unnamedStyle = 8;
constexpr DWORD c_listStyle = WS_CHILD | WS_VSCROLL | CBS_DROPDOWNLIST | CBS_AUTOHSCROLL | c_unnamedStyle;

void EndWindow(CWnd* window) {
    if (window && window->IsWindow()) {
        window->DestroyWindow();
    }
}

}  // namespace

CKvPeComboBase::CKvPeComboBase(CIPropEditUIEvents* events, CKvPeBasePrivate* shell)
    : CKvPeCtrlBase(events, shell) {
    SetFamilyRole(this);
}

CKvPeComboBase::~CKvPeComboBase() {
    DropChildren();
}

HRESULT CKvPeComboBase::Cleanup() {
    DropChildren();
    return CKvPeCtrlBase::Cleanup();
}

void CKvPeComboBase::EndOwnPreview() {
    if (m_showsPreview) {
        fw::Ignore(CKvPeComboBase::EndLivePreview());  // the drawing gets its real state back
    }
}

void CKvPeComboBase::DropChildren() {
    EndOwnPreview();
    // Out of the row first: the windows may speak to it as they end, and a row without a list commits
    // nothing.
    const std::unique_ptr<CLzUiComboBox> list = std::move(m_pList);
    const std::unique_ptr<CPropertyEditorButton> button = std::move(m_pButton);
    m_childWindow = nullptr;
    EndWindow(list.get());
    EndWindow(button.get());
}

void CKvPeComboBase::ForgetEndedWindows() {
    if (m_pList && !HasList()) {
        EndOwnPreview();
        m_pList.reset();
        m_childWindow = nullptr;
        if (IsInEdit()) {
            m_state = EditState_Shown;
        }
    }
    if (m_pButton && !HasButton()) {
        m_pButton.reset();
    }
}

void CKvPeComboBase::KeepList(std::unique_ptr<CLzUiComboBox> list, CPeBaseComboBox* mixin) {
    ForgetEndedWindows();
    mixin->SetOwner(this);
    m_pList = std::move(list);
    m_childWindow = m_pList.get();
}

HRESULT CKvPeComboBase::CreateComboWindow(const RECT& bounds) {
    RETURN_HR_IF(S_OK, m_pList != nullptr);
    const HWND window = ControlWindow();
    RETURN_HR_IF(E_FAIL, !window);
    auto list = std::make_unique<CPropComboBox>();
    RETURN_HR_IF(E_FAIL, !list->Create(c_listStyle, bounds, window, KVPE_ID_LIST));
    CPropComboBox* const mixin = list.get();
    KeepList(std::move(list), mixin);
    return S_OK;
}

HRESULT CKvPeComboBase::FillList() {
    return S_OK;
}

HRESULT CKvPeComboBase::SetSelectedItem(int) {
    return S_OK;
}

CString CKvPeComboBase::GetItemText(int index) {
    const bool isEntry = m_pList && index >= 0 && index < m_pList->GetCount();
    return isEntry ? m_pList->GetLBText(index) : CString();
}

int CKvPeComboBase::GetCurrentItem() {
    return -1;
}

HRESULT CKvPeComboBase::Handle_InitEditControl(VARIANT* objects, VARIANT* dynamicProperties, VARIANT* dispids,
                                               short readOnly) {
    RETURN_HR_IF(
        E_FAIL, FAILED(CKvPeCtrlBase::Handle_InitEditControl(objects, dynamicProperties, dispids, readOnly)));
    return Handle_Refresh();
}

HRESULT CKvPeComboBase::Handle_Refresh() {
    m_nCurItem = GetCurrentItem();
    m_nPreviewItem = m_nCurItem;
    if (m_nCurItem == -1) {
        // The entry that is marked in the list stands for the former value, and nobody chooses it now.
        if (HasList()) {
            m_pList->SetCurSel(-1);
        }
        return E_FAIL;
    }
    m_strText = GetItemText(m_nCurItem);
    if (HasList()) {
        if (m_pList->GetCurSel() == m_nCurItem) {
            RepaintList();
        } else {
            m_pList->SetCurSel(m_nCurItem);
        }
    }
    RETURN_HR_IF(S_OK, m_state != EditState_InEdit);
    if (IsReadOnlyRow()) {
        return Handle_UIDeactivate();
    }
    if (HasList()) {
        m_pList->ShowWindow(SW_SHOW);
    }
    return S_OK;
}

bool CKvPeComboBase::IsReadOnlyRow() {
    int readOnly = FALSE;
    return SUCCEEDED(PropReadOnly(readOnly)) && readOnly != FALSE;
}

bool CKvPeComboBase::IsInEdit() const {
    return m_state >= EditState_InEdit;
}

HRESULT CKvPeComboBase::GetTextTipWidth(int& width) {
    return GetStringWidth(m_strText, &width);
}

HRESULT CKvPeComboBase::GetComboTextTipWidth(int index, int& width) {
    return GetStringWidth(GetItemText(index), &width);
}

void CKvPeComboBase::RepaintList() {
    m_pList->Invalidate();
    m_pList->UpdateWindow();
}

void CKvPeComboBase::FocusList() {
    if (HasList() && !m_pList->HasFocus()) {
        m_pList->SetFocus();
    }
}

// CKvPeFamilyRole

void CKvPeComboBase::PresetNumber(int number) {
    ForgetEndedWindows();
    if (!m_pList && SUCCEEDED(CreateComboWindow(CRect())) && m_pList) {
        fw::Ignore(FillList());  // a list without entries takes no choice
    }
    if (m_pList) {
        m_pList->SetCurSel(number);
    }
}

void CKvPeComboBase::PresetText(const CString& text) {
    ForgetEndedWindows();
    if (!m_pList && SUCCEEDED(CreateComboWindow(CRect())) && m_pList) {
        fw::Ignore(FillList());  // as above
    }
    const int count = m_pList ? m_pList->GetCount() : 0;
    for (int index = 0; index < count; ++index) {
        if (GetItemText(index).CompareLocale(text) == 0) {
            m_pList->SetCurSel(index);
            return;
        }
    }
}

bool CKvPeComboBase::GetChosenEntryText(CString& text) {
    const int item = GetCurrentItem();
    if (item == -1) {
        return false;
    }
    text = GetItemText(item);
    return true;
}
