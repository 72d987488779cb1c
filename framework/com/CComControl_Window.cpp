#include "framework/base/DeviceContexts.h"
#include "framework/base/Hresult.h"
#include "framework/com/CComControl.h"
#include "framework/com/CComModule.h"

LRESULT CComControl::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    const fw::ComPtr<IUnknown> self(GetUnknown());
    switch (message) {
        case WM_PAINT: {
            const fw::PaintDc dc(m_hWnd);
            Paint(dc);
            return 0;
        }
        case WM_PRINTCLIENT:
            Paint(reinterpret_cast<HDC>(wParam));
            return 0;
        case WM_SETFOCUS:
            ActivateByUser();
            TellFocus(true, reinterpret_cast<HWND>(wParam));
            return 0;
        case WM_KILLFOCUS:
            TellFocus(false, reinterpret_cast<HWND>(wParam));
            return 0;
        case WM_MOUSEACTIVATE:
            ActivateByUser();
            break;
        default:
            break;
    }
    return CWnd::WindowProc(message, wParam, lParam);
}

fw::WindowClass CComControl::ControlWindowClass() const {
    const CComModule* const module = GetModule();
    fw::WindowClass windowClass{L"KvFrame.Control"};
    windowClass.style = CS_DBLCLKS | CS_HREDRAW | CS_VREDRAW;
    if (module) {
        windowClass.module = module->GetModuleInstance();
    }
    return windowClass;
}

bool CComControl::CreateControlWindow(HWND parent, const RECT& position) {
    constexpr DWORD style = WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | WS_CLIPCHILDREN;
    return CreateEx(0, ControlWindowClass(), L"", style, position, parent) != FALSE;
}

void CComControl::ActivateByUser() {
    if (m_bInPlaceActive && !m_bUIActive && !m_bClosing) {
        // A site that refuses leaves the control as it is; the message goes its way all the same.
        fw::Ignore(InPlaceActivate(OLEIVERB_UIACTIVATE));
    }
}

void CComControl::TellFocus(bool focused, HWND other) {
    // Between the control's window and its children the focus does not leave the control.
    if (other && m_hWnd && ::IsChild(m_hWnd, other)) {
        return;
    }
    if (const auto site = m_spClientSite.As<IOleControlSite>()) {
        fw::Ignore(site->OnFocus(focused ? TRUE : FALSE));
    }
}

void CComControl::Paint(HDC dc) {
    if (!dc) {
        return;
    }
    const CRect client = GetClientRect();
    const RECTL bounds{client.left, client.top, client.right, client.bottom};
    ATL_DRAWINFO info;
    info.hdcDraw = dc;
    info.prcBounds = &bounds;
    // Nobody waits for the result of a paint message.
    fw::Ignore(OnDrawAdvanced(info));
}

void CComControl::FireViewChange() {
    if (m_bInPlaceActive && IsWindow()) {
        Invalidate();
    } else {
        NotifyViewSink();
    }
}
