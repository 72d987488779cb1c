#pragma once

#include <vector>

#include "families/CKvPeEnumBase.h"

/// A list row over one element of a grouped property. Which one, the palette tells by the element's cookie
/// and the offset of the group that its user is at.
class CPropertyEditorSpinnerEnum : public CKvPeEnumBase {
public:
    using CKvPeEnumBase::CKvPeEnumBase;

    // CKvPeCtrlBase
    HRESULT Cleanup() override;
    HRESULT EndEdit() override;

    // CKvPeComboBase
    int GetCurrentItem() override;

    // IKvPeVariantCtrl, for the shell
    /// E_FAIL unless the argument is an array of VT_I4.
    [[nodiscard]] HRESULT SetDwCookies(const VARIANT& cookies);
    [[nodiscard]] HRESULT SetGroupOffset(unsigned long offset);
    [[nodiscard]] HRESULT SetElementCount(unsigned long count);

private:
    [[nodiscard]] bool GetKey(unsigned& key) const;
    [[nodiscard]] HRESULT ReadElement(fw::Variant& value) const;
    [[nodiscard]] HRESULT WriteElement(int item, bool& isWritable) const;
    [[nodiscard]] HRESULT CommitElement(int choice);
    void TellEndOfUpdate();

    std::vector<long> m_pCookies;
    unsigned long m_nGroupOffset = 0;
    unsigned long m_nElementCount = 0;  // kept for the palette; nothing here depends on it
};
