// Owners of device contexts, named by how the context was got, and scopes for changes to one.
#pragma once

#include "framework/base/WindowsApi.h"

namespace fw {

// From GetDC. With a null window it is the screen's.
class WindowDc {
public:
    explicit WindowDc(HWND window) : m_window(window), m_dc(::GetDC(window)) {}
    ~WindowDc() {
        if (m_dc) {
            ::ReleaseDC(m_window, m_dc);
        }
    }
    WindowDc(const WindowDc&) = delete;
    WindowDc& operator=(const WindowDc&) = delete;

    HDC Get() const { return m_dc; }
    operator HDC() const { return m_dc; }

private:
    HWND m_window;
    HDC m_dc;
};

// From BeginPaint, for the length of one WM_PAINT.
class PaintDc {
public:
    explicit PaintDc(HWND window) : m_window(window), m_dc(::BeginPaint(window, &m_paint)) {}
    ~PaintDc() { ::EndPaint(m_window, &m_paint); }
    PaintDc(const PaintDc&) = delete;
    PaintDc& operator=(const PaintDc&) = delete;

    HDC Get() const { return m_dc; }
    operator HDC() const { return m_dc; }
    const RECT& DirtyRect() const { return m_paint.rcPaint; }
    bool EraseWanted() const { return m_paint.fErase != FALSE; }

private:
    HWND m_window;
    PAINTSTRUCT m_paint{};
    HDC m_dc;
};

// From CreateCompatibleDC. What is selected into it must leave before it ends: use ScopedSelect.
class MemoryDc {
public:
    explicit MemoryDc(HDC like) : m_dc(::CreateCompatibleDC(like)) {}
    ~MemoryDc() {
        if (m_dc) {
            ::DeleteDC(m_dc);
        }
    }
    MemoryDc(const MemoryDc&) = delete;
    MemoryDc& operator=(const MemoryDc&) = delete;

    HDC Get() const { return m_dc; }
    operator HDC() const { return m_dc; }

private:
    HDC m_dc;
};

// Selects a pen, brush, font or bitmap and puts the earlier one back. A null object selects nothing.
class ScopedSelect {
public:
    ScopedSelect(HDC dc, HGDIOBJ object) : m_dc(dc), m_old(object ? ::SelectObject(dc, object) : nullptr) {}
    ~ScopedSelect() {
        if (m_old) {
            ::SelectObject(m_dc, m_old);
        }
    }
    ScopedSelect(const ScopedSelect&) = delete;
    ScopedSelect& operator=(const ScopedSelect&) = delete;

private:
    HDC m_dc;
    HGDIOBJ m_old;
};

// Selects a font and puts the earlier one back. A font that is in the context already is left alone: to
// select one costs the system nearly as much as to write a short text. A null font selects nothing.
class ScopedFont {
public:
    ScopedFont(HDC dc, HFONT font) : m_dc(dc), m_old(::GetCurrentObject(dc, OBJ_FONT)), m_new(font) {
        if (IsOther()) {
            ::SelectObject(m_dc, m_new);
        }
    }
    ~ScopedFont() {
        if (IsOther()) {
            ::SelectObject(m_dc, m_old);
        }
    }
    ScopedFont(const ScopedFont&) = delete;
    ScopedFont& operator=(const ScopedFont&) = delete;

private:
    bool IsOther() const { return m_new && m_new != m_old; }

    HDC m_dc;
    HGDIOBJ m_old;
    HGDIOBJ m_new;
};

// Keeps the colours in which a context writes text, at a small part of what saving its whole state costs.
class ScopedTextColors {
public:
    explicit ScopedTextColors(HDC dc)
        : m_dc(dc), m_text(::GetTextColor(dc)), m_ground(::GetBkColor(dc)), m_mode(::GetBkMode(dc)) {}
    ~ScopedTextColors() {
        ::SetTextColor(m_dc, m_text);
        ::SetBkColor(m_dc, m_ground);
        ::SetBkMode(m_dc, m_mode);
    }
    ScopedTextColors(const ScopedTextColors&) = delete;
    ScopedTextColors& operator=(const ScopedTextColors&) = delete;

private:
    HDC m_dc;
    COLORREF m_text;
    COLORREF m_ground;
    int m_mode;
};

// Saves the whole state of a context and restores it.
class ScopedSaveDc {
public:
    explicit ScopedSaveDc(HDC dc) : m_dc(dc), m_saved(::SaveDC(dc)) {}
    ~ScopedSaveDc() {
        if (m_saved != 0) {
            ::RestoreDC(m_dc, m_saved);
        }
    }
    ScopedSaveDc(const ScopedSaveDc&) = delete;
    ScopedSaveDc& operator=(const ScopedSaveDc&) = delete;

private:
    HDC m_dc;
    int m_saved;
};

}  // namespace fw
