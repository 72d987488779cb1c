#include "palette/window/RowsPane.h"

#include <algorithm>
#include <utility>

#include "framework/base/Hresult.h"
#include "palette/rows/RowSet.h"

namespace kvpalette {

namespace {

constexpr fw::WindowClass c_paneClass{L"KvPaletteRows", CS_DBLCLKS, fw::ArrowCursor};
constexpr int c_wheelLines = 3;

fw::ComPtr<IFont> RowFont() {
    // 8.25 points, in ten-thousandths.
    constexpr CY c_size{.int64 = 82500};
    FONTDESC description{};
    description.cbSizeofstruct = sizeof(description);
    description.lpstrName = const_cast<wchar_t*>(theme::c_fontFace);
    description.cySize = c_size;
    description.sWeight = FW_NORMAL;
    description.sCharset = DEFAULT_CHARSET;
    fw::ComPtr<IFont> font;
    fw::Ignore(::OleCreateFontIndirect(&description, IID_IFont,
                                       font.PutVoid()));  // controls have a font of their own
    return font;
}

// Counts the events of controls that run: nothing is destroyed under them.
class EventScope {
public:
    explicit EventScope(int& count) : m_count(count) { ++m_count; }
    ~EventScope() { --m_count; }
    EventScope(const EventScope&) = delete;
    EventScope& operator=(const EventScope&) = delete;

private:
    int& m_count;
};

}  // namespace

RowsPane::RowsPane(const Fonts& fonts, Handlers handlers) : m_fonts(fonts), m_handlers(std::move(handlers)) {
    m_ambient.foreColor = theme::c_text;
    m_ambient.backColor = theme::c_row;
    m_ambient.readOnlyForeColor = theme::c_readOnlyText;
    m_ambient.readOnlyBackColor = theme::c_readOnlyRow;
    m_ambient.font = RowFont();
}

RowsPane::~RowsPane() {
    m_rows.clear();
    m_retired.clear();
    if (m_frame) {
        m_frame->Disconnect();
    }
    DestroyWindow();
}

bool RowsPane::Create(HWND parent, HWND frameWindow) {
    CComObject<ControlFrame>* frame = nullptr;
    if (FAILED(CComObject<ControlFrame>::CreateInstance(nullptr, &frame))) {
        return false;
    }
    m_frame.Attach(frame);
    m_frame->Connect(frameWindow);
    return CWnd::Create(c_paneClass, L"",
                        WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN | WS_CLIPSIBLINGS | WS_VSCROLL, {},
                        parent) != FALSE;
}

void RowsPane::SetRows(std::vector<PaletteRow> rows) {
    LeaveRow();
    const std::wstring currentName =
        m_current < m_rows.size() ? m_rows[m_current].property.name : std::wstring();
    for (PaletteRow& row : m_rows) {
        DropControl(row);
    }
    m_rows = std::move(rows);
    std::vector<std::wstring> categories;
    m_current = RowLayout::c_none;
    for (std::size_t i = 0; i < m_rows.size(); ++i) {
        categories.push_back(m_rows[i].property.category);
        if (!currentName.empty() && m_rows[i].property.name == currentName &&
            m_current == RowLayout::c_none) {
            m_current = i;
        }
    }
    m_layout.SetRows(categories);
    Arrange();
    m_handlers.currentChanged();
}

void RowsPane::RefreshRows() {
    for (PaletteRow& row : m_rows) {
        row.readingIsFresh = false;
        if (row.control) {
            fw::Ignore(row.control->Refresh());  // a failed read leaves the control's earlier display
        }
    }
    Invalidate(FALSE);
    m_handlers.currentChanged();
}

void RowsPane::MakeCurrent(std::size_t row) {
    if (row != m_current) {
        InvalidateRow(m_current);
        m_current = row;
        InvalidateRow(m_current);
        m_handlers.currentChanged();
    }
}

HRESULT RowsPane::ActivateRow(std::size_t row) {
    HostedControl* const control = ShowRow(row);
    MakeCurrent(row);
    if (!control) {
        LeaveRow();
        return S_FALSE;
    }
    return control->UiActivate();
}

HostedControl* RowsPane::ShowRow(std::size_t row) {
    if (row >= m_rows.size()) {
        return nullptr;
    }
    m_layout.Reveal(row);
    Arrange();
    return m_rows[row].control.get();
}

void RowsPane::LeaveRow() {
    if (m_active) {
        m_active->UiDeactivate();
        m_active = nullptr;
    }
    if (m_hWnd && IsChild(::GetFocus())) {
        SetFocus();
    }
}

bool RowsPane::ControlKeepsFocus() const {
    return m_active && m_active->KeepsFocus();
}

LRESULT RowsPane::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    LRESULT result = 0;
    return fw::DispatchMessage(s_messages, *this, message, wParam, lParam, result)
               ? result
               : CWnd::WindowProc(message, wParam, lParam);
}

