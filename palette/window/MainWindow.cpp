#include "palette/window/MainWindow.h"

#include <algorithm>
#include <cwchar>
#include <utility>

#include "framework/base/DeviceContexts.h"
#include "framework/base/Hresult.h"
#include "framework/window/MainWindow.h"
#include "host_sdk/KvEdServices.h"
#include "palette/theme/Scale.h"
#include "palette/window/CommandIds.h"
#include "palette/window/CountText.h"
#include "palette/window/IconIds.h"
#include "palette/window/MainMenu.h"
#include "refhost/editor/DocumentManager.h"
#include "refhost/editor/EditorState.h"

namespace kvpalette {

namespace {

constexpr fw::WindowClass c_mainClass{L"KvPaletteMain", CS_HREDRAW | CS_VREDRAW, fw::ArrowCursor};
constexpr int c_windowWidth = 1180;
constexpr int c_windowHeight = 780;
constexpr int c_splitterWidth = 5;
constexpr int c_leastPalette = 220;
constexpr int c_leastView = 200;

std::vector<ToolStrip::Button> Buttons() {
    return {
        {CommandOpen, ToolStrip::Picture::Open, L"Open", false},
        {CommandSaveAs, ToolStrip::Picture::Save, L"Save as", false},
        {CommandUndo, ToolStrip::Picture::Undo, L"Undo", true},
        {CommandRedo, ToolStrip::Picture::Redo, L"Redo", false},
        {CommandSelectAll, ToolStrip::Picture::SelectAll, L"Select all", true},
        {CommandZoomExtents, ToolStrip::Picture::ZoomExtents, L"Zoom extents", true},
        {CommandZoomIn, ToolStrip::Picture::ZoomIn, L"", false},
        {CommandZoomOut, ToolStrip::Picture::ZoomOut, L"", false},
    };
}

// In the middle of the screen, and within it.
RECT StartRect() {
    RECT area{};
    ::SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0);
    const LONG width = std::min<LONG>(Scaled(c_windowWidth), area.right - area.left);
    const LONG height = std::min<LONG>(Scaled(c_windowHeight), area.bottom - area.top);
    const LONG left = (area.left + area.right - width) / 2;
    const LONG top = (area.top + area.bottom - height) / 2;
    return {left, top, left + width, top + height};
}

std::wstring PlaceText(double x, double y) {
    wchar_t text[80] = L"";
    std::swprintf(text, std::size(text), L"%.3f, %.3f", x, y);
    return text;
}

}  // namespace

MainWindow::MainWindow(kvhost::Host& host, const ControlCatalogue& catalogue)
    : m_host(host),
      m_tools(m_fonts, Buttons()),
      m_status(m_fonts),
      m_view([this](const auto& ids, auto mode) { Pick(ids, mode); },
             [this](double x, double y) { m_status.SetPlace(PlaceText(x, y)); }),
      m_palette(m_fonts, catalogue, [this] { ObjectsHaveChanged(); }) {
}

MainWindow::~MainWindow() {
    LeaveDocument();
    DestroyWindow();
    fw::SetMainWindow(nullptr);
}

bool MainWindow::Create() {
    const RECT bounds = StartRect();
    if (!CWnd::Create(c_mainClass, L"kvpalette", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, bounds, nullptr,
                      reinterpret_cast<UINT_PTR>(MakeMainMenu().Release()))) {
        return false;
    }
    fw::SetMainWindow(m_hWnd);
    for (const auto& [kind, metric] : {std::pair{ICON_SMALL, SM_CXSMICON}, std::pair{ICON_BIG, SM_CXICON}}) {
        const int size = ::GetSystemMetrics(metric);
        SendMessage(WM_SETICON, static_cast<WPARAM>(kind),
                    reinterpret_cast<LPARAM>(::LoadImageW(::GetModuleHandleW(nullptr),
                                                          MAKEINTRESOURCEW(KVPALETTE_ICON), IMAGE_ICON, size,
                                                          size, LR_SHARED)));
    }
    if (!m_tools.Create(m_hWnd) || !m_status.Create(m_hWnd) || !m_view.Create(m_hWnd) ||
        !m_palette.Create(m_hWnd, m_hWnd)) {
        return false;
    }
    m_host.Editor().SetPaletteWindow(KVED_FIRST_PALETTE, m_palette.m_hWnd);
    Attach(m_host.Documents().New());
    Layout();
    return true;
}

