#include "palette/window/PaletteWindow.h"

#include <algorithm>
#include <utility>

#include "framework/base/DeviceContexts.h"
#include "palette/theme/Scale.h"
#include "palette/window/CountText.h"

namespace kvpalette {

namespace {

constexpr fw::WindowClass c_paletteClass{L"KvPalettePalette", 0, fw::ArrowCursor};
constexpr int c_headHeight = 50;
constexpr int c_footHeight = 46;
constexpr int c_margin = 10;

bool SameText(const std::wstring& left, const std::wstring& right) {
    return ::CompareStringOrdinal(left.c_str(), -1, right.c_str(), -1, TRUE) == CSTR_EQUAL;
}

bool IsSameRow(const PaletteRow& left, const PaletteRow& right) {
    return left.property.name == right.property.name && left.property.category == right.property.category &&
           left.property.control == right.property.control && left.property.flags == right.property.flags;
}

}  // namespace

PaletteWindow::PaletteWindow(const Fonts& fonts, const ControlCatalogue& catalogue,
                             std::function<void()> edited)
    : m_fonts(fonts),
      m_rowSet(catalogue),
      m_pane(std::make_unique<RowsPane>(fonts,
                                        RowsPane::Handlers{std::move(edited), [this] { ShowCurrent(); }})) {
}

PaletteWindow::~PaletteWindow() {
    m_pane.reset();
    DestroyWindow();
}

bool PaletteWindow::Create(HWND parent, HWND frameWindow) {
    if (!CWnd::Create(c_paletteClass, L"Properties",
                      WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN | WS_CLIPSIBLINGS, {}, parent) ||
        !m_pane->Create(m_hWnd, frameWindow)) {
        return false;
    }
    SetSelection({});
    return true;
}

void PaletteWindow::SetSelection(const std::vector<KvDbObjectId>& ids) {
    m_selection = ids;
    SetHead();
    m_pane->SetRows(m_rowSet.RowsFor(m_selection));
}

void PaletteWindow::SetHead() {
    const std::vector<KvDbObjectId>& ids = m_selection;
    m_title = ids.empty() ? L"No selection" : kvhost::ClassNameOf(ids);
    if (m_title.empty()) {
        m_title = L"Several kinds";
    }
    m_subtitle = ids.empty() ? L"Pick objects in the drawing" : CountText(ids.size()) + L" selected";
    Invalidate(FALSE);
}

void PaletteWindow::ObjectsHaveChanged(const std::vector<KvDbObjectId>& ids) {
    if (ids != m_selection) {
        SetSelection(ids);
        return;
    }
    std::vector<PaletteRow> rows = m_rowSet.RowsFor(m_selection);
    const std::vector<PaletteRow>& shown = m_pane->Rows();
    if (std::equal(rows.begin(), rows.end(), shown.begin(), shown.end(), IsSameRow)) {
        m_pane->RefreshRows();
    } else {
        m_pane->SetRows(std::move(rows));
    }
}

std::size_t PaletteWindow::FindRow(const std::wstring& name) {
    const std::vector<PaletteRow>& rows = m_pane->Rows();
    const auto find = [&](const auto& matches) {
        const auto found = std::find_if(rows.begin(), rows.end(), matches);
        return found == rows.end() ? RowLayout::c_none : static_cast<std::size_t>(found - rows.begin());
    };
    std::size_t row = find([&](const PaletteRow& candidate) { return candidate.property.name == name; });
    if (row == RowLayout::c_none) {
        row = find([&](const PaletteRow& candidate) { return SameText(candidate.property.name, name); });
    }
    if (row == RowLayout::c_none) {
        row = find([&](const PaletteRow& candidate) {
            return SameText(candidate.property.category + L"/" + candidate.property.name, name);
        });
    }
    return row;
}

void PaletteWindow::ShowCurrent() {
    m_footTitle.clear();
    m_footText.clear();
    if (m_pane && m_pane->Current() < m_pane->Rows().size()) {
        const PaletteRow& row = m_pane->Rows()[m_pane->Current()];
        m_footTitle = row.property.name;
        const bool readOnly = (row.property.flags & kvhost::PropertyReadOnly) != 0;
        m_footText = row.kind == RowKind::Painted || readOnly ? L"Read-only"
                                                              : L"Type or choose a value; Return applies it";
        if (row.property.flags & kvhost::PropertyUnspecified && !readOnly) {
            m_footText += L", or leave it unspecified";
        }
    }
    const RECT foot = FootRect();
    if (m_hWnd) {
        InvalidateRect(&foot, FALSE);
    }
}

LRESULT PaletteWindow::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    LRESULT result = 0;
    return fw::DispatchMessage(s_messages, *this, message, wParam, lParam, result)
               ? result
               : CWnd::WindowProc(message, wParam, lParam);
}

