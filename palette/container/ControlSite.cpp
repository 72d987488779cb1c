#include "palette/container/ControlSite.h"

#include <algorithm>
#include <array>

#include "framework/base/Hresult.h"
#include "palette/container/ControlFrame.h"
#include "palette/container/HostedControl.h"

namespace kvpalette {

namespace {

constexpr int c_himetricPerInch = 2540;

SIZE PixelsPerInch() {
    const HDC screen = ::GetDC(nullptr);
    const SIZE resolution{::GetDeviceCaps(screen, LOGPIXELSX), ::GetDeviceCaps(screen, LOGPIXELSY)};
    ::ReleaseDC(nullptr, screen);
    return resolution;
}

}  // namespace

std::span<const fw::InterfaceEntry> ControlSite::Interfaces() {
    static constexpr std::array s_interfaces{
        fw::Implements<ControlSite, IOleClientSite>(),
        fw::Implements<ControlSite, IOleInPlaceSiteEx>(),
        fw::Implements<ControlSite, IOleInPlaceSite, IOleInPlaceSiteEx>(),
        fw::Implements<ControlSite, IOleWindow, IOleInPlaceSiteEx>(),
        fw::Implements<ControlSite, IOleControlSite>(),
        fw::Implements<ControlSite, IDispatch>(),
    };
    return s_interfaces;
}

void ControlSite::Connect(HostedControl* owner, ControlFrame* frame, const AmbientValues* ambient) {
    m_owner = owner;
    m_frame = frame;
    m_ambient = ambient;
}

void ControlSite::Disconnect() {
    Connect(nullptr, nullptr, nullptr);
}

STDMETHODIMP ControlSite::SaveObject() {
    return E_NOTIMPL;
}

STDMETHODIMP ControlSite::GetMoniker(DWORD, DWORD, IMoniker** result) {
    RETURN_IF_NULL_POINTER(result);
    *result = nullptr;
    return E_NOTIMPL;
}

STDMETHODIMP ControlSite::GetContainer(IOleContainer** result) {
    RETURN_IF_NULL_POINTER(result);
    *result = nullptr;
    RETURN_HR_IF(E_UNEXPECTED, !m_frame);
    *result = m_frame;
    (*result)->AddRef();
    return S_OK;
}

STDMETHODIMP ControlSite::ShowObject() {
    return S_OK;
}

STDMETHODIMP ControlSite::OnShowWindow(BOOL) {
    return S_OK;
}

// The palette lays the rows out, not their controls.
STDMETHODIMP ControlSite::RequestNewObjectLayout() {
    return E_NOTIMPL;
}

STDMETHODIMP ControlSite::GetWindow(HWND* result) {
    RETURN_IF_NULL_POINTER(result);
    *result = m_owner ? m_owner->ParentWindow() : nullptr;
    return *result ? S_OK : E_UNEXPECTED;
}

STDMETHODIMP ControlSite::ContextSensitiveHelp(BOOL) {
    return S_OK;
}

STDMETHODIMP ControlSite::CanInPlaceActivate() {
    return m_owner ? S_OK : S_FALSE;
}

STDMETHODIMP ControlSite::OnInPlaceActivate() {
    return m_owner ? S_OK : E_UNEXPECTED;
}

STDMETHODIMP ControlSite::OnUIActivate() {
    RETURN_HR_IF(E_UNEXPECTED, !m_owner);
    m_owner->NoteActive(true);
    return S_OK;
}

STDMETHODIMP ControlSite::GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document,
                                           LPRECT position, LPRECT clip, LPOLEINPLACEFRAMEINFO info) {
    RETURN_HR_IF(E_POINTER, !frame || !document || !position || !clip || !info);
    *frame = nullptr;
    *document = nullptr;
    RETURN_HR_IF(E_UNEXPECTED, !m_owner || !m_frame);
    *frame = m_frame;
    (*frame)->AddRef();
    *position = m_owner->Position();
    *clip = m_owner->Position();
    info->cb = sizeof(OLEINPLACEFRAMEINFO);
    info->fMDIApp = FALSE;
    info->hwndFrame = m_frame->FrameWindow();
    info->haccel = nullptr;
    info->cAccelEntries = 0;
    return S_OK;
}

STDMETHODIMP ControlSite::Scroll(SIZE) {
    return S_FALSE;
}

