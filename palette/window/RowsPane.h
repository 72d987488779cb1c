#pragma once

#include <array>
#include <functional>
#include <memory>
#include <vector>

#include "framework/com/CComObject.h"
#include "framework/window/CWnd.h"
#include "framework/window/MessageTable.h"
#include "palette/container/AmbientValues.h"
#include "palette/container/ControlEvents.h"
#include "palette/container/ControlFrame.h"
#include "palette/rows/PaletteRow.h"
#include "palette/rows/RowLayout.h"
#include "palette/theme/Theme.h"

namespace kvpalette {

/// The rows of the palette: names and values under categories, each value shown by its control. Rows in sight
/// hold controls, the others don't. It owns rows and controls.
class RowsPane final : public CWnd, public ControlEvents {
public:
    struct Handlers {
        /// A control has changed the objects; called when it is done with it.
        std::function<void()> edited;
        /// Another row is the current one, or it shows another value.
        std::function<void()> currentChanged;
    };

    RowsPane(const Fonts& fonts, Handlers handlers);
    ~RowsPane() override;

    /// The frame window is what controls take for the application's main window.
    [[nodiscard]] bool Create(HWND parent, HWND frameWindow);

    /// Ends an edit and puts other rows in the place of these. The current row stays current by its name.
    void SetRows(std::vector<PaletteRow> rows);
    std::vector<PaletteRow>& Rows() { return m_rows; }
    const RowLayout& Layout() const { return m_layout; }
    /// The surroundings of controls that are made outside of the rows in sight.
    ControlSurroundings Surroundings() { return {m_hWnd, m_frame.Get(), &m_ambient, this}; }

    /// Lets every control read its value anew.
    void RefreshRows();
    void MakeCurrent(std::size_t row);
    std::size_t Current() const { return m_current; }
    /// Brings the row into sight and lets the user work in it. S_FALSE for a row that the palette paints
    /// itself.
    HRESULT ActivateRow(std::size_t row);
    /// Ends the edit of the current row and takes the focus.
    void LeaveRow();
    /// The control that the user works in; null for none.
    HostedControl* Active() const { return m_active; }
    /// The user has begun in a control, which therefore keeps the focus.
    bool ControlKeepsFocus() const;
    /// Brings the row into sight and gives its control in place; null when it has none.
    HostedControl* ShowRow(std::size_t row);

    // CWnd
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

    // ControlEvents
    void OnControlClick(HostedControl& control) override;
    void OnControlDoubleClick(HostedControl& control) override;
    void OnControlKey(HostedControl& control, WPARAM key, LPARAM data) override;
    void OnControlRightButton(HostedControl& control, WPARAM keys, POINT point) override;
    void OnControlMiddleButton(HostedControl& control, WPARAM keys, POINT point) override;
    void OnControlBeginUpdate(HostedControl& control) override;
    void OnControlEndUpdate(HostedControl& control) override;
    void OnControlModal(HostedControl& control, bool begins) override;
    void OnControlActive(HostedControl& control, bool active) override;

private:
    LRESULT OnPaint(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    LRESULT OnEraseBackground(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    LRESULT OnSize(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    LRESULT OnScrollBar(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    LRESULT OnMouseWheel(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    LRESULT OnLeftDown(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    LRESULT OnLeftDoubleClick(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    LRESULT OnMouseMove(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    LRESULT OnLeftUp(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    LRESULT OnCaptureChanged(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    LRESULT OnSetCursor(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    LRESULT OnKeyDown(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    LRESULT OnGetDlgCode(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    LRESULT OnFocusChange(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    LRESULT OnRowKey(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    LRESULT OnRowsEdited(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);

    // RowsPane_Paint.cpp
    void Paint(HDC dc);
    void PaintCategory(HDC dc, std::size_t category);
    void PaintRow(HDC dc, std::size_t row);
    void PaintValue(HDC dc, std::size_t row);

    // RowsPane_Input.cpp
    bool HandleKey(WPARAM key, bool shift);
    void MoveCurrent(bool forward, int count);
    void CollapseCurrent(bool collapse);

    void Arrange();
    void UpdateControls();
    void UpdateScrollBar();
    void ScrollTo(int offset);
    bool CreateControl(PaletteRow& row, const RECT& bounds);
    void DropControl(PaletteRow& row);
    void InvalidateRow(std::size_t row);
    std::size_t RowOf(const HostedControl& control) const;

    static constexpr UINT c_rowKeyMessage = WM_APP + 0x120;
    static constexpr UINT c_rowsEditedMessage = WM_APP + 0x121;

    static constexpr std::array s_messages{
        fw::OnMessage(WM_PAINT, &RowsPane::OnPaint),
        fw::OnMessage(WM_ERASEBKGND, &RowsPane::OnEraseBackground),
        fw::OnMessage(WM_SIZE, &RowsPane::OnSize),
        fw::OnMessage(WM_VSCROLL, &RowsPane::OnScrollBar),
        fw::OnMessage(WM_MOUSEWHEEL, &RowsPane::OnMouseWheel),
        fw::OnMessage(WM_LBUTTONDOWN, &RowsPane::OnLeftDown),
        fw::OnMessage(WM_LBUTTONDBLCLK, &RowsPane::OnLeftDoubleClick),
        fw::OnMessage(WM_MOUSEMOVE, &RowsPane::OnMouseMove),
        fw::OnMessage(WM_LBUTTONUP, &RowsPane::OnLeftUp),
        fw::OnMessage(WM_CAPTURECHANGED, &RowsPane::OnCaptureChanged),
        fw::OnMessage(WM_SETCURSOR, &RowsPane::OnSetCursor),
        fw::OnMessage(WM_KEYDOWN, &RowsPane::OnKeyDown),
        fw::OnMessage(WM_GETDLGCODE, &RowsPane::OnGetDlgCode),
        fw::OnMessage(WM_SETFOCUS, &RowsPane::OnFocusChange),
        fw::OnMessage(WM_KILLFOCUS, &RowsPane::OnFocusChange),
        fw::OnMessage(c_rowKeyMessage, &RowsPane::OnRowKey),
        fw::OnMessage(c_rowsEditedMessage, &RowsPane::OnRowsEdited),
    };

    const Fonts& m_fonts;
    Handlers m_handlers;
    AmbientValues m_ambient;
    fw::ComPtr<CComObject<ControlFrame>> m_frame;
    std::vector<PaletteRow> m_rows;
    // Controls of rows that have gone while one of their events was running.
    std::vector<std::unique_ptr<HostedControl>> m_retired;
    RowLayout m_layout;
    HostedControl* m_active = nullptr;  // owned by its row
    std::size_t m_current = RowLayout::c_none;
    int m_runningEvents = 0;
    bool m_draggingSplitter = false;
    bool m_editPosted = false;
};

}  // namespace kvpalette
