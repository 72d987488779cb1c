#include "tests/unit/families/RowBench.h"

#include "core/ChildIds.h"
#include "core/Satellite.h"
#include "families/CKvPeButtonEditBase.h"
#include "tests/support/RowWarmUp.h"
#include "tests/support/WarmUp.h"

namespace kvtest {
namespace {

// Loaded once, as the module does at its attach.
const WarmUpStep s_satellite([] { EXPECT_TRUE(LoadKvPeSatellite(::GetModuleHandleW(nullptr))); });
const WarmUpStep s_rows(&WarmUpRows);

}  // namespace

LRESULT RowWindow::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    BOOL handled = TRUE;
    if (!row) {
        return CWnd::WindowProc(message, wParam, lParam);
    }
    switch (message) {
        case WM_CTLCOLOREDIT:
        case WM_CTLCOLORSTATIC:
            return row->Handle_OnCtlColor(message, wParam, lParam, handled);
        case WM_KVPE_DRAW_TIP:
            return row->Handle_OnDrawTooltip(message, wParam, lParam, handled);
        case WM_COMMAND:
        case WM_DRAWITEM:
            return OnChildMessage(message, wParam, lParam);
        case WM_MOUSEWHEEL:
            Note(L"wheel", static_cast<int>(GET_WHEEL_DELTA_WPARAM(wParam)));
            return 0;
        case WM_PAINT: {
            const fw::PaintDc dc(m_hWnd);
            const RECT client = GetClientRect();
            const RECTL bounds{client.left, client.top, client.right, client.bottom};
            ATL_DRAWINFO info;
            info.hdcDraw = dc;
            info.prcBounds = &bounds;
            fw::Ignore(row->Handle_OnDraw(info));  // tests of painting call it themselves
            return 0;
        }
        default:
            return CWnd::WindowProc(message, wParam, lParam);
    }
}

LRESULT RowWindow::OnChildMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    BOOL handled = TRUE;
    LRESULT result = 0;
    auto* const buttons = dynamic_cast<CKvPeButtonEditBase*>(row);
    if (!buttons) {
        handled = FALSE;
    } else if (message == WM_DRAWITEM) {
        result = buttons->OnDrawButton(message, wParam, reinterpret_cast<DRAWITEMSTRUCT*>(lParam), handled);
    } else if (LOWORD(wParam) == KVPE_ID_EDIT) {
        result =
            buttons->OnEditKillFocus(HIWORD(wParam), LOWORD(wParam), reinterpret_cast<HWND>(lParam), handled);
    } else {
        result =
            buttons->OnButtonCommand(HIWORD(wParam), LOWORD(wParam), reinterpret_cast<HWND>(lParam), handled);
    }
    return handled ? result : CWnd::WindowProc(message, wParam, lParam);
}

}  // namespace kvtest