RECT PaletteWindow::HeadRect() const {
    RECT bounds = GetClientRect();
    bounds.bottom = Scaled(c_headHeight);
    return bounds;
}

RECT PaletteWindow::FootRect() const {
    RECT bounds = m_hWnd ? GetClientRect() : CRect();
    bounds.top = bounds.bottom - Scaled(c_footHeight);
    return bounds;
}

LRESULT PaletteWindow::OnPaint(UINT, WPARAM, LPARAM, BOOL&) {
    const fw::PaintDc dc(m_hWnd);
    PaintHead(dc, HeadRect());
    PaintFoot(dc, FootRect());
    return 0;
}

void PaletteWindow::PaintHead(HDC dc, const RECT& bounds) const {
    FillColor(dc, bounds, theme::c_row);
    FillColor(dc, {bounds.left, bounds.bottom - 1, bounds.right, bounds.bottom}, theme::c_line);
    DrawLineOfText(dc,
                   {bounds.left + Scaled(c_margin), bounds.top + Scaled(8), bounds.right - Scaled(c_margin),
                    bounds.top + Scaled(28)},
                   m_title.c_str(), m_fonts.title.Get(), theme::c_text);
    DrawLineOfText(dc,
                   {bounds.left + Scaled(c_margin), bounds.top + Scaled(27), bounds.right - Scaled(c_margin),
                    bounds.top + Scaled(43)},
                   m_subtitle.c_str(), m_fonts.plain.Get(), theme::c_softText);
}

void PaletteWindow::PaintFoot(HDC dc, const RECT& bounds) const {
    FillColor(dc, bounds, theme::c_heading);
    FillColor(dc, {bounds.left, bounds.top, bounds.right, bounds.top + 1}, theme::c_line);
    DrawLineOfText(dc,
                   {bounds.left + Scaled(c_margin), bounds.top + Scaled(7), bounds.right - Scaled(c_margin),
                    bounds.top + Scaled(23)},
                   m_footTitle.c_str(), m_fonts.bold.Get(), theme::c_text);
    DrawLineOfText(dc,
                   {bounds.left + Scaled(c_margin), bounds.top + Scaled(23), bounds.right - Scaled(c_margin),
                    bounds.top + Scaled(39)},
                   m_footText.c_str(), m_fonts.plain.Get(), theme::c_softText);
}

LRESULT PaletteWindow::OnEraseBackground(UINT, WPARAM, LPARAM, BOOL&) {
    return 1;
}

LRESULT PaletteWindow::OnSize(UINT, WPARAM, LPARAM, BOOL&) {
    const CRect client = GetClientRect();
    m_pane->MoveWindow({0, Scaled(c_headHeight), client.right,
                        std::max<LONG>(Scaled(c_headHeight), client.bottom - Scaled(c_footHeight))});
    Invalidate(FALSE);
    return 0;
}

LRESULT PaletteWindow::OnSetFocus(UINT, WPARAM, LPARAM, BOOL&) {
    m_pane->SetFocus();
    return 0;
}

}  // namespace kvpalette
