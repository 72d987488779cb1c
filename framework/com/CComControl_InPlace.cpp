#include "framework/base/Handles.h"
#include "framework/base/Hresult.h"
#include "framework/com/CComControl.h"
#include "framework/com/CComModule.h"
#include "framework/com/Guarded.h"

// Every call to the container may come back and end the activation, or even the last outside reference. Each
// step therefore checks the state after the call that it made.

HRESULT CComControl::InPlaceActivate(LONG verb, const RECT* position) {
    RETURN_HR_IF(E_UNEXPECTED, m_bClosing);
    RETURN_HR_IF(OLE_E_NOT_INPLACEACTIVE, !m_spClientSite);
    const fw::ComPtr<IUnknown> self(GetUnknown());
    RETURN_IF_FAILED_EXPECTED(EnterInPlace());
    const HRESULT placed = PlaceWindow(position);
    if (FAILED(placed)) {
        // A half activated control would never be deactivated by its container.
        fw::Ignore(InPlaceDeactivate());
        return placed;
    }
    if (verb == OLEIVERB_PRIMARY || verb == OLEIVERB_UIACTIVATE) {
        RETURN_IF_FAILED_EXPECTED(EnterUserInterface());
    }
    if (const fw::ComPtr<IOleClientSite> site = m_spClientSite) {
        // A container that cannot scroll the control into view still shows it.
        fw::Ignore(site->ShowObject());
    }
    return S_OK;
}

HRESULT CComControl::EnterInPlace() {
    if (m_bInPlaceActive) {
        return S_OK;
    }
    const auto site = m_spClientSite.As<IOleInPlaceSite>();
    RETURN_HR_IF(E_FAIL, !site);
    const unsigned closings = m_closings;
    const HRESULT allowed = site->CanInPlaceActivate();
    RETURN_HR_IF(FAILED(allowed) ? allowed : E_FAIL, allowed != S_OK || closings != m_closings);
    m_spInPlaceSite = site;
    m_bInPlaceActive = true;
    const HRESULT told = site->OnInPlaceActivate();
    if (FAILED(told)) {
        m_bInPlaceActive = false;
        m_spInPlaceSite.Reset();
    }
    return told;
}

HRESULT CComControl::PlaceWindow(const RECT* position) {
    const fw::ComPtr<IOleInPlaceSite> site = m_spInPlaceSite;
    RETURN_HR_IF(E_FAIL, !m_bInPlaceActive || !site);
    HWND parent = nullptr;
    RETURN_IF_FAILED_EXPECTED(site->GetWindow(&parent));
    fw::ComPtr<IOleInPlaceFrame> frame;
    fw::ComPtr<IOleInPlaceUIWindow> uiWindow;
    RECT place{};
    RECT clip{};
    OLEINPLACEFRAMEINFO frameInfo{};
    frameInfo.cb = sizeof frameInfo;
    RETURN_IF_FAILED_EXPECTED(site->GetWindowContext(frame.Put(), uiWindow.Put(), &place, &clip, &frameInfo));
    RETURN_HR_IF(E_FAIL, !m_bInPlaceActive);
    m_frame = frame;
    m_uiWindow = uiWindow;
    if (::IsRectEmpty(&place) && position) {
        place = *position;
        clip = *position;
    }
    m_rcPos = place;
    if (!IsWindow()) {
        RETURN_HR_IF(E_FAIL, !CreateControlWindow(parent, place));
    } else if (GetParent() != parent) {
        ::SetParent(m_hWnd, parent);
    }
    RETURN_HR_IF(E_FAIL, !m_bInPlaceActive || !IsWindow());
    ShowWindow(SW_SHOW);
    return SetObjectRects(&place, &clip);
}

HRESULT CComControl::EnterUserInterface() {
    RETURN_HR_IF(E_FAIL, !m_bInPlaceActive);
    if (!m_bUIActive) {
        const fw::ComPtr<IOleInPlaceSite> site = m_spInPlaceSite;
        m_bUIActive = true;
        const HRESULT told = site->OnUIActivate();
        if (FAILED(told)) {
            m_bUIActive = false;
            return told;
        }
        TakeFocus();
        // Both ask before they come: no border space, the container's own tool bars stay.
        for (const fw::ComPtr<IOleInPlaceUIWindow>& window :
             {fw::ComPtr<IOleInPlaceUIWindow>(m_frame), m_uiWindow}) {
            if (window && m_bUIActive) {
                fw::Ignore(window->SetActiveObject(this, Description()));
                fw::Ignore(window->SetBorderSpace(nullptr));
            }
        }
    } else {
        TakeFocus();
    }
    if (m_bUIActive && !m_bClosing && IsWindow()) {
        // The control is active whatever the editing makes of it.
        fw::Ignore(OnUserActivated(GetClientRect()));
    }
    return S_OK;
}

