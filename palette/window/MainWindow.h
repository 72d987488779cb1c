#pragma once

#include <array>
#include <memory>
#include <string>

#include "framework/window/CWnd.h"
#include "framework/window/MessageTable.h"
#include "palette/rows/ControlCatalogue.h"
#include "palette/theme/Scale.h"
#include "palette/theme/Theme.h"
#include "palette/view/DrawingView.h"
#include "palette/window/PaletteWindow.h"
#include "palette/window/StatusLine.h"
#include "palette/window/ToolStrip.h"
#include "refhost/editor/Document.h"
#include "refhost/editor/Host.h"
#include "refhost/editor/SelectionObserver.h"
#include "refhost/editor/SystemVariables.h"

namespace kvpalette {

/// The program's window: menu, buttons, the drawing, the palette docked beside it, the status line.
class MainWindow final : public CWnd, public kvhost::SelectionObserver {
public:
    /// Neither host nor catalogue are owned.
    MainWindow(kvhost::Host& host, const ControlCatalogue& catalogue);
    ~MainWindow() override;

    /// Creates the window with an empty drawing in it.
    [[nodiscard]] bool Create();
    /// Puts the drawing of a file in the place of the one shown; an empty path gives an empty drawing. False,
    /// with the reason, when it cannot be read; the one shown stays then.
    [[nodiscard]] bool OpenDrawing(const std::wstring& path, std::wstring& error);
    /// False, with the reason, when the drawing cannot be written.
    [[nodiscard]] bool SaveDrawing(const std::wstring& path, std::wstring& error);
    /// False when there are fewer steps.
    [[nodiscard]] bool Undo(int count);
    [[nodiscard]] bool Redo(int count);
    /// Sets a system variable from a user's text. The rows show what it changes, such as a unit format.
    [[nodiscard]] kvhost::SystemVariables::Outcome SetVariable(const std::wstring& name,
                                                               const std::wstring& text);
    void SelectAll();

    kvhost::Document& Document() { return *m_document; }
    PaletteWindow& Palette() { return m_palette; }
    DrawingView& View() { return m_view; }

    // kvhost::SelectionObserver
    void SelectionChanged(const kvhost::Selection& selection) override;

    // CWnd
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    BOOL PreTranslateMessage(MSG* message) override;

private:
    LRESULT OnSize(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    LRESULT OnPaint(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    LRESULT OnEraseBackground(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    LRESULT OnActivate(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    LRESULT OnCommand(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    LRESULT OnLeftDown(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    LRESULT OnMouseMove(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    LRESULT OnLeftUp(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    LRESULT OnCaptureChanged(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    LRESULT OnSetCursor(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    LRESULT OnClose(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    LRESULT OnDestroy(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);

    // MainWindow_Commands.cpp
    void DoCommand(int command);
    void AskOpen();
    void AskSaveAs();
    void SaveOrAsk();
    bool MayLoseDrawing();
    void Complain(const std::wstring& reason);
    void Pick(const std::vector<KvDbObjectId>& ids, DrawingView::PickMode mode);

    void Attach(kvhost::Document& document);
    void LeaveDocument();
    void ObjectsHaveChanged();
    void UpdateState();
    void Layout();
    RECT SplitterRect() const;

    static constexpr std::array s_messages{
        fw::OnMessage(WM_SIZE, &MainWindow::OnSize),
        fw::OnMessage(WM_PAINT, &MainWindow::OnPaint),
        fw::OnMessage(WM_ERASEBKGND, &MainWindow::OnEraseBackground),
        fw::OnMessage(WM_ACTIVATE, &MainWindow::OnActivate),
        fw::OnMessage(WM_COMMAND, &MainWindow::OnCommand),
        fw::OnMessage(WM_LBUTTONDOWN, &MainWindow::OnLeftDown),
        fw::OnMessage(WM_MOUSEMOVE, &MainWindow::OnMouseMove),
        fw::OnMessage(WM_LBUTTONUP, &MainWindow::OnLeftUp),
        fw::OnMessage(WM_CAPTURECHANGED, &MainWindow::OnCaptureChanged),
        fw::OnMessage(WM_SETCURSOR, &MainWindow::OnSetCursor),
        fw::OnMessage(WM_CLOSE, &MainWindow::OnClose),
        fw::OnMessage(WM_DESTROY, &MainWindow::OnDestroy),
    };

    kvhost::Host& m_host;
    kvhost::Document* m_document = nullptr;  // owned by the host
    Fonts m_fonts;
    ToolStrip m_tools;
    StatusLine m_status;
    DrawingView m_view;
    PaletteWindow m_palette;
    HWND m_lastFocus = nullptr;
    int m_paletteWidth = Scaled(330);
    bool m_draggingSplitter = false;
};

}  // namespace kvpalette