STDMETHODIMP ControlSite::OnUIDeactivate(BOOL) {
    RETURN_HR_IF(E_UNEXPECTED, !m_owner);
    m_owner->NoteActive(false);
    return S_OK;
}

STDMETHODIMP ControlSite::OnInPlaceDeactivate() {
    return S_OK;
}

STDMETHODIMP ControlSite::DiscardUndoState() {
    return S_OK;
}

STDMETHODIMP ControlSite::DeactivateAndUndo() {
    return m_owner ? m_owner->UiDeactivate() : E_UNEXPECTED;
}

STDMETHODIMP ControlSite::OnPosRectChange(LPCRECT) {
    return m_owner ? m_owner->SetPosition(m_owner->Position()) : E_UNEXPECTED;
}

STDMETHODIMP ControlSite::OnInPlaceActivateEx(BOOL* noRedraw, DWORD) {
    if (noRedraw) {
        *noRedraw = FALSE;
    }
    return OnInPlaceActivate();
}

STDMETHODIMP ControlSite::OnInPlaceDeactivateEx(BOOL) {
    return OnInPlaceDeactivate();
}

STDMETHODIMP ControlSite::RequestUIActivate() {
    return m_owner ? S_OK : S_FALSE;
}

STDMETHODIMP ControlSite::OnControlInfoChanged() {
    return S_OK;
}

STDMETHODIMP ControlSite::LockInPlaceActive(BOOL) {
    return S_OK;
}

STDMETHODIMP ControlSite::GetExtendedControl(IDispatch** result) {
    RETURN_IF_NULL_POINTER(result);
    *result = nullptr;
    return E_NOTIMPL;
}

STDMETHODIMP ControlSite::TransformCoords(POINTL* himetric, POINTF* container, DWORD flags) {
    RETURN_HR_IF(E_POINTER, !himetric || !container);
    const SIZE resolution = PixelsPerInch();
    if (flags & XFORMCOORDS_HIMETRICTOCONTAINER) {
        container->x = static_cast<float>(::MulDiv(himetric->x, resolution.cx, c_himetricPerInch));
        container->y = static_cast<float>(::MulDiv(himetric->y, resolution.cy, c_himetricPerInch));
        return S_OK;
    }
    RETURN_HR_IF(E_INVALIDARG, !(flags & XFORMCOORDS_CONTAINERTOHIMETRIC));
    himetric->x = ::MulDiv(static_cast<int>(container->x), c_himetricPerInch, resolution.cx);
    himetric->y = ::MulDiv(static_cast<int>(container->y), c_himetricPerInch, resolution.cy);
    return S_OK;
}

STDMETHODIMP ControlSite::TranslateAccelerator(LPMSG, DWORD) {
    return S_FALSE;
}

STDMETHODIMP ControlSite::OnFocus(BOOL) {
    return S_OK;
}

STDMETHODIMP ControlSite::ShowPropertyFrame() {
    return E_NOTIMPL;
}

STDMETHODIMP ControlSite::GetTypeInfoCount(UINT* count) {
    RETURN_IF_NULL_POINTER(count);
    *count = 0;
    return S_OK;
}

STDMETHODIMP ControlSite::GetTypeInfo(UINT, LCID, ITypeInfo** result) {
    RETURN_IF_NULL_POINTER(result);
    *result = nullptr;
    return E_NOTIMPL;
}

STDMETHODIMP ControlSite::GetIDsOfNames(REFIID, LPOLESTR*, UINT count, LCID, DISPID* ids) {
    RETURN_IF_NULL_POINTER(ids);
    std::fill_n(ids, count, DISPID_UNKNOWN);
    return DISP_E_UNKNOWNNAME;
}

STDMETHODIMP ControlSite::Invoke(DISPID id, REFIID reserved, LCID, WORD flags, DISPPARAMS*, VARIANT* result,
                                 EXCEPINFO*, UINT*) {
    RETURN_HR_IF(DISP_E_UNKNOWNINTERFACE, !::IsEqualIID(reserved, IID_NULL));
    RETURN_HR_IF(DISP_E_MEMBERNOTFOUND, !(flags & DISPATCH_PROPERTYGET));
    RETURN_IF_NULL_POINTER(result);
    ::VariantInit(result);
    RETURN_HR_IF(E_UNEXPECTED, !m_ambient);
    return ReadAmbient(*m_ambient, id, *result);
}

}  // namespace kvpalette