void CComControl::LeaveUserInterface() {
    if (!m_bUIActive) {
        return;
    }
    m_bUIActive = false;
    const fw::ComPtr<IOleInPlaceSite> site = m_spInPlaceSite;
    // The container cannot refuse; there is nothing to do about a failure.
    for (const fw::ComPtr<IOleInPlaceUIWindow>& window :
         {fw::ComPtr<IOleInPlaceUIWindow>(m_frame), m_uiWindow}) {
        if (window) {
            fw::Ignore(window->SetActiveObject(nullptr, nullptr));
        }
    }
    if (site) {
        fw::Ignore(site->OnUIDeactivate(FALSE));
    }
}

void CComControl::TakeFocus() {
    const HWND focus = ::GetFocus();
    if (IsWindow() && focus != m_hWnd && !::IsChild(m_hWnd, focus)) {
        ::SetFocus(m_hWnd);
    }
}

// IOleWindow

STDMETHODIMP CComControl::GetWindow(HWND* result) {
    RETURN_IF_NULL_POINTER(result);
    *result = m_hWnd;
    return m_hWnd ? S_OK : E_FAIL;
}

STDMETHODIMP CComControl::ContextSensitiveHelp(BOOL) {
    return E_NOTIMPL;
}

// IOleInPlaceObject

STDMETHODIMP CComControl::InPlaceDeactivate() {
    return fw::Guarded([&] {
        RETURN_HR_IF(S_OK, !m_bInPlaceActive);
        const fw::ComPtr<IUnknown> self(GetUnknown());
        // The window and the site go even if the end of the edit fails.
        fw::Ignore(UIDeactivate());
        RETURN_HR_IF(S_OK, !m_bInPlaceActive);
        m_bInPlaceActive = false;
        const fw::ComPtr<IOleInPlaceSite> site = m_spInPlaceSite;
        if (m_hWnd) {
            DestroyWindow();
        }
        m_frame.Reset();
        m_uiWindow.Reset();
        m_spInPlaceSite.Reset();
        if (site) {
            fw::Ignore(site->OnInPlaceDeactivate());
        }
        return S_OK;
    });
}

STDMETHODIMP CComControl::UIDeactivate() {
    return fw::Guarded([&] {
        const fw::ComPtr<IUnknown> self(GetUnknown());
        const HRESULT ended = fw::Guarded([&] { return OnUIDeactivating(); });
        LeaveUserInterface();
        return ended;
    });
}

STDMETHODIMP CComControl::SetObjectRects(LPCRECT position, LPCRECT clip) {
    RETURN_IF_NULL_POINTER(position);
    return fw::Guarded([&] {
        const fw::ComPtr<IUnknown> self(GetUnknown());
        const RECT place = *position;
        const RECT visible = clip ? *clip : place;
        m_rcPos = place;
        if (IsWindow()) {
            ClipWindow(visible);
            MoveWindow(place);
        }
        return OnObjectRectsSet(place, visible);
    });
}

void CComControl::ClipWindow(const RECT& clip) {
    RECT visible{};
    ::IntersectRect(&visible, &m_rcPos, &clip);
    if (::EqualRect(&visible, &m_rcPos) || ::IsRectEmpty(&clip)) {
        ::SetWindowRgn(m_hWnd, nullptr, TRUE);
        return;
    }
    ::OffsetRect(&visible, -m_rcPos.left, -m_rcPos.top);
    fw::UniqueRegion region(::CreateRectRgnIndirect(&visible));
    // The window takes the region over only if it accepts it.
    if (::SetWindowRgn(m_hWnd, region.Get(), TRUE)) {
        static_cast<void>(region.Release());
    }
}

STDMETHODIMP CComControl::ReactivateAndUndo() {
    return INPLACE_E_NOTUNDOABLE;
}

// IOleInPlaceObjectWindowless

STDMETHODIMP CComControl::OnWindowMessage(UINT, WPARAM, LPARAM, LRESULT* result) {
    RETURN_IF_NULL_POINTER(result);
    *result = 0;
    return S_FALSE;
}

STDMETHODIMP CComControl::GetDropTarget(IDropTarget** result) {
    RETURN_IF_NULL_POINTER(result);
    *result = nullptr;
    return E_NOTIMPL;
}
