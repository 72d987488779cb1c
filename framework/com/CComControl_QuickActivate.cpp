#include "framework/base/Hresult.h"
#include "framework/com/CComControl.h"
#include "framework/com/Guarded.h"

// IQuickActivate

STDMETHODIMP CComControl::QuickActivate(QACONTAINER* container, QACONTROL* control) {
    RETURN_IF_NULL_POINTER(container);
    RETURN_IF_NULL_POINTER(control);
    RETURN_HR_IF(E_INVALIDARG,
                 container->cbSize < sizeof(QACONTAINER) || control->cbSize < sizeof(QACONTROL));
    const ULONG size = control->cbSize;
    *control = QACONTROL{};
    control->cbSize = size;
    return fw::Guarded([&] {
        const fw::ComPtr<IUnknown> self(GetUnknown());
        RETURN_IF_FAILED_EXPECTED(SetClientSite(container->pClientSite));
        TakeQuickAmbients(*container);
        if (container->pAdviseSink) {
            RETURN_IF_FAILED_EXPECTED(SetAdvise(DVASPECT_CONTENT, 0, container->pAdviseSink));
        }
        control->dwPropNotifyCookie =
            ConnectQuickly(FindPoint(IID_IPropertyNotifySink), container->pPropertyNotifySink);
        control->dwEventCookie = ConnectQuickly(EventPoint(), container->pUnkEventSink);
        RETURN_IF_FAILED(GetMiscStatus(DVASPECT_CONTENT, &control->dwMiscStatus));
        return GetViewStatus(&control->dwViewStatus);
    });
}

void CComControl::TakeQuickAmbients(const QACONTAINER& container) {
    // A container that fills in no colours leaves both zero: black on black cannot be meant.
    m_quickAmbients.haveColors = container.colorFore != container.colorBack;
    m_quickAmbients.foreColor = container.colorFore;
    m_quickAmbients.backColor = container.colorBack;
    m_quickAmbients.font = container.pFont;
}

DWORD CComControl::ConnectQuickly(fw::ConnectionPoint* point, IUnknown* sink) {
    DWORD cookie = 0;
    if (point && sink) {
        // A cookie of 0 tells the container that its sink was not taken.
        fw::Ignore(point->Advise(sink, &cookie));
    }
    return cookie;
}

fw::ConnectionPoint* CComControl::EventPoint() const noexcept {
    fw::ConnectionPoint* point = FirstPoint();
    while (point && ::IsEqualIID(point->SinkInterface(), IID_IPropertyNotifySink)) {
        point = point->Next();
    }
    return point;
}

STDMETHODIMP CComControl::SetContentExtent(LPSIZEL extent) {
    return SetExtent(DVASPECT_CONTENT, extent);
}

STDMETHODIMP CComControl::GetContentExtent(LPSIZEL extent) {
    return GetExtent(DVASPECT_CONTENT, extent);
}
