// What a list row shows on the drawing while the mouse goes over its entries.
#include "core/ChildIds.h"
#include "core/HostDocument.h"
#include "families/CKvPeComboBase.h"
#include "host_sdk/KvApDocument.h"
#include "host_sdk/KvEdLivePreview.h"
#include "host_sdk/KvEdServices.h"
#include "host_sdk/KvRxVariablesDictionary.h"
#include "preview/CKvPeComboPreviewAction.h"
#include "preview/KvRestorable.h"
#include "preview/KvRestorableSet.h"

namespace {

constexpr const wchar_t* c_previewVariable = L"PROPERTYPREVIEW";

bool IsWithinPalette(HWND window) {
    for (const int palette : {KVED_FIRST_PALETTE, KVED_SECOND_PALETTE}) {
        const HWND paletteWindow = kvedGetPaletteWnd(palette);
        if (paletteWindow != nullptr && ::IsChild(paletteWindow, window)) {
            return true;
        }
    }
    return false;
}

}  // namespace

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

bool CKvPeComboBase::IsPreviewEnabled() {
    const KvApDocument* const document = CurrentHostDocument();
    return document != nullptr && document->allowsLivePreview() && EntryCount() > 0 &&
           m_objects[0] != nullptr && KvRxVariablesDictionary::getBool(c_previewVariable, false) &&
           HasList() && IsWithinPalette(m_pList->m_hWnd);
}

long CKvPeComboBase::Handle_OnListHover(UINT, WPARAM controlId, LPARAM item, BOOL& handled) {
    handled = controlId == KVPE_ID_LIST;
    const int entry = static_cast<int>(item);
    if (handled) {
        m_hoveredItem = entry;
    }
    // The entry is compared first: the mouse moves many times over each, and each question goes to the host.
    if (!handled || entry == m_nPreviewItem || !IsPreviewEnabled()) {
        return S_OK;
    }
    const bool stop = entry < 0 || entry == m_nCurItem || !IsItemPreviewable(entry);
    KvEdLivePreview preview(CurrentHostDocument(), stop);
    preview.abortAll();
    m_nPreviewItem = stop ? m_nCurItem : entry;
    if (!stop) {
        m_showsPreview = true;
        preview.queueAction(std::make_unique<CKvPeComboPreviewAction>(*this, entry, nullptr).release());
    } else if (kvedIsLivePreviewStarted()) {
        preview.endPreview();
    }
    return S_OK;
}

HRESULT CKvPeComboBase::EndLivePreview() {
    m_showsPreview = false;
    m_nPreviewItem = m_nCurItem;  // the entry that was shown can be shown again
    if (kvedIsLivePreviewStarted()) {
        KvEdLivePreview preview(CurrentHostDocument(), true);
        preview.abortAll();
        preview.endPreview(0, m_bCancelled != FALSE);
    }
    return S_OK;
}
