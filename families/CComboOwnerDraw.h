#pragma once

#include "families/CPeComboCustom.h"

/// An owner-drawn drop-down over a container of the drawing, whose rows stay from one edit to the next.
class KVPEX_API CComboOwnerDraw : public CPeComboCustom {
public:
    CComboOwnerDraw();
    ~CComboOwnerDraw() override;

    /// The rows are in place. Cleared by whoever sees the container change, which asks for a new fill.
    bool m_bFilled = false;
};
