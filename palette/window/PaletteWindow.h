#pragma once

#include <array>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "framework/window/CWnd.h"
#include "framework/window/MessageTable.h"
#include "palette/rows/RowSet.h"
#include "palette/theme/Theme.h"
#include "palette/window/RowsPane.h"

namespace kvpalette {

/// The palette: class and count of the selection on top, the rows, and at the foot what the current row is.
class PaletteWindow final : public CWnd {
public:
    /// Fonts and catalogue are not owned. `edited` is called when a control has changed the objects.
    PaletteWindow(const Fonts& fonts, const ControlCatalogue& catalogue, std::function<void()> edited);
    ~PaletteWindow() override;

    [[nodiscard]] bool Create(HWND parent, HWND frameWindow);

    void SetSelection(const std::vector<KvDbObjectId>& ids);
    /// After a change of the objects: reads the rows anew; makes them anew when there are others now.
    void ObjectsHaveChanged(const std::vector<KvDbObjectId>& ids);

    RowsPane& Pane() { return *m_pane; }
    /// The row of that name: the exact one, else the one that differs in case only, also as "Category/Name".
    /// RowLayout::c_none when there is none.
    std::size_t FindRow(const std::wstring& name);
    const std::wstring& Title() const { return m_title; }

    // CWnd
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    LRESULT OnPaint(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    LRESULT OnEraseBackground(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    LRESULT OnSize(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    LRESULT OnSetFocus(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);

    void SetHead();
    void ShowCurrent();
    void PaintHead(HDC dc, const RECT& bounds) const;
    void PaintFoot(HDC dc, const RECT& bounds) const;
    RECT HeadRect() const;
    RECT FootRect() const;

    static constexpr std::array s_messages{
        fw::OnMessage(WM_PAINT, &PaletteWindow::OnPaint),
        fw::OnMessage(WM_ERASEBKGND, &PaletteWindow::OnEraseBackground),
        fw::OnMessage(WM_SIZE, &PaletteWindow::OnSize),
        fw::OnMessage(WM_SETFOCUS, &PaletteWindow::OnSetFocus),
    };

    const Fonts& m_fonts;
    RowSet m_rowSet;
    std::unique_ptr<RowsPane> m_pane;
    std::vector<KvDbObjectId> m_selection;
    std::wstring m_title;
    std::wstring m_subtitle;
    std::wstring m_footTitle;
    std::wstring m_footText;
};

}  // namespace kvpalette