bool MainWindow::OpenDrawing(const std::wstring& path, std::wstring& error) {
    kvhost::DocumentManager& documents = m_host.Documents();
    kvhost::Document* const opened = path.empty() ? &documents.New() : documents.Open(path, error);
    if (!opened) {
        return false;
    }
    kvhost::Document* const former = m_document;
    LeaveDocument();
    documents.SetCurrent(opened);
    documents.Close(former);
    Attach(*opened);
    return true;
}

bool MainWindow::SaveDrawing(const std::wstring& path, std::wstring& error) {
    m_palette.Pane().LeaveRow();
    error = m_document->SaveAs(path);
    UpdateState();
    return error.empty();
}

void MainWindow::Attach(kvhost::Document& document) {
    m_document = &document;
    m_document->GetSelection().AddObserver(this);
    m_view.SetDatabase(&m_document->GetDatabase());
    SelectionChanged(m_document->GetSelection());
}

void MainWindow::LeaveDocument() {
    if (m_document) {
        m_palette.SetSelection({});
        m_document->GetSelection().RemoveObserver(this);
        m_view.SetDatabase(nullptr);
        m_document = nullptr;
    }
}

bool MainWindow::Undo(int count) {
    m_palette.Pane().LeaveRow();
    const bool done = m_document->GetDatabase().Undo().UndoByUser(count) == Tolm::eOk;
    ObjectsHaveChanged();
    return done;
}

bool MainWindow::Redo(int count) {
    m_palette.Pane().LeaveRow();
    const bool done = m_document->GetDatabase().Undo().RedoByUser(count) == Tolm::eOk;
    ObjectsHaveChanged();
    return done;
}

kvhost::SystemVariables::Outcome MainWindow::SetVariable(const std::wstring& name, const std::wstring& text) {
    // What was typed in the former units is meant in them.
    m_palette.Pane().LeaveRow();
    const auto outcome = m_host.Variables().SetText(name, text);
    ObjectsHaveChanged();
    return outcome;
}

void MainWindow::SelectAll() {
    fw::Ignore(m_document->GetSelection().Select(L"all"));  // an empty drawing has nothing to select
}

void MainWindow::SelectionChanged(const kvhost::Selection& selection) {
    const std::vector<KvDbObjectId> ids = selection.PickFirst();
    m_view.SetHighlighted(ids);
    m_palette.SetSelection(ids);
    UpdateState();
}

// Undo may take objects out of the selection or bring them back.
void MainWindow::ObjectsHaveChanged() {
    const std::vector<KvDbObjectId> ids = m_document->GetSelection().PickFirst();
    m_view.SetHighlighted(ids);
    m_palette.ObjectsHaveChanged(ids);
    UpdateState();
}

void MainWindow::UpdateState() {
    const kvhost::UndoController& undo = m_document->GetDatabase().Undo();
    m_tools.EnableButton(CommandUndo, undo.UndoCount() > 0);
    m_tools.EnableButton(CommandRedo, undo.RedoCount() > 0);
    SetWindowText(
        (m_document->Title() + (m_document->IsDirty() ? L" * - kvpalette" : L" - kvpalette")).c_str());
    const std::size_t total = m_document->GetDatabase().ModelSpaceEntities().size();
    const std::size_t selected = m_document->GetSelection().PickFirst().size();
    m_status.SetMessage(CountText(total) + L", " + std::to_wstring(selected) + L" selected");
}

void MainWindow::Layout() {
    const CRect client = GetClientRect();
    const LONG top = ToolStrip::Height();
    const LONG bottom = std::max<LONG>(top, client.bottom - StatusLine::Height());
    const RECT splitter = SplitterRect();
    m_tools.MoveWindow({0, 0, client.right, top});
    m_status.MoveWindow({0, bottom, client.right, client.bottom});
    m_palette.MoveWindow({0, top, splitter.left, bottom});
    m_view.MoveWindow({splitter.right, top, client.right, bottom});
}

