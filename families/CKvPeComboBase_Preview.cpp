// What a preview may disturb of a row, and where it begins and ends.
#include "core/ChildIds.h"
#include "families/CKvPeComboBase.h"
#include "preview/KvRestorable.h"
#include "preview/KvRestorableSet.h"

HRESULT CKvPeComboBase::GetPreviewRestorables(KvRestorableSet& restorables) {
    restorables.Add(std::make_unique<KvRestorable<bool>>(m_allowUnspecified));
    return S_OK;
}

HRESULT CKvPeComboBase::ReleasePreviewRestorables(KvRestorableSet& restorables) {
    restorables.RestoreAll();
    return S_OK;
}

bool CKvPeComboBase::IsItemPreviewable(int) {
    return true;
}

// The host's preview service is not there yet: no preview is begun, so that none has to end.

bool CKvPeComboBase::IsPreviewEnabled() {
    return false;
}

HRESULT CKvPeComboBase::EndLivePreview() {
    return S_OK;
}

long CKvPeComboBase::Handle_OnListHover(UINT, WPARAM controlId, LPARAM, BOOL& handled) {
    handled = controlId == KVPE_ID_LIST;
    return 0;
}