void RowsPane::Arrange() {
    if (!m_hWnd) {
        return;
    }
    // The scroll bar takes its width from the rows, so the size is asked again behind it.
    UpdateScrollBar();
    const CRect client = GetClientRect();
    m_layout.SetSize(static_cast<int>(client.Width()), static_cast<int>(client.Height()));
    UpdateScrollBar();
    UpdateControls();
    Invalidate(FALSE);
}

void RowsPane::UpdateScrollBar() {
    SCROLLINFO info{};
    info.cbSize = sizeof(info);
    info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
    info.nMax = std::max(0, m_layout.ContentHeight() - 1);
    info.nPage = static_cast<UINT>(m_layout.Height());
    info.nPos = m_layout.ScrollOffset();
    ::SetScrollInfo(m_hWnd, SB_VERT, &info, TRUE);
}

void RowsPane::UpdateControls() {
    for (std::size_t i = 0; i < m_rows.size(); ++i) {
        PaletteRow& row = m_rows[i];
        if (!m_layout.IsInSight(i)) {
            DropControl(row);
            continue;
        }
        const RECT bounds = m_layout.ValueBounds(i);
        if (row.kind == RowKind::Painted || (!row.control && !CreateControl(row, bounds))) {
            continue;
        }
        if (!row.control->IsInPlace()) {
            fw::Ignore(row.control->Activate(bounds));  // a row whose window fails stays empty
        } else if (!::EqualRect(&bounds, &row.control->Position())) {
            fw::Ignore(row.control->SetPosition(bounds));
        }
    }
}

bool RowsPane::CreateControl(PaletteRow& row, const RECT& bounds) {
    auto control = std::make_unique<HostedControl>(Surroundings());
    RowSelection selection;
    if (FAILED(RowSet::SelectionOf(row.property, selection)) ||
        FAILED(control->Create(row.classId, row.property.name, selection, &bounds))) {
        // What a control cannot read, the palette shows as far as it can.
        row.kind = RowKind::Painted;
        return false;
    }
    row.control = std::move(control);
    return true;
}

void RowsPane::DropControl(PaletteRow& row) {
    if (!row.control) {
        return;
    }
    if (m_active == row.control.get()) {
        LeaveRow();
    }
    if (m_runningEvents > 0) {
        row.control->Hide();
        m_retired.push_back(std::move(row.control));
        PostMessage(c_rowKeyMessage);
        return;
    }
    row.control.reset();
}

void RowsPane::ScrollTo(int offset) {
    m_layout.ScrollTo(offset);
    Arrange();
}

void RowsPane::InvalidateRow(std::size_t row) {
    const RECT bounds = m_layout.RowBounds(row);
    if (m_hWnd && !::IsRectEmpty(&bounds)) {
        InvalidateRect(&bounds, FALSE);
    }
}

