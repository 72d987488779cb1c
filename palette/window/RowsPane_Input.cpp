#include <algorithm>

#include "framework/base/Hresult.h"
#include "framework/window/Geometry.h"
#include "palette/window/RowsPane.h"

namespace kvpalette {

LRESULT RowsPane::OnLeftDown(UINT, WPARAM, LPARAM lParam, BOOL&) {
    const RowLayout::Hit hit = m_layout.HitTest(CPoint(lParam));
    switch (hit.place) {
        case RowLayout::Place::Category:
            m_layout.SetCollapsed(hit.index, !m_layout.IsCollapsed(hit.index));
            Arrange();
            break;
        case RowLayout::Place::Splitter:
            m_draggingSplitter = true;
            SetCapture();
            return 0;
        case RowLayout::Place::Name:
        case RowLayout::Place::Value:
            MakeCurrent(hit.index);
            break;
        default:
            break;
    }
    LeaveRow();
    SetFocus();
    return 0;
}

LRESULT RowsPane::OnLeftDoubleClick(UINT, WPARAM, LPARAM lParam, BOOL&) {
    const RowLayout::Hit hit = m_layout.HitTest(CPoint(lParam));
    if (hit.place == RowLayout::Place::Name) {
        fw::Ignore(ActivateRow(hit.index));  // the row stays as it is when its control refuses
    } else if (hit.place == RowLayout::Place::Splitter) {
        m_layout.SetNameWidth(0);
        Arrange();
    }
    return 0;
}

LRESULT RowsPane::OnMouseMove(UINT, WPARAM, LPARAM lParam, BOOL&) {
    if (m_draggingSplitter) {
        m_layout.SetNameWidth(static_cast<int>(std::max<LONG>(1, CPoint(lParam).x)));
        Arrange();
        UpdateWindow();
    }
    return 0;
}

LRESULT RowsPane::OnLeftUp(UINT, WPARAM, LPARAM, BOOL&) {
    if (m_draggingSplitter) {
        ::ReleaseCapture();
    }
    return 0;
}

LRESULT RowsPane::OnCaptureChanged(UINT, WPARAM, LPARAM, BOOL&) {
    m_draggingSplitter = false;
    return 0;
}

LRESULT RowsPane::OnSetCursor(UINT, WPARAM, LPARAM lParam, BOOL& handled) {
    POINT point{};
    ::GetCursorPos(&point);
    ScreenToClient(&point);
    if (LOWORD(lParam) == HTCLIENT && m_layout.HitTest(point).place == RowLayout::Place::Splitter) {
        ::SetCursor(::LoadCursorW(nullptr, IDC_SIZEWE));
        return TRUE;
    }
    handled = FALSE;
    return 0;
}

LRESULT RowsPane::OnKeyDown(UINT, WPARAM wParam, LPARAM, BOOL& handled) {
    handled = HandleKey(wParam, ::GetKeyState(VK_SHIFT) < 0) ? TRUE : FALSE;
    return 0;
}

LRESULT RowsPane::OnGetDlgCode(UINT, WPARAM, LPARAM, BOOL&) {
    return DLGC_WANTALLKEYS;
}

LRESULT RowsPane::OnFocusChange(UINT, WPARAM, LPARAM, BOOL& handled) {
    InvalidateRow(m_current);
    handled = FALSE;
    return 0;
}

// Sent by a control through its events; without a key it only clears what has been retired.
LRESULT RowsPane::OnRowKey(UINT, WPARAM wParam, LPARAM lParam, BOOL&) {
    if (m_runningEvents == 0) {
        m_retired.clear();
    }
    if (wParam == VK_RETURN) {
        // Return has committed. A box in which the user has begun keeps the focus, as it asks.
        if (!ControlKeepsFocus()) {
            LeaveRow();
            SetFocus();
        }
    } else if (wParam != 0) {
        HandleKey(wParam, (lParam & MK_SHIFT) != 0);
    }
    return 0;
}

bool RowsPane::HandleKey(WPARAM key, bool shift) {
    const int page = std::max(1, m_layout.Height() / RowLayout::RowHeight() - 1);
    switch (key) {
        case VK_TAB:
            MoveCurrent(!shift, 1);
            fw::Ignore(ActivateRow(m_current));  // a row without control is only made current
            return true;
        case VK_DOWN:
            MoveCurrent(true, 1);
            return true;
        case VK_UP:
            MoveCurrent(false, 1);
            return true;
        case VK_NEXT:
            MoveCurrent(true, page);
            return true;
        case VK_PRIOR:
            MoveCurrent(false, page);
            return true;
        case VK_HOME:
            MoveCurrent(false, static_cast<int>(m_rows.size()));
            return true;
        case VK_END:
            MoveCurrent(true, static_cast<int>(m_rows.size()));
            return true;
        case VK_LEFT:
        case VK_RIGHT:
            CollapseCurrent(key == VK_LEFT);
            return true;
        case VK_RETURN:
        case VK_F2:
            fw::Ignore(ActivateRow(m_current));  // likewise
            return true;
        default:
            return false;
    }
}

// One step from an end goes round to the other; longer steps stop there.
void RowsPane::MoveCurrent(bool forward, int count) {
    LeaveRow();
    std::size_t target = m_current;
    for (int step = 0; step < count; ++step) {
        const std::size_t next = m_layout.NextRow(target, forward);
        if (next == RowLayout::c_none) {
            break;
        }
        target = next;
    }
    if (target == m_current && count == 1) {
        target = m_layout.NextRow(RowLayout::c_none, forward);
    }
    if (target != RowLayout::c_none) {
        MakeCurrent(target);
        m_layout.Reveal(target);
        Arrange();
    }
    SetFocus();
}

void RowsPane::CollapseCurrent(bool collapse) {
    if (m_current < m_rows.size()) {
        m_layout.SetCollapsed(m_layout.CategoryOf(m_current), collapse);
        Arrange();
    }
}

}  // namespace kvpalette
