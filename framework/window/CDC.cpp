#include "framework/window/CDC.h"

int CDC::DrawText(const CString& text, RECT* bounds, UINT format) {
    return ::DrawTextW(m_hDC, text.GetString(), text.GetLength(), bounds, format);
}

BOOL CDC::ExtTextOut(int x, int y, UINT options, const RECT* bounds, const CString& text) {
    return ::ExtTextOutW(m_hDC, x, y, options, bounds, text.GetString(), static_cast<UINT>(text.GetLength()),
                         nullptr);
}

CSize CDC::GetTextExtent(const CString& text) const {
    CSize size;
    ::GetTextExtentPoint32W(m_hDC, text.GetString(), text.GetLength(), &size);
    return size;
}

void CDC::FillSolidRect(const RECT& bounds, COLORREF color) {
    const COLORREF old = ::SetBkColor(m_hDC, color);
    ::ExtTextOutW(m_hDC, 0, 0, ETO_OPAQUE, &bounds, nullptr, 0, nullptr);
    ::SetBkColor(m_hDC, old);
}

void CDC::DrawLine(int fromX, int fromY, int toX, int toY) {
    POINT old{};
    ::MoveToEx(m_hDC, fromX, fromY, &old);
    ::LineTo(m_hDC, toX, toY);
    ::MoveToEx(m_hDC, old.x, old.y, nullptr);
}

BOOL CDC::BitBlt(const RECT& target, HDC source, int sourceX, int sourceY, DWORD operation) {
    return ::BitBlt(m_hDC, target.left, target.top, target.right - target.left, target.bottom - target.top,
                    source, sourceX, sourceY, operation);
}

int CDC::IntersectClipRect(const RECT& bounds) {
    return ::IntersectClipRect(m_hDC, bounds.left, bounds.top, bounds.right, bounds.bottom);
}
