#include "families/CKvPeContainerBase.h"

#include "framework/base/DeviceContexts.h"

CKvPeContainerBase::CKvPeContainerBase(CIPropEditUIEvents* events, CKvPeBasePrivate* shell)
    : CKvPeComboBase(events, shell) {
}

CKvPeContainerBase::~CKvPeContainerBase() = default;

HRESULT CKvPeContainerBase::Cleanup() {
    m_pComboList = nullptr;
    return CKvPeComboBase::Cleanup();
}

void CKvPeContainerBase::KeepContainerList(std::unique_ptr<CComboOwnerDraw> list) {
    m_pComboList = list.get();
    KeepList(std::move(list), m_pComboList);
}

HRESULT CKvPeContainerBase::Handle_OnDraw(ATL_DRAWINFO& info) {
    const int row = HasContainerList() ? m_pComboList->GetCurSel() : -1;
    COwnerDrawItem* const item =
        row == -1 ? nullptr : COwnerDrawItem::FromRowData(m_pComboList->GetItemObject(row));
    RETURN_HR_IF(S_OK, item == nullptr);

    const HDC dc = info.hdcDraw;
    const fw::ScopedSaveDc saved(dc);
    BOOL handled = TRUE;
    Handle_OnCtlColor(WM_CTLCOLOREDIT, reinterpret_cast<WPARAM>(dc), 0, handled);
    const RECT bounds = {info.prcBounds->left, info.prcBounds->top, info.prcBounds->right,
                         info.prcBounds->bottom};
    const fw::ScopedSelect font(dc, FontHandle());
    item->Draw(dc, bounds, ODA_DRAWENTIRE, 0, 0);
    return S_OK;
}
