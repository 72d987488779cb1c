#include "preview/CKvPeComboPreviewAction.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "core/ShellHold.h"
#include "families/CKvPeComboBase.h"
#include "framework/com/Guarded.h"
#include "preview/KvRestorableSet.h"

namespace {

/// Actions come on the host's one thread, so that a plain list does.
std::vector<CKvPeComboPreviewAction*>& LivingActions() {
    static std::vector<CKvPeComboPreviewAction*> s_actions;
    return s_actions;
}

}  // namespace

CKvPeComboPreviewAction::CKvPeComboPreviewAction(CKvPeComboBase& control, int item,
                                                 std::unique_ptr<fw::Variant> value)
    : m_pControl(&control), m_nItem(item), m_pValue(std::move(value)), m_pFormerBase(&control) {
    LivingActions().push_back(this);
}

CKvPeComboPreviewAction::~CKvPeComboPreviewAction() {
    std::erase(LivingActions(), this);
}

void CKvPeComboPreviewAction::ForgetControl(const CKvPePreviewAbleCtrlBase* control) {
    for (CKvPeComboPreviewAction* const action : LivingActions()) {
        if (action->m_pFormerBase == control) {
            action->m_pControl = nullptr;
        }
    }
}

Tolm::ErrorStatus CKvPeComboPreviewAction::Execute() {
    const HRESULT written = fw::Guarded([this]() -> HRESULT {
        RETURN_HR_IF(E_FAIL, m_pControl == nullptr);
        // The write can bring the palette to let the row go.
        const fw::ComPtr<IUnknown> shell = HoldShell(m_pControl->Events());
        KvRestorableSet restorables;
        fw::Ignore(m_pControl->GetPreviewRestorables(restorables));
        // Guarded by itself: what the write disturbed is restored also behind an exception.
        const HRESULT result = fw::Guarded([this] {
            return m_pValue ? m_pControl->SetPropertyValue(m_pValue->Address(), ValueType_Specific)
                            : m_pControl->SetSelectedItem(m_nItem);
        });
        if (m_pControl != nullptr) {
            fw::Ignore(m_pControl->ReleasePreviewRestorables(restorables));
        }
        return result;
    });
    return SUCCEEDED(written) ? Tolm::eOk : KVPE_PREVIEW_FAILED;
}
