#include "framework/com/CComControl.h"

#include "framework/base/Hresult.h"
#include "framework/com/CComModule.h"
#include "framework/com/Guarded.h"

void CComControl::FinalRelease() {
    // The container has let go without closing. Nothing may bring the control up again.
    m_bClosing = true;
    fw::Ignore(InPlaceDeactivate());
    if (m_hWnd) {
        DestroyWindow();
    }
    DisconnectAllPoints();
}

HRESULT CComControl::OnDrawAdvanced(ATL_DRAWINFO&) {
    return S_OK;
}

HRESULT CComControl::OnUserActivated(const RECT&) {
    return S_OK;
}

HRESULT CComControl::OnUIDeactivating() {
    return S_OK;
}

HRESULT CComControl::OnObjectRectsSet(const RECT&, const RECT&) {
    return S_OK;
}

bool CComControl::OnTranslateAccelerator(MSG*) {
    return false;
}

const wchar_t* CComControl::Description() const noexcept {
    const CComModule* const module = GetModule();
    const fw::ObjectMapEntry* const object = module ? module->FindObject(ClassId()) : nullptr;
    return object && object->description ? object->description : L"";
}

// IOleControl

STDMETHODIMP CComControl::GetControlInfo(CONTROLINFO* info) {
    RETURN_IF_NULL_POINTER(info);
    *info = CONTROLINFO{sizeof(CONTROLINFO), nullptr, 0, 0};
    return S_OK;
}

STDMETHODIMP CComControl::OnMnemonic(MSG*) {
    return S_OK;
}

STDMETHODIMP CComControl::OnAmbientPropertyChange(DISPID) {
    return S_OK;
}

STDMETHODIMP CComControl::FreezeEvents(BOOL freeze) {
    if (freeze) {
        ++m_freezeCount;
    } else if (m_freezeCount > 0) {
        --m_freezeCount;
    }
    return S_OK;
}

// IOleInPlaceActiveObject

STDMETHODIMP CComControl::TranslateAccelerator(LPMSG message) {
    RETURN_IF_NULL_POINTER(message);
    return fw::Guarded([&] {
        const fw::ComPtr<IUnknown> self(GetUnknown());
        RETURN_HR_IF(S_OK, OnTranslateAccelerator(message));
        const auto site = m_spClientSite.As<IOleControlSite>();
        RETURN_HR_IF(S_FALSE, !site);
        const auto isDown = [](int key) { return ::GetKeyState(key) < 0; };
        const DWORD modifiers =
            (isDown(VK_SHIFT) ? 1u : 0u) | (isDown(VK_CONTROL) ? 2u : 0u) | (isDown(VK_MENU) ? 4u : 0u);
        return site->TranslateAccelerator(message, modifiers) == S_OK ? S_OK : S_FALSE;
    });
}

STDMETHODIMP CComControl::OnFrameWindowActivate(BOOL) {
    return S_OK;
}

STDMETHODIMP CComControl::OnDocWindowActivate(BOOL) {
    return S_OK;
}

STDMETHODIMP CComControl::ResizeBorder(LPCRECT, IOleInPlaceUIWindow*, BOOL) {
    return S_OK;
}

STDMETHODIMP CComControl::EnableModeless(BOOL) {
    return S_OK;
}
