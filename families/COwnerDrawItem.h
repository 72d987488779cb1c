#pragma once

#include <cstdint>

#include "core/Export.h"
#include "framework/base/CString.h"
#include "framework/base/Handles.h"

/// One entry of an owner-drawn list: knows its text and draws itself. Owned by its row of the list, which
/// keeps it as the row's data.
class KVPEX_API COwnerDrawItem {
public:
    COwnerDrawItem();
    COwnerDrawItem(const COwnerDrawItem&) = delete;
    COwnerDrawItem& operator=(const COwnerDrawItem&) = delete;
    virtual ~COwnerDrawItem();

    /// `action` holds ODA_, `state` ODS_ bits. `id` is the row's index, or KVPE_TEXT_TIP_MARK for a tip,
    /// whose ground is there already.
    virtual void Draw(HDC dc, const RECT& bounds, UINT action, UINT state, UINT id);
    /// Ground and text, whatever the state.
    virtual void DrawPlain(HDC dc, const RECT& bounds);

    // The slots end here.

    /// The item that a row's data stands for; null for data that are none.
    [[nodiscard]] static COwnerDrawItem* FromRowData(LONG_PTR data) {
        return data > 0 ? reinterpret_cast<COwnerDrawItem*>(data) : nullptr;
    }
    [[nodiscard]] static LONG_PTR ToRowData(COwnerDrawItem* item) { return reinterpret_cast<LONG_PTR>(item); }

    CString name;
    std::int64_t data = 0;    // for the use of derived classes
    fw::UniqueBitmap bitmap;  // likewise
    std::int64_t extra = 0;   // likewise
    COLORREF colour = 0xFFFFFF;
};