std::size_t RowsPane::RowOf(const HostedControl& control) const {
    const auto found = std::find_if(m_rows.begin(), m_rows.end(),
                                    [&](const PaletteRow& row) { return row.control.get() == &control; });
    return found == m_rows.end() ? RowLayout::c_none : static_cast<std::size_t>(found - m_rows.begin());
}

void RowsPane::OnControlClick(HostedControl& control) {
    MakeCurrent(RowOf(control));
}

void RowsPane::OnControlDoubleClick(HostedControl& control) {
    MakeCurrent(RowOf(control));
}

// The key is taken up when the control is done with it: moving on may destroy the control.
void RowsPane::OnControlKey(HostedControl& control, WPARAM key, LPARAM data) {
    constexpr LPARAM c_released = 0x80000000;
    if ((data & c_released) == 0) {
        MakeCurrent(RowOf(control));
        PostMessage(c_rowKeyMessage, key, ::GetKeyState(VK_SHIFT) < 0 ? MK_SHIFT : 0);
    }
}

void RowsPane::OnControlRightButton(HostedControl& control, WPARAM, POINT) {
    MakeCurrent(RowOf(control));
}

void RowsPane::OnControlMiddleButton(HostedControl& control, WPARAM, POINT) {
    MakeCurrent(RowOf(control));
}

void RowsPane::OnControlBeginUpdate(HostedControl&) {
    ++m_runningEvents;
}

void RowsPane::OnControlEndUpdate(HostedControl&) {
    m_runningEvents = std::max(0, m_runningEvents - 1);
    if (!m_editPosted) {
        m_editPosted = true;
        PostMessage(c_rowsEditedMessage);
    }
}

void RowsPane::OnControlModal(HostedControl&, bool begins) {
    m_runningEvents = std::max(0, m_runningEvents + (begins ? 1 : -1));
}

void RowsPane::OnControlActive(HostedControl& control, bool active) {
    const EventScope running(m_runningEvents);
    if (!active) {
        m_active = m_active == &control ? nullptr : m_active;
        return;
    }
    HostedControl* const former = std::exchange(m_active, &control);
    if (former && former != &control) {
        former->UiDeactivate();
    }
    MakeCurrent(RowOf(control));
}

LRESULT RowsPane::OnRowsEdited(UINT, WPARAM, LPARAM, BOOL&) {
    m_editPosted = false;
    m_handlers.edited();
    return 0;
}

LRESULT RowsPane::OnSize(UINT, WPARAM, LPARAM, BOOL&) {
    Arrange();
    return 0;
}

LRESULT RowsPane::OnScrollBar(UINT, WPARAM wParam, LPARAM, BOOL&) {
    SCROLLINFO info{};
    info.cbSize = sizeof(info);
    info.fMask = SIF_ALL;
    ::GetScrollInfo(m_hWnd, SB_VERT, &info);
    switch (LOWORD(wParam)) {
        case SB_LINEUP:
            ScrollTo(info.nPos - RowLayout::RowHeight());
            break;
        case SB_LINEDOWN:
            ScrollTo(info.nPos + RowLayout::RowHeight());
            break;
        case SB_PAGEUP:
            ScrollTo(info.nPos - m_layout.Height());
            break;
        case SB_PAGEDOWN:
            ScrollTo(info.nPos + m_layout.Height());
            break;
        case SB_THUMBTRACK:
        case SB_THUMBPOSITION:
            ScrollTo(info.nTrackPos);
            break;
        case SB_TOP:
            ScrollTo(0);
            break;
        case SB_BOTTOM:
            ScrollTo(m_layout.LargestScrollOffset());
            break;
        default:
            break;
    }
    return 0;
}

LRESULT RowsPane::OnMouseWheel(UINT, WPARAM wParam, LPARAM, BOOL&) {
    const int delta = static_cast<short>(HIWORD(wParam));
    ScrollTo(m_layout.ScrollOffset() - delta * c_wheelLines * RowLayout::RowHeight() / WHEEL_DELTA);
    return 0;
}

}  // namespace kvpalette
