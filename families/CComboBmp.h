#pragma once

#include "families/CPeComboCustom.h"

/// A drop-down whose entries are texts with a small picture each.
class KVPEX_API CComboBmp : public CPeComboCustom {
public:
    enum class Picture { Shown, None };

    CComboBmp();
    ~CComboBmp() override;

    /// The row that the drop-down belongs to, and the way back to it.
    virtual void SetOwnerControl(CKvPeCtrlBase* owner);
    [[nodiscard]] CKvPeCtrlBase* GetOwnerControl() const { return m_ownerControl; }

    /// Adds a row with the satellite's bitmap `bitmapId`; without a picture the id does not matter. The row's
    /// index, or -1.
    int AddBitmapItem(const CString& name, UINT bitmapId, Picture picture);

private:
    CKvPeCtrlBase* m_ownerControl = nullptr;  // the row
};
