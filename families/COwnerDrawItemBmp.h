#pragma once

#include "families/COwnerDrawItem.h"
#include "framework/window/Geometry.h"

/// An entry with a small picture before its text. The selection covers the text only.
class KVPEX_API COwnerDrawItemBmp : public COwnerDrawItem {
public:
    COwnerDrawItemBmp();
    ~COwnerDrawItemBmp() override;

    // COwnerDrawItem
    void Draw(HDC dc, const RECT& bounds, UINT action, UINT state, UINT id) override;
    void DrawPlain(HDC dc, const RECT& bounds) override;

    /// Where the text stands, the selection covers and the drawing is clipped in a row.
    [[nodiscard]] static CRect TextRect(const RECT& bounds, bool hasPicture);
    [[nodiscard]] static CRect SelectionRect(const RECT& bounds, bool hasPicture);
    [[nodiscard]] static CRect ClipRect(const RECT& bounds, bool hasPicture);

    static constexpr int PictureSize = 14;

    fw::UniqueBitmap picture;  // only borrowed: the store of list pictures keeps it
    bool bNoBitmap = false;
};
