#pragma once

#include "core/Export.h"
#include "framework/base/WindowsApi.h"

class CKvPeCtrlBase;

/// What every drop-down window of a list row carries beside its window class: the way back to the row. The
/// order of the operations is fixed.
class KVPEX_API CPeBaseComboBox {
public:
    CPeBaseComboBox() = default;
    CPeBaseComboBox(const CPeBaseComboBox&) = delete;
    CPeBaseComboBox& operator=(const CPeBaseComboBox&) = delete;
    virtual ~CPeBaseComboBox();

    /// The object that draws the entry, a COwnerDrawItem. 0 for an entry without one, negative for lists that
    /// have none and for an index that is none.
    [[nodiscard]] virtual LONG_PTR GetItemObject(int index) const;

    // The slots end here.

    /// The row, which owns this window; null until the row has made it its own.
    [[nodiscard]] CKvPeCtrlBase* GetOwner() const { return m_owner; }
    void SetOwner(CKvPeCtrlBase* owner) { m_owner = owner; }

private:
    CKvPeCtrlBase* m_owner = nullptr;  // the row
};
