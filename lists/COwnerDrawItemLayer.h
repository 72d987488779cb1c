#pragma once

#include "families/COwnerDrawItem.h"

/// A layer in a list: faint when it cannot be chosen, on a ground of its own when it looks otherwise in the
/// current viewport.
class COwnerDrawItemLayer final : public COwnerDrawItem {
public:
    COwnerDrawItemLayer();
    ~COwnerDrawItemLayer() override;

    // COwnerDrawItem
    void Draw(HDC dc, const RECT& bounds, UINT action, UINT state, UINT id) override;

    bool disabled = false;
    bool hasViewportOverride = false;
};
