#pragma once

#include "framework/window/Geometry.h"

/// Deals out the squares of a row's small buttons, from one end of the row inwards, and the rest for the edit
/// box.
class SmallButtonLayout {
public:
    static constexpr int Gap = 1;
    enum class Side { Left, Right };

    SmallButtonLayout(const CRect& row, Side side) : m_side(side), m_rest(row) {}

    /// The square of the next button; the first one stands at the very end.
    CRect NextButton() {
        CRect square = m_rest;
        const LONG side = m_rest.Height();
        if (m_side == Side::Right) {
            square.left = square.right - side;
            m_rest.right = square.left - Gap;
        } else {
            square.right = square.left + side;
            m_rest.left = square.right + Gap;
        }
        return square;
    }

    /// What the buttons so far leave, never less than nothing.
    CRect Rest() const {
        CRect rest = m_rest;
        if (rest.Width() < 0) {
            (m_side == Side::Right ? rest.right : rest.left) = m_side == Side::Right ? rest.left : rest.right;
        }
        return rest;
    }

private:
    Side m_side;
    CRect m_rest;
};
