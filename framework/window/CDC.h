#pragma once

#include "framework/base/CString.h"
#include "framework/base/DeviceContexts.h"
#include "framework/base/Export.h"
#include "framework/base/WindowsApi.h"
#include "framework/window/Geometry.h"

// A device context that somebody else owns: fw::WindowDc, fw::PaintDc, fw::MemoryDc or the system.
class FW_API CDC {
public:
    CDC() = default;
    CDC(HDC dc) : m_hDC(dc) {}

    HDC m_hDC = nullptr;
    HDC GetSafeHdc() const { return m_hDC; }
    operator HDC() const { return m_hDC; }

    // The window that the context came from, null for memory and metafile contexts.
    HWND GetWindow() const { return ::WindowFromDC(m_hDC); }

    COLORREF SetTextColor(COLORREF color) { return ::SetTextColor(m_hDC, color); }
    COLORREF GetTextColor() const { return ::GetTextColor(m_hDC); }
    COLORREF SetBkColor(COLORREF color) { return ::SetBkColor(m_hDC, color); }
    COLORREF GetBkColor() const { return ::GetBkColor(m_hDC); }
    int SetBkMode(int mode) { return ::SetBkMode(m_hDC, mode); }

    int DrawText(const CString& text, RECT* bounds, UINT format);
    BOOL ExtTextOut(int x, int y, UINT options, const RECT* bounds, const CString& text);
    // The height and width of the text in one line of the selected font.
    CSize GetTextExtent(const CString& text) const;

    // Fills without leaving a trace in the context, background colour included.
    void FillSolidRect(const RECT& bounds, COLORREF color);
    void FillRect(const RECT& bounds, HBRUSH brush) { ::FillRect(m_hDC, &bounds, brush); }
    void FrameRect(const RECT& bounds, HBRUSH brush) { ::FrameRect(m_hDC, &bounds, brush); }
    void DrawFocusRect(const RECT& bounds) { ::DrawFocusRect(m_hDC, &bounds); }
    void DrawLine(int fromX, int fromY, int toX, int toY);
    BOOL BitBlt(const RECT& target, HDC source, int sourceX, int sourceY, DWORD operation = SRCCOPY);

    int IntersectClipRect(const RECT& bounds);
};