// The palette stands on the left: the tips of long values have the drawing's width to spread over.
RECT MainWindow::SplitterRect() const {
    const CRect client = GetClientRect();
    const LONG widest = std::max<LONG>(Scaled(c_leastPalette), client.right - Scaled(c_leastView));
    const LONG left = std::clamp<LONG>(m_paletteWidth, Scaled(c_leastPalette), widest);
    return {left, ToolStrip::Height(), left + Scaled(c_splitterWidth), client.bottom - StatusLine::Height()};
}

LRESULT MainWindow::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    LRESULT result = 0;
    return fw::DispatchMessage(s_messages, *this, message, wParam, lParam, result)
               ? result
               : CWnd::WindowProc(message, wParam, lParam);
}

LRESULT MainWindow::OnSize(UINT, WPARAM wParam, LPARAM, BOOL&) {
    if (wParam != SIZE_MINIMIZED) {
        Layout();
        Invalidate(FALSE);
    }
    return 0;
}

LRESULT MainWindow::OnPaint(UINT, WPARAM, LPARAM, BOOL&) {
    const fw::PaintDc dc(m_hWnd);
    const RECT splitter = SplitterRect();
    FillColor(dc, splitter, theme::c_frame);
    FillColor(dc, {splitter.left, splitter.top, splitter.left + 1, splitter.bottom}, theme::c_line);
    return 0;
}

LRESULT MainWindow::OnEraseBackground(UINT, WPARAM, LPARAM, BOOL&) {
    return 1;
}

// Controls send this message after a write, to give the application its activation back: the focus stays
// where it is within the window then, and comes back to where it was when the window was left.
LRESULT MainWindow::OnActivate(UINT, WPARAM wParam, LPARAM, BOOL&) {
    const HWND focus = ::GetFocus();
    if (LOWORD(wParam) == WA_INACTIVE) {
        m_lastFocus = IsChild(focus) ? focus : nullptr;
        return 0;
    }
    if (!IsChild(focus)) {
        ::SetFocus(::IsWindow(m_lastFocus) && IsChild(m_lastFocus) ? m_lastFocus : m_view.m_hWnd);
    }
    return 0;
}

LRESULT MainWindow::OnLeftDown(UINT, WPARAM, LPARAM lParam, BOOL&) {
    const RECT splitter = SplitterRect();
    if (::PtInRect(&splitter, CPoint(lParam))) {
        m_draggingSplitter = true;
        SetCapture();
    }
    return 0;
}

LRESULT MainWindow::OnMouseMove(UINT, WPARAM, LPARAM lParam, BOOL&) {
    if (m_draggingSplitter) {
        m_paletteWidth = static_cast<int>(CPoint(lParam).x);
        Layout();
        Invalidate(FALSE);
    }
    return 0;
}

LRESULT MainWindow::OnLeftUp(UINT, WPARAM, LPARAM, BOOL&) {
    if (m_draggingSplitter) {
        ::ReleaseCapture();
    }
    return 0;
}

LRESULT MainWindow::OnCaptureChanged(UINT, WPARAM, LPARAM, BOOL&) {
    m_draggingSplitter = false;
    return 0;
}

LRESULT MainWindow::OnSetCursor(UINT, WPARAM wParam, LPARAM lParam, BOOL& handled) {
    if (reinterpret_cast<HWND>(wParam) == m_hWnd && LOWORD(lParam) == HTCLIENT) {
        ::SetCursor(::LoadCursorW(nullptr, IDC_SIZEWE));
        return TRUE;
    }
    handled = FALSE;
    return 0;
}

LRESULT MainWindow::OnClose(UINT, WPARAM, LPARAM, BOOL&) {
    m_palette.Pane().LeaveRow();
    if (MayLoseDrawing()) {
        ::DestroyWindow(m_hWnd);
    }
    return 0;
}

LRESULT MainWindow::OnDestroy(UINT, WPARAM, LPARAM, BOOL& handled) {
    LeaveDocument();  // while the windows of the controls are still there
    m_host.Editor().SetPaletteWindow(KVED_FIRST_PALETTE, nullptr);
    ::PostQuitMessage(0);
    handled = FALSE;
    return 0;
}

}  // namespace kvpalette
