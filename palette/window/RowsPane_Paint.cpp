#include "framework/base/DeviceContexts.h"
#include "framework/base/Handles.h"
#include "palette/theme/Scale.h"
#include "palette/window/RowsPane.h"

namespace kvpalette {

namespace {

constexpr int c_textMargin = 8;
constexpr int c_indent = 20;
constexpr int c_chevronSize = 4;
constexpr int c_accentWidth = 3;

// A small triangle: to the right for a collapsed category, down for an open one.
void PaintChevron(HDC dc, int x, int middle, bool collapsed) {
    const int size = Scaled(c_chevronSize);
    const int half = size / 2;
    const POINT closed[] = {{x, middle - size}, {x, middle + size}, {x + size, middle}};
    const POINT open[] = {
        {x - half, middle - half}, {x + size + half, middle - half}, {x + half, middle + half}};
    const fw::UniqueBrush brush(::CreateSolidBrush(theme::c_softText));
    const fw::ScopedSelect selectedBrush(dc, brush.Get());
    const fw::ScopedSelect noPen(dc, ::GetStockObject(NULL_PEN));
    ::Polygon(dc, collapsed ? closed : open, 3);
}

}  // namespace

LRESULT RowsPane::OnPaint(UINT, WPARAM, LPARAM, BOOL&) {
    const fw::PaintDc target(m_hWnd);
    const CRect client = GetClientRect();
    const fw::MemoryDc memory(target);
    const fw::UniqueBitmap bitmap(::CreateCompatibleBitmap(target, static_cast<int>(client.Width()),
                                                           static_cast<int>(client.Height())));
    if (bitmap) {
        const fw::ScopedSelect selected(memory, bitmap.Get());
        Paint(memory);
        ::BitBlt(target, 0, 0, static_cast<int>(client.Width()), static_cast<int>(client.Height()), memory, 0,
                 0, SRCCOPY);
    }
    return 0;
}

LRESULT RowsPane::OnEraseBackground(UINT, WPARAM, LPARAM, BOOL&) {
    return 1;
}

void RowsPane::Paint(HDC dc) {
    FillColor(dc, GetClientRect(), theme::c_row);
    for (const RowLayout::Line& line : m_layout.Lines()) {
        const int top = line.top - m_layout.ScrollOffset();
        if (top + line.height <= 0 || top >= m_layout.Height()) {
            continue;
        }
        if (line.isCategory) {
            PaintCategory(dc, line.index);
        } else {
            PaintRow(dc, line.index);
        }
    }
}

void RowsPane::PaintCategory(HDC dc, std::size_t category) {
    RECT bounds = m_layout.CategoryBounds(category);
    FillColor(dc, bounds, theme::c_heading);
    FillColor(dc, {bounds.left, bounds.bottom - 1, bounds.right, bounds.bottom}, theme::c_line);
    PaintChevron(dc, Scaled(c_textMargin), static_cast<int>(bounds.top + bounds.bottom) / 2,
                 m_layout.IsCollapsed(category));
    bounds.left += Scaled(c_indent);
    DrawLineOfText(dc, bounds, m_layout.CategoryName(category).c_str(), m_fonts.bold.Get(), theme::c_text);
}

void RowsPane::PaintRow(HDC dc, std::size_t row) {
    const bool current = row == m_current;
    const RECT bounds = m_layout.RowBounds(row);
    RECT name = m_layout.NameBounds(row);
    FillColor(dc, name, current ? theme::c_accentLight : theme::c_row);
    if (current) {
        FillColor(dc, {name.left, name.top, name.left + Scaled(c_accentWidth), name.bottom}, theme::c_accent);
    }
    name.left += Scaled(c_indent);
    name.right -= Scaled(c_textMargin) / 2;
    DrawLineOfText(dc, name, m_rows[row].property.name.c_str(), m_fonts.plain.Get(), theme::c_text);
    if (!m_rows[row].control) {
        PaintValue(dc, row);
    }
    const LONG middle = m_layout.NameWidth();
    FillColor(dc, {middle, bounds.top, middle + 1, bounds.bottom}, theme::c_softLine);
    FillColor(dc, {bounds.left, bounds.bottom - 1, bounds.right, bounds.bottom}, theme::c_softLine);
}

// A value for which there is no control stands as text that cannot be edited.
void RowsPane::PaintValue(HDC dc, std::size_t row) {
    PaletteRow& shown = m_rows[row];
    if (!shown.readingIsFresh) {
        shown.reading = ReadRow(shown.property);
        shown.readingIsFresh = true;
    }
    RECT bounds = m_layout.ValueBounds(row);
    FillColor(dc, bounds, theme::c_readOnlyRow);
    bounds.left += 2;
    const std::wstring text = ReadingText(shown.property, shown.reading);
    DrawLineOfText(dc, bounds, text.c_str(), m_fonts.plain.Get(), theme::c_readOnlyText);
}

}  // namespace kvpalette
