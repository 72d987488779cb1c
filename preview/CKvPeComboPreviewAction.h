#pragma once

#include <memory>

#include "framework/com/Variant.h"
#include "host_sdk/KvEdLivePreview.h"

class CKvPeComboBase;
class CKvPePreviewAbleCtrlBase;

/// Writes an entry of a list row, or a value, for the host to show. Owned by the host once it is queued. The
/// host may keep it longer than the row lives; it does nothing then.
class CKvPeComboPreviewAction final : public KvEdLivePreviewAction {
public:
    /// Without a value the entry `item` is written; with one `item` is -1.
    CKvPeComboPreviewAction(CKvPeComboBase& control, int item, std::unique_ptr<fw::Variant> value);
    ~CKvPeComboPreviewAction() override;

    // KvEdLivePreviewAction
    /// KVPE_PREVIEW_FAILED when the row could not write.
    Tolm::ErrorStatus Execute() override;
    int Reserved() override { return 0; }

    /// Takes the row, which is about to go, from the actions that the host still keeps.
    static void ForgetControl(const CKvPePreviewAbleCtrlBase* control);

private:
    CKvPeComboBase* m_pControl;  // not owned
    int m_nItem;
    std::unique_ptr<fw::Variant> m_pValue;
    const CKvPePreviewAbleCtrlBase* m_pFormerBase;  // by which ForgetControl knows the row
};

/// Status of a preview whose write failed.
inline constexpr auto KVPE_PREVIEW_FAILED = static_cast<Tolm::ErrorStatus>(20118);
