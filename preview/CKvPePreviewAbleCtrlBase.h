#pragma once

#include "core/Export.h"
#include "framework/base/WindowsApi.h"

/// Second base of the rows that can show an entry on the drawing before it is chosen. The shell asks it
/// before it tells the palette of an update. Has no fields; the order of the operations is fixed.
class KVPEX_API CKvPePreviewAbleCtrlBase {
public:
    /// The mouse is over the entry `item` of the list `controlId`, -1 for none. `handled` is set to whether
    /// the list is the row's own.
    virtual long Handle_OnListHover(UINT message, WPARAM controlId, LPARAM item, BOOL& handled) = 0;
    /// While the host records a preview these two send it the mark of a preview and set `handled`, and the
    /// palette hears nothing of the update. Otherwise they leave `handled` alone.
    virtual long Handle_OnBeginPropertyUpdate(int& handled);
    virtual long Handle_OnEndPropertyUpdate(int& handled);

protected:
    CKvPePreviewAbleCtrlBase() = default;
    CKvPePreviewAbleCtrlBase(const CKvPePreviewAbleCtrlBase&) = default;
    CKvPePreviewAbleCtrlBase& operator=(const CKvPePreviewAbleCtrlBase&) = default;
    /// Actions of the row that the host still keeps do nothing from now on.
    ~CKvPePreviewAbleCtrlBase();
};
